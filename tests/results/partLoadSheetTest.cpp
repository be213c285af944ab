#include "results/PartLoadSheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "data/Session.h"
#include "data/clsApplication.h"
#include "results/PartLoadTexts.h"
#include "tests/support/SmallCatalogue.h"

namespace marvello {
namespace {

using Kind = LoadRun::Kind;
using Line = CurveStyle::Line;
using ::testing::ElementsAre;

/// Full load 100 kW with 25 kW, and 40 kW with 16 kW at the lowest step.
class PartLoadSheetTest : public ::testing::Test {
  protected:
    PartLoadSheetTest() {
        for (const auto& [key, text] :
             {std::pair("frmselection.partload.step", "Step {0} %"),
              {"frmselection.partload.steady", "Steadily: {0}"},
              {"frmselection.partload.blended", "By turns: {0} ({1} of the time), {2} ({3})"},
              {"frmselection.partload.intermittent", "Intermittently: {0} for {1} of the time"},
              {"messages.message01", "Outside"}})
            catalogue_.text(key, text);
        gApplication().populateDictionary("en-EN", "");
        table_.full = steady(100, 100, 25);
        table_.states = {table_.full, steady(25, 40, 16)};
        for (const double share : {1.0, 0.7, 0.3, 0.1}) table_.shares.push_back(at(share));
    }

    static SteadyLoad steady(int step, double capacity, double power) {
        SteadyLoad load{.state = {}, .share = capacity / 100};
        load.state.at.conditions = conditionsAt(2, 40);
        load.state.at.conditions.StepCapacity = step;
        load.state.performance.state = PointState::ok;
        load.state.performance.plain = {
            .capacity = capacity, .power = power, .cop = capacity / power, .dischargeTemperature = 60};
        load.state.performance.massFlow = capacity * 20;
        return load;
    }
    PartLoad at(double share) const {
        const std::vector states{table_.states[0].state, table_.states[1].state};
        return {.share = share,
                .needed = 100 * share,
                .condensing = 40,
                .run = meetLoad(100 * share, states, usualDegradation(Degradation::Form::condensingUnit))};
    }

    testing::SmallCatalogue catalogue_;
    PreparedCompressor compressor_;
    PartLoadTable table_;
};

TEST_F(PartLoadSheetTest, ARowSaysHowALoadIsMet) {
    const PartLoadSheet sheet = partLoadSheet(compressor_, table_, UnitSystem::imperial, {});
    ASSERT_EQ(sheet.states.size(), 2U);
    EXPECT_EQ(sheet.states[1].label, "Step 25 %");
    // 40 degrees Celsius are 104 degrees Fahrenheit, 40 kW are 11.4 tons of 3.51685 kW.
    EXPECT_THAT(sheet.states[1].values,
                ElementsAre("40.0", "104.0", "11.4", "16.0", "2.50", "", "-", "1763.7", "140.0"));
    // Half of the time each at 100 and 40 kW: 70 kW with 20.5 kW.
    EXPECT_EQ(sheet.shares[1].label, "70 %");
    EXPECT_EQ(sheet.shares[1].values[3], "20.5");
    EXPECT_EQ(sheet.shares[1].values[5], "By turns: Step 100 % (50 % of the time), Step 25 % (50 %)");
    // Three quarters of the time at 40 kW: 12 kW over 1 - 0.25 x 0.25.
    EXPECT_EQ(sheet.shares[2].values[3], "12.8");
    EXPECT_EQ(sheet.shares[2].values[5], "Intermittently: Step 25 % for 75 % of the time");
    table_.shares[2] = {.share = 0.3, .condensing = 12, .error = "messages.message01"};
    const PartLoadSheet::Row none = partLoadSheet(compressor_, table_, UnitSystem::metric, {}).shares[2];
    EXPECT_EQ(none.state, PointState::error);
    EXPECT_THAT(none.values, ElementsAre("30.0", "12.0", "-", "-", "-", "Outside", "-", "-", "-"));
}

TEST_F(PartLoadSheetTest, TheChartDrawsWhatRunsByTurnsAndIntermittentlyAsWhatItIs) {
    const Chart chart = partLoadChart(compressor_, table_, UnitSystem::metric);
    std::vector<Line> copLines;
    for (const ChartCurve& curve : chart.curves)
        if (!curve.isOnSecond && curve.style.line != Line::none) copLines.push_back(curve.style.line);
    EXPECT_THAT(copLines, ElementsAre(Line::dotted, Line::dashed));
    const auto rings = std::ranges::find_if(
        chart.curves, [](const ChartCurve& curve) { return curve.style.hasRings && !curve.isOnSecond; });
    ASSERT_NE(rings, chart.curves.end());
    ASSERT_EQ(rings->points.size(), 2U);
    EXPECT_EQ(rings->points[1].x, 40);
    EXPECT_EQ(rings->points[1].y, 2.5);
    EXPECT_EQ(chart.legend.size(), 5U) << "two figures, states, and both kinds of lines";
    table_.shares.resize(1);
    table_.states.resize(1);
    EXPECT_EQ(partLoadChart(compressor_, table_, UnitSystem::metric).legend.size(), 3U) << "no lines";
}

TEST_F(PartLoadSheetTest, CurvesBreakWhereNothingRuns) {
    table_.shares[1] = {.share = 0.7, .condensing = 40, .error = "messages.message01"};
    for (const ChartCurve& curve : partLoadChart(compressor_, table_, UnitSystem::metric).curves) {
        const bool crosses = curve.points.front().x < 70 && curve.points.back().x > 70;
        EXPECT_FALSE(crosses && curve.style.line != Line::none);
    }
}

}  // namespace
}  // namespace marvello
