#include "controls/ctlLimitsGraphic.h"

#include <QPainter>
#include <memory>

namespace marvello {

ctlLimitsGraphic::ctlLimitsGraphic(QWidget* parent) : QWidget(parent) {
    connect(this, &ctlLimitsGraphic::appearanceChanged, this, qOverload<>(&QWidget::update));
}

void ctlLimitsGraphic::DrawLimits(const clsLimits& limits) {
    drawing_.limits = clsLimits();
    for (const int type : {limitType::over, limitType::application, limitType::oilCooling}) {
        const clsLimit* limit = limits.GetLimitType(type);
        if (!limit || limit->Points.Count() == 0) continue;
        auto plain = std::make_shared<clsLimit>(*limit);
        plain->Caption.clear();
        drawing_.limits.add(plain);
    }
    const auto& first = limits.getLeftPoint();
    const auto& last = limits.getRightPoint();
    if (first && last) {
        scaleLeft_ = first->x;
        scaleTop_ = first->Y;
        scaleWidth_ = last->x - first->x;
        scaleHeight_ = last->Y - first->Y;
    }
    Refresh();
}

void ctlLimitsGraphic::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawing_.setScale({scaleLeft_, scaleTop_, scaleLeft_ + scaleWidth_, scaleTop_ + scaleHeight_});
    drawing_.gridVisible = gridVisible_;
    drawing_.axisVisible = axisVisible_;
    drawing_.gridGap = gridGap_;
    GraphColours colours = GraphColours::onScreen();
    if (backColor_.isValid()) colours.plot = backColor_;
    if (axisColor_.isValid()) colours.axis = axisColor_;
    if (gridColor_.isValid()) colours.grid = gridColor_;
    painter.fillRect(rect(), colours.plot);
    // A line on the very edge is seen whole.
    drawing_.paintLines(painter, QRectF(rect()).adjusted(3, 3, -3, -3), colours);
}

}  // namespace marvello
