// What a year costs: the bins of the EU climate with a plant of four machines, by the clock on the wall, and
// with an economizer over the threads of a pool. Each turn has a design load of its own.

#include <benchmark/benchmark.h>

#include <chrono>
#include <stdexcept>
#include <string>

#include "bench/Catalogue.h"
#include "bench/Floor.h"
#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"
#include "engine/ShippedProfiles.h"
#include "engine/Year.h"

namespace {

using namespace marvello;

YearRequest requestOf(const PreparedCatalogue& catalogue, const char* refrigerant, bool hasInverter,
                      Staging staging) {
    const auto machines = [&](const char* serie, const char* model, int count) {
        const PreparedCompressor* found = catalogue.find(refrigerant, serie, model);
        if (found == nullptr) throw std::runtime_error(std::string("There is no ") + serie + "-" + model);
        return PlantMachines{found, count};
    };
    YearRequest request{.conditions = conditionsAt(0, 0)};
    request.machines = {machines("TK-A", "120", 2), machines("TK-A", "165", 1)};
    request.machines.push_back(hasInverter ? machines("TK-D", "140", 1) : machines("TK-A", "140", 1));
    const ShippedProfile profile = shippedProfiles(MARVELLO_APP_FOLDER).front();
    request.profile = profile.profile;
    request.degradation = profile.rule->degradation;
    request.designLoad = 200;
    request.evaporating = evaporatingRuleOf("-10");
    request.condensing = condensingRuleOf("outdoor+12,min 25");
    request.staging = staging;
    return request;
}

void note(benchmark::State& state, const Year& year) {
    state.counters["calculations"] = static_cast<double>(year.calculations);
    state.counters["kWh"] = year.energy;
    state.counters["unmetHours"] = year.unmetHours;
}

void year(benchmark::State& state, bool hasInverter, Staging staging, const char* condensing) {
    const auto catalogue = preparedCatalogue(gDatabase());
    YearRequest request = requestOf(*catalogue, "R134A", hasInverter, staging);
    request.condensing = condensingRuleOf(condensing);
    Calculator calculator;
    Year last;
    for ([[maybe_unused]] auto turn : state) {
        request.designLoad += 0.001;
        request.evaporating.points.front().evaporating += 0.0001;  // nothing is remembered
        state.SetIterationTime(
            bench::processorSecondsOf([&] { last = yearOf(request, loopWith(calculator)).value(); }));
    }
    note(state, last);
}
BENCHMARK_CAPTURE(year, fourWithSteps, false, Staging::power, "outdoor+12,min 25")
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(year, threeWithStepsAndInverter, true, Staging::power, "outdoor+12,min 25")
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(year, scaledWithInverter, true, Staging::power, "outdoor+12,scaled,min 25")
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(year, inSequenceWithInverter, true, Staging::sequence, "outdoor+12,min 25")
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

/// With economizer, by the clock on the wall.
void economized(benchmark::State& state, bool hasInverter) {
    const auto catalogue = preparedCatalogue(gDatabase());
    YearRequest request = requestOf(*catalogue, "R134A", hasInverter, Staging::power);
    request.conditions.EcoCalculateMode = EconomizerMode::approach;
    request.conditions.Eco = 5;
    CalculatorPool pool;
    Year last;
    for ([[maybe_unused]] auto turn : state) {
        request.designLoad += 0.001;
        request.evaporating.points.front().evaporating += 0.0001;
        const auto begun = std::chrono::steady_clock::now();
        last = yearOf(request, loopWith(pool)).value();
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count());
    }
    note(state, last);
    state.counters["threads"] = pool.threads();
}
BENCHMARK_CAPTURE(economized, fourWithSteps, false)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(economized, threeWithStepsAndInverter, true)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
    return bench::runOnCatalogue(argc, argv, [] {
        openCatalogue();
        gDatabase().checkUndamaged();
    });
}
