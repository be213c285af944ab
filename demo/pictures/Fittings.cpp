#include "demo/pictures/Fittings.h"

#include <algorithm>
#include <cmath>

#include "demo/pictures/Shapes.h"

namespace marvello::pictures::fittings {

using namespace shapes;

namespace {

Bounds post(double radius, double low, double high) {
    return {{-radius, low, -radius}, {radius, high, radius}};
}

double boltHead(Vec3 p, double size) {
    const double washer = cylinderY(p, 0, 0.18 * size, 1.15 * size, 0.05 * size);
    const double head = common(hexagonY(p, 0.1 * size, 0.85 * size, 0.82 * size, 0.04 * size),
                               sphere(p - Vec3{0, -0.55 * size, 0}, 1.62 * size), 0.1 * size);
    return std::min(washer, head);
}

}  // namespace

void boltCircle(Scene& scene, const Frame& frame, double radius, int count, double size, double first) {
    scene.add(paints::bolt, frame, post(radius + 1.2 * size, -1, size), [=](Vec3 p) {
        Vec3 q = sectorY(p, count, first);
        q.x -= radius;
        return boltHead(q, size);
    });
}

void bolt(Scene& scene, const Frame& frame, double size) {
    scene.add(paints::bolt, frame, post(1.2 * size, -1, size), [=](Vec3 p) { return boltHead(p, size); });
}

void flangedNeck(Scene& scene, const Frame& frame, double radius, double height) {
    const double thick = 0.36 * radius + 6, wide = 1.62 * radius + 12;
    scene.add(paints::body, frame, post(wide + 8, -0.6 * radius, height), [=](Vec3 p) {
        const double neck = cylinderY(p, -0.6 * radius, height - thick, radius + 9, 1);
        const double flange = cylinderY(p, height - 2 * thick, height - thick - 0.8, wide, 3);
        return blend(neck, flange, 14);
    });
    scene.add(paints::machined, frame, post(wide, height - thick - 1, height),
              [=](Vec3 p) { return cylinderY(p, height - thick, height, wide - 0.5, 1.2); });
    Frame top = frame;
    top.origin = frame.global({0, height, 0});
    const double size = 0.10 * radius + 4.5;
    boltCircle(scene, top, wide - 1.55 * size, 4, size, 0.785);
}

void copperPipe(Scene& scene, const Frame& frame, double radius, double height) {
    scene.add(paints::brass, frame, post(radius + 5, -1, 0.34 * radius + 5),
              [=](Vec3 p) { return cylinderY(p, 0, 0.34 * radius + 4, radius + 4, 2); });
    scene.add(paints::copper, frame, post(radius, -1, height), [=](Vec3 p) {
        const double pipe = cylinderY(p, -1, height, radius, 1);
        return cut(pipe, cylinderY(p, 4, height + 50, radius - 2.6, 0), 1);
    });
}

void serviceValve(Scene& scene, const Frame& frame, double radius, double height) {
    const double flange = 0.42 * radius + 6, wide = 1.35 * radius + 11;
    const double body = 1.1 * radius + 12, shoulder = height - 0.9 * radius - 8;
    scene.add(paints::machined, frame, post(1.5 * wide, 0, flange),
              [=](Vec3 p) { return box(p - Vec3{0, flange / 2, 0}, {wide, flange / 2, wide}, 4); });
    Frame top = frame;
    top.origin = frame.global({0, flange, 0});
    const double size = 0.10 * radius + 5;
    boltCircle(scene, top, (wide - 1.35 * size) * 1.414, 4, size, 0.785);
    const double outlet = std::min(flange + body + 4, shoulder - 4), reach = 1.1 * body + 1.0 * radius + 8;
    scene.add(paints::sheet, frame,
              {{-1.3 * body, flange - 2, -1.3 * body}, {reach, shoulder + 8, 1.3 * body}}, [=](Vec3 p) {
                  const double stem = coneY(p, flange - 2, shoulder, body, 0.8 * body, 3);
                  const double branch = cylinderX(p - Vec3{0, outlet, 0}, 0, reach - 4, radius + 5, 2);
                  const double bonnet = cylinderY(p, shoulder - 6, shoulder + 6, 0.62 * body, 2);
                  return blend(blend(stem, branch, 16), bonnet, 6);
              });
    Frame branch = frame;
    branch.origin = frame.global({reach - 4, outlet, 0});
    branch.y = frame.x;
    branch.x = -frame.y;
    copperPipe(scene, branch, radius, 0.75 * radius + 14);
    Frame cap = frame;
    cap.origin = frame.global({0, shoulder + 6, 0});
    const double rest = height - shoulder - 6;
    scene.add(paints::brass, cap, post(0.6 * body, -1, rest), [=](Vec3 p) {
        return std::min(cylinderY(p, 0, rest, 0.40 * body, 4),
                        hexagonY(p, -1, 0.42 * rest, 0.46 * body, 1.5));
    });
}

void sightGlass(Scene& scene, const Frame& frame, double radius) {
    const double wide = 1.65 * radius, high = 0.42 * radius;
    scene.add(paints::body, frame, post(wide + 8, -radius, 0.1 * radius),
              [=](Vec3 p) { return cylinderY(p, -radius, 0.06 * radius, wide + 4, 2); });
    scene.add(paints::ring, frame, post(wide, 0, high), [=](Vec3 p) {
        return cut(cylinderY(p, 0, high, wide, 2.5), cylinderY(p, 0.12 * radius, 2 * high, radius, 0), 2.5);
    });
    scene.add(paints::glass, frame, post(radius, 0, 0.3 * radius), [=](Vec3 p) {
        return common(cylinderY(p, 0, 0.3 * radius, radius, 1),
                      sphere(p - Vec3{0, -2.4 * radius, 0}, 2.65 * radius), 1);
    });
    Frame top = frame;
    top.origin = frame.global({0, high, 0});
    boltCircle(scene, top, 1.33 * radius, 6, 0.17 * radius, 0.26);
}

void solenoid(Scene& scene, const Frame& frame, double size) {
    scene.add(paints::brass, frame, post(size, -size, 0.9 * size), [=](Vec3 p) {
        return std::min(hexagonY(p, -size, 0.5 * size, 0.62 * size, 1.5),
                        cylinderY(p, 0, 0.9 * size, 0.36 * size, 0));
    });
    scene.add(paints::black, frame, {{-size, 0.6 * size, -1.6 * size}, {size, 2.5 * size, size}},
              [=](Vec3 p) {
                  const double coil =
                      box(p - Vec3{0, 1.5 * size, 0}, {0.78 * size, 0.82 * size, 0.78 * size}, 0.2 * size);
                  const double plug =
                      box(p - Vec3{0, 1.5 * size, -size}, {0.5 * size, 0.5 * size, 0.5 * size}, 0.1 * size);
                  return std::min(coil, plug);
              });
    scene.add(paints::bolt, frame, post(0.4 * size, 2.2 * size, 2.75 * size),
              [=](Vec3 p) { return hexagonY(p, 2.2 * size, 2.7 * size, 0.3 * size, 1); });
}

void gland(Scene& scene, const Frame& frame, double size) {
    scene.add(paints::black, frame, post(size, -1, 2.2 * size), [=](Vec3 p) {
        const double nut = hexagonY(p, 0, 0.6 * size, 0.8 * size, 1.5);
        return std::min(nut, coneY(p, 0.5 * size, 1.7 * size, 0.78 * size, 0.55 * size, 3));
    });
}

}  // namespace marvello::pictures::fittings
