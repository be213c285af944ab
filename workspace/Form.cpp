#include "workspace/Form.h"

#include <QCloseEvent>
#include <algorithm>

namespace marvello {

namespace {

/// The control of a part of the form that the tab key reaches first; null without one.
QWidget* firstToFocus(QWidget& part) {
    const auto takesFocus = [](const QWidget& control) {
        return control.isVisible() && control.isEnabled() && (control.focusPolicy() & Qt::TabFocus) &&
               !control.focusProxy();
    };
    if (takesFocus(part)) return &part;
    for (QWidget* next = part.nextInFocusChain(); next != &part; next = next->nextInFocusChain())
        if (part.isAncestorOf(next) && takesFocus(*next)) return next;
    return nullptr;
}

}  // namespace

void Form::setKey(const QString& key) {
    key_ = key;
    setWindowTitle(description_.isEmpty() ? key : description_);
}

void Form::setDescription(const QString& description) {
    description_ = description;
    setWindowTitle(description);
}

void Form::Quit() {
    if (QWidget* window = parentWidget())
        window->close();
    else
        close();
}

void Form::goRound(const QList<QWidget*>& parts) {
    const QWidget* const now = focusWidget();
    const auto holds = [now](const QWidget* part) { return part == now || (now && part->isAncestorOf(now)); };
    const auto current = std::ranges::find_if(parts, holds) - parts.begin();
    for (qsizetype step = 1; step <= parts.size(); ++step)
        if (QWidget* const first = firstToFocus(*parts[(current + step) % parts.size()])) {
            if (first->isVisible()) first->setFocus(Qt::ShortcutFocusReason);
            return;
        }
}

void Form::closeEvent(QCloseEvent* event) {
    keep();
    QWidget::closeEvent(event);
}

}  // namespace marvello
