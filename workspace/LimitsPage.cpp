#include "workspace/LimitsPage.h"

#include <QHBoxLayout>

#include "controls/GraphLegend.h"
#include "controls/Look.h"
#include "controls/ctlGraph.h"

namespace marvello {

LimitsPage::LimitsPage(QWidget* parent) : QWidget(parent) {
    limitgraph_ = new ctlGraph(this);
    limitgraph_->setObjectName(QStringLiteral("limitgraph"));
    picGraphLbl_ = new GraphLegend(this);
    picGraphLbl_->setObjectName(QStringLiteral("picGraphLbl"));
    auto* between = new QWidget(this);
    between->setFixedWidth(1);
    between->setStyleSheet(QStringLiteral("background: %1").arg(Look::current().line.name()));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(limitgraph_, 1);
    row->addWidget(between);
    row->addWidget(picGraphLbl_);
}

void LimitsPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // The name of a line also shows under the mouse; the graph needs the room more.
    constexpr int leastWidthWithLegend = 480;
    picGraphLbl_->setVisible(width() >= leastWidthWithLegend);
}

void LimitsPage::setTexts(const QString& x, const QString& y, const QString& legend) {
    limitgraph_->SetTextX(x);
    limitgraph_->SetTextY(y);
    limitgraph_->setAccessibleName(legend);
    picGraphLbl_->setTitle(legend);
}

void LimitsPage::clear() {
    limitgraph_->Clear();
    picGraphLbl_->setLimits(clsLimits(), false);
}

void LimitsPage::setLimits(const clsLimits& limits, const clsPoint& point) {
    limitgraph_->SetPoint(point);
    limitgraph_->SetLimits(limits);
    picGraphLbl_->setLimits(limits, true);
}

}  // namespace marvello
