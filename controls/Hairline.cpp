#include "controls/Hairline.h"

#include <QPainter>

#include "controls/Look.h"

namespace marvello {

Hairline::Hairline(QWidget* parent) : QWidget(parent) { setFixedWidth(1); }

void Hairline::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(QRect((width() - 1) / 2, 0, 1, height()), Look::current().line);
}

}  // namespace marvello
