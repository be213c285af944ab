// Runs marvello-select of the built application folder as its users do.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <numeric>
#include <string>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/CallProgram.h"

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
             Refusal{"--refrigerant R134A --series TK-A --ted nan --tcd 40", "\"nan\" is no number"},
             Refusal{at + " --sh 1,5", "\"1,5\" is no number"},
             Refusal{at + " --hz 50.5", "no whole number"},
             Refusal{at + " --frequency 1e39", "frequency: \"1e39\" is too large"},
             Refusal{at + " --colour red", "--colour"},
             Refusal{"--refrigerant R999 --series TK-A --ted 2 --tcd 40", "no refrigerant R999", 1},
             Refusal{"--refrigerant R134A --series \"O'Neill\" --ted 2 --tcd 40", "no series O'Neill", 1},
             Refusal{at + " --models \"120;9999\"", "no model 9999", 1},
             Refusal{"--batch /nowhere.csv", "/nowhere.csv cannot be read"},
             Refusal{"--batch /", "the file / cannot be read"},
         }) {
        expectRefused("marvello-select", refusal);
    }
    EXPECT_EQ(call("--refrigerant R134A --series TK-A --ted -100 --tcd 40").status,
              0);  // outside the envelope: listed, with its message
    EXPECT_EQ(call(std::string(point) + " --sh 1000").status, 0);
    EXPECT_EQ(call(std::string(point) + " --step 60").status, 0);  // the rules say what is wrong with it
    EXPECT_EQ(call("--list >&-").status, 2);                       // nowhere to print to
    EXPECT_EQ(call(std::string(point) + " >&-").status, 2);
    EXPECT_NE(call("--list --inverter").out.find("R134A  TK-D  140;"), std::string::npos);
    // Beyond the fluid's own range, for ten compressors: said once.
    const Answer beyond = call("--refrigerant R134A --series TK-A --ted 500 --tcd 40", Listen::errors);
    EXPECT_EQ(beyond.status, 0);
    EXPECT_EQ(beyond.out, "marvello-select: Undefined\n");
}

TEST(marvelloSelect, ABatchRunsInOneProcessAndNamesALineAtFault) {
    const fs::path file = marvello::test::newTemporaryFolder("marvello-batch") / "batch.csv";
    const auto write = [&file](const char* text) { std::ofstream(file) << text; };
    write("refrigerant,series,ted,tcd\nR134A,TK-A,2,40\nR290,MV-A,-10,45\nR134A,TK-A,-5,\n");
    const Answer answer = call("--tcd 50 --format json --batch " + file.string());
    ASSERT_EQ(answer.status, 0);
    const Json runs = Json::parse(answer.out);
    ASSERT_EQ(runs.size(), 3);
    EXPECT_EQ(runs[1]["conditions"]["Refrigerant"], "R290");
    EXPECT_EQ(runs[2]["conditions"]["Tcd"], 50);  // the command line fills what a line leaves out
    write("refrigerant,series,ted,tcd\nR134A,TK-A,2,40\nR134A,TK-A,two,40\n");
    const Answer fault = call("--batch " + file.string(), Listen::errors);
    EXPECT_EQ(fault.status, 2);
    EXPECT_NE(fault.out.find(":3: ted: \"two\" is no number"), std::string::npos) << fault.out;
    fs::remove(file);
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
    const fs::path folder = marvello::test::newTemporaryFolder("marvello-broken");
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
    fs::remove_all(folder);
}

}  // namespace
