#include "controls/FilterChip.h"

#include <QFontMetrics>
#include <QPainter>

#include "controls/Icons.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int padding = 11;
constexpr int tickSide = 14;
constexpr int arrowSide = 12;
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
    setAccessibleName(count < 0 ? caption : QStringLiteral("%1, %2").arg(caption).arg(count));
    updateGeometry();
    update();
}

void FilterChip::setOpensList() { opensList_ = true; }

void FilterChip::nextCheckState() {
    if (!opensList_) QAbstractButton::nextCheckState();
}

QString FilterChip::countText() const { return count_ < 0 ? QString() : QString::number(count_); }

QSize FilterChip::sizeHint() const {
    const QFontMetrics metrics(chipFont());
    const auto with = [](int width) { return width == 0 ? 0 : gap + width; };
    const int width = metrics.horizontalAdvance(text()) + with(metrics.horizontalAdvance(countText())) +
                      2 * padding + (isChecked() ? tickSide + gap : 0) + (opensList_ ? gap + arrowSide : 0);
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
    if (opensList_) {
        paintIcon(painter,
                  {room.right() - arrowSide + 2, room.center().y() - arrowSide / 2.0, arrowSide, arrowSide},
                  QStringLiteral("chev"), look.muted);
        room.setRight(room.right() - arrowSide - gap + 2);
    }
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight, countText());
}

}  // namespace marvello
