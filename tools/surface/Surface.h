#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace marvello {

/// A value over evaporating (x) and condensing (y) dew temperature in degC.
struct Sample {
    double x;
    double y;
    double value;
    double scale = value;  ///< what an error is compared with
};

/// How far a surface is from its samples.
struct FitError {
    double rms = 0;      ///< over the scale of the samples
    double largest = 0;  ///< likewise
};

/// Coefficients in the catalogue's order; terms that a form lacks are left at 0.
using Coefficients = std::array<double, 10>;

/// The forms of surface in the catalogue.
enum class SurfaceForm {
    lineCubic,   ///< 1, x, x^2, x^3 of the cubic: a conversion of temperatures, y unused
    cubic,       ///< 1, x, y, x^2, xy, y^2, x^3, x^2 y, x y^2, y^3: capacity and power
    biquadratic  ///< 1, x, x^2, y, y^2, xy, x^2 y, x y^2, x^2 y^2: discharge temperature
};

double evaluate(SurfaceForm form, const Coefficients& coefficients, double x, double y);

/// How many coefficients a form has.
std::size_t termCount(SurfaceForm form);

/// The term of a coefficient as text, such as "x^2 y"; of forms over x and y.
std::string_view termName(SurfaceForm form, std::size_t coefficient);

/// The coefficients of a form over x and y that the samples say nothing about, because their terms repeat
/// what earlier terms give at all samples: with two values of x, say, that of x^2.
std::vector<std::size_t> undeterminedTerms(SurfaceForm form, const std::vector<Sample>& samples);

/// Least squares of the error over the samples' scale. Coefficients are rounded to eight significant digits,
/// which is far below the error of the fit; only the last digit may depend on how the tool was compiled.
/// Terms that the samples do not determine are left at 0. Needs a sample.
Coefficients fit(SurfaceForm form, const std::vector<Sample>& samples);

FitError errorOf(SurfaceForm form, const Coefficients& coefficients, const std::vector<Sample>& samples);

/// Least-squares polynomial of degree 4 through samples (x, value), y unused; rounded likewise.
std::array<double, 5> fitQuartic(const std::vector<Sample>& samples);

/// The same of degree 2.
std::array<double, 3> fitQuadratic(const std::vector<Sample>& samples);

}  // namespace marvello
