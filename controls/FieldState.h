#pragma once

#include <QString>
#include <array>

namespace marvello {

/// How a field is being used, as far as it shows. Mouse, button, list and focus meet here and nowhere else,
/// so that no state outlives the event that ends it: a list that opens takes over the release of the button.
class FieldState {
  public:
    enum class Event {
        mouseEntered,
        mouseLeft,
        buttonPressed,
        buttonReleased,
        listOpened,
        listClosed,
        focusGained,
        focusLost,
        hiddenOrDisabled,
    };

    /// Returns true if the event changes how the field looks.
    bool take(Event event);

    bool isHovered() const { return isHovered_; }
    /// The button looks pressed: it is, or its list is open.
    bool isDown() const { return isPressed_ || isOpen_; }
    bool isOpen() const { return isOpen_; }
    /// The field looks in use: it has the focus, or its list has.
    bool isActive() const { return hasFocus_ || isOpen_; }

    bool operator==(const FieldState&) const = default;

  private:
    bool isHovered_ = false;
    bool isPressed_ = false;
    bool isOpen_ = false;
    bool hasFocus_ = false;
};

/// Why the value of a field cannot be used as it is. Several reasons may hold at a time; the first in the
/// order of the list speaks.
class FieldFault {
  public:
    enum class Reason { refused, remarked, notNumeric, outOfRange };

    /// Keeps what a reason says; an empty text takes the reason back.
    void set(Reason reason, const QString& text);
    void clear(Reason reason) { set(reason, {}); }
    /// Returns the text of the first reason that holds, empty if the value is good.
    QString text() const;
    const QString& text(Reason reason) const { return texts_[static_cast<std::size_t>(reason)]; }

  private:
    std::array<QString, 4> texts_;
};

}  // namespace marvello
