#include "demo/pictures/Views.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace marvello::pictures {

namespace {

bool isUpright(const Design& d) { return d.separator == Design::Separator::upright; }

/// A leg on either side of the middle, `thick` at the bottom, from `bottom` to `top`.
void legs(Sheet& sheet, const Placing& view, double low, double high, double bottom, double top,
          double thick) {
    for (const double side : {-1.0, 1.0})
        sheet.wmf().polygon({view(side * bottom, low), view(side * (bottom - thick), low),
                             view(side * (top - 2 * thick), high), view(side * top, high)});
}

void sideFeet(Sheet& sheet, const Placing& view, const Design& d) {
    const double top = d.axis - 0.45 * d.motorRadius, length = d.body.length;
    if (d.feet == Design::Feet::rails) {
        const double high = 0.085 * d.body.height;
        for (const double x : {d.feetFrom + 0.03 * length, d.feetTo() - 0.05 * length})
            sheet.box(view, {x - 0.018 * length, high}, {x + 0.018 * length, top});
        sheet.box(view, {d.feetFrom - 0.05 * length, 0}, {d.feetTo() + 0.05 * length, high});
        return;
    }
    for (const double x : {d.feetFrom, d.feetTo()}) {
        if (isUpright(d) && x > d.separatorX - d.separatorRadius) continue;
        sheet.box(view, {x - 0.026 * length, 0}, {x + 0.026 * length, top});
        sheet.box(view, {x - 0.042 * length, 0}, {x + 0.042 * length, 0.03 * d.body.height});
    }
}

void sideDrive(Sheet& sheet, const Placing& view, const Design& d) {
    const double y = d.axis, collar = d.collar();
    if (d.openDrive) {
        sheet.box(view, {0, y - d.shaftRadius}, {d.coverTo, y + d.shaftRadius});
        sheet.box(view, {0.12 * d.coverTo, y + 0.2 * d.shaftRadius},
                  {0.8 * d.coverTo, y + 1.15 * d.shaftRadius});
        const double r = d.motorRadius, from = d.coverTo;
        sheet.wmf().polygon({view(from, y - 0.72 * r), view(d.motorTo, y - 1.45 * r),
                             view(d.motorTo, y + 1.45 * r), view(from, y + 0.72 * r)});
        sheet.box(view, {from, y - 0.86 * r}, {from + 0.05 * d.body.length, y + 0.86 * r});
        sheet.box(view, {from, y - 0.60 * r}, {from + 0.014 * d.body.length, y + 0.60 * r});
        return;
    }
    sheet.box(view, {0, y - 0.9 * d.motorRadius}, {d.coverTo, y + 0.9 * d.motorRadius}, 0.6 * d.coverTo, 0);
    const double outer = d.motorRadius + (d.ribs == Design::Ribs::none ? 0 : d.ribHeight());
    sheet.box(view, {d.coverTo, y - outer}, {d.motorTo, y + outer});
    sheet.narrow();
    const double from = d.coverTo + collar, to = d.motorTo;
    if (d.ribs == Design::Ribs::along)
        for (int i = -4; i <= 4; ++i) {
            const double rib = y + outer * std::sin(i * 17 * std::numbers::pi / 180);
            sheet.wmf().line(view(from, rib), view(to, rib));
        }
    if (d.ribs == Design::Ribs::around)
        for (int i = 1; i < 12; ++i) {
            const double rib = from + (to - from) * i / 12;
            sheet.wmf().line(view(rib, y - outer), view(rib, y + outer));
        }
    sheet.outline();
    sheet.box(view, {d.coverTo - collar, y - d.motorRim()}, {d.coverTo, y + d.motorRim()});
    sheet.box(view, {d.coverTo, y - d.motorRim()}, {d.coverTo + collar, y + d.motorRim()});
}

void sideSeparator(Sheet& sheet, const Placing& view, const Design& d) {
    const double y = d.axis, collar = d.collar(), w = d.body.width;
    if (isUpright(d)) {
        const double joint = d.screwRadius + 0.045 * w;
        sheet.box(view, {d.screwTo, y - 0.74 * d.screwRadius}, {d.separatorX, y + 0.74 * d.screwRadius});
        sheet.box(view, {d.screwTo - 22, y - joint}, {d.screwTo, y + joint});
        sheet.box(view, {d.screwTo, y - joint}, {d.screwTo + 22, y + joint});
        const double r = d.separatorRadius, x = d.separatorX;
        sheet.box(view, {x - 0.80 * r, 0}, {x + 0.80 * r, d.separatorBottom + d.dome});
        sheet.box(view, {x - 0.93 * r, 0}, {x + 0.93 * r, 12});
        // The tank: a lying one turned upright.
        std::vector<Spot> spots;
        for (int i = 0; i <= 16; ++i) {
            const double a = std::numbers::pi * i / 16;
            spots.push_back(view(x + r * std::cos(a), d.separatorTop - d.dome + d.dome * std::sin(a)));
        }
        for (int i = 0; i <= 16; ++i) {
            const double a = std::numbers::pi * (1 + i / 16.0);
            spots.push_back(view(x + r * std::cos(a), d.separatorBottom + d.dome + d.dome * std::sin(a)));
        }
        sheet.wmf().polygon(spots);
        sheet.narrow();
        for (const double seam : {d.separatorTop - d.dome, d.separatorBottom + d.dome})
            sheet.wmf().line(view(x - r, seam), view(x + r, seam));
        for (const double glass : {0.52, 0.30})
            sheet.circle(view, x + 0.38 * r, glass * d.body.height, 0.042 * w);
        return;
    }
    const double r = d.separatorRadius, to = d.separatorTo, ring = d.separatorRim();
    if (d.hasSlideHousing) {
        const double middle = y - d.slideDrop, radius = d.slideRadius;
        sheet.box(view, {to - d.dome, middle - radius}, {d.slideTo - 15, middle + radius});
        sheet.box(view, {d.slideTo - 30, middle - radius - 13}, {d.slideTo - 15, middle + radius + 13});
        sheet.box(view, {d.slideTo - 15, middle - radius - 13}, {d.slideTo, middle + radius + 13});
    } else {
        sheet.box(view, {to - d.dome, y - 0.42 * r}, {d.slideTo, y + 0.42 * r});
    }
    sheet.box(view, {d.screwTo, y - r}, {to - (to < d.slideTo ? 0 : 8), y + r}, 0, d.dome);
    sheet.narrow();
    sheet.wmf().line(view(to - d.dome - 8, y - r), view(to - d.dome - 8, y + r));
    if (!d.showsRotors()) return;
    sheet.outline();
    sheet.box(view, {d.screwTo - collar, y - ring}, {d.screwTo, y + ring});
    sheet.box(view, {d.screwTo, y - ring}, {d.screwTo + collar, y + ring});
}

/// Neck, flange and pipe of a connection that points upwards.
void upwards(Sheet& sheet, const Placing& view, double x, double from, double to, double radius, bool valve) {
    const double flange = 1.5 * radius + 12, neck = from + (valve ? 0.32 : 0.45) * (to - from);
    sheet.box(view, {x - radius - 9, from - radius}, {x + radius + 9, neck});
    sheet.box(view, {x - flange, neck - 0.3 * radius - 6}, {x + flange, neck + 0.3 * radius + 6});
    if (!valve) return sheet.box(view, {x - radius, neck + 0.3 * radius + 6}, {x + radius, to});
    const double body = radius + 9, shoulder = to - 0.7 * radius - 8, low = neck + 0.3 * radius + 6;
    sheet.box(view, {x - body, low}, {x + body, shoulder}, 0.4 * body, 0.4 * body);
    sheet.box(view, {x - 0.45 * body, shoulder}, {x + 0.45 * body, to});
}

double baseOf(const Design& d, double x) {
    if (isUpright(d) && x > d.screwTo) return d.separatorTop;
    if (x < d.coverTo) return d.axis + 0.86 * d.motorRadius;
    if (x < d.motorTo) return d.axis + d.motorRadius;
    return d.axis + (x > d.screwTo ? d.separatorRadius : 0.8 * d.screwRadius);
}

void sideBox(Sheet& sheet, const Placing& view, const Design& d) {
    if (d.openDrive) return;
    const double low = d.axis + d.motorRadius;
    const double foot = low + d.ribHeight() + 12;
    const double fins = d.hasConverter ? 0.2 * (d.boxTop - low) : 0;
    sheet.box(view, {d.boxFrom + 0.1 * (d.boxTo - d.boxFrom), low},
              {d.boxTo - 0.1 * (d.boxTo - d.boxFrom), foot});
    sheet.box(view, {d.boxFrom, foot}, {d.boxTo, d.boxTop - fins});
    sheet.narrow();
    const double lid = d.boxTop - fins - 0.18 * (d.boxTop - foot);
    sheet.wmf().line(view(d.boxFrom, lid), view(d.boxTo, lid));
    for (int i = 0; fins > 0 && i <= 20; ++i) {
        const double x = d.boxFrom + 10 + (d.boxTo - d.boxFrom - 20) * i / 20;
        sheet.wmf().line(view(x, d.boxTop - fins), view(x, d.boxTop));
    }
    if (fins > 0) {
        sheet.wmf().line(view(d.boxFrom + 10, d.boxTop), view(d.boxTo - 10, d.boxTop));
        const double x = d.boxFrom + 0.76 * (d.boxTo - d.boxFrom), y = (foot + lid) / 2,
                     half = 0.12 * (d.boxTo - d.boxFrom);
        sheet.box(view, {x - half, y - 0.6 * half}, {x + half, y + 0.6 * half});
    }
    sheet.outline();
}

}  // namespace

