// Runs marvello-select of the built application folder as its users do.

#include <gtest/gtest.h>

#include <SQLiteCpp/Database.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/CallProgram.h"
#include "tools/catalogue/Content.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

using marvello::testing::Answer;
using marvello::testing::expectRefused;
using marvello::testing::Listen;
using marvello::testing::Refusal;

Answer call(const std::string& arguments, Listen to = Listen::output) {
    return marvello::testing::callProgram("marvello-select", arguments, to);
}

constexpr const char* point = "--refrigerant R134A --series TK-A --ted 2 --tcd 40";

double variable(const Json& compressor, const std::string& name) {
    for (const Json& entry : compressor["variables"]) {
        if (entry["name"] == name) return entry["value"].get<double>();
    }
    return std::nan("");
}

TEST(marvelloSelect, CapacityAtTheReferenceIsTheCatalogueSurfaces) {
    for (const char* refrigerant : {"R134A", "R290"}) {
        for (const char* series : {"TK-A", "MV-A"}) {
            const Answer answer = call(std::string("--refrigerant ") + refrigerant + " --series " + series +
                                       " --ted 2 --tcd 40 --sh 10 --sc 5 --format json");
            ASSERT_EQ(answer.status, 0) << answer.out;
            const Json run = Json::parse(answer.out);
            EXPECT_GE(run["count"], 10);
            int calculated = 0;
            for (const Json& compressor : run["compressors"]) {
                if (!compressor["messages"]["error"].empty()) continue;
                ++calculated;
                const auto c = compressor["polynomials"]["Q0"].get<std::array<double, 10>>();
                constexpr double terms[] = {1, 2, 40, 4, 80, 1600, 8, 160, 3200, 64000};  // 2/40 degC
                const double surface = std::inner_product(c.begin(), c.end(), terms, 0.0);
                EXPECT_NEAR(variable(compressor, "Q0") / surface, 1, 1e-4) << compressor["key"];
                EXPECT_GT(variable(compressor, "COP"), 1.5);
                EXPECT_LT(variable(compressor, "COP"), 8);
                EXPECT_LT(variable(compressor, "CA"), variable(compressor, "Fla"));
            }
            EXPECT_GE(calculated, 8) << refrigerant << " " << series;
        }
    }
}

TEST(marvelloSelect, StatusesAndOneLineOfReason) {
    const std::string at = point;
    for (const Refusal& refusal : {
             Refusal{"--refrigerant R134A --series TK-A --ted 2", "tcd is missing"},
             Refusal{at + " --sh 1,5", "\"1,5\" is not a number"},
             Refusal{at + " --colour red", "--colour"},
             Refusal{"--refrigerant R999 --series TK-A --ted 2 --tcd 40", "no refrigerant R999", 1},
             Refusal{"--refrigerant R134A --series \"O'Neill\" --ted 2 --tcd 40", "no series O'Neill", 1},
             Refusal{at + " --models \"120;9999\"", "no model 9999", 1},
             Refusal{at + " --advice --format csv", "the format csv has no place for it"},
             Refusal{"--batch /nowhere.csv", "/nowhere.csv cannot be read"},
             Refusal{"--batch /", "the file / cannot be read"},
         }) {
        expectRefused("marvello-select", refusal);
    }
    EXPECT_EQ(call("--refrigerant R134A --series TK-A --ted -100 --tcd 40").status,
              0);  // outside the envelope: listed, with its message
    EXPECT_EQ(call(std::string(point) + " --sh 90").status, 0);  // the rules say what is wrong with it
    EXPECT_EQ(call("--list >&-").status, 2);                     // nowhere to print to
    EXPECT_EQ(call(std::string(point) + " >&-").status, 2);
    EXPECT_EQ(call("--help >/dev/full").status, 2);
    EXPECT_EQ(call("--version").out, "marvello-select " MARVELLO_VERSION "\n");
    EXPECT_NE(call("--list --inverter").out.find("R134A  TK-D  140;"), std::string::npos);
    const std::string refrigerants = call("--list-refrigerants").out;
    EXPECT_NE(refrigerants.find(
                  "\nR22         A1        1810    1760    1960 0.055     -40.8     0.0       96.2\n"),
              std::string::npos);
    EXPECT_NE(refrigerants.find("\nR290        A3           3       -    0.02"), std::string::npos);
    EXPECT_EQ(call("--list-refrigerants --inverter").out.find("R22 "), std::string::npos);
}

