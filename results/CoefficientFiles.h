#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/Coefficients.h"

namespace marvello {

/// For which readers coefficients are written. The polynomial is the same, the order of its terms is not.
enum class CoefficientForm : std::uint8_t { ahri540, en12900, energyPlus };

/// Units of the numbers in files.
enum class CoefficientUnits : std::uint8_t {
    si,  ///< W, A, kg/h, degrees Celsius, K
    ip   ///< Btu/h, W, A, lbm/h, degrees Fahrenheit
};

/// Returns "AHRI 540", "EN 12900" or "EnergyPlus".
std::string_view titleOf(CoefficientForm form);

/// Returns the coefficients as CSV: what they are after "#", a table of the coefficients with the errors of
/// the fit, an empty line, and a table of calculated points. Numbers read back exactly.
std::string coefficientsCsv(const RatedCoefficients& rated, CoefficientForm form, CoefficientUnits units);

/// Returns the same as a JSON object.
std::string coefficientsJson(const RatedCoefficients& rated, CoefficientForm form, CoefficientUnits units);

/// Returns capacity and power as input of EnergyPlus: two objects Curve:Bicubic and a
/// Refrigeration:Compressor that uses them, in W and degrees Celsius.
std::string coefficientsIdf(const RatedCoefficients& rated);

}  // namespace marvello
