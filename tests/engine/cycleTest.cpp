#include "engine/Cycle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

using Part = CycleBalance::Part;

class CycleTest : public testing::EngineFixture {
  protected:
    CycleTest() {
        catalogue.exec(
            "insert into tRefrigeranti values('R404A');insert into tFluidi values('R404A','R125.FLD',0.44),"
            "('R404A','R143A.FLD',0.52),('R404A','R134A.FLD',0.04)");
        catalogue.blendR407C();
        for (const char* refrigerant : {"R134A", "R404A", "R407C", "R290"}) {
            for (int i = 1; i <= 4; ++i)
                catalogue.compressor({{"fRefrigerantID", std::string("'") + refrigerant + "'"},
                                      {"fModelID", "'" + std::to_string(i) + "'"},
                                      {"fKForo", std::to_string(between(1.3, 2.2))},
                                      {"fKPerdita", std::to_string(between(0, 0.5))},
                                      {"fSez", std::to_string(between(200, 400))},
                                      {"fOilCoolingLimit", std::to_string(between(60, 100))},
                                      {"fOilCoolingLimitEco", std::to_string(between(60, 100))}});
        }
        catalogue.completeDefault();
        catalogue.exec("update tPolynomials set fC1=60, fC2=-0.5, fC3=0, fC4=0.3 where fType=3");
    }

    double between(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }

    void randomConditions() {
        conditions.TEvaporatingDew = between(-20, 10);
        conditions.TCondensationDew = std::max(conditions.TEvaporatingDew + 25, between(25, 55));
        conditions.SuperHeat = between(0, 18);
        conditions.SubCooling = between(0, 10);
        conditions.OilCoolingCalculateMode = static_cast<OilCoolingMode>(between(0, 2.99));
        conditions.OilCooling = between(60, 100);
        conditions.EcoCalculateMode = between(0, 1) < 0.3 ? EconomizerMode::none : EconomizerMode::approach;
        conditions.Eco = between(2, 30);
    }

    /// Gives each cycle at random points, with its compressor, to `check`. Returns how many there were.
    int atRandomPoints(int points, const auto& check) {
        const std::vector<std::string> refrigerants{"R134A", "R404A", "R407C", "R290"};
        int cycles = 0;
        for (int i = 0; i < points; ++i) {
            const std::string& refrigerant = refrigerants[static_cast<std::size_t>(i) % 4];
            randomConditions();
            // By far most tanks are what a wanted capacity is met with.
            if (i % 5 == 0) {
                conditions.EcoCalculateMode = EconomizerMode::none;
                const double plain = performanceOf(select(refrigerant)).plain.capacity;
                conditions.EcoCalculateMode = EconomizerMode::capacity;
                conditions.Eco = plain * between(1.02, 1.2);
            }
            select(refrigerant);
            for (const auto& compressor : selections) {
                const auto cycle = cycleOf(*compressor, GetRefprop(refrigerant));
                EXPECT_EQ(cycle.has_value(), performanceOf(*compressor).hasValues());
                if (!cycle) continue;
                ++cycles;
                SCOPED_TRACE(refrigerant + " " + compressor->Model + " at " +
                             std::to_string(conditions.TEvaporatingDew) + "/" +
                             std::to_string(conditions.TCondensationDew));
                check(*compressor, *cycle);
                if (HasFailure()) return cycles;
            }
        }
        return cycles;
    }

    static const CycleState* find(const Cycle& cycle, CyclePoint point) {
        const auto found = std::ranges::find(cycle.states, point, &CycleState::point);
        return found == cycle.states.end() ? nullptr : &*found;
    }

  private:
    std::mt19937 random_{21};
};

// From the states alone: what flows in with them flows out.
TEST_F(CycleTest, ClosesOverEvaporatorEconomizerAndPort) {
    std::map<EconomizerKind, int> kinds;
    int cooled = 0;
    const int cycles = atRandomPoints(160, [&](const clsCompressor& c, const Cycle& cycle) {
        ++kinds[cycle.economizer];
        const auto flowOf = [&](CyclePoint point) {
            const CycleState& state = *find(cycle, point);
            return state.massFlow * state.state.h / 3600;
        };
        const clsVariables& v = c.Variables;
        const bool hasEconomizer = cycle.economizer != EconomizerKind::none;
        const double capacity = hasEconomizer ? v("Q0") + v("Qeco") : v("Q0");
        constexpr double relative = 1e-6;
        EXPECT_NEAR(flowOf(CyclePoint::suction) - flowOf(CyclePoint::evaporatorInlet), capacity,
                    relative * capacity);
        if (hasEconomizer) {
            EXPECT_NEAR(flowOf(CyclePoint::liquid),
                        flowOf(CyclePoint::liquidAfterEconomizer) + flowOf(CyclePoint::economizerOutlet),
                        relative * capacity);
            EXPECT_NEAR(flowOf(CyclePoint::portMixed),
                        flowOf(CyclePoint::portBeforeMixing) + flowOf(CyclePoint::economizerOutlet),
                        relative * capacity);
            EXPECT_NEAR(find(cycle, CyclePoint::economizerOutlet)->massFlow / v("meco"), 1,
                        cycle.economizer == EconomizerKind::tank ? 2e-3 : 1e-9);
        }
        if (find(cycle, CyclePoint::dischargeUncooled)) {
            ++cooled;
            EXPECT_NEAR(flowOf(CyclePoint::dischargeUncooled) - flowOf(CyclePoint::discharge), v("Pra"),
                        relative * capacity);
            EXPECT_EQ(find(cycle, CyclePoint::discharge)->state.t, v("OC"));
        }
        for (const CycleBalance& balance : cycle.balances) {
            if (balance.closes()) {
                EXPECT_NEAR(balance.difference(), 0, relative * capacity) << nameOf(balance.part);
            }
        }
    });
    EXPECT_GT(cycles, 400);
    EXPECT_GT(cooled, 50);
    for (const auto kind : {EconomizerKind::none, EconomizerKind::plate, EconomizerKind::tank})
        EXPECT_GT(kinds[kind], 20);
}

