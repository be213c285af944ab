#include "workspace/FramePlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace marvello {

namespace {

constexpr QSize usualSize(1440, 870);
// Room for the title and the borders that the desktop puts around a window.
constexpr QMargins decoration(8, 40, 8, 8);

QRect roomOf(const QScreen& screen) { return screen.availableGeometry().marginsRemoved(decoration); }

/// The screen that shows most of a rectangle; the primary one if none does.
const QScreen& screenOf(const QRect& place) {
    const QScreen* best = QGuiApplication::primaryScreen();
    int most = 0;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect shared = screen->availableGeometry() & place;
        if (const int area = shared.isEmpty() ? 0 : shared.width() * shared.height(); area > most) {
            most = area;
            best = screen;
        }
    }
    return *best;
}

void placeFirst(QWidget& window) {
    const QRect room = roomOf(*QGuiApplication::primaryScreen());
    QRect place(QPoint(), usualSize);
    place.moveCenter(room.center());
    window.setGeometry(fittedInto(place, room));
    if (!room.contains(place)) window.setWindowState(Qt::WindowMaximized);
}

}  // namespace

QRect fittedInto(const QRect& wanted, const QRect& available) {
    const QSize size = wanted.size().boundedTo(available.size());
    const int left = qBound(available.left(), wanted.left(), available.right() + 1 - size.width());
    const int top = qBound(available.top(), wanted.top(), available.bottom() + 1 - size.height());
    return {QPoint(left, top), size};
}

void placeFrame(QWidget& window, const QByteArray& kept) {
    // Read by a window that is never shown: damaged bytes may hold any size.
    QWidget reader;
    if (!reader.restoreGeometry(kept)) return placeFirst(window);
    const QRect place = reader.normalGeometry().isValid() ? reader.normalGeometry() : reader.geometry();
    // Beyond this no desktop reaches, and sums of coordinates stay far from overflow.
    constexpr int farthest = 100'000;
    const QRect desktops(-farthest, -farthest, 2 * farthest, 2 * farthest);
    if (place.width() < window.minimumWidth() || place.height() < window.minimumHeight() ||
        !desktops.contains(place))
        return placeFirst(window);
    window.setGeometry(fittedInto(place, roomOf(screenOf(place))));
    if (reader.isMaximized()) window.setWindowState(Qt::WindowMaximized);
}

}  // namespace marvello
