// What a run of a whole catalogue costs, next to what the database alone needs for it: the same statements,
// run and read by SQLiteCpp without anything around it. Then a surface, and the making of a catalogue file.

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "bench/Floor.h"
#include "bench/GrownCatalogue.h"
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
    int failed = 0;          ///< Of these, with errors.
    long long states = 0;    ///< States that the property library was asked for.
    long long repeated = 0;  ///< Of these, asked for again when each refrigerant's run is done once more.
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
        selections.Selection(conditions, series.name, "*", series.refrigerant, 0);
        outcome.compressors += selections.Count();
        outcome.failed += failedOf(selections);
    }
    return outcome;
}

/// The same with the counts of states, which are kept by refrigerant and go with its property service. That a
/// second run asks for nothing shows that the first one forgot nothing, and so asked for nothing twice.
Outcome countAll(const std::vector<Series>& all) {
    Outcome outcome;
    InitRefprop(all.front().refrigerant);
    const auto conditions = std::make_shared<const clsProjectConditions>(conditionsAt(2, 40));
    for (auto first = all.begin(); first != all.end();) {
        const auto last = std::find_if(
            first, all.end(), [&](const Series& series) { return series.refrigerant != first->refrigerant; });
        const auto runThese = [&] {
            for (auto series = first; series != last; ++series) {
                clsSelections().Selection(conditions, series->name, "*", series->refrigerant, 0);
            }
            return GetRefprop(first->refrigerant).libraryCalls();
        };
        const long long states = runThese();
        outcome.states += states;
        outcome.repeated += runThese() - states;
        first = last;
    }
    return outcome;
}

/// What the engine asked of the database, in order: a statement starts, gives a row, or is at its end. The
/// statement of a series stays open while those of its compressors run.
struct DatabaseEvent {
    enum class Kind : std::uint8_t { start, row, end };
    Kind kind;
    std::size_t statement;  ///< Its number in the order of starting.
    std::string sql;        ///< Of a start.
};

/// Notes what is asked of every connection that is opened while it lives.
class Recorder {
  public:
    Recorder() {
        current() = this;
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(&Recorder::listen));
    }
    ~Recorder() {
        sqlite3_reset_auto_extension();
        current() = nullptr;
    }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    void forget() {
        events.clear();
        numbers_.clear();
        started_ = 0;
    }

    std::vector<DatabaseEvent> events;

  private:
    using Kind = DatabaseEvent::Kind;

    static Recorder*& current() {
        static Recorder* recorder = nullptr;
        return recorder;
    }
    static int listen(sqlite3* connection, char**, const void*) {
        return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT | SQLITE_TRACE_ROW | SQLITE_TRACE_PROFILE,
                                &Recorder::note, nullptr);
    }
    static int note(unsigned event, void*, void* statement, void*) {
        if (current() != nullptr) current()->note(event, static_cast<sqlite3_stmt*>(statement));
        return 0;
    }
    void note(unsigned event, sqlite3_stmt* statement) {
        if (event == SQLITE_TRACE_STMT) {
            numbers_[statement] = started_;
            events.push_back({Kind::start, started_++, sqlite3_sql(statement)});
        } else if (const auto found = numbers_.find(statement); found != numbers_.end()) {
            events.push_back({event == SQLITE_TRACE_ROW ? Kind::row : Kind::end, found->second, {}});
            if (event == SQLITE_TRACE_PROFILE) numbers_.erase(found);
        }
    }

    std::map<sqlite3_stmt*, std::size_t> numbers_;
    std::size_t started_ = 0;
};

std::vector<DatabaseEvent> eventsOf(const std::vector<Series>& all, const std::string& file) {
    Recorder recorder;
    const Session session(MARVELLO_APP_FOLDER);
    gDatabase().Connect("Data Source=" + file);
    gDatabase().checkUndamaged();
    recorder.forget();  // without those of the opening
    runAll(all);
    return std::move(recorder.events);
}

void readColumns(const SQLite::Statement& statement) {
    for (int index = 0; index < statement.getColumnCount(); ++index) {
        const SQLite::Column column = statement.getColumn(index);
        if (column.isText()) {
            benchmark::DoNotOptimize(column.getString());
        } else {
            benchmark::DoNotOptimize(column.getDouble());
        }
    }
}

