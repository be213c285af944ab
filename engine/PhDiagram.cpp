#include "engine/PhDiagram.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

#include "data/RoundSteps.h"
#include "data/Session.h"
#include "data/Texts.h"

namespace marvello {

namespace {

using Kind = PhLine::Kind;

/// A point of a line at a parameter that rises along it; none where there is no state.
using Curve = std::function<std::optional<PhPoint>(double)>;

/// Returns where a falling or rising function passes 0 between two places at which its signs differ; none if
/// they do not, where it has no value or jumps. By false position that halves the weight of an end that
/// stays.
std::optional<double> rootOf(const std::function<std::optional<double>(double)>& function, double low,
                             double high, double tolerance) {
    auto atLow = function(low);
    auto atHigh = function(high);
    if (!atLow || !atHigh || *atLow * *atHigh > 0) return std::nullopt;
    constexpr int most = 60;
    int side = 0;
    for (int i = 0; i < most; ++i) {
        if (*atHigh == *atLow) break;
        const double middle = (low * *atHigh - high * *atLow) / (*atHigh - *atLow);
        const auto found = function(middle);
        if (!found) return std::nullopt;
        if (std::abs(*found) <= tolerance) return middle;
        const bool isHigh = *found * *atHigh > 0;
        (isHigh ? high : low) = middle;
        (isHigh ? atHigh : atLow) = found;
        if (side == (isHigh ? 1 : -1)) *(isHigh ? atLow : atHigh) /= 2;
        side = isHigh ? 1 : -1;
    }
    return std::nullopt;
}

/// The lines of a diagram.
class Lines {
  public:
    Lines(clsRefprop& refprop, const PhRange& range, UnitSystem units)
        : refprop_(refprop),
          range_(range),
          units_(units),
          lowLog_(std::log(range.lowP)),
          highLog_(std::log(range.highP)) {}

    std::vector<PhLine> all();

  private:
    void dome();
    void isotherms();
    void isentropes();
    void isochores();
    void qualities();
    void isotherm(double t, double value);

    /// Follows a curve from one parameter to another, in as many steps as it needs to look smooth, and adds
    /// its pieces.
    void follow(Kind kind, double value, const Curve& curve, double from, double to);
    void refine(std::vector<PhPoint>& points, const Curve& curve, std::pair<double, PhPoint> from,
                std::pair<double, PhPoint> to, int depth) const;
    /// The last point that a curve has between a parameter with one and a parameter without.
    static std::pair<double, PhPoint> lastOf(const Curve& curve, std::pair<double, PhPoint> with,
                                             double without);
    void add(Kind kind, double value, std::vector<PhPoint> points);

    /// Calls `with` each round value, in the units of the diagram and in metric ones, between metric limits.
    void forRoundValues(UnitRule rule, std::pair<double, double> limits, double most,
                        const std::function<void(double value, double metric)>& with) const;
    std::optional<PhPoint> atEnthalpyWith(double p, double lowH, double highH,
                                          const std::function<std::optional<double>(double h)>& missing,
                                          double tolerance) const;

