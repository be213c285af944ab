#include "engine/RatingTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"
#include "tests/engine/PlainSelection.h"

namespace marvello {
namespace {

TEST(RatingAxis, HasTheMultiplesOfItsStepAndTheOperatingPoint) {
    EXPECT_EQ(multiplesOf(5, -12, 11), (std::vector<double>{-10, -5, 0, 5, 10}));
    EXPECT_EQ(multiplesOf(2.5, -5, 2.5), (std::vector<double>{-5, -2.5, 0, 2.5})) << "with both ends";
    EXPECT_EQ(multiplesOf(0.1, 0.3, 0.7).size(), 5U) << "whatever the last bits";
    EXPECT_TRUE(multiplesOf(10, 1, 9).empty());
    std::vector<double> axis{-5, 0, 5};
    EXPECT_EQ(insertValue(axis, 2), 2U);
    EXPECT_EQ(insertValue(axis, 20), 4U);
    EXPECT_EQ(insertValue(axis, -7), 0U);
    EXPECT_EQ(axis, (std::vector<double>{-7, -5, 0, 2, 5, 20}));
    EXPECT_EQ(insertValue(axis, 5 + 1e-12), 4U);
    EXPECT_EQ(axis.size(), 6U);
    EXPECT_EQ(axis[4], 5 + 1e-12) << "exactly that of the operating point";
}

class RatingTableTest : public ::testing::Test {
  protected:
    RatingTableTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        catalogue_ = preparedCatalogue(gDatabase());
    }

    template <class Value>
    Value oneOf(const std::vector<Value>& values) {
        return values[random_() % values.size()];
    }

    const PreparedCompressor& randomCompressor() {
        return catalogue_->compressors()[random_() % catalogue_->compressors().size()];
    }

    RatingPlan randomPlan() {
        RatingPlan plan{.compressor = &randomCompressor(), .conditions = conditionsAt(-5, 40)};
        clsProjectConditions& c = plan.conditions;
        c.SuperHeat = oneOf<double>({0, 10, 17});
        c.SubCooling = oneOf<double>({0, 5, 9});
        c.MotorHz = oneOf<int>({50, 60});
        c.StepCapacity = oneOf<int>({100, 100, 50});
        c.InverterFrequency = oneOf<float>({30, 50, 65});
        if (random_() % 20 == 0) c.EcoCalculateMode = EconomizerMode::approach;
        const auto box = applicationBox(*plan.compressor, c.EcoCalculateMode);
        if (!box) return randomPlan();
        plan.columns = multiplesOf(10, box->tedLow - 10, box->tedHigh + 10);
        plan.rows = multiplesOf(10, box->tcdLow - 10, box->tcdHigh + 10);
        insertValue(plan.columns, box->tedLow + 1.37);
        insertValue(plan.rows, box->tcdLow + 3.21);
        if (plan.compressor->hasInvert && random_() % 2 == 0) {
            plan.across = RatingAcross::frequency;
            plan.columns = {25, 50, 70};
        }
        return plan;
    }

    Session session_;
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    Calculator calculator_;
    std::mt19937 random_{21};
};

TEST_F(RatingTableTest, EachCellIsAPlainSelection) {
    std::size_t compared = 0;
    std::size_t withValues = 0;
    while (compared < 2000 && !HasFailure()) {
        const RatingPlan plan = randomPlan();
        const auto cells = rate(plan, loopWith(calculator_));
        ASSERT_TRUE(cells);
        ASSERT_EQ(cells->size(), plan.count());
        for (int i = 0; i < 20; ++i, ++compared) {
            const std::size_t cell = random_() % plan.count();
            testing::expectPlainSelection(*plan.compressor, plan.conditionsOf(cell), (*cells)[cell]);
            if ((*cells)[cell].hasValues()) ++withValues;
        }
    }
    EXPECT_GT(withValues, 500U);
}

TEST_F(RatingTableTest, APoolGivesTheSameAndAGivenUpLoopNothing) {
    const RatingPlan plan{.compressor = catalogue_->find("R134A", "TK-A", "220"),
                          .conditions = conditionsAt(2, 40),
                          .columns = {-15, 2, 10},
                          .rows = {30, 40, 75}};
    ASSERT_NE(plan.compressor, nullptr);
    const auto alone = rate(plan, loopWith(calculator_));
    CalculatorPool pool(2);
    const auto together = rate(plan, loopWith(pool));
    ASSERT_TRUE(alone && together);
    for (std::size_t i = 0; i < plan.count(); ++i)
        EXPECT_EQ(valueOf((*alone)[i], Figure::capacity), valueOf((*together)[i], Figure::capacity)) << i;
    EXPECT_EQ(alone->back().state, PointState::outside);
    int turns = 0;
    EXPECT_FALSE(rate(plan, loopWith(calculator_, [&turns] { return ++turns < 5; })));
    EXPECT_EQ(turns, 5);
}

TEST_F(RatingTableTest, TheBoxIsThatOfTheApplicationLimit) {
    const PreparedCompressor* const compressor = catalogue_->find("R134A", "TK-A", "220");
    const auto box = applicationBox(*compressor, EconomizerMode::none);
    ASSERT_TRUE(box);
    const clsLimit* const limit = compressor->envelope->limits.GetLimitType(limitType::application);
    const auto [left, right] = std::ranges::minmax(limit->Points, {}, &clsPoint::x);
    const auto [low, high] = std::ranges::minmax(limit->Points, {}, &clsPoint::Y);
    EXPECT_EQ(box->tedLow, left.x);
    EXPECT_EQ(box->tedHigh, right.x);
    EXPECT_EQ(box->tcdLow, low.Y);
    EXPECT_EQ(box->tcdHigh, high.Y);
}

}  // namespace
}  // namespace marvello
