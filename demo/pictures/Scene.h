#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "demo/pictures/Paint.h"
#include "demo/pictures/Vector.h"

namespace marvello::pictures {

/// A box along the axes.
struct Bounds {
    Vec3 low;
    Vec3 high;

    double distance(Vec3 p) const;
    Vec3 centre() const { return (low + high) * 0.5; }
};

/// A machine on the floor y = 0: solids of one paint each, given by their signed distance.
class Scene {
  public:
    using Distance = std::function<double(Vec3)>;

    /// A solid within `bounds`.
    void add(Paint paint, Bounds bounds, Distance distance);
    /// A solid in the coordinates of `frame`, within `bounds` there.
    template <typename F>
    void add(Paint paint, const Frame& frame, Bounds bounds, F distance) {
        add(std::move(paint), around(frame, bounds),
            [frame, distance](Vec3 p) { return distance(frame.local(p)); });
    }

    /// Gives all solids one paint.
    void paintAll(const Paint& paint);

    /// To be called once, after the last solid: prepares the search for the next surface.
    void finish();

    const Bounds& bounds() const { return bounds_; }

    struct Hit {
        bool found = false;
        double distance = 0;
        Vec3 place;
        Vec3 normal;
        const Paint* paint = nullptr;
    };
    /// The first surface along the ray; the floor is none.
    Hit trace(const Ray& ray) const;
    /// Whether something stands in the first `reach` mm of the ray.
    bool isBlocked(const Ray& ray, double reach) const;

  private:
    struct Part {
        Paint paint;
        Bounds bounds;
        Distance distance;
    };
    /// Near a surface a cell lists the parts that may be the nearest at any place in it.
    struct Cell {
        double clearance = 0;  ///< distance at the cell's centre
        std::uint32_t first = 0;
        std::uint32_t count = 0;
    };

    static Bounds around(const Frame& frame, const Bounds& bounds);
    bool enter(const Ray& ray, double& from, double& to) const;
    const Cell& cellAt(Vec3 p, Vec3& centre) const;
    double distanceIn(const Cell& cell, Vec3 p, const Part*& nearest) const;
    double distanceAt(Vec3 p) const;
    double march(const Ray& ray, double reach, const Part*& found) const;
    void fill(Cell& cell, Vec3 centre);

    std::vector<Part> parts_;
    Bounds bounds_{{1e9, 1e9, 1e9}, {-1e9, -1e9, -1e9}};
    double side_ = 0;  ///< of a cell
    double half_ = 0;  ///< from a cell's centre to its corner
    int counts_[3]{};
    std::vector<Cell> cells_;
    std::vector<std::uint32_t> lists_;
};

}  // namespace marvello::pictures
