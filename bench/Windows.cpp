#include "bench/Windows.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>
#include <exception>

#include "catalogue/Globals.h"
#include "controls/Look.h"
#include "data/Session.h"

namespace marvello::bench {

int runInWindows(int argumentCount, char** arguments) try {
    const Session session(MARVELLO_APP_FOLDER);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argumentCount, arguments);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    openCatalogue();
    gApplication().User().language = "en-EN";
    Look::install(application, Look::light());
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}

}  // namespace marvello::bench