TEST(marvelloSelect, AnOptionThatCannotBeIsRefusedWithWhatCan) {
    const std::string at = point;
    const std::string there = "--refrigerant R134A --series TK-A ";
    for (const Refusal& refusal : {
             Refusal{at + " --hz -1", "hz: \"-1\" is not one of 50, 60"},
             Refusal{at + " --hz 50.5", "hz: \"50.5\" is not one of 50, 60"},
             Refusal{at + " --voltage 0", "voltage: \"0\" is not one of 380, 400, 415, 440, 460"},
             Refusal{at + " --sh-type 2", "sh-type: \"2\" is not one of 0, 1"},
             Refusal{at + " --eco-mode 9", "eco-mode: \"9\" is not one of 0, 1, 2"},
             Refusal{at + " --oc-mode -1", "oc-mode: \"-1\" is not one of 0, 1, 2"},
             Refusal{at + " --oc -500", "oc: \"-500\" is outside the range of 0 to 200"},
             Refusal{at + " --motor-size 5", "motor-size: \"5\" is not one of -1, 0, 1"},
             Refusal{at + " --market 3", "market: \"3\" is not one of 0, 1, 2"},
             Refusal{at + " --rpm -1", "rpm: \"-1\" is not one of 970"},
             Refusal{at + " --step 60", "step: \"60\" is not one of 100, 75, 50, 25"},
             Refusal{at + " --frequency 19.9", "frequency: \"19.9\" is outside the range of 20 to 70 Hz"},
             Refusal{at + " --frequency inf", "frequency: \"inf\" is not a number from 20 to 70 Hz"},
             Refusal{at + " --sh -3", "sh: \"-3\" is outside the range of 0 to 100 K"},
             Refusal{at + " --sc nan", "sc: \"nan\" is not a number from 0 to 100 K"},
             Refusal{at + " --eco-mode 1 --eco 500", "eco: \"500\" is outside the range of 0 to 100 K"},
             Refusal{at + " --language xx", "language: \"xx\" is not one of cn-CN"},
             Refusal{at + " --format html",
                     "format: \"html\" is not one of table, csv, json, jsonl, xml, list-csv"},
             Refusal{"--batch none.csv --format xml", "format: xml is the list of one selection"},
             Refusal{at + " --strict", "--batch"},
             Refusal{there + "--ted nan --tcd 40", "ted: \"nan\" is not a number"},
             // The ends of the saturation line of R134a: 169.85 K and 374.18 K.
             Refusal{there + "--ted 1e308 --tcd 40",
                     "ted: R134A has no saturation state at \"1e+308\"; it has "
                     "some from -103.2 to 101 degrees Celsius"},
             Refusal{there + "--ted 2 --tcd 101.1", "tcd: R134A has no saturation state at \"101.1\""},
             Refusal{there + "--ted 50 --tcd 40", "ted: \"50\" is above the condensing temperature"},
         }) {
        expectRefused("marvello-select", refusal);
    }
    EXPECT_EQ(call(at + " --sh-type 1 --sh -20").status,
              0);  // a temperature below the evaporating one: a rule
    EXPECT_EQ(call(at + " --eco-mode 2 --eco 500").status, 0);
}

/// The one model of TK-A whose narrower limit ends below the line of injection warns as its neighbours do.
TEST(marvelloSelect, ALoadOfTheOilCoolerIsWarnedOfForEveryModel) {
    for (const char* refrigerant : {"R134A", "R407C"}) {
        const Json run =
            Json::parse(call(std::string("--refrigerant ") + refrigerant +
                             " --series TK-A --ted -10 --tcd 42 --oc-mode 2 --oc 70 --format json")
                            .out);
        ASSERT_EQ(run["count"], 10);
        for (const Json& compressor : run["compressors"]) {
            ASSERT_TRUE(compressor["messages"]["error"].empty()) << compressor["key"];
            EXPECT_GT(variable(compressor, "Pra"), 0) << compressor["key"];
            const std::string warnings = compressor["messages"]["attention"].dump();
            EXPECT_NE(warnings.find("messages.message07"), std::string::npos)
                << compressor["key"] << warnings;
        }
    }
}

// Trials of a capacity that no economizer adds subcool the liquid below any temperature.
TEST(marvelloSelect, AStateWithoutAResultIsSaidWithItsCause) {
    const Answer answer = call(
        "--refrigerant R134A --series MV-A --ted 0.63 --tcd 39.93 --sh-type 1 --sh 20.6 --eco-mode 2 --eco "
        "400 "
        "--voltage 380 --hz 60",
        Listen::errors);
    EXPECT_NE(answer.out.find("a state of the refrigerant could not be calculated"), std::string::npos)
        << answer.out;
    EXPECT_NE(answer.out.find("Cause: Temperature("), std::string::npos) << answer.out;
    EXPECT_NE(answer.out.find("outside the temperature range of R134a"), std::string::npos) << answer.out;
}

