#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace marvello {

/// A ten-coefficient surface in two temperatures: capacity or power input in kW over the evaporating (x)
/// and condensing (y) dew temperature in degrees Celsius, in the order of coefficients of EN 12900.
class clsPolynomial {
  public:
    std::array<double, 10> c{};  ///< c1 to c10 at the indices 0 to 9.
    std::string Name;            ///< The fPolynomialID of its rows.
    std::uint8_t Load = 0;       ///< The capacity step that selects the row.

    /// False for a surface whose coefficients add up to exactly 0, as those of a missing row do.
    bool isOK() const;
    /// c1 + c2 x + c3 y + c4 x^2 + c5 x y + c6 y^2 + c7 x^3 + c8 x^2 y + c9 x y^2 + c10 y^3. The temperatures
    /// pass through single precision.
    double Calculate(float x, float y) const;
    /// The same surface at temperatures in double precision.
    double at(double x, double y) const;
};

}  // namespace marvello
