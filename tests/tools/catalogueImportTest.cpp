#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "data/Csv.h"
#include "data/FileText.h"
#include "data/Texts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/CallProgram.h"
#include "tests/tools/SmallContent.h"
#include "tools/catalogue/CatalogueDiff.h"

using namespace marvello;
using ::marvello::testing::Answer;
using ::marvello::testing::callCommand;
using ::marvello::testing::Listen;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

namespace fs = std::filesystem;

/// The databases come from a writer of the tests' own, and mdbtools reads them.
class CatalogueImport : public ::testing::Test {
  protected:
    void SetUp() override {
        if (callCommand("command -v mdb-export mdb-schema >/dev/null").status != 0)
            GTEST_SKIP() << "The package mdbtools is not there, which reads Jet databases.";
    }

    static Answer python(const std::string& script, const std::string& arguments) {
        const std::string folder = MARVELLO_SOURCE_FOLDER;
        return callCommand("python3 -B '" + folder + "/tests/tools/" + script + "' " + arguments + " 2>&1");
    }

    /// A database of tables told in JSON.
    fs::path database(const std::string& tables, const std::string& version = "4") const {
        std::ofstream(folder_ / "tables.json") << tables;
        const auto written = python("writeJet.py", (folder_ / "tables.json").string() + " " +
                                                       (folder_ / "old.mdb").string() + " " + version);
        EXPECT_EQ(written.status, 0) << written.out;
        return folder_ / "old.mdb";
    }

    /// A database of the text tables of a folder.
    fs::path databaseOf(const fs::path& content, const std::string& version) const {
        const auto written =
            python("jetContent.py", content.string() + " " + (folder_ / "old.mdb").string() + " " + version);
        EXPECT_EQ(written.status, 0) << written.out;
        return folder_ / "old.mdb";
    }

    Answer imported(const fs::path& file, const std::string& options = {}) const {
        return marvello::testing::callProgram(
            "marvello-catalogue",
            "import " + file.string() + " " + (folder_ / "new").string() + " " + options, Listen::errors);
    }

    std::vector<std::string> differences(const fs::path& content) const {
        Faults faults;
        const auto before = readPlainTables(content, faults);
        const auto after = readPlainTables(folder_ / "new", faults);
        EXPECT_THAT(faults.lines(), IsEmpty());
        const CatalogueDiff diff = compareTables(before, after);
        std::vector<std::string> all;
        for (const TableChange& change : diff.tables) all.push_back(change.table + ": " + change.what);
        for (const RowChange& row : diff.rows)
            all.push_back(std::string(nameOf(row.kind)) + " " + row.table + " " + row.key +
                          (row.columns.empty() ? "" : " " + row.columns.front().column));
        return all;
    }

    std::vector<std::string> linesOf(const std::string& table) const {
        return test::linesOf(folder_ / "new" / table);
    }

    test::TemporaryFolder folder_{"marvello-import"};
};

TEST_F(CatalogueImport, TheWholeContentComesBackFromAJet4Database) {
    const fs::path content = fs::path(MARVELLO_SOURCE_FOLDER) / "content";
    const Answer answer = imported(databaseOf(content, "4"));
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.out, "");
    EXPECT_THAT(differences(content), IsEmpty());
    EXPECT_FALSE(fs::exists(folder_ / "new" / "rejected.csv"));
}

TEST_F(CatalogueImport, Jet3TextsAreInACodePage) {
    const fs::path content = folder_ / "content";
    fs::create_directories(content);
    test::writeSmallContent(content);
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(content)) files.push_back(entry.path());
    const auto isBeyondAscii = [](const std::string& line) {
        return std::ranges::any_of(line, [](char c) { return static_cast<unsigned char>(c) > 127; });
    };
    for (const fs::path& file : files) {
        const std::string name = file.filename().string();
        if (name.starts_with("tDictionary") || name.starts_with("thelp") || name.starts_with("tLanguages")) {
            fs::remove(file);
            continue;
        }
        auto lines = test::linesOf(file);
        std::erase_if(lines, isBeyondAscii);
        test::writeLines(file, lines);
    }
    // A long text is on pages of its own; letters above 127 have one byte.
    std::string help = "{\\rtf1 ";
    for (int i = 0; i < 1000; ++i) help += "Größe {\\b à}\r\n";
    std::ofstream(content / "thelp.it-IT.terms.rtf", std::ios::binary) << help << "}";
    std::ofstream(content / "tDictionary.it-IT.csv") << "fVariableName,fText\na.b,\"perché, \"\"così\"\"\"\n";
    std::ofstream(content / "tLanguages.csv") << "fLanguage,fDescription\nit-IT,Italiano\n";
    const fs::path file = databaseOf(content, "3 1252");
    EXPECT_EQ(imported(file).status, 0);
    EXPECT_THAT(differences(content), IsEmpty());

    // Byte 0xEC is "ì" in the code page that the file states, and "ě" in that of Prague.
    fs::remove_all(folder_ / "new");
    EXPECT_EQ(imported(file, "--charset CP1250").status, 0);
    EXPECT_THAT(fileText(folder_ / "new" / "tDictionary.it-IT.csv").value_or(""),
                HasSubstr("perché, \"\"cosě"));
}

