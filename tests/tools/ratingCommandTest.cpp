// Runs "marvello-select rating" of the built application folder as its users do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* model = "--refrigerant R134A --series TK-A --models 220 ";

Answer rating(const std::string& arguments, Listen to = Listen::output) {
    return callProgram("marvello-select", "rating " + (model + arguments), to);
}

std::vector<std::vector<std::string>> csv(const std::string& text) {
    std::vector<std::vector<std::string>> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.emplace_back();
        std::istringstream fields(line + ',');
        for (std::string field; std::getline(fields, field, ',');) lines.back().push_back(field);
    }
    return lines;
}

TEST(rating, ALineIsThePlainSelection) {
    const std::string options = "--sh 12.5 --sc 3 --hz 60 --voltage 460";
    const auto lines = csv(rating("--ted=-10:10:10 --tcd '35.5;45' --format csv " + options).out);
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_THAT(lines[0], ElementsAre("ted", "tcd", "state", "capacity", "power", "cop", "current",
                                      "massFlow", "dischargeTemperature"));
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const auto& line = lines[i];
        EXPECT_EQ(line[0], std::vector<std::string>({"-10", "0", "10"})[(i - 1) % 3]);
        EXPECT_EQ(line[1], i < 4 ? "35.5" : "45");
        const std::string point = "--ted=" + line[0] + " --tcd " + line[1] + ' ';
        const Json plain = Json::parse(
            callProgram("marvello-select", model + point + options + " --format json", Listen::output).out);
        std::map<std::string, double> variables;
        for (const Json& variable : plain["compressors"][0]["variables"])
            if (variable["value"].is_number()) variables[variable["name"]] = variable["value"];
        ASSERT_EQ(line[2], plain["compressors"][0]["messages"]["attention"].empty() ? "ok" : "warning");
        EXPECT_EQ(std::stod(line[3]), variables["Q0"]);
        EXPECT_EQ(std::stod(line[4]), variables["Pta"]);
        EXPECT_EQ(std::stod(line[5]), variables["COP"]);
        EXPECT_EQ(std::stod(line[6]), variables["CA"]);
        EXPECT_EQ(std::stod(line[7]), variables["Mbase"]);
        EXPECT_EQ(std::stod(line[8]), variables["Tsca"]);
    }
}

TEST(rating, PointsWithoutValuesSayWhy) {
    const Json points = Json::parse(rating("--ted 0 --tcd '40;60;75' --format json").out);
    EXPECT_EQ(points[0]["state"], "ok");
    EXPECT_EQ(points[1]["state"], "error");
    EXPECT_EQ(points[2]["state"], "outside");
    EXPECT_TRUE(points[2]["capacity"].is_null());
    const Answer none = rating("--ted 0 --tcd 75", Listen::errors);
    EXPECT_EQ(none.status, 1);
    EXPECT_THAT(none.out, HasSubstr("No point of the table has values"));
}

TEST(rating, TheTableHasOneGridForAQuantity) {
    EXPECT_EQ(rating("--ted '0;5' --tcd '40;50;75' --quantity COP").out,
              "R134A TK-A-220: * with warnings, x not possible, - outside the limits\n"
              "\n"
              "cop\n"
              "tcd \\ ted        0        5 \n"
              "40            3.88     4.75 \n"
              "50            2.70     3.33 \n"
              "75                -        -\n");
    const auto eco = csv(rating("--ted 0 --tcd 40 --format csv --eco-mode 1 --quantity capacityEco").out);
    EXPECT_THAT(eco[0], ElementsAre("ted", "tcd", "state", "capacityEco"));
    const auto all = csv(rating("--ted 0 --tcd 40 --format csv --eco-mode 1").out);
    EXPECT_EQ(all[0].back(), "copEco");
    EXPECT_EQ(all[1][9], eco[1][3]);
    EXPECT_GT(std::stod(all[1][9]), std::stod(all[1][3]));
}

TEST(rating, RefusesWhatCannotBeCarriedOut) {
    const std::string point = "--ted 2 --tcd 40 ";
    for (Refusal refusal :
         {Refusal{"--tcd 40", "ted is missing"}, Refusal{"--ted 2", "tcd is missing"},
          Refusal{"--ted 10:2:1 --tcd 40", "ted: \"10:2:1\" is not a range"},
          Refusal{"--ted 2:10:0 --tcd 40", "not a range"}, Refusal{"--ted 2:10 --tcd 40", "such as -20:10:5"},
          Refusal{"--ted '2;x' --tcd 40", "\"x\" is not a number"},
          Refusal{"--ted 0:1:0.001 --tcd 30:60:0.1", "more than 250000 points"},
          Refusal{"--ted 0:1:1e-9 --tcd 30", "more than 250000 temperatures"},
          Refusal{"--ted=-150:0:50 --tcd 40", "ted: R134A has no saturation state at \"-150\""},
          Refusal{"--ted 2 --tcd 120", "tcd: R134A has no saturation state at \"120\""},
          Refusal{point + "--units ip", "units: only coefficients"},
          Refusal{point + "--rating own", "rating: only coefficients"},
          Refusal{point + "--format idf", "format: a table has"},
          Refusal{point + "--quantity x", "quantity: \"x\" is not one of capacity, power"},
          Refusal{"--coefficients en12900 --units ip", "EN 12900 has si alone"},
          Refusal{"--coefficients energyplus --format csv", "energyplus has idf alone"},
          Refusal{"--coefficients ahri540 --format table", "coefficients have csv and json"},
          Refusal{"--coefficients ahri540 --quantity power", "for all quantities"},
          Refusal{"--coefficients ahri540 --ted 0:1:1", "do not determine ten coefficients", 1}}) {
        refusal.arguments = "rating " + (model + refusal.arguments);
        expectRefused("marvello-select", refusal);
    }
    expectRefused("marvello-select", {"rating --refrigerant R134A --series TK-A " + point,
                                      "models: one model is needed; the series TK-A has 10"});
}

}  // namespace
