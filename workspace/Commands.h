#pragma once

#include <QAction>
#include <QKeySequence>
#include <array>
#include <span>

namespace marvello {

/// What a person can tell the program to do, from menus, tool bar, pop-up menu and keys.
enum class Command {
    newSelection,
    closeForm,
    closeAll,
    printPreview,
    print,
    exit,
    exports,  ///< the menu of the two exports
    exportList,
    exportPolynomials,
    copy,
    addToComparison,
    addToYear,
    collapseInputs,
    previousRow,
    nextRow,
    cascade,
    tileHorizontal,
    tileVertical,
    arrangeIcons,
    guide,
    builds,
    about,
};
inline constexpr std::size_t commandCount = static_cast<std::size_t>(Command::about) + 1;

/// What has to be there for a command.
enum class Needs {
    nothing,
    form,
    inputs,  ///< a form with inputs that can be hidden
    results,
    listedResults,
    selectionResults,
    listedRow,  ///< of a list of compressors
    copyableRow,
    printableRow
};

struct CommandDefinition {
    Command command;
    const char* name;     ///< of its action; parameter sets know it
    const char* textKey;  ///< of the dictionary
    const char* icon;     ///< null for none
    QKeySequence keys;
    Needs needs;
    const char* popUpName = nullptr;     ///< of its entry in the pop-up menu of a list; null for none
    const char* popUpTextKey = nullptr;  ///< of the dictionary
};

/// All commands.
std::span<const CommandDefinition> allCommands();
const CommandDefinition& definitionOf(Command command);

/// The actions of the commands.
class Commands {
  public:
    explicit Commands(QObject& owner);

    QAction* operator[](Command command) const { return actions_[static_cast<std::size_t>(command)]; }

    /// Enables the commands that need something by whether it is there.
    void enable(Needs what, bool isThere);
    /// Gives all commands their texts and tool tips in the user's language.
    void translate();

  private:
    std::array<QAction*, commandCount> actions_{};
};

}  // namespace marvello
