#include "app/Main.h"

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QLockFile>
#include <QStandardPaths>
#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

#include "app/ConnectionString.h"
#include "catalogue/Globals.h"
#include "data/ApplicationFolder.h"
#include "data/Globals.h"
#include "data/Hooks.h"
#include "engine/AbortRequested.h"
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

/// The property library looks for the fluid files in the current folder and then beside itself.
void checkFluidFiles() {
    std::error_code ignored;
    const std::filesystem::path folder = applicationFolder();
    if (!std::filesystem::is_directory("Fluids", ignored) &&
        !std::filesystem::is_directory(folder / "Fluids", ignored))
        throw std::runtime_error("The folder " + (folder / "Fluids").string() +
                                 " with the fluid files is missing.");
}

void openCatalogue() {
    gDatabase().ConnectionString = catalogueConnectionString(applicationFolder());
    if (!gDatabase().Connect("")) throw std::runtime_error("The catalogue cannot be opened.");
    loadSharedPolynomials();
}

/// False when another copy of the program runs.
bool isFirst(QLockFile& instance) {
    constexpr int moment = 200;    // milliseconds, in which another start may be about to write the file
    instance.setStaleLockTime(0);  // a lock is stale when its process is gone, at no age
    // A folder that takes no lock file is no second instance.
    if (instance.tryLock(moment) || instance.error() != QLockFile::LockFailedError) return true;
    // What the file says may be lost, by a sudden end just then, or of a machine that had another name. The
    // system's own lock on it ends with its process: who gets that may take the file away.
    return instance.removeStaleLockFile() && instance.tryLock();
}

int reportFailedStart(const std::string& reason) {
    const std::string sentence = "Marvello cannot start. " + reason;
    std::cerr << sentence << '\n';
    showBox(BoxKind::critical, sentence);
    return failedStart;
}

}  // namespace

QString instanceLockFile() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QDir().mkpath(folder);
    return QDir(folder).filePath(QStringLiteral("marvello.lock"));
}

int Main() try {
    Frmsplash splash;
    splash.show();
    splash.hold(splashTime());
    giveTurn();
    AbortRequested() = false;

    QLockFile instance(instanceLockFile());
    if (!isFirst(instance)) {
        showBox(BoxKind::information, "Another copy of Marvello is already running.");
        return ended;
    }

    checkFluidFiles();
    openCatalogue();

    SplashEnd splashEnd(splash);
    MDIMain mainWindow(QCoreApplication::applicationVersion());
    mainWindow.installEventFilter(&splashEnd);
    mainWindow.show();
    mainWindow.openStartMenu();
    return QApplication::exec();
} catch (const std::exception& failure) {
    return reportFailedStart(failure.what());
}

}  // namespace marvello
