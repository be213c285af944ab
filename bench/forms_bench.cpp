// What a user waits for: a form, another language, a calculation, a long list. Windows are drawn offscreen.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

#include "bench/Catalogue.h"
#include "bench/Floor.h"
#include "bench/GrownSeries.h"
#include "bench/Windows.h"
#include "catalogue/Globals.h"
#include "controls/AdvanceText.h"
#include "controls/Marks.h"
#include "controls/ResultsView.h"
#include "controls/ctlGraph.h"
#include "data/Session.h"
#include "engine/clsSelections.h"
#include "workspace/MDIMain.h"
#include "workspace/ResultsPane.h"
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
    bench::AgainstFloor against(state, "drawing the form");
    for ([[maybe_unused]] auto turn : state) {
        SelectionForm* form = nullptr;
        const double taken = bench::processorSecondsOf([&] {
            form = window.newSelection();
            QApplication::processEvents();
        });
        against.add(taken, bench::processorSecondsOf([&] { form->grab(); }));
        form->Quit();
        settle();
    }
}
BENCHMARK(openForm)->Unit(benchmark::kMillisecond)->UseManualTime();

void anotherLanguage(benchmark::State& state) {
    MDIMain window(QStringLiteral("1.0.0"));
    window.show();
    for (int i = 0; i < 5; ++i) window.newSelection()->lnkCalculate_Click();
    settle();
    bool isGerman = false;
    bench::AgainstFloor(state, "drawing the window")
        .run(
            [&] {
                isGerman = !isGerman;
                window.chooseLanguage(isGerman ? QStringLiteral("de-DE") : QStringLiteral("en-EN"));
                QApplication::processEvents();
            },
            [&] { window.grab(); });
}
BENCHMARK(anotherLanguage)->Unit(benchmark::kMillisecond)->UseManualTime();

using Clock = std::chrono::steady_clock;
double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// From F5 to the drawn list of a series of 60 models, each of the shipped ones six times; the run of the
/// engine by itself is counted next to it. In a window of the given width: in a narrow one the inputs take
/// turns with the list.
void keyToList(benchmark::State& state) {
    const QTemporaryDir folder;
    const std::string file = folder.filePath(QStringLiteral("db.mdb")).toStdString();
    bench::growSeries(file, 6);
    const Session session(MARVELLO_APP_FOLDER);
    openCatalogue("Data Source=" + file);
    MDIMain window(QStringLiteral("1.0.0"));
    window.showNormal();
    window.resize(static_cast<int>(state.range(0)), 870);
    SelectionForm* form = window.newSelection();
    form->findChild<AdvanceText*>(QStringLiteral("lstSeries"))->SetKey(QStringLiteral("TK-A"));
    settle();
    int models = 0;
    bench::AgainstFloor(state, "the run of the engine")
        .run(
            [&] {
                form->lnkCalculate_Click();
                QApplication::processEvents();
            },
            [&] {
                clsSelections selection;
                selection.Selection(std::make_shared<clsProjectConditions>(conditionsAt(2, 40)), "TK-A", "*",
                                    "R134A", 0);
                models = selection.Count();
            });
    state.counters["models"] = models;
}
BENCHMARK(keyToList)->ArgName("width")->Arg(1440)->Arg(800)->Unit(benchmark::kMillisecond)->UseManualTime();

/// What a user does to a list of 10,000 results, each until it is drawn: a calculation, another order, units,
/// groups, language, all rows selected, and copied.
void longResults(benchmark::State& state) {
    const QTemporaryDir folder;
    const std::string file = folder.filePath(QStringLiteral("db.mdb")).toStdString();
    bench::growSeries(file, 1000);
    const Session session(MARVELLO_APP_FOLDER);
    openCatalogue("Data Source=" + file);
    MDIMain window(QStringLiteral("1.0.0"));
    window.showNormal();
    window.resize(1440, 870);
    SelectionForm* form = window.newSelection();
    form->findChild<AdvanceText*>(QStringLiteral("lstSeries"))->SetKey(QStringLiteral("TK-A"));
    settle();
    auto* list = form->findChild<ResultsView*>(QStringLiteral("lvCps"));
    const auto measured = [&state](const char* what, const auto& act) {
        state.counters[what] = 1e3 * bench::processorSecondsOf([&] {
                                   act();
                                   QApplication::processEvents();
                               });
    };
    for ([[maybe_unused]] auto turn : state) {
        measured("calculate_ms", [&] { form->lnkCalculate_Click(); });
        measured("calculate_again_ms", [&] { form->lnkCalculate_Click(); });
        measured("sort_ms", [&] { emit list->headingClicked(list->columnKeys().at(1)); });
        measured("units_ms", [&] { form->MeasureUnits(1 - form->MeasureUnit(), true); });
        measured("groups_ms", [&] {
            form->results().setGrouping(Grouping::byCompressor);
            form->results().relist();
        });
        measured("language_ms", [&] { window.chooseLanguage(QStringLiteral("de-DE")); });
        measured("select_all_ms", [&] { list->selectAll(); });
        measured("copy_ms", [&] { form->CopyToClipBoard(); });
        measured("move_ms", [&] { form->results().moveSelection(1); });
        form->results().setGrouping(Grouping::byRefrigerant);
    }
    state.counters["rows"] = list->rowCount();
}
BENCHMARK(longResults)->Unit(benchmark::kMillisecond)->Iterations(1);

