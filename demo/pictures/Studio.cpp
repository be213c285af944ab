#include "demo/pictures/Studio.h"

#include <algorithm>
#include <cmath>

namespace marvello::pictures {

namespace {

SoftBox aimed(Vec3 at, Vec3 centre, double halfWidth, double halfHeight, double radiance) {
    const Vec3 normal = normalized(at - centre);
    const Vec3 right = normalized(cross(Vec3{0, 1, 0}, normal));
    const Vec3 up = cross(normal, right);
    return {centre, right * halfWidth, up * halfHeight, normal, radiance};
}

}  // namespace

bool SoftBox::isMet(const Ray& ray) const {
    const double towards = dot(ray.direction, normal);
    if (towards >= 0) return false;
    const double t = dot(centre - ray.origin, normal) / towards;
    if (t <= 0) return false;
    const Vec3 q = ray.origin + ray.direction * t - centre;
    return std::abs(dot(q, right)) <= dot(right, right) && std::abs(dot(q, up)) <= dot(up, up);
}

Studio::Studio(const Bounds& machine) {
    const Vec3 c = machine.centre();
    const double s = length(machine.high - machine.low);
    boxes_ = {aimed(c, c + Vec3{-0.75, 1.25, 1.05} * s, 0.62 * s, 0.5 * s, 7.6),
              aimed(c, c + Vec3{1.5, 0.55, 0.85} * s, 0.38 * s, 0.75 * s, 3.0),
              aimed(c, c + Vec3{0.25, 1.25, -0.95} * s, 1.0 * s, 0.22 * s, 9.0)};
}

Vec3 Studio::room(Vec3 direction) {
    // White ceiling, grey walls, and a dark opening behind the camera that gives metal its contrast.
    const double height = direction.y;
    double level = height > 0 ? std::lerp(0.30, 0.78, std::sqrt(height)) : 0.30;
    const double behindCamera =
        std::clamp(direction.z, 0.0, 1.0) * std::clamp(1 - 1.6 * std::abs(height - 0.1), 0.0, 1.0);
    level *= 1 - 0.72 * behindCamera;
    return Vec3{0.97, 0.99, 1.02} * level;
}

Vec3 Studio::mirrored(const Ray& ray) const {
    for (const SoftBox& box : boxes_)
        if (box.isMet(ray)) return Vec3{1, 1, 1} * box.radiance;
    return room(ray.direction);
}

Vec3 Studio::floor() { return {0.60, 0.615, 0.625}; }

}  // namespace marvello::pictures