TEST_F(CatalogueImport, NamesEachValueThatDoesNotFit) {
    const fs::path file = database(R"json([
      {"name": "TMOTORS", "columns": [["fMotorID", "double"], ["FHZ", "text"], ["fC1", "text"], ["fC2", "single"],
         ["fC3", "double"], ["fC4", "double"], ["fC5", "double"], ["fLra1", "double"], ["fLra2", "double"],
         ["fPhase", "int"], ["FNominalPower", "date"], ["fNote", "text"]],
       "rows": [[1, "50", "8.4", 0.1, 0, 0, 0, 105.3, 175.5, 3, 36526.25, "kept by Anna"],
                [2, "50", "8,4", 0.1, 0, 0, 0, 105.3, 175.5, 3, null, null],
                [3.5, "50", "8.4", 0.1, null, 0, 0, 105.3, 175.5, 3, null, null],
                [1, "50", "9.9", 0.2, 0, 0, 0, 105.3, 175.5, 3, null, null]]},
      {"name": "tLimits", "columns": [["fLimitID", "text"], ["fType", "int"], ["fPoints", "memo"]],
       "rows": [["A", 0, "(-20,20);(0,20);(0,50);(-20,20)"], ["A", 1, "-20,20;0,20"], ["A ", 1, "-20;20"],
                ["B", 0, "-20,20;0,twenty;0,50;-20,20"]]},
      {"name": "tFluidi", "columns": [["fRefrigeranteId", "text"], ["fFluido", "ole"], ["fPFluido", "double"]],
       "rows": [["R134A", "52313334", 1]]},
      {"name": "tLanguages", "columns": [["fLanguage", "text"]], "rows": [["it-IT"], ["de-DE"]]},
      {"name": "tPrices", "columns": [["fModel", "text"], ["fPrice", "money"]], "rows": [["120", 1000]]},
      {"name": "thelp", "columns": [["flanguage", "text"]], "rows": [], "link": true}
    ])json");
    const Answer answer = imported(file);
    EXPECT_EQ(answer.status, 1);
    for (const char* says :
         {"tMotors: the catalogue has no column fNote; 1 value left out\n",
          "TMOTORS row 2 (2, 50): fC1: \"8,4\" is not a number\n",
          "TMOTORS row 3 (3.5, 50): fMotorID: \"3.5\" is not a whole number\n",
          "TMOTORS row 3 (3.5, 50): fC3: the value is missing\n",
          "TMOTORS row 4 (1, 50): row 1 has the same key\n",
          "tLimits row 2 (A, 1): fPoints: a polyline needs at least four points and has 2\n",
          "tLimits row 3 (A , 1): fLimitID: \"A \" begins or ends with a blank",
          "tLimits row 3 (A , 1): fPoints: \"-20\" is not a point",
          "tLimits row 4 (B, 0): fPoints: \"0,twenty\" is not a point", "tFluidi row 1 (R134A, ",
          "): fFluido: it holds binary data and no text\n",
          "tLanguages: the column fDescription is missing; 2 rows rejected\n",
          "tPrices: the catalogue has no such table; 1 row rejected\n",
          "thelp: the table is a link to another database, which has its rows\n",
          "tCompressors: the database has no such table\n"})
        EXPECT_THAT(answer.out, HasSubstr(says));
    EXPECT_THAT(answer.out, Not(HasSubstr("tSources")));  // may be missing

    EXPECT_EQ(linesOf("tMotors.csv").size(), 2U);
    // 36526 days after 30 December 1899, and a quarter.
    EXPECT_EQ(linesOf("tMotors.csv")[1], "1,50,8.4,0.1,0,0,0,105.3,175.5,3,2000-01-01 06:00:00");
    EXPECT_EQ(linesOf("tLimits.csv").size(), 2U);
    EXPECT_EQ(linesOf("tFluidi.csv").size(), 1U);

    // Each rejected row with all of its fields, and the reason at the field.
    Faults faults;
    const auto records = readCsv(fileText(folder_ / "new" / "rejected.csv").value_or(""), "rejected", faults);
    EXPECT_THAT(faults.lines(), IsEmpty());
    std::map<std::string, int> fields;
    for (const CsvRecord& record : records) ++fields[record.fields[0] + " " + record.fields[1]];
    const std::map<std::string, int> expected{{"table row", 1},    {"TMOTORS 1", 1},    {"TMOTORS 2", 12},
                                              {"TMOTORS 3", 12},   {"TMOTORS 4", 12},   {"tLimits 2", 3},
                                              {"tLimits 3", 3},    {"tLimits 4", 3},    {"tFluidi 1", 3},
                                              {"tLanguages 1", 2}, {"tLanguages 2", 2}, {"tPrices 1", 2}};
    EXPECT_EQ(fields, expected);
    const auto comma =
        std::ranges::find_if(records, [](const CsvRecord& record) { return record.fields[4] == "8,4"; });
    ASSERT_NE(comma, records.end());
    EXPECT_EQ(comma->fields[3], "fC1");
    EXPECT_EQ(comma->fields[5], "\"8,4\" is not a number");
}

