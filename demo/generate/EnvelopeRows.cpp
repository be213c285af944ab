#include "demo/generate/EnvelopeRows.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "catalogue/clsLimits.h"

namespace marvello::generate {
namespace {

using namespace limitType;

constexpr double secondCoolingAbove = 10;  // K of discharge temperature beyond the first kind of cooling
constexpr double leastDifference = 320;    // kPa between discharge and suction, which drive the oil

/// How far inside the application limit a capacity step is allowed.
struct StepInset {
    int type;  ///< of the line
    double left;
    double right;
    double bottom;
    double top;
    double highest;  ///< degC below the application limit's greatest condensing temperature
};
constexpr std::array stepInsets{StepInset{step25, 7, 3, 4, 4, 21}, StepInset{step50, 5, 2, 3, 2.5, 15},
                                StepInset{step75, 2.5, 1, 1.5, 1, 9}};

// The H version is made for high pressure ratios: bands below the upper edge of the limit, in K.
constexpr double hOnlyBand = 7;
constexpr double hSuggestedBand = 17;

BrokenLine level(double y) { return BrokenLine({{0, y}}); }

/// Condensing temperatures at which the pressure difference carries the oil, over the width of a region.
BrokenLine differenceContour(const Region& region, const Fluid& fluid) {
    std::vector<Point> points;
    constexpr double spacing = 4;
    for (double x = region.left(); x < region.right() + spacing; x += spacing) {
        const double at = std::min(x, region.right());
        points.push_back({at, fluid.dewTemperature(fluid.dewPressure(at) + leastDifference)});
    }
    return BrokenLine(points);
}

}  // namespace

const std::vector<FrequencyBound>& frequencyBounds() {
    static const std::vector<FrequencyBound> bounds{{70, 12, 5}, {60, 6, 2}, {50, 0, 0}};
    return bounds;
}

Region applicationOf(const OperatingRange& range, const EnvelopeKind& kind) {
    constexpr double narrowBy = 6;
    const Region& usual = kind.economized ? range.economized : range.application;
    return kind.narrow ? Region(usual.lower(), usual.upper().raised(-narrowBy)) : usual;
}

EnvelopeRows::EnvelopeRows(const SeriesPlan& series, const OperatingRange& range, const Fluid& fluid)
    : series_(&series),
      range_(&range),
      fluid_(&fluid),
      usual_(usualMachine(series, fluid)),
      cooling_(contour(series.oilCoolingLimit)),
      moreCooling_(contour(series.oilCoolingLimit + secondCoolingAbove)),
      coolingEco_(contour(series.oilCoolingLimitEco)),
      moreCoolingEco_(contour(series.oilCoolingLimitEco + secondCoolingAbove)),
      leastDifference_(differenceContour(range.over, fluid)) {}

/// Where the discharge temperature at the greatest superheat reaches `limit`, over the width of the over
/// limit.
BrokenLine EnvelopeRows::contour(double limit) const {
    const Region& region = range_->over;
    constexpr double spacing = 5;
    const double first = spacing * (std::floor(region.left() / spacing) + 1);
    std::vector<double> places{region.left()};
    for (double x = first; x < region.right(); x += spacing) places.push_back(x);
    places.push_back(region.right());
    std::vector<Point> points;
    constexpr double beyond = 3;
    for (const double x : places) {
        const double above = region.upper().at(x) + beyond;
        points.push_back({x, condensingAtDischarge(*series_, usual_, *fluid_, x, limit, above)});
    }
    return BrokenLine(points);
}

std::string EnvelopeRows::nameOf(const EnvelopeKind& kind) const {
    std::string name = series_->serie + "-" + series_->refrigerant;
    if (kind.smallMotor || kind.earlyOilFilter || kind.narrow || kind.economized) name += '-';
    if (kind.smallMotor) name += 'S';
    if (kind.earlyOilFilter) name += 'F';
    if (kind.narrow) name += 'N';
    if (kind.economized) name += 'E';
    return name;
}

std::string EnvelopeRows::idOf(const EnvelopeKind& kind) {
    if (std::find(asked_.begin(), asked_.end(), kind) == asked_.end()) asked_.push_back(kind);
    return nameOf(kind);
}

void EnvelopeRows::write(std::vector<std::vector<std::string>>& rows) const {
    for (const EnvelopeKind& kind : asked_) writeOne(kind, rows);
}

void EnvelopeRows::writeOne(const EnvelopeKind& kind, std::vector<std::vector<std::string>>& rows) const {
    const auto add = [&](int type, const std::vector<Point>& points) {
        if (!points.empty())
            rows.push_back({nameOf(kind), std::to_string(type), pointsText(holdingItsBorders(points))});
    };
    const Region allowed = applicationOf(*range_, kind);
    const auto part = [&](const BrokenLine& lower, const BrokenLine& upper) {
        return allowed.cut(lower, upper, allowed.left(), allowed.right());
    };
    const bool oilFirst = series_->cooling == SeriesPlan::Cooling::oilFirst;
    const BrokenLine& first = kind.economized ? coolingEco_ : cooling_;
    const BrokenLine& second = kind.economized ? moreCoolingEco_ : moreCooling_;
    const double highest = allowed.upper().points().back().y;

    add(over, range_->over.outline());
    add(application, allowed.outline());
    const BrokenLine& injectionFrom = oilFirst ? second : first;
    std::vector<Point> injected = part(injectionFrom, allowed.upper());
    if (injected.empty() && kind.narrow) {
        // A limit so low that it ends below the line still needs it: without one the rules take the oil
        // cooler's load for free, while they warn of it for the other models of the series.
        const Region usual = applicationOf(*range_, {.economized = kind.economized});
        injected = usual.cut(injectionFrom, usual.upper(), usual.left(), usual.right());
    }
    add(injection, injected);
    add(oilCooling, part(oilFirst ? first : second, allowed.upper()));
    if (kind.smallMotor) add(smallMotor, part(allowed.lower(), range_->smallMotor));
    if (series_->hasSteps()) {
        for (const StepInset& inset : stepInsets) {
            const Region inner(allowed.lower().raised(inset.bottom), allowed.upper().raised(-inset.top));
            add(inset.type, inner.cut(inner.lower(), level(highest - inset.highest),
                                      allowed.left() + inset.left, allowed.right() - inset.right));
        }
    }
    add(oilFilter,
        part(allowed.lower(), level(kind.earlyOilFilter ? range_->oilFilterEarly : range_->oilFilter)));
    if (series_->hasVersions) {
        const BrokenLine only = allowed.upper().raised(-hOnlyBand);
        const BrokenLine suggested = allowed.upper().raised(-hSuggestedBand);
        add(hOnly, part(only, allowed.upper()));
        add(hSuggested, part(suggested, only));
        add(sSuggested, part(allowed.lower(), suggested));
    }
    if (series_->hasForbidden) {
        // The same with and without economizer; a margin stays below the application limit.
        const BrokenLine below = range_->application.lower().raised(-1);
        const Region strip(range_->over.lower(), below);
        add(forbidden,
            strip.cut(range_->over.lower(), leastDifference_, range_->over.left(), range_->over.right()));
    }
    if (series_->drive == SeriesPlan::Drive::inverter) {
        constexpr std::array types{hertz70, hertz60, hertz50};
        for (std::size_t i = 0; i < types.size(); ++i) {
            const FrequencyBound& bound = frequencyBounds()[i];
            add(types[i], allowed.cut(allowed.lower(), level(highest - bound.below), allowed.left(),
                                      allowed.right() - bound.left));
        }
    }
}

}  // namespace marvello::generate
