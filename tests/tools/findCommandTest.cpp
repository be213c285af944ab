// Runs "marvello-select find" of the built application folder as its users do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tests/tools/CallProgram.h"

namespace {

using Json = nlohmann::json;
using marvello::testing::Answer;
using marvello::testing::callProgram;
using marvello::testing::Listen;
using ::testing::HasSubstr;

Answer find(const std::string& arguments, Listen to = Listen::output) {
    return callProgram("marvello-select", "find " + arguments, to);
}

constexpr const char* point = "--capacity 150 --ted 2 --tcd 40 ";

Json candidates(const std::string& arguments) {
    return Json::parse(find(std::string(point) + arguments + " --format json").out)["candidates"];
}

std::string number(const Json& value) { return value.dump(); }

TEST(find, ACandidateIsThePlainSelection) {
    const Json found = candidates("--machines 1-3 --steps --limit 0 --refrigerants R513A");
    int checked = 0;
    for (std::size_t i = 0; i < found.size(); i += 7) {
        const Json& candidate = found[i];
        std::string arguments = "--refrigerant R513A --ted 2 --tcd 40 --format csv --series '" +
                                candidate["series"].get<std::string>() + "' --models '" +
                                candidate["model"].get<std::string>() + "' --step " +
                                number(candidate["step"]);
        if (!candidate["frequency"].is_null()) arguments += " --frequency " + number(candidate["frequency"]);
        std::istringstream plain(callProgram("marvello-select", arguments, Listen::output).out);
        std::string line;
        std::getline(plain, line);
        std::getline(plain, line);
        std::vector<std::string> fields;
        std::istringstream in(line);
        for (std::string field; std::getline(in, field, ',');) fields.push_back(field);
        ASSERT_GT(fields.size(), 9) << arguments;
        const auto machines = candidate["machines"].get<int>();
        EXPECT_EQ(candidate["capacity"], std::stod(fields[6]) * machines) << arguments;
        EXPECT_EQ(candidate["power"], std::stod(fields[7]) * machines);
        EXPECT_EQ(candidate["cop"], std::stod(fields[9]));
        EXPECT_NEAR(candidate["deviation"], candidate["capacity"].get<double>() / 1.5 - 100, 1e-9);
        ++checked;
    }
    EXPECT_GT(checked, 5);
}

TEST(find, OrdersAndCutsTheList) {
    for (const auto& [word, field, isRising] :
         {std::tuple{"power", "power", true}, {"capacity", "capacity", true}, {"margin", "margin", false}}) {
        const Json found = candidates(std::string("--limit 30 --sort ") + word);
        ASSERT_EQ(found.size(), 30);
        for (std::size_t i = 1; i < found.size(); ++i) {
            const double step = found[i][field].get<double>() - found[i - 1][field].get<double>();
            EXPECT_TRUE(isRising ? step >= 0 : step <= 0) << word;
        }
    }
    EXPECT_GT(candidates("--limit 0").size(), candidates("--limit 0 --machines 1").size());
    for (const Json& candidate : candidates("--inverter only --limit 0 --machines 2")) {
        EXPECT_EQ(candidate["machines"], 2);
        EXPECT_FALSE(candidate["frequency"].is_null());
    }
}

TEST(find, CountsWhatIsNotPossible) {
    const Json all = Json::parse(find(std::string(point) + "--format json --machines 1").out);
    int count = 0;
    for (const char* reason : {"tooSmall", "tooLarge", "envelope"}) {
        EXPECT_GT(all["rejected"][reason], 0);
        count += all["rejected"][reason].get<int>();
    }
    EXPECT_EQ(all["count"].get<int>() + count, 1136);  // one way to run each: one machine, no steps
    const Json warm = Json::parse(find(std::string(point) + "--sh 30 --format json --machines 1").out);
    EXPECT_GT(warm["rejected"]["rules"]["messages.message13"], 500);  // the superheat; only R290 may have it
    for (const Json& candidate : warm["candidates"]) EXPECT_EQ(candidate["refrigerant"], "R290");
}

TEST(find, SaysWhatItPutBackAndWhatIsNearest) {
    const std::string said =
        find(std::string(point) + "--eco-mode 1 --eco 5 --series 'mv-g;tk-a'", Listen::errors).out;
    EXPECT_THAT(said, HasSubstr("MV-G: no economizer"));
    const Answer none = find("--capacity 1e5 --ted 2 --tcd 40", Listen::errors);
    EXPECT_EQ(none.status, 1);
    EXPECT_THAT(none.out, HasSubstr("the nearest is 4 x TK-"));
    const Answer object = find("--capacity 1 --ted 2 --tcd 40 --refrigerants R134A --format json");
    EXPECT_EQ(object.status, 1);
    const Json json = Json::parse(object.out);
    EXPECT_EQ(json["candidates"].size(), 0);
    EXPECT_GT(json["nearest"]["capacity"], 1.05);
    EXPECT_THAT(find(std::string(point) + "--inverter only").out, HasSubstr(" Hz"));
}

TEST(find, RefusesWithASentence) {
    for (const auto& [arguments, sentence, status] :
         {std::tuple{"--ted 2 --tcd 40", "capacity is missing", 2},
          {"--capacity 100 --ted 2", "tcd is missing", 2},
          {"--capacity -5 --ted 2 --tcd 40", "capacity: \"-5\" is outside the range of 0.1 to 100000 kW", 2},
          {"--capacity many --ted 2 --tcd 40", "capacity: \"many\" is not", 2},
          {"--capacity 9e9 --ted 2 --tcd 40", "outside the range of 0.1 to", 2},
          {"--capacity 9 --ted 50 --tcd 40", "ted: \"50\" is above the condensing temperature", 2},
          {"--capacity 9 --ted 2 --tcd 140 --refrigerants r134a", "no saturation state at \"140\"", 2},
          {"--capacity 9 --ted 2 --tcd 40 --machines 5", "machines: \"5\" is not", 2},
          {"--capacity 9 --ted 2 --tcd 40 --machines 3-2", "machines: \"3-2\" is not", 2},
          {"--capacity 9 --ted 2 --tcd 40 --below 101", "below: \"101\" is outside the range of 0 to 100 %",
           2},
          {"--capacity 9 --ted 2 --tcd 40 --sort size", "cop, deviation, power, capacity, margin", 2},
          {"--capacity 9 --ted 2 --tcd 40 --format xml", "format: \"xml\"", 2},
          {"--capacity 9 --ted 2 --tcd 40 --refrigerants 'R134A;R1'", "no refrigerant R1", 1},
          {"--capacity 9 --ted 2 --tcd 40 --series ';'", "series: \";\" names none", 2},
          {"--capacity 9 --ted 2 --tcd 40 --frequency 50", "--frequency", 2}}) {
        const Answer answer = find(arguments, Listen::errors);
        EXPECT_EQ(answer.status, status) << arguments;
        EXPECT_THAT(answer.out, HasSubstr(sentence));
    }
}

}  // namespace
