#include "workspace/LimitsPage.h"

#include <QHBoxLayout>

#include "controls/GraphLegend.h"
#include "controls/Hairline.h"
#include "controls/ctlGraph.h"

namespace marvello {

LimitsPage::LimitsPage(QWidget* parent) : QWidget(parent) {
    limitgraph_ = new ctlGraph(this);
    limitgraph_->setObjectName(QStringLiteral("limitgraph"));
    picGraphLbl_ = new GraphLegend(this);
    picGraphLbl_->setObjectName(QStringLiteral("picGraphLbl"));
    between_ = new Hairline(this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(limitgraph_, 1);
    row->addWidget(between_);
    row->addWidget(picGraphLbl_);
}

void LimitsPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    showParts();
}

void LimitsPage::setTexts(const QString& x, const QString& y, const QString& legend, const QString& point) {
    limitgraph_->SetTextX(x);
    limitgraph_->SetTextY(y);
    limitgraph_->setAccessibleName(legend);
    limitgraph_->SetPointText(point);
    picGraphLbl_->setTexts(legend, point);
}

void LimitsPage::clear() {
    limitgraph_->Clear();
    picGraphLbl_->setLimits(clsLimits(), false);
    isFilled_ = false;
    showParts();
}

// Axes without an envelope would be those of another compressor. The name of a line also shows under the
// mouse; in a narrow page the graph needs the room more.
void LimitsPage::showParts() {
    constexpr int minimumWidthWithLegend = 480;
    limitgraph_->setVisible(isFilled_);
    for (QWidget* part : std::initializer_list<QWidget*>{between_, picGraphLbl_})
        part->setVisible(isFilled_ && width() >= minimumWidthWithLegend);
}

void LimitsPage::setLimits(const clsLimits& limits, const clsPoint& point) {
    limitgraph_->SetPoint(point);
    limitgraph_->SetLimits(limits);
    picGraphLbl_->setLimits(limits, true);
    isFilled_ = true;
    showParts();
}

}  // namespace marvello