TEST_F(CatalogueImport, NoNumberOfBadRowsHidesWhatIsSaidOfTables) {
    std::string rows;
    for (int i = 0; i < 250; ++i) rows += std::string(i > 0 ? "," : "") + "[\"A\", 1, \"bad\"]";
    const Answer answer = imported(database(
        R"([{"name": "tLimits", "columns": [["fLimitID", "text"], ["fType", "int"], ["fPoints", "memo"]], "rows": [)" +
        rows + R"(]}, {"name": "tPrices", "columns": [["fModel", "text"]], "rows": [["120"]]}])"));
    EXPECT_EQ(answer.status, 1);
    EXPECT_THAT(answer.out, HasSubstr("tPrices: the catalogue has no such table; 1 row rejected\n"));
    EXPECT_THAT(answer.out, HasSubstr("\nand 50 more of rows; see rejected.csv\n"));
}

TEST_F(CatalogueImport, ReadsTheTypesOfOldTables) {
    const std::string columns = [] {
        std::string text;
        for (const char* column :
             {"fFla", "fFla2", "fInverterQ0C1", "fInverterQ0C2", "fInverterQ0C3", "fInverterPtaC1",
              "fInverterPtaC2", "fInverterPtaC3", "fInverterCaC1", "fInverterCaC2", "fInverterCaC3", "fKForo",
              "fKPerdita", "fSez", "fOilCoolingLimit", "fOilCoolingLimitEco", "fValue1"})
            text += std::string("[\"") + column + "\", \"single\"],";
        return text;
    }();
    const std::string figures = "61, 46, 0.1, -0.18, 0, 0, 0, 0, 0, 0, 0, 1.52, 0.25, 920, 100, 95, 0,";
    const auto row = [&](const std::string& model, const std::string& booleans, const std::string& market) {
        return "[" + figures + "\"R134A\",\"TK-A\",\"" + model + "\",null,null,\"P\",\"P\",\"P\"," +
               booleans + ",2,1.5,42,82,\"L\",null," + market + "]";
    };
    const fs::path file = database(
        R"([{"name": "tCompressors", "columns": [)" + columns +
        R"(["fRefrigerantID", "text"], ["fSerieID", "text"], ["fModelID", "text"], ["fSequence", "text"],
            ["fVI", "text"], ["fPolynomialQ0ID", "text"], ["fPolynomialPassID", "text"],
            ["fPolynomialShID", "text"], ["fhasInverter", "bool"], ["fhasFullSmallMotor", "int"],
            ["fisSmallMotorStandard", "text"], ["fStartMode", "byte"], ["fCtsca", "money"],
            ["fMotorFullID", "double"], ["fMotorSmallID", "long"], ["fLimitID", "text"],
            ["fLimitEconomizedID", "text"], ["fMarket", "long"]],
            "rows": [)" +
        row("1", "true, -1, \"TRUE\"", "2") + "," + row("2", "false, 0, \"no\"", "2") + "," +
        row("3", "false, 2, \"False\"", "300") + "," + row("4", "false, null, \"False\"", "0") + "]}]");
    const Answer answer = imported(file);
    EXPECT_EQ(answer.status, 1);
    for (const char* says :
         {"row 2 (R134A, TK-A, 2): fisSmallMotorStandard: \"no\" is neither True nor False",
          "row 3 (R134A, TK-A, 3): fhasFullSmallMotor: \"2\" is neither True nor False",
          "row 3 (R134A, TK-A, 3): fMarket: 300 is outside 0 to 255",
          "row 4 (R134A, TK-A, 4): fhasFullSmallMotor: the value is missing"})
        EXPECT_THAT(answer.out, HasSubstr(says));
    // A single 0.1 is 0.1 and not 0.100000001490116; minus one is True.
    ASSERT_EQ(linesOf("tCompressors.csv").size(), 2U);
    EXPECT_EQ(
        linesOf("tCompressors.csv")[1],
        "R134A,TK-A,1,,,61,46,P,P,P,True,0.1,-0.18,0,0,0,0,0,0,0,True,True,2,1.5,1.52,0.25,920,100,95,0,42,"
        "82,L,,2");
}

