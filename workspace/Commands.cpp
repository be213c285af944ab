#include "workspace/Commands.h"

#include <algorithm>

#include "controls/Icons.h"
#include "workspace/WindowTexts.h"

namespace marvello {

std::span<const CommandDefinition> allCommands() {
    using enum Command;
    static const QKeySequence none;
    // Kept: the spelling of some text keys, for which translations exist.
    // clang-format off
    static const std::array<CommandDefinition, commandCount> all{{
        {newSelection, "mnu_file_new_selection", "mdimain.menu.file.newselection", "newselection",
         QKeySequence::New, Needs::nothing},
        {closeForm, "mnu_file_close", "mdimain.menu.file.close", nullptr, Qt::CTRL | Qt::Key_F4, Needs::form},
        {closeAll, "mnu_file_closeall", "mdimain.menu.file.closeall", nullptr, none, Needs::form},
        {printPreview, "mnu_file_printpreview", "mdimain.menu.file.printpreview", "preview",
         Qt::CTRL | Qt::SHIFT | Qt::Key_P, Needs::printableRow,
         "mnu_cpspopup_printpreview", "mdimain.menu.cpspopup.printpreview"},
        {print, "mnu_file_print", "mdimain.menu.file.print", "print", QKeySequence::Print, Needs::printableRow,
         "mnu_cpspopup_print", "mdimain.menu.cpspopup.print"},
        {exit, "mnu_file_exit", "mdimain.menu.file.exit", nullptr, QKeySequence::Quit, Needs::nothing},
        {exports, "export", "mdimain.menu.tools.export", "export", none, Needs::results},
        {exportList, "mnu_tools_export_cps", "mdimain.menu.tools.export.cps", nullptr, QKeySequence::Save,
         Needs::results},
        {exportPolynomials, "mnu_tools_export_polynomials", "mdimain.menu.tools.export.polynomials", nullptr,
         Qt::CTRL | Qt::SHIFT | Qt::Key_S, Needs::selectionResults},
        {copy, "mnu_tools_copytoclipboard", "mdimain.menu.tools.copytoclipboard", "copy", QKeySequence::Copy,
         Needs::copyableRow, "mnu_cpspopup_copyclipboard", "mdimain.menu.cpspopup.copytoclipboard"},
        {addToComparison, "mnu_tools_compare", "mdimain.menu.tools.compare", "compare",
         Qt::CTRL | Qt::Key_Return, Needs::listedRow,
         "mnu_cpspopup_compare", "mdimain.menu.cpspopup.compare"},
        {addToYear, "mnu_tools_year", "mdimain.menu.tools.year", "year",
         Qt::CTRL | Qt::SHIFT | Qt::Key_Return, Needs::listedRow,
         "mnu_cpspopup_year", "mdimain.menu.cpspopup.year"},
        {collapseInputs, "frameresize", "mdimain.toolbar.frameresize", "panel", Qt::Key_F9, Needs::inputs},
        {previousRow, "frecciaup", "mdimain.toolbar.frecciaup", "up", Qt::CTRL | Qt::Key_Up, Needs::listedResults},
        {nextRow, "frecciadown", "mdimain.toolbar.frecciadown", "down", Qt::CTRL | Qt::Key_Down,
         Needs::listedResults},
        {cascade, "mnu_Window_Cascade", "mdimain.menu.window.cascade", "cascade", none, Needs::form},
        {tileHorizontal, "mnu_Window_TileHorizontal", "mdimain.menu.window.tileHorinzontal", "tileh", none,
         Needs::form},
        {tileVertical, "mnu_Window_TileVertical", "mdimain.menu.window.tilevertical", "tilev", none, Needs::form},
        {arrangeIcons, "mnu_Window_ArrangeIcons", "mdimain.menu.window.arrangeicons", nullptr, none, Needs::form},
        {guide, "mnu_help_guide", "mdimain.menu.help.guide", nullptr, none, Needs::nothing},
        {builds, "mnu_help_Builds", "mdimain.menu.help.builds", nullptr, none, Needs::nothing},
        {about, "mnu_help_About", "mdimain.menu.help.about", nullptr, none, Needs::nothing},
    }};
    // clang-format on
    return all;
}

const CommandDefinition& definitionOf(Command command) {
    return *std::ranges::find(allCommands(), command, &CommandDefinition::command);
}

Commands::Commands(QObject& owner) {
    for (const CommandDefinition& definition : allCommands()) {
        auto* action = new QAction(&owner);
        action->setObjectName(QLatin1String(definition.name));
        if (definition.icon) action->setIcon(icon(QLatin1String(definition.icon)));
        action->setIconVisibleInMenu(false);
        action->setShortcut(definition.keys);
        actions_[static_cast<std::size_t>(definition.command)] = action;
    }
}

void Commands::enable(Needs what, bool isThere) {
    for (const CommandDefinition& definition : allCommands())
        if (definition.needs == what) (*this)[definition.command]->setEnabled(isThere);
}

void Commands::translate() {
    for (const CommandDefinition& definition : allCommands()) {
        QAction* const action = (*this)[definition.command];
        const QString text = dictionaryText(QLatin1String(definition.textKey));
        const QString plain = withoutAccessKey(text);
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        action->setText(text);
        action->setToolTip(keys.isEmpty() ? plain : QStringLiteral("%1 (%2)").arg(plain, keys));
    }
}

}  // namespace marvello
