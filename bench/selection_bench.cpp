// What a selection costs, on the catalogue and the property library of the application folder.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "bench/Catalogue.h"
#include "bench/Floor.h"
#include "data/Session.h"
#include "engine/clsSelections.h"
#include "thermo/clsRefprop.h"
#include "tools/select/Run.h"

namespace {

using namespace marvello;

/// The first 20 compressors of R134A, over as many series as it takes.
constexpr const char* seriesOf20[] = {"TK-A", "MV-A"};

select::Request requestOf(const char* series) {
    select::Request request;
    request.refrigerant = "R134A";
    request.series = series;
    request.conditions.TEvaporatingDew = 2;
    request.conditions.TCondensationDew = 40;
    return request;
}

int runBoth() {
    int compressors = 0;
    for (const char* series : seriesOf20)
        compressors += select::carryOut(requestOf(series)).selection->Count();
    return compressors;
}

/// As marvello-select does it after its start: the property library is set up for the run.
void selectionOfTwoSeries(benchmark::State& state) {
    int compressors = 0;
    const long long statements = gDatabase().executedStatements();
    for (auto _ : state) {
        InitRefprop("R134A");
        compressors = runBoth();
    }
    state.counters["compressors"] = compressors;
    state.counters["libraryCalls"] = static_cast<double>(GetRefprop("R134A").libraryCalls());
    state.counters["statements"] = static_cast<double>(gDatabase().executedStatements() - statements) /
                                   static_cast<double>(state.iterations());
}
BENCHMARK(selectionOfTwoSeries)->Unit(benchmark::kMillisecond);

/// The rows and what belongs to them, without a calculation.
void loadBoth() {
    const clsProjectConditions conditions = requestOf("TK-A").conditions;
    for (const char* series : seriesOf20) {
        for (RecordSet row = gDatabase().Execute(std::string("Select fModelID from tCompressors where "
                                                             "fRefrigerantID='R134A' and fSerieID='") +
                                                 series + "'");
             !row.eof(); row.moveNext()) {
            clsCompressor compressor;
            compressor.GetCompressorFromDb(gDatabase(), conditions, "R134A", series, row.text("fModelID"), 50,
                                           1450, -1, false, 100);
            benchmark::DoNotOptimize(compressor);
        }
    }
}

/// The same at a condition that was asked before: no state is calculated again.
void selectionAtARememberedCondition(benchmark::State& state) {
    runBoth();
    const long long calls = GetRefprop("R134A").libraryCalls();
    bench::AgainstFloor(state, "loading the same compressors")
        .run([] { benchmark::DoNotOptimize(runBoth()); }, loadBoth);
    state.counters["libraryCalls"] = static_cast<double>(GetRefprop("R134A").libraryCalls() - calls);
}
BENCHMARK(selectionAtARememberedCondition)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
    return bench::runOnCatalogue(argc, argv, [] { select::openCatalogue("en-EN"); });
}
