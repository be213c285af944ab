#include "controls/Hatch.h"

#include <QPainter>
#include <cmath>

namespace marvello {

void paintHatch(QPainter& painter, const QRectF& box, const QColor& colour, double step, double width) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, width));
    // Along each line x + y is a multiple of the step.
    const double last = box.right() + box.bottom();
    for (double sum = std::ceil((box.left() + box.top()) / step) * step; sum < last; sum += step)
        painter.drawLine(QPointF(sum - box.bottom(), box.bottom()), QPointF(sum - box.top(), box.top()));
    painter.restore();
}

}  // namespace marvello
