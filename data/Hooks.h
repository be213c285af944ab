#pragma once

#include <functional>
#include <optional>
#include <string>

namespace marvello {

/// How a message box is meant; the user interface chooses the mark.
enum class BoxKind { plain, information, critical };

/// What the modules without windows need from above. `app/` fills those of its session at start; a
/// command-line program or a test may leave them empty.
struct Hooks {
    /// Lets pending window events be handled, for instance a click on an abort button.
    std::function<void()> giveTurn;
    /// Shows one sentence to the user and waits until it is acknowledged.
    std::function<void(BoxKind, const std::string& text)> showBox;
    /// The per-user value of product, section and name; none if there is none.
    std::function<std::optional<std::string>(const std::string& product, const std::string& section,
                                             const std::string& name)>
        readSetting;
    /// Stores a per-user value.
    std::function<void(const std::string& product, const std::string& section, const std::string& name,
                       const std::string& value)>
        writeSetting;
};

/// Gives the user interface of the current session a turn; does nothing without one.
void giveTurn();

/// Holds back the turns of the user interface of the current session while it lives: nobody can change or
/// close what is calculated from meanwhile.
class NoTurns {
  public:
    NoTurns();
    ~NoTurns();
    NoTurns(const NoTurns&) = delete;
    NoTurns& operator=(const NoTurns&) = delete;

  private:
    std::function<void()> held_;
};

/// Shows a box; without a user interface the text goes to standard error.
void showBox(BoxKind kind, const std::string& text);

}  // namespace marvello
