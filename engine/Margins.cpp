#include "engine/Margins.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace marvello {

namespace {

struct NamedLimit {
    int type;
    std::string_view name;
};

constexpr std::array limitNames{
    NamedLimit{limitType::over, "over"},
    NamedLimit{limitType::application, "application"},
    NamedLimit{limitType::injection, "injection"},
    NamedLimit{limitType::oilCooling, "oilCooling"},
    NamedLimit{limitType::smallMotor, "smallMotor"},
    NamedLimit{limitType::step25, "step25"},
    NamedLimit{limitType::step50, "step50"},
    NamedLimit{limitType::step75, "step75"},
    NamedLimit{limitType::oilFilter, "oilFilter"},
    NamedLimit{limitType::hOnly, "hOnly"},
    NamedLimit{limitType::hSuggested, "hSuggested"},
    NamedLimit{limitType::sSuggested, "sSuggested"},
    NamedLimit{limitType::forbidden, "forbidden"},
    NamedLimit{limitType::hertz50, "hertz50"},
    NamedLimit{limitType::hertz60, "hertz60"},
    NamedLimit{limitType::hertz70, "hertz70"},
};

/// The lines of one type around an operating point.
class Region {
  public:
    Region(const clsLimits& limits, int type, double ted, double tcd)
        : limits_(limits), type_(type), ted_(ted), tcd_(tcd), isInside_(holds(ted, tcd)) {}

    bool isInside() const { return isInside_; }

    /// The smallest change of one temperature that leaves the lines or leads into them; 0 or more kelvin.
    std::optional<Margin> nearestCrossing() const {
        std::optional<Margin> nearest;
        const auto consider = [&](Direction direction, std::optional<double> kelvin) {
            if (kelvin && (!nearest || *kelvin < nearest->kelvin))
                nearest = Margin{.limitType = type_, .kelvin = *kelvin, .direction = direction};
        };
        const std::vector<double> level = meetings(&clsPoint::x, &clsPoint::Y, ted_, tcd_);
        consider(Direction::tedUp, crossing(level, 1, [&](double t) { return holds(ted_ + t, tcd_); }));
        consider(Direction::tedDown, crossing(level, -1, [&](double t) { return holds(ted_ + t, tcd_); }));
        const std::vector<double> upright = meetings(&clsPoint::Y, &clsPoint::x, tcd_, ted_);
        consider(Direction::tcdUp, crossing(upright, 1, [&](double t) { return holds(ted_, tcd_ + t); }));
        consider(Direction::tcdDown, crossing(upright, -1, [&](double t) { return holds(ted_, tcd_ + t); }));
        return nearest;
    }

  private:
    bool holds(double x, double y) const {
        return std::ranges::any_of(limits_, [&](const auto& limit) {
            return limit->LimitType == type_ && polygonTest(limit->Points, x, y) > PolygonState::outside;
        });
    }

    /// Where edges meet the straight line through the point on which `across` is `offset`: distances of
    /// `along` from `origin`, in order. The edge that closes a line counts, as it does for what the line
    /// holds.
    std::vector<double> meetings(double clsPoint::* along, double clsPoint::* across, double origin,
                                 double offset) const {
        std::vector<double> found;
        for (const auto& limit : limits_) {
            if (limit->LimitType != type_) continue;
            const clsPoint* from = &*(limit->Points.end() - 1);
            for (const clsPoint& to : limit->Points) {
                const double q = from->*across - offset;
                const double nextQ = to.*across - offset;
                const double p = from->*along - origin;
                const double nextP = to.*along - origin;
                from = &to;
                if ((q > 0 && nextQ > 0) || (q < 0 && nextQ < 0)) continue;
                if (q != nextQ) {
                    found.push_back(p + (nextP - p) * (q / (q - nextQ)));
                } else {  // along the line
                    found.push_back(p);
                    found.push_back(nextP);
                }
            }
        }
        std::ranges::sort(found);
        return found;
    }

