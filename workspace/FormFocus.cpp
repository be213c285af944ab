#include "workspace/FormFocus.h"

#include <QApplication>
#include <QCursor>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>

namespace marvello {

FormFocus::FormFocus(QMdiArea& area) : QObject(&area), area_(area) {
    // One change of forms moves the focus several times; where it ends is known after the event.
    connect(qApp, &QApplication::focusChanged, this, &FormFocus::settleSoon);
    connect(&area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
        if (!window || window == current_) return;
        cameBack_ = window;
        settleSoon();
    });
}

void FormFocus::settleSoon() {
    if (isPending_) return;
    isPending_ = true;
    QTimer::singleShot(0, this, &FormFocus::settle);
}

void FormFocus::begin(QMdiSubWindow* window, QWidget* control) {
    last_[window] = control;
    connect(window, &QObject::destroyed, this, [this, window] { last_.remove(window); });
}

QMdiSubWindow* FormFocus::windowOf(QWidget* control) const {
    for (; control; control = control->parentWidget())
        if (auto* window = qobject_cast<QMdiSubWindow*>(control); window && window->mdiArea() == &area_)
            return window;
    return nullptr;
}

void FormFocus::settle() {
    isPending_ = false;
    QWidget* now = QApplication::focusWidget();
    const QMdiSubWindow* window = windowOf(now);
    QMdiSubWindow* active = area_.activeSubWindow();
    if (!window || !active) return;
    // The focus may have stayed behind in the form before.
    const bool cameBack = active == cameBack_ || window != active;
    cameBack_ = nullptr;
    current_ = active;
    // A click into the form goes where it points at.
    const bool isClicked = window == active && QApplication::mouseButtons() != Qt::NoButton &&
                           window->rect().contains(window->mapFromGlobal(QCursor::pos()));
    QWidget* last = last_.value(active);
    if (cameBack && !isClicked && last && last->isVisible() && last->isEnabled())
        last->setFocus();
    else if (window == active)
        last_[window] = now;
}

}  // namespace marvello
