// What an economized calculation costs: every compressor of the catalogue that has a port, over a grid of
// operating points, each run from a start without any remembered state. With "--every=N" only each N-th of
// them.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "bench/Catalogue.h"
#include "bench/Floor.h"
#include "catalogue/Globals.h"
#include "data/Session.h"
#include "engine/clsSelections.h"
#include "thermo/clsRefprop.h"

namespace {

using namespace marvello;

struct Model {
    std::string refrigerant, serie, name;
};

int every = 1;  // of how many models one is taken

std::vector<Model> modelsWithPort() {
    std::vector<Model> models;
    int number = 0;
    for (RecordSet row =
             gDatabase().Execute("Select fRefrigerantID, fSerieID, fModelID from tCompressors where "
                                 "fKForo + fKPerdita + fSez > 0 order by fRefrigerantID");
         !row.eof(); row.moveNext()) {
        if (++number % every == 0)
            models.push_back({row.text("fRefrigerantID"), row.text("fSerieID"), row.text("fModelID")});
    }
    return models;
}

using Mode = EconomizerMode;
constexpr auto standard = Mode::none;
constexpr auto automatic = Mode::approach;
constexpr auto capacity = Mode::capacity;

clsProjectConditions economizedAt(double ted, double tcd, Mode mode, double eco) {
    clsProjectConditions conditions = conditionsAt(ted, tcd);
    conditions.EcoCalculateMode = mode;
    conditions.Eco = eco;
    return conditions;
}

/// One run of one compressor.
struct Cost {
    double milliseconds = 0;  ///< Of the processor, so that a busy machine does not count.
    double calls = 0;         ///< Of the property library.
};

/// Runs the model with the property library set up, but no state remembered.
Cost runOf(clsSelections& selections, const Model& model, const clsProjectConditions& conditions) {
    clsRefprop& refprop = GetRefprop(model.refrigerant);
    refprop.Initialize(gDatabase(), 0, model.refrigerant, "");
    const long long calls = refprop.libraryCalls();
    const auto given = std::make_shared<const clsProjectConditions>(conditions);
    const std::clock_t start = std::clock();
    selections.Selection(given, model.serie, model.name, model.refrigerant, 0);
    const double taken = 1e3 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    return {taken, static_cast<double>(refprop.libraryCalls() - calls)};
}

/// The share of the way from the capacity without economizer to the most that one can give.
constexpr double wantedShares[] = {0.1, 0.25, 0.5};
constexpr double plateApproaches[] = {2, 5, 10};
constexpr double tankApproach = 80;  // wider than any liquid is above the port

std::vector<double> ecoValues(clsSelections& selections, const Model& model, double ted, double tcd,
                              const std::string& what) {
    if (what == "plate") return {std::begin(plateApproaches), std::end(plateApproaches)};
    if (what == "tank") return {tankApproach};
    runOf(selections, model, economizedAt(ted, tcd, standard, 0));
    if (selections.Count() == 0 || !selections.Item(1).Variables.Exist("HE")) return {};
    const clsVariables& v = selections.Item(1).Variables;
    std::vector<double> values;
    for (const double share : wantedShares) {
        values.push_back(v("Q0") + share * v("Mbase") * (v("HE") - v("Hl")) / 3600);
    }
    return values;
}

/// Calls `visit(model, conditions)` for the grid of every model.
void overGrid(const std::string& what, const auto& visit) {
    clsSelections standardRun;
    const Mode mode = what == "capacity" ? capacity : automatic;
    for (const Model& model : modelsWithPort()) {
        for (double ted = -30; ted <= 10; ted += 5) {
            for (double tcd = 25; tcd <= 60; tcd += 5) {
                for (const double eco : ecoValues(standardRun, model, ted, tcd, what)) {
                    visit(model, economizedAt(ted, tcd, mode, eco));
                }
            }
        }
    }
}

double quantile(std::vector<double> values, double share) {
    if (values.empty()) return 0;
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

void report(benchmark::State& state, const std::string& what, const std::vector<double>& values) {
    state.counters[what + "_50"] = quantile(values, 0.5);
    state.counters[what + "_99"] = quantile(values, 0.99);
    state.counters[what + "_worst"] = quantile(values, 1);
}

void economized(benchmark::State& state, const std::string& what) {
    std::vector<double> times;
    std::vector<double> calls;
    int solved = 0;  // with a plate or a tank
    clsSelections selections;
    clsSelections plain;
    bench::AgainstFloor against(state, "the same run without economizer");
    for (auto _ : state) {
        overGrid(what, [&](const Model& model, const clsProjectConditions& conditions) {
            const Cost cost = runOf(selections, model, conditions);
            if (selections.Count() == 0 || !selections.Item(1).Variables.Exist("EcoModel")) return;
            times.push_back(cost.milliseconds);
            calls.push_back(cost.calls);
            clsProjectConditions without = conditions;
            without.EcoCalculateMode = standard;
            against.add(1e-3 * cost.milliseconds, 1e-3 * runOf(plain, model, without).milliseconds);
            if (selections.Item(1).Variables.Item("EcoModel").text() != "Impossible") ++solved;
        });
    }
    state.counters["runs"] = static_cast<double>(times.size());
    state.counters["solved"] = solved;
    report(state, "ms", times);
    report(state, "calls", calls);
}
BENCHMARK_CAPTURE(economized, plate, std::string("plate"))->Unit(benchmark::kSecond)->Iterations(1);
BENCHMARK_CAPTURE(economized, tank, std::string("tank"))->Unit(benchmark::kSecond)->Iterations(1);
BENCHMARK_CAPTURE(economized, capacity, std::string("capacity"))->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace

int main(int argc, char** argv) {
    constexpr std::string_view option = "--every=";
    if (argc > 1 && std::string_view(argv[1]).starts_with(option))
        every = std::max(1, std::atoi(argv[1] + option.size()));
    return bench::runOnCatalogue(argc, argv, [] { openCatalogue(); });
}
