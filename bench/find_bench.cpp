// What a search for a needed capacity over the whole catalogue costs, next to one calculation of each
// compressor of the choice at the same operating point. Each turn has an operating point of its own.

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>

#include "bench/Catalogue.h"
#include "bench/Floor.h"
#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"
#include "engine/Find.h"

namespace {

using namespace marvello;

FindRequest requestOf(InverterUse inverter, int machines, bool steps) {
    FindRequest request{.needed = 150, .conditions = conditionsAt(2, 40)};
    request.inverter = inverter;
    request.maxMachines = machines;
    request.steps = steps;
    return request;
}

void calculateEach(const PreparedCatalogue& catalogue, const FindRequest& request, Calculator& calculator) {
    for (const PreparedCompressor& compressor : catalogue.compressors()) {
        if (compressor.hasInvert && request.inverter == InverterUse::no) continue;
        benchmark::DoNotOptimize(calculator.calculate(compressor, request.conditions));
    }
}

void note(benchmark::State& state, const FindResult& result) {
    state.counters["candidates"] = static_cast<double>(result.candidates.size());
    state.counters["rejected"] = static_cast<double>(result.rejections.size());
    state.counters["calculations"] = static_cast<double>(result.calculations);
}

/// Refrigerants set up, on one thread.
void search(benchmark::State& state, FindRequest request) {
    const auto catalogue = preparedCatalogue(gDatabase());
    Calculator calculator;
    FindResult result = find(request, catalogue, calculator);
    bench::AgainstFloor against(state, "each compressor calculated once");
    for ([[maybe_unused]] auto turn : state) {
        request.conditions.TEvaporatingDew += 0.0001;
        const double taken =
            bench::processorSecondsOf([&] { result = find(request, catalogue, calculator); });
        request.conditions.TEvaporatingDew += 0.0001;
        against.add(taken,
                    bench::processorSecondsOf([&] { calculateEach(*catalogue, request, calculator); }));
    }
    note(state, result);
}
BENCHMARK_CAPTURE(search, fixedSpeed, requestOf(InverterUse::no, 1, false))
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(search, inverterFourMachines, requestOf(InverterUse::yes, 4, false))
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(search, stepsInverterFourMachines, requestOf(InverterUse::yes, 4, true))
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

/// The first of a process: it reads the compressors and sets all refrigerants up. By the clock on the wall.
void firstSearch(benchmark::State& state) {
    const FindRequest request = requestOf(InverterUse::yes, 4, false);
    FindResult result;
    for ([[maybe_unused]] auto turn : state) {
        const auto begun = std::chrono::steady_clock::now();
        const Session session(MARVELLO_APP_FOLDER);
        openCatalogue();
        Calculator calculator;
        result = find(request, preparedCatalogue(gDatabase()), calculator);
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count());
    }
    note(state, result);
}
BENCHMARK(firstSearch)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

/// With economizer, over the threads of a pool, by the clock on the wall.
void economized(benchmark::State& state, FindRequest request) {
    request.conditions.EcoCalculateMode = EconomizerMode::approach;
    request.conditions.Eco = 5;
    const auto catalogue = preparedCatalogue(gDatabase());
    CalculatorPool pool;
    FindResult result = find(request, catalogue, pool);
    for ([[maybe_unused]] auto turn : state) {
        request.conditions.TEvaporatingDew += 0.0001;
        const auto begun = std::chrono::steady_clock::now();
        result = find(request, catalogue, pool);
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count());
    }
    note(state, result);
    state.counters["threads"] = pool.threads();
}
BENCHMARK_CAPTURE(economized, fixedSpeed, requestOf(InverterUse::no, 1, false))
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(economized, stepsInverterFourMachines, requestOf(InverterUse::yes, 4, true))
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
    return bench::runOnCatalogue(argc, argv, [] {
        openCatalogue();
        gDatabase().checkUndamaged();
    });
}
