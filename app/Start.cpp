#include "app/Start.h"

#include <QApplication>
#include <QEvent>
#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

#include "app/ConnectionString.h"
#include "app/FirstInstance.h"
#include "app/ReadAhead.h"
#include "catalogue/Globals.h"
#include "data/Hooks.h"
#include "data/Session.h"
#include "workspace/Frmsplash.h"
#include "workspace/MDIMain.h"

namespace marvello {

namespace {

std::chrono::milliseconds splashTime() {
    constexpr int usual = 3000;
    bool given = false;
    const int time = qEnvironmentVariableIntValue("MARVELLO_SPLASH_MS", &given);
    return std::chrono::milliseconds(given && time >= 0 ? time : usual);
}

/// Unloads the splash when the window that it watches becomes active.
class SplashEnd : public QObject {
  public:
    explicit SplashEnd(Frmsplash& splash) : splash_(splash) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::WindowActivate) {
            splash_.close();
            watched->removeEventFilter(this);
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    Frmsplash& splash_;
};

/// The property library looks for the fluid files in the current folder and then next to itself.
void checkFluidFiles() {
    std::error_code ignored;
    const std::filesystem::path folder = Session::current().applicationFolder;
    if (!std::filesystem::is_directory("Fluids", ignored) &&
        !std::filesystem::is_directory(folder / "Fluids", ignored))
        throw std::runtime_error("The folder " + (folder / "Fluids").string() +
                                 " with the fluid files is missing.");
}

/// Brings a window to the front, or the dialog that it waits for.
void raise(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    QWidget* dialog = QApplication::activeModalWidget();
    QWidget& front = dialog ? *dialog : window;
    front.raise();
    front.activateWindow();
}

int reportFailedStart(const std::string& reason) {
    const std::string sentence = "Marvello cannot start. " + reason;
    std::cerr << sentence << '\n';
    showBox(BoxKind::critical, sentence);
    return failedStart;
}

}  // namespace

int Main() try {
    FirstInstance instance;
    if (!instance.isThis()) {
        FirstInstance::call();
        showBox(BoxKind::information, "Another copy of Marvello is already running.");
        return ended;
    }

    Frmsplash splash;
    splash.show();
    splash.hold(splashTime());
    giveTurn();
    AbortRequested() = false;

    checkFluidFiles();
    openCatalogue(catalogueConnectionString(Session::current().applicationFolder));

    SplashEnd splashEnd(splash);
    MDIMain mainWindow(QCoreApplication::applicationVersion());
    mainWindow.installEventFilter(&splashEnd);
    mainWindow.show();
    instance.whenCalled([&mainWindow] { raise(mainWindow); });
    mainWindow.openStartMenu();
    ReadAhead readAhead;
    return QApplication::exec();
} catch (const std::exception& failure) {
    return reportFailedStart(failure.what());
}

}  // namespace marvello