void replay(SQLite::Database& database, const std::vector<DatabaseEvent>& events) {
    std::map<std::size_t, SQLite::Statement> open;
    for (const DatabaseEvent& event : events) {
        if (event.kind == DatabaseEvent::Kind::start) {
            open.emplace(std::piecewise_construct, std::forward_as_tuple(event.statement),
                         std::forward_as_tuple(database, event.sql));
        } else if (event.kind == DatabaseEvent::Kind::row) {
            SQLite::Statement& statement = open.at(event.statement);
            statement.executeStep();
            readColumns(statement);
        } else {
            open.erase(event.statement);
        }
    }
}

constexpr int leastCompressors = 800;

/// Engine and database alone by turns, so that both see the same machine.
void wholeCatalogue(benchmark::State& state) {
    const bench::GrownCatalogue catalogue(leastCompressors);
    const std::vector<Series> all = bench::seriesOfCatalogue();
    const std::vector<DatabaseEvent> events = eventsOf(all, catalogue.file());
    SQLite::Database alone(catalogue.file(), SQLite::OPEN_READONLY);

    Outcome outcome;
    bench::AgainstFloor(state, "the same statements and rows, SQLite alone")
        .run([&] { outcome = runAll(all); }, [&] { replay(alone, events); });
    const Outcome counted = countAll(all);
    const auto starts = [&events](const char* part) {
        return static_cast<double>(std::ranges::count_if(events, [part](const DatabaseEvent& event) {
            return event.kind == DatabaseEvent::Kind::start && event.sql.find(part) != std::string::npos;
        }));
    };
    state.counters["compressors"] = outcome.compressors;
    state.counters["failed"] = outcome.failed;
    state.counters["statements"] = starts("");
    state.counters["setUps"] = starts("tFluidi");
    state.counters["states"] = static_cast<double>(counted.states);
    state.counters["repeatedStates"] = static_cast<double>(counted.repeated);
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

/// Every row of a catalogue file, for the floor of making it.
struct AllRows {
    explicit AllRows(const std::string& file) {
        const SQLite::Database database(file, SQLite::OPEN_READONLY);
        SQLite::Statement objects(database, "SELECT sql, name, type FROM sqlite_schema WHERE sql NOT NULL");
        while (objects.executeStep()) {
            creation += objects.getColumn(0).getString() + ";";
            if (objects.getColumn(2).getString() == "table") read(database, objects.getColumn(1).getString());
        }
    }

    void write(const std::string& file) const {
        SQLite::Database database(file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec("PRAGMA journal_mode=OFF; BEGIN");
        database.exec(creation);
        for (const auto& [table, rows] : tables) {
            std::string places;
            for (std::size_t i = 0; i < rows.front().size(); ++i) places += i == 0 ? "?" : ",?";
            SQLite::Statement insert(database, "INSERT INTO " + table + " VALUES (" + places + ")");
            for (const auto& row : rows) {
                for (std::size_t i = 0; i < row.size(); ++i) insert.bind(static_cast<int>(i) + 1, row[i]);
                insert.exec();
                insert.reset();
            }
        }
        database.exec("COMMIT");
    }

    std::string creation;
    std::vector<std::pair<std::string, std::vector<std::vector<std::string>>>> tables;

  private:
    void read(const SQLite::Database& database, const std::string& table) {
        std::vector<std::vector<std::string>> rows;
        SQLite::Statement all(database, "SELECT * FROM " + table);
        while (all.executeStep()) {
            std::vector<std::string>& row = rows.emplace_back();
            for (int i = 0; i < all.getColumnCount(); ++i) row.push_back(all.getColumn(i).getString());
        }
        if (!rows.empty()) tables.emplace_back(table, std::move(rows));
    }
};

/// From the text tables to the file, with the checks that need no other program.
void buildCatalogue(benchmark::State& state) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    const std::string file = (folder / "marvello-bench-build.mdb").string();
    const std::string floor = (folder / "marvello-bench-floor.mdb").string();
    const AllRows rows(MARVELLO_APP_FOLDER "/db.mdb");
    bench::AgainstFloor(state, "the same rows, SQLite alone")
        .run(
            [&] {
                Faults faults;
                const Content content = readContent(MARVELLO_CONTENT_FOLDER, faults);
                checkReferences(content, std::nullopt, faults);
                writeCatalogue(content, file);
            },
            [&] {
                std::filesystem::remove(floor);
                rows.write(floor);
            });
    std::filesystem::remove(file);
    std::filesystem::remove(floor);
}
BENCHMARK(buildCatalogue)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
    try {
        benchmark::Initialize(&argc, argv);
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 2;
    }
    return 0;
}
