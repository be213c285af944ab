// What a run of a whole catalogue costs, next to what the database alone needs for it: the same statements,
// run and read by SQLiteCpp without anything around it. Then a surface, and the making of a catalogue file.

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bench/Catalogue.h"
#include "bench/Floor.h"
#include "catalogue/Globals.h"
#include "catalogue/clsPolynomial.h"
#include "data/Session.h"
#include "engine/clsSelections.h"
#include "thermo/clsRefprop.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Content.h"

namespace {

using namespace marvello;
using bench::Series;

/// What a run left.
struct Outcome {
    int compressors = 0;
    int failed = 0;        ///< Of these, with errors.
    long long states = 0;  ///< That the property library was asked for.
};

int failedOf(const clsSelections& selections) {
    return static_cast<int>(std::ranges::count_if(
        selections, [](const auto& compressor) { return compressor->Messages.Error.Count() > 0; }));
}

/// Every row of the catalogue, refrigerant by refrigerant, from a start without any state.
Outcome runAll(const std::vector<Series>& all) {
    Outcome outcome;
    InitRefprop(all.front().refrigerant);
    const auto conditions = std::make_shared<const clsProjectConditions>(conditionsAt(2, 40));
    for (const Series& series : all) {
        clsSelections selections;
        const long long before = GetRefprop(series.refrigerant).libraryCalls();
        selections.Selection(conditions, series.name, "*", series.refrigerant, 0);
        outcome.states += GetRefprop(series.refrigerant).libraryCalls() - before;
        outcome.compressors += selections.Count();
        outcome.failed += failedOf(selections);
    }
    return outcome;
}

/// The statements of every connection that is opened while `work` runs, in their order.
std::vector<std::string> statementsOf(const auto& work) {
    static std::vector<std::string> statements;
    statements.clear();
    using Hook = int (*)(sqlite3*, char**, const void*);
    const Hook listen = [](sqlite3* connection, char**, const void*) {
        const auto note = [](unsigned, void*, void* statement, void*) {
            statements.emplace_back(sqlite3_sql(static_cast<sqlite3_stmt*>(statement)));
            return 0;
        };
        return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, note, nullptr);
    };
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(listen));
    work();
    sqlite3_reset_auto_extension();
    return statements;
}

void replay(const SQLite::Database& database, const std::vector<std::string>& statements) {
    for (const std::string& sql : statements) {
        SQLite::Statement statement(database, sql);
        while (statement.executeStep()) {
            for (int index = 0; index < statement.getColumnCount(); ++index) {
                const SQLite::Column column = statement.getColumn(index);
                if (column.isText()) {
                    benchmark::DoNotOptimize(column.getString());
                } else {
                    benchmark::DoNotOptimize(column.getDouble());
                }
            }
        }
    }
}

/// Engine and database alone by turns, so that both see the same machine.
void wholeCatalogue(benchmark::State& state) {
    const std::vector<Series> all = bench::seriesOfCatalogue();
    const std::vector<std::string> statements = statementsOf([&] {
        const Session session(MARVELLO_APP_FOLDER);
        openCatalogue();
        runAll(all);
    });
    const SQLite::Database alone(MARVELLO_APP_FOLDER "/db.mdb", SQLite::OPEN_READONLY);

    Outcome outcome;
    bench::AgainstFloor(state, "the same statements and rows, SQLite alone")
        .run([&] { outcome = runAll(all); }, [&] { replay(alone, statements); });
    state.counters["compressors"] = outcome.compressors;
    state.counters["failed"] = outcome.failed;
    state.counters["states"] = static_cast<double>(outcome.states);
    state.counters["statements"] = static_cast<double>(statements.size());
}
BENCHMARK(wholeCatalogue)->Unit(benchmark::kMillisecond)->UseManualTime()->MinTime(3);

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
    try {
        const Session session(MARVELLO_APP_FOLDER);
        openCatalogue();
        benchmark::Initialize(&argc, argv);
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 2;
    }
    return 0;
}
