// What the calculation of a prepared compressor costs, next to the time of its own property calls: the calls
// that reached the library are noted and asked again, alone.

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/Allocations.h"
#include "bench/Catalogue.h"
#include "bench/Floor.h"
#include "bench/GrownSeries.h"
#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"
#include "engine/Calculator.h"
#include "engine/CalculatorPool.h"
#include "engine/clsSelections.h"

namespace {

using namespace marvello;

struct Wanted {
    const char* refrigerant;
    EconomizerMode mode;
};

bool hasError(const clsCompressor& compressor) { return compressor.Messages.Error.Count() > 0; }

clsProjectConditions pointAt(double ted, double tcd, EconomizerMode mode) {
    clsProjectConditions conditions = conditionsAt(ted, tcd);
    conditions.EcoCalculateMode = mode;
    return conditions;
}

/// Operating points inside the envelope of a compressor that calculate without an error, all different.
std::vector<clsProjectConditions> pointsOf(const PreparedCompressor& compressor, EconomizerMode mode,
                                           std::size_t count) {
    std::vector<clsProjectConditions> points;
    Calculator calculator;
    std::mt19937 random(19);
    std::uniform_real_distribution<double> ted(-40, 15);
    std::uniform_real_distribution<double> tcd(20, 65);
    for (int trial = 0; trial < 100000 && points.size() < count; ++trial) {
        const clsProjectConditions point = pointAt(ted(random), tcd(random), mode);
        const clsCompressor& result = calculator.calculate(compressor, point);
        if (hasError(result)) continue;
        if (mode != EconomizerMode::none && result.Variables.Item("EcoModel").text() != "Piastra") continue;
        points.push_back(point);
    }
    return points;
}

/// The first model on the mains that has an economizer port.
const PreparedCompressor& modelOf(const PreparedCatalogue& catalogue, const std::string& refrigerant) {
    for (const PreparedCompressor& compressor : catalogue.compressors()) {
        if (compressor.Refrigerant == refrigerant && compressor.Economizer.hasPort() && !compressor.hasInvert)
            return compressor;
    }
    throw std::runtime_error("The catalogue has no model with a port for " + refrigerant + ".");
}

/// One prepared compressor at points that were not asked for before.
void newPoint(benchmark::State& state, const Wanted& wanted) {
    constexpr std::size_t count = 200;
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor& compressor = modelOf(*catalogue, wanted.refrigerant);
    const auto points = pointsOf(compressor, wanted.mode, count);
    Calculator calculator;
    clsRefprop& refprop = calculator.refprop(wanted.refrigerant);
    std::vector<StateCall> calls;
    const auto work = [&] {
        for (const clsProjectConditions& point : points)
            benchmark::DoNotOptimize(calculator.calculate(compressor, point));
    };
    refprop.forget();
    refprop.note(&calls);
    work();
    refprop.note(nullptr);
    const long long before = bench::allocations();
    work();
    const long long made = bench::allocations() - before;

    bench::AgainstFloor against(state, "its own property calls alone", static_cast<int>(points.size()));
    for ([[maybe_unused]] auto turn : state) {
        refprop.forget();
        const double taken = bench::processorSecondsOf(work);
        against.add(taken, bench::processorSecondsOf([&] {
                        for (const StateCall& call : calls) benchmark::DoNotOptimize(refprop.asked(call));
                    }));
    }
    const auto each = static_cast<double>(points.size());
    state.counters["points"] = each;
    state.counters["calls"] = static_cast<double>(calls.size()) / each;
    state.counters["allocations"] = static_cast<double>(made) / each;
}
BENCHMARK_CAPTURE(newPoint, R134A, Wanted{"R134A", EconomizerMode::none})->UseManualTime();
BENCHMARK_CAPTURE(newPoint, R404A, Wanted{"R404A", EconomizerMode::none})->UseManualTime();
BENCHMARK_CAPTURE(newPoint, R448A, Wanted{"R448A", EconomizerMode::none})->UseManualTime();
BENCHMARK_CAPTURE(newPoint, R134Aplate, Wanted{"R134A", EconomizerMode::approach})->UseManualTime();
BENCHMARK_CAPTURE(newPoint, R404Aplate, Wanted{"R404A", EconomizerMode::approach})->UseManualTime();
BENCHMARK_CAPTURE(newPoint, R448Aplate, Wanted{"R448A", EconomizerMode::approach})->UseManualTime();

/// 41 x 41 points over the envelope of a compressor.
void map(benchmark::State& state, const char* refrigerant) {
    constexpr int side = 41;
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor& compressor = modelOf(*catalogue, refrigerant);
    const clsLimits& limits = compressor.envelope->limits;
    const clsPoint left = *limits.getLeftPoint();
    const clsPoint right = *limits.getRightPoint();
    Calculator calculator;
    clsRefprop& refprop = calculator.refprop(refrigerant);
    int inside = 0;
    for ([[maybe_unused]] auto turn : state) {
        refprop.forget();
        inside = 0;
        state.SetIterationTime(bench::processorSecondsOf([&] {
            for (int i = 0; i < side; ++i) {
                for (int j = 0; j < side; ++j) {
                    const double ted = left.x + (right.x - left.x) * i / (side - 1);
                    const double tcd = right.Y + (left.Y - right.Y) * j / (side - 1);
                    if (!hasError(calculator.calculate(compressor, conditionsAt(ted, tcd)))) ++inside;
                }
            }
        }));
    }
    state.counters["points"] = side * side;
    state.counters["inside"] = inside;
}
BENCHMARK_CAPTURE(map, R134A, "R134A")->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(map, R404A, "R404A")->Unit(benchmark::kMillisecond)->UseManualTime();

/// Every compressor of the catalogue at an operating point that was not asked for before.
void wholeCatalogue(benchmark::State& state) {
    const auto catalogue = preparedCatalogue(gDatabase());
    Calculator calculator;
    const auto run = [&](double ted) {
        int sound = 0;
        for (const PreparedCompressor& compressor : catalogue->compressors())
            if (!hasError(calculator.calculate(compressor, conditionsAt(ted, 40)))) ++sound;
        return sound;
    };
    run(2);  // sets the refrigerants up
    double ted = 2;
    int sound = 0;
    const long long statements = gDatabase().executedStatements();
    for ([[maybe_unused]] auto turn : state) {
        ted += 0.001;
        state.SetIterationTime(bench::processorSecondsOf([&] { sound = run(ted); }));
    }
    state.counters["compressors"] = static_cast<double>(catalogue->compressors().size());
    state.counters["withoutError"] = sound;
    state.counters["statements"] = static_cast<double>(gDatabase().executedStatements() - statements);
}
BENCHMARK(wholeCatalogue)->Unit(benchmark::kMillisecond)->UseManualTime();

/// The same, and a map, on all processors next to one thread. Times are of the clock on the wall: the floor
/// is the time of one thread over the count of threads.
void onThreads(benchmark::State& state, bool isMap) {
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor& model = modelOf(*catalogue, "R404A");
    constexpr std::size_t points = 20000;
    CalculatorPool pool;
    CalculatorPool one(1);
    double ted = 2;
    const auto secondsOf = [&](CalculatorPool& threads) {
        const auto begun = std::chrono::steady_clock::now();
        ted += 1e-4;
        if (isMap) {
            threads.run(points, [&](Calculator& calculator, std::size_t i) {
                calculator.calculate(model, conditionsAt(ted - 30 + 0.0013 * static_cast<double>(i), 40));
            });
        } else {
            threads.run(catalogue->compressors().size(), [&](Calculator& calculator, std::size_t i) {
                calculator.calculate(catalogue->compressors()[i], conditionsAt(ted, 40));
            });
        }
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
    };
    for (CalculatorPool* each : {&pool, &one}) secondsOf(*each);  // sets the refrigerants up
    bench::AgainstFloor against(state, "one thread, over the count of threads");
    for ([[maybe_unused]] auto turn : state) {
        const double together = secondsOf(pool);
        against.add(together, secondsOf(one) / pool.threads());
    }
    state.counters["threads"] = pool.threads();
}
BENCHMARK_CAPTURE(onThreads, wholeCatalogue, false)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(onThreads, points, true)->Unit(benchmark::kMillisecond)->UseManualTime();

/// Reading a catalogue into memory.
void prepare(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state) benchmark::DoNotOptimize(PreparedCatalogue(gDatabase()));
}
BENCHMARK(prepare)->Unit(benchmark::kMillisecond);

/// A selection of a series of 10,000 models, on a catalogue of its own.
void longSeries(benchmark::State& state) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "marvello-bench-long.mdb";
    std::filesystem::remove(file);  // of a run that was ended
    bench::growSeries(file.string(), 1000);
    const Session session(MARVELLO_APP_FOLDER);
    openCatalogue("Data Source=" + file.string());
    int count = 0;
    for ([[maybe_unused]] auto turn : state) {
        clsSelections selections;
        state.SetIterationTime(bench::processorSecondsOf([&] {
            selections.Selection(std::make_shared<const clsProjectConditions>(conditionsAt(2, 40)), "TK-A",
                                 "*", "R134A", 0);
        }));
        count = selections.Count();
    }
    state.counters["models"] = count;
    std::filesystem::remove(file);
}
BENCHMARK(longSeries)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
    return bench::runOnCatalogue(argc, argv, [] {
        openCatalogue();
        gDatabase().checkUndamaged();
    });
}
