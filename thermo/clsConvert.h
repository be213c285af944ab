#pragma once

#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "thermo/UnitFamilies.h"

namespace marvello {

/// Codes of what a value is, for clsConvert and clsRefprop.
namespace property {
inline constexpr int none = -1;  ///< in place of a second value
inline constexpr int temperature = 0;
inline constexpr int pressure = 1;
inline constexpr int density = 2;
inline constexpr int enthalpy = 3;
inline constexpr int entropy = 4;
}  // namespace property

/// What the box says of a value without a result.
inline constexpr const char* undefinedText = "Undefined";

/// Whether the fluid library says by this number that it has no result: a whole one of a range.
inline bool isUndefinedMarker(double value) {
    return value >= -9999999 && value <= -9999900 && value == std::floor(value);
}

/// Codes of the fixed conversions of the display.
namespace conversion {
inline constexpr int kilowattsToTons = 0;  ///< of refrigeration
inline constexpr int kilogramsToPounds = 1;
inline constexpr int celsiusToFahrenheit = 2;
inline constexpr int kelvinToFahrenheit = 3;
inline constexpr int fahrenheitToCelsius = 4;
inline constexpr int fahrenheitToKelvin = 5;
inline constexpr int unchanged = 7;  ///< as any number without a meaning
inline constexpr int tonsToKilowatts = 8;
inline constexpr int tonsToBtu = 9;  ///< an hour
inline constexpr int btuToTons = 10;
}  // namespace conversion

/// Translates between the units of the fluid library, the application's unit set and the units of the
/// display.
class clsConvert {
  public:
    double wm = 0;         ///< Molar mass of the current fluid, g/mol.
    int UnitsMeasure = 0;  ///< Number of the unit set; writing it alone does not reload the names below.

    // Written by Initialize alone.
    std::string Tunits, Punits, Dunits, Vunits, Hunits, Sunits, Wunits, Visunits, Tcxunits, Stunits;

    /// Takes the unit set 0 to 4 (any other leaves the names as they were; -1 leaves UnitsMeasure too) and
    /// the molar mass when one is given.
    void Initialize(int unitsMeasure, std::optional<double> molarMass = std::nullopt);

    /// From the library's units to the application's. `type`: 0 temperature, 1 pressure, 2 density, 3
    /// enthalpy, 4 entropy, 5 speed of sound, 6 viscosity, 7 thermal conductivity, 8 specific volume, 9
    /// surface tension. An unknown type shows a box and gives 0. The library's undefined marker shows the box
    /// "Undefined" and comes back unconverted. Throws ArithmeticFault.
    double ConvertUnitsApp(double value, int type);
    /// From the application's units to the library's; types and failures as above, without the marker test.
    double ConvertUnitsRefprop(double value, int type);

    /// One of the fixed conversions of the display; any other number returns the value.
    double ConvertValue(double value, int code);

  private:
    /// The units of a type of value, as they were looked up for this molar mass.
    struct TypeUnits {
        double wm = 0;
        bool hasApplicationUnit = false;
        std::optional<FamilyUnit> application;
        std::optional<FamilyUnit> library;
    };
    const TypeUnits& unitsOf(int type);

    bool initialised_ = false;
    std::array<TypeUnits, 10> units_;  ///< By type.
};

}  // namespace marvello
