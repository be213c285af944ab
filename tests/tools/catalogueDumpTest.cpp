#include <gmock/gmock.h>

#include <SQLiteCpp/Database.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "data/FileText.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/CallProgram.h"
#include "tests/tools/SmallContent.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Dump.h"
#include "tools/catalogue/TableExchange.h"

using namespace marvello;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

namespace fs = std::filesystem;

std::string bytesOf(const fs::path& file) { return fileText(file).value_or(""); }

Content contentOf(const fs::path& folder) {
    Faults faults;
    Content content = readContent(folder, faults);
    EXPECT_THAT(faults.lines(), IsEmpty());
    return content;
}

/// The rows of each table as a set, wherever they stand.
std::vector<std::vector<std::vector<Value>>> rowsOf(const Content& content) {
    std::vector<std::vector<std::vector<Value>>> tables;
    for (const auto& table : content.tables) {
        auto& rows = tables.emplace_back();
        for (const auto& record : table.records) rows.push_back(record.values);
        if (!table.table->keepsOrder) std::ranges::sort(rows);
    }
    return tables;
}

class CatalogueDump : public ::testing::Test {
  protected:
    fs::path catalogueOf(const fs::path& content, const char* name) const {
        writeCatalogue(contentOf(content), folder_ / name);
        return folder_ / name;
    }
    static ::marvello::testing::Answer run(const std::string& arguments) {
        return ::marvello::testing::callProgram("marvello-catalogue", arguments,
                                                ::marvello::testing::Listen::errors);
    }

    test::TemporaryFolder folder_{"marvello-dump"};
};

TEST_F(CatalogueDump, BuildingTheDumpGivesTheSameFile) {
    const fs::path whole = fs::path(MARVELLO_SOURCE_FOLDER) / "content";
    const fs::path first = catalogueOf(whole, "first.mdb");
    writeTables(readCatalogue(first), folder_ / "dumped", false);
    EXPECT_EQ(rowsOf(contentOf(folder_ / "dumped")), rowsOf(contentOf(whole)));
    const fs::path second = catalogueOf(folder_ / "dumped", "second.mdb");
    EXPECT_TRUE(bytesOf(first) == bytesOf(second));
    writeTables(readCatalogue(second), folder_ / "again", false);
    for (const auto& entry : fs::directory_iterator(folder_ / "dumped"))
        EXPECT_TRUE(bytesOf(entry.path()) == bytesOf(folder_ / "again" / entry.path().filename()))
            << entry.path();
}

TEST_F(CatalogueDump, KeepsWhatCsvMustQuoteAndNumbersToTheLastBit) {
    const fs::path content = folder_ / "content";
    fs::create_directories(content);
    test::writeSmallContent(content);
    std::ofstream(content / "tDictionary.en-EN.csv", std::ios::app)
        << "a.b,\"one, \"\"two\"\"\r\nthree\"\na.c,\n";
    std::ofstream(content / "thelp.it-IT.terms.rtf") << "{\\rtf1 \"{\\b a},\\par\n}";
    std::ofstream(content / "tMotors.csv", std::ios::app) << "900,50,0.1,1e-300,-0,1e22,123456.789,0,0,3,\n";
    const fs::path first = catalogueOf(content, "first.mdb");
    writeTables(readCatalogue(first), folder_ / "dumped", false);
    EXPECT_EQ(bytesOf(folder_ / "dumped" / "thelp.it-IT.terms.rtf"), "{\\rtf1 \"{\\b a},\\par\n}");
    EXPECT_EQ(rowsOf(contentOf(folder_ / "dumped")), rowsOf(contentOf(content)));
    EXPECT_TRUE(bytesOf(first) == bytesOf(catalogueOf(folder_ / "dumped", "second.mdb")));
}

TEST_F(CatalogueDump, LeavesWhatIsThereUnlessForced) {
    const fs::path content = folder_ / "content";
    fs::create_directories(content);
    test::writeSmallContent(content);
    const std::string file = catalogueOf(content, "db.mdb").string();
    const auto conversions = content / "tPolynomials.r407c.csv";  // goes into the one table
    std::ofstream(content / "notes.txt") << "mine";

    const auto refused = run("dump " + file + " " + content.string());
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.out, HasSubstr("has tables already; choose another one, or --force"));
    EXPECT_TRUE(fs::exists(conversions));
    // A folder in the place of a table lets the writing fail in its midst: no other table is lost.
    const fs::path kept = folder_ / "kept.csv";
    fs::rename(content / "tMotors.csv", kept);
    fs::create_directories(content / "tMotors.csv" / "full");
    const auto tables = [&] { return std::distance(fs::directory_iterator(content), {}); };
    const auto before = tables();
    EXPECT_EQ(run("dump --force " + file + " " + content.string()).status, 2);
    EXPECT_GE(tables(), before);
    fs::remove_all(content / "tMotors.csv");
    fs::rename(kept, content / "tMotors.csv");
    EXPECT_EQ(run("dump --force " + file + " " + content.string()).status, 0);
    EXPECT_FALSE(fs::exists(conversions));
    EXPECT_EQ(bytesOf(content / "notes.txt"), "mine");
    EXPECT_TRUE(bytesOf(file) == bytesOf(catalogueOf(content, "again.mdb")));
}