// To the last bit: nothing is calculated a second time.
TEST_F(CycleTest, StatesAreTheVariablesOfTheCalculation) {
    atRandomPoints(40, [&](const clsCompressor& c, const Cycle& cycle) {
        for (const CycleState& state : cycle.states) {
            const std::string name(nameOf(state.point));
            if (state.t) {
                EXPECT_EQ(state.state.t, c.Variables[*state.t]) << name;
            }
            EXPECT_EQ(state.state.p, c.Variables[*state.p]) << name;
            if (state.h) {
                EXPECT_EQ(state.state.h, c.Variables[*state.h]) << name;
            }
        }
        const FluidState& suction = cycle.states.front().state;
        EXPECT_EQ(suction.s, c.Variables("Sga"));
        EXPECT_EQ(suction.density, c.Variables("Dga"));
        // At equal pressure and enthalpy the library knows the rest, by temperature as well.
        const FluidState discharge = find(cycle, CyclePoint::discharge)->state;
        const auto again = GetRefprop(c.Refrigerant).StateAtTemperature(discharge.t, discharge.p);
        EXPECT_NEAR(discharge.s, again->s, 1e-8);
        EXPECT_NEAR(discharge.density / again->density, 1, 1e-7);
        // The throttles keep the enthalpy; what they end in is wet.
        EXPECT_TRUE(find(cycle, CyclePoint::evaporatorInlet)->state.quality.has_value());
        // Liquid and vapour side of the condenser, with the glide between them.
        const FluidState& dew = find(cycle, CyclePoint::condenserDew)->state;
        const FluidState& bubble = find(cycle, CyclePoint::condenserBubble)->state;
        EXPECT_GT(bubble.density, 5 * dew.density);
        EXPECT_LT(bubble.h, dew.h - 50);
        if (c.Refrigerant == "R407C") {
            EXPECT_GT(dew.t, bubble.t + 3);
        }
        if (c.Refrigerant == "R134A") {
            // Liquid and vapour of a pure refrigerant have equal free enthalpy: h" - h' = T (s" - s').
            EXPECT_NEAR(dew.h - bubble.h, (dew.t + 273.15) * (dew.s - bubble.s), 1e-6);
        }
    });
}

// An economizer that the port of the compressor allows is a plate with the liquid at the condensing pressure,
// or a tank that holds it at its own.
TEST_F(CycleTest, DrawsPlateAndTankAsTheyAre) {
    std::map<EconomizerKind, int> seen;
    atRandomPoints(80, [&](const clsCompressor& c, const Cycle& cycle) {
        ++seen[cycle.economizer];
        const auto numberOf = [&](CyclePoint point) {
            return static_cast<std::size_t>(find(cycle, point) - cycle.states.data());
        };
        const CycleBranch& main = cycle.branches.front();
        EXPECT_EQ(main.states.front(), main.states.back());
        EXPECT_EQ(main.states.size(), numberOf(CyclePoint::evaporatorInlet) + 2);
        if (cycle.economizer == EconomizerKind::none) {
            EXPECT_EQ(cycle.states.size(), c.Variables.Exist("H2Rif") && c.Variables("Pra") > 0 ? 7U : 6U);
            return;
        }
        const CycleState& liquid = *find(cycle, CyclePoint::liquidAfterEconomizer);
        const CycleState& inlet = *find(cycle, CyclePoint::economizerInlet);
        const bool isTank = c.Variables.Item("EcoModel").text() == "Tank";
        EXPECT_EQ(cycle.economizer == EconomizerKind::tank, isTank);
        EXPECT_EQ(liquid.state.p, c.Variables(isTank ? "Peco" : "Pc"));
        EXPECT_EQ(inlet.massFlow > cycle.states.front().massFlow, isTank);
        EXPECT_EQ(numberOf(CyclePoint::economizerInlet) < numberOf(CyclePoint::evaporatorInlet), isTank);
        EXPECT_EQ(cycle.branches[1].states.front(),
                  numberOf(isTank ? CyclePoint::economizerInlet : CyclePoint::liquid));
        EXPECT_EQ(cycle.branches[1].states.back(), numberOf(CyclePoint::portMixed));
    });
    EXPECT_GT(seen[EconomizerKind::plate], 10);
    EXPECT_GT(seen[EconomizerKind::tank], 10);
}

// The same definition whether the calculation has the variable or not.
TEST_F(CycleTest, IsentropicEfficiencyDoesNotDependOnTheEconomizer) {
    conditions.TEvaporatingDew = -10;
    conditions.TCondensationDew = 40;
    conditions.Eco = 8;
    const auto efficiency = [&](EconomizerMode mode) {
        conditions.EcoCalculateMode = mode;
        const clsCompressor& calculated = select();  // which may replace the property service
        return cycleOf(calculated, GetRefprop("R134A"))->figures.isentropicEfficiency;
    };
    EXPECT_NEAR(efficiency(EconomizerMode::none), efficiency(EconomizerMode::approach), 1e-9);
}

TEST_F(CycleTest, IsNoneForACompressorWithoutValues) {
    conditions.TEvaporatingDew = -60;  // outside of the limits
    const clsCompressor& calculated = select();
    EXPECT_FALSE(cycleOf(calculated, GetRefprop("R134A")).has_value());
}

}  // namespace
}  // namespace marvello