/// Of the only compressor, by the key of the warning.
Json warnings(const Answer& answer) {
    const Json run = Json::parse(answer.out);
    Json byKey;
    for (const Json& warning : run["compressors"][0]["messages"]["attention"])
        byKey[warning["name"].get<std::string>()] = warning;
    return byKey;
}

TEST(marvelloSelect, AdviceNamesOptionsThatEndTheMessage) {
    const std::string model = "--refrigerant R134A --series TK-A --models 120 --format json";
    const std::string here = model + " --ted -8 --tcd 57";
    const Json before = warnings(call(here + " --advice"));
    ASSERT_EQ(before.size(), 2U);
    for (const auto& [key, warning] : before.items()) {
        ASSERT_FALSE(warning["advice"].empty()) << key;
        for (const Json& advice : warning["advice"]) {
            const std::string option =
                " --" + advice["input"].get<std::string>() + " " + advice["value"].dump();
            const std::string others = (advice["input"] == "ted" ? "" : " --ted -8") +
                                       std::string(advice["input"] == "tcd" ? "" : " --tcd 57");
            const Json after = warnings(call(model + option + others));
            EXPECT_FALSE(after.contains(key)) << option;
            EXPECT_EQ(after.size(), 1 - advice["ends"].size()) << option;
        }
    }
    EXPECT_FALSE(warnings(call(here)).front().contains("advice"));

    const std::string table =
        call("--refrigerant R134A --series TK-A --models 120 --ted -8 --tcd 57 --advice").out;
    EXPECT_NE(table.find("        Superheat 5.7 K or lower (-4.3 K); the other message stays\n"),
              std::string::npos)
        << table;
}

TEST(marvelloSelect, NamesAreFoundInAnyCaseOfLetters) {
    const auto csv = [](const char* arguments) {
        return call(std::string(arguments) + " --ted 2 --tcd 40 --format csv").out;
    };
    const std::string expected = csv("--refrigerant R134A --series TK-D --models \"140;165\"");
    EXPECT_NE(expected.find("TK-D,165"), std::string::npos) << expected;
    EXPECT_EQ(csv("--refrigerant r134a --series tk-d --models \" 140 ;165;\" --language EN-en"), expected);
    EXPECT_EQ(csv("--refrigerant r134a --series gh --models 7h030"),
              csv("--refrigerant R134A --series GH --models 7H030"));
}

/// Application folder with a catalogue of a name and figures that no demonstration has.
TEST(marvelloSelect, ColumnsOfTheTableNeverRunTogether) {
    const marvello::test::TemporaryFolder folder("marvello-wide");
    for (const auto& entry : fs::directory_iterator(MARVELLO_APP_FOLDER))
        if (entry.path().filename() != "db.mdb")
            fs::create_symlink(entry.path(), folder / entry.path().filename());
    fs::copy_file(fs::path(MARVELLO_APP_FOLDER) / "db.mdb", folder / "db.mdb");
    SQLite::Database(folder / "db.mdb", SQLite::OPEN_READWRITE)
        .exec(
            "update tCompressors set fModelID='A-very-long-name-of-a-model' where fRefrigerantID='R134A' and "
            "fSerieID='TK-A' and fModelID='120'; update tPolynomials set fC1=fC1+1e9 where fPolynomialID in "
            "(select fPolynomialQ0ID from tCompressors where fModelID like 'A-very%') and fType=0");
    ::marvello::sealCatalogue(folder / "db.mdb");
    const std::string table = call("--app-folder '" + folder.string() + "' " + point).out;
    const auto line =
        table.substr(0, table.find('\n', table.find("A-very-long"))).substr(table.find("TK-A-A-"));
    std::istringstream words(line);
    const std::vector<std::string> cells{std::istream_iterator<std::string>(words), {}};
    ASSERT_EQ(cells.size(), 8) << table;
    EXPECT_EQ(cells[0], "TK-A-A-very-long-name-of-a-model");
    EXPECT_NEAR(std::stod(cells[2]), 1e9, 1e8);
}

