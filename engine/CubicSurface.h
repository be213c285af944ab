#pragma once

#include <array>
#include <optional>
#include <span>

namespace marvello {

/// The coefficients of a surface in the order of clsPolynomial.
using CubicTerms = std::array<double, 10>;

/// A value of a surface at x and y.
struct SurfacePoint {
    double x = 0, y = 0, value = 0;
};

double valueAt(const CubicTerms& terms, double x, double y);

/// Returns the same surface over u and v, where x = scaleX u + originX and y = scaleY v + originY.
CubicTerms substituted(const CubicTerms& terms, double scaleX, double originX, double scaleY, double originY);

/// Returns the surface that is nearest to the points in least squares, all with the same weight. None unless
/// the points determine all ten coefficients.
std::optional<CubicTerms> fittedSurface(std::span<const SurfacePoint> points);

}  // namespace marvello
