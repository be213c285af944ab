#include "controls/MapRamp.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace marvello {

namespace {

/// The hue of a place of the ramp: a and b of CIE L*a*b*.
struct Hue {
    double a, b;
};
constexpr std::array lightHues{Hue{0, 8}, Hue{-7, 9}, Hue{-12, 1}, Hue{-14, -8}, Hue{-12, -17}, Hue{-9, -25}};
constexpr std::array darkHues{Hue{-2, -4}, Hue{-8, -8}, Hue{-13, -11}, Hue{-17, -15}};

Hue hueAt(std::span<const Hue> hues, double part) {
    const double place = part * static_cast<double>(hues.size() - 1);
    const auto left = std::min(static_cast<std::size_t>(place), hues.size() - 2);
    const double rest = place - static_cast<double>(left);
    return {std::lerp(hues[left].a, hues[left + 1].a, rest), std::lerp(hues[left].b, hues[left + 1].b, rest)};
}

/// CIE 15: from L*a*b* to XYZ with the white of D65; IEC 61966-2-1: from there to sRGB.
QColor fromLab(double lightness, const Hue& hue) {
    const auto inverse = [](double t) {
        constexpr double delta = 6.0 / 29;
        return t > delta ? t * t * t : 3 * delta * delta * (t - 4.0 / 29);
    };
    const double middle = (lightness + 16) / 116;
    const double x = 0.95047 * inverse(middle + hue.a / 500);
    const double y = inverse(middle);
    const double z = 1.08883 * inverse(middle - hue.b / 200);
    const auto encoded = [](double linear) {
        const double inside = std::clamp(linear, 0.0, 1.0);
        return static_cast<float>(inside <= 0.0031308 ? 12.92 * inside
                                                      : 1.055 * std::pow(inside, 1 / 2.4) - 0.055);
    };
    return QColor::fromRgbF(encoded(3.2406 * x - 1.5372 * y - 0.4986 * z),
                            encoded(-0.9689 * x + 1.8758 * y + 0.0415 * z),
                            encoded(0.0557 * x - 0.2040 * y + 1.0570 * z));
}

}  // namespace

QColor mapColour(int band, int bands, bool isDark) {
    const double part = bands > 1 ? static_cast<double>(band) / (bands - 1) : 0.5;
    if (isDark) return fromLab(std::lerp(16, 52, part), hueAt(darkHues, part));
    return fromLab(std::lerp(96, 62, part), hueAt(lightHues, part));
}

}  // namespace marvello
