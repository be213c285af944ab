#include "controls/Grip.h"

#include <QMouseEvent>
#include <QPainter>

#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int side = 14;

}  // namespace

Grip::Grip(const QSize& minSize, QWidget* window) : QWidget(window), minSize_(minSize) {
    setObjectName(QStringLiteral("picresize"));
    setCursor(Qt::SizeFDiagCursor);
    resize(side, side);
}

void Grip::moveToCorner() {
    move(parentWidget()->width() - side, parentWidget()->height() - side);
    raise();
}

void Grip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Look::current().controlLine);
    painter.drawLine(QPointF(11, 4), QPointF(4, 11));
    painter.drawLine(QPointF(11, 8), QPointF(8, 11));
}

void Grip::mousePressEvent(QMouseEvent* event) {
    start_ = event->globalPosition().toPoint();
    size_ = parentWidget()->size();
}

void Grip::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    const QPoint moved = event->globalPosition().toPoint() - start_;
    parentWidget()->resize((size_ + QSize(moved.x(), moved.y())).expandedTo(minSize_));
}

}  // namespace marvello
