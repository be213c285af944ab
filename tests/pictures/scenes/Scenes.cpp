#include "tests/pictures/scenes/Scenes.h"

#include <QPainter>
#include <utility>

namespace marvello::scenes {

Painted::Painted(const QSize& size, Paint paint, QWidget* parent)
    : QWidget(parent), paint_(std::move(paint)) {
    setFixedSize(size);
}

void Painted::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // The same on the screen of any look: these are drawings on paper.
    painter.fillRect(rect(), Qt::white);
    paint_(painter, rect());
}

}  // namespace marvello::scenes
