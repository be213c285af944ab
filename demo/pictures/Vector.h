#pragma once

#include <cmath>

namespace marvello::pictures {

/// A place or direction in mm, or a linear colour. In scenes x runs along the machine from the motor end, y
/// up from the floor and z towards who looks.
struct Vec3 {
    double x = 0;
    double y = 0;
    double z = 0;
};

inline Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vec3 operator-(Vec3 a) { return {-a.x, -a.y, -a.z}; }
inline Vec3 operator*(Vec3 a, double k) { return {a.x * k, a.y * k, a.z * k}; }
inline Vec3 operator*(double k, Vec3 a) { return a * k; }
inline Vec3 operator*(Vec3 a, Vec3 b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }
inline Vec3& operator+=(Vec3& a, Vec3 b) { return a = a + b; }

inline double dot(Vec3 a, Vec3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vec3 cross(Vec3 a, Vec3 b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(Vec3 a) { return std::sqrt(dot(a, a)); }
inline Vec3 normalized(Vec3 a) { return a * (1 / length(a)); }
inline Vec3 mix(Vec3 a, Vec3 b, double share) { return a * (1 - share) + b * share; }

/// Two directions that stand on the unit vector `n` and on each other.
inline void basisOf(Vec3 n, Vec3& u, Vec3& v) {
    u = normalized(std::abs(n.x) > 0.7 ? cross(n, {0, 1, 0}) : cross(n, {1, 0, 0}));
    v = cross(n, u);
}

/// Where a fitting stands and how it is turned.
struct Frame {
    Vec3 origin;
    Vec3 x{1, 0, 0};
    Vec3 y{0, 1, 0};
    Vec3 z{0, 0, 1};

    Vec3 local(Vec3 p) const {
        const Vec3 d = p - origin;
        return {dot(d, x), dot(d, y), dot(d, z)};
    }
    Vec3 global(Vec3 p) const { return origin + x * p.x + y * p.y + z * p.z; }
};

/// A frame at `origin` whose y axis is the unit vector `up`.
inline Frame standing(Vec3 origin, Vec3 up) {
    Frame frame;
    frame.origin = origin;
    frame.y = up;
    const Vec3 ahead{1, 0, 0};
    frame.x = normalized(std::abs(up.z) > 0.7 ? ahead - up * up.x : cross(up, {0, 0, 1}));
    frame.z = cross(frame.x, frame.y);
    return frame;
}

struct Ray {
    Vec3 origin;
    Vec3 direction;  ///< of unit length
};

}  // namespace marvello::pictures
