// What selections over a whole catalogue cost, next to the calculation of its compressors alone. Then a
// surface, and the making of a catalogue file.

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bench/Catalogue.h"
#include "bench/Floor.h"
#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "catalogue/clsPolynomial.h"
#include "data/Session.h"
#include "engine/Calculator.h"
#include "engine/clsSelections.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Content.h"

namespace {

using namespace marvello;
using bench::Series;

/// Every row of the catalogue, series by series.
int selectAll(const std::vector<Series>& all, const clsProjectConditions& conditions) {
    const auto shared = std::make_shared<const clsProjectConditions>(conditions);
    int compressors = 0;
    for (const Series& series : all) {
        clsSelections selections;
        selections.Selection(shared, series.name, "*", series.refrigerant, 0);
        compressors += selections.Count();
    }
    return compressors;
}

/// Selections at operating points that were not asked for before, next to the calculation alone, by turns.
void wholeCatalogue(benchmark::State& state) {
    const std::vector<Series> all = bench::seriesOfCatalogue();
    const auto catalogue = preparedCatalogue(gDatabase());
    double ted = 2;
    int compressors = selectAll(all, conditionsAt(ted, 40));  // sets the refrigerants up
    const long long statements = gDatabase().executedStatements();
    Calculator calculator;
    bench::AgainstFloor(state, "the same compressors, prepared and calculated alone")
        .run([&] { compressors = selectAll(all, conditionsAt(ted += 1e-4, 40)); },
             [&] {
                 ted += 1e-4;
                 for (const PreparedCompressor& compressor : catalogue->compressors())
                     benchmark::DoNotOptimize(calculator.calculate(compressor, conditionsAt(ted, 40)));
             });
    state.counters["compressors"] = compressors;
    state.counters["statements"] = static_cast<double>(gDatabase().executedStatements() - statements) /
                                   static_cast<double>(state.iterations());
}
BENCHMARK(wholeCatalogue)->Unit(benchmark::kMillisecond)->UseManualTime();

/// A value of a surface, by the operation of the calculation.
void surface(benchmark::State& state) {
    constexpr int points = 100000;
    clsPolynomial polynomial;
    polynomial.c = {45.1, 1.62, -0.41, 0.0201, -0.0093, -0.0011, 1e-4, -9e-5, -2e-5, 3e-6};
    const auto sum = [](const auto& value) {
        double total = 0;
        for (int i = 0; i < points; ++i)
            total += value(static_cast<float>(i % 50), static_cast<float>(i % 70));
        benchmark::DoNotOptimize(total);
    };
    const auto& c = polynomial.c;
    bench::AgainstFloor(state, "the same surface by Horner's rule in place", points)
        .run([&] { sum([&](float x, float y) { return polynomial.Calculate(x, y); }); },
             [&] {
                 sum([&](double x, double y) {
                     return c[0] + x * (c[1] + x * (c[3] + x * c[6]) + y * (c[4] + x * c[7] + y * c[8])) +
                            y * (c[2] + y * (c[5] + y * c[9]));
                 });
             });
}
BENCHMARK(surface)->UseManualTime();

/// From the text tables to the file, with the checks that need no other program.
void buildCatalogue(benchmark::State& state) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    const std::string file = (folder / "marvello-bench-build.mdb").string();
    const std::string floor = (folder / "marvello-bench-floor.mdb").string();
    const SQLite::Database shipped(MARVELLO_APP_FOLDER "/db.mdb", SQLite::OPEN_READONLY);
    SQLite::Statement copy(shipped, "VACUUM INTO '" + floor + "'");
    bench::AgainstFloor(state, "the same file, copied by SQLite")
        .run(
            [&] {
                Faults faults;
                const Content content = readContent(MARVELLO_CONTENT_FOLDER, faults);
                checkReferences(content, std::nullopt, faults);
                writeCatalogue(content, file);
            },
            [&] {
                std::filesystem::remove(floor);
                copy.exec();
                copy.reset();
            });
    std::filesystem::remove(file);
    std::filesystem::remove(floor);
}
BENCHMARK(buildCatalogue)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
    return bench::runOnCatalogue(argc, argv, [] { openCatalogue(); });
}
