// Whole states, against what other calls of the library and thermodynamics say of them.

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "tests/support/SmallCatalogue.h"
#include "thermo/clsRefprop.h"

namespace marvello {
namespace {

class FluidStates : public ::testing::Test {
  protected:
    FluidStates() { catalogue.blendR407C(); }

    double between(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }

    testing::SmallCatalogue catalogue;

  private:
    std::mt19937 random_{5};
};

// Equal free enthalpy of both phases of a pure refrigerant: h" - h' = T (s" - s').
TEST_F(FluidStates, SaturatedLiquidAndVapour) {
    for (const char* refrigerant : {"R134A", "R290", "R407C"}) {
        clsRefprop& refprop = GetRefprop(refrigerant);
        for (int i = 0; i < 100; ++i) {
            const double p = between(0.6, 33);
            const FluidState liquid = *refprop.SaturationAtPressure(p, saturation::bubble);
            const FluidState vapour = *refprop.SaturationAtPressure(p, saturation::dew);
            EXPECT_EQ(liquid.quality, 0);
            EXPECT_EQ(vapour.quality, 1);
            EXPECT_EQ(liquid.p, p);
            EXPECT_NEAR(refprop.SaturationAtTemperature(liquid.t, saturation::bubble)->p / p, 1, 1e-9);
            EXPECT_NEAR(liquid.t, refprop.Temperature(p, property::pressure, saturation::bubble, 0, -1),
                        1e-9);
            EXPECT_NEAR(vapour.density / refprop.Density(p, property::pressure, saturation::dew), 1, 1e-7);
            if (std::string(refrigerant) != "R407C") {
                EXPECT_NEAR(vapour.h - liquid.h, (vapour.t + 273.15) * (vapour.s - liquid.s), 1e-5);
            }
        }
    }
}

// By mass, not by moles: the volumes and enthalpies of the phases add up by it. The phases of a blend have
// compositions of their own, so that the bubble and dew point of the pressure are not those.
TEST_F(FluidStates, QualityIsTheVapoursShareOfTheMass) {
    constexpr double r32 = 52.024, r125 = 120.0214, r134a = 102.032;  // g/mol
    RefpropSession session(refpropFunctions());
    session.setUp({"R32.FLD", "R125.FLD", "R134A.FLD"}, {0.23, 0.25, 0.52},
                  catalogue.session.applicationFolder + "/Fluids/");
    const auto mass = [&](const RefpropSession::Fractions& moles) {
        return moles[0] * r32 + moles[1] * r125 + moles[2] * r134a;
    };
    clsRefprop& blend = GetRefprop("R407C");
    clsRefprop& pure = GetRefprop("R134A");
    for (int i = 0; i < 100; ++i) {
        const double p = between(1, 30);
        const double share = between(0.02, 0.98);
        const auto between = [share](double liquid, double vapour) {
            return liquid + share * (vapour - liquid);
        };
        const auto hOf = [&](clsRefprop& refprop) {
            return between(refprop.SaturationAtPressure(p, saturation::bubble)->h,
                           refprop.SaturationAtPressure(p, saturation::dew)->h);
        };
        EXPECT_NEAR(*pure.StateAtEnthalpy(p, hOf(pure))->quality, share, 1e-7);

        const FluidState state = *blend.StateAtEnthalpy(p, hOf(blend));
        const RefpropState phases = session.atPH(p * 100, hOf(blend) * session.molarMass());
        const double liquid = phases.Dl * mass(session.liquid());
        const double vapour = phases.Dv * mass(session.vapour());
        EXPECT_NEAR(1 / state.density, (1 - *state.quality) / liquid + *state.quality / vapour,
                    1e-6 / state.density);
        EXPECT_GT(std::abs(*state.quality - phases.q), 1e-6);
    }
}

TEST_F(FluidStates, OnePhaseHasNoQualityAndARefusalNoState) {
    clsRefprop& refprop = GetRefprop("R134A");
    const FluidState gas = *refprop.StateAtTemperature(30, 2);
    EXPECT_FALSE(gas.quality);
    const FluidState again = *refprop.StateAtEntropy(2, gas.s);
    EXPECT_NEAR(again.h, gas.h, 1e-8);
    EXPECT_NEAR(again.t, 30, 1e-8);
    EXPECT_FALSE(refprop.StateAtTemperature(30, 1e6));
    EXPECT_FALSE(refprop.SaturationAtPressure(60, saturation::dew));
    EXPECT_TRUE(catalogue.boxes.empty());
}

}  // namespace
}  // namespace marvello
