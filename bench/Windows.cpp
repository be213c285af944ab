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

Windows::Windows(int& argumentCount, char** arguments) : session_(MARVELLO_APP_FOLDER) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application_ = std::make_unique<QApplication>(argumentCount, arguments);
    settings_ = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_->path());
    openCatalogue();
    gApplication().User().language = "en-EN";
    Look::install(*application_, Look::light());
}

Windows::~Windows() = default;

int runInWindows(int argumentCount, char** arguments) try {
    const Windows windows(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}

}  // namespace marvello::bench
