#include "controls/ApplyRow.h"

#include <QPainter>

#include "controls/Look.h"

namespace marvello {

ApplyRow::ApplyRow(QWidget* parent) : QAbstractButton(parent) {
    setObjectName(QStringLiteral("applyRow"));
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
}

void ApplyRow::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    if (underMouse()) painter.fillRect(rect(), isDown() ? look.accentTint : look.hover);
    painter.fillRect(0, 0, width(), 1, look.line);
    painter.setPen(look.accent);
    painter.setFont(lookFont(13, QFont::Medium));
    painter.drawText(rect().adjusted(10, 0, -10, 0), Qt::AlignLeft | Qt::AlignVCenter, text());
}

}  // namespace marvello
