#include "data/Arithmetic.h"

#include <array>
#include <charconv>

namespace marvello {

namespace {

/// The double nearest to the value's 15 significant decimal digits.
double asShown(double value) {
    std::array<char, 40> text{};
    const char* end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, 14).ptr;
    double shown = 0;
    std::from_chars(text.data(), end, shown);
    return shown;
}

}  // namespace

double roundedToPlaces(double value, int places) {
    const double scale = std::pow(10.0, places);
    return checked(std::round(asShown(checked(value * scale))) / scale);
}

}  // namespace marvello
