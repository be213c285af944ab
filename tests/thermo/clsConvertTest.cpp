#include "thermo/clsConvert.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/Arithmetic.h"
#include "data/Hooks.h"

namespace marvello {
namespace {

constexpr double molarMass = 102.032;

/// A converter between one unit of the test's choice and the library's.
double toLibrary(double value, int type, std::string clsConvert::* unit, const std::string& name) {
    clsConvert convert;
    convert.Initialize(0, molarMass);
    convert.*unit = name;
    return convert.ConvertUnitsRefprop(value, type);
}

double fromLibrary(double value, int type, std::string clsConvert::* unit, const std::string& name) {
    clsConvert convert;
    convert.Initialize(0, molarMass);
    convert.*unit = name;
    return convert.ConvertUnitsApp(value, type);
}

struct Known {
    int type;
    std::string clsConvert::* unit;
    const char* name;
    double value;
    double inLibraryUnits;
};

TEST(clsConvert, KnownValuesInBothDirections) {
    const std::vector<Known> table = {
        {0, &clsConvert::Tunits, "C", 25, 298.15},
        {0, &clsConvert::Tunits, "F", 212, 373.15},
        {0, &clsConvert::Tunits, "R", 491.67, 273.15},
        {1, &clsConvert::Punits, "bar", 10, 1000},
        {1, &clsConvert::Punits, "psia", 14.695948775513, 101.325},
        {1, &clsConvert::Punits, "psig", 0, 101.325},
        {1, &clsConvert::Punits, "psig", 14.695948775513, 202.65},
        {1, &clsConvert::Punits, "bar gage", 2, 301.325},
        {1, &clsConvert::Punits, "bar vacm", 0.5, 51.325},
        {1, &clsConvert::Punits, "torr", 760, 101.325},
        {1, &clsConvert::Punits, "kgf/cm^2", 1, 98.0665},
        {2, &clsConvert::Dunits, "kg/m^3", 102.032, 1},
        {2, &clsConvert::Dunits, "lb/ft^3", 1, 16.018463373960 / molarMass},  // 1 lb/ft^3 = 16.0184634 kg/m^3
        {8, &clsConvert::Vunits, "m^3/kg", 0.01, 1.02032},                    // 100 kg/m^3 = 0.98009 mol/dm^3
        {8, &clsConvert::Vunits, "cm^3/g", 10, 1.02032},
        {3, &clsConvert::Hunits, "kJ/kg", 1, 102.032},
        {3, &clsConvert::Hunits, "Btu/lb", 1,
         2.324444444444 * molarMass},  // thermochemical: 1054.35 J / 0.45359 kg
        {4, &clsConvert::Sunits, "J/kg-K", 1000, 102.032},
        {4, &clsConvert::Sunits, "Btu/lb-R", 1, 4.184 * molarMass},  // 1 Btu/lb-R is 1 cal/g-K
        {5, &clsConvert::Wunits, "km/h", 3.6, 1},
        {6, &clsConvert::Visunits, "centipoise", 1, 1000},
        {7, &clsConvert::Tcxunits, "mW/m-K", 1000, 1},
        {9, &clsConvert::Stunits, "mN/m", 5, 0.005},
    };
    for (const Known& known : table) {
        const double there = toLibrary(known.value, known.type, known.unit, known.name);
        EXPECT_NEAR(there, known.inLibraryUnits, 2e-8 * std::abs(known.inLibraryUnits)) << known.name;
        EXPECT_NEAR(fromLibrary(there, known.type, known.unit, known.name), known.value,
                    1e-12 * (1 + std::abs(known.value)))
            << known.name;
    }
}

TEST(clsConvert, DisplayConversions) {
    clsConvert convert;
    EXPECT_DOUBLE_EQ(convert.ConvertValue(3.517, 0), 1);
    EXPECT_NEAR(convert.ConvertValue(0.45359237, 1), 1, 1e-14);
    EXPECT_NEAR(convert.ConvertValue(-40, 2), -40, 1e-12);
    EXPECT_NEAR(convert.ConvertValue(273.15, 3), 32, 1e-12);
    EXPECT_NEAR(convert.ConvertValue(212, 4), 100, 1e-12);
    EXPECT_NEAR(convert.ConvertValue(32, 5), 273.15, 1e-12);
    EXPECT_DOUBLE_EQ(convert.ConvertValue(2, 8), 7.034);
    EXPECT_DOUBLE_EQ(convert.ConvertValue(2, 9), 24000);
    EXPECT_DOUBLE_EQ(convert.ConvertValue(24000, 10), 2);
    for (const int none : {6, 7, 11, -1}) EXPECT_EQ(convert.ConvertValue(7.5, none), 7.5);
}

TEST(clsConvert, OddUnitsStayAsTheyAre) {
    // A volume in dm^3/g divides by the molar mass in both passes, where its neighbours are reciprocals.
    EXPECT_DOUBLE_EQ(toLibrary(2, 8, &clsConvert::Vunits, "dm^3/g"), molarMass / 2);
    // The square of a speed takes the root in both passes.
    EXPECT_DOUBLE_EQ(toLibrary(9, 5, &clsConvert::Wunits, "m^2/s^2"), 3);
    EXPECT_DOUBLE_EQ(fromLibrary(9, 5, &clsConvert::Wunits, "m^2/s^2"), 3);
    // A gas-constant multiple is a thousandfold in both passes.
    EXPECT_NEAR(toLibrary(1, 4, &clsConvert::Sunits, "cp/R"), 8314.472, 1e-9);
    // A misspelt unit passes its value through that pass: bar to kPa becomes MPa to kPa.
    EXPECT_DOUBLE_EQ(toLibrary(5, 1, &clsConvert::Punits, "baar"), 5000);
    EXPECT_EQ(toLibrary(0, 2, &clsConvert::Dunits, "kg/m^3"), 0);
}

TEST(clsConvert, UnitSetsAndTheirEdges) {
    clsConvert convert;
    convert.Initialize(1, 50.0);
    EXPECT_EQ(convert.Punits, "psia");
    convert.Initialize(-1);
    EXPECT_EQ(convert.UnitsMeasure, 1);
    EXPECT_EQ(convert.wm, 50.0);
    convert.Initialize(9);
    EXPECT_EQ(convert.UnitsMeasure, 9);
    EXPECT_EQ(convert.Punits, "psia");
    convert.UnitsMeasure = 2;  // writing the number alone loads nothing
    EXPECT_EQ(convert.Punits, "psia");
}

TEST(clsConvert, BoxesAndFaults) {
    std::vector<std::string> boxes;
    hooks().showBox = [&boxes](BoxKind, const std::string& text) { boxes.push_back(text); };
    clsConvert convert;
    EXPECT_EQ(convert.ConvertUnitsApp(-9999990, 0), -9999990);
    EXPECT_NEAR(convert.ConvertUnitsApp(-9999990.5, 0), -9999990.5 - 273.15, 1e-6);
    EXPECT_NEAR(convert.ConvertUnitsApp(-9999899, 0), -9999899 - 273.15, 1e-6);
    EXPECT_EQ(convert.ConvertUnitsApp(1, 10), 0);
    EXPECT_EQ(convert.ConvertUnitsRefprop(1, -1), 0);
    EXPECT_EQ(boxes, (std::vector<std::string>{"Undefined", "Set type Unit Value", "Set Unit type"}));
    hooks() = Hooks();
    // Without a molar mass a mass unit would divide by zero.
    EXPECT_THROW(convert.ConvertUnitsRefprop(10, 2), ArithmeticFault);
    EXPECT_THROW(convert.ConvertUnitsApp(10, 2), ArithmeticFault);
    convert.wm = molarMass;
    EXPECT_NO_THROW(convert.ConvertUnitsRefprop(0, 8));  // a volume of nothing, through its reciprocal
}

}  // namespace
}  // namespace marvello
