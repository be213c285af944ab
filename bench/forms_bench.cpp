// Opening a form, and another language with five of them open, on the catalogue that is shipped. Windows are
// drawn offscreen.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>
#include <exception>

#include "catalogue/Globals.h"
#include "controls/Look.h"
#include "data/ApplicationFolder.h"
#include "data/Globals.h"
#include "workspace/MDIMain.h"
#include "workspace/SelectionForm.h"

using namespace marvello;

namespace {

/// Lets windows be drawn and closed ones go.
void settle() {
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

void openForm(benchmark::State& state) {
    MDIMain window(QStringLiteral("1.0.0"));
    window.show();
    settle();
    for ([[maybe_unused]] auto turn : state) {
        SelectionForm* form = window.newSelection();
        QApplication::processEvents();
        state.PauseTiming();
        form->Quit();
        settle();
        state.ResumeTiming();
    }
}
BENCHMARK(openForm)->Unit(benchmark::kMillisecond);

void anotherLanguage(benchmark::State& state) {
    MDIMain window(QStringLiteral("1.0.0"));
    window.show();
    for (int i = 0; i < 5; ++i) window.newSelection()->lnkCalculate_Click();
    settle();
    bool isGerman = false;
    for ([[maybe_unused]] auto turn : state) {
        isGerman = !isGerman;
        window.chooseLanguage(isGerman ? QStringLiteral("de-DE") : QStringLiteral("en-EN"));
        QApplication::processEvents();
    }
}
BENCHMARK(anotherLanguage)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) try {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    setApplicationFolder(MARVELLO_APP_FOLDER);
    gDatabase().Connect("Data Source=" MARVELLO_APP_FOLDER "/db.mdb");
    loadSharedPolynomials();
    gApplication().User().language = "en-EN";
    Look::install(application, Look::light());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