TEST_F(CatalogueImport, SaysThatRowsAreLost) {
    std::string rows;
    for (int i = 1; i <= 300; ++i)
        rows += (i == 1 ? "[" : ",[") + std::string("\"R") + std::to_string(i) + "\"]";
    const std::string table =
        R"({"name": "tRefrigeranti", "columns": [["fRefrigeranteId", "text"]], "rows": [)" + rows + "]";
    EXPECT_EQ(imported(database("[" + table + "}]")).status, 1);  // the other tables are missing
    EXPECT_EQ(linesOf("tRefrigeranti.csv").size(), 301U);
    fs::remove_all(folder_ / "new");

    // The first page of rows, of 200, is that of another table: page 3 is the definition, 4 the first one.
    {
        std::fstream stream(folder_ / "old.mdb", std::ios::binary | std::ios::in | std::ios::out);
        stream.seekp(4 * 4096 + 4);
        stream.write("\x7f\x7f\0\0", 4);
    }
    Answer answer = imported(folder_ / "old.mdb");
    EXPECT_EQ(answer.status, 1);
    EXPECT_THAT(answer.out, HasSubstr("tRefrigeranti: mdb-export says: warning: page 4"));
    EXPECT_THAT(answer.out, HasSubstr("its definition counts 300 rows, and 100 can be read"));
    EXPECT_EQ(linesOf("tRefrigeranti.csv").size(), 101U);
    fs::remove_all(folder_ / "new");

    answer = imported(database("[" + table + R"(, "lies": 301}])"));
    EXPECT_THAT(answer.out, HasSubstr("tRefrigeranti: its definition counts 301 rows, and 300 can be read"));
    fs::remove_all(folder_ / "new");

    // Cut off in front of its tables.
    fs::resize_file(folder_ / "old.mdb", 3 * 4096);
    answer = imported(folder_ / "old.mdb");
    EXPECT_EQ(answer.status, 2);
    EXPECT_FALSE(fs::exists(folder_ / "new"));
}

TEST_F(CatalogueImport, LeavesOthersFilesAndRefusesOtherDatabases) {
    const auto refused = [&](const Answer& answer, const std::string& says) {
        EXPECT_EQ(answer.status, 2);
        EXPECT_THAT(answer.out, HasSubstr(says));
    };
    const fs::path sound =
        database(R"([{"name": "tLanguages", "columns": [["fLanguage", "text"]], "rows": []}])");
    fs::create_directories(folder_ / "new");
    std::ofstream(folder_ / "new" / "notes.txt") << "mine";
    refused(imported(sound), "has files already; choose a new or an empty one");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_ / "new"), {}), 1);
    fs::remove_all(folder_ / "new");

    std::ofstream(folder_ / "text.mdb") << "no database";
    refused(imported(folder_ / "text.mdb"), "it is no Jet database");
    refused(imported(folder_ / "missing.mdb"), "there is no such file");
    const fs::path content = fs::path(MARVELLO_SOURCE_FOLDER) / "content";
    Faults faults;
    writeCatalogue(readContent(content, faults), folder_ / "db.mdb");
    refused(imported(folder_ / "db.mdb"), "marvello-catalogue dump writes its tables");
    const Answer without =
        callCommand(std::string("PATH=/nowhere '") + MARVELLO_APP_FOLDER + "/marvello-catalogue' import " +
                    sound.string() + " " + (folder_ / "new").string() + " 2>&1");
    refused(without, "install the package mdbtools");
    EXPECT_FALSE(fs::exists(folder_ / "new"));
}

TEST_F(CatalogueImport, TheCheckReminds) {
    const fs::path content = folder_ / "content";
    fs::create_directories(content);
    test::writeSmallContent(content);
    std::ofstream(content / "rejected.csv") << "table,row,key,column,value,reason\n";
    Faults faults;
    readContent(content, faults);
    EXPECT_THAT(faults.lines(), IsEmpty());
    ASSERT_EQ(faults.warnings().size(), 1U);
    EXPECT_THAT(faults.warnings().front(), HasSubstr("rejected.csv: warning: the import could not take"));
}

}  // namespace
