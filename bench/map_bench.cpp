// What a map over the envelope of a compressor costs: its points, from coarse to fine, and its contours, next
// to its own property calls. Nothing of it was asked for before.

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "bench/Catalogue.h"
#include "bench/Floor.h"
#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"
#include "engine/PerformanceMap.h"

namespace {

using namespace marvello;

/// The first model with an economizer port.
const PreparedCompressor& modelOf(const PreparedCatalogue& catalogue, const std::string& refrigerant) {
    for (const PreparedCompressor& compressor : catalogue.compressors())
        if (compressor.Refrigerant == refrigerant && compressor.Economizer.hasPort() && !compressor.hasInvert)
            return compressor;
    throw std::runtime_error("The catalogue has no model with a port for " + refrigerant + ".");
}

void newMap(benchmark::State& state, const char* refrigerant, EconomizerMode mode) {
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor& compressor = modelOf(*catalogue, refrigerant);
    clsProjectConditions conditions = conditionsAt(0, 0);
    conditions.EcoCalculateMode = mode;
    const auto within = applicationPolygons(compressor.envelopeFor(mode)->limits);
    Calculator calculator;
    clsRefprop& refprop = calculator.refprop(refrigerant);
    PerformanceMap map;
    const auto work = [&] {
        refineMap(calculator, compressor, conditions, {},
                  [&](const PerformanceMap& each, bool) { map = each; });
        const GridField field = map.fieldOf(Figure::cop);
        benchmark::DoNotOptimize(contoursOf(field, within, roundLevels(rangeWithin(field, within))));
    };
    std::vector<StateCall> calls;
    refprop.forget();
    refprop.note(&calls);
    work();
    refprop.note(nullptr);
    bench::AgainstFloor against(state, "its own property calls alone");
    for ([[maybe_unused]] auto turn : state) {
        refprop.forget();
        const double taken = bench::processorSecondsOf(work);
        against.add(taken, bench::processorSecondsOf([&] {
                        for (const StateCall& call : calls) benchmark::DoNotOptimize(refprop.asked(call));
                    }));
    }
    state.counters["points"] = map.grid.count();
    state.counters["ends"] = static_cast<double>(map.ends.size());
    state.counters["calls"] = static_cast<double>(calls.size());
}
BENCHMARK_CAPTURE(newMap, R134A, "R134A", EconomizerMode::none)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(newMap, R404A, "R404A", EconomizerMode::none)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(newMap, R134Aplate, "R134A", EconomizerMode::approach)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
    return marvello::bench::runOnCatalogue(argc, argv, [] { marvello::openCatalogue(); });
}
