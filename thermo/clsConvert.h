#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marvello {

/// Translates between the units of the fluid library, the application's unit set and the units of the
/// display.
class clsConvert {
  public:
    double wm = 0;         ///< Molar mass of the current fluid, g/mol.
    int UnitsMeasure = 0;  ///< Number of the unit set; writing it alone does not reload the names below.

    std::string Tunits, Punits, Dunits, Vunits, Hunits, Sunits, Wunits, Visunits, Tcxunits, Stunits;

    /// Takes the unit set 0 to 4 (any other leaves the names as they were; -1 leaves UnitsMeasure too) and
    /// the molar mass when one is given.
    void Initialize(int unitsMeasure, std::optional<double> molarMass = std::nullopt);

    /// From the library's units to the application's. `type`: 0 temperature, 1 pressure, 2 density, 3
    /// enthalpy, 4 entropy, 5 speed of sound, 6 viscosity, 7 thermal conductivity, 8 specific volume, 9
    /// surface tension. An unknown type shows a box and gives 0. The library's undefined marker shows the box
    /// "Undefined" and comes back unconverted. Raises ArithmeticFault.
    double ConvertUnitsApp(double value, int type);
    /// From the application's units to the library's; types and failures as above, without the marker test.
    double ConvertUnitsRefprop(double value, int type);

    /// The fixed conversions of the display: 0 kW to refrigeration tons, 1 kg to lb, 2 C to F, 3 K to F, 4 F
    /// to C, 5 F to K, 8 tons to kW, 9 tons to Btu/h, 10 Btu/h to tons. Any other number returns the value.
    double ConvertValue(double value, int conversion);

  private:
    double ConvertUnits(double value, std::string_view property, std::string_view fromUnit,
                        std::string_view toUnit) const;

    bool initialised_ = false;
};

}  // namespace marvello
