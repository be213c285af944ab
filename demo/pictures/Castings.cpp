// The castings of a machine: motor, flange, rotor housing, separator.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "demo/pictures/Fittings.h"
#include "demo/pictures/Machine.h"
#include "demo/pictures/Shapes.h"

namespace marvello::pictures::assemblies {

using namespace shapes;
using std::numbers::pi;

namespace {

/// A frame on the shaft whose y axis points along it, to the discharge end or back.
Frame alongShaft(const Design& d, double x, bool back = false) {
    Frame frame;
    frame.origin = {x, d.axis, 0};
    frame.y = {back ? -1.0 : 1.0, 0, 0};
    frame.x = {0, 1, 0};
    frame.z = cross(frame.x, frame.y);
    return frame;
}

Bounds aroundShaft(const Design& d, double from, double to, double radius) {
    return {{from, d.axis - radius, -radius}, {to, d.axis + radius, radius}};
}

/// The place of `p` seen from the shaft.
Vec3 fromShaft(const Design& d, Vec3 p) { return p - Vec3{0, d.axis, 0}; }

void disc(Scene& scene, const Design& d, const Paint& paint, double from, double to, double radius,
          double r) {
    scene.add(paint, aroundShaft(d, from, to, radius),
              [=](Vec3 p) { return cylinderX(fromShaft(d, p), from, to, radius, r); });
}

double ribbed(const Design& d, Vec3 q, double from, double to) {
    const double high = d.ribHeight(), thick = 0.0115 * d.body.width;
    if (d.ribs == Design::Ribs::along) {
        constexpr int count = 30;
        const Vec3 s = sectorX(q, count, pi / count);
        const double d2 =
            box(s - Vec3{(from + to) / 2, d.motorRadius, 0}, {(to - from) / 2, high, thick * 0.62}, 2);
        return std::max(d2, -(q.y + 0.62 * d.motorRadius));  // none below, where the feet stand
    }
    const double pitch = 0.062 * d.body.width;
    const int count = static_cast<int>((to - from) / pitch);
    const double x = row(q.x - from - ((to - from) - (count - 1) * pitch) / 2, count, pitch);
    return cylinderX({x, q.y, q.z}, -thick * 0.7, thick * 0.7, d.motorRadius + high, 2.5);
}

void slideHousing(Scene& scene, const Design& d) {
    const double radius = d.slideRadius, low = d.axis - d.slideDrop, from = d.separatorTo - d.dome,
                 to = d.slideTo;
    const auto inside = [low](Vec3 p) { return p - Vec3{0, low, 0}; };
    scene.add(paints::body, aroundShaft(d, from, to - 14, d.separatorRadius), [=](Vec3 p) {
        const Vec3 q = inside(p);
        return blend(cylinderX(q, from, to - 16, radius, 3), cylinderX(q, to - 30, to - 15, radius + 14, 3),
                     8);
    });
    scene.add(paints::machined, aroundShaft(d, to - 16, to, d.separatorRadius),
              [=](Vec3 p) { return cylinderX(inside(p), to - 14.5, to - 5, radius + 13, 2); });
    Frame lid = alongShaft(d, to - 5);
    lid.origin.y = low;
    fittings::boltCircle(scene, lid, radius, 8, 0.018 * d.body.width, 0.39);
}

/// In the middle of the separator's dome.
void inspectionCover(Scene& scene, const Design& d) {
    const double radius = 0.42 * d.separatorRadius, to = d.slideTo, from = to - 1.42 * d.dome;
    scene.add(paints::body, aroundShaft(d, from, to, radius + 2),
              [=](Vec3 p) { return cylinderX(fromShaft(d, p), from, to - 12, radius, 3); });
    disc(scene, d, paints::machined, to - 12, to - 6, radius - 1, 1.5);
    fittings::boltCircle(scene, alongShaft(d, to - 6), radius - 0.03 * d.body.width, 8, 0.0132 * d.body.width,
                         0.39);
}

}  // namespace

void motor(Scene& scene, const Design& d) {
    const double r = d.motorRadius, w = d.body.width;
    const double rim = d.motorRim(), from = d.coverTo, to = d.motorTo, collar = d.collar();
    scene.add(paints::body, aroundShaft(d, from, to + 2, rim + 4), [=](Vec3 p) {
        const Vec3 q = fromShaft(d, p);
        double shell = cylinderX(q, from, to + 2, r, 3);
        if (d.ribs != Design::Ribs::none)
            shell = blend(shell, ribbed(d, q, from + collar, to), 7);
        else
            shell = blend(shell, cylinderX(q, from + 5.2 * collar, from + 5.9 * collar, r + 5, 3), 8);
        return blend(shell, cylinderX(q, from + 0.8, from + collar, rim, 4), 14);
    });
    disc(scene, d, paints::machined, from - 1, from + 0.8, rim - 2.5, 0);
    scene.add(paints::body, aroundShaft(d, 0, from, rim), [=](Vec3 p) {
        const Vec3 q = fromShaft(d, p);
        const double plate = cylinderX(q, from - collar, from - 1, rim, 4);
        const double bowl = cylinderX(q, 0.012 * d.body.length, from, 0.90 * r, 0.055 * d.body.length);
        const double hub = cylinderX(q, 0, from, 0.34 * r, 6);
        double ribs = 1e9;
        const Vec3 s = sectorX(q, 8, pi / 8);
        ribs = box(s - Vec3{0.55 * from, 0.5 * r, 0}, {0.42 * from, 0.42 * r, 5}, 3);
        return blend(blend(blend(plate, bowl, 18), hub, 20), std::max(ribs, bowl - 7), 12);
    });
    const double size = 0.022 * w;
    fittings::boltCircle(scene, alongShaft(d, from - collar, true), rim - 1.5 * size, 16, size, pi / 16);
}

void bearingHousing(Scene& scene, const Design& d) {
    const double r = d.motorRadius, from = d.coverTo, to = d.motorTo;
    const double shaft = d.shaftRadius;
    scene.add(paints::steel, aroundShaft(d, 0, from + 5, shaft + 1), [=](Vec3 p) {
        const Vec3 q = fromShaft(d, p);
        const double bar = cylinderX(q, 0, from + 5, shaft, 3);
        const double slot =
            box(q - Vec3{0.46 * from, shaft, 0}, {0.34 * from, 0.36 * shaft, 0.28 * shaft}, 1);
        return std::max(bar, -slot);
    });
    scene.add(paints::bolt, aroundShaft(d, 0, from, 1.5 * shaft), [=](Vec3 p) {
        const Vec3 q = fromShaft(d, p) - Vec3{0.46 * from, 0.92 * shaft, 0};
        return box(q, {0.33 * from, 0.30 * shaft, 0.27 * shaft}, 1.2);
    });
    // Shaft seal cover, bearing housing with webs, and the cone to the flange.
    disc(scene, d, paints::machined, from, from + 0.014 * d.body.length, 0.60 * r, 2);
    const double seal = from + 0.014 * d.body.length;
    scene.add(paints::body, aroundShaft(d, seal, to + 4, d.flangeRadius), [=](Vec3 p) {
        const Vec3 q = fromShaft(d, p);
        const double cover = cylinderX(q, seal, seal + 0.035 * d.body.length, 0.86 * r, 4);
        const double tube = cylinderX(q, seal, to + 4, 0.72 * r, 4);
        const double cone = coneX(q, to - 0.35 * (to - seal), to + 4, 0.8 * r, 1.45 * r, 4);
        const Vec3 s = sectorX(q, 8, pi / 8);
        const double web =
            box(s - Vec3{(seal + to) / 2 + 14, 0.8 * r, 0}, {(to - seal) / 2 - 14, 0.42 * r, 7}, 3);
        const double slope = (s.y - (0.70 * r + 0.75 * r * std::max((q.x - seal) / (to - seal), 0.0))) * 0.8;
        return blend(blend(blend(cover, tube, 16), cone, 30), std::max(web, slope), 14);
    });
    fittings::boltCircle(scene, alongShaft(d, from + 0.014 * d.body.length, true), 0.75 * r, 8,
                         0.017 * d.body.width);
    fittings::boltCircle(scene, alongShaft(d, from, true), 0.49 * r, 6, 0.012 * d.body.width);
}

void mainFlange(Scene& scene, const Design& d) {
    const double r = d.flangeRadius, from = d.motorTo, to = d.flangeTo, middle = (from + to) / 2;
    scene.add(paints::body, aroundShaft(d, from, to, d.body.width / 2), [=](Vec3 p) {
        const Vec3 q = fromShaft(d, p);
        const double left = cylinderX(q, from, middle - 0.8, r, 4),
                     right = cylinderX(q, middle + 0.8, to, r, 4);
        // An eye on each side, to carry the machine by.
        const Vec3 side{q.x, q.y, std::abs(q.z)};
        const double arm =
            box(side - Vec3{middle, 0, r}, {(to - from) * 0.36, 0.07 * r, d.body.width / 2 - r}, 6);
        const double round = cylinderX(side - Vec3{0, 0, d.body.width / 2 - 0.13 * r},
                                       middle - (to - from) * 0.36, middle + (to - from) * 0.36, 0.13 * r, 4);
        const double hole = cylinderX(side - Vec3{0, 0, d.body.width / 2 - 0.13 * r}, from, to, 0.06 * r, 0);
        return std::min(std::min(left, right), std::max(blend(arm, round, 14), -hole));
    });
    disc(scene, d, paints::machined, middle - 0.8, middle + 0.8, r - 2, 0);
    const double size = 0.026 * d.body.width;
    fittings::boltCircle(scene, alongShaft(d, to), r - 1.5 * size, 18, size, pi / 18);
    fittings::boltCircle(scene, alongShaft(d, from, true), r - 1.5 * size, 18, size, pi / 18);
}

void rotorHousing(Scene& scene, const Design& d) {
    const double r = d.screwRadius, from = d.flangeTo - 2, to = d.screwTo + 4;
    scene.add(paints::body, aroundShaft(d, from, to, 1.35 * r), [=](Vec3 p) {
        const Vec3 q = fromShaft(d, p);
        // Two rotors side by side, the slide valve below them, webs across.
        const Vec3 side{q.x, q.y - 0.10 * r, std::abs(q.z) - 0.34 * r};
        const double rotors = cylinderX(side, from, to, 0.72 * r, 3);
        const double slide = cylinderX(q - Vec3{0, -0.60 * r, 0}, from, to, 0.46 * r, 3);
        const double hull = blend(rotors, slide, 50);
        const int webs = 3;
        const double pitch = (to - from) / 3.4;
        const double x = row(q.x - from - 0.7 * pitch, webs, pitch);
        const double web = std::max(cylinderX({x, q.y, q.z}, -6, 6, 1.02 * r, 3), hull - 0.16 * r);
        return blend(hull, web, 12);
    });
    if (!d.showsRotors()) return;
    // Capacity valves on the shoulder in front.
    for (int i = 0; i < 2; ++i) {
        const double x = d.flangeTo + (0.62 + 0.22 * i) * (d.screwTo - d.flangeTo);
        fittings::solenoid(scene, standing({x, d.axis + 0.62 * r, 0.78 * r}, normalized(Vec3{0, 0.8, 0.6})),
                           0.026 * d.body.width);
    }
}

void lyingSeparator(Scene& scene, const Design& d) {
    const double r = d.separatorRadius, from = d.screwTo, to = d.separatorTo, w = d.body.width;
    const double rim = d.separatorRim(), collar = d.collar(), dome = d.dome;
    const bool joined = d.showsRotors();  // else the main flange carries the shell
    scene.add(paints::body, aroundShaft(d, from - collar, to, rim + 2), [=](Vec3 p) {
        const Vec3 q = fromShaft(d, p);
        const double tank = tankX(q, from - 2 * dome, to, r, dome);
        double shell = std::max(tank, from - q.x);
        if (joined) shell = blend(shell, cylinderX(q, from - collar, from + collar, rim, 4), 14);
        const double head = to - dome - 0.012 * d.body.length;
        const double seam = cylinderX(q, head - 4, head + 4, r + 3, 3);
        return blend(shell, seam, 7);
    });
    if (joined) {
        const double size = 0.022 * w;
        fittings::boltCircle(scene, alongShaft(d, from + collar), rim - 1.35 * size, 16, size, pi / 16);
        disc(scene, d, paints::machined, from - 0.7, from + 0.7, rim + 0.4, 0);
    }
    if (d.hasSlideHousing)
        slideHousing(scene, d);
    else
        inspectionCover(scene, d);
}

void uprightSeparator(Scene& scene, const Design& d) {
    const double r = d.separatorRadius, x = d.separatorX, low = d.separatorBottom, high = d.separatorTop;
    const double w = d.body.width, seamHigh = high - d.dome - 6, seamLow = low + d.dome + 6;
    scene.add(paints::body, {{x - r - 16, low, -r - 6}, {x + r + 6, high, r + 6}}, [=](Vec3 p) {
        const Vec3 q = p - Vec3{x, 0, 0};
        const double tank = tankY(q, low, high, r, d.dome);
        const double seams = std::min(cylinderY(q, seamHigh - 3.5, seamHigh + 3.5, r + 2.5, 3),
                                      cylinderY(q, seamLow - 3.5, seamLow + 3.5, r + 2.5, 3));
        return blend(tank, seams, 7);
    });
    // The connecting flange pair between rotor housing and tank.
    const double joint = d.screwTo, rim = d.screwRadius + 0.045 * w;
    scene.add(paints::body, aroundShaft(d, joint - 24, x, rim), [=](Vec3 p) {
        const Vec3 q = fromShaft(d, p);
        const double flanges = std::min(cylinderX(q, joint - 22, joint - 0.8, rim, 3),
                                        cylinderX(q, joint + 0.8, joint + 22, rim, 3));
        return blend(flanges, cylinderX(q, joint, x, 0.74 * d.screwRadius, 2), 12);
    });
    disc(scene, d, paints::machined, joint - 0.8, joint + 0.8, rim - 1.5, 0);
    fittings::boltCircle(scene, alongShaft(d, joint - 22, true), rim - 0.03 * w, 14, 0.019 * w, pi / 14);
    // A ring of steel carries the tank.
    scene.add(paints::sheet, {{x - r, 0, -r}, {x + r, low + d.dome + 10, r}}, [=](Vec3 p) {
        const Vec3 q = p - Vec3{x, 0, 0};
        const double ring =
            std::max(cylinderY(q, 10, low + d.dome, 0.80 * r, 2), -cylinderY(q, -10, 999, 0.80 * r - 9, 0));
        const double hole = cylinderX({q.z, q.y - 0.6 * (low + d.dome), q.x}, -2 * r, 2 * r, 0.24 * r, 0);
        return std::min(std::max(ring, -hole), cylinderY(q, 0, 12, 0.93 * r, 3));
    });
    for (const double y : {0.52, 0.30}) {
        const Vec3 out = normalized(Vec3{0.42, 0, 1});
        fittings::sightGlass(scene, standing(Vec3{x, y * d.body.height, 0} + out * r, out), 0.042 * w);
    }
    scene.add(paints::accent(d.accent), {{x - r - 2, 0, -r - 2}, {x + r + 2, high, r + 2}}, [=](Vec3 p) {
        return cylinderY(p - Vec3{x, 0, 0}, 0.70 * d.body.height, 0.70 * d.body.height + 20, r + 1.2, 1);
    });
}

void dischargeCover(Scene& scene, const Design& d) {
    const double r = d.separatorRadius, from = d.screwTo, to = d.separatorTo, w = d.body.width;
    const double rim = r + 0.06 * w, collar = 0.03 * d.body.length;
    scene.add(paints::body, aroundShaft(d, from - collar, to, rim), [=](Vec3 p) {
        const Vec3 q = fromShaft(d, p);
        const double block = cylinderX(q, from, to, r, d.dome);
        return blend(block, cylinderX(q, from - collar, from + collar, rim, 4), 18);
    });
    fittings::boltCircle(scene, alongShaft(d, from - collar, true), rim - 0.033 * w, 16, 0.022 * w, pi / 16);
    fittings::boltCircle(scene, alongShaft(d, from + collar), rim - 0.033 * w, 16, 0.022 * w, pi / 16);
    disc(scene, d, paints::machined, from - 0.8, from + 0.8, rim + 0.3, 0);
    slideHousing(scene, d);
}

}  // namespace marvello::pictures::assemblies
