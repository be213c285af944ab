#include "controls/FieldFrame.h"

#include <QPainter>

#include "controls/Look.h"

namespace marvello {

void FieldFrame::paint(QPainter& painter, const QRectF& box) const {
    const Look& look = Look::current();
    const QRectF frame = box.adjusted(0.5, 0.5, -0.5, -0.5);
    if (isFocused && isEnabled && !isInvalid) {
        painter.setPen(QPen(look.focusHalo, halo));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(-1.5, -1.5, 1.5, 1.5), 5.5, 5.5);
    }
    QColor line = border.isValid() ? border : isHovered ? look.text : look.controlLine;
    QColor fill = ground.isValid() ? ground : look.surface;
    if (isFocused) line = look.accent;
    if (isInvalid) {
        line = look.red;
        fill = look.errorTint;
    }
    if (!isEnabled) {
        line = look.line;
        fill = look.surfaceAlt;
    }
    painter.setPen(QPen(line, isInvalid ? 2 : 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(isInvalid ? frame.adjusted(0.5, 0.5, -0.5, -0.5) : frame, 4, 4);
}

}  // namespace marvello
