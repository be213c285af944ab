#include "workspace/WorkArea.h"

#include <QMdiSubWindow>
#include <QPainter>

#include "controls/Icons.h"
#include "controls/Look.h"

namespace marvello {

WorkArea::WorkArea(QWidget* parent) : QMdiArea(parent) { setBackground(Look::current().window); }

void WorkArea::paintEvent(QPaintEvent* event) {
    QMdiArea::paintEvent(event);
    if (!subWindowList().isEmpty()) return;
    constexpr double side = 120;
    QPainter painter(viewport());
    const QRectF place((viewport()->width() - side) / 2, (viewport()->height() - side) / 2, side, side);
    paintIcon(painter, place, QStringLiteral("emblem"), Look::current().hover);
}

void WorkArea::tileHorizontal() {
    const QList<QMdiSubWindow*> windows = subWindowList();
    const auto count = static_cast<int>(windows.size());
    for (int i = 0; i < count; ++i) {
        windows[i]->showNormal();
        const int top = height() * i / count;
        windows[i]->setGeometry(0, top, width(), height() * (i + 1) / count - top);
    }
}

void WorkArea::arrangeIcons() {
    QPoint next(0, viewport()->height());
    for (QMdiSubWindow* window : subWindowList()) {
        if (!window->isMinimized()) continue;
        if (next.x() > 0 && next.x() + window->width() > viewport()->width())
            next = QPoint(0, next.y() - window->height());
        window->move(next.x(), next.y() - window->height());
        next.rx() += window->width();
    }
}

void WorkArea::tileVertical() {
    const QList<QMdiSubWindow*> windows = subWindowList();
    const auto count = static_cast<int>(windows.size());
    for (int i = 0; i < count; ++i) {
        windows[i]->showNormal();
        const int left = width() * i / count;
        windows[i]->setGeometry(left, 0, width() * (i + 1) / count - left, height());
    }
}

}  // namespace marvello
