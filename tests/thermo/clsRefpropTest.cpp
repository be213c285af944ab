#include "thermo/clsRefprop.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "data/Session.h"
#include "tests/support/SmallCatalogue.h"

namespace marvello {
namespace {

class clsRefpropTest : public ::testing::Test {
  protected:
    testing::SmallCatalogue catalogue;
};

// Saturation at 2 degC, and states around it, from an evaluation of the equation of Tillner-Roth and Baehr
// (1994) by another program; h = 200 kJ/kg for saturated liquid at 0 degC.
constexpr double pressureAt2 = 3.1461943754717896;
constexpr double enthalpyAt12 = 408.7609219802552;
constexpr double densityAt12 = 14.709821637630064;

TEST_F(clsRefpropTest, StatesInApplicationUnits) {
    clsRefprop& refprop = GetRefprop("R134A");
    EXPECT_TRUE(refprop.SetupFault().empty());
    EXPECT_NEAR(refprop.Convert.wm, 102.032, 1e-9);
    EXPECT_NEAR(refprop.Pressure(2, 2), pressureAt2, 1e-8 * pressureAt2);
    EXPECT_NEAR(refprop.Temperature(pressureAt2, 1, 2, 0, -1), 2, 1e-7);
    EXPECT_NEAR(refprop.Enthalpy(12, 0, pressureAt2, 1), enthalpyAt12, 1e-6);
    EXPECT_EQ(refprop.Enthalpy(pressureAt2, 1, 12, 0), refprop.Enthalpy(12, 0, pressureAt2, 1));
    EXPECT_NEAR(refprop.Density(12, 0, 2, pressureAt2, 1), densityAt12, 1e-7);
    EXPECT_NEAR(refprop.Temperature(enthalpyAt12, 3, 2, pressureAt2, 1), 12, 1e-6);
    const double s = refprop.Entropy(12, 0, pressureAt2, 1);
    EXPECT_NEAR(refprop.Temperature(pressureAt2, 1, 2, s, 4), 12, 1e-6);
    EXPECT_NEAR(refprop.Enthalpy(pressureAt2, 1, s, 4), enthalpyAt12, 1e-6);
    EXPECT_NEAR(refprop.Enthalpy(12, 0, s, 4), enthalpyAt12, 1e-5);
    EXPECT_NEAR(refprop.Entropy(pressureAt2, 1, enthalpyAt12, 3), s, 1e-8);
    EXPECT_TRUE(catalogue.boxes.empty());
}

// Triple point and critical point as the equations are published: Tillner-Roth and Baehr (1994), Lemmon,
// McLinden and Wagner (2009). The blend has its ends where its own dew line has them.
TEST_F(clsRefpropTest, TheRangeOfSaturationIsThatOfTheEquations) {
    const SaturationRange r134a = saturationRange("r134a");
    EXPECT_NEAR(r134a.minimum, 169.85 - 273.15, 0.02);
    EXPECT_NEAR(r134a.maximum, 374.18 - 273.15, 0.05);
    const SaturationRange propane = saturationRange("R290");
    EXPECT_NEAR(propane.minimum, 85.525 - 273.15, 0.02);
    EXPECT_NEAR(propane.maximum, 369.89 - 273.15, 0.05);

    catalogue.blendR407C();
    const SaturationRange blend = saturationRange("R407C");
    for (const double end : {blend.minimum, blend.maximum}) {
        EXPECT_GT(GetRefprop("R407C").Pressure(end, saturation::dew), 0);
        EXPECT_TRUE(catalogue.boxes.empty());
        GetRefprop("R407C").Pressure(end + (end < 0 ? -0.02 : 0.02), saturation::dew);
        EXPECT_EQ(catalogue.boxes, std::vector<std::string>{"Undefined"});
        catalogue.boxes.clear();
    }
    // Looking for the range leaves no trace in what comes later.
    const double before = GetRefprop("R407C").Pressure(0, saturation::dew);
    const auto calls = GetRefprop("R407C").libraryCalls();
    saturationRange("R407C");
    EXPECT_EQ(GetRefprop("R407C").Pressure(0, saturation::dew), before);
    EXPECT_EQ(GetRefprop("R407C").libraryCalls(), calls);
}

TEST(JudgeTemperatures, NamesTheFirstFault) {
    const SaturationRange range{-100, 100};
    using enum TemperatureFault;
    EXPECT_EQ(judgeTemperatures(range, 2, 40), none);
    EXPECT_EQ(judgeTemperatures(range, 40, 40), none);
    EXPECT_EQ(judgeTemperatures(range, 41, 40), evaporatingAboveCondensing);
    EXPECT_EQ(judgeTemperatures(range, -101, 40), evaporatingOutside);
    EXPECT_EQ(judgeTemperatures(range, 2, 101), condensingOutside);
    EXPECT_EQ(judgeTemperatures(range, std::nan(""), 40), evaporatingOutside);
}

TEST_F(clsRefpropTest, DensityOfAPressureAloneIsTheVapours) {
    clsRefprop& refprop = GetRefprop("R134A");
    const double vapour = refprop.Density(pressureAt2, 1, 2);
    EXPECT_NEAR(vapour, 15.5, 0.2);  // saturated vapour at 2 degC; the liquid is near 1288 kg/m^3
    EXPECT_EQ(refprop.Density(pressureAt2, 1, 1), vapour);
    // A temperature alone goes in as a pressure: 275.15 K becomes 275.15 kPa.
    EXPECT_NEAR(refprop.Density(2, 0, 2), refprop.Density(2.7515, 1, 2), 1e-9);
}

TEST_F(clsRefpropTest, UnknownCallsSayAndStayStale) {
    clsRefprop& refprop = GetRefprop("R134A");
    const double before = refprop.Temperature(pressureAt2, 1, 2, 0, -1);
    EXPECT_EQ(refprop.Temperature(2, 0, 2, 3, 1), before);
    EXPECT_EQ(refprop.Density(3, 1, 2, 4.0, -1), 0);
    EXPECT_EQ(catalogue.boxes, (std::vector<std::string>{
                                   "Aggiungere funzione",
                                   "Il parametro vValue2 non è conforme alle specifiche della funzione"}));
}

TEST_F(clsRefpropTest, AStateIsAskedOfTheLibraryOnce) {
    clsRefprop& refprop = GetRefprop("R134A");
    const long long before = refprop.libraryCalls();
    const double first = refprop.Pressure(2, 2);
    refprop.Pressure(3, 2);
    EXPECT_EQ(refprop.Pressure(2, 2), first);
    EXPECT_EQ(refprop.libraryCalls(), before + 2);
}

TEST_F(clsRefpropTest, OneSharedServiceBoundToARefrigerant) {
    clsRefprop* first = &GetRefprop("R134A");
    const long long statements = gDatabase().executedStatements();
    EXPECT_EQ(&GetRefprop("r134a"), first);
    EXPECT_EQ(gDatabase().executedStatements(), statements);
    const double r134a = first->Pressure(2, 2);
    // Propane at 0 degC: 4.744 bar, Lemmon, McLinden and Wagner (2009).
    EXPECT_NEAR(GetRefprop("R290").Pressure(0, 2), 4.744, 0.002);
    EXPECT_EQ(GetRefprop("R134A").Pressure(2, 2), r134a);
}

TEST_F(clsRefpropTest, AnotherSessionHasTheLibraryForItsTime) {
    GetRefprop("R134A");
    {
        const testing::SmallCatalogue other;
        EXPECT_NEAR(GetRefprop("R290").Pressure(0, 2), 4.744, 0.002);
    }
    EXPECT_NEAR(GetRefprop("R134A").Pressure(2, 2), pressureAt2, 1e-7);
}

// R407C with 23, 25 and 52 % of the mass: bubble and dew states at 30 degC and a two-phase state, from an
// evaluation of the mixture model of Lemmon and Jacobsen (2004) by another program.
TEST_F(clsRefpropTest, ABlendIsTheMixtureOfItsComponents) {
    catalogue.exec(
        "insert into tRefrigeranti values('R407C');"
        "insert into tFluidi "
        "values('R407C','R32.FLD',0.23),('R407C','R125.FLD',0.25),('R407C','R134A.FLD',0.52)");
    clsRefprop& refprop = GetRefprop("R407C");
    EXPECT_EQ(refprop.SetupFault(), "");
    // Of 100 g: 23/52.024 + 25/120.0214 + 52/102.032 = 1.16004 mol. The mean by mass would be 95.0 g/mol.
    EXPECT_NEAR(refprop.Convert.wm, 100 / 1.16004, 0.001);
    const double molarMass = refprop.Convert.wm;
    const double bubble = 13.591126629366915;
    const double dew = 11.758954979018085;
    EXPECT_NEAR(refprop.Pressure(30, 1), bubble, 1e-8);
    EXPECT_NEAR(refprop.Pressure(30, 2), dew, 1e-8);
    EXPECT_NEAR(refprop.Temperature(bubble, 1, 1, 0, -1), 30, 1e-7);
    EXPECT_NEAR(refprop.Temperature(dew, 1, 2, 0, -1), 30, 1e-7);
    // The glide, at the dew pressure of 0 degC: by ln p between the bubble points at -10 and -5 degC, 4.0468
    // and 4.8105 bar, the bubble point is at -6.25 degC, good to 0.03 K.
    const double pressure = 4.6071324617244653;
    EXPECT_NEAR(refprop.Temperature(pressure, 1, 2, 0, -1), 0, 1e-7);
    EXPECT_NEAR(refprop.Temperature(pressure, 1, 1, 0, -1), -6.25, 0.03);
    EXPECT_NEAR(refprop.Enthalpy(30, 0, dew, 1), 36360.76705993725 / molarMass, 1e-6);
    // In two phases the temperature lies between both.
    const double h = 19112.01540790845 / molarMass;
    EXPECT_NEAR(refprop.Temperature(pressure, 1, 2, h, 3), 267.67787358324 - 273.15, 1e-6);
    EXPECT_NEAR(refprop.Entropy(pressure, 1, h, 3), 93.26129927211497 / molarMass, 1e-8);
    EXPECT_TRUE(catalogue.boxes.empty());
}

TEST_F(clsRefpropTest, WhatTheLibrarySaysAtSetUpIsKept) {
    catalogue.exec(
        "insert into tRefrigeranti values('RX'),('RY');insert into tFluidi values('RX','NOSUCH.FLD',1)");
    EXPECT_NE(GetRefprop("RX").SetupFault().find("NOSUCH.FLD"), std::string::npos);
    EXPECT_FALSE(GetRefprop("RY").SetupFault().empty());  // no fluid at all
    EXPECT_TRUE(GetRefprop("R134A").SetupFault().empty());
    GetRefprop("RX").Pressure(2, 2);  // a number without meaning, and the box that says so
    EXPECT_EQ(catalogue.boxes, (std::vector<std::string>{"Undefined"}));
}

TEST_F(clsRefpropTest, TooManyComponentsAndAMissingLibrary) {
    catalogue.exec("insert into tRefrigeranti values('RZ')");
    for (int i = 0; i < 21; ++i) {
        catalogue.exec("insert into tFluidi values('RZ','F" + std::to_string(i) + ".FLD',0.04)");
    }
    EXPECT_THROW(GetRefprop("RZ"), std::out_of_range);
    catalogue.session.applicationFolder = "/nowhere";
    EXPECT_THROW(GetRefprop("R134A"), FluidLibraryError);
    catalogue.session.applicationFolder = MARVELLO_APP_FOLDER;
    EXPECT_NEAR(GetRefprop("R134A").Pressure(2, 2), pressureAt2, 1e-7);
}

}  // namespace
}  // namespace marvello
