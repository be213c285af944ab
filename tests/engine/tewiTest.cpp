#include "engine/Tewi.h"

#include <gtest/gtest.h>

namespace marvello {
namespace {

/// 40 kg of a refrigerant with a GWP of 1430 in a plant that takes 50,000 kWh a year, for 15 years:
/// leakage of 3 % a year   1430 * 40 * 0.03 * 15 = 25,740 kg
/// 10 % not recovered      1430 * 40 * 0.1       =  5,720 kg
/// electricity of 0.25     15 * 50000 * 0.25     = 187,500 kg
TEST(Tewi, IsWhatLeaksIsNotRecoveredAndIsBurnt) {
    const EmissionInputs inputs{
        .charge = 40, .gwp = 1430, .leakage = 3, .recovery = 90, .years = 15, .grid = 0.25};
    const Tewi tewi = tewiOf(50'000, inputs);
    EXPECT_NEAR(tewi.direct.value(), 25'740 + 5'720, 1e-9);
    EXPECT_NEAR(tewi.indirect.value(), 187'500, 1e-9);
    EXPECT_NEAR(tewi.total.value(), 218'960, 1e-9);
}

TEST(Tewi, HasWhatIsKnown) {
    EmissionInputs inputs{.charge = 40, .grid = 0.5};
    EXPECT_FALSE(tewiOf(100, inputs).direct);
    EXPECT_FALSE(tewiOf(100, inputs).total);
    EXPECT_NEAR(tewiOf(100, inputs).indirect.value(), 15 * 100 * 0.5, 1e-9);
    inputs = {.charge = 40, .gwp = 0};
    EXPECT_EQ(tewiOf(100, inputs).direct, 0);
    EXPECT_FALSE(tewiOf(100, inputs).indirect);
    EXPECT_FALSE(tewiOf(100, inputs).total);
}

TEST(Tewi, TakesTheFigureOfTheReport) {
    const RefrigerantFacts facts{.gwpAr4 = 1430, .gwpAr6 = 1530};
    EXPECT_EQ(gwpOf(facts, GwpBasis::ar4), 1430);
    EXPECT_EQ(gwpOf(facts, GwpBasis::ar5), std::nullopt);
    EXPECT_EQ(gwpOf(facts, GwpBasis::ar6), 1530);
}

}  // namespace
}  // namespace marvello
