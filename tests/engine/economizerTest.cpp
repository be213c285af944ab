#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "data/Numbers.h"
#include "data/Session.h"
#include "engine/StepControl.h"
#include "tests/engine/EngineFixture.h"
#include "thermo/clsRefprop.h"

namespace marvello {
namespace {

using testing::keys;

constexpr double automatic = 1;
constexpr double capacity = 2;

class economizer : public testing::EngineFixture {
  protected:
    economizer() {
        catalogue.compressor({{"fKForo", "1.6"}, {"fSez", "300"}});  // no pressure loss unless a test says so
        catalogue.completeDefault();
        // A discharge that an efficiency near 0.85 belongs to, so that the cycle is a possible one.
        catalogue.exec(
            "update tPolynomials set fC1=70, fC2=-0.5, fC3=0, fC4=0.3, fC5=0, fC6=0 where fType=3");
        conditions.MotorVoltage = 400;
        conditions.SuperHeat = 10;
        conditions.SubCooling = 3;
        conditions.OilCooling = 110;
        conditions.OilCoolingCalculateMode = OilCoolingMode::none;
    }

    const clsVariables& run(double mode, double value) {
        conditions.EcoCalculateMode = static_cast<EconomizerMode>(mode);
        conditions.Eco = value;
        return select().Variables;
    }

