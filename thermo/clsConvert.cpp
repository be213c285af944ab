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

/// Of a family without moles.
double convertedUnits(double value, std::string_view family, std::string_view from, std::string_view to) {
    const double base = convertInFamily(value, family, from, 0, UnitPass::toBase);
    return checked(convertInFamily(base, family, to, 0, UnitPass::fromBase));
}

}  // namespace

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
    units_ = {};
}

const clsConvert::TypeUnits& clsConvert::unitsOf(int type) {
    if (!initialised_) Initialize(0);
    TypeUnits& units = units_[static_cast<std::size_t>(type)];
    if (units.application && units.wm == wm) return units;
    const ValueType& kind = valueType(type);
    const std::string& wanted = this->*kind.applicationUnit;
    units = {wm, !wanted.empty(), {}, FamilyUnit(kind.property, uppered(kind.libraryUnit), wm)};
    units.application.emplace(kind.property, uppered(trimmed(wanted)), wm);
    return units;
}

double clsConvert::ConvertUnitsApp(double value, int type) {
    if (isUndefinedMarker(value)) {
        showBox(BoxKind::plain, undefinedText);
        return value;
    }
    if (!isValueType(type)) {
        showBox(BoxKind::critical, "Set type Unit Value");
        return 0;
    }
    const TypeUnits& units = unitsOf(type);
    if (!units.hasApplicationUnit) return value;
    const double base = units.library->convert(value, UnitPass::toBase);
    return checked(units.application->convert(base, UnitPass::fromBase));
}

double clsConvert::ConvertUnitsRefprop(double value, int type) {
    if (!isValueType(type)) {
        showBox(BoxKind::critical, "Set Unit type");
        return 0;
    }
    const TypeUnits& units = unitsOf(type);
    const double base = units.application->convert(value, UnitPass::toBase);
    return checked(units.library->convert(base, UnitPass::fromBase));
}

double clsConvert::ConvertValue(double value, int code) {
    switch (code) {
        case conversion::kilowattsToTons:
            return checked(value / kilowattsInTon);
        case conversion::kilogramsToPounds:
            return convertedUnits(value, "M", "KG", "LB");
        case conversion::celsiusToFahrenheit:
            return convertedUnits(value, "T", "C", "F");
        case conversion::kelvinToFahrenheit:
            return convertedUnits(value, "T", "K", "F");
        case conversion::fahrenheitToCelsius:
            return convertedUnits(value, "T", "F", "C");
        case conversion::fahrenheitToKelvin:
            return convertedUnits(value, "T", "F", "K");
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

}  // namespace marvello
