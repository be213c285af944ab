// What thermodynamics itself demands of the properties, over the whole range and near its edges.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <ostream>
#include <random>

#include "fluids/Refprop.h"
#include "tests/fluids/FluidCalls.h"

namespace marvello::test {
namespace {

struct Fluid {
    const char* file;
    double molarMass;    // g/mol
    double lowest;       // K
    double highest;      // K
    double critical;     // K, of the equation
    double pressureMax;  // kPa
};

void PrintTo(const Fluid& fluid, std::ostream* stream) { *stream << fluid.file; }

class Consistency : public testing::TestWithParam<Fluid> {
  protected:
    void SetUp() override {
        const Answer answer = setUp(GetParam().file);
        ASSERT_EQ(answer.code, 0) << answer.text;
    }
};

/// Two states of the dome and the saturated vapour have one Gibbs energy, and so has liquid just beside the
/// line.
TEST_P(Consistency, PhasesAreInEquilibrium) {
    const Fluid& fluid = GetParam();
    for (double t = fluid.lowest; t < fluid.critical - 0.005; t += 0.05 * (fluid.critical + 1 - t)) {
        SCOPED_TRACE(t);
        const Properties line = saturationAtT(t);
        ASSERT_EQ(line.error.code, 0) << line.error.text;
        EXPECT_GT(line.Dl, line.Dv);
        const Properties vapour = atTP(t, line.p);
        ASSERT_EQ(vapour.D, line.Dv);
        const double gibbs = vapour.h - t * vapour.s;
        const double scale = 1e-10 * 8.314 * t;
        const double above = line.p * (1 + 1e-6);
        const Properties liquid = atTP(t, above);
        ASSERT_EQ(liquid.q, -998);
        EXPECT_NEAR(liquid.h - t * liquid.s, gibbs + (above - line.p) * 2 / (line.Dl + liquid.D), scale);
        const Properties wet = atTS(t, 0.6 * vapour.s + 0.4 * liquid.s);
        EXPECT_EQ(wet.p, line.p);
        EXPECT_NEAR(wet.h - t * wet.s, gibbs, scale);
        EXPECT_NEAR(saturationAtP(line.p).t, t, 1e-9);
    }
}

TEST_P(Consistency, PhasesMeetAtTheCriticalPoint) {
    const Fluid& fluid = GetParam();
    const Properties near = saturationAtT(fluid.critical - 0.01);
    const Properties nearer = saturationAtT(fluid.critical - 0.0025);
    // The densities of an analytical equation close in as the square root of the distance: half as far apart
    // here.
    EXPECT_NEAR((nearer.Dl - nearer.Dv) / (near.Dl - near.Dv), 0.5, 0.012);
    EXPECT_NE(saturationAtT(fluid.critical + 0.001).error.code, 0);
}

/// The derivatives that the library reports against central differences of its own states.
TEST_P(Consistency, DerivativesAgreeWithDifferences) {
    const Fluid& fluid = GetParam();
    for (const double t : {250.0, 300.0, 350.0, 366.0, 372.0, 400.0, 440.0}) {
        for (const double p : {1.0, 100.0, 900.0, 3500.0, 6000.0, 20000.0, 60000.0}) {
            SCOPED_TRACE(testing::Message() << t << " K " << p << " kPa");
            const Properties here = atTP(t, p);
            ASSERT_EQ(here.error.code, 0) << here.error.text;
            const double dt = 1e-3;
            const double dp = 1e-5 * p;
            const Properties warm = atTP(t + dt, p);
            const Properties cold = atTP(t - dt, p);
            const Properties up = atTP(t, p + dp);
            const Properties down = atTP(t, p - dp);
            const double cp = (warm.h - cold.h) / (2 * dt);
            const double expansion = (1 / warm.D - 1 / cold.D) / (2 * dt);
            const double compression = (1 / up.D - 1 / down.D) / (2 * dp);
            EXPECT_LT(deviation(here.cp, cp), 1e-5);
            EXPECT_LT(deviation((warm.s - cold.s) / (2 * dt), cp / t), 1e-5);
            EXPECT_LT(deviation((up.s - down.s) / (2 * dp), -expansion), 1e-4);
            EXPECT_LT(deviation(here.cp - here.cv, -t * expansion * expansion / compression), 1e-4);
            const double rise = (atPS(p + dp, here.s).D - atPS(p - dp, here.s).D) / (2 * dp);
            EXPECT_LT(deviation(here.w * here.w, 1000 / (rise * fluid.molarMass)), 1e-4);
        }
    }
}

/// A random state anywhere is found again from each other pair of its properties.
TEST_P(Consistency, RandomStatesAreFoundAgain) {
    const Fluid& fluid = GetParam();
    std::mt19937_64 random(20260101);
    std::uniform_real_distribution<double> anyT(fluid.lowest, fluid.highest);
    std::normal_distribution<double> nearCritical(fluid.critical, 1.5);
    std::uniform_real_distribution<double> anyLogP(std::log(1e-2), std::log(fluid.pressureMax));
    std::uniform_real_distribution<double> middleP(3500, 5000);
    for (int i = 0; i < 4000; ++i) {
        const double t = i % 2 == 0 ? anyT(random) : nearCritical(random);
        const double p = i % 4 < 2 ? std::exp(anyLogP(random)) : middleP(random);
        SCOPED_TRACE(testing::Message() << t << " K " << p << " kPa");
        const Properties state = atTP(t, p);
        ASSERT_EQ(state.error.code, 0) << state.error.text;
        const Properties byH = atPH(p, state.h);
        const Properties byS = atPS(p, state.s);
        const Properties byTS = atTS(t, state.s);
        EXPECT_NEAR(byH.t, t, 1e-7);
        EXPECT_NEAR(byS.t, t, 1e-7);
        // The temperature is given back within rounding, and near the critical point that is much density.
        for (const Properties& found : {byH, byS, byTS}) EXPECT_LT(deviation(found.D, state.D), 1e-8);
        EXPECT_EQ(byH.q, state.q);
    }
}

TEST_P(Consistency, RandomWetStatesAreFoundAgain) {
    const Fluid& fluid = GetParam();
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> anyT(fluid.lowest, fluid.critical - 0.01);
    std::uniform_real_distribution<double> share(0, 1);
    for (int i = 0; i < 1000; ++i) {
        const double t = anyT(random);
        SCOPED_TRACE(t);
        const Properties dry = atTP(t, saturationAtT(t).p);
        const Properties bubble = atTP(t, saturationAtT(t).p * (1 + 3e-9));
        const Properties state = atPH(saturationAtT(t).p, bubble.h + share(random) * (dry.h - bubble.h));
        ASSERT_EQ(state.error.code, 0) << state.error.text;
        EXPECT_NEAR(state.t, t, 1e-8);
        ASSERT_TRUE(state.q >= -1e-6 && state.q <= 1) << state.q;
        const Properties byS = atPS(saturationAtT(t).p, state.s);
        const Properties byTS = atTS(t, state.s);
        EXPECT_NEAR(byS.q, state.q, 1e-7);
        EXPECT_NEAR(byTS.q, state.q, 1e-7);
        EXPECT_LT(deviation(1 / state.D, (1 - state.q) / state.Dl + state.q / state.Dv), 1e-10);
    }
}

TEST_P(Consistency, OnTheLineIsVapourAndBesideItIsNot) {
    for (const double t : {230.0, 273.15, 313.15, 360.0}) {
        SCOPED_TRACE(t);
        const double p = saturationAtT(t).p;
        for (const double factor : {1.0, 1 + 5e-10, 1 - 5e-10}) {
            const Properties found = atTP(t, p * factor);
            EXPECT_EQ(found.q, 1);
            EXPECT_EQ(found.D, found.Dv);
            EXPECT_GT(found.Dl, found.Dv);
            EXPECT_NE(found.cp, undefined);
        }
        EXPECT_EQ(atTP(saturationAtP(p).t, p).q, 1);
        EXPECT_EQ(atTP(t - 1e-4, p).q, -998);
        EXPECT_EQ(atTP(t + 1e-4, p).q, 998);
        EXPECT_EQ(atTP(t, p * (1 + 1e-7)).q, -998);
        EXPECT_EQ(atTP(t, p * (1 - 1e-7)).q, 998);
    }
}

/// A caller may have made such faults of arithmetic into signals.
TEST_P(Consistency, NoSearchDividesByZeroOrOverflows) {
    const Fluid& fluid = GetParam();
    std::feclearexcept(FE_ALL_EXCEPT);
    for (double t = fluid.lowest; t <= fluid.highest; t += 3.7) {
        for (double p = 1e-6; p <= fluid.pressureMax; p *= 2.3) {
            const Properties state = atTP(t, p);
            atPH(p, state.h);
            atPS(p, state.s);
            atTS(t, state.s);
            atPH(p, -1e7);
            atPS(p, 1e5);
        }
        saturationAtT(t);
    }
    EXPECT_EQ(std::fetestexcept(FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW), 0);
}

/// The zero of each reference state, where its definition puts it.
TEST_P(Consistency, ReferenceStates) {
    const auto liquid = [](double t) { return atTP(t, saturationAtT(t).p * (1 + 2e-9)); };
    const double mass = GetParam().molarMass;
    for (const char* name : {"DEF", "IIR"}) {
        ASSERT_EQ(setReference(name).code, 0);
        EXPECT_NEAR(liquid(273.15).h, 200 * mass, 1e-3);
        EXPECT_NEAR(liquid(273.15).s, mass, 1e-6);
    }
    ASSERT_EQ(setReference("NBP", 2).code, 0);
    EXPECT_NEAR(liquid(saturationAtP(101.325).t).h, 0, 1e-3);
    ASSERT_EQ(setUp(GetParam().file, 1, "ASH").code, 0);
    EXPECT_NEAR(liquid(233.15).s, 0, 1e-6);
    EXPECT_NE(setReference("XYZ").code, 0);
    EXPECT_NE(setReference("IIR", 3).code, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Fluids, Consistency,
    testing::Values(Fluid{"Fluids\\R134A.FLD", 102.032, 169.85, 455, 374.2119666, 70000},
                    Fluid{"Fluids\\PROPANE.FLD", 44.09562, 85.525, 650, 369.8900090, 1e6}),
    [](const auto& instance) { return instance.param.molarMass > 100 ? "R134a" : "R290"; });

}  // namespace
}  // namespace marvello::test