TEST(marvelloSelect, ABatchRunsInOneProcessAndNamesALineAtFault) {
    const marvello::test::TemporaryFolder folder("marvello-batch");
    const fs::path file = folder / "batch.csv";
    const auto write = [&file](const char* text) { std::ofstream(file) << text; };
    write("refrigerant,series,ted,tcd\nR134A,TK-A,2,40\nR290,MV-A,-10,45\nR134A,TK-A,-5,\n");
    const Answer answer = call("--tcd 50 --format json --batch " + file.string());
    ASSERT_EQ(answer.status, 0);
    const Json runs = Json::parse(answer.out);
    ASSERT_EQ(runs.size(), 3);
    EXPECT_EQ(runs[1]["conditions"]["Refrigerant"], "R290");
    EXPECT_EQ(runs[2]["conditions"]["Tcd"], 50);            // the command line fills what a line leaves out
    EXPECT_EQ(call("--batch " + file.string()).status, 3);  // the last line has no tcd

    // Each bad line has one line of reason, and the others are calculated.
    write(
        "refrigerant,series,ted,tcd,hz\r\n"
        "R134A,TK-A,2,40,\r\n"
        "R134A,TK-A,two,40,\n"
        "R134A,TK-ZZ,2,40,\n\n"
        "R134A,\"TK-A,2,40,\n"
        "R134A,TK-A\xff,2,40,\n"
        "R134A,TK-A,2,40\n"
        "R134A,TK-A,2,40,-1\n"
        "R134A,TK-A,500,40,\n"
        "R134A,tk-b,5,40,\n");
    const std::string batch = "--batch " + file.string();
    const Answer good = call(batch + " --format json");
    EXPECT_EQ(good.status, 3);
    const Json calculated = Json::parse(good.out);
    ASSERT_EQ(calculated.size(), 2);
    EXPECT_EQ(calculated[1]["conditions"]["Serie"], "TK-B");
    const Answer faults = call(batch, Listen::errors);
    std::istringstream lines(faults.out);
    std::string line;
    for (const char* says :
         {":3: ted: \"two\"", ":4: The catalogue has no series TK-ZZ", ":6: a field in quotes",
          ":7: the text is not valid UTF-8", ":8: the line has 4 fields", ":9: hz: \"-1\"",
          ":10: ted: R134A has no saturation state"}) {
        ASSERT_TRUE(std::getline(lines, line)) << faults.out;
        EXPECT_NE(line.find(file.string() + says), std::string::npos) << line;
    }
    EXPECT_FALSE(std::getline(lines, line)) << faults.out;
    const Answer strict = call(batch + " --strict", Listen::errors);
    EXPECT_EQ(strict.status, 3);
    EXPECT_EQ(std::ranges::count(strict.out, '\n'), 1) << strict.out;
    EXPECT_NE(strict.out.find(":3: ted"), std::string::npos);

    write("refrigerant,colour\n");
    expectRefused("marvello-select", {batch, ":1: there is no option colour"});
    write("ted,ted\n");
    expectRefused("marvello-select", {batch, ":1: the column ted is there twice"});
    write("");
    expectRefused("marvello-select", {batch, "has no header line"});
}

TEST(marvelloSelect, FormatsAgree) {
    const Json run = Json::parse(call(std::string(point) + " --models 120 --format json").out);
    ASSERT_EQ(run["count"], 1);
    const Json& compressor = run["compressors"][0];
    const std::string csv = call(std::string(point) + " --models 120 --format csv").out;
    EXPECT_NE(csv.find("," + Json(variable(compressor, "Q0")).dump() + ","), std::string::npos) << csv;
    EXPECT_NE(call("--list").out.find("R134A  TK-A  120;"), std::string::npos);
    EXPECT_NE(call(std::string(point)).out.find("TK-A-120"), std::string::npos);
}

/// Application folders with something missing or wrong.
TEST(marvelloSelect, BrokenFoldersAreToldInASentence) {
    const marvello::test::TemporaryFolder folder("marvello-broken");
    const fs::path good = MARVELLO_APP_FOLDER;
    const std::string there = "--app-folder '" + folder.string() + "' " + point;
    const auto says = [&](const char* sentence) { expectRefused("marvello-select", {there, sentence}); };
    says("There is no catalogue file");
    std::ofstream(folder / "db.mdb") << "not a catalogue";
    says("is not a catalogue");
    fs::copy_file(good / "db.mdb", folder / "db.mdb", fs::copy_options::overwrite_existing);
    says("The fluid library cannot be loaded");
    fs::copy_file(good / "libRefprop.so", folder / "libRefprop.so");
    says("R134A.FLD");  // no folder Fluids
    fs::create_directories(folder / "Fluids");
    std::ofstream(folder / "Fluids" / "R134A.FLD") << "{\"format\": \"marvello-fluid\"";
    says("R134A.FLD");
    fs::remove(folder / "Fluids" / "R134A.FLD");
    fs::copy_file(good / "Fluids" / "R134A.FLD", folder / "Fluids" / "R134A.FLD");
    EXPECT_EQ(call(there).status, 0);
}

}  // namespace
