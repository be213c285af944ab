// Runs "marvello-select cycle" of the built application folder as its users do.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/tools/CallProgram.h"

namespace {

using Json = nlohmann::json;
using marvello::testing::Answer;
using marvello::testing::callProgram;
using marvello::testing::Listen;
using ::testing::HasSubstr;

Answer cycle(const std::string& arguments, Listen to = Listen::output) {
    return callProgram("marvello-select", "cycle " + arguments, to);
}

const std::string compressor = "--refrigerant R134A --series TK-A --models 220 --ted -10 --tcd 40 ";

// The variables of the plain selection, digit by digit; and the balances from what is printed.
TEST(cycle, StatesAreThePlainSelection) {
    for (const std::string options : {"", "--eco-mode 1 --eco 10", "--eco-mode 2 --eco 90",
                                      "--oc-mode 2 --oc 65", "--eco-mode 1 --eco 8 --oc-mode 2 --oc 70"}) {
        const Json shown = Json::parse(cycle(compressor + options).out);
        const Json plain = Json::parse(
            callProgram("marvello-select", compressor + options + " --format json", Listen::output).out);
        std::map<std::string, Json> variables;
        for (const Json& each : plain["compressors"][0]["variables"]) variables[each["name"]] = each["value"];
        std::map<std::string, double> flow;
        for (const Json& state : shown["states"]) {
            for (const auto& [field, variable] : state["variables"].items())
                EXPECT_EQ(state[field], variables[variable]) << options << variable;
            flow[state["point"]] = state["massFlow"].get<double>() * state["h"].get<double>() / 3600;
        }
        const bool hasEconomizer = options.find("eco-mode") != std::string::npos;
        EXPECT_EQ(shown["economizer"] != "none", hasEconomizer);
        const double capacity = shown["figures"]["capacity"];
        EXPECT_NEAR(flow["suction"] - flow["evaporatorInlet"], capacity, 1e-6 * capacity);
        if (hasEconomizer) {
            EXPECT_NEAR(flow["liquid"], flow["liquidAfterEconomizer"] + flow["economizerOutlet"],
                        1e-6 * capacity);
        }
        EXPECT_EQ(flow.contains("dischargeUncooled"), options.find("oc-mode") != std::string::npos);
        for (const Json& balance : shown["balances"]) {
            const bool isOpen = balance["part"] == "compressor" || balance["part"] == "condenser";
            EXPECT_EQ(balance.contains("notInTheGas"), isOpen);
            if (!isOpen) {
                EXPECT_NEAR(balance["difference"].get<double>(), 0, 1e-6 * capacity);
            }
        }
        EXPECT_EQ(shown["branches"][0]["states"].front(), shown["branches"][0]["states"].back());
    }
}

TEST(cycle, DrawsItAsSvg) {
    const std::string metric = cycle(compressor + "--format svg").out;
    EXPECT_THAT(metric, HasSubstr("<svg xmlns=\"http://www.w3.org/2000/svg\""));
    EXPECT_THAT(metric, HasSubstr(">Specific enthalpy kJ/kg</text>"));
    const std::string imperial = cycle(compressor + "--format svg --units ip --language de-DE").out;
    EXPECT_THAT(imperial, HasSubstr(">Spezifische Enthalpie Btu/lb</text>"));
}

TEST(cycle, SaysWhyThereIsNone) {
    const auto refused = [](const std::string& arguments, int status, const char* sentence) {
        const Answer answer = cycle(arguments, Listen::errors);
        EXPECT_EQ(answer.status, status) << arguments;
        EXPECT_THAT(answer.out, HasSubstr(sentence)) << arguments;
    };
    refused("--refrigerant R134A --series TK-A --ted -10 --tcd 40", 2, "one model is needed");
    refused("--refrigerant R134A --series TK-A --models 220 --ted -60 --tcd 40", 1,
            "TK-A-220 has no cycle at this operating point. The operating point lies outside");
    refused(compressor + "--eco-mode 2 --eco 10", 1, "The capacity asked for is below");
    refused(compressor + "--format pdf", 2, "json, svg");
    refused(compressor + "--format svg --units metric", 2, "si, ip");
}

}  // namespace
