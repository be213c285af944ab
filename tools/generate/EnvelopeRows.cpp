#include "tools/generate/EnvelopeRows.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace marvello::generate {
namespace {

// Limit types of the catalogue.
enum LimitType {
    over = -1,
    application = 0,
    injection = 1,
    oilCooling = 2,
    smallMotor = 3,
    step25 = 4,
    step50 = 5,
    step75 = 6,
    oilFilter = 7
};

// The regions are drawn for gas at the greatest superheat allowed, which is hotter by this than at the
// reference.
constexpr double greatestSuperheat = 20;
constexpr double injectionAbove = 4;  // K beyond the oil-cooling limit

/// Where the discharge temperature at the greatest superheat reaches `limit`, over the width of the over
/// limit.
BrokenLine dischargeContour(const SeriesPlan& series, const Fluid& fluid, double limit) {
    const ScrewMachine machine = machineOf(series, series.models[series.models.size() / 2]);
    const Region& region = series.envelope.over;
    const auto temperature = [&](double x, double y) {
        return fullLoad(machine, fluid, x, y).dischargeTemperature + greatestSuperheat - referenceSuperheat;
    };
    std::vector<Point> points;
    constexpr double spacing = 5;
    const double first = spacing * (std::floor(region.left() / spacing) + 1);
    std::vector<double> places{region.left()};
    for (double x = first; x < region.right(); x += spacing) places.push_back(x);
    places.push_back(region.right());
    for (const double x : places) {
        double low = region.lower().at(x);
        double high = region.upper().at(x) + 5;
        while (high - low > 0.01) {
            const double middle = (low + high) / 2;
            (temperature(x, middle) < limit ? low : high) = middle;
        }
        points.push_back({x, high});
    }
    return BrokenLine(points);
}

/// How far inside the application limit a capacity step is allowed.
struct StepInset {
    LimitType type;
    double left;
    double right;
    double bottom;
    double top;
    double highest;  ///< degC below the application limit's greatest condensing temperature
};
constexpr std::array stepInsets{StepInset{step25, 7, 3, 4, 4, 21}, StepInset{step50, 5, 2, 3, 2.5, 15},
                                StepInset{step75, 2.5, 1, 1.5, 1, 9}};

BrokenLine level(double y) { return BrokenLine({{0, y}}); }

}  // namespace

EnvelopeRows::EnvelopeRows(const SeriesPlan& series, const Fluid& fluid)
    : series_(&series),
      oilCooling_(dischargeContour(series, fluid, series.oilCoolingLimit)),
      injection_(dischargeContour(series, fluid, series.oilCoolingLimit + injectionAbove)) {}

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

Region EnvelopeRows::applicationOf(const EnvelopeKind& kind) const {
    constexpr double narrowBy = 6;
    const Region& usual = kind.economized ? series_->envelope.economized : series_->envelope.application;
    return kind.narrow ? Region(usual.lower(), usual.upper().raised(-narrowBy)) : usual;
}

void EnvelopeRows::write(std::vector<std::vector<std::string>>& rows) const {
    for (const EnvelopeKind& kind : asked_) writeOne(kind, rows);
}

void EnvelopeRows::writeOne(const EnvelopeKind& kind, std::vector<std::vector<std::string>>& rows) const {
    const auto add = [&](LimitType type, const std::vector<Point>& points) {
        if (!points.empty()) rows.push_back({nameOf(kind), std::to_string(type), pointsText(points)});
    };
    const EnvelopePlan& plan = series_->envelope;
    const Region allowed = applicationOf(kind);
    const auto part = [&](const BrokenLine& lower, const BrokenLine& upper) {
        return allowed.cut(lower, upper, allowed.left(), allowed.right());
    };
    add(over, plan.over.outline());
    add(application, allowed.outline());
    add(injection, part(injection_, allowed.upper()));
    add(oilCooling, part(oilCooling_, allowed.upper()));
    if (kind.smallMotor) add(smallMotor, part(allowed.lower(), plan.smallMotor));
    if (series_->hasSteps) {
        for (const StepInset& inset : stepInsets) {
            const Region inner(allowed.lower().raised(inset.bottom), allowed.upper().raised(-inset.top));
            const double highest = allowed.upper().points().back().y - inset.highest;
            add(inset.type, inner.cut(inner.lower(), level(highest), allowed.left() + inset.left,
                                      allowed.right() - inset.right));
        }
    }
    add(oilFilter, part(allowed.lower(), level(kind.earlyOilFilter ? plan.oilFilterEarly : plan.oilFilter)));
}

}  // namespace marvello::generate
