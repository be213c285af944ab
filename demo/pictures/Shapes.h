#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

#include "demo/pictures/Vector.h"

// Signed distances of solids, in mm, negative inside: they are exact or too small, never too great, so that a
// ray may step by them. `r` rounds the edges within the given size.
namespace marvello::pictures::shapes {

inline double hypot2(double a, double b) { return std::sqrt(a * a + b * b); }

/// Distance of a rectangle's corner rounded with `r`, from the distances to its two pairs of sides.
inline double corner(double a, double b, double r) {
    const double u = a + r, v = b + r;
    return std::min(std::max(u, v), 0.0) + hypot2(std::max(u, 0.0), std::max(v, 0.0)) - r;
}

inline double sphere(Vec3 p, double radius) { return length(p) - radius; }

inline double box(Vec3 p, Vec3 half, double r) {
    const Vec3 q{std::abs(p.x) - half.x + r, std::abs(p.y) - half.y + r, std::abs(p.z) - half.z + r};
    const Vec3 out{std::max(q.x, 0.0), std::max(q.y, 0.0), std::max(q.z, 0.0)};
    return length(out) + std::min(std::max({q.x, q.y, q.z}), 0.0) - r;
}

/// Along x from `from` to `to`.
inline double cylinderX(Vec3 p, double from, double to, double radius, double r) {
    return corner(hypot2(p.y, p.z) - radius, std::abs(p.x - (from + to) / 2) - (to - from) / 2, r);
}

/// Along y from `from` to `to`.
inline double cylinderY(Vec3 p, double from, double to, double radius, double r) {
    return cylinderX({p.y, p.x, p.z}, from, to, radius, r);
}

/// Along y, radius `low` at `from` and `high` at `to`.
inline double coneY(Vec3 p, double from, double to, double low, double high, double r) {
    const double share = std::clamp((p.y - from) / (to - from), 0.0, 1.0);
    const double slope = (high - low) / (to - from);
    const double side = (hypot2(p.x, p.z) - (low + share * (high - low))) / std::sqrt(1 + slope * slope);
    return corner(side, std::abs(p.y - (from + to) / 2) - (to - from) / 2, r);
}

inline double coneX(Vec3 p, double from, double to, double low, double high, double r) {
    return coneY({p.y, p.x, p.z}, from, to, low, high, r);
}

/// A tank along x with domed ends of the depth `dome`.
inline double tankX(Vec3 p, double from, double to, double radius, double dome) {
    const double q = hypot2(p.y, p.z);
    const double inner = (to - from) / 2 - dome;
    const double over = std::max(std::abs(p.x - (from + to) / 2) - inner, 0.0) * radius / dome;
    const double d = hypot2(q, over) - radius;
    return d * (over > 0 ? std::min(dome / radius, 1.0) : 1);
}

inline double tankY(Vec3 p, double from, double to, double radius, double dome) {
    return tankX({p.y, p.x, p.z}, from, to, radius, dome);
}

/// A hexagon across flats 2 `flat` along y.
inline double hexagonY(Vec3 p, double from, double to, double flat, double r) {
    const double x = std::abs(p.x), z = std::abs(p.z);
    const double side = std::max(x * 0.8660254037844386 + z * 0.5, z) - flat;
    return corner(side, std::abs(p.y - (from + to) / 2) - (to - from) / 2, r);
}

/// The union with a fillet of about the radius `k`.
inline double blend(double a, double b, double k) {
    const double h = std::max(k - std::abs(a - b), 0.0) / k;
    return std::min(a, b) - h * h * k / 4;
}

/// What is in both, the edge rounded by about `k`.
inline double common(double a, double b, double k) { return -blend(-a, -b, k); }
inline double cut(double a, double b, double k) { return common(a, -b, k); }

/// Turns `p` around the x axis into the sector of one of `count` equal things, the first at the angle `first`
/// from y to z; that thing then stands at the y axis.
inline Vec3 sectorX(Vec3 p, int count, double first) {
    const double step = 2 * std::numbers::pi / count;
    double angle = std::atan2(p.z, p.y) - first;
    angle -= step * std::round(angle / step);
    const double q = hypot2(p.y, p.z);
    return {p.x, q * std::cos(angle), q * std::sin(angle)};
}

/// Around the y axis; the thing then stands at the x axis.
inline Vec3 sectorY(Vec3 p, int count, double first) {
    const Vec3 turned = sectorX({p.y, p.x, p.z}, count, first);
    return {turned.y, turned.x, turned.z};
}

/// The nearest of `count` places `pitch` apart, the first at 0: `x` counted from it.
inline double row(double x, int count, double pitch) {
    return x - pitch * std::clamp(std::round(x / pitch), 0.0, static_cast<double>(count - 1));
}

}  // namespace marvello::pictures::shapes
