#include "thermo/clsConvert.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "data/Arithmetic.h"
#include "data/Session.h"
#include "thermo/UnitFamilies.h"
#include "thermo/UnitSystem.h"

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
        {1, &clsConvert::Punits, "psig", 0, 101.325},
        {1, &clsConvert::Punits, "psig", 14.695948775513, 202.65},
        {1, &clsConvert::Punits, "bar gage", 2, 301.325},
        {1, &clsConvert::Punits, "bar vacm", 0.5, 51.325},
        {2, &clsConvert::Dunits, "kg/m^3", 102.032, 1},
        {2, &clsConvert::Dunits, "lb/ft^3", 1, 16.018463373960 / molarMass},  // 1 lb/ft^3 = 16.0184634 kg/m^3
        {8, &clsConvert::Vunits, "m^3/kg", 0.01, 1.02032},                    // 100 kg/m^3 = 0.98009 mol/dm^3
        {3, &clsConvert::Hunits, "kJ/kg", 1, 102.032},
        {4, &clsConvert::Sunits, "J/kg-K", 1000, 102.032},
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

// Conversion factors of NIST Special Publication 811 (2008), to their seven digits, into the base unit of
// each family: K, MPa, mol/dm^3, J/mol, mW/m-K and otherwise the SI unit. M is the molar mass in g/mol; Btu
// and calorie are the thermochemical ones.
TEST(clsConvert, FactorsOfEveryUnit) {
    constexpr double M = molarMass;
    struct Family {
        const char* property;
        std::vector<std::pair<const char*, double>> units;
    };
    // clang-format off
    const std::vector<Family> families = {
        {"T", {{"R", 0.5555556}}},
        {"P", {{"PA", 1e-6}, {"KPA", 1e-3}, {"GPA", 1e3}, {"BAR", 0.1}, {"KBAR", 100}, {"ATM", 0.101325},
            {"KG/CM^2", 0.0980665}, {"AT", 0.0980665}, {"PSIA", 6.894757e-3}, {"PSF", 4.788026e-5},
            {"TORR", 1.333224e-4}, {"MMHG", 1.333224e-4}, {"CMHG", 1.333224e-3}, {"INHG", 3.386389e-3},
            {"INH2O", 2.49082e-4}}},
        {"D", {{"MOL/CC", 1e3}, {"MOL/M^3", 1e-3}, {"KG/M^3", 1 / M}, {"KG/L", 1e3 / M}, {"G/L", 1 / M},
            {"G/CM^3", 1e3 / M}, {"LB/FT^3", 16.01846 / M}, {"LBMOL/FT^3", 16.01846}, {"SLUG/FT^3", 515.3788 / M},
            {"LB/GAL", 119.8264 / M}, {"L/MOL", 1}, {"CC/MOL", 1e3}, {"M^3/MOL", 1e-3}, {"M^3/KG", 1 / M},
            {"L/KG", 1e3 / M}, {"CM^3/G", 1e3 / M}, {"FT^3/LB", 16.01846 / M}, {"FT^3/LBMOL", 16.01846},
            {"FT^3/SLUG", 515.3788 / M}}},
        {"H", {{"KJ/MOL", 1e3}, {"MJ/MOL", 1e6}, {"J/G", M}, {"M^2/S^2", 1e-3 * M},
            {"FT^2/S^2", 9.290304e-5 * M}, {"KCAL/KMOL", 4.184}, {"KCAL/KG", 4.184 * M}, {"BTU/LB", 2.324444 * M},
            {"BTU/LBMOL", 2.324444}}},
        {"S", {{"KJ/MOL-K", 1e3}, {"J/G-K", M}, {"J/KG-K", 1e-3 * M}, {"BTU/LB-R", 4.184 * M},
            {"BTU/LBMOL-R", 4.184}, {"CAL/G-C", 4.184 * M}, {"CAL/MOL-C", 4.184},
            {"FT-LBF/LBMOL-R", 1.355818 * 1.8 / 453.59237}}},
        {"W", {{"CM/S", 0.01}, {"KM/H", 0.2777778}, {"FT/S", 0.3048}, {"IN/S", 0.0254}, {"MPH", 0.44704},
            {"KNOT", 0.5144444}, {"MACH", std::sqrt(1.4 * 8314.51 * 298.15 / 28.95853816)}}},  // of air at 25 degC
        {"U", {{"MPA-S", 1e-3}, {"UPA-S", 1e-6}, {"POISE", 0.1}, {"CENTIPOISE", 1e-3}, {"MPOISE", 1e-4},
            {"UPOISE", 1e-7}, {"LB/FT-S", 1.488164}, {"LBF-S/FT^2", 47.88026}, {"LB/FT-H", 4.133789e-4}}},
        {"K", {{"W/M-K", 1e3}, {"G-CM/S^3-K", 0.01}, {"KG-M/S^3-K", 1e3}, {"CAL/S-CM-K", 418400},
            {"KCAL/HR-M-K", 1162.222}, {"LB-FT/S^3-F", 138.2550 * 1.8}, {"LBF/S-F", 4448.222 * 1.8},
            {"BTU/H-FT-F", 1729.577}}},
        {"JT", {{"C/ATM", 1 / 0.101325}}},
        {"L", {{"DM", 0.1}, {"CM", 0.01}, {"MM", 1e-3}, {"KM", 1e3}, {"IN", 0.0254}, {"FT", 0.3048},
            {"YD", 0.9144}, {"MI", 1609.344}, {"LIGHT YEAR", 9.46073e15}, {"ANGSTROM", 1e-10}, {"FATHOM", 1.8288},
            {"MIL", 2.54e-5}, {"ROD", 5.0292}, {"PARSEC", 3.085678e16}}},
        {"A", {{"CM^2", 1e-4}, {"MM^2", 1e-6}, {"KM^2", 1e6}, {"IN^2", 6.4516e-4}, {"FT^2", 0.09290304},
            {"YD^2", 0.8361274}, {"MI^2", 2589988}, {"ACRE", 4046.856}, {"BARN", 1e-28}, {"HECTARE", 1e4}}},
        {"V", {{"CM^3", 1e-6}, {"LITER", 1e-3}, {"IN^3", 1.638706e-5}, {"FT^3", 0.02831685},
            {"YD^3", 0.7645549}, {"GAL", 3.785412e-3}, {"QT", 9.463529e-4}, {"PT", 4.731765e-4},
            {"CUP", 2.365882e-4}, {"OUNCE", 2.957353e-5}, {"TBSP", 1.478676e-5}, {"TSP", 4.928922e-6},
            {"CORD", 3.624556}, {"BARREL", 0.1589873}, {"BOARD FOOT", 2.359737e-3}, {"BUSHEL", 0.03523907}}},
        {"M", {{"G", 1e-3}, {"MG", 1e-6}, {"LB", 0.4535924}, {"GRAIN", 6.479891e-5}, {"SLUG", 14.59390},
            {"TON", 907.1847}, {"TONNE", 1e3}}},
        {"F", {{"MN", 1e-3}, {"KGF", 9.80665}, {"DYNE", 1e-5}, {"LBF", 4.448222}, {"POUNDAL", 0.1382550},
            {"OZF", 0.2780139}}},
        {"E", {{"KJ", 1e3}, {"MJ", 1e6}, {"KW-H", 3.6e6}, {"CAL", 4.184}, {"KCAL", 4184}, {"ERG", 1e-7},
            {"BTU", 1054.350}, {"FT-LBF", 1.355818}}},
        {"Q", {{"KW", 1e3}, {"BTU/S", 1054.350}, {"BTU/MIN", 17.57250}, {"BTU/H", 0.2928751}, {"CAL/S", 4.184},
            {"KCAL/S", 4184}, {"CAL/MIN", 0.06973333}, {"KCAL/MIN", 69.73333}, {"FT-LBF/S", 1.355818},
            {"FT-LBF/MIN", 0.02259697}, {"FT-LBF/H", 3.766161e-4}, {"HP", 745.6999}}},
        {"N", {{"MN/M", 1e-3}, {"DYN/CM", 1e-3}, {"LBF/FT", 14.59390}}},
    };
    // clang-format on
    for (const auto& [property, units] : families) {
        for (const auto& [unit, factor] : units) {
            const double found = convertInFamily(1, property, unit, M, UnitPass::toBase);
            EXPECT_NEAR(found / factor, 1, 5e-7) << property << " " << unit;
            EXPECT_NEAR(convertInFamily(found, property, unit, M, UnitPass::fromBase), 1, 1e-12) << unit;
        }
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
    Session session;
    session.hooks.showBox = [&boxes](BoxKind, const std::string& text) { boxes.push_back(text); };
    clsConvert convert;
    EXPECT_EQ(convert.ConvertUnitsApp(-9999990, 0), -9999990);
    EXPECT_EQ(convert.ConvertUnitsApp(-9999900, 0), -9999900);
    EXPECT_EQ(convert.ConvertUnitsApp(-9999999, 0), -9999999);
    EXPECT_NEAR(convert.ConvertUnitsApp(-1e7, 0), -1e7 - 273.15, 1e-6);
    EXPECT_NEAR(convert.ConvertUnitsApp(-9999990.5, 0), -9999990.5 - 273.15, 1e-6);
    EXPECT_NEAR(convert.ConvertUnitsApp(-9999899, 0), -9999899 - 273.15, 1e-6);
    EXPECT_EQ(convert.ConvertUnitsApp(1, 10), 0);
    EXPECT_EQ(convert.ConvertUnitsRefprop(1, -1), 0);
    EXPECT_EQ(boxes, (std::vector<std::string>{"Undefined", "Undefined", "Undefined", "Set type Unit Value",
                                               "Set Unit type"}));
    // Without a molar mass a mass unit would divide by zero.
    EXPECT_THROW(convert.ConvertUnitsRefprop(10, 2), ArithmeticFault);
    EXPECT_THROW(convert.ConvertUnitsApp(10, 2), ArithmeticFault);
    convert.wm = molarMass;
    EXPECT_NO_THROW(convert.ConvertUnitsRefprop(0, 8));  // a volume of nothing, through its reciprocal
}

// By hand: the Btu of the unit sets is 1054.350264 J, so 1 Btu/lb is 1054.350264 / 453.59237 = 2.324444
// kJ/kg. 1 Btu/(lb R) is 1.8 times that: 4.184 kJ/(kg K). 1 lb/ft3 is 0.45359237 / 0.028316846592 = 16.018463
// kg/m3.
TEST(UnitSystems, SpecificQuantities) {
    const auto imperial = [](UnitRule rule, double metric) {
        const double value = rule(metric, UnitSystem::metric, UnitSystem::imperial);
        EXPECT_NEAR(rule(value, UnitSystem::imperial, UnitSystem::metric), metric, 1e-9 * metric);
        EXPECT_EQ(rule(metric, UnitSystem::metric, UnitSystem::metric), metric);
        return value;
    };
    EXPECT_NEAR(imperial(convertedEnthalpy, 232.4444), 100, 1e-4);
    EXPECT_NEAR(imperial(convertedEntropy, 4.184), 1, 1e-9);
    EXPECT_NEAR(imperial(convertedDensity, 16.018463), 1, 1e-7);
}

}  // namespace
}  // namespace marvello
