#include "controls/FieldState.h"

#include <algorithm>

namespace marvello {

bool FieldState::take(Event event) {
    const FieldState before = *this;
    switch (event) {
        case Event::mouseEntered:
            isHovered_ = true;
            break;
        case Event::mouseLeft:
            isHovered_ = false;
            break;
        case Event::buttonPressed:
            isPressed_ = true;
            break;
        case Event::buttonReleased:
            isPressed_ = false;
            break;
        case Event::listOpened:
            // From here on the mouse belongs to the list: neither release nor leaving is heard of.
            isOpen_ = true;
            isPressed_ = false;
            isHovered_ = false;
            break;
        case Event::listClosed:
            isOpen_ = false;
            break;
        case Event::focusGained:
            hasFocus_ = true;
            break;
        case Event::focusLost:
            hasFocus_ = false;
            break;
        case Event::hiddenOrDisabled:
            isHovered_ = isPressed_ = isOpen_ = false;
            break;
    }
    return *this != before;
}

void FieldFault::set(Reason reason, const QString& text) { texts_[static_cast<std::size_t>(reason)] = text; }

QString FieldFault::text() const {
    const auto found =
        std::find_if(texts_.begin(), texts_.end(), [](const QString& text) { return !text.isEmpty(); });
    return found == texts_.end() ? QString() : *found;
}

}  // namespace marvello
