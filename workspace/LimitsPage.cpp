#include "workspace/LimitsPage.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "controls/GraphLegend.h"
#include "controls/Hairline.h"
#include "controls/Look.h"
#include "controls/MapLegend.h"
#include "controls/PageBar.h"
#include "controls/ReadOut.h"
#include "controls/SegmentedSelector.h"
#include "controls/ctlGraph.h"

namespace marvello {

namespace {

constexpr int sideWidth = 215;

}  // namespace

LimitsPage::LimitsPage(QWidget* parent) : QWidget(parent) {
    bar_ = new PageBar(this);
    bar_->setObjectName(QStringLiteral("mapBar"));
    selector_ = new SegmentedSelector(bar_);
    selector_->setObjectName(QStringLiteral("mapQuantity"));
    bar_->add(selector_, SegmentedSelector::ring);
    limitgraph_ = new ctlGraph(this);
    limitgraph_->setObjectName(QStringLiteral("limitgraph"));
    setFocusProxy(limitgraph_);
    between_ = new Hairline(this);
    makeSide();
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(limitgraph_, 1);
    row->addWidget(between_);
    row->addWidget(side_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar_);
    column->addLayout(row, 1);
    showParts();
}

void LimitsPage::makeSide() {
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
    readOut_ = new ReadOut(inside);
    readOut_->setObjectName(QStringLiteral("picReadOut"));
    mapLegend_ = new MapLegend(inside);
    mapLegend_->setObjectName(QStringLiteral("picMapLegend"));
    distances_ = new LimitDistances(inside);
    distances_->setObjectName(QStringLiteral("picDistances"));
    distances_->hide();
    picGraphLbl_ = new GraphLegend(inside);
    picGraphLbl_->setObjectName(QStringLiteral("picGraphLbl"));
    picGraphLbl_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* column = new QVBoxLayout(inside);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    // What follows the point comes first.
    for (QWidget* part : std::initializer_list<QWidget*>{readOut_, mapLegend_, distances_, picGraphLbl_})
        column->addWidget(part);
    column->addStretch(1);
    side_->setWidget(inside);
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
    readOut_->setValues({});
    mapLegend_->setMap(nullptr);
    isFilled_ = false;
    showParts();
}

// Axes without an envelope would be those of another compressor. The name of a line also shows under the
// mouse; in a narrow page the graph needs the room more.
void LimitsPage::showParts() {
    constexpr int minimumWidthWithLegend = 480;
    limitgraph_->setVisible(isFilled_);
    bar_->setVisible(isFilled_);
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

void LimitsPage::setMap(const std::shared_ptr<const EnvelopeMap>& map) {
    limitgraph_->setMap(map);
    mapLegend_->setMap(map);
}

bool LimitsPage::hasMap() const { return limitgraph_->drawing().map != nullptr; }

void LimitsPage::setDistances(const QString& title, std::vector<LimitDistances::Row> rows) {
    distances_->setRows(title, std::move(rows), limitgraph_->limits());
}

}  // namespace marvello
