#include "workspace/LimitsPage.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "controls/GraphLegend.h"
#include "controls/Hairline.h"
#include "controls/Look.h"
#include "controls/ctlGraph.h"

namespace marvello {

namespace {

constexpr int sideWidth = 215;

}  // namespace

LimitsPage::LimitsPage(QWidget* parent) : QWidget(parent) {
    limitgraph_ = new ctlGraph(this);
    limitgraph_->setObjectName(QStringLiteral("limitgraph"));
    between_ = new Hairline(this);
    side_ = new QScrollArea(this);
    side_->setFrameShape(QFrame::NoFrame);
    side_->setWidgetResizable(true);
    side_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    side_->setFocusPolicy(Qt::TabFocus);  // the arrow keys scroll it
    side_->setFixedWidth(sideWidth);
    auto* inside = new QWidget(side_);
    QPalette ground = inside->palette();
    ground.setColor(QPalette::Window, Look::current().surface);
    inside->setPalette(ground);
    side_->viewport()->setPalette(ground);
    auto* column = new QVBoxLayout(inside);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    picGraphLbl_ = new GraphLegend(inside);
    picGraphLbl_->setObjectName(QStringLiteral("picGraphLbl"));
    picGraphLbl_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    distances_ = new LimitDistances(inside);
    distances_->setObjectName(QStringLiteral("picDistances"));
    distances_->hide();
    column->addWidget(picGraphLbl_);
    column->addWidget(distances_);
    column->addStretch(1);
    side_->setWidget(inside);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(limitgraph_, 1);
    row->addWidget(between_);
    row->addWidget(side_);
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
    side_->setAccessibleName(legend);
}

void LimitsPage::clear() {
    limitgraph_->Clear();
    picGraphLbl_->setLimits(clsLimits(), false);
    distances_->setRows({}, {}, clsLimits());
    isFilled_ = false;
    showParts();
}

// Axes without an envelope would be those of another compressor. The name of a line also shows under the
// mouse; in a narrow page the graph needs the room more.
void LimitsPage::showParts() {
    constexpr int minimumWidthWithLegend = 480;
    limitgraph_->setVisible(isFilled_);
    for (QWidget* part : std::initializer_list<QWidget*>{between_, side_})
        part->setVisible(isFilled_ && width() >= minimumWidthWithLegend);
}

void LimitsPage::setLimits(const clsLimits& limits, const clsPoint& point) {
    limitgraph_->SetPoint(point);
    limitgraph_->SetLimits(limits);
    picGraphLbl_->setLimits(limits, true);
    isFilled_ = true;
    showParts();
}

void LimitsPage::setDistances(const QString& title, std::vector<LimitDistances::Row> rows) {
    distances_->setRows(title, std::move(rows), limitgraph_->limits());
}

}  // namespace marvello