    clsRefprop& refprop_;
    const PhRange range_;
    const UnitSystem units_;
    const double lowLog_, highLog_;
    double topP_ = 0;  ///< Of the dome, bar.
    double criticalDensity_ = 0;
    double leastDewEntropy_ = 0;
    std::vector<PhLine> lines_;
};

std::optional<PhPoint> pointOf(const std::optional<FluidState>& state) {
    return state ? std::optional(PhPoint{state->h, state->p}) : std::nullopt;
}

/// The highest pressure at which both sides of saturation have a state.
double highestSaturation(clsRefprop& refprop) {
    const auto has = [&](double p) {
        return refprop.SaturationAtPressure(p, saturation::bubble) &&
               refprop.SaturationAtPressure(p, saturation::dew);
    };
    const double warm = (refprop.DewRange().minimum + refprop.DewRange().maximum) / 2;
    const auto inside = refprop.SaturationAtTemperature(warm, saturation::dew);
    if (!inside) throw std::runtime_error("The refrigerant has no saturation states.");
    double with = inside->p;
    double without = with;
    while (has(without)) without *= 2;
    constexpr double tolerance = 1e-7;
    while (without - with > tolerance * with) {
        const double middle = (with + without) / 2;
        (has(middle) ? with : without) = middle;
    }
    return with;
}

void Lines::add(Kind kind, double value, std::vector<PhPoint> points) {
    if (points.size() > 1) lines_.push_back({kind, value, std::move(points)});
}

void Lines::refine(std::vector<PhPoint>& points, const Curve& curve, std::pair<double, PhPoint> from,
                   std::pair<double, PhPoint> to, int depth) const {
    constexpr double straight = 2e-4;  // of the range
    const double parameter = (from.first + to.first) / 2;
    const auto middle = depth == 0 ? std::nullopt : curve(parameter);
    if (middle) {
        const auto place = [this](const PhPoint& point) {
            return std::pair((point.h - range_.lowH) / (range_.highH - range_.lowH),
                             (std::log(point.p) - lowLog_) / (highLog_ - lowLog_));
        };
        const auto [x0, y0] = place(from.second);
        const auto [x1, y1] = place(to.second);
        const auto [x, y] = place(*middle);
        const double length = std::hypot(x1 - x0, y1 - y0);
        const double off = length == 0 ? std::hypot(x - x0, y - y0)
                                       : std::abs((x1 - x0) * (y - y0) - (x - x0) * (y1 - y0)) / length;
        if (off > straight) {
            refine(points, curve, from, {parameter, *middle}, depth - 1);
            refine(points, curve, {parameter, *middle}, to, depth - 1);
            return;
        }
    }
    points.push_back(to.second);
}

std::pair<double, PhPoint> Lines::lastOf(const Curve& curve, std::pair<double, PhPoint> with,
                                         double without) {
    constexpr int halvings = 12;
    for (int i = 0; i < halvings; ++i) {
        const double middle = (with.first + without) / 2;
        const auto point = curve(middle);
        if (point) with = {middle, *point};
        if (!point) without = middle;
    }
    return with;
}

void Lines::follow(Kind kind, double value, const Curve& curve, double from, double to) {
    constexpr int steps = 24;
    constexpr int depth = 6;
    std::vector<PhPoint> points;
    std::optional<std::pair<double, PhPoint>> last;
    double lastParameter = from;
    for (int i = 0; i <= steps; ++i) {
        const double parameter = from + (to - from) * i / steps;
        const auto point = curve(parameter);
        if (point && last) {
            refine(points, curve, *last, {parameter, *point}, depth);
        } else if (point) {
            std::pair<double, PhPoint> first{parameter, *point};
            if (i > 0) first = lastOf(curve, first, lastParameter);
            points.push_back(first.second);
            if (i > 0) refine(points, curve, first, {parameter, *point}, depth);
        } else if (last) {
            refine(points, curve, *last, lastOf(curve, *last, parameter), depth);
            add(kind, value, std::exchange(points, {}));
        }
        last = point ? std::optional(std::pair(parameter, *point)) : std::nullopt;
        lastParameter = parameter;
    }
    add(kind, value, std::move(points));
}

/// Towards the critical point both sides run together as the root of what is missing in pressure: over that
/// root they are smooth.
void Lines::dome() {
    topP_ = highestSaturation(refprop_);
    if (topP_ <= range_.lowP) return;
    const double wide = std::sqrt(std::log(topP_ / range_.lowP));
    const auto side = [&](int kph) {
        return [this, kph](double root) {
            return pointOf(refprop_.SaturationAtPressure(topP_ * std::exp(-root * root), kph));
        };
    };
    follow(Kind::bubble, 0, side(saturation::bubble), wide, 0);
    follow(Kind::dew, 0, side(saturation::dew), wide, 0);
    const auto top = refprop_.SaturationAtPressure(topP_, saturation::dew);
    if (!top || lines_.size() < 2) return;
    lines_.front().points.push_back({top->h, top->p});  // closes what is left open at the critical point
    criticalDensity_ = top->density;
    leastDewEntropy_ = top->s;
    for (const PhPoint& point : lines_.back().points)
        if (const auto dew = refprop_.SaturationAtPressure(point.p, saturation::dew))
            leastDewEntropy_ = std::min(leastDewEntropy_, dew->s);
}

void Lines::forRoundValues(UnitRule rule, std::pair<double, double> limits, double most,
                           const std::function<void(double, double)>& with) const {
    const double low = rule(limits.first, UnitSystem::metric, units_);
    const double high = rule(limits.second, UnitSystem::metric, units_);
    if (!(low < high)) return;
    const double step = roundStep(high - low, most);
    for (double value = firstMultiple(low, step); value <= high; value += step) {
        const double round = std::round(value / step) * step + 0.0;  // no -0
        with(round, rule(round, units_, UnitSystem::metric));
    }
}

void Lines::isotherms() {
    const auto coldest = refprop_.StateAtEnthalpy(range_.highP, range_.lowH);
    const auto warmest = refprop_.StateAtEnthalpy(range_.lowP, range_.highH);
    const SaturationRange& dew = refprop_.DewRange();
    constexpr double above = 100;  // K beyond the dome
    constexpr double most = 14;
    forRoundValues(convertedTemperature,
                   {coldest ? coldest->t : dew.minimum, warmest ? warmest->t : dew.maximum + above}, most,
                   [this](double value, double t) { isotherm(t, value); });
}

/// Gas, both phases and liquid one after the other: where they meet a line has a corner.
void Lines::isotherm(double t, double value) {
    const auto atLog = [this, t](double logarithm) {
        return pointOf(refprop_.StateAtTemperature(t, std::exp(logarithm)));
    };
    const auto dew = refprop_.SaturationAtTemperature(t, saturation::dew);
    const auto bubble = refprop_.SaturationAtTemperature(t, saturation::bubble);
    if (!dew || !bubble) {
        follow(Kind::temperature, value, atLog, lowLog_, highLog_);
        return;
    }
    constexpr double beside = 1e-7;
    const std::array<double, 2> ends{std::log(dew->p), std::log(bubble->p)};
    const bool hasGlide = ends[1] - ends[0] > beside;
    const auto first = lines_.size();
    if (ends[0] > lowLog_)
        follow(Kind::temperature, value, atLog, lowLog_, std::min(ends[0] - beside, highLog_));
    if (hasGlide && ends[1] > lowLog_ && ends[0] < highLog_)
        follow(Kind::temperature, value, atLog, std::max(ends[0] + beside, lowLog_),
               std::min(ends[1] - beside, highLog_));
    if (!hasGlide && ends[0] > lowLog_ && ends[0] < highLog_)
        add(Kind::temperature, value, {{dew->h, dew->p}, {bubble->h, bubble->p}});
    if (ends[1] < highLog_)
        follow(Kind::temperature, value, atLog, std::max(ends[1] + beside, lowLog_), highLog_);
    // What meets becomes one line.
    PhLine whole{Kind::temperature, value, {}};
    for (auto line = lines_.begin() + static_cast<std::ptrdiff_t>(first); line != lines_.end(); ++line)
        whole.points.insert(whole.points.end(), line->points.begin(), line->points.end());
    lines_.resize(first);
    add(Kind::temperature, value, std::move(whole.points));
}

void Lines::isentropes() {
    const auto highest = refprop_.StateAtEnthalpy(range_.lowP, range_.highH);
    constexpr double most = 8;
    if (!highest) return;
    forRoundValues(convertedEntropy, {leastDewEntropy_, highest->s}, most, [this](double value, double s) {
        follow(
            Kind::entropy, value,
            [this, s](double logarithm) { return pointOf(refprop_.StateAtEntropy(std::exp(logarithm), s)); },
            lowLog_, highLog_);
    });
}

std::optional<PhPoint> Lines::atEnthalpyWith(double p, double lowH, double highH,
                                             const std::function<std::optional<double>(double)>& missing,
                                             double tolerance) const {
    const auto h = rootOf(missing, lowH, highH, tolerance);
    return h ? std::optional(PhPoint{*h, p}) : std::nullopt;
}

/// Of the gas and of both phases: those of the liquid lie too close together. 1, 2, 5, 10 and so on.
void Lines::isochores() {
    const auto thinnest = refprop_.StateAtEnthalpy(range_.lowP, range_.highH);
    if (!thinnest || criticalDensity_ == 0) return;
    const double low = convertedDensity(thinnest->density, UnitSystem::metric, units_);
    const double high = convertedDensity(criticalDensity_, UnitSystem::metric, units_);
    constexpr double tolerance = 1e-7;
    for (double power = std::pow(10, std::floor(std::log10(low))); power < high; power *= 10) {
        for (const double factor : {1, 2, 5}) {
            const double value = factor * power;
            if (value < low || value > high) continue;
            const double density = convertedDensity(value, units_, UnitSystem::metric);
            const Curve curve = [this, density](double logarithm) {
                const double p = std::exp(logarithm);
                return atEnthalpyWith(
                    p, range_.lowH, range_.highH,
                    [this, p, density](double h) -> std::optional<double> {
                        const auto state = refprop_.StateAtEnthalpy(p, h);
                        return state ? std::optional(std::log(state->density / density)) : std::nullopt;
                    },
                    tolerance);
            };
            follow(Kind::density, value, curve, lowLog_, highLog_);
        }
    }
}

void Lines::qualities() {
    if (topP_ <= range_.lowP) return;
    const double wide = std::sqrt(std::log(topP_ / range_.lowP));
    constexpr double tolerance = 1e-8;
    constexpr double close = 0.05;  // to the critical point, where two phases of a blend are hard to find
    for (const double share : {0.2, 0.4, 0.6, 0.8}) {
        const Curve curve = [this, share](double root) -> std::optional<PhPoint> {
            const double p = topP_ * std::exp(-root * root);
            const auto bubble = refprop_.SaturationAtPressure(p, saturation::bubble);
            const auto dew = refprop_.SaturationAtPressure(p, saturation::dew);
            if (!bubble || !dew) return std::nullopt;
            return atEnthalpyWith(
                p, bubble->h, dew->h,
                [&](double h) -> std::optional<double> {
                    if (h == bubble->h) return -share;
                    if (h == dew->h) return 1 - share;
                    const auto state = refprop_.StateAtEnthalpy(p, h);
                    return state && state->quality ? std::optional(*state->quality - share) : std::nullopt;
                },
                tolerance);
        };
        follow(Kind::quality, share, curve, wide, close);
    }
}

std::vector<PhLine> Lines::all() {
    dome();
    isotherms();
    isentropes();
    isochores();
    qualities();
    return std::move(lines_);
}

/// The round pressures of both ends of a range.
constexpr std::array roundPressures{1.0, 1.2, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 8.0, 10.0};

double roundedPressure(double p, bool upwards) {
    const double power = std::pow(10, std::floor(std::log10(p)));
    double below = roundPressures.front();
    for (const double round : roundPressures) {
        if (round * power >= p && upwards) return round * power;
        if (round * power <= p) below = round;
    }
    return below * power;
}

double stepOfEnthalpies(const PhRange& range) {
    constexpr double most = 16;
    return roundStep(range.highH - range.lowH, most);
}

/// What a session keeps of the diagrams.
struct KeptDiagrams {
    struct Kept {
        std::string refrigerant;
        UnitSystem units;
        PhRange range;
        std::shared_ptr<const PhDiagram> diagram;
    };
    static constexpr std::size_t most = 12;
    std::vector<Kept> kept;  ///< The one used last is the last.
    std::string folder;      ///< Of their library.
    long long opening = 0;   ///< Of the file that has the refrigerants.
};

}  // namespace

PhRange phRangeOf(clsRefprop& refprop) {
    constexpr double coldEvaporation = -40;
    constexpr double hotGas = 100;
    constexpr double overCritical = 1.1;
    const SaturationRange& dew = refprop.DewRange();
    const double cold = std::max(coldEvaporation, dew.minimum + 1);
    const auto liquid = refprop.SaturationAtTemperature(cold, saturation::bubble);
    const auto vapour = refprop.SaturationAtTemperature(cold, saturation::dew);
    if (!liquid || !vapour) throw std::runtime_error("The refrigerant has no saturation states.");
    const auto gas = refprop.StateAtTemperature(std::max(hotGas, dew.maximum), vapour->p);
    PhRange range{liquid->h, gas ? gas->h : 2 * vapour->h - liquid->h, roundedPressure(vapour->p, false),
                  roundedPressure(overCritical * highestSaturation(refprop), true)};
    const double step = stepOfEnthalpies(range);
    range.lowH = std::floor(range.lowH / step) * step;
    range.highH = std::ceil(range.highH / step) * step;
    return range;
}

PhRange widened(const PhRange& range, const Cycle& cycle) {
    PhRange wide = range;
    const double step = stepOfEnthalpies(range);
    constexpr double margin = 0.2;  // of a step, so that no point lies on the frame
    constexpr double least = 1.05;  // of a pressure
    for (const CycleState& each : cycle.states) {
        const FluidState& state = each.state;
        wide.lowH = std::min(wide.lowH, std::floor(state.h / step - margin) * step);
        wide.highH = std::max(wide.highH, std::ceil(state.h / step + margin) * step);
        if (state.p < least * wide.lowP) wide.lowP = roundedPressure(state.p / least, false);
        if (state.p * least > wide.highP) wide.highP = roundedPressure(state.p * least, true);
    }
    return wide;
}

PhDiagram phDiagramOf(clsRefprop& refprop, const PhRange& range, UnitSystem units) {
    return {range, Lines(refprop, range, units).all()};
}

std::shared_ptr<const PhDiagram> phDiagramAround(const Cycle& cycle, const std::string& refrigerant,
                                                 UnitSystem units) {
    const std::shared_ptr<clsRefprop> refprop = SharedRefprop(refrigerant);
    const PhRange range = widened(phRangeOf(*refprop), cycle);
    Session& session = Session::current();
    auto& shared = session.part<KeptDiagrams>();
    const long long opening = gDatabase().openings();
    if (shared.folder != session.applicationFolder || shared.opening != opening)
        shared = {{}, session.applicationFolder, opening};
    auto& kept = shared.kept;
    const auto found = std::ranges::find_if(kept, [&](const KeptDiagrams::Kept& each) {
        return equalIgnoringCase(each.refrigerant, refrigerant) && each.units == units && each.range == range;
    });
    if (found != kept.end()) {
        std::rotate(found, found + 1, kept.end());
    } else {
        if (kept.size() == KeptDiagrams::most) kept.erase(kept.begin());
        kept.push_back({refrigerant, units, range,
                        std::make_shared<const PhDiagram>(phDiagramOf(*refprop, range, units))});
    }
    return kept.back().diagram;
}

}  // namespace marvello
