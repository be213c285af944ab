#include "controls/FilterChip.h"

#include <QFontMetrics>
#include <QPainter>

#include "controls/Icons.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int padding = 11;
constexpr int tickSide = 14;
constexpr int gap = 6;
constexpr int radius = FilterChip::chipHeight / 2;

QFont chipFont() { return lookFont(12); }

}  // namespace

FilterChip::FilterChip(QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void FilterChip::setFilter(const QString& caption, int count) {
    setText(caption);
    count_ = count;
    setAccessibleName(QStringLiteral("%1, %2").arg(caption).arg(count));
    updateGeometry();
    update();
}

QSize FilterChip::sizeHint() const {
    const QFontMetrics metrics(chipFont());
    const int width = metrics.horizontalAdvance(text()) + gap +
                      metrics.horizontalAdvance(QString::number(count_)) + 2 * padding +
                      (isChecked() ? tickSide + gap : 0);
    return {width + 2 * ring, chipHeight + 2 * ring};
}

void FilterChip::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(ring, ring, -ring, -ring);
    if (hasFocus()) {
        painter.setPen(QPen(look.focusHalo, ring));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(frame.adjusted(-1.5, -1.5, 1.5, 1.5), radius + 1.5, radius + 1.5);
    }
    const bool isOn = isChecked();
    const bool isUnderMouse = isEnabled() && underMouse();
    painter.setPen(!isEnabled()         ? look.line
                   : isOn || hasFocus() ? look.accent
                   : isUnderMouse       ? look.text
                                        : look.controlLine);
    painter.setBrush(isOn ? look.accentTint : isUnderMouse ? look.hover : look.surface);
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);

    QRectF room = frame.adjusted(padding, 0, -padding, 0);
    if (isOn) {
        paintIcon(painter, {room.left() - 2, room.center().y() - tickSide / 2.0, tickSide, tickSide},
                  QStringLiteral("check"), look.accent);
        room.setLeft(room.left() + tickSide + gap - 2);
    }
    painter.setFont(chipFont());
    painter.setPen(isEnabled() ? look.text : look.disabled);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, text());
    painter.setPen(isEnabled() ? look.muted : look.disabled);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight, QString::number(count_));
}

}  // namespace marvello
