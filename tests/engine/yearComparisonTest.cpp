#include "engine/YearComparison.h"

#include <gtest/gtest.h>

#include <memory>

#include "catalogue/Globals.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "engine/ShippedProfiles.h"

namespace marvello {
namespace {

class YearComparisonTest : public ::testing::Test {
  protected:
    YearComparisonTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        catalogue_ = preparedCatalogue(gDatabase());
        terms_.profile.bins = {{10, 2000, 0.1}, {35, 100, 1}};
        terms_.designLoad = 60;
        terms_.evaporating = evaporatingRuleOf("2");
        terms_.condensing = condensingRuleOf("40");
        terms_.emissions = {.charge = 10, .leakage = 5, .recovery = 80, .years = 20, .grid = 0.4};
        terms_.price = 0.25;
    }
    YearChoice choice(const char* text, double superheat = 10) {
        YearChoice choice{plantOf(text, *catalogue_), conditionsAt(0, 0)};
        choice.conditions.SuperHeat = superheat;
        return choice;
    }
    YearComparison compared(const std::vector<YearChoice>& choices) {
        return yearsOf(choices, terms_, catalogue_, loopWith(calculator_)).value();
    }

    Session session_;
    CollectedBoxes boxes_;
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    Calculator calculator_;
    YearTerms terms_;
};

/// R134A has a GWP of 1430 and R513A one of 631 by AR4. Direct emissions of a year: GWP (10 * 0.05 + 10 * 0.2
/// / 20) = GWP * 0.6 kg.
TEST_F(YearComparisonTest, EachHasTheGwpOfItsRefrigerantAndThePriceOfAll) {
    const YearComparison comparison = compared({choice("TK-A-120 R134A"), choice("TK-A-120 R513A")});
    EXPECT_NEAR(*comparison.plants[0].yearlyTewi().direct, 858, 1e-9);
    EXPECT_NEAR(*comparison.plants[1].yearlyTewi().direct, 378.6, 1e-9);
    for (const YearOfPlant& plant : comparison.plants) {
        EXPECT_NEAR(*plant.yearlyTewi().indirect, plant.year.energy * 0.4, 1e-9);
        EXPECT_NEAR(*plant.tewi().total, 20 * *plant.yearlyTewi().total, 1e-6);
        EXPECT_NEAR(*plant.cost(), plant.year.energy / 4, 1e-9);
        EXPECT_FALSE(plant.fourPoints);
    }
    terms_.price.reset();
    terms_.emissions.grid.reset();
    const YearOfPlant plain = compared({choice("TK-A-120 R134A")}).plants.front();
    EXPECT_FALSE(plain.cost());
    EXPECT_FALSE(plain.yearlyTewi().total);
}

TEST_F(YearComparisonTest, OptionsBelongToAChoiceAndRulesToAll) {
    const auto profiles = shippedProfiles(MARVELLO_APP_FOLDER);
    terms_.profile = profiles.front().profile;
    terms_.rule = profiles.front().rule;
    const YearComparison comparison =
        compared({choice("TK-A-120 R134A"), choice("TK-A-120 R134A", 20), choice("TK-A-120 R134A")});
    EXPECT_NE(comparison.plants[0].year.energy, comparison.plants[1].year.energy);
    EXPECT_EQ(comparison.plants[0].year.energy, comparison.plants[2].year.energy);
    EXPECT_GT(comparison.plants[1].fourPoints->figure.value(), 1);
    EXPECT_FALSE(
        yearsOf({choice("TK-A-120 R134A")}, terms_, catalogue_, loopWith(calculator_, [] { return false; })));
}

}  // namespace
}  // namespace marvello
