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

void WorkArea::tile(Qt::Orientation orientation) {
    const QList<QMdiSubWindow*> windows = subWindowList();
    const auto count = static_cast<int>(windows.size());
    for (int i = 0; i < count; ++i) {
        windows[i]->showNormal();
        const auto edge = [&](int whole, int part) { return whole * part / count; };
        if (orientation == Qt::Vertical)
            windows[i]->setGeometry(0, edge(height(), i), width(), edge(height(), i + 1) - edge(height(), i));
        else
            windows[i]->setGeometry(edge(width(), i), 0, edge(width(), i + 1) - edge(width(), i), height());
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

}  // namespace marvello
