#include "results/ComparisonCharts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "catalogue/Globals.h"
#include "data/Session.h"
#include "data/clsApplication.h"

using namespace marvello;

namespace {

/// TK-A-255 alone and three of TK-A-120, at 2/40 degrees Celsius.
class ComparisonChartsTest : public ::testing::Test {
  protected:
    ComparisonChartsTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        gApplication().populateDictionary("en-EN", "");
        std::vector<ComparedChoice> choices{{"R134A", "TK-A", "255", conditionsAt(2, 40)},
                                            {"R134A", "TK-A", "120", conditionsAt(2, 40), 3}};
        Calculator calculator;
        comparison = compare(choices, preparedCatalogue(gDatabase()), calculator);
    }
    static CurvePoint pointAt(double at, double capacity, bool beginsPart = false) {
        return {.at = at,
                .beginsPart = beginsPart,
                .performance = {.state = PointState::ok, .plain = {.capacity = capacity, .power = 2}}};
    }

    Session session_;
    Comparison comparison;
};

}  // namespace

TEST_F(ComparisonChartsTest, LimitsAreClosedAndTheOperatingPointsLieOnTop) {
    const Chart chart = limitsChart(comparison, UnitSystem::metric);
    ASSERT_EQ(chart.curves.size(), 4U);
    for (const std::size_t i : {0U, 1U}) {
        EXPECT_EQ(chart.curves[i].points.front().x, chart.curves[i].points.back().x);
        EXPECT_EQ(chart.curves[i].points.front().y, chart.curves[i].points.back().y);
        EXPECT_TRUE(chart.curves[i + 2].style.hasRings);
        EXPECT_EQ(chart.curves[i + 2].points.front().y, 40);
    }
    EXPECT_NE(chart.curves[0].style.line, chart.curves[1].style.line);
    ASSERT_EQ(chart.legend.size(), 2U);
    EXPECT_EQ(chart.legend[1].name, "TK-A-120");
    EXPECT_EQ(chart.marked, 2);
    EXPECT_DOUBLE_EQ(*limitsChart(comparison, UnitSystem::imperial).marked, 35.6) << "2 degrees Celsius";
}

TEST_F(ComparisonChartsTest, ACurveIsOfAllMachinesAndBreaksWhereThereAreNoValues) {
    CurvePoint failed = pointAt(3, 0);
    failed.performance.state = PointState::error;
    const std::vector<Curve> curves{
        {pointAt(0, 10, true), pointAt(1, 11), failed, pointAt(4, 14), pointAt(8, 18, true)},
        {pointAt(0, 10, true), pointAt(1, 11)}};
    const Chart capacity =
        curvesChart(comparison, curves, CurveAxis::evaporating, Figure::capacity, UnitSystem::metric);
    ASSERT_EQ(capacity.curves.size(), 4U);
    EXPECT_EQ(capacity.curves[0].points.size(), 2U);
    EXPECT_EQ(capacity.curves[1].points.front().x, 4);
    EXPECT_EQ(capacity.curves[3].points.back().y, 33) << "three machines";
    EXPECT_TRUE(capacity.up.hasZero);
    const Chart cop = curvesChart(comparison, curves, CurveAxis::condensing, Figure::cop, UnitSystem::metric);
    EXPECT_EQ(cop.curves[3].points.back().y, 5.5) << "11 kW over 2 kW, of one as of three";
    EXPECT_EQ(cop.marked, 40);
}
