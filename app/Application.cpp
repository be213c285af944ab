#include "app/Application.h"

#include <QPalette>
#include <exception>

#include "controls/Icons.h"
#include "controls/Look.h"
#include "data/Hooks.h"

namespace marvello {

Application::Application(int& argumentCount, char** arguments) : QApplication(argumentCount, arguments) {
    setOrganizationName(QStringLiteral("Kestrom"));
    setApplicationName(QStringLiteral("Marvello"));
    setApplicationVersion(QStringLiteral(MARVELLO_VERSION));
    // The name of the menu entry, by which a desktop knows whose window it is.
    setDesktopFileName(QStringLiteral("marvello"));
    Look::install(*this, Look::matching(palette()));
    setWindowIcon(markIcon(QStringLiteral("emblem")));
}

bool Application::notify(QObject* receiver, QEvent* event) try {
    return QApplication::notify(receiver, event);
} catch (const std::exception& failure) {
    showBox(BoxKind::critical, failure.what());
    return false;
}

}  // namespace marvello