void drawSide(Sheet& sheet, const Placing& view, const Design& d) {
    const double y = d.axis, w = d.body.width, r = d.flangeRadius, middle = (d.motorTo + d.flangeTo) / 2;
    sheet.outline();
    sideFeet(sheet, view, d);
    upwards(sheet, view, d.suctionX, baseOf(d, d.suctionX), d.suctionTop, d.suctionRadius, false);
    upwards(sheet, view, d.dischargeX, baseOf(d, d.dischargeX), d.dischargeTop, d.dischargeRadius, true);
    sideBox(sheet, view, d);
    if (d.showsRotors()) {
        sheet.box(view, {d.flangeTo, y - 1.06 * d.screwRadius}, {d.screwTo, y + 0.82 * d.screwRadius});
        sheet.narrow();
        for (int i = 1; i <= 3; ++i) {
            const double x = d.flangeTo + (d.screwTo - d.flangeTo) * (i * 0.29 - 0.08);
            sheet.wmf().line(view(x, y - 1.06 * d.screwRadius), view(x, y + 0.82 * d.screwRadius));
        }
        sheet.outline();
    }
    sideSeparator(sheet, view, d);
    sheet.outline();
    sideDrive(sheet, view, d);
    sheet.outline();
    sheet.box(view, {d.motorTo, y - r}, {middle, y + r});
    sheet.box(view, {middle, y - r}, {d.flangeTo, y + r});
    sheet.circle(view, middle, y, 0.13 * r);
    sheet.narrow();
    if (d.hasEconomizer) {
        const double up = 0.33 * (d.economizerX > d.screwTo ? d.separatorRadius : 0.95 * d.screwRadius);
        sheet.outline();
        sheet.circle(view, d.economizerX, y + up, 1.62 * d.economizerRadius + 12);
        sheet.circle(view, d.economizerX, y + up, d.economizerRadius);
        sheet.centreCross(view, d.economizerX, y + up, 1.62 * d.economizerRadius + 12, 1);
    }
    sheet.narrow();
    const double plate =
        d.openDrive ? (d.flangeTo + d.screwTo) / 2 : d.coverTo + 0.68 * (d.motorTo - d.coverTo);
    if (!d.openDrive && d.ribs == Design::Ribs::none)
        sheet.box(view, {plate - 0.1 * w, y + 0.02 * w}, {plate + 0.1 * w, y + 0.14 * w});
    sheet.centre();
    sheet.wmf().line(view(-0.03 * d.body.length, y), view(1.03 * d.body.length, y));
    for (const auto& [x, top] :
         {std::pair{d.suctionX, d.suctionTop}, std::pair{d.dischargeX, d.dischargeTop}}) {
        const Spot high = view(x, top);
        sheet.wmf().line({high.x, high.y - 2}, view(x, baseOf(d, x) - 10));
    }
    const double foot = 0.06 * d.body.height;
    for (const double x : {d.feetFrom, d.feetTo()})
        sheet.wmf().line(view(x, foot), view(x, -0.02 * d.body.height));
}

