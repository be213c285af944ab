// A plain model of a compressor with the maker's emblem in front of it.
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "demo/pictures/Machine.h"
#include "demo/pictures/Shapes.h"

namespace marvello::pictures {

namespace {

struct Corner {
    double x, y;
};

/// The arm of the emblem in a square with sides of 1, y upwards.
constexpr Corner arm[]{{0.375, 0.5},  {0.6875, 0.90625},  {0.94375, 0.90625},
                       {0.6375, 0.5}, {0.94375, 0.09375}, {0.6875, 0.09375}};

/// The signed distance of the arm's outline, by its nearest edge and the number of edges beside the point.
double outline(double x, double y) {
    double nearest = 1e9;
    bool inside = false;
    for (std::size_t i = 0, k = std::size(arm) - 1; i < std::size(arm); k = i++) {
        const double ex = arm[k].x - arm[i].x, ey = arm[k].y - arm[i].y;
        const double wx = x - arm[i].x, wy = y - arm[i].y;
        const double share = std::clamp((wx * ex + wy * ey) / (ex * ex + ey * ey), 0.0, 1.0);
        nearest = std::min(nearest, std::hypot(wx - ex * share, wy - ey * share));
        if ((arm[i].y > y) != (arm[k].y > y) && x < ex * (y - arm[i].y) / ey + arm[i].x) inside = !inside;
    }
    return inside ? -nearest : nearest;
}

}  // namespace

Scene standInOf(const Design& design) {
    Scene scene;
    assemble(scene, design);
    scene.paintAll(paints::clay);
    const double size = 0.46 * design.body.height, thick = 0.11 * size;
    Frame frame;
    frame.origin = {0.30 * design.body.length, -0.094 * size + 1, 0.5 * design.body.width + 0.30 * size};
    frame.x = normalized(Vec3{1, 0, -0.18});
    frame.z = cross(frame.x, frame.y);
    scene.add(paints::emblem, frame, {{0, 0, -thick}, {size, size, thick}}, [=](Vec3 p) {
        const double bar =
            shapes::box(p - Vec3{0.2 * size, 0.5 * size, 0}, {0.10625 * size, 0.40625 * size, thick}, 2.5);
        return std::min(bar,
                        shapes::corner(outline(p.x / size, p.y / size) * size, std::abs(p.z) - thick, 2.5));
    });
    scene.finish();
    return scene;
}

}  // namespace marvello::pictures
