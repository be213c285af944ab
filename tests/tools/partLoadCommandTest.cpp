// Runs "marvello-select partload" of the built application folder as its users do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/tools/CallProgram.h"

namespace {

using Json = nlohmann::json;
using marvello::testing::Answer;
using marvello::testing::callProgram;
using marvello::testing::expectRefused;
using marvello::testing::Listen;
using marvello::testing::Refusal;
using ::testing::HasSubstr;

constexpr const char* stepped = "--refrigerant R134A --series TK-A --models 220 --ted 2 ";
constexpr const char* inverter = "--refrigerant R134A --series TK-D --models 220 --ted 2 ";

Answer partLoad(const std::string& arguments) {
    return callProgram("marvello-select", "partload " + arguments, Listen::output);
}

/// A state as a plain selection says it.
void expectSelection(const std::string& options, const Json& state) {
    std::string point = options + " --tcd " + state["tcd"].dump() + " --step " + state["step"].dump();
    if (!state["frequency"].is_null()) point += " --frequency " + state["frequency"].dump();
    const Json plain =
        Json::parse(callProgram("marvello-select", point + " --format json", Listen::output).out);
    const Json& compressor = plain["compressors"][0];
    ASSERT_EQ(state["state"] == "error", !compressor["messages"]["error"].empty()) << point;
    EXPECT_EQ(state["messages"].empty(), state["state"] == "ok");
    if (state["state"] == "error") {
        EXPECT_TRUE(state["capacity"].is_null());
        return;
    }
    std::map<std::string, double> variables;
    for (const Json& variable : compressor["variables"])
        if (variable["value"].is_number()) variables[variable["name"]] = variable["value"];
    EXPECT_EQ(state["capacity"], variables["Q0"]) << point;
    EXPECT_EQ(state["power"], variables["Pta"]);
    EXPECT_EQ(state["cop"], variables["COP"]);
    EXPECT_EQ(state["current"], variables["CA"]);
    EXPECT_EQ(state["massFlow"], variables["Mbase"]);
    EXPECT_EQ(state["dischargeTemperature"], variables["T21"]);
}

TEST(partload, EachStateIsAPlainSelection) {
    const std::string falling = " --condensing 'Outdoor + 12, scaled, min 30'";
    for (const std::string& options :
         {std::string(stepped) + "--sh 12.5 --hz 60 --voltage 460", std::string(inverter) + "--sc 3"}) {
        for (const std::string& rule : {std::string(), falling}) {
            const Json answer = Json::parse(partLoad(options + " --tcd 41.5 --format json" + rule).out);
            ASSERT_GE(answer["states"].size(), 3U);
            for (const Json& state : answer["states"]) {
                expectSelection(options, state);
                const double share = state["share"];
                const double condensing = rule.empty() ? 41.5 : std::max(29.5 + 12 * share, 30.0);
                EXPECT_NEAR(state["tcd"].get<double>(), condensing, 1e-5);
            }
        }
    }
}

TEST(partload, SharesAreMadeOfTheStates) {
    const Json answer =
        Json::parse(partLoad(std::string(stepped) +
                             "--tcd 40 --shares '60;10' --degradation condensing-unit --format json")
                        .out);
    const double full = answer["full"]["capacity"];
    const Json& blended = answer["shares"][0];
    EXPECT_EQ(blended["mode"], "blended");
    EXPECT_NEAR(blended["capacity"].get<double>(), 0.6 * full, 1e-9 * full);
    double power = 0;
    for (const Json& each : blended["running"])
        power += each["share"].get<double>() * each["power"].get<double>();
    EXPECT_NEAR(blended["power"].get<double>(), power, 1e-9 * power);
    // 10 % with the lowest step for a share of the time, and a quarter of the rest of it as the loss.
    const Json& lowest = answer["states"].back();
    const Json& intermittent = answer["shares"][1];
    EXPECT_EQ(intermittent["mode"], "intermittent");
    const double ratio = 0.1 * full / lowest["capacity"].get<double>();
    EXPECT_NEAR(intermittent["running"][0]["share"].get<double>(), ratio, 1e-12);
    EXPECT_NEAR(intermittent["power"].get<double>(),
                lowest["power"].get<double>() * ratio / (1 - 0.25 * (1 - ratio)), 1e-9);
}

TEST(partload, WritesTablesAndCsv) {
    const std::string table = partLoad(std::string(inverter) + "--tcd 40").out;
    for (const char* text : {"R134A TK-D-220 at 2/40 C", "full load: 70.0 Hz", "Intermittently: 20.0 Hz for"})
        EXPECT_THAT(table, HasSubstr(text));
    EXPECT_THAT(partLoad(std::string(stepped) + "--tcd 40 --shares 60 --language de-DE").out,
                HasSubstr("Im Wechsel: Stufe 75 % ("));
    std::istringstream csv(partLoad(std::string(stepped) + "--tcd 40 --format csv").out);
    std::vector<std::string> lines;
    for (std::string line; std::getline(csv, line);) lines.push_back(line);
    ASSERT_EQ(lines.size(), 9U) << "heading, steps and shares";
    const auto commas = [](const std::string& line) { return std::ranges::count(line, ','); };
    for (const std::string& line : lines) EXPECT_EQ(commas(line), commas(lines[0]));
    EXPECT_THAT(lines[1], HasSubstr("state,1,40,steady,"));
    EXPECT_THAT(lines[6], HasSubstr("share,0.75,40,blended,"));
}

TEST(partload, RefusesWhatCannotBeCarriedOut) {
    const std::string point = std::string("partload ") + stepped + "--tcd 40 ";
    for (const Refusal& refusal :
         {Refusal{point + "--condensing outdoor+12",
                  "condensing: \"outdoor+12\" does not fall with the load"},
          Refusal{point + "--condensing 38", "does not fall with the load"},
          Refusal{point + "--condensing warm", "condensing: \"warm\""},
          Refusal{point + "--shares 0", "shares: \"0\" is outside"},
          Refusal{point + "--shares 120", "shares: \"120\" is outside"},
          Refusal{point + "--shares x", "shares: \"x\" is not a number"},
          Refusal{point + "--frequencies 30:50:10", "frequencies: TK-A-220 is on the mains"},
          Refusal{std::string("partload ") + inverter + "--tcd 40 --frequencies 10",
                  "frequencies: \"10\" is"},
          Refusal{point + "--degradation heavy", "degradation: \"heavy\" is not one of none"},
          Refusal{point + "--degradation chiller:1.1",
                  "degradation: \"chiller:1.1\" needs a coefficient from 0 to 1"},
          Refusal{point + "--degradation none:0.1", "degradation: \"none:0.1\" has a coefficient"},
          Refusal{point + "--format xml", "format: \"xml\" is not one of table, csv, json"},
          Refusal{std::string("partload ") + stepped + "--tcd 80", "TK-A-220 has no capacity", 1}})
        expectRefused("marvello-select", refusal);
}

}  // namespace