    void portWithBubblePointAt(double t) {
        const double ratio =
            GetRefprop("R134A").Pressure(t, 1) / GetRefprop("R134A").Pressure(conditions.TEvaporatingDew, 2);
        catalogue.exec("update tCompressors set fKForo=" + storedText(ratio));
    }
};

// A tank gives the most. What is wanted beyond it finds a flow, but a liquid colder than the port's bubble
// point.
TEST_F(economizer, ACapacityBeyondATank) {
    const clsVariables& tank = run(automatic, 60);
    const double most = tank("Q0") + tank("Qeco");
    EXPECT_EQ(run(capacity, most - 0.2).Item("EcoModel").text(), "Tank");
    EXPECT_EQ(names(selections.Item(1).Messages.Error), keys({}));
    const clsVariables& v = run(capacity, most + 0.2);
    EXPECT_EQ(v.Item("EcoModel").text(), "Impossible");
    EXPECT_EQ(names(selections.Item(1).Messages.Error), keys({"26"}));
    EXPECT_NEAR(v("Q0") + v("Qeco"), most + 0.2, 0.05);
    EXPECT_EQ(v("EcoOK"), 0);
}

// The bubble point at the port next to the liquid at T3 = 45 - 3.0001 degC decides what is tried at all.
TEST_F(economizer, ALiquidThatThePortCannotCool) {
    // Above it there is nothing to be had: said, and what was set up before stays.
    portWithBubblePointAt(41.9999 + 0.5);
    const clsVariables& none = run(automatic, 5);
    EXPECT_EQ(names(selections.Item(1).Messages.Error), keys({"26", "25"}));
    EXPECT_EQ(none.Item("EcoModel").text(), "Impossible");
    EXPECT_EQ(none("EcoOK"), -1);
    EXPECT_EQ(none("meco"), 1);
    // Below it, but by less than the approach: no plate.
    portWithBubblePointAt(41.9999 - 0.7);
    const clsVariables& tank = run(automatic, 5);
    EXPECT_EQ(tank.Item("EcoModel").text(), "Tank");
    EXPECT_EQ(tank("EcoOK"), 0);
    EXPECT_NEAR(tank("T31"), 41.9999 - 0.7, 0.011);
}

// A tank ends with no approach at all, so that a wanted one is missed by itself.
TEST_F(economizer, AnApproachIsJudgedByWhatIsShown) {
    portWithBubblePointAt(41.9999 - 0.23);
    const clsVariables& v = run(automatic, 0.235);
    EXPECT_NEAR(v("T31") - v("TSat"), 0, 0.01);
    EXPECT_EQ(names(selections.Item(1).Messages.Error), keys({}));  // shown as 0.2
    run(automatic, 0.265);
    EXPECT_EQ(names(selections.Item(1).Messages.Error), keys({"25"}));  // shown as 0.3
}

// Flows go with the size, so a compressor a twentieth as large has the same tank on a twentieth of the flow.
TEST_F(economizer, TanksOfSmallCompressors) {
    const auto runOfATwentieth = [this]() -> const clsVariables& {
        for (int i = 1; i <= 10; ++i) {
            const std::string column = "fC" + std::to_string(i);
            catalogue.exec("update tPolynomials set " + column + "=" + column + "/20 where fType<2");
        }
        return run(automatic, 60);
    };
    const clsVariables& large = run(automatic, 60);
    const double share = large("meco") / large("Mev");
    const clsVariables& small = runOfATwentieth();
    EXPECT_EQ(small.Item("EcoModel").text(), "Tank");
    EXPECT_NEAR(small("meco") / small("Mev"), share, 1e-3 * share);
    // There is none below 1 kg/h, where a search begins that starts from 5 % of 2.3 kg/h: its first trial
    // goes on by 1 + 0.1 * 34 K, which is half a kg/h.
    const clsVariables& smallest = runOfATwentieth();
    EXPECT_NEAR(smallest("Mev"), 2.3, 0.1);
    EXPECT_EQ(smallest.Item("EcoModel").text(), "Impossible");
    const auto said = names(selections.Item(1).Messages.Error);
    EXPECT_EQ(std::ranges::count(said, "messages.message26"), 1);
}

TEST_F(economizer, CapacitiesOutOfReach) {
    const clsVariables& plain = run(0, 0);
    const double shown = std::round(plain("Q0") * 10) / 10;
    const double most = plain("Q0") + plain("Mbase") * (plain("HE") - plain("Hl")) / 3600;
    const auto says = [&](double wanted) {
        run(capacity, wanted);
        return names(selections.Item(1).Messages.Error);
    };
    EXPECT_EQ(says(shown - 0.001), keys({"23"}));
    EXPECT_FALSE(selections.Item(1).Variables.Exist("Mev"));
    EXPECT_EQ(says(most), keys({"24"}));
    // Just above what is shown: less than the least injection gives, so no solution, and the model stays as
    // set.
    EXPECT_EQ(says(shown), keys({"26"}));
    EXPECT_EQ(selections.Item(1).Variables("EcoOK"), -1);
    EXPECT_EQ(selections.Item(1).Variables.Item("EcoModel").text(), "Impossible");
    EXPECT_TRUE(selections.Item(1).Variables.Exist("CopEco"));
}

// With a glide the plate's approach and TSat go by the dew point of the gas, the tank by the bubble point of
// the liquid.
TEST_F(economizer, ABlendWithGlide) {
    catalogue.blendR407C();
    catalogue.exec("update tCompressors set fRefrigerantID='R407C'");
    conditions.EcoCalculateMode = EconomizerMode::approach;
    const auto expectSaturation = [](const clsVariables& v) {
        clsRefprop& r = GetRefprop("R407C");
        EXPECT_NEAR(r.Pressure(v("T6"), 1), v("Peco"), 1e-6);
        EXPECT_NEAR(r.Pressure(v("TSat"), 2), v("Peco"), 1e-6);
        EXPECT_NEAR(r.Pressure(v("T9D"), 2), v("P9"), 1e-6);
        EXPECT_NEAR(r.Density(v("T9D") + 1e-5, 0, 2, v("P9"), 1), v("D9D"), 1e-4);
        EXPECT_GT(v("TSat") - v("T6"), 4);
    };
    conditions.Eco = 6;
    const clsVariables& plate = select("R407C").Variables;
    EXPECT_EQ(plate.Item("EcoModel").text(), "Piastra");
    EXPECT_NEAR(plate("T31") - plate("TSat"), 6, 0.0101);
    EXPECT_NEAR(plate("T7"), plate("T7D") + plate("Sh"), 1e-9);
    expectSaturation(plate);
    conditions.Eco = 60;
    const clsVariables& tank = select("R407C").Variables;
    EXPECT_EQ(tank.Item("EcoModel").text(), "Tank");
    EXPECT_NEAR(tank("T31"), tank("T6"), 0.01);
    expectSaturation(tank);
}

TEST_F(economizer, AbortTakesEffectWithinAPass) {
    catalogue.compressor({{"fModelID", "'200'"}, {"fKForo", "1.6"}, {"fSez", "300"}});
    int turns = 0;
    catalogue.session.hooks.giveTurn = [&turns] {
        if (++turns == 20) AbortRequested() = true;
    };
    conditions.EcoCalculateMode = EconomizerMode::approach;
    conditions.Eco = 5;
    selections.Selection(std::make_shared<clsProjectConditions>(conditions), "TK-A", "*", "R134A", 0);
    EXPECT_TRUE(selections.isAborted());
    EXPECT_LE(turns, 21);
}

TEST_F(economizer, AFailingStepLeavesItWithOneEntry) {
    // No power at -5 degC: the quotients COP and EtaIso fail, EER reads a COP that is not there.
    catalogue.exec("update tPolynomials set fC1=5, fC2=1, fC3=0 where fType=1");
    const clsVariables& v = run(automatic, 5);
    EXPECT_EQ(names(selections.Item(1).Messages.Error),
              (std::vector<std::string>{"Error...", "Error...", "Error..."}));
    EXPECT_TRUE(v.Exist("H2Iso"));
    EXPECT_FALSE(v.Exist("EtaIso"));
    EXPECT_FALSE(v.Exist("P9"));
    EXPECT_TRUE(v.Exist("QcEco"));  // the stages after it run
}

// Ports and conditions without sense: every run comes to its end and leaves finite numbers only.
TEST_F(economizer, NoPortMakesARunEndless) {
    std::mt19937 random(11);
    const auto between = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int i = 0; i < 150; ++i) {
        catalogue.exec("update tCompressors set fKForo=" + std::to_string(std::exp(between(-3, 4))) +
                       ", fKPerdita=" + std::to_string(std::exp(between(-8, 12)) * (i % 7 == 0 ? -1 : 1)) +
                       ", fSez=" + std::to_string(i % 5 == 0 ? 0 : std::exp(between(-3, 7))));
        conditions.TEvaporatingDew = between(-19, 14);
        conditions.TCondensationDew = between(21, 59);
        const double mode = i % 3;
        run(mode, mode == capacity ? between(20, 120) : between(-5, 70));
        ASSERT_EQ(selections.Count(), 1);
    }
}

TEST(StepControl, HalvesAtATurnButNeverTwiceInTrialsThatFollow) {
    StepControl step(0.25F);
    step.remember(1);
    step.apply(-1);
    EXPECT_EQ(step.size(), 0.25);  // the first turn only arms it
    step.apply(1);
    EXPECT_EQ(step.size(), 0.125);
    step.apply(-1);
    EXPECT_EQ(step.size(), 0.125);
    step.apply(1);
    EXPECT_EQ(step.size(), 0.0625);
}

TEST(LostSearch, SeesTheEndOfPatience) {
    LostSearch search(3);
    for (int i = 0; i < 1000; ++i) ASSERT_FALSE(search.isLost(1.0 / (i + 1)));
    EXPECT_FALSE(search.isLost(5) || search.isLost(-5));
    EXPECT_TRUE(search.isLost(5));
}

}  // namespace
}  // namespace marvello
