// Runs "marvello-select map" of the built application folder as its users do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>
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
using ::testing::StartsWith;

constexpr const char* model = "--refrigerant R134A --series TK-A --models 220 ";

Answer map(const std::string& arguments) {
    return callProgram("marvello-select", "map " + arguments, Listen::output);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

}  // namespace

TEST(map, ALineIsThatOfARatingTable) {
    const std::string options = "--sh 8 --sc 2 --hz 60 --voltage 460 --format csv ";
    const auto lines = linesOf(map(model + options + "--grid 5x3").out);
    ASSERT_EQ(lines.size(), 16U);
    EXPECT_THAT(lines[0], StartsWith("ted,tcd,state,capacity,power,cop,current,massFlow,dischargeT"));
    // The corners of its application limit; the catalogue has 15.000001.
    EXPECT_THAT(lines[1], StartsWith("-15,25,"));
    EXPECT_THAT(lines[15], StartsWith("15.000001,65,"));
    std::string range = "--tcd '25;45;65' --ted='-15";
    for (std::size_t i = 2; i <= 5; ++i) range += ';' + lines[i].substr(0, lines[i].find(','));
    const std::string rating = "rating " + std::string(model) + options + range + "'";
    EXPECT_EQ(linesOf(callProgram("marvello-select", rating, Listen::output).out), lines);
    std::set<std::string> states;
    for (const Json& point : Json::parse(map(std::string(model) + "--grid 41x41 --format json").out)) {
        EXPECT_EQ(point["capacity"].is_null(), point["state"] == "outside" || point["state"] == "error");
        states.insert(point["state"]);
    }
    EXPECT_EQ(states, (std::set<std::string>{"error", "ok", "outside", "warning"}));
}

TEST(map, HasTheTotalsWithAnEconomizer) {
    const Json points =
        Json::parse(map(std::string(model) + "--grid 3x3 --eco-mode 1 --eco 5 --format json").out);
    ASSERT_EQ(points.size(), 9U);
    bool hasOne = false;
    for (const Json& point : points) {
        ASSERT_TRUE(point.contains("copEco"));
        if (point["capacityEco"].is_null()) continue;
        EXPECT_GT(point["capacityEco"], point["capacity"]);
        hasOne = true;
    }
    EXPECT_TRUE(hasOne);
}

TEST(map, RefusesWhatItCannotCarryOut) {
    const std::string series = "map --refrigerant R134A --series TK-A ";
    for (const Refusal& refusal :
         {Refusal{series, "one model is needed"},
          {series + "--models '120;140'", "one model is needed, not 2"},
          {series + "--models 999", "has no model 999", 1},
          {series + "--models 220 --grid 41", "such as 41x41"},
          {series + "--models 220 --grid 41x1", "grid: \"1\" is not a whole number from 2 to 1001"},
          {series + "--models 220 --grid 1e9x5", "is not a whole number"},
          {series + "--models 220 --format table", "not one of"}})
        expectRefused("marvello-select", refusal);
}
