// What follows a key in the comparison of four choices: the figures with part loads, and the curves. Each
// turn has an operating point of its own.

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <vector>

#include "bench/Catalogue.h"
#include "bench/Floor.h"
#include "catalogue/Globals.h"
#include "data/Session.h"
#include "engine/Comparison.h"

namespace {

using namespace marvello;

std::vector<ComparedChoice> choicesAt(double ted, EconomizerMode economizer) {
    std::vector<ComparedChoice> choices{{"R134A", "TK-A", "255", conditionsAt(ted, 40)},
                                        {"R513A", "MV-E", "50-240", conditionsAt(ted, 40)},
                                        {"R1234ZE", "TK-E", "335", conditionsAt(ted, 40)},
                                        {"R134A", "TK-D", "140", conditionsAt(ted, 40)}};
    for (ComparedChoice& choice : choices) choice.conditions.EcoCalculateMode = economizer;
    return choices;
}

void comparison(benchmark::State& state, EconomizerMode economizer, bool hasCurves) {
    const auto catalogue = preparedCatalogue(gDatabase());
    Calculator calculator;
    double ted = 2;
    for ([[maybe_unused]] auto turn : state) {
        ted += 0.0001;  // nothing is remembered
        state.SetIterationTime(bench::processorSecondsOf([&] {
            const Comparison compared = compare(choicesAt(ted, economizer), catalogue, calculator);
            if (!compared.machines.front().performance.hasValues())
                throw std::runtime_error("The first choice has no values");
            if (hasCurves)
                benchmark::DoNotOptimize(curvesOf(compared, CurveAxis::evaporating, loopWith(calculator)));
        }));
    }
}
BENCHMARK_CAPTURE(comparison, fourChoices, EconomizerMode::none, false)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(comparison, fourWithCurves, EconomizerMode::none, true)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(comparison, fourWithEconomizer, EconomizerMode::approach, false)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
    return bench::runOnCatalogue(argc, argv, [] {
        openCatalogue();
        gDatabase().checkUndamaged();
    });
}
