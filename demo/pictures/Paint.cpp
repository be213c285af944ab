#include "demo/pictures/Paint.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace marvello::pictures {

namespace {

double fromScreen(unsigned value) {
    const double v = value / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

double latticeValue(std::int64_t x, std::int64_t y, std::int64_t z) {
    auto h = static_cast<std::uint64_t>(x) * 0x9E3779B97F4A7C15ULL ^
             static_cast<std::uint64_t>(y) * 0xC2B2AE3D27D4EB4FULL ^
             static_cast<std::uint64_t>(z) * 0x165667B19E3779F9ULL;
    h = (h ^ (h >> 31)) * 0xBF58476D1CE4E5B9ULL;
    return static_cast<double>((h ^ (h >> 29)) >> 11) * 0x1p-53;
}

/// Smooth noise between 0 and 1 that changes over a length of 1.
double noise(Vec3 p) {
    const double fx = std::floor(p.x), fy = std::floor(p.y), fz = std::floor(p.z);
    const auto x = static_cast<std::int64_t>(fx), y = static_cast<std::int64_t>(fy),
               z = static_cast<std::int64_t>(fz);
    const auto smooth = [](double t) { return t * t * (3 - 2 * t); };
    const double u = smooth(p.x - fx), v = smooth(p.y - fy), w = smooth(p.z - fz);
    const auto edge = [&](std::int64_t j, std::int64_t k) {
        return std::lerp(latticeValue(x, y + j, z + k), latticeValue(x + 1, y + j, z + k), u);
    };
    return std::lerp(std::lerp(edge(0, 0), edge(1, 0), v), std::lerp(edge(0, 1), edge(1, 1), v), w);
}

Paint painted(unsigned rgb, double roughness, double peel) {
    return {screenColour(rgb), roughness, 0, peel, 0.055, {}};
}

Paint metal(Vec3 colour, double roughness) { return {colour, roughness, 1, 0, 0.04, {}}; }

}  // namespace

Vec3 screenColour(unsigned rgb) {
    return {fromScreen(rgb >> 16 & 255), fromScreen(rgb >> 8 & 255), fromScreen(rgb & 255)};
}

double Decal::at(Vec3 p, Vec3& colour) const {
    const Vec3 q = frame.local(p);
    if (std::abs(q.z) > reach) return 0;
    const double u = q.x / width * columns - 0.5, v = (1 - q.y / height) * rows - 0.5;
    if (u < 0 || v < 0 || u >= columns - 1 || v >= rows - 1) return 0;
    const auto column = static_cast<int>(u), line = static_cast<int>(v);
    const double a = u - column, b = v - line;
    const auto first = static_cast<std::size_t>(line * columns + column);
    const auto below = first + static_cast<std::size_t>(columns);
    colour = mix(mix(colours[first], colours[first + 1], a), mix(colours[below], colours[below + 1], a), b);
    return std::lerp(std::lerp(covers[first], covers[first + 1], a),
                     std::lerp(covers[below], covers[below + 1], a), b);
}

Paint Paint::with(std::shared_ptr<const Decal> decal) const {
    Paint marked = *this;
    marked.decals.push_back(std::move(decal));
    return marked;
}

Vec3 textured(const Paint& paint, Vec3 p, Vec3 n) {
    if (paint.peel <= 0) return n;
    const auto height = [](Vec3 q) {
        return noise(q * (1 / 7.0)) + 0.35 * noise(q * (1 / 3.2) + Vec3{9, 4, 7});
    };
    constexpr double step = 0.8;
    const double here = height(p);
    const Vec3 slope{height(p + Vec3{step, 0, 0}) - here, height(p + Vec3{0, step, 0}) - here,
                     height(p + Vec3{0, 0, step}) - here};
    const Vec3 tangent = slope - n * dot(slope, n);
    return normalized(n - tangent * (paint.peel / step * 7));
}

namespace paints {
const Paint body = painted(0x45616C, 0.27, 0.035);
const Paint sheet = painted(0x516D77, 0.25, 0.008);
const Paint machined = metal({0.60, 0.61, 0.62}, 0.30);
const Paint bolt = metal({0.52, 0.53, 0.55}, 0.34);
const Paint steel = metal({0.66, 0.66, 0.67}, 0.16);
const Paint copper = metal({0.93, 0.56, 0.42}, 0.27);
const Paint brass = metal({0.86, 0.66, 0.34}, 0.26);
const Paint black = painted(0x25292C, 0.42, 0);
const Paint glass{{0.22, 0.11, 0.02}, 0.05, 0, 0, 0.06, {}};
const Paint ring = metal({0.62, 0.62, 0.63}, 0.2);
const Paint aluminium = metal({0.70, 0.71, 0.72}, 0.38);
const Paint plate = metal({0.72, 0.73, 0.74}, 0.42);
const Paint display{{0.006, 0.012, 0.015}, 0.08, 0, 0, 0.05, {}};
const Paint clay = painted(0x98A3A9, 0.45, 0);
const Paint emblem = painted(0x0E6A80, 0.22, 0);
Paint accent(unsigned rgb) { return painted(rgb, 0.3, 0.012); }
}  // namespace paints

}  // namespace marvello::pictures
