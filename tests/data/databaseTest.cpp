#include "data/clsDatabase.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/data/TestCatalogue.h"

using namespace marvello;
using testing::AllOf;
using testing::HasSubstr;
using testing::ThrowsMessage;

namespace {

constexpr auto sampleTable =
    "CREATE TABLE tSample (fID TEXT NOT NULL COLLATE NOCASE, fReal REAL, fWhole INTEGER, fhasInverter "
    "INTEGER);"
    "INSERT INTO tSample VALUES ('A', 0.1, 7, 1), ('b', NULL, 5000000000, 0), ('c', 2, 3, 2);";

class Database : public testing::Test {
  protected:
    TestCatalogue catalogue_{sampleTable};
    clsDatabase database_;
};

TEST_F(Database, NeedsAConnectionToExecute) {
    EXPECT_THROW(database_.Connect(""), DatabaseError);  // no connection string yet
    EXPECT_THAT([&] { database_.Execute("Select * from tSample"); },
                ThrowsMessage<DatabaseError>(HasSubstr("open connection")));
    EXPECT_TRUE(database_.Connect(catalogue_.connectionString()));
    EXPECT_FALSE(database_.Execute("Select * from tSample").eof());
    EXPECT_FALSE(database_.CloseConnection());
    EXPECT_THROW(database_.Execute("Select * from tSample"), DatabaseError);
    EXPECT_TRUE(database_.Connect("  "));  // the string is kept
    EXPECT_EQ(database_.ConnectionString, catalogue_.connectionString());
}

TEST_F(Database, ConnectOnAnOpenConnectionChangesNothing) {
    database_.Connect(catalogue_.connectionString());
    auto open = database_.Execute("Select * from tSample");
    EXPECT_TRUE(database_.Connect("Data Source=/nowhere"));
    EXPECT_EQ(open.text("fID"), "A");
}

TEST_F(Database, FindsColumnsWithoutRegardToCase) {
    database_.Connect(catalogue_.connectionString());
    auto row = database_.Execute("Select * from tsample where FID='a' and fHasInverter=True;");
    ASSERT_FALSE(row.eof());
    EXPECT_EQ(row.text("fid"), "A");
    EXPECT_EQ(row.number("FREAL"), 0.1);
    EXPECT_EQ(row.number("fWhole"), 7.0);
    EXPECT_EQ(row.integer("fwhole"), 7);
    EXPECT_TRUE(row.boolean("fHasINVERTER"));
    row.moveNext();
    EXPECT_TRUE(row.eof());
    EXPECT_THROW(row.text("fID"), DatabaseError);
    EXPECT_THROW(row.moveNext(), DatabaseError);
}

TEST_F(Database, RefusesValuesThatDoNotFit) {
    database_.Connect(catalogue_.connectionString());
    auto row = database_.Execute("Select * from tSample order by fID");
    EXPECT_THAT([&] { row.text("fNone"); }, ThrowsMessage<DatabaseError>(HasSubstr("fNone")));
    EXPECT_THROW(row.number("fID"), DatabaseError);
    EXPECT_THROW(row.integer("fReal"), DatabaseError);
    EXPECT_THROW(row.text("fWhole"), DatabaseError);
    EXPECT_EQ(row.NullToDefault("fReal", "none"), "0.1");
    EXPECT_EQ(row.NullToDefault("fWhole", "none"), "7");

    row.moveNext();  // NULL, and a whole number beyond 32 bits
    EXPECT_TRUE(row.isNull("fReal"));
    EXPECT_THAT([&] { row.number("fReal"); }, ThrowsMessage<DatabaseError>(HasSubstr("no value")));
    EXPECT_EQ(row.NullToDefault("fReal", "none"), "none");
    EXPECT_THROW(row.integer("fWhole"), DatabaseError);

    row.moveNext();  // 2 is neither true nor false
    EXPECT_THROW(row.boolean("fhasInverter"), DatabaseError);
}

TEST_F(Database, HoldsSeveralOpenResults) {
    database_.Connect(catalogue_.connectionString());
    int pairs = 0;
    for (auto outer = database_.Execute("Select * from tSample order by fID"); !outer.eof();
         outer.moveNext()) {
        auto inner = database_.Execute("Select * from tSample where fID=" + sqlText(outer.text("fID")));
        EXPECT_EQ(inner.text("fID"), outer.text("fID"));
        ++pairs;
    }
    EXPECT_EQ(pairs, 3);
    EXPECT_EQ(database_.executedStatements(), 4);

    auto open = database_.Execute("Select * from tSample");
    database_.CloseConnection();
    open.moveNext();
    EXPECT_EQ(open.text("fID"), "b");
}

TEST_F(Database, ReportsFailingStatements) {
    database_.Connect(catalogue_.connectionString());
    EXPECT_THAT([&] { database_.Execute("Select * from tNothing"); },
                ThrowsMessage<DatabaseError>(HasSubstr("tNothing")));
    EXPECT_THROW(database_.Execute("Select \"fMisspelt\" from tSample"), DatabaseError);
    EXPECT_THROW(database_.Execute("Insert into tSample values ('d', 1, 1, 1)"), DatabaseError);
    EXPECT_EQ(sqlText("d'Arc"), "'d''Arc'");
}

TEST_F(Database, RefusesNumbersThatAreNotFinite) {
    catalogue_.exec("INSERT INTO tSample VALUES ('d', 9e999, 1, 1), ('e', -9e999, 1, 1)");
    database_.Connect(catalogue_.connectionString());
    for (auto row = database_.Execute("Select * from tSample where fID>'c'"); !row.eof(); row.moveNext())
        EXPECT_THAT([&] { row.number("fReal"); },
                    ThrowsMessage<DatabaseError>(AllOf(HasSubstr("fReal"), HasSubstr("finite number"))));
}

TEST_F(Database, CarriesOutNothingThatAFileBringsAlong) {
    catalogue_.exec("CREATE VIEW tView AS SELECT * FROM tSample");
    database_.Connect(catalogue_.connectionString());
    EXPECT_THAT([&] { database_.Execute("Select * from tView"); },
                ThrowsMessage<DatabaseError>(HasSubstr("tView")));
}

TEST_F(Database, SaysThatTheFileIsLockedOrHasALeftOverJournal) {
    {
        SQLite::Database other(catalogue_.file().string(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        const auto begun = std::chrono::steady_clock::now();
        EXPECT_THAT([&] { database_.Connect(catalogue_.connectionString()); },
                    ThrowsMessage<DatabaseError>(HasSubstr("is locked by another program")));
        EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(5));
        other.exec("COMMIT");
    }
    EXPECT_TRUE(database_.Connect(catalogue_.connectionString()));
    database_.CloseConnection();

    const pid_t child = fork();
    if (child == 0) {  // ends in the midst of a change that is already in the file
        SQLite::Database other(catalogue_.file().string(), SQLite::OPEN_READWRITE);
        other.exec(
            "PRAGMA cache_size=1; BEGIN; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n LIMIT "
            "5000) INSERT INTO tSample SELECT 'x'||i, i, i, 0 FROM n");
        _exit(0);
    }
    waitpid(child, nullptr, 0);
    ASSERT_TRUE(std::filesystem::exists(catalogue_.file().string() + "-journal"));
    EXPECT_THAT([&] { database_.Connect(catalogue_.connectionString()); },
                ThrowsMessage<DatabaseError>(HasSubstr("has a journal next to it")));
}

TEST_F(Database, OpensInAReadOnlyFolder) {
    namespace fs = std::filesystem;
    fs::permissions(catalogue_.file(), fs::perms::owner_read);
    fs::permissions(catalogue_.folder(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_TRUE(database_.Connect(catalogue_.connectionString()));
    EXPECT_EQ(database_.Execute("Select count(*) as n from tSample").integer("n"), 3);
    database_.CloseConnection();
    fs::permissions(catalogue_.folder(), fs::perms::owner_all);
}

TEST(DatabaseFile, IsCheckedWhenItIsOpened) {
    const TestCatalogue other(sampleTable, clsDatabase::schemaVersion + 1);
    clsDatabase database;
    EXPECT_THAT([&] { database.Connect(other.connectionString()); },
                ThrowsMessage<DatabaseError>(
                    AllOf(HasSubstr("newer version of Marvello"),
                          HasSubstr("schema version " + std::to_string(clsDatabase::schemaVersion + 1)))));
    const TestCatalogue older(sampleTable, clsDatabase::schemaVersion - 1);
    EXPECT_THAT([&] { clsDatabase().Connect(older.connectionString()); },
                ThrowsMessage<DatabaseError>(HasSubstr("older version of Marvello")));
    // A connection that failed the check is not left open.
    EXPECT_THROW(database.Execute("Select * from tSample"), DatabaseError);
    EXPECT_THROW(database.Connect(""), DatabaseError);

    const auto text = other.folder() / "text";
    const auto expectFault = [&](const std::string& part) {
        EXPECT_THAT([&] { database.Connect("Data Source=" + text.string()); },
                    ThrowsMessage<DatabaseError>(HasSubstr(part)));
    };
    expectFault("There is no catalogue file");
    std::ofstream(text) << "";
    expectFault("not a catalogue");
    std::ofstream(text) << std::string(4096, 'x');
    expectFault("not a catalogue");
    EXPECT_THROW(database.Connect("Data Source=" + other.folder().string()), DatabaseError);
}

}  // namespace
