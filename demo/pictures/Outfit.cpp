// What a machine is fitted out with: connections, feet, electrical parts, marks.
#include <algorithm>
#include <cmath>

#include "demo/pictures/Fittings.h"
#include "demo/pictures/Machine.h"
#include "demo/pictures/Marks.h"
#include "demo/pictures/Shapes.h"

namespace marvello::pictures::assemblies {

using namespace shapes;

namespace {

const Vec3 up{0, 1, 0};
const QColor white(0xF2F5F6);

/// A steel part between the heights, across x, from a wide bottom to a narrow top.
double web(Vec3 q, double halfThick, double high, double bottom, double top) {
    const double slope = (bottom - top) / high;
    const double side = (std::abs(q.z) - (bottom - slope * q.y)) / std::sqrt(1 + slope * slope);
    const double upDown = std::abs(q.y - high / 2) - high / 2;
    return corner(std::max(side, upDown), std::abs(q.x) - halfThick, 4);
}

/// The top of the castings at the middle of the connection.
double topUnder(const Design& d, double x) {
    if (d.separator == Design::Separator::upright && x > d.screwTo) return d.separatorTop;
    double radius = d.screwRadius * 0.8;
    if (x < d.motorTo)
        radius = d.openDrive ? 0.72 * d.motorRadius : x < d.coverTo ? 0.86 * d.motorRadius : d.motorRadius;
    if (x > d.screwTo) radius = d.separatorRadius;
    if (x > d.separatorTo - d.dome && !d.openDrive) radius *= 0.93;
    return d.axis + radius;
}

void suction(Scene& scene, const Design& d) {
    const double base = topUnder(d, d.suctionX) - 6, r = d.suctionRadius;
    const double neck = std::max(0.42 * (d.suctionTop - base), 1.1 * r);
    fittings::flangedNeck(scene, standing({d.suctionX, base, 0}, up), r, neck);
    Frame valve = standing({d.suctionX, base + neck, 0}, up);
    const double rest = d.suctionTop - base - neck;
    if (rest > 2.4 * r + 30) {
        valve.x = {0, 0, -1};
        valve.z = {1, 0, 0};
        fittings::serviceValve(scene, valve, r, rest);
    } else {
        scene.add(paints::machined, valve, {{-2 * r - 20, 0, -2 * r - 20}, {2 * r + 20, 12, 2 * r + 20}},
                  [=](Vec3 p) { return cylinderY(p, 0, 11, 1.55 * r + 10, 1.5); });
        valve.origin.y += 11;
        fittings::copperPipe(scene, valve, r, rest - 11);
    }
}

void discharge(Scene& scene, const Design& d) {
    const double base = topUnder(d, d.dischargeX) - 8, r = d.dischargeRadius;
    const double space = d.dischargeTop - base;
    const double neck = std::max(0.30 * space, 0.8 * r + 8);
    fittings::flangedNeck(scene, standing({d.dischargeX, base, 0}, up), r, neck);
    Frame valve = standing({d.dischargeX, base + neck, 0}, up);
    valve.x = {0.0, 0, 1};
    valve.z = {-1, 0, 0};
    fittings::serviceValve(scene, valve, r, space - neck);
}

void economizer(Scene& scene, const Design& d) {
    const Vec3 out = normalized(Vec3{0, 0.35, 1});
    const bool inShell = d.economizerX > d.screwTo;
    const double radius = inShell ? d.separatorRadius : 0.95 * d.screwRadius;
    const Frame frame = standing(Vec3{d.economizerX, d.axis, 0} + out * (radius - 4), out);
    const double r = d.economizerRadius, room = d.body.width / 2 - radius * out.z;
    const double high = std::clamp(0.5 * room, 14.0, 40.0);
    fittings::flangedNeck(scene, frame, r, high);
    Frame pipe = frame;
    pipe.origin = frame.global({0, high, 0});
    fittings::copperPipe(scene, pipe, r, std::max(room - high, 10.0));
}

void ring(Scene& scene, const Design& d) {
    if (d.accent == 0 || d.separator == Design::Separator::upright) return;
    const double wide = 0.016 * d.body.length;
    double at = d.coverTo + d.collar() + 2, radius = d.motorRadius + d.ribHeight() + 1;
    if (d.ribs == Design::Ribs::none) {
        at = d.coverTo + 0.06 * d.body.length;
        radius = d.motorRadius + 1.4;
    }
    scene.add(paints::accent(d.accent),
              {{at, d.axis - radius, -radius}, {at + wide, d.axis + radius, radius}},
              [=](Vec3 p) { return cylinderX(p - Vec3{0, d.axis, 0}, at, at + wide, radius, 1.5); });
}

/// The lid and the body of a sheet metal box, with a joint between them.
void cabinet(Scene& scene, const Paint& paint, Vec3 centre, Vec3 half, double lid) {
    const double joint = half.y - lid;
    scene.add(paint, {centre - half, centre + half}, [=](Vec3 p) {
        const Vec3 q = p - centre;
        const double low = box(q - Vec3{0, (joint - half.y) / 2 - 0.6, 0},
                               {half.x - 3, (joint + half.y) / 2 - 0.6, half.z - 3}, 7);
        const double high =
            box(q - Vec3{0, (joint + half.y) / 2 + 0.6, 0}, {half.x, lid / 2 - 0.6, half.z}, 6);
        return std::min(low, high);
    });
    scene.add(paints::black, {centre - half, centre + half},
              [=](Vec3 p) { return box(p - centre - Vec3{0, joint, 0}, {half.x - 5, 3, half.z - 5}, 2); });
}

}  // namespace

void connections(Scene& scene, const Design& d) {
    suction(scene, d);
    discharge(scene, d);
    if (d.hasEconomizer && d.economizerX > d.flangeTo) economizer(scene, d);
    const double w = d.body.width;
    const bool holdsOil = d.separatorTo - d.screwTo > 0.15 * d.body.length;
    if (d.separator == Design::Separator::lying && !d.openDrive && holdsOil) {
        const double x = !d.showsRotors() ? d.separatorTo - d.dome - 0.10 * d.body.length
                                          : d.screwTo + d.collar() + 0.08 * w;
        const Vec3 out = normalized(Vec3{0, -0.30, 1});
        fittings::sightGlass(scene, standing(Vec3{x, d.axis, 0} + out * d.separatorRadius, out), 0.042 * w);
    }
    if (d.hasInjection) {
        const Vec3 out = normalized(Vec3{0, 0.55, 1});
        const double x = d.flangeTo + 0.34 * (d.screwTo - d.flangeTo);
        Frame frame = standing(Vec3{x, d.axis, 0} + out * (0.9 * d.screwRadius), out);
        fittings::flangedNeck(scene, frame, 11, 18);
        frame.origin = frame.global({0, 18, 0});
        fittings::solenoid(scene, frame, 0.034 * w);
    }
    ring(scene, d);
}

void castFeet(Scene& scene, const Design& d) {
    const double half = d.body.feetWidth / 2, pad = 0.06 * d.body.width, low = 0.030 * d.body.height;
    for (const double x : {d.feetFrom, d.feetTo()}) {
        if (d.separator == Design::Separator::upright && x > d.separatorX - d.separatorRadius) continue;
        const double top = d.axis - 0.45 * d.motorRadius, narrow = 0.62 * d.motorRadius;
        scene.add(paints::body, {{x - 60, 0, -half - pad}, {x + 60, top, half + pad}}, [=](Vec3 p) {
            const Vec3 q = p - Vec3{x, 0, 0};
            const double rib = web(q, 0.026 * d.body.length, top, half + 0.5 * pad, narrow);
            const double arch = cylinderX({q.x, q.y * 1.25, q.z}, -200, 200, 0.60 * half, 0) * 0.8;
            const double base =
                box({q.x, q.y - low / 2 - 4, std::abs(q.z) - half}, {0.042 * d.body.length, low / 2, pad}, 5);
            return blend(std::max(rib, -arch), base, 16);
        });
        for (const double z : {-half, half}) {
            scene.add(paints::black, {{x - 50, 0, z - 50}, {x + 50, 6, z + 50}},
                      [=](Vec3 p) { return cylinderY(p - Vec3{x, 0, z}, 0, 6, 0.85 * pad, 1); });
            fittings::bolt(scene, standing({x, low + 4, z}, up), 0.024 * d.body.width);
        }
    }
}

void rails(Scene& scene, const Design& d) {
    const double half = d.body.feetWidth / 2, high = 0.085 * d.body.height, wide = 0.055 * d.body.width;
    const double from = d.feetFrom - 0.05 * d.body.length, to = d.feetTo() + 0.05 * d.body.length;
    scene.add(paints::black, {{from, 0, -half - wide}, {to, high, half + wide}}, [=](Vec3 p) {
        // A folded channel on either side.
        const Vec3 q{p.x - (from + to) / 2, p.y - high / 2, std::abs(p.z) - half};
        const double outer = box(q, {(to - from) / 2, high / 2, wide}, 3);
        const double inner = box(q - Vec3{0, -6, -8}, {(to - from), high / 2, wide}, 3);
        return std::max(outer, -inner);
    });
    for (const double x : {d.feetFrom + 0.03 * d.body.length, d.feetTo() - 0.05 * d.body.length}) {
        const double top = d.axis - 0.45 * d.motorRadius;
        scene.add(paints::body, {{x - 40, high - 2, -half - wide}, {x + 40, top, half + wide}}, [=](Vec3 p) {
            const Vec3 q = p - Vec3{x, high, 0};
            const double saddle =
                web(q, 0.018 * d.body.length, top - high, half + 0.3 * wide, 0.70 * d.motorRadius);
            return std::max(saddle, -0.8 * cylinderX({q.x, q.y * 1.25, q.z}, -200, 200, 0.55 * half, 0));
        });
        for (const double z : {-half, half})
            fittings::bolt(scene, standing({x, high, z + (z > 0 ? 0.45 : -0.45) * wide}, up),
                           0.02 * d.body.width);
    }
}

void terminalBox(Scene& scene, const Design& d) {
    const double low = d.axis + d.motorRadius - 4, foot = 0.13 * (d.boxTop - low) + 8;
    const Vec3 half{(d.boxTo - d.boxFrom) / 2, (d.boxTop - low - foot) / 2, d.boxDepth / 2};
    const Vec3 centre{(d.boxFrom + d.boxTo) / 2, low + foot + half.y, 0};
    scene.add(paints::body, {{d.boxFrom, low - 60, -half.z}, {d.boxTo, low + foot, half.z}}, [=](Vec3 p) {
        const Vec3 q = p - Vec3{centre.x, low + foot / 2 - 25, 0};
        return box(q, {half.x * 0.80, foot / 2 + 25, half.z * 0.66}, 8);
    });
    const Frame face{{centre.x - 0.78 * half.x, centre.y - 0.52 * half.y, centre.z + half.z - 3},
                     {1, 0, 0},
                     {0, 1, 0},
                     {0, 0, 1}};
    const double width = 1.56 * half.x;
    cabinet(scene, paints::sheet.with(decalOf(wordMark(white), face, width, 6)), centre, half, 0.34 * half.y);
    for (const double x : {-1.0, 1.0})
        for (const double z : {-1.0, 1.0})
            fittings::bolt(scene, standing(centre + Vec3{x * (half.x - 15), half.y, z * (half.z - 15)}, up),
                           5.5);
    for (const double z : {-0.45, 0.0, 0.45})
        fittings::gland(scene, standing(centre + Vec3{half.x - 3, -0.25 * half.y, z * half.z}, {1, 0, 0}),
                        z == 0 ? 13 : 17);
}

void converter(Scene& scene, const Design& d) {
    const double low = d.axis + d.motorRadius - 4, foot = 18, fins = 0.20 * (d.boxTop - low);
    const Vec3 half{(d.boxTo - d.boxFrom) / 2, (d.boxTop - low - foot - fins) / 2, d.boxDepth / 2};
    const Vec3 centre{(d.boxFrom + d.boxTo) / 2, low + foot + half.y, 0};
    scene.add(paints::body, {{d.boxFrom, low - 60, -half.z}, {d.boxTo, low + foot, half.z}}, [=](Vec3 p) {
        return box(p - Vec3{centre.x, low + foot / 2 - 25, 0}, {half.x * 0.85, foot / 2 + 25, half.z * 0.6},
                   8);
    });
    const double mark = 0.88 * half.x;
    const Frame face{{centre.x - 0.90 * half.x, centre.y - 0.28 * mark / 2 + 0.02 * half.y, half.z - 3},
                     {1, 0, 0},
                     {0, 1, 0},
                     {0, 0, 1}};
    cabinet(scene, paints::sheet.with(decalOf(wordMark(white), face, mark, 6)), centre, half, 0.20 * half.y);
    // Cooling fins on top.
    scene.add(paints::aluminium, {{d.boxFrom, centre.y + half.y - 2, -half.z}, {d.boxTo, d.boxTop, half.z}},
              [=](Vec3 p) {
                  const Vec3 q = p - Vec3{centre.x, centre.y + half.y, 0};
                  const double base = box(q - Vec3{0, 4, 0}, {half.x - 10, 5, half.z - 10}, 1);
                  constexpr int count = 26;
                  const double pitch = 2 * (half.x - 14) / (count - 1);
                  const double x = row(q.x + half.x - 14, count, pitch);
                  return std::min(base,
                                  box({x, q.y - fins / 2, q.z}, {0.17 * pitch, fins / 2, half.z - 12}, 0.8));
              });
    // The operating panel in front.
    const double wide = 0.30 * half.x, tall = 0.6 * wide;
    const Vec3 panel{centre.x + 0.52 * half.x, centre.y - 0.06 * half.y, half.z};
    const Frame screen{
        {panel.x - 0.92 * wide, panel.y - 0.92 * tall, half.z + 6}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    scene.add(paints::black, {panel - Vec3{wide + 12, tall + 12, 4}, panel + Vec3{wide + 12, tall + 12, 4}},
              [=](Vec3 p) { return box(p - panel, {wide + 10, tall + 10, 4}, 3.5); });
    scene.add(paints::display.with(decalOf(converterDisplay(), screen, 1.84 * wide, 6)),
              {panel - Vec3{wide, tall, 6}, panel + Vec3{wide, tall, 6}},
              [=](Vec3 p) { return box(p - panel, {wide, tall, 5.2}, 1); });
    for (const double z : {-0.5, -0.15, 0.2, 0.55})
        fittings::gland(scene, standing(centre + Vec3{half.x - 3, -0.35 * half.y, z * half.z}, {1, 0, 0}),
                        15);
}

void marks(Scene& scene, const Design& d) {
    // The name plate on a boss in front of the motor, or of the rotor housing of an open drive.
    const double radius = d.openDrive ? 1.08 * d.screwRadius
                                      : d.motorRadius + (d.ribs == Design::Ribs::none ? 0 : d.ribHeight());
    const double wide = 0.20 * d.body.width, tall = wide * 260 / 420;
    const double x = d.openDrive ? (d.flangeTo + d.screwTo) / 2 + 0.02 * d.body.length
                                 : d.coverTo + 0.68 * (d.motorTo - d.coverTo);
    const double lean = 0.16;
    Frame frame;
    const Vec3 out{0, std::sin(lean), std::cos(lean)};
    frame.z = out;
    frame.y = cross(frame.z, {1, 0, 0});
    frame.origin = Vec3{x, d.axis, 0} + out * (radius + 4);
    scene.add(paints::body, frame,
              {{-wide / 2 - 8, -tall / 2 - 8, -radius * 0.35}, {wide / 2 + 8, tall / 2 + 8, 0}}, [=](Vec3 p) {
                  return box(p - Vec3{0, 0, -radius * 0.175}, {wide / 2 + 7, tall / 2 + 7, radius * 0.175},
                             3);
              });
    Frame corner = frame;
    corner.origin = frame.global({-wide / 2, -tall / 2, 1});
    scene.add(paints::plate.with(decalOf(namePlate(d.serie), corner, wide, 4)), frame,
              {{-wide / 2, -tall / 2, 0}, {wide / 2, tall / 2, 2}},
              [=](Vec3 p) { return box(p - Vec3{0, 0, 0.5}, {wide / 2, tall / 2, 1.2}, 0.5); });
}

}  // namespace marvello::pictures::assemblies
