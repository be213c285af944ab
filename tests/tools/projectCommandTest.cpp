// Runs "marvello-select project" of the built application folder as its users do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
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

class ProjectCommand : public ::testing::Test {
  protected:
    /// A project that promises what a plain selection gave.
    ProjectCommand() {
        const Json run = Json::parse(callProgram("marvello-select",
                                                 "--refrigerant R134A --series TK-A --models 255 --ted 2 "
                                                 "--tcd 40 --format json")
                                         .out);
        Json result{{"compressor", {{"refrigerant", "R134A"}, {"series", "TK-A"}, {"model", "255"}}}};
        result["conditions"] = Json::parse(
            R"({"evaporating":2,"condensing":40,"subcooling":5,"superheat":10,"step":100,"motor":-1,
                "voltage":400,"mains":50,"speed":1450,"economizer":10,"oilCoolingMode":1,"oilCooling":110,
                "frequency":50})");
        for (const Json& variable : run["compressors"][0]["variables"])
            if (variable["value"].is_number()) result["values"][variable["name"]] = variable["value"];
        project_ = {{"format", "marvello project"}, {"version", 1}, {"details", {{"name", "Northgate"}}}};
        project_["items"] = {{{"title", "Dock"}, {"selection", Json::object()}},
                             {{"title", "Office"}, {"comparison", Json::object()}}};
        project_["items"][0]["promised"] = {{"date", "2026-11-23"}, {"results", {result}}};
    }

    Json& promisedValues() { return project_["items"][0]["promised"]["results"][0]["values"]; }
    Answer call(const std::string& arguments) { return call(project_.dump(), arguments); }
    Answer call(const std::string& text, const std::string& arguments, Listen to = Listen::output) {
        std::ofstream(file_) << text;
        return callProgram("marvello-select", "project '" + file_ + "' " + arguments, to);
    }

    const marvello::test::TemporaryFolder folder_{"marvello-project"};
    const std::string file_ = (folder_ / "dock & office.marvello").string();
    Json project_;
};

TEST_F(ProjectCommand, ResultsOfASelectionAreKept) {
    const Answer check = call("--check");
    EXPECT_EQ(check.status, 0);
    EXPECT_EQ(check.out, "All results are as promised.\n");
    const Answer table = call("");
    EXPECT_EQ(table.status, 0);
    EXPECT_THAT(table.out, HasSubstr("TK-A-255"));
    EXPECT_THAT(table.out, HasSubstr("Office  no promised results\n"));
    const Json object = Json::parse(call("--format json").out);
    EXPECT_EQ(object["differs"], false);
    EXPECT_EQ(object["items"][0]["results"][0]["values"], promisedValues());
    EXPECT_TRUE(object["items"][0]["results"][0]["change"].is_null());
}

TEST_F(ProjectCommand, AnotherValueIsListedAndChangesTheExitStatus) {
    const double today = promisedValues()["COP"];
    promisedValues()["COP"] = today + 0.25;
    EXPECT_EQ(call("").status, 0);
    const Answer check = call("--check --format csv");
    EXPECT_EQ(check.status, 4);
    EXPECT_THAT(check.out, HasSubstr("\nDock,R134A,TK-A,255,COP,"));
    EXPECT_EQ(std::ranges::count(check.out, '\n'), 2);
    const Json object = Json::parse(call("--check --format json").out);
    EXPECT_EQ(object["differs"], true);
    ASSERT_EQ(object["items"].size(), 1U) << "the item without a promise is as it was";
    const Json& change = object["items"][0]["results"][0]["change"];
    EXPECT_EQ(change["reasons"], Json::parse(R"(["rule"])"));
    EXPECT_EQ(change["values"], Json::parse("[{\"name\":\"COP\",\"promised\":" + Json(today + 0.25).dump() +
                                            ",\"today\":" + Json(today).dump() + "}]"));
}

TEST_F(ProjectCommand, AChangedMessageIsInEachFormat) {
    project_["items"][0]["promised"]["results"][0]["messages"] = {
        {{"severity", "attention"}, {"key", "messages.message13"}}};
    EXPECT_THAT(call("--check").out, HasSubstr("- attention messages.message13"));
    const Answer csv = call("--check --format csv");
    EXPECT_EQ(csv.status, 4);
    EXPECT_THAT(csv.out, HasSubstr("\nDock,R134A,TK-A,255,messages.message13,attention,,yes\n"));
    EXPECT_EQ(
        Json::parse(call("--check --format json").out)["items"][0]["results"][0]["change"]["lost"][0]["name"],
        "messages.message13");
}

TEST_F(ProjectCommand, ACompressorThatIsGoneIsADifference) {
    project_["items"][0]["promised"]["results"][0]["compressor"]["model"] = "256";
    const Answer check = call("--check");
    EXPECT_EQ(check.status, 4);
    EXPECT_THAT(check.out, HasSubstr("TK-A-256"));
    EXPECT_THAT(check.out, HasSubstr("the catalogue does not have it"));
}

TEST_F(ProjectCommand, RefusesWithTheFileAndThePlace) {
    const Answer damaged =
        call(R"({"format":"marvello project","version":1,"details":7})", "", Listen::errors);
    EXPECT_EQ(damaged.status, 2);
    EXPECT_THAT(damaged.out,
                HasSubstr("dock & office.marvello: The file is damaged: details is not an object"));
    for (const Refusal& refusal :
         {Refusal{"project nowhere.marvello", "nowhere.marvello cannot be read"},
          Refusal{"project", "file is required"},
          Refusal{"project '" + file_ + "' --format xml", "format: \"xml\" is not one of table, csv, json"}})
        expectRefused("marvello-select", refusal);
}

}  // namespace
