#include "results/RatingSheet.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"
#include "tests/support/SmallCatalogue.h"

namespace marvello {
namespace {

/// The application limit is from -20 to 15 and from 20 to 60 degrees Celsius.
class RatingSheetTest : public ::testing::Test {
  protected:
    RatingSheetTest() {
        catalogue.compressor();
        catalogue.compressor({{"fSerieID", "'TK-D'"}, {"fModelID", "'90'"}, {"fhasInverter", "1"}});
        catalogue.completeDefault();
        prepared = preparedCatalogue(gDatabase());
    }
    RatingSheet sheet(const RatingStyle& style, double ted = 2, double tcd = 40) {
        return *ratingSheet(prepared->compressors().front(), conditionsAt(ted, tcd), style);
    }

    testing::SmallCatalogue catalogue;
    std::shared_ptr<const PreparedCatalogue> prepared;
};

TEST_F(RatingSheetTest, HasTheStepsInsideTheLimitAndTheOperatingPoint) {
    const RatingSheet metric = sheet({.acrossStep = 10, .downStep = 20});
    EXPECT_EQ(metric.columns, (std::vector<double>{-20, -10, 0, 2, 10}));
    EXPECT_EQ(metric.rows, (std::vector<double>{20, 40, 60}));
    EXPECT_EQ(metric.currentColumn, 3U);
    EXPECT_EQ(metric.currentRow, 1U);
    EXPECT_EQ(metric.plan.columns, metric.columns);
    EXPECT_EQ(axisText(-2.5, {.minus = "\u2212", .point = ","}), "\u22122,5");
}

// -20 to 15 degrees Celsius are -4 to 59, and 20 to 60 are 68 to 140 degrees Fahrenheit.
TEST_F(RatingSheetTest, StepsAreRoundInTheUnitsOfTheForm) {
    const RatingSheet imperial =
        sheet({.units = UnitSystem::imperial, .acrossStep = 20, .downStep = 20}, 1.37, 41.29);
    EXPECT_EQ(imperial.columns, (std::vector<double>{0, 20, 34.466, 40}));
    EXPECT_EQ(imperial.rows, (std::vector<double>{80, 100, 106.322, 120, 140}));
    EXPECT_NEAR(imperial.plan.columns[1], -20 / 3.0, 1e-9);
    EXPECT_EQ(imperial.plan.columns[2], 1.37) << "the cell of the operating point is the selection";
    EXPECT_EQ(imperial.plan.rows[2], 41.29);
}

TEST_F(RatingSheetTest, AnInverterMayHaveFrequenciesAcross) {
    const auto found = ratingSheet(prepared->compressors().back(), conditionsAt(2, 40),
                                   {.across = RatingAcross::frequency, .acrossStep = 10, .downStep = 20});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->columns, (std::vector<double>{20, 30, 40, 50, 60, 70}));
    EXPECT_EQ(found->currentColumn, 3U);
    const clsProjectConditions of = found->plan.conditionsOf(4);
    EXPECT_EQ(of.InverterFrequency, 60.0F);
    EXPECT_EQ(of.TEvaporatingDew, 2);
    EXPECT_EQ(of.TCondensationDew, 20);
    const auto rows = ratingRows(*found, std::vector<Performance>(found->plan.count()));
    EXPECT_EQ(performanceCsv(rows, false).substr(0, 66),
              "ted,tcd,frequency,state,capacity,power,cop,current,massFlow,discha");
    EXPECT_EQ(rows[7].frequency, 30);
}

TEST_F(RatingSheetTest, IsNoneWithoutAnApplicationLimit) {
    catalogue.exec("update tLimits set fType=-1");
    const auto without = preparedCatalogue(gDatabase());
    EXPECT_FALSE(ratingSheet(without->compressors().front(), conditionsAt(2, 40), {}));
}

}  // namespace
}  // namespace marvello
