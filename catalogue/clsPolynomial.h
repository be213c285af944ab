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
    double at(double x, double y) const { return at(c, x, y); }
    /// The same of coefficients and temperatures that calculate like doubles.
    template <class Number>
    static Number at(const std::array<Number, 10>& c, const Number& x, const Number& y) {
        return c[0] + c[1] * x + c[2] * y + c[3] * x * x + c[4] * x * y + c[5] * y * y + c[6] * x * x * x +
               c[7] * y * x * x + c[8] * x * y * y + c[9] * y * y * y;
    }
};

}  // namespace marvello
