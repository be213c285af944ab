#include "controls/ProgressBar.h"

#include <QPainter>
#include <algorithm>

#include "controls/Look.h"

namespace marvello {

ProgressBar::ProgressBar(QWidget* parent) : QWidget(parent) { setFixedHeight(6); }

void ProgressBar::SetValue(int percent) {
    value_ = std::clamp(percent, 0, 100);
    update();
}

void ProgressBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Look::current().line);
    painter.drawRoundedRect(rect(), 3, 3);
    if (value_ == 0) return;
    QRectF filled(rect());
    filled.setWidth(std::max(6.0, filled.width() * value_ / 100.0));
    painter.setBrush(Look::current().accent);
    painter.drawRoundedRect(filled, 3, 3);
}

}  // namespace marvello