/// Every series of the catalogue with an economizer: the longest time between two turns that a run gives to
/// the window, which is how long "Abort" may wait.
void longestWaitForATurn(benchmark::State& state) {
    double longest = 0;
    int compressors = 0;
    for ([[maybe_unused]] auto turn : state) {
        for (const bench::Series& series : bench::seriesOfCatalogue()) {
            auto conditions = std::make_shared<clsProjectConditions>(conditionsAt(-10, 45));
            conditions->EcoCalculateMode = EconomizerMode::approach;
            clsSelections selection;
            auto last = Clock::now();
            selection.SelectionPercent = [&](int, int) {
                longest = std::max(longest, millisecondsSince(last));
                last = Clock::now();
            };
            selection.Selection(conditions, series.name, "*", series.refrigerant, 0);
            longest = std::max(longest, millisecondsSince(last));
            compressors += selection.Count();
        }
    }
    state.counters["longest_ms"] = longest;
    state.counters["compressors"] = compressors / static_cast<double>(state.iterations());
}
BENCHMARK(longestWaitForATurn)->Unit(benchmark::kMillisecond);

/// A list of 1,000 results under ten groups, in 20 columns.
void fill(ResultsView& list) {
    list.clear();
    std::vector<ResultsView::Column> columns;
    for (int i = 0; i < 20; ++i)
        columns.push_back({QStringLiteral("c%1").arg(i), QStringLiteral("Cooling capacity(kW)"), {}});
    list.setColumns(columns);
    for (int row = 0; row < 1000; ++row) {
        if (row % 100 == 0) list.addGroup(QStringLiteral("@%1").arg(row), QStringLiteral("R134A"));
        QStringList values;
        for (int i = 1; i < 20; ++i) values += QString::number(row * 1.1 + i, 'f', 1);
        list.addRow({QString::number(row), QStringLiteral("TK-A-%1").arg(row), mark::possible, {}, values});
    }
    list.fitColumns();
}

void fillLongList(benchmark::State& state) {
    ResultsView list;
    list.resize(1000, 400);
    list.show();
    for ([[maybe_unused]] auto turn : state) {
        fill(list);
        QApplication::processEvents();
    }
}
BENCHMARK(fillLongList)->Unit(benchmark::kMillisecond);

/// One key down in the list, or one turn of its wheel, and what is drawn after it.
void moveInLongList(benchmark::State& state) {
    ResultsView list;
    list.resize(1000, 400);
    list.show();
    fill(list);
    list.selectRow(1);
    QApplication::processEvents();
    int row = 1;
    for ([[maybe_unused]] auto turn : state) {
        row = row % 1000 + 1;
        if (state.range(0) == 0)
            list.selectRow(row);
        else
            list.verticalScrollBar()->setValue(row);
        QApplication::processEvents();
    }
}
BENCHMARK(moveInLongList)->ArgName("scroll")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// One move of the operating point over the map of a compressor: its values, and the page drawn anew. By the
/// clock on the wall; "worst" and "median" of all moves, in milliseconds.
void dragPoint(benchmark::State& state) {
    MDIMain window(QStringLiteral("1.0.0"));
    window.resize(1440, 870);
    window.show();
    SelectionForm* const form = window.newSelection();
    form->lnkCalculate_Click();
    form->MnuPopUp(QStringLiteral("limits"));
    form->results().setMapQuantity(QStringLiteral("cop"));
    auto* const graph = form->findChild<ctlGraph*>();
    while (!graph->drawing().map) QApplication::processEvents();
    settle();
    const auto pixelAt = [graph](double ted, double tcd) {
        return graph->drawing().toPlace({ted, tcd}, graph->rect());
    };
    const auto send = [graph](QEvent::Type type, const QPointF& at) {
        QMouseEvent event(type, at, graph->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(graph, &event);
    };
    send(QEvent::MouseButtonPress, pixelAt(graph->Point()->x, graph->Point()->Y));
    std::vector<double> moves;
    int turn = 0;
    for ([[maybe_unused]] auto each : state) {
        // Round the envelope, within the limits and beyond them.
        const double angle = 0.02 * ++turn;
        const auto begun = std::chrono::steady_clock::now();
        send(QEvent::MouseMove, pixelAt(-5 + 14 * std::cos(angle), 40 + 14 * std::sin(angle)));
        QApplication::processEvents();
        const double taken = std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
        state.SetIterationTime(taken);
        moves.push_back(1e3 * taken);
    }
    state.counters["worst"] = std::ranges::max(moves);
    state.counters["median"] = bench::median(moves);
}
BENCHMARK(dragPoint)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1000);

}  // namespace

int main(int argc, char** argv) { return bench::runInWindows(argc, argv); }
