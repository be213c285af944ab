// Runs "marvello-select compare" of the built application folder as its users do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <tuple>
#include <vector>

#include "tests/tools/CallProgram.h"

namespace {

using Json = nlohmann::json;
using marvello::testing::Answer;
using marvello::testing::callProgram;
using marvello::testing::Listen;
using ::testing::HasSubstr;
using ::testing::Not;

Answer compare(const std::string& arguments, Listen to = Listen::output) {
    return callProgram("marvello-select", "compare " + arguments, to);
}

/// The value of a variable of a plain selection of one model.
double plain(const std::string& arguments, const char* variable) {
    const Json run =
        Json::parse(callProgram("marvello-select", arguments + " --format json", Listen::output).out);
    for (const Json& each : run["compressors"][0]["variables"])
        if (each["name"] == variable) return each["value"];
    ADD_FAILURE() << variable << " of " << arguments;
    return 0;
}

TEST(compare, FiguresAreThoseOfPlainSelections) {
    const Json compared = Json::parse(
        compare("--ted 2 --tcd 40 --sh 12 --choice refrigerant=R134A,series=tk-a,models=255 "
                "--choice 'refrigerant=R134A, series=TK-D, models=140, frequency=61.5, machines=3' "
                "--choice refrigerant=R134A,series=TK-A,models=220,ted=-10,eco-mode=1 --format json")
            .out);
    const Json& choices = compared["choices"];
    ASSERT_EQ(choices.size(), 3);
    const std::vector<std::string> selections{
        "--ted 2 --tcd 40 --sh 12 --refrigerant R134A --series TK-A --models 255",
        "--ted 2 --tcd 40 --sh 12 --refrigerant R134A --series TK-D --models 140 --frequency 61.5",
        "--ted -10 --tcd 40 --sh 12 --refrigerant R134A --series TK-A --models 220 --eco-mode 1"};
    for (const std::size_t i : {0U, 1U}) {
        const Json& values = choices[i]["values"];
        const int machines = choices[i]["machines"];
        EXPECT_EQ(values["capacity"], plain(selections[i], "Q0") * machines) << i;
        EXPECT_EQ(values["power"], plain(selections[i], "Pta") * machines);
        EXPECT_EQ(values["cop"], plain(selections[i], "COP"));
        EXPECT_EQ(values["massFlow"], plain(selections[i], "Mbase") * machines);
        EXPECT_EQ(values["condensingPressure"], plain(selections[i], "Pc"));
    }
    EXPECT_EQ(choices[2]["values"]["cop"], plain(selections[2], "CopEco"));
    EXPECT_EQ(choices[2]["values"]["economizer"], "10.0 K");
    EXPECT_TRUE(compared["reference"].is_null());
}

TEST(compare, TheTableHasMarksDifferencesAndMessages) {
    const std::string two =
        "--refrigerant R134A --series TK-A --ted 2 --tcd 40 --choice models=255 --choice models=120 ";
    const std::string table = compare(two + "--reference 2").out;
    EXPECT_THAT(table, HasSubstr("At 2.0 / 40.0 \u00B0C"));
    EXPECT_THAT(table, HasSubstr("The small motor is sufficient at this operating point."));
    // 69.9 and 150.4 kW: 150.4 / 69.9 = 2.152.
    EXPECT_THAT(table, HasSubstr("150.4 (+115.2 %)"));
    EXPECT_THAT(compare(two).out, Not(HasSubstr("%)")));
    EXPECT_THAT(compare(two + "--language de-DE --format csv").out, HasSubstr("\nweight;\"Nettogewicht\""));
}

TEST(compare, AnImpossibleCompressorKeepsItsColumn) {
    const std::string one = "--refrigerant R134A --series TK-A --ted 2 --choice models=255,tcd=95 ";
    const Answer mixed = compare(one + "--choice models=255,tcd=40 --format json");
    EXPECT_EQ(mixed.status, 0);
    const Json choices = Json::parse(mixed.out)["choices"];
    EXPECT_EQ(choices[0]["state"], "outside");
    EXPECT_TRUE(choices[0]["values"]["capacity"].is_null());
    EXPECT_EQ(choices[0]["messages"][0]["name"], "messages.message01");
    EXPECT_EQ(choices[0]["values"]["weight"], "437 kg");
    EXPECT_THAT(compare("--refrigerant R134A --ted 2 --tcd 40 --eco-mode 1 --choice series=TK-A,models=255 "
                        "--choice series=MV-G,models=50-230",
                        Listen::errors)
                    .out,
                HasSubstr("MV-G: no economizer"));
    const Answer none = compare(one + "--choice models=220,tcd=95", Listen::errors);
    EXPECT_EQ(none.status, 1);
    EXPECT_THAT(none.out, HasSubstr("No compressor is possible at its operating point"));
}

TEST(compare, RefusesWithASentence) {
    const std::string base = "--refrigerant R134A --series TK-A --ted 2 --tcd 40 ";
    const std::string twice = base + "--choice models=255 --choice ";
    for (const auto& [arguments, sentence, status] :
         {std::tuple{base, std::string("2 to 4 compressors can be compared, not 0"), 2},
          {base + "--choice models=255", "2 to 4 compressors can be compared, not 1", 2},
          {twice + "models=120 --choice models=140 --choice models=165 --choice models=190",
           "2 to 4 compressors can be compared, not 5", 2},
          {twice + "models", "choice 2: \"models\" is not a name and a value", 2},
          {twice + "model=120", "choice 2: name: \"model\" is not one of machines, refrigerant, series", 2},
          {twice + "models=120,sc=-1", "choice 2: sc: \"-1\" is outside the range of 0 to 100 K", 2},
          {twice + "models=120,machines=0", "choice 2: machines: \"0\" is not a whole number from 1 to 4", 2},
          {twice + "series=TK-D", "choice 2: models: one model is needed", 2},
          {twice + "models=9999", "choice 2: The series TK-A has no model 9999", 1},
          {twice + "models=120,ted=50", "choice 2: ted: \"50\" is above the condensing temperature", 2},
          {twice + "models=120 --reference 3", "reference: \"3\" is not a whole number from 0 to 2", 2},
          {twice + "models=120 --format xml", "format: \"xml\" is not one of table, csv, json", 2},
          {"--refrigerant R134A --series TK-A --choice models=120 --choice models=140",
           "choice 1: ted is missing", 2}}) {
        const Answer answer = compare(arguments, Listen::errors);
        EXPECT_EQ(answer.status, status) << arguments;
        EXPECT_THAT(answer.out, HasSubstr(sentence));
        EXPECT_EQ(std::ranges::count(answer.out, '\n'), 1) << answer.out;
    }
}

}  // namespace
