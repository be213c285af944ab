// From the start of the process to the drawn main window, without the time that the splash is held, next to a
// process that shows an empty window of the same kind. Each is this program, started again. A window with one
// menu is counted next to them: it is the first text that makes a process read the fonts of the system.
//
// On a screen that no one sees, unless QT_QPA_PLATFORM names another one.

#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "app/Application.h"
#include "app/FirstInstance.h"
#include "app/InstallHooks.h"
#include "app/Start.h"
#include "bench/Floor.h"
#include "data/Session.h"
#include "workspace/MDIMain.h"

using namespace marvello;

namespace {

int program(int argumentCount, char** arguments) {
    Session session(MARVELLO_APP_FOLDER);
    Application application(argumentCount, arguments);
    installHooks(session.hooks);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [] {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (qobject_cast<MDIMain*>(window) && window->isVisible()) {
                QApplication::processEvents();
                std::_Exit(0);
            }
    });
    look.start(0);
    return Main();
}

int plainWindow(int argumentCount, char** arguments, bool hasMenu) {
    const QApplication application(argumentCount, arguments);
    QMainWindow window;
    window.setCentralWidget(new QMdiArea);
    if (hasMenu) window.menuBar()->addMenu(QStringLiteral("Marvello"));
    window.resize(1440, 870);
    window.show();
    QApplication::processEvents();
    std::_Exit(0);
}

/// Seconds of the processor that a child needs, from its start to its end.
double secondsOfChild(const char* what) {
    const pid_t child = fork();
    if (child == 0) {
        execl("/proc/self/exe", "start_bench", what, nullptr);
        std::_Exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || status != 0) {
        std::fprintf(stderr, "The start of %s failed.\n", what);
        std::exit(1);
    }
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void startToMainWindow(benchmark::State& state) {
    std::vector<double> withMenu;
    bench::AgainstFloor against(state, "a process with an empty window");
    for ([[maybe_unused]] auto turn : state) {
        const double taken = secondsOfChild("program");
        QFile::remove(instanceLockFile());  // which an orderly end would not leave behind
        against.add(taken, secondsOfChild("window"));
        withMenu.push_back(secondsOfChild("menu"));
    }
    state.counters["window_with_a_menu_us"] = 1e6 * bench::median(withMenu);
}
BENCHMARK(startToMainWindow)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(2);

}  // namespace

int main(int argc, char** argv) {
    const QTemporaryDir home;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("MARVELLO_SPLASH_MS", "0");
    const std::string_view what = argc > 1 ? argv[1] : "";
    if (what == "program") return program(argc, argv);
    if (what == "window") return plainWindow(argc, argv, false);
    if (what == "menu") return plainWindow(argc, argv, true);
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    qputenv("XDG_RUNTIME_DIR", home.path().toUtf8());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
