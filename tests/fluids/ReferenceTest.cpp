// The library against states from an independent implementation of the same equations, and against the check
// values printed with them (tests/fluids/data).
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "fluids/FluidFile.h"
#include "fluids/MixtureFile.h"
#include "fluids/Phase.h"
#include "fluids/Refprop.h"
#include "tests/fluids/FluidCalls.h"

namespace marvello::test {
namespace {

constexpr double narrow = 1e-10;  // relative; the tables carry 1e-11 themselves

class Reference : public testing::TestWithParam<Refrigerant> {
  protected:
    void SetUp() override {
        const Answer answer = setUp(GetParam());
        ASSERT_EQ(answer.code, 0) << answer.text;
    }

    /// One phase: its compositions are the overall one.
    static void expectOnePhase(const Properties& found) {
        EXPECT_TRUE(found.q == -998 || found.q == 998 || found.q == 999) << found.q;
        EXPECT_EQ(found.Dl, found.D);
        EXPECT_EQ(found.Dv, found.D);
        EXPECT_LT(distance(found.x, fractionsInUse()), 1e-15);
        EXPECT_LT(distance(found.y, fractionsInUse()), 1e-15);
    }
    /// Two phases: both together are the whole.
    static void expectTwoPhases(const Properties& found) {
        const Fractions& z = fractionsInUse();
        for (std::size_t i = 0; i < z.size(); ++i)
            EXPECT_NEAR((1 - found.q) * found.x[i] + found.q * found.y[i], z[i], 1e-13);
        EXPECT_LT(deviation(1 / found.D, (1 - found.q) / found.Dl + found.q / found.Dv), 1e-12);
        EXPECT_NEAR(found.e, found.h - found.p / found.D, 1e-9);
        for (const double none : {found.cv, found.cp, found.w}) EXPECT_EQ(none, undefined);
    }
};

double molarMass(const Fractions& x) {
    double mass = 0;
    WMOLdll(x.data(), &mass);
    return mass;
}

/// Mole fractions in five columns; those that are not there are empty.
Fractions fractionsAt(const std::vector<double>& row, std::size_t column) {
    Fractions found{};
    for (std::size_t i = 0; i < 5 && column + i < row.size(); ++i) {
        if (!std::isnan(row[column + i])) found[i] = row[column + i];
    }
    return found;
}

TEST_P(Reference, Saturation) {
    const auto rows = readRows("saturation.csv", GetParam().name);
    ASSERT_GE(rows.size(), 11U);
    for (const auto& row : rows) {
        for (const std::int32_t side : {1, 2}) {
            // The columns of the bubble or the dew point, the incipient phase's behind those of the
            // saturated.
            const bool bubble = side == 1;
            const double T = row[0], pressure = row[bubble ? 1 : 2], density = row[bubble ? 3 : 4];
            const double h = row[bubble ? 5 : 7], s = row[bubble ? 6 : 8];
            const double incipientDensity = row[bubble ? 9 : 10];
            const Fractions incipient = fractionsAt(row, bubble ? 11 : 16);
            SCOPED_TRACE(testing::Message() << T << " K, side " << side);
            const Properties byT = saturationAtT(T, side);
            const Properties byP = saturationAtP(pressure, side);
            EXPECT_LT(deviation(byT.p, pressure), narrow);
            EXPECT_NEAR(byP.t, T, 1e-9);
            for (const Properties& found : {byT, byP}) {
                ASSERT_EQ(found.error.code, 0) << found.error.text;
                // Densities magnify an error of the temperature as the critical point comes near.
                EXPECT_LT(deviation(bubble ? found.Dl : found.Dv, density), 2 * narrow);
                EXPECT_LT(deviation(bubble ? found.Dv : found.Dl, incipientDensity), 2 * narrow);
                EXPECT_LT(distance(bubble ? found.x : found.y, fractionsInUse()), 1e-15);
                EXPECT_LT(distance(bubble ? found.y : found.x, incipient), narrow);
            }
            // The saturated phase as the end of a line of constant pressure.
            const Properties end = atPH(pressure, h);
            ASSERT_EQ(end.error.code, 0) << end.error.text;
            EXPECT_NEAR(end.t, T, 1e-9);
            EXPECT_LT(deviation(end.s, s), narrow);
            if (bubble) continue;
            const Properties dew = atTP(T, byT.p);
            EXPECT_EQ(dew.q, 1);
            EXPECT_LT(deviation(dew.h, h), narrow);
            EXPECT_LT(deviation(dew.s, s), narrow);
        }
    }
}

TEST_P(Reference, SinglePhase) {
    const auto rows = readRows("single_phase.csv", GetParam().name);
    ASSERT_GE(rows.size(), 44U);
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row[0] << " K " << row[1] << " kPa");
        const Properties found = atTP(row[0], row[1]);
        ASSERT_EQ(found.error.code, 0) << found.error.text;
        EXPECT_LT(deviation(found.D, row[2]), narrow);
        EXPECT_LT(deviation(found.h, row[3]), narrow);
        EXPECT_LT(deviation(found.s, row[4]), narrow);
        EXPECT_LT(deviation(found.cp, row[5]), narrow);
        EXPECT_LT(deviation(found.w, row[6]), narrow);
        EXPECT_LT(deviation(found.e, found.h - row[1] / found.D), 1e-12);
        expectOnePhase(found);
    }
}

