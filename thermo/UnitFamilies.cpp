#include "thermo/UnitFamilies.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "data/Arithmetic.h"
#include "data/Constants.h"

namespace marvello {

namespace {

// The standard relations, as the program has always held them. The Btu is the thermochemical one.
constexpr double foot = 0.3048;
constexpr double inch = 0.0254;
constexpr double yard = 0.9144;
constexpr double mile = 1609.344;
constexpr double pound = 0.45359237;
constexpr double cubicFoot = 0.02831684659199999;
constexpr double gallon = 0.0037854117839999997;
constexpr double calorie = 4.184;
constexpr double btu = 1054.350264488889;
constexpr double kiloBtu = 1.0543502644888891;
constexpr double footPound = 1.3558179483314003;
constexpr double poundForce = 4.4482216152605005;
constexpr double horsepower = 745.6998715822701;
constexpr double slug = 14.59390293720637;
constexpr double rankine = 5.0 / 9.0;
constexpr double psi = 0.006894757293168363;
constexpr double gravity = 9.80665;        // m/s^2, the standard one
constexpr double gasConstant = 8.314472;   // J/(mol K), CODATA 2002
constexpr double zeroFahrenheit = 459.67;  // degrees Rankine

}  // namespace

namespace {

enum class Rule {
    scaled,             ///< value * factor^direction
    reciprocal,         ///< factor / value, in both passes
    overMolarMass,      ///< value / M, in both passes
    squareRoot,         ///< in both passes
    celsius,            ///< kelvin less 273.15
    fahrenheit,         ///< as rankine, from its own zero
    gaugePsi,           ///< psi above one atmosphere
    scaledThousandfold  ///< as scaled, and times 1000 in both passes
};

}  // namespace

struct Unit {
    std::string_view property;
    std::string_view names;  ///< One unit under several names, joined with "=".
    double factor = 1;
    int molarPower = 0;  ///< 1: the factor is multiplied by M; -1: divided.
    Rule rule = Rule::scaled;
    double divisor = 1;  ///< What the factor is divided by, last.
};

namespace {

constexpr Unit units[] = {
    // Temperature, base K.
    {"T", "K"},
    {"T", "C", 1, 0, Rule::celsius},
    {"T", "R", rankine},
    {"T", "F", 1, 0, Rule::fahrenheit},
    // Pressure, base MPa.
    {"P", "PA", 1e-6},
    {"P", "KPA", 0.001},
    {"P", "MPA"},
    {"P", "GPA", 1000},
    {"P", "BAR", 0.1},
    {"P", "KBAR", 100},
    {"P", "ATM", standardAtmosphere},
    {"P", "KG/CM^2=KGF/CM^2=ATA=AT=ATMA", gravity / 100},
    {"P", "PSIA=PSI", psi},
    {"P", "PSF", psi / 144},
    {"P", "TORR=MMHG", 0.00013332236842105263},
    {"P", "CMHG", 0.0013332236842105263},
    {"P", "INHG", 0.0033863881578947365},
    {"P", "INH2O", 0.000249082},
    {"P", "PSIG", psi, 0, Rule::gaugePsi},
    // Density, base mol/dm^3.
    {"D", "MOL/L=MOL/DM^3=KMOL/M^3"},
    {"D", "MOL/CC=MOL/CM^3", 1000},
    {"D", "MOL/M^3", 0.001},
    {"D", "KG/M^3", 1, -1},
    {"D", "KG/L=KG/DM^3", 1000, -1},
    {"D", "G/L=G/DM^3", 1, -1},
    {"D", "G/CM^3=G/CC=G/ML", 1000, -1},
    {"D", "LB/FT^3=LBM/FT^3", pound / cubicFoot, -1},
    {"D", "LBMOL/FT^3", pound / cubicFoot},
    {"D", "SLUG/FT^3", slug / cubicFoot, -1},
    {"D", "LB/GAL", pound / gallon, -1},
    // Specific volume, in the density family as reciprocals.
    {"D", "L/MOL=DM^3/MOL=M^3/KMOL", 1, 0, Rule::reciprocal},
    {"D", "CC/MOL=CM^3/MOL=ML/MOL", 1000, 0, Rule::reciprocal},
    {"D", "M^3/MOL", 1.0 / 1000, 0, Rule::reciprocal},
    {"D", "M^3/KG", 1, -1, Rule::reciprocal},
    {"D", "L/KG=DM^3/KG", 1000, -1, Rule::reciprocal},
    {"D", "CM^3/G=CC/G=ML/G", 1000, -1, Rule::reciprocal},
    {"D", "DM^3/G", 1, 0,
     Rule::overMolarMass},  // Kept: no reciprocal, so that numbers stored with it read as before
    {"D", "FT^3/LB=FT^3/LBM", pound / cubicFoot, -1, Rule::reciprocal},
    {"D", "FT^3/LBMOL", pound / cubicFoot, 0, Rule::reciprocal},
    {"D", "FT^3/SLUG", slug / cubicFoot, -1, Rule::reciprocal},
    // Enthalpy, base J/mol.
    {"H", "KJ/KMOL=J/MOL"},
    {"H", "KJ/MOL", 1000},
    {"H", "MJ/MOL", 1e6},
    {"H", "J/G=KJ/KG", 1, 1},
    {"H", "M^2/S^2", 1, 1, Rule::scaled, 1000},
    {"H", "FT^2/S^2", foot* foot / 1000, 1},
    {"H", "KCAL/KMOL=CAL/MOL", calorie},
    {"H", "KCAL/KG=CAL/G", calorie, 1},
    {"H", "BTU/LB=BTU/LBM", kiloBtu / pound, 1},
    {"H", "BTU/LBMOL", kiloBtu / pound},
    // Entropy, base J/mol-K.
    {"S", "KJ/KMOL-K=J/MOL-K"},
    {"S", "KJ/MOL-K", 1000},
    {"S", "J/G-K=KJ/KG-K", 1, 1},
    {"S", "J/KG-K", 1, 1, Rule::scaled, 1000},
    {"S", "BTU/LB-R=BTU/LBM-R", kiloBtu / pound / rankine, 1},
    {"S", "BTU/LBMOL-R", kiloBtu / pound / rankine},
    {"S", "CAL/G-C=CAL/G-K=KCAL/KG-K=KCAL/KG-C", calorie, 1},
    {"S", "CAL/MOL-C=CAL/MOL-K", calorie},
    {"S", "FT-LBF/LBMOL-R", footPound / pound / rankine / 1000},
    {"S", "CP/R", gasConstant, 0, Rule::scaledThousandfold},
    // Speed, base m/s.
    {"W", "M/S"},
    {"W", "M^2/S^2", 1, 0, Rule::squareRoot},
    {"W", "CM/S", 0.01},
    {"W", "KM/H", 1 / 3.6},
    {"W", "FT/S", foot},
    {"W", "IN/S", inch},
    {"W", "MPH=MILE/H", mile / 3600},
    {"W", "KNOT", 0.5144444444},
    // The speed of sound in air at 25 degrees Celsius: sqrt(1.4 * 8314.51 * 298.15 / 28.95853816).
    {"W", "MACH", 346.18754370724093},
    // Viscosity, base Pa-s.
    {"U", "KG/M-S=PA-S"},
    {"U", "MPA-S", 1e-3},
    {"U", "UPA-S", 1e-6},
    {"U", "POISE=G/CM-S", 0.1},
    {"U", "CENTIPOISE", 1e-3},
    {"U", "MPOISE=MILLIPOISE", 1e-4},
    {"U", "UPOISE=MICROPOISE", 1e-7},
    {"U", "LB/FT-S=LBM/FT-S", pound / foot},
    {"U", "LBF-S/FT^2", poundForce / (foot * foot)},
    {"U", "LB/FT-H=LBM/FT-H", pound / foot / 3600},
    // Thermal conductivity, base mW/m-K.
    {"K", "MW/M-K"},
    {"K", "W/M-K", 1000},
    {"K", "G-CM/S^3-K", 0.01},
    {"K", "KG-M/S^3-K", 1000},
    {"K", "CAL/S-CM-K", calorie * 100 * 1000},
    {"K", "KCAL/HR-M-K", calorie * 1000 / 3600 * 1000},
    {"K", "LB-FT/S^3-F=LBM-FT/S^3-F", pound* foot / rankine * 1000},
    {"K", "LBF/S-F", poundForce / rankine * 1000},
    {"K", "BTU/H-FT-F", btu / 3600 / foot / rankine * 1000},
    // Joule-Thomson coefficient, base K/MPa.
    {"JT", "K/MPA"},
    {"JT", "C/ATM", 1 / standardAtmosphere},
    // Length, base m.
    {"L", "M=METER"},
    {"L", "DM", 0.1},
    {"L", "CM", 0.01},
    {"L", "MM", 0.001},
    {"L", "KM", 1000},
    {"L", "IN=INCH", inch},
    {"L", "FT=FOOT", foot},
    {"L", "YD=YARD", yard},
    {"L", "MI=MILE", mile},
    {"L", "LIGHT YEAR", 9460730472580800.0},
    {"L", "ANGSTROM", 1e-10},
    {"L", "FATHOM", 6 * foot},
    {"L", "MIL", inch / 1000},
    {"L", "ROD", 16.5 * foot},
    {"L", "PARSEC", 3.0856775814913674e16},
    // Area, base m^2.
    {"A", "M^2=METER^2"},
    {"A", "CM^2", 1e-4},
    {"A", "MM^2", 1e-6},
    {"A", "KM^2", 1e6},
    {"A", "IN^2=INCH^2", inch* inch},
    {"A", "FT^2=FOOT^2", foot* foot},
    {"A", "YD^2=YARD^2", yard* yard},
    {"A", "MI^2=MILE^2", mile* mile},
    {"A", "ACRE", 43560 * foot* foot},
    {"A", "BARN", 1e-28},
    {"A", "HECTARE", 1e4},
    // Volume, base m^3.
    {"V", "M^3=METER^3"},
    {"V", "CM^3", 1e-6},
    {"V", "LITER=L=DM^3", 1e-3},
    {"V", "IN^3=INCH^3", inch* inch* inch},
    {"V", "FT^3=FOOT^3", cubicFoot},
    {"V", "YD^3=YARD^3", yard* yard* yard},
    {"V", "GAL=GALLON", gallon},
    {"V", "QT=QUART", gallon / 4},
    {"V", "PT=PINT", gallon / 8},
    {"V", "CUP", gallon / 16},
    {"V", "OUNCE", gallon / 128},
    {"V", "TBSP=TABLESPOON", gallon / 256},
    {"V", "TSP=TEASPOON", gallon / 768},
    {"V", "CORD", 128 * cubicFoot},
    {"V", "BARREL", 42 * gallon},
    {"V", "BOARD FOOT", 144 * inch* inch* inch},
    {"V", "BUSHEL", 2150.42 * inch* inch* inch},
    // Mass, base kg.
    {"M", "KG"},
    {"M", "G", 0.001},
    {"M", "MG", 1e-6},
    {"M", "LB=LBM", pound},
    {"M", "GRAIN", pound / 7000},
    {"M", "SLUG", slug},
    {"M", "TON", 2000 * pound},
    {"M", "TONNE", 1000},
    // Force, base N.
    {"F", "N=NEWTON"},
    {"F", "MN", 0.001},
    {"F", "KGF", gravity},
    {"F", "DYNE", 1e-5},
    {"F", "LBF", poundForce},
    {"F", "POUNDAL", pound* foot},
    {"F", "OZF", poundForce / 16},
    // Energy, base J.
    {"E", "J=JOULE"},
    {"E", "KJ", 1000},
    {"E", "MJ", 1e6},
    {"E", "KW-H", 3.6e6},
    {"E", "CAL", calorie},
    {"E", "KCAL", calorie * 1000},
    {"E", "ERG", 1e-7},
    {"E", "BTU", btu},
    {"E", "FT-LBF", footPound},
    // Power, base W.
    {"Q", "WATT=W"},
    {"Q", "KW=KWATT", 1000},
    {"Q", "BTU/S", btu},
    {"Q", "BTU/MIN", btu / 60},
    {"Q", "BTU/H", btu / 3600},
    {"Q", "CAL/S", calorie},
    {"Q", "KCAL/S", calorie * 1000},
    {"Q", "CAL/MIN", calorie / 60},
    {"Q", "KCAL/MIN", calorie * 1000 / 60},
    {"Q", "FT-LBF/S", footPound},
    {"Q", "FT-LBF/MIN", footPound / 60},
    {"Q", "FT-LBF/H", footPound / 3600},
    {"Q", "HP", horsepower},
    // Surface tension, base N/m.
    {"N", "N/M"},
    {"N", "MN/M", 0.001},
    {"N", "DYN/CM=DYNE/CM", 0.001},
    {"N", "LBF/FT", 14.59390293720637},
};

using UnitIndex = std::unordered_map<std::string, const Unit*>;

std::string indexKey(std::string_view property, std::string_view unit) {
    return std::string(property) + ' ' + std::string(unit);
}

const UnitIndex& unitIndex() {
    static const UnitIndex index = [] {
        UnitIndex made;
        for (const Unit& unit : units) {
            std::string_view rest = unit.names;
            while (true) {
                const std::size_t end = rest.find('=');
                made.emplace(indexKey(unit.property, rest.substr(0, end)), &unit);
                if (end == std::string_view::npos) break;
                rest.remove_prefix(end + 1);
            }
        }
        return made;
    }();
    return index;
}

const Unit* findUnit(std::string_view property, std::string_view unit) {
    const auto found = unitIndex().find(indexKey(property, unit));
    return found == unitIndex().end() ? nullptr : found->second;
}

double factorOf(const Unit& unit, double molarMass) {
    double factor = unit.factor;
    if (unit.molarPower > 0) factor *= molarMass;
    if (unit.molarPower < 0) factor /= molarMass;
    return checked(factor / unit.divisor);
}

}  // namespace

FamilyUnit::FamilyUnit(std::string_view property, std::string_view unit, double molarMass)
    : molarMass_(molarMass), isDensity_(property == "D") {
    if (property == "P") {
        if (unit.find("GAGE") != std::string_view::npos)
            gauge_ = 1;
        else if (unit.find("VACM") != std::string_view::npos)
            gauge_ = -1;
        if (gauge_ != 0) unit = unit.substr(0, unit.find(' '));
    }
    unit_ = findUnit(property, unit);
    if (unit_ == nullptr) return;
    factor_ = factorOf(*unit_, molarMass);
    // To a power, not by a division: the last bit is behaviour.
    inverse_ = std::pow(factor_, -1);
    if (unit_->rule == Rule::scaled && gauge_ == 0 && !isDensity_) way_ = Way::factor;
    if (unit_->rule == Rule::celsius) way_ = Way::celsius;
}

double FamilyUnit::applyRule(double value, bool toBase) const {
    if (unit_ == nullptr) return value;
    const double directed = toBase ? factor_ : inverse_;
    switch (unit_->rule) {
        case Rule::scaled:
            return value * directed;
        case Rule::scaledThousandfold:
            return value * directed * 1000;
        case Rule::reciprocal:
            return factor_ / value;
        case Rule::overMolarMass:
            return value / molarMass_;
        case Rule::squareRoot:
            return std::sqrt(value);
        case Rule::celsius:
            return toBase ? value + zeroCelsius : value - zeroCelsius;
        case Rule::fahrenheit:
            return toBase ? (value + zeroFahrenheit) * 5 / 9 : value / rankine - zeroFahrenheit;
        case Rule::gaugePsi:
            return toBase ? value * factor_ + standardAtmosphere : (value - standardAtmosphere) / factor_;
    }
    return value;
}

double FamilyUnit::convertByRule(double value, bool toBase) const {
    const auto movedZero = [this](double pressure, double sign) {
        if (gauge_ > 0) return pressure + sign * standardAtmosphere;
        return gauge_ < 0 ? standardAtmosphere - pressure : pressure;
    };
    // A density of 0 passes through the reciprocal units as a density too small to count.
    if (isDensity_ && value == 0) value = 1e-50;
    if (!toBase) value = movedZero(value, -1);
    value = applyRule(value, toBase);
    if (toBase) value = movedZero(value, 1);
    return isDensity_ && std::abs(value) < 1e-30 ? 0 : value;
}

}  // namespace marvello
