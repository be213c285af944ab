#pragma once

#include <array>

#include "demo/pictures/Scene.h"
#include "demo/pictures/Vector.h"

namespace marvello::pictures {

/// A soft box: a rectangle that shines to the side of its normal.
struct SoftBox {
    Vec3 centre;
    Vec3 right;  ///< half its width
    Vec3 up;     ///< half its height
    Vec3 normal;
    double radiance = 0;

    double area() const { return 4 * length(right) * length(up); }
    bool isMet(const Ray& ray) const;
};

/// Light and backdrop around a machine, in proportion to its size.
class Studio {
  public:
    explicit Studio(const Bounds& machine);

    const std::array<SoftBox, 3>& boxes() const { return boxes_; }
    /// What comes from the room in a direction, without the boxes.
    static Vec3 room(Vec3 direction);
    /// What a mirror sees, the boxes included.
    Vec3 mirrored(const Ray& ray) const;
    /// What the floor sends back where nothing shades it.
    static Vec3 floor();
    /// The share of the floor's light that comes from the box; the rest is the room's.
    static constexpr std::array<double, 3> floorShares{0.44, 0.12, 0.12};

  private:
    std::array<SoftBox, 3> boxes_;
};

}  // namespace marvello::pictures
