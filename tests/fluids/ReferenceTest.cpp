// The library against states from an independent implementation of the same equations (tests/fluids/data).
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

#include "tests/fluids/FluidCalls.h"

namespace marvello::test {
namespace {

struct Fluid {
    const char* name;
    const char* file;
    std::size_t saturationRows;
    std::size_t singleRows;
    std::size_t flashRows;
};

void PrintTo(const Fluid& fluid, std::ostream* stream) { *stream << fluid.file; }

class Reference : public testing::TestWithParam<Fluid> {
  protected:
    void SetUp() override {
        const Answer answer = setUp(GetParam().file);
        ASSERT_EQ(answer.code, 0) << answer.text;
    }
};

// Reference figures carry about 1e-11 (single phase) and 1e-9 (saturation) themselves.
constexpr double narrow = 1e-10;
constexpr double atSaturation = 1e-9;

/// What a row of saturation.csv tells of liquid at the bubble point and vapour at the dew point.
struct SaturationRow {
    explicit SaturationRow(const std::vector<double>& row)
        : T(row[0]),
          bubblePressure(row[1]),
          dewPressure(row[2]),
          liquidDensity(row[3]),
          vapourDensity(row[4]),
          liquidH(row[5]),
          liquidS(row[6]),
          vapourH(row[7]),
          vapourS(row[8]) {}

    double T, bubblePressure, dewPressure, liquidDensity, vapourDensity;
    double liquidH, liquidS, vapourH, vapourS;
};

TEST_P(Reference, Saturation) {
    const auto rows = readRows("saturation.csv", GetParam().name);
    ASSERT_EQ(rows.size(), GetParam().saturationRows);
    for (const auto& numbers : rows) {
        const SaturationRow row(numbers);
        SCOPED_TRACE(row.T);
        for (const std::int32_t side : {1, 2}) {
            const double pressure = side == 1 ? row.bubblePressure : row.dewPressure;
            const Properties byT = saturationAtT(row.T, side);
            ASSERT_EQ(byT.error.code, 0) << byT.error.text;
            EXPECT_LT(deviation(byT.p, pressure), atSaturation);
            EXPECT_LT(deviation(byT.Dl, row.liquidDensity), atSaturation);
            EXPECT_LT(deviation(byT.Dv, row.vapourDensity), atSaturation);
            EXPECT_EQ(byT.x[0] + byT.y[0], 2);
            const Properties byP = saturationAtP(pressure, side);
            EXPECT_NEAR(byP.t, row.T, 1e-7);
            EXPECT_LT(deviation(byP.Dl, row.liquidDensity), atSaturation);
            EXPECT_LT(deviation(byP.Dv, row.vapourDensity), atSaturation);
        }
        // Enthalpy and entropy of both ends of the two-phase region, by ways that know nothing of each other.
        const Properties vapour = atTP(row.T, row.dewPressure);
        EXPECT_LT(deviation(vapour.h, row.vapourH), atSaturation);
        EXPECT_LT(deviation(vapour.s, row.vapourS), atSaturation);
        const Properties middle = atPH(row.dewPressure, (row.liquidH + row.vapourH) / 2);
        EXPECT_NEAR(middle.q, 0.5, 1e-8);
        EXPECT_LT(deviation(middle.s, (row.liquidS + row.vapourS) / 2), atSaturation);
        EXPECT_LT(deviation(1 / middle.D, (1 / row.liquidDensity + 1 / row.vapourDensity) / 2), atSaturation);
    }
}

TEST_P(Reference, SinglePhase) {
    const auto rows = readRows("single_phase.csv", GetParam().name);
    ASSERT_EQ(rows.size(), GetParam().singleRows);
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row[0] << " K " << row[1] << " kPa");
        const Properties found = atTP(row[0], row[1]);
        ASSERT_EQ(found.error.code, 0) << found.error.text;
        EXPECT_LT(deviation(found.D, row[2]), narrow);
        EXPECT_LT(deviation(found.h, row[3]), narrow);
        EXPECT_LT(deviation(found.s, row[4]), narrow);
        EXPECT_LT(deviation(found.cp, row[5]), narrow);
        EXPECT_LT(deviation(found.w, row[6]), narrow);
        EXPECT_EQ(found.Dl, found.D);
        EXPECT_EQ(found.Dv, found.D);
        EXPECT_LT(deviation(found.e, found.h - row[1] / found.D), 1e-12);
    }
}

TEST_P(Reference, Flash) {
    const auto rows = readRows("flash.csv", GetParam().name);
    ASSERT_EQ(rows.size(), GetParam().flashRows);
    for (const auto& row : rows) {
        const double p = row[0];
        const double h = row[1];
        const double s = row[2];
        const double t = row[3];
        SCOPED_TRACE(testing::Message() << t << " K " << p << " kPa");
        const Properties byH = atPH(p, h);
        const Properties byS = atPS(p, s);
        const Properties byTS = atTS(t, s);
        EXPECT_NEAR(byH.t, t, 1e-7);
        EXPECT_NEAR(byS.t, t, 1e-7);
        EXPECT_LT(deviation(byH.s, s), atSaturation);
        EXPECT_LT(deviation(byS.h, h), atSaturation);
        EXPECT_LT(deviation(byTS.h, h), atSaturation);
        for (const Properties& found : {byH, byS, byTS}) {
            EXPECT_EQ(found.error.code, 0) << found.error.text;
            EXPECT_LT(deviation(found.D, row[5]), 1e-8);
            if (std::isnan(row[4])) {
                EXPECT_TRUE(found.q == -998 || found.q >= 998) << found.q;
            } else {
                EXPECT_NEAR(found.q, row[4], 1e-8);
                EXPECT_EQ(found.cp, undefined);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Fluids, Reference,
                         testing::Values(Fluid{"R134a", "Fluids\\R134A.FLD", 19, 46, 79},
                                         Fluid{"R290", "Fluids\\PROPANE.FLD", 18, 46, 79}),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace marvello::test
