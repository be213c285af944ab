// The library against states from an independent implementation of the same equations, and against the check
// values printed with them (tests/fluids/data).
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "data/TextTable.h"
#include "fluids/Phase.h"
#include "fluids/Refprop.h"
#include "tests/fluids/FluidCalls.h"
#include "tests/fluids/Models.h"

namespace marvello::test {
namespace {

constexpr double narrow = 1e-10;  // relative; the tables carry 1e-11 themselves

class Reference : public testing::TestWithParam<Refrigerant> {
  protected:
    void SetUp() override {
        const Answer answer = setUp(GetParam());
        ASSERT_EQ(answer.code, 0) << answer.sentence();
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

using Row = TextTable::Row;

/// The rows of a table that have `value` in their first column.
std::vector<Row> rowsOf(const std::string& file, const std::string& column, const std::string& value) {
    static std::map<std::string, TextTable> tables;
    std::vector<Row> found;
    for (const Row& row : tables.try_emplace(file, dataFolder + file).first->second.rows()) {
        if (row.text(column) == value) found.push_back(row);
    }
    return found;
}

TEST_P(Reference, Saturation) {
    const auto rows = rowsOf("saturation.csv", "fluid", GetParam().name);
    ASSERT_GE(rows.size(), 11U);
    for (const Row& row : rows) {
        for (const std::int32_t side : {1, 2}) {
            const bool bubble = side == 1;
            const double T = row.number("T");
            const double pressure = row.number(bubble ? "bubble_p" : "dew_p");
            const double density = row.number(bubble ? "liquid_density" : "vapour_density");
            const double h = row.number(bubble ? "liquid_h" : "vapour_h");
            const double s = row.number(bubble ? "liquid_s" : "vapour_s");
            const std::string incipientPhase = bubble ? "bubble_vapour_" : "dew_liquid_";
            const double incipientDensity = row.number(incipientPhase + "density");
            Fractions incipient{};
            for (std::size_t i = 0; i < 5; ++i)
                incipient[i] = row.numberIfAny(incipientPhase + std::to_string(i + 1)).value_or(0);
            SCOPED_TRACE(testing::Message() << T << " K, side " << side);
            const Properties byT = saturationAtT(T, side);
            const Properties byP = saturationAtP(pressure, side);
            EXPECT_LT(deviation(byT.p, pressure), narrow);
            EXPECT_NEAR(byP.t, T, 1e-9);
            for (const Properties& found : {byT, byP}) {
                ASSERT_EQ(found.answer.code, 0) << found.answer.sentence();
                // Densities magnify an error of the temperature as the critical point comes near.
                EXPECT_LT(deviation(bubble ? found.Dl : found.Dv, density), 2 * narrow);
                EXPECT_LT(deviation(bubble ? found.Dv : found.Dl, incipientDensity), 2 * narrow);
                EXPECT_LT(distance(bubble ? found.x : found.y, fractionsInUse()), 1e-15);
                EXPECT_LT(distance(bubble ? found.y : found.x, incipient), narrow);
            }
            // The saturated phase as the end of a line of constant pressure.
            const Properties end = atPH(pressure, h);
            ASSERT_EQ(end.answer.code, 0) << end.answer.sentence();
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
    const auto rows = rowsOf("single_phase.csv", "fluid", GetParam().name);
    ASSERT_GE(rows.size(), 44U);
    for (const Row& row : rows) {
        const double t = row.number("T");
        const double p = row.number("p");
        SCOPED_TRACE(testing::Message() << t << " K " << p << " kPa");
        const Properties found = atTP(t, p);
        ASSERT_EQ(found.answer.code, 0) << found.answer.sentence();
        EXPECT_LT(deviation(found.D, row.number("density")), narrow);
        EXPECT_LT(deviation(found.h, row.number("h")), narrow);
        EXPECT_LT(deviation(found.s, row.number("s")), narrow);
        EXPECT_LT(deviation(found.cp, row.number("cp")), narrow);
        EXPECT_LT(deviation(found.w, row.number("w")), narrow);
        EXPECT_LT(deviation(found.e, found.h - p / found.D), 1e-12);
        expectOnePhase(found);
    }
}

TEST_P(Reference, Flash) {
    const auto rows = rowsOf("flash.csv", "fluid", GetParam().name);
    ASSERT_GE(rows.size(), 77U);
    for (const Row& row : rows) {
        const double p = row.number("p"), h = row.number("h"), s = row.number("s"), t = row.number("T");
        const std::optional<double> quality = row.numberIfAny("quality");
        SCOPED_TRACE(testing::Message() << t << " K " << p << " kPa, quality " << row.text("quality"));
        const Properties byH = atPH(p, h);
        const Properties byS = atPS(p, s);
        const Properties byTS = atTS(t, s);
        EXPECT_NEAR(byH.t, t, 1e-9);
        EXPECT_NEAR(byS.t, t, 1e-9);
        EXPECT_LT(deviation(byH.s, s), narrow);
        EXPECT_LT(deviation(byS.h, h), narrow);
        EXPECT_LT(deviation(byTS.h, h), narrow);
        for (const Properties& found : {byH, byS, byTS}) {
            ASSERT_EQ(found.answer.code, 0) << found.answer.sentence();
            EXPECT_LT(deviation(found.D, row.number("density")), 1e-10);
            if (!quality) {
                expectOnePhase(found);
            } else {
                EXPECT_NEAR(found.q, *quality, 1e-10);
                expectTwoPhases(found);
                EXPECT_NEAR(found.q * molarMass(found.y) / molarMass(fractionsInUse()),
                            row.number("mass_quality"), 1e-10);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Fluids, Reference, testing::ValuesIn(refrigerants()), testName);

TEST(Published, CheckValues) {
    const TextTable table(std::string(dataFolder) + "check_values.csv");
    ASSERT_EQ(table.rows().size(), 27U);
    for (const Row& row : table.rows()) {
        const std::string& property = row.text("property");
        SCOPED_TRACE(row.text("file_1") + ' ' + row.text("file_2") + ' ' + property + ' ' +
                     row.text("source"));
        std::vector<std::string> files{row.text("file_1")};
        std::vector<double> x{row.number("fraction_1")};
        if (!row.text("file_2").empty()) {
            files.push_back(row.text("file_2"));
            x.push_back(row.number("fraction_2"));
        }
        const fluids::Mixture mixture = mixtureOf(files);
        const double temperature = row.number("T");
        const double density = row.number("density");
        const fluids::PhaseState state = fluids::Phase(mixture, x).at(temperature).state(density);
        const fluids::FluidPoint reducing = mixture.reducing(x);
        const std::map<std::string, double> found{
            {"p", state.pressure},
            {"cv", state.cv},
            {"cp", state.cp},
            {"w", state.soundSpeed},
            {"alphar",
             mixture.residualAt(x).at(reducing.temperature / temperature, density / reducing.density).value}};
        EXPECT_LT(deviation(found.at(property), row.number("value")), row.number("tolerance"));
    }
}

}  // namespace
}  // namespace marvello::test
