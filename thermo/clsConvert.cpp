#include "thermo/clsConvert.h"

#include <array>
#include <cmath>

#include "data/Arithmetic.h"
#include "data/Hooks.h"
#include "data/Texts.h"
#include "thermo/UnitFamilies.h"

namespace marvello {

namespace {

struct UnitSet {
    const char *temperature, *pressure, *density, *volume, *enthalpy, *entropy, *speed, *viscosity,
        *conductivity, *surfaceTension;
};

constexpr std::array<UnitSet, 5> unitSets = {{
    {"C", "bar", "kg/m^3", "m^3/kg", "kJ/kg", "kJ/kg-K", "m/s", "uPa-s", "W/m-K", "mN/m"},
    {"F", "psia", "lb/ft^3", "ft^3/lb", "Btu/lb", "Btu/lb-R", "ft/s", "lb/ft-s", "Btu/h-ft-F", "lbf/ft"},
    {"K", "kPa", "kg/m^3", "m^3/kg", "kJ/kg", "kJ/kg-K", "m/s", "uPa-s", "W/m-K", "mN/m"},
    {"K", "MPa", "g/cm^3", "cm^3/g", "J/g", "J/g-K", "cm/s", "uPa-s", "mW/m-K", "dyn/cm"},
    {"K", "psia", "g/cm^3", "cm^3/g", "J/g", "J/g-K", "m/s", "uPa-s", "mW/m-K", "mN/m"},
}};

struct ValueType {
    const char* property;
    const char* libraryUnit;
    std::string clsConvert::* applicationUnit;
};

/// By type code. The letter "D" serves density and volume: the volume units are reciprocals in its family.
constexpr std::array<ValueType, 10> valueTypes = {{
    {"T", "K", &clsConvert::Tunits},
    {"P", "kPa", &clsConvert::Punits},
    {"D", "mol/dm^3", &clsConvert::Dunits},
    {"H", "J/mol", &clsConvert::Hunits},
    {"S", "J/mol-K", &clsConvert::Sunits},
    {"W", "m/s", &clsConvert::Wunits},
    {"U", "uPa-s", &clsConvert::Visunits},
    {"K", "W/m-K", &clsConvert::Tcxunits},
    {"D", "dm^3/mol", &clsConvert::Vunits},
    {"N", "N/m", &clsConvert::Stunits},
}};

bool isValueType(int type) { return type >= 0 && type < static_cast<int>(valueTypes.size()); }

const ValueType& valueType(int type) { return valueTypes[static_cast<std::size_t>(type)]; }

constexpr double kilowattsInTon = 3.517;
constexpr double btuPerHourInTon = 12000;

}  // namespace

bool isUndefinedMarker(double value) {
    return value >= -9999999 && value <= -9999900 && value == std::floor(value);
}

void clsConvert::Initialize(int unitsMeasure, std::optional<double> molarMass) {
    initialised_ = true;
    if (unitsMeasure != -1) UnitsMeasure = unitsMeasure;
    if (molarMass) wm = *molarMass;
    if (UnitsMeasure < 0 || UnitsMeasure >= static_cast<int>(unitSets.size())) return;
    const UnitSet& set = unitSets[static_cast<std::size_t>(UnitsMeasure)];
    Tunits = set.temperature;
    Punits = set.pressure;
    Dunits = set.density;
    Vunits = set.volume;
    Hunits = set.enthalpy;
    Sunits = set.entropy;
    Wunits = set.speed;
    Visunits = set.viscosity;
    Tcxunits = set.conductivity;
    Stunits = set.surfaceTension;
}

double clsConvert::ConvertUnitsApp(double value, int type) {
    if (!initialised_) Initialize(0);
    if (isUndefinedMarker(value)) {
        showBox(BoxKind::plain, undefinedText);
        return value;
    }
    if (!isValueType(type)) {
        showBox(BoxKind::critical, "Set type Unit Value");
        return 0;
    }
    const ValueType& kind = valueType(type);
    return ConvertUnits(value, kind.property, kind.libraryUnit, this->*kind.applicationUnit);
}

double clsConvert::ConvertUnitsRefprop(double value, int type) {
    if (!initialised_) Initialize(0);
    if (!isValueType(type)) {
        showBox(BoxKind::critical, "Set Unit type");
        return 0;
    }
    const ValueType& kind = valueType(type);
    return ConvertUnits(value, kind.property, this->*kind.applicationUnit, kind.libraryUnit);
}

double clsConvert::ConvertValue(double value, int code) {
    switch (code) {
        case conversion::kilowattsToTons:
            return checked(value / kilowattsInTon);
        case conversion::kilogramsToPounds:
            return ConvertUnits(value, "M", "KG", "LB");
        case conversion::celsiusToFahrenheit:
            return ConvertUnits(value, "T", "C", "F");
        case conversion::kelvinToFahrenheit:
            return ConvertUnits(value, "T", "K", "F");
        case conversion::fahrenheitToCelsius:
            return ConvertUnits(value, "T", "F", "C");
        case conversion::fahrenheitToKelvin:
            return ConvertUnits(value, "T", "F", "K");
        case conversion::tonsToKilowatts:
            return checked(value * kilowattsInTon);
        case conversion::tonsToBtu:
            return checked(value * btuPerHourInTon);
        case conversion::btuToTons:
            return checked(value / btuPerHourInTon);
        default:
            return value;
    }
}

double clsConvert::ConvertUnits(double value, std::string_view property, std::string_view fromUnit,
                                std::string_view toUnit) const {
    if (toUnit.empty()) return value;
    const std::string family = uppered(trimmed(property));
    const double base = convertInFamily(value, family, uppered(trimmed(fromUnit)), wm, UnitPass::toBase);
    return checked(convertInFamily(base, family, uppered(trimmed(toUnit)), wm, UnitPass::fromBase));
}

}  // namespace marvello
