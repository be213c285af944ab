// How the point of the graph is moved.

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

#include "controls/ctlGraph.h"

namespace marvello {

namespace {

constexpr double step = 0.1;     // units of the axes
constexpr double largeStep = 1;  // with Shift
constexpr double reach = 12;     // pixels around the point that take it
constexpr double leastWay = 3;   // pixels that are a move and no click

double onStep(double value) {
    const double tenths = std::round(value / step);
    return tenths / std::round(1 / step);
}

}  // namespace

void ctlGraph::setMovable(bool isMovable) {
    isMovable_ = isMovable;
    setFocusPolicy(isMovable ? Qt::StrongFocus : Qt::NoFocus);
}

void ctlGraph::SetPoint(const std::optional<clsPoint>& point) {
    drawing_.point = point;
    drawing_.origin.reset();
    isHeld_ = false;
    lblXY_->hide();
    update();
}

void ctlGraph::setMovedText(const QString& text) {
    if (!isMoved()) return;
    lblXY_->setText(text);
    placeLabel(drawing_.toPlace(*drawing_.point, rect()).toPoint());
}

bool ctlGraph::isOnPoint(const QPointF& place) const {
    if (!isMovable_ || !drawing_.point) return false;
    const QPointF away = drawing_.toPlace(*drawing_.point, rect()) - place;
    return std::hypot(away.x(), away.y()) <= reach;
}

/// Within the picture.
void ctlGraph::moveTo(const clsPoint& point) {
    const GraphScale& scale = drawing_.scale();
    const clsPoint to{std::clamp(onStep(point.x), scale.left, scale.right),
                      std::clamp(onStep(point.Y), scale.bottom, scale.top)};
    if (to.x == drawing_.point->x && to.Y == drawing_.point->Y) return;
    if (!isMoved()) drawing_.origin = drawing_.point;
    drawing_.point = to;
    hits_ = QImage();
    update();
    emit pointMoved(to.x, to.Y);
}

void ctlGraph::putBack() {
    isHeld_ = false;
    unsetCursor();
    if (!isMoved()) return;
    SetPoint(drawing_.origin);
    hits_ = QImage();
    emit pointPutBack();
}

void ctlGraph::take() {
    isHeld_ = false;
    unsetCursor();
    if (!isMoved()) return;
    const clsPoint taken = *drawing_.point;
    const clsPoint& before = *drawing_.origin;
    if (taken.x == before.x && taken.Y == before.Y)
        putBack();
    else
        emit pointTaken(taken.x, taken.Y);
}

void ctlGraph::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !isOnPoint(event->position())) {
        QWidget::mousePressEvent(event);
        return;
    }
    isHeld_ = true;
    pressed_ = event->position();
    grip_ = drawing_.toPlace(*drawing_.point, rect()) - pressed_;
    setCursor(Qt::ClosedHandCursor);
}

void ctlGraph::mouseMoveEvent(QMouseEvent* event) {
    if (isHeld_) {
        const QPointF way = event->position() - pressed_;
        if (isMoved() || std::hypot(way.x(), way.y()) >= leastWay)
            moveTo(drawing_.fromPlace(event->position() + grip_, rect()));
        return;
    }
    if (isOnPoint(event->position()))
        setCursor(Qt::OpenHandCursor);
    else
        unsetCursor();
    if (!isMoved()) showHover(event->position());
}

void ctlGraph::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && isHeld_)
        take();
    else
        QWidget::mouseReleaseEvent(event);
}

// Esc is a shortcut of windows; while the point is moved it is the graph's.
bool ctlGraph::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && (isMoved() || isHeld_) &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void ctlGraph::keyPressEvent(QKeyEvent* event) {
    if (!isMovable_ || !drawing_.point) return QWidget::keyPressEvent(event);
    const double by = event->modifiers().testFlag(Qt::ShiftModifier) ? largeStep : step;
    clsPoint to = *drawing_.point;
    switch (event->key()) {
        case Qt::Key_Left:
            to.x -= by;
            break;
        case Qt::Key_Right:
            to.x += by;
            break;
        case Qt::Key_Up:
            to.Y += by;
            break;
        case Qt::Key_Down:
            to.Y -= by;
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return isHeld_ ? void() : take();
        case Qt::Key_Escape:
            if (!isMoved() && !isHeld_) return QWidget::keyPressEvent(event);
            return putBack();
        default:
            return QWidget::keyPressEvent(event);
    }
    if (!isHeld_) moveTo(to);
}

void ctlGraph::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void ctlGraph::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    // A menu or another window borrows the focus.
    const bool isLent = event->reason() == Qt::PopupFocusReason ||
                        event->reason() == Qt::ActiveWindowFocusReason ||
                        event->reason() == Qt::MenuBarFocusReason;
    if (!isLent) putBack();
    update();
}

void ctlGraph::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    putBack();
}

}  // namespace marvello
