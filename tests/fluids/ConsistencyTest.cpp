// What thermodynamics itself demands of the properties, over the whole range and near its edges.
#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <numbers>

#include "fluids/Refprop.h"
#include "tests/fluids/FluidCalls.h"
#include "tests/fluids/Models.h"

namespace marvello::test {
namespace {

class Consistency : public testing::TestWithParam<Refrigerant> {
  protected:
    void SetUp() override {
        const Answer answer = setUp(GetParam());
        ASSERT_EQ(answer.code, 0) << answer.sentence();
    }
    const Model& model = modelOf(GetParam());
};

/// Also next to the critical point, where random states are held to less.
TEST_P(Consistency, QualitiesFromEnthalpyAndEntropyAgree) {
    for (double t = model.lowest + 1e-9; t < model.critical().temperature - 0.01;
         t += 0.1 * (model.critical().temperature + 1 - t)) {
        const double p = saturationAtT(t, 2).p;
        const Properties bubble = saturationAtP(p, 1);
        if (bubble.answer.code != 0) continue;  // the blend's bubble point is colder than its range
        const Properties dew = atTP(t, p);
        const double span = enthalpyAt(model, t, dew.Dv) - enthalpyAt(model, bubble.t, bubble.Dl);
        for (const double part : {1e-5, 0.3, 0.9, 1 - 1e-5}) {
            SCOPED_TRACE(testing::Message() << t << " K, part " << part);
            const Properties byH = atPH(p, dew.h - (1 - part) * span);
            const Properties byS = atPS(p, byH.s);
            EXPECT_NEAR(byS.q, byH.q, 1e-8);
            const Properties byTS = atTS(byH.t, byH.s);
            EXPECT_LT(deviation(byTS.p, p), 1e-8);
        }
    }
}

/// There both phases become one: the matrix of d ln f_i / d rho_j, scaled to the unit matrix for ideal gas,
/// loses its positive determinant.
TEST_P(Consistency, PhasesMeetAtTheCriticalPoint) {
    const fluids::FluidPoint& critical = model.critical();
    const auto determinant = [&](double t, double density, const Fractions& x) {
        const fluids::FugacityState state = phaseAt(model, t, density, x);
        fluids::PerPair lower{};
        double product = 1;
        for (std::size_t i = 0; i < model.z.size(); ++i) {
            for (std::size_t j = 0; j <= i; ++j) {
                double rest = state.potentialByAmount[i][j] * density * std::sqrt(x[i] * x[j]);
                for (std::size_t k = 0; k < j; ++k) rest -= lower[i][k] * lower[j][k];
                if (i == j) product *= rest;
                lower[i][j] = i == j ? std::sqrt(std::abs(rest)) : rest / lower[j][j];
            }
        }
        return product;
    };
    EXPECT_NEAR(determinant(critical.temperature, critical.density, fractionsInUse()), 0, 1e-6);
    const Properties near = saturationAtT(critical.temperature - 1, 1);
    EXPECT_GT(determinant(critical.temperature - 1, near.Dl, near.x), 1e-4);
    // Towards it the gap between the densities closes: for a pure fluid about as the square root of the
    // distance, for a blend that has its highest temperature elsewhere about as the distance itself.
    const auto gap = [&](double distance) {
        const Properties line = saturationAtT(critical.temperature - distance, 1);
        EXPECT_EQ(line.answer.code, 0) << line.answer.sentence();
        return std::log(line.Dl / line.Dv);
    };
    const double closing = gap(0.0025) / gap(0.01);
    EXPECT_GT(closing, 0.24);
    EXPECT_LT(closing, 0.7);
    EXPECT_NE(saturationAtT(model.fluid.boundary().temperatureMax() + 0.001, 1).answer.code, 0);
    EXPECT_NE(saturationAtP(model.fluid.boundary().pressureMax() * 1.0001, 2).answer.code, 0);
}

/// Around the critical point of a blend an isotherm may enter and leave the dome at dew points alone, and an
/// isobar at bubble points: there is an answer to every question, whether a saturation pressure is there or
/// not.
TEST_P(Consistency, AroundTheCriticalPoint) {
    constexpr int angles = 24;
    for (const double distance : {1e-2, 1e-3, 1e-4, 1e-5, 1e-6, 1e-7}) {
        const double loss = distance < 1e-4 ? 1e5 : 1;  // of rounding
        for (int k = 0; k < angles; ++k) {
            const double angle = 2 * std::numbers::pi * k / angles;
            // Next to the saturation line p changes about seven times as fast as T.
            const double t = model.critical().temperature * (1 + distance * std::cos(angle));
            const double p = model.critical().pressure * (1 + 5 * distance * std::sin(angle));
            SCOPED_TRACE(testing::Message() << t << " K " << p << " kPa");
            const Properties state = atTP(t, p);
            ASSERT_EQ(state.answer.code, 0) << state.answer.sentence();
            // Nearest to the critical point a state may be interpolated.
            if (state.q >= 0 && state.q < 1) {
                ASSERT_GT(state.Dl, state.Dv);
                EXPECT_LT(imbalance(model, t, p, state), distance < 1e-4 ? 1e-6 : 1e-9);
            }
            for (const Properties& found : {atPH(p, state.h), atPS(p, state.s)}) {
                ASSERT_EQ(found.answer.code, 0) << found.answer.sentence();
                EXPECT_NEAR(found.t, t, loss * 1e-8);
            }
            const Properties byTS = atTS(t, state.s);
            ASSERT_EQ(byTS.answer.code, 0) << byTS.answer.sentence();
            EXPECT_LT(deviation(byTS.p, p), loss * 1e-9);
        }
    }
}

/// The derivatives that the library reports against central differences of its own states.
TEST_P(Consistency, DerivativesAgreeWithDifferences) {
    for (const double t : {250.0, 300.0, 350.0, 372.0, 400.0, 440.0}) {
        for (const double p : {1.0, 100.0, 900.0, 3500.0, 6000.0, 14000.0, 50000.0}) {
            if (p > 0.99 * model.pressureMax) continue;
            SCOPED_TRACE(testing::Message() << t << " K " << p << " kPa");
            const Properties here = atTP(t, p);
            ASSERT_EQ(here.answer.code, 0) << here.answer.sentence();
            const double dt = 1e-3;
            const double dp = 1e-5 * p;
            const Properties warm = atTP(t + dt, p);
            const Properties cold = atTP(t - dt, p);
            const Properties up = atTP(t, p + dp);
            const Properties down = atTP(t, p - dp);
            const auto isAlike = [&](const Properties& other) {
                return std::abs(other.q) > 1 && other.q == here.q;
            };
            if (!(isAlike(warm) && isAlike(cold) && isAlike(up) && isAlike(down))) continue;
            const double cp = (warm.h - cold.h) / (2 * dt);
            const double expansion = (1 / warm.D - 1 / cold.D) / (2 * dt);
            const double compression = (1 / up.D - 1 / down.D) / (2 * dp);
            EXPECT_LT(deviation(here.cp, cp), 1e-5);
            EXPECT_LT(deviation((warm.s - cold.s) / (2 * dt), cp / t), 1e-5);
            EXPECT_LT(deviation((up.s - down.s) / (2 * dp), -expansion), 1e-4);
            EXPECT_LT(deviation(here.cp - here.cv, -t * expansion * expansion / compression), 1e-4);
            const double rise = (atPS(p + dp, here.s).D - atPS(p - dp, here.s).D) / (2 * dp);
            EXPECT_LT(deviation(here.w * here.w, 1000 / (rise * model.molarMass())), 1e-4);
        }
    }
}

/// Saturated vapour within 1e-9 of the dew pressure, and the true phase 0.0001 K next to it.
TEST_P(Consistency, OnTheLineIsVapourAndBesideItIsNot) {
    for (const double t : {230.0, 273.15, 313.15, 338.0}) {
        if (t > model.critical().temperature - 0.5) continue;
        SCOPED_TRACE(t);
        const Properties dew = saturationAtT(t, 2);
        const double p = dew.p;
        // The true phase at a temperature and a pressure, by the pressures of the lines alone.
        const auto expectTrue = [](double t1, double p1) {
            const double q = atTP(t1, p1).q;
            if (p1 > saturationAtT(t1, 1).p) {
                EXPECT_EQ(q, -998);
            } else if (p1 < saturationAtT(t1, 2).p) {
                EXPECT_EQ(q, 998);
            } else {
                EXPECT_TRUE(q > 0 && q < 1) << q;
            }
        };
        for (const double factor : {1.0, 1 + 5e-10, 1 - 5e-10}) {
            const Properties found = atTP(t, p * factor);
            EXPECT_EQ(found.q, 1);
            EXPECT_EQ(found.D, dew.Dv);
            EXPECT_EQ(found.Dv, dew.Dv);
            EXPECT_EQ(found.Dl, dew.Dl);
            EXPECT_LT(distance(found.x, dew.x) + distance(found.y, dew.y), 1e-14);
            EXPECT_NE(found.cp, undefined);
        }
        EXPECT_EQ(atTP(saturationAtP(p, 2).t, p).q, 1);
        const double bubble = saturationAtT(t, 1).p;
        for (const double line : {p, bubble}) {
            expectTrue(t - 1e-4, line);
            expectTrue(t + 1e-4, line);
            expectTrue(t, line * (1 - 1e-7));
            expectTrue(t, line * (1 + 1e-7));
        }
    }
}

/// A caller may have made such faults of arithmetic into signals.
TEST_P(Consistency, NoSearchDividesByZeroOrOverflows) {
    const bool blend = GetParam().isBlend();
    std::feclearexcept(FE_ALL_EXCEPT);
    for (double t = model.lowest; t <= model.highest; t += blend ? 15.7 : 5.7) {
        for (double p = 1e-6; p <= model.pressureMax; p *= blend ? 4.3 : 2.7) {
            const Properties state = atTP(t, p);
            atPH(p, state.h);
            atPS(p, state.s);
            atTS(t, state.s);
            atPH(p, -1e7);
            atPS(p, 1e5);
        }
        saturationAtT(t, 1);
    }
    EXPECT_EQ(std::fetestexcept(FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW), 0);
}

/// The zero of each reference state, where its definition puts it: of a blend, its own bubble liquid.
TEST_P(Consistency, ReferenceStates) {
    // A touch of pressure keeps the state liquid; ln p of 2e-9 is less than 1e-5 J/mol.
    const auto liquid = [](double t) { return atTP(t, saturationAtT(t, 1).p * (1 + 2e-9)); };
    const double mass = model.molarMass();
    const std::int32_t flag = GetParam().isBlend() ? 2 : 1;
    for (const char* name : {"DEF", "IIR"}) {
        ASSERT_EQ(setReference(name, flag).code, 0);
        EXPECT_NEAR(liquid(273.15).h, 200 * mass, 1e-3);
        EXPECT_NEAR(liquid(273.15).s, mass, 1e-5);
    }
    ASSERT_EQ(setReference("ASH", flag).code, 0);
    EXPECT_NEAR(liquid(233.15).h, 0, 1e-3);
    EXPECT_NEAR(liquid(233.15).s, 0, 1e-5);
    const Answer atBoiling = setReference("NBP", 2);
    const bool boils = saturationAtP(101.325, 1).answer.code == 0;
    EXPECT_EQ(atBoiling.code == 0, boils) << atBoiling.sentence();
    if (boils) {
        EXPECT_NEAR(liquid(saturationAtP(101.325, 1).t).h, 0, 1e-3);
        EXPECT_NEAR(liquid(saturationAtP(101.325, 1).t).s, 0, 1e-5);
    }
    EXPECT_NE(setReference("XYZ", flag).code, 0);
    EXPECT_NE(setReference("IIR", 3).code, 0);
}

INSTANTIATE_TEST_SUITE_P(Fluids, Consistency, testing::ValuesIn(refrigerants()), testName);

}  // namespace
}  // namespace marvello::test
