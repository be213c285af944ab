#include "demo/generate/OperatingRange.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace marvello::generate {
namespace {

constexpr double greatestSuperheat = 20;  // K, that of the selection rules
constexpr double hottest = 135;           // degC: beyond, oil and gas decompose, whatever the oil cooler does
constexpr double leastLift = 21;          // K between evaporating and condensing at high suction pressure

constexpr double motorSlope = 0.3;  // K of condensing for each K of evaporating temperature

/// A region before its corner is cut.
struct Box {
    double from;
    double to;
    double lowest;
    double highest;
    double ratio;
    double hottest;
    double lift;  ///< K between evaporating and condensing that are left
};

class Drawing {
  public:
    Drawing(const SeriesPlan& series, const Fluid& fluid)
        : series_(series), fluid_(fluid), usual_(usualMachine(series, fluid)) {}

    Region region(const Box& box) const { return {lowerEdge(box), upperEdge(box)}; }

  private:
    /// The highest condensing temperature allowed at an evaporating temperature. The less gas there is to
    /// cool the motor, the lower it is.
    double ceiling(const Box& box, double x) const {
        const double byMotor = box.highest - motorSlope * std::max(0.0, box.to - x);
        const double high = box.ratio * fluid_.dewPressure(x);
        const double byRatio = high < fluid_.dewPressure(byMotor) ? fluid_.dewTemperature(high) : byMotor;
        return condensingAtDischarge(series_, usual_, fluid_, x, box.hottest, byRatio);
    }

    /// Where the region begins: a little height has to be left there.
    double left(const Box& box) const {
        constexpr double leastHeight = 8;
        double x = box.from;
        while (ceiling(box, x) < box.lowest + leastHeight) x += 1;
        return x;
    }

    /// Straight from the left end, over a corner half-way, to where the motor decides, and on to the right.
    BrokenLine upperEdge(const Box& box) const {
        const double begin = left(box);
        const auto isMotors = [&](double x) {
            constexpr double alike = 1e-6;
            return ceiling(box, x) > box.highest - motorSlope * (box.to - x) - alike;
        };
        double reached = begin;
        while (reached < box.to && !isMotors(reached)) reached += 1;
        std::vector<double> corners{begin};
        constexpr double leastLength = 6;
        if (reached - begin >= leastLength) corners.push_back(std::round((begin + reached) / 2));
        if (reached > begin + 1) corners.push_back(reached);
        if (reached < box.to) corners.push_back(box.to);
        std::vector<Point> points;
        points.reserve(corners.size());
        for (const double x : corners) points.push_back({x, std::floor(ceiling(box, x))});
        return BrokenLine(points);
    }

    BrokenLine lowerEdge(const Box& box) const {
        const double begin = left(box);
        const double bend = box.lowest - box.lift;
        if (bend >= box.to) return BrokenLine({{begin, box.lowest}, {box.to, box.lowest}});
        if (bend <= begin) return BrokenLine({{begin, begin + box.lift}, {box.to, box.to + box.lift}});
        return BrokenLine({{begin, box.lowest}, {bend, box.lowest}, {box.to, box.to + box.lift}});
    }

    const SeriesPlan& series_;
    const Fluid& fluid_;
    ScrewMachine usual_;
};

}  // namespace

ScrewMachine usualMachine(const SeriesPlan& series, const Fluid& fluid) {
    const ModelPlan& model = middleModel(series);
    ScrewMachine machine = machineOf(series, model, 0);
    const double x = series.range.evaporatingTo;
    const double y = series.range.condensingTo;
    machine.motorPower = series.hasMotor() ? 1.1 * fullLoad(machine, fluid, x, y).shaftPower : 0;
    return machine;
}

double condensingAtDischarge(const SeriesPlan& series, const ScrewMachine& usual, const Fluid& fluid,
                             double evaporating, double limit, double above) {
    // A discharge beyond the range of the refrigerant's equation is hotter than any limit.
    const auto isBelow = [&](double condensing) {
        try {
            return fullLoad(usual, fluid, evaporating, condensing, leastSpeed(series)).dischargeTemperature +
                       greatestSuperheat - referenceSuperheat <=
                   limit;
        } catch (const std::runtime_error&) {
            return false;
        }
    };
    if (isBelow(above)) return above;
    double low = evaporating + 1;
    double high = above;
    constexpr double fine = 0.01;
    while (high - low > fine) {
        const double middle = (low + high) / 2;
        (isBelow(middle) ? low : high) = middle;
    }
    return low;
}

OperatingRange operatingRange(const SeriesPlan& series, const Fluid& fluid) {
    const RangePlan& plan = series.range;
    const Drawing drawing(series, fluid);
    const Box application{plan.evaporatingFrom,
                          plan.evaporatingTo,
                          plan.condensingFrom,
                          plan.condensingTo,
                          series.greatestRatio,
                          hottest,
                          leastLift};
    Box economized = application;
    economized.from -= 3;
    economized.to -= 5;
    economized.highest -= 1;
    economized.ratio *= 1.05;
    Box over = application;
    over.from -= series.hasEconomizer() ? 5 : 2;
    over.to += 3;
    over.lowest -= 4;
    over.highest += 3;
    over.ratio *= 1.1;
    over.hottest += 10;
    over.lift -= 4;
    return {.application = drawing.region(application),
            .economized = drawing.region(economized),
            .over = drawing.region(over),
            .smallMotor = BrokenLine({{plan.evaporatingFrom, plan.condensingTo - 15},
                                      {plan.evaporatingTo, plan.condensingTo - 12}}),
            .oilFilter = plan.condensingFrom + 4,
            .oilFilterEarly = plan.condensingFrom + 16};
}

}  // namespace marvello::generate
