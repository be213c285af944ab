#include "workspace/DimensionPage.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "controls/Look.h"

namespace marvello {

DimensionPage::DimensionPage(QWidget* parent) : QWidget(parent) {}

void DimensionPage::clear() { setDrawing(Metafile(), QString()); }

void DimensionPage::setDrawing(const Metafile& drawing, const QString& emptyText) {
    drawing_ = drawing;
    emptyText_ = emptyText;
    zoom_.fit();
    zoomed();
    // A page without a drawing has nothing to do for the keyboard.
    setFocusPolicy(drawing.isNull() ? Qt::NoFocus : Qt::StrongFocus);
    setAccessibleDescription(drawing.isNull() ? emptyText : drawing.texts().join(QStringLiteral(", ")));
    update();
}

void DimensionPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (drawing_.isNull()) {
        painter.setPen(Look::current().muted);
        painter.setFont(lookFont());
        painter.drawText(rect(), Qt::AlignCenter, emptyText_);
        return;
    }
    // Drawings are black on paper, in the dark look as well.
    painter.fillRect(rect(), Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing_.draw(painter, zoom_.placeIn(room()));
    if (!hasFocus()) return;
    painter.setPen(QPen(Look::light().accent, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

QRectF DimensionPage::room() const {
    constexpr int margin = 16;
    return QRectF(rect()).adjusted(margin, margin, -margin, -margin);
}

void DimensionPage::zoomed() {
    if (zoom_.isFitted())
        unsetCursor();
    else
        setCursor(Qt::OpenHandCursor);
    update();
}

void DimensionPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    zoom_.moveBy({}, room());
}

void DimensionPage::wheelEvent(QWheelEvent* event) {
    constexpr double turn = 120;
    if (drawing_.isNull()) return;
    if (event->modifiers() & Qt::ControlModifier)
        zoom_.zoom(event->angleDelta().y() / turn, event->position(), room());
    else
        zoom_.moveBy(QPointF(event->angleDelta()) / 2, room());
    zoomed();
}

void DimensionPage::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || zoom_.isFitted()) return;
    dragged_ = event->position();
    setCursor(Qt::ClosedHandCursor);
}

void DimensionPage::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    zoom_.moveBy(event->position() - dragged_, room());
    dragged_ = event->position();
    update();
}

void DimensionPage::mouseReleaseEvent(QMouseEvent*) { zoomed(); }

void DimensionPage::mouseDoubleClickEvent(QMouseEvent*) {
    zoom_.fit();
    zoomed();
}

void DimensionPage::keyPressEvent(QKeyEvent* event) {
    constexpr double step = 40;
    const QRectF place = room();
    switch (event->key()) {
        case Qt::Key_Plus:
        case Qt::Key_Equal:  // the plus key without Shift
            zoom_.zoom(1, place.center(), place);
            break;
        case Qt::Key_Minus:
            zoom_.zoom(-1, place.center(), place);
            break;
        case Qt::Key_0:
            zoom_.fit();
            break;
        case Qt::Key_Left:
            zoom_.moveBy({step, 0}, place);
            break;
        case Qt::Key_Right:
            zoom_.moveBy({-step, 0}, place);
            break;
        case Qt::Key_Up:
            zoom_.moveBy({0, step}, place);
            break;
        case Qt::Key_Down:
            zoom_.moveBy({0, -step}, place);
            break;
        default:
            QWidget::keyPressEvent(event);
            return;
    }
    zoomed();
}

void DimensionPage::focusInEvent(QFocusEvent*) { update(); }
void DimensionPage::focusOutEvent(QFocusEvent*) { update(); }

}  // namespace marvello
