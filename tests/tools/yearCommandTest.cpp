// Runs "marvello-select year" of the built application folder as its users do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/CallProgram.h"

namespace {

using Json = nlohmann::json;
using marvello::testing::Answer;
using marvello::testing::callProgram;
using marvello::testing::expectRefused;
using marvello::testing::Listen;
using marvello::testing::Refusal;
using ::testing::HasSubstr;

const std::string plant =
    "--refrigerant R134A --machines 'TK-A-120x2;tk-d-140' --design-load 150 "
    "--condensing 'outdoor+12,min 25' ";

Answer year(const std::string& arguments, Listen to = Listen::output) {
    return callProgram("marvello-select", "year " + arguments, to);
}

class YearCommand : public ::testing::Test {
  protected:
    /// A profile of the test's own.
    std::string profile(const std::string& text) {
        const std::filesystem::path file = folder_ / "hours of ours.csv";
        std::ofstream(file) << text;
        return "--profile '" + file.string() + "' ";
    }

    marvello::test::TemporaryFolder folder_{"marvello-year"};
};

double plainVariable(const std::string& arguments, const std::string& name) {
    const Json plain =
        Json::parse(callProgram("marvello-select", arguments + " --format json", Listen::output).out);
    for (const Json& variable : plain["compressors"][0]["variables"])
        if (variable["name"] == name) return variable["value"];
    return std::nan("");
}

/// The energy of a bin is that of its states, each of which is a plain selection; the totals are sums.
TEST_F(YearCommand, ABinIsMadeOfPlainSelections) {
    const Json result =
        Json::parse(year(plant + profile("outdoor;hours;load %\n30;100,5;97\n10;2000;20\n20;1000;70\n") +
                         "--ted=-10 --degradation condensing-unit --sh 12 --format json")
                        .out);
    ASSERT_EQ(result["bins"].size(), 3U);
    EXPECT_EQ(result["bins"][0]["outdoor"], 10);
    double total = 0;
    for (const Json& bin : result["bins"]) {
        double power = 0;
        double delivered = 0;
        ASSERT_FALSE(bin["running"].empty());
        for (const Json& running : bin["running"]) {
            const std::string model = running["model"];
            const std::string point =
                "--refrigerant R134A --sh 12 --ted=-10 --tcd " + bin["tcd"].dump() + " --series " +
                model.substr(0, 4) + " --models " + model.substr(5) + " --step " + running["step"].dump() +
                (running["frequency"].is_null() ? "" : " --frequency " + running["frequency"].dump());
            EXPECT_EQ(running["capacity"], plainVariable(point, "Q0"));
            EXPECT_EQ(running["power"], plainVariable(point, "Pta"));
            const double share = running["count"].get<double>() * running["share"].get<double>();
            power += share * running["power"].get<double>() / running["degradation"].get<double>();
            delivered += share * running["capacity"].get<double>();
        }
        const double hours = bin["hours"];
        EXPECT_NEAR(bin["energy"], power * hours, 1e-9 * power * hours);
        EXPECT_NEAR(bin["delivered"], delivered, 1e-9 * delivered);
        EXPECT_NEAR(bin["unmet"], (bin["needed"].get<double>() - delivered) * hours,
                    1e-6 * bin["needed"].get<double>() * hours);
        total += power * hours;
    }
    EXPECT_NEAR(result["energy"], total, 1e-9 * total);
    EXPECT_NEAR(result["seasonalCop"].get<double>(),
                result["delivered"].get<double>() / result["energy"].get<double>(), 1e-12);
    EXPECT_TRUE(result["cost"].is_null());
    EXPECT_TRUE(result["tewi"]["direct"].is_null());
    EXPECT_EQ(result["assumptions"]["gridSource"], "WORLD, 2023, life cycle; Ember");
    EXPECT_FALSE(result.contains("fourPoints"));
}

/// 1430 * (40 * 0.03 * 10 + 40 * 0.05) = 20,020 kg, and 10 * 0.3 kg for each kWh of a year.
TEST_F(YearCommand, CostsAndEmits) {
    const Json result =
        Json::parse(year(plant + "--profile EU-MT --price 0.2 --grid 0.3 --charge 40 --leakage 3 "
                                 "--recovery 95 --years 10 --format json")
                        .out);
    const double energy = result["energy"];
    EXPECT_NEAR(result["cost"], energy * 0.2, 1e-6);
    EXPECT_NEAR(result["tewi"]["direct"], 20'020, 1e-6);
    EXPECT_NEAR(result["tewi"]["indirect"], energy * 3, 1e-5);
    EXPECT_NEAR(result["tewi"]["perYear"]["total"], 2002 + energy * 0.3, 1e-5);
    EXPECT_EQ(result["assumptions"]["evaporating"], "-10");
    EXPECT_EQ(result["assumptions"]["degradation"], "condensing-unit:0.25");
    EXPECT_NEAR(result["assumptions"]["profile"]["hours"], 8760, 1e-9);
    EXPECT_GT(result["fourPoints"]["figure"], 3);
    EXPECT_EQ(result["fourPoints"]["points"][3]["outdoor"], 5);
    EXPECT_THAT(result["fourPoints"]["note"].get<std::string>(), HasSubstr("no declared value"));
}

TEST_F(YearCommand, TheTableStatesItsAssumptions) {
    const std::string text = year(plant + "--profile eu-chiller --ted 2 --grid de --price 0.25").out;
    for (const char* part : {"R134A, 2 x TK-A-120 + TK-D-140 for 150 kW", "Regulation (EU) 2015/1095",
                             "condensing outdoor+12,min 25", "chiller:0.9", "at least power", "8760 h",
                             "0.381 kg CO2e/kWh (DE, 2023, life cycle", "no declared value of a unit"})
        EXPECT_THAT(text, HasSubstr(part));
}

TEST_F(YearCommand, ALineOfCsvIsABin) {
    const std::string text = year(plant + "--profile flat --ted 2 --staging sequence --format csv").out;
    EXPECT_EQ(std::ranges::count(text, '\n'), 59);
    EXPECT_THAT(text, HasSubstr("outdoor,hours,load,needed,delivered,ted,tcd,power,energy,unmet,running\n"));
    // What was written is a profile again.
    std::ofstream(folder_ / "again.csv") << text;
    EXPECT_EQ(year(plant + "--profile " + (folder_ / "again.csv").string() +
                   " --ted 2 --staging sequence --format csv")
                  .out,
              text);
}

TEST_F(YearCommand, SaysWhatIsMissing) {
    const std::string small = "--refrigerant R134A --machines TK-A-120 --design-load 150 --condensing 40 ";
    EXPECT_THAT(
        year(small + profile("outdoor,hours,load\n30,100,1\n20,100,0.1\n") + "--ted 2", Listen::errors).out,
        HasSubstr("the load is not met in 100.0 h: 8007.7 kWh are missing, most at 30.0 C with 80.1 "
                  "of 150.0 kW"));
    const std::string hours =
        year(small + profile("outdoor,hours,load\n30,100,0.1\n") + "--ted 2", Listen::errors).out;
    EXPECT_THAT(hours, HasSubstr("its hours sum to 100, not 8760"));
    const Answer nothing = year(
        "--refrigerant R134A --machines TK-A-120 --design-load 150 --condensing 90 "
        "--profile eu-mt",
        Listen::errors);
    EXPECT_EQ(nothing.status, 1);
    EXPECT_THAT(nothing.out, HasSubstr("The machines cannot run at any temperature of the profile; TK-A-120: "
                                       "The operating point lies outside"));
    EXPECT_EQ(std::ranges::count(nothing.out, '\n'), 1);
    EXPECT_THAT(year("--refrigerant R134A --machines NL-H-165 --design-load 20 --condensing 40 --ted=-15 "
                     "--profile flat --voltage 460",
                     Listen::errors)
                    .out,
                HasSubstr("NL-H: no choice of the supply"));
}

TEST_F(YearCommand, RefusesWhatCannotBeCarriedOut) {
    const std::string rest = "--machines TK-A-120 --design-load 150 --condensing 40 ";
    const std::string r134a = "year --refrigerant R134A ";
    for (const Refusal& refusal :
         {Refusal{"year " + rest + "--profile flat", "refrigerant is missing"},
          Refusal{"year --refrigerant R999 --profile flat " + rest, "no refrigerant R999", 1},
          Refusal{r134a + "--profile flat --design-load 1 --condensing 40", "machines is missing"},
          Refusal{r134a + "--profile flat --machines TK-A-120 --condensing 40", "design-load is missing"},
          Refusal{r134a + "--profile flat --machines TK-A-120 --design-load 1", "condensing is missing"},
          Refusal{r134a + rest, "profile is missing"},
          Refusal{r134a + rest + "--profile flat", "ted is missing"},
          Refusal{r134a + rest + "--profile nowhere.csv --ted 2",
                  "profile: \"nowhere.csv\" is not one of eu-mt, eu-lt, eu-chiller, flat, and there is no "
                  "such file"},
          Refusal{r134a + rest + profile("outdoor,hours,load\n1,-5,1\n") + "--ted 2",
                  "hours of ours.csv:2: the hours \"-5\" are negative"},
          Refusal{r134a + rest + "--profile flat --ted 2 --grid XX", "grid: \"XX\" is not one of WORLD, AE"},
          Refusal{r134a + rest + "--profile flat --ted 2 --grid 400", "grid: \"400\" is outside the range"},
          Refusal{r134a + rest + "--profile flat --ted 2 --staging best",
                  "staging: \"best\" is not one of power, sequence"},
          Refusal{r134a + rest + "--profile flat --ted 2 --degradation chiller:2",
                  "degradation: \"chiller:2\" needs a coefficient from 0 to 1"},
          Refusal{r134a + rest + "--profile flat --ted 300", "ted: \"300\" is outside the range"},
          Refusal{"year --refrigerant R507 --machines TK-E-130 --design-load 9 --condensing 40 --profile "
                  "flat --ted 80",
                  "ted: R507 has no saturation state at \"80\""},
          Refusal{r134a + rest + "--profile flat --ted 2 --gwp ar7", "gwp: \"ar7\" is not one of ar4"},
          Refusal{"year --refrigerant R290 --machines TK-A-120 --design-load 99 --condensing 40 --profile "
                  "flat --ted 2 --charge 5 --gwp ar5",
                  "gwp: R290 has no figure by AR5; it has one by ar4, ar6"},
          Refusal{r134a + "--profile flat --ted 2 --design-load 9 --condensing outdoor+x --machines TK-A-120",
                  "condensing: \"outdoor+x\" is not part of a rule"},
          Refusal{r134a + "--profile flat --ted 2 --design-load 9 --condensing 40 --machines TK-A-121",
                  "no compressor TK-A-121 for R134A", 1},
          Refusal{r134a + "--profile flat --ted 2 --design-load 9 --condensing 40 --machines TK-A-120x0",
                  "machines: \"0\" is not a whole number from 1 to 8"},
          Refusal{
              r134a +
                  "--profile flat --ted 2 --design-load 9 --condensing 40 --machines 'TK-A-120x5;TK-E-155x4'",
              "machines: 9 machines are more than 8"},
          Refusal{r134a + "--profile flat --ted 2 --design-load 9 --condensing 40 --machines TK-D-140x2",
                  "More than one machine is on an inverter."}})
        expectRefused("marvello-select", refusal);
}

}  // namespace
