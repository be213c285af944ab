#include "results/PerformanceRows.h"

#include <gtest/gtest.h>

using namespace marvello;

namespace {

/// A line with values, one outside of all limits, and one with an error.
std::vector<PerformanceRow> someRows() {
    Performance good{.state = PointState::warning,
                     .plain = {.capacity = 138.1, .power = 35, .cop = 3.95, .dischargeTemperature = 0.1},
                     .massFlow = 2917};
    good.economized = Performance::Duty{.capacity = 160, .power = 38.5, .cop = 4.16};
    return {{-20, 60, {}},
            {5.2, 45.4, good},
            {10, 60, {.state = PointState::error, .error = "messages.message04"}}};
}

}  // namespace

TEST(PerformanceRows, LeaveFieldsWithoutAValueEmptyInCsv) {
    EXPECT_EQ(performanceCsv(someRows(), false),
              "ted,tcd,state,capacity,power,cop,current,massFlow,dischargeTemperature\n"
              "-20,60,outside,,,,,,\n"
              "5.2,45.4,warning,138.1,35,3.95,,2917,0.1\n"
              "10,60,error,,,,,,\n");
}

TEST(PerformanceRows, HaveTheTotalsWithAnEconomizerLast) {
    const std::string text = performanceCsv(someRows(), true);
    EXPECT_NE(text.find("dischargeTemperature,capacityEco,powerEco,copEco\n"), std::string::npos);
    EXPECT_NE(text.find("2917,0.1,160,38.5,4.16\n"), std::string::npos);
    EXPECT_NE(text.find("outside,,,,,,,,,\n"), std::string::npos);
}
