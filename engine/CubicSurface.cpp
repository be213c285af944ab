#include "engine/CubicSurface.h"

#include <Eigen/QR>
#include <algorithm>

#include "catalogue/clsPolynomial.h"

namespace marvello {

namespace {

/// A coordinate taken to the range from -1 to 1, in which the terms of a surface are nearly independent.
struct Scale {
    double origin = 0;
    double half = 1;

    Scale(std::span<const SurfacePoint> points, double SurfacePoint::* coordinate) {
        const auto [least, most] = std::ranges::minmax(points, {}, coordinate);
        origin = (least.*coordinate + most.*coordinate) / 2;
        if (most.*coordinate > least.*coordinate) half = (most.*coordinate - least.*coordinate) / 2;
    }
    double operator()(double value) const { return (value - origin) / half; }
};

}  // namespace

double valueAt(const CubicTerms& terms, double x, double y) {
    clsPolynomial surface;
    surface.c = terms;
    return surface.at(x, y);
}

// The Taylor series of the surface at the new origin, which ends with the third derivatives.
CubicTerms substituted(const CubicTerms& c, double sx, double x, double sy, double y) {
    return {valueAt(c, x, y),
            sx * (c[1] + 2 * c[3] * x + c[4] * y + 3 * c[6] * x * x + 2 * c[7] * x * y + c[8] * y * y),
            sy * (c[2] + c[4] * x + 2 * c[5] * y + c[7] * x * x + 2 * c[8] * x * y + 3 * c[9] * y * y),
            sx * sx * (c[3] + 3 * c[6] * x + c[7] * y),
            sx * sy * (c[4] + 2 * c[7] * x + 2 * c[8] * y),
            sy * sy * (c[5] + c[8] * x + 3 * c[9] * y),
            sx * sx * sx * c[6],
            sx * sx * sy * c[7],
            sx * sy * sy * c[8],
            sy * sy * sy * c[9]};
}

std::optional<CubicTerms> fittedSurface(std::span<const SurfacePoint> points) {
    constexpr Eigen::Index terms = 10;
    if (points.size() < terms) return std::nullopt;
    const Scale toU(points, &SurfacePoint::x);
    const Scale toV(points, &SurfacePoint::y);
    const auto rows = static_cast<Eigen::Index>(points.size());
    Eigen::MatrixXd matrix(rows, terms);
    Eigen::VectorXd values(rows);
    for (Eigen::Index row = 0; row < rows; ++row) {
        const SurfacePoint& point = points[static_cast<std::size_t>(row)];
        const double u = toU(point.x);
        const double v = toV(point.y);
        matrix.row(row) << 1, u, v, u * u, u * v, v * v, u * u * u, u * u * v, u * v * v, v * v * v;
        values(row) = point.value;
    }
    Eigen::ColPivHouseholderQR<Eigen::MatrixXd> qr(matrix);
    qr.setThreshold(1e-7);  // the last bits of temperatures determine no coefficient
    if (qr.rank() < terms) return std::nullopt;
    const Eigen::VectorXd solution = qr.solve(values);
    CubicTerms scaled{};
    std::copy_n(solution.data(), scaled.size(), scaled.begin());
    return substituted(scaled, 1 / toU.half, -toU.origin / toU.half, 1 / toV.half, -toV.origin / toV.half);
}

}  // namespace marvello
