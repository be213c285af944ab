#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <stdexcept>

namespace marvello {

/// A division by zero, an overflow or an invalid operation.
class ArithmeticFault : public std::domain_error {
  public:
    using std::domain_error::domain_error;
};

/// The value itself, or ArithmeticFault when it is an infinity or not a number.
inline double checked(double value) {
    if (!std::isfinite(value)) throw ArithmeticFault("A calculation left the range of numbers.");
    return value;
}

/// Conversion to an integer, half to even. Throws ArithmeticFault outside the range of `int`.
inline int roundedToInteger(double value) {
    const double whole = std::nearbyint(value);
    if (!(whole >= -2147483648.0 && whole <= 2147483647.0)) throw ArithmeticFault("A number is too large.");
    return static_cast<int>(whole);
}

/// What a format pattern with that many decimal places shows, as a number: the value times a power of ten,
/// rounded half away from zero.
inline double roundedToPlaces(double value, int places) {
    constexpr std::array powers{1.0, 10.0, 100.0, 1000.0};
    const bool isListed = places >= 0 && places < static_cast<int>(powers.size());
    const double scale = isListed ? powers[static_cast<std::size_t>(places)] : std::pow(10.0, places);
    return checked(std::round(value * scale) / scale);
}

}  // namespace marvello
