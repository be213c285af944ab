#pragma once

#include <array>
#include <string>

namespace marvello {

/// The nine-coefficient surface of the discharge temperature, degrees Celsius, at a reference superheat.
class clsPolynomialSh {
  public:
    double Sh = 0;              ///< Reference superheat, K.
    std::array<double, 9> c{};  ///< c1 to c9 at the indices 0 to 8.
    std::string Name;           ///< The fPolynomialID of its row; blank or "-" when the compressor has none.

    /// c1 + c2 x + c3 x^2 + c4 y + c5 y^2 + c6 x y + c7 x^2 y + c8 x y^2 + c9 x^2 y^2 with x the evaporating
    /// and y the condensing dew temperature, degrees Celsius.
    double at(double x, double y) const { return at(c, x, y); }
    /// The same of coefficients and temperatures that calculate like doubles.
    template <class Number>
    static Number at(const std::array<Number, 9>& c, const Number& x, const Number& y) {
        return c[0] + c[1] * x + c[2] * x * x + c[3] * y + c[4] * y * y + c[5] * x * y + c[6] * x * x * y +
               c[7] * x * y * y + c[8] * x * x * y * y;
    }
};

}  // namespace marvello
