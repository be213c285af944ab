#include "inputs/CoupledFields.h"

#include <gtest/gtest.h>

#include "tests/support/SmallCatalogue.h"

using namespace marvello;

namespace {

class CoupledFieldsTest : public ::testing::Test {
  protected:
    void sync(const char* leader) {
        SyncTemperatureFields(leader, fields, "R134A", GetRefprop("R134A"), midEvaporating, midCondensing);
    }

    marvello::testing::SmallCatalogue catalogue;
    CoupledFields fields{.TED = 2, .TCD = 40, .SC = 5};
    clsPolynomial midEvaporating;
    clsPolynomial midCondensing;
};

}  // namespace

// Saturation of R134a by Tillner-Roth and Baehr, J. Phys. Chem. Ref. Data 23 (1994) 657: 3.1462 bar at 2
// degrees Celsius, 10.166 bar at 40, 2.0060 bar at -10.
TEST_F(CoupledFieldsTest, DewTemperaturesGivePressuresAndMidTemperatures) {
    sync("TED");
    EXPECT_NEAR(fields.PE, 3.146, 0.003);
    EXPECT_NEAR(fields.TEM, (2 + 2 - 5) / 2.0, 1e-6);  // no glide: the bubble point is the dew point
    sync("tcd");
    EXPECT_NEAR(fields.PC, 10.166, 0.005);
    EXPECT_NEAR(fields.TCM, 40, 1e-6);
}

TEST_F(CoupledFieldsTest, MidTemperaturesGoThroughTheirPolynomials) {
    // In the mid temperature alone, the terms of the second temperature left out: 1 + 0.5*20 + 0.01*400 +
    // 0.001*8000.
    midCondensing.c = {1, 0.5, 7, 0.01, 7, 7, 0.001, 7, 7, 7};
    fields.TCM = 20;
    sync("tcm");
    EXPECT_NEAR(fields.TCD, 1 + 10 + 4 + 8, 1e-9);
    // Constant and linear in the mid temperature: 3 + 2 * (-4) = -5.
    midEvaporating.c = {3, 2};
    fields.TEM = -4;
    sync("tem");
    EXPECT_NEAR(fields.TED, -5, 1e-9);
    EXPECT_NEAR(fields.PE, GetRefprop("R134A").Pressure(-5, 2), 1e-9);
}