void drawEnd(Sheet& sheet, const Placing& view, const Design& d) {
    const double y = d.axis, w = d.body.width, half = d.body.feetWidth / 2, pad = 0.06 * w,
                 r = d.flangeRadius;
    sheet.outline();
    upwards(sheet, view, 0, baseOf(d, d.suctionX), d.suctionTop, d.suctionRadius, false);
    if (!d.openDrive) {
        const double low = d.axis + d.motorRadius;
        const double fins = d.hasConverter ? 0.2 * (d.boxTop - low) : 0;
        sheet.box(view, {-d.boxDepth / 2, low + d.ribHeight() + 12}, {d.boxDepth / 2, d.boxTop - fins});
        if (fins > 0)
            sheet.box(view, {-d.boxDepth / 2 + 12, d.boxTop - fins}, {d.boxDepth / 2 - 12, d.boxTop});
    }
    // Feet, then the lugs and the flange before them.
    const double top = d.axis - 0.45 * d.motorRadius;
    const double low = d.feet == Design::Feet::rails ? 0.085 * d.body.height : 0;
    legs(sheet, view, low, top, half + 0.5 * pad, 0.66 * d.motorRadius, 1.1 * pad);
    for (const double z : {-half, half}) {
        const double wide = d.feet == Design::Feet::rails ? 0.055 * w : pad;
        sheet.box(view, {z - wide, 0}, {z + wide, std::max(low, 0.03 * d.body.height)});
    }
    sheet.box(view, {-w / 2, y - 0.09 * r}, {w / 2, y + 0.09 * r}, 0.09 * r, 0.09 * r);
    sheet.circle(view, 0, y, r);
    if (!isUpright(d)) {
        const double outer = d.showsRotors() ? d.separatorRim() : d.separatorRadius;
        if (outer < 0.95 * r || outer > r) sheet.circle(view, 0, y, outer);
        if (outer > d.separatorRadius) sheet.circle(view, 0, y, d.separatorRadius);
    }
    upwards(sheet, view, 0, baseOf(d, d.dischargeX), d.dischargeTop, d.dischargeRadius, true);
    if (isUpright(d)) {
        std::vector<Spot> spots;
        for (int i = 0; i <= 32; ++i) {
            const double a = std::numbers::pi * i / 16.0;
            const double at = i <= 16 ? d.separatorTop - d.dome : d.separatorBottom + d.dome;
            spots.push_back(view(d.separatorRadius * std::cos(a), at + d.dome * std::sin(a)));
        }
        sheet.box(view, {-0.8 * d.separatorRadius, 0}, {0.8 * d.separatorRadius, d.separatorBottom + d.dome});
        sheet.wmf().polygon(spots);
    } else if (d.hasSlideHousing) {
        sheet.circle(view, 0, y - d.slideDrop, d.slideRadius + 13);
        sheet.circle(view, 0, y - d.slideDrop, d.slideRadius);
    } else {
        sheet.circle(view, 0, y, 0.42 * d.separatorRadius);
    }
    sheet.centre();
    sheet.wmf().line(view(-w / 2 - 0.05 * w, y), view(w / 2 + 0.05 * w, y));
    const Spot high = view(0, d.body.height), down = view(0, 0);
    sheet.wmf().line({high.x, high.y - 2}, {down.x, down.y + 2});
    for (const double z : {-half, half})
        sheet.wmf().line(view(z, 0.06 * d.body.height), view(z, -0.02 * d.body.height));
}

}  // namespace marvello::pictures