TEST_P(Reference, Flash) {
    const auto rows = readRows("flash.csv", GetParam().name);
    ASSERT_GE(rows.size(), 77U);
    for (const auto& row : rows) {
        const auto [p, h, s, t, quality, density] =
            std::tuple(row[0], row[1], row[2], row[3], row[4], row[5]);
        SCOPED_TRACE(testing::Message() << t << " K " << p << " kPa, quality " << quality);
        const Properties byH = atPH(p, h);
        const Properties byS = atPS(p, s);
        const Properties byTS = atTS(t, s);
        EXPECT_NEAR(byH.t, t, 1e-9);
        EXPECT_NEAR(byS.t, t, 1e-9);
        EXPECT_LT(deviation(byH.s, s), narrow);
        EXPECT_LT(deviation(byS.h, h), narrow);
        EXPECT_LT(deviation(byTS.h, h), narrow);
        for (const Properties& found : {byH, byS, byTS}) {
            ASSERT_EQ(found.error.code, 0) << found.error.text;
            EXPECT_LT(deviation(found.D, density), 1e-10);
            if (std::isnan(quality)) {
                expectOnePhase(found);
            } else {
                EXPECT_NEAR(found.q, quality, 1e-10);
                expectTwoPhases(found);
                EXPECT_NEAR(found.q * molarMass(found.y) / molarMass(fractionsInUse()), row[6], 1e-10);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Fluids, Reference, testing::ValuesIn(refrigerants()), testName);

TEST(Published, CheckValues) {
    const std::string folder = std::string(MARVELLO_SOURCE_FOLDER) + "/fluids/files/";
    std::size_t count = 0;
    for (const Refrigerant& fluid : refrigerants()) {
        if (fluid.isBlend()) continue;
        for (const auto& row : readFields("check_values.csv", fluid.files.front())) {
            ++count;
            SCOPED_TRACE(testing::Message() << fluid.name << ' ' << row[0] << ' ' << row[5] << ' ' << row[8]);
            std::vector<fluids::PureFluid> components{fluids::readFluidFile(folder + fluid.files.front())};
            std::vector<double> x{numberOf(row[1])};
            fluids::MixtureModel model{components.front().gasConstant, {}};
            if (!row[0].empty()) {
                components.push_back(fluids::readFluidFile(folder + row[0]));
                x.push_back(numberOf(row[2]));
                model = fluids::readMixtureFile(folder + "hmx.bnc", {components[0].name, components[1].name});
            }
            const fluids::Mixture mixture(std::move(components), std::move(model.pairs), model.gasConstant);
            const double temperature = numberOf(row[3]);
            const double density = numberOf(row[4]);
            fluids::Phase phase(mixture, x);
            phase.setTemperature(temperature);
            const fluids::PhaseState state = phase.state(density);
            const fluids::FluidPoint reducing = mixture.reducing(x);
            const std::string& property = row[5];
            double found = 0;
            if (property == "p") found = state.pressure;
            if (property == "cv") found = state.cv;
            if (property == "cp") found = state.cp;
            if (property == "w") found = state.soundSpeed;
            if (property == "alphar") {
                found = mixture.residualAt(x)
                            .at(reducing.temperature / temperature, density / reducing.density)
                            .value;
            }
            EXPECT_LT(deviation(found, numberOf(row[6])), numberOf(row[7]));
        }
    }
    EXPECT_EQ(count, 27U);
}

}  // namespace
}  // namespace marvello::test
