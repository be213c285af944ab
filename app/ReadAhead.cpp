#include "app/ReadAhead.h"

#include <QCoreApplication>
#include <QEvent>
#include <chrono>

#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"

namespace marvello {

ReadAhead::ReadAhead() {
    using std::chrono_literals::operator""ms;
    pause_.setSingleShot(true);
    pause_.setInterval(300ms);
    connect(&pause_, &QTimer::timeout, this, &ReadAhead::read);
    pause_.start();
    qApp->installEventFilter(this);
}

bool ReadAhead::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress ||
        event->type() == QEvent::Wheel)
        pause_.start();
    return QObject::eventFilter(watched, event);
}

void ReadAhead::read() try {
    qApp->removeEventFilter(this);
    if (!gDatabase().isOpen()) return;
    gDatabase().checkUndamaged();
    preparedCatalogue(gDatabase());
} catch (const DatabaseError&) {
}

}  // namespace marvello