TEST_F(CatalogueDump, TouchesNothingOfOthers) {
    fs::create_directories(folder_ / "content");
    test::writeSmallContent(folder_ / "content");
    const std::string file = catalogueOf(folder_ / "content", "db.mdb").string();
    const fs::path neighbour = folder_ / "out.new" / "inside";
    fs::create_directories(neighbour);
    EXPECT_EQ(run("dump " + file + " " + (folder_ / "out").string()).status, 0);
    EXPECT_EQ(run("dump " + file + " " + (folder_ / "out/").string()).status, 2);
    EXPECT_TRUE(fs::exists(neighbour));
    EXPECT_THAT(run("dump " + file + " \"\"").out, HasSubstr("folder for the tables is empty"));
    EXPECT_THAT(run("dump " + file + " " + file).out, HasSubstr("not a folder"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 4);  // content, db.mdb, out, out.new
}

/// A child process that stops in front of one change after the other.
TEST(TableExchange, AnEndAtAnyMomentLeavesTheOldTablesOrTheNewOnes) {
    using Files = std::map<std::string, std::string>;
    const Files old{{"tMotors.csv", "old"}, {"tLimits.csv", "old"}, {"tLimits.part.csv", "old"}};
    const Files fresh{{"tMotors.csv", "new"}, {"tLimits.csv", "new"}, {"tFluidi.csv", "new"}};
    const test::TemporaryFolder root("marvello-exchange");
    const fs::path folder = root / "tables";
    const auto tables = [&] {
        Files found;
        for (const auto& file : tablesIn(folder)) found[file.filename().string()] = bytesOf(file);
        return found;
    };
    for (const bool isNew : {true, false}) {
        bool isReached = true;
        bool wereOld = true;
        for (int stop = 1; isReached; ++stop) {
            fs::remove_all(folder);
            if (!isNew) {
                writeTableFiles(folder, old, false);
                std::ofstream(folder / "notes.txt") << "mine";
            }
            const pid_t child = fork();
            if (child == 0) {
                int steps = 0;
                writeTableFiles(folder, fresh, true, [&] {
                    if (++steps == stop) _exit(1);
                });
                _exit(0);
            }
            int status = 0;
            waitpid(child, &status, 0);
            isReached = WEXITSTATUS(status) == 1;
            finishExchange(folder);
            const Files found = tables();
            EXPECT_EQ(found, found == fresh ? fresh : isNew ? Files{} : old) << "stopped at " << stop;
            EXPECT_TRUE(wereOld || found == fresh) << "stopped at " << stop;
            wereOld = found != fresh;
            EXPECT_EQ(bytesOf(folder / "notes.txt"), isNew ? "" : "mine");
            // The next run needs no help and leaves nothing lying about.
            writeTableFiles(folder, old, true);
            EXPECT_EQ(tables(), old) << "stopped at " << stop;
            EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), isNew ? 3 : 4);
        }
        EXPECT_FALSE(wereOld);
    }
}

TEST_F(CatalogueDump, RefusesWhatIsNoCatalogueOfThisSchema) {
    const auto expectRefused = [&](const fs::path& file, const char* reason) {
        const auto answer = run("dump " + file.string() + " " + (folder_ / "out").string());
        EXPECT_EQ(answer.status, 2);
        EXPECT_THAT(answer.out, HasSubstr(reason));
        EXPECT_FALSE(fs::exists(folder_ / "out"));
    };
    expectRefused(folder_ / "none.mdb", "none.mdb");
    std::ofstream(folder_ / "text.mdb") << "fID,fText\n";
    expectRefused(folder_ / "text.mdb", "text.mdb");
    fs::create_directories(folder_ / "content");
    test::writeSmallContent(folder_ / "content");
    const fs::path other = catalogueOf(folder_ / "content", "other.mdb");
    SQLite::Database(other.string(), SQLite::OPEN_READWRITE).exec("PRAGMA user_version=99");
    expectRefused(other, "schema");
    SQLite::Database(other.string(), SQLite::OPEN_READWRITE)
        .exec("PRAGMA user_version=1; DROP TABLE tMotors");
    expectRefused(other, "tMotors");
    // One of the first schema, or one that was changed, gives its tables, and a word of warning.
    const fs::path changed = catalogueOf(folder_ / "content", "changed.mdb");
    SQLite::Database(changed.string(), SQLite::OPEN_READWRITE).exec("UPDATE tMotors SET fPhase=1");
    const auto warned = run("dump " + changed.string() + " " + (folder_ / "changed").string());
    EXPECT_EQ(warned.status, 0);
    EXPECT_THAT(warned.out, HasSubstr("changed or damaged since it was built"));
    SQLite::Database(changed.string(), SQLite::OPEN_READWRITE)
        .exec("PRAGMA user_version=1; DROP TABLE tDigest");
    EXPECT_THAT(run("dump " + changed.string() + " " + (folder_ / "older").string()).out,
                HasSubstr("older schema"));
    EXPECT_EQ(bytesOf(folder_ / "older" / "tMotors.csv"), bytesOf(folder_ / "changed" / "tMotors.csv"));
}

}  // namespace