    /// The first of the meetings on one side (`sign`) of the point behind which the lines hold what they did
    /// not, or the other way round. Nothing is held beyond the last one.
    template <class HoldsAt>
    std::optional<double> crossing(const std::vector<double>& meetings, double sign, HoldsAt holdsAt) const {
        constexpr double narrowest = 1e-5;  // K; lines have steps and tips that no one could meet
        double former = 0;
        std::optional<double> change;
        const auto walk = [&](auto from, auto end) -> std::optional<double> {
            for (; from != end; ++from) {
                const double next = sign * *from;
                if (next <= former) continue;
                if (holdsAt(sign * (former + (next - former) / 2)) == isInside_)
                    change.reset();
                else if (!change)
                    change = former;
                if (change && next - *change > narrowest) return change;
                former = next;
            }
            return isInside_ ? change.value_or(former) : std::optional<double>();
        };
        return sign > 0 ? walk(meetings.begin(), meetings.end()) : walk(meetings.rbegin(), meetings.rend());
    }

    const clsLimits& limits_;
    int type_;
    double ted_;
    double tcd_;
    bool isInside_;
};

/// What a rule says at the lines of a type, and on which side of them.
struct LimitRule {
    int limitType;
    bool isInside;
    Severity severity;
};

/// The limits that SelectionRules looks at for this compressor and these conditions.
std::vector<LimitRule> rulesAtLimits(const clsCompressor& compressor,
                                     const clsProjectConditions& conditions) {
    using enum Severity;
    std::vector<LimitRule> rules{{limitType::over, false, error},
                                 {limitType::forbidden, true, error},
                                 {limitType::injection, true, attention},
                                 {limitType::oilCooling, true, attention},
                                 {limitType::oilFilter, true, attention},
                                 {limitType::hOnly, true, information},
                                 {limitType::hSuggested, true, information},
                                 {limitType::sSuggested, true, information}};
    switch (conditions.StepCapacity) {
        case 75:
            rules.push_back({limitType::step75, false, error});
            break;
        case 50:
            rules.push_back({limitType::step50, false, error});
            break;
        case 25:
            rules.push_back({limitType::step25, false, error});
            break;
        default:
            break;
    }
    if (compressor.hasFullSmallMotor) {
        const bool isFull = compressor.Motor.MotorType == MotorChoice::full;
        rules.push_back({limitType::smallMotor, isFull, isFull ? information : error});
    }
    if (compressor.hasInvert && conditions.InverterFrequency > 50) {
        const int limit = conditions.InverterFrequency > 60 ? limitType::hertz70 : limitType::hertz60;
        rules.push_back({limit, false, error});
    }
    return rules;
}

}  // namespace

std::string_view nameOf(Direction direction) {
    switch (direction) {
        case Direction::tedUp:
            return "ted+";
        case Direction::tedDown:
            return "ted-";
        case Direction::tcdUp:
            return "tcd+";
        case Direction::tcdDown:
            break;
    }
    return "tcd-";
}

std::string_view limitName(int type) {
    const auto* const found = std::ranges::find(limitNames, type, &NamedLimit::type);
    return found == limitNames.end() ? std::string_view() : found->name;
}

std::optional<Margin> applicationMargin(const clsLimits& limits, double ted, double tcd) {
    const Region region(limits, limitType::application, ted, tcd);
    std::optional<Margin> margin = region.nearestCrossing();
    if (margin && !region.isInside()) margin->kelvin = 0 - margin->kelvin;
    return margin;
}

std::optional<Margin> applicationMargin(const clsCompressor& calculated) {
    const clsVariables& v = calculated.Variables;
    return applicationMargin(calculated.limits, v[var::Ted], v[var::Tcd]);
}

std::vector<Margin> limitMargins(const clsCompressor& calculated, const clsProjectConditions& conditions) {
    std::vector<Margin> margins;
    for (const LimitRule& rule : rulesAtLimits(calculated, conditions)) {
        if (!calculated.limits.FindLimitType(rule.limitType)) continue;
        const Region region(calculated.limits, rule.limitType, conditions.TEvaporatingDew,
                            conditions.TCondensationDew);
        std::optional<Margin> margin = region.nearestCrossing();
        if (!margin) continue;
        if (region.isInside() == rule.isInside) margin->kelvin = 0 - margin->kelvin;
        margin->severity = rule.severity;
        margins.push_back(*margin);
    }
    std::ranges::stable_sort(margins, {}, [](const Margin& margin) { return std::abs(margin.kelvin); });
    return margins;
}

}  // namespace marvello
