#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace marvello {

/// Draws thin slanted lines over a box, `step` apart, which run on from one box to the next. The caller clips
/// to the box.
void paintHatch(QPainter& painter, const QRectF& box, const QColor& colour, double step = 9,
                double width = 0.6);

}  // namespace marvello
