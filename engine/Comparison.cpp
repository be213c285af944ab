#include "engine/Comparison.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

#include "engine/PartLoad.h"
#include "engine/PerformanceMap.h"
#include "engine/PermittedConditions.h"
#include "engine/RatingTable.h"
#include "engine/Statements.h"
#include "thermo/RefpropLibrary.h"

namespace marvello {

namespace {

/// A range of temperatures of an axis, degrees Celsius.
using Part = std::pair<double, double>;

Performance failedWith(std::string_view key) {
    return {.state = PointState::error, .error = std::string(key)};
}

/// The COP at parts of the full capacity, where the machine reaches them.
void addPartLoads(ComparedMachine& machine, Calculator& calculator) {
    const PartLoadPlan plan{.compressor = machine.prepared, .conditions = machine.choice.conditions};
    const MachineLoads loads(calculator, plan);
    if (!loads.full().performance.hasValues()) return;
    for (std::size_t i = 0; i < partLoadShares.size(); ++i) {
        const LoadRun run = loads.at(calculator, partLoadShares.at(i)).run;
        if (run.kind != LoadRun::Kind::none) machine.partLoadCop.at(i) = run.cop;
    }
}

ComparedMachine machineOf(const ComparedChoice& choice, const PreparedCatalogue& catalogue,
                          Calculator& calculator) {
    ComparedMachine machine{.choice = choice};
    machine.prepared = catalogue.find(choice.refrigerant, choice.serie, choice.model);
    if (machine.prepared == nullptr) {
        machine.performance = failedWith(unknownCompressor);
        return machine;
    }
    const PermittedConditions permitted = permittedConditions(*machine.prepared, choice.conditions);
    machine.choice.conditions = permitted.conditions;
    machine.putBack = permitted.putBack;
    const clsProjectConditions& conditions = machine.choice.conditions;
    try {
        auto calculated = std::make_shared<clsCompressor>();
        calculator.calculate(*machine.prepared, conditions, *calculated);
        machine.performance = performanceOf(*calculated);
        machine.calculated = std::move(calculated);
        if (machine.performance.hasValues()) addPartLoads(machine, calculator);
    } catch (const FluidLibraryError&) {
        throw;
    } catch (const std::exception&) {
        machine.performance = failedWith(failureName);
    }
    if (const clsLimits* const limits = machine.limits())
        machine.margin = applicationMargin(*limits, conditions.TEvaporatingDew, conditions.TCondensationDew);
    return machine;
}

/// The ranges of an axis that lie within the application limit, from low to high, apart from each other.
std::vector<Part> partsWithin(const ComparedMachine& machine, CurveAxis axis) {
    const clsLimits* const limits = machine.limits();
    const auto grid = limits == nullptr ? std::nullopt : gridOver(*limits, 2, 2);
    if (!grid) return {};
    const clsProjectConditions& conditions = machine.choice.conditions;
    const bool isEvaporating = axis == CurveAxis::evaporating;
    const double low = isEvaporating ? grid->lowTed : grid->lowTcd;
    const double high = isEvaporating ? grid->highTed : grid->highTcd;
    const auto at = [&](double value) {
        return isEvaporating ? PlanePoint{value, conditions.TCondensationDew}
                             : PlanePoint{conditions.TEvaporatingDew, value};
    };
    std::vector<Part> parts;
    for (const PlanePolygon& polygon : applicationPolygons(*limits))
        for (const auto& [from, to] : partsInside(polygon, at(low), at(high)))
            parts.emplace_back(std::lerp(low, high, from), std::lerp(low, high, to));
    std::ranges::sort(parts);
    std::vector<Part> apart;
    for (const Part& part : parts) {
        if (!apart.empty() && part.first <= apart.back().second)
            apart.back().second = std::max(apart.back().second, part.second);
        else
            apart.push_back(part);
    }
    return apart;
}

/// The points of a curve, not yet calculated.
Curve pointsOf(const ComparedMachine& machine, CurveAxis axis) {
    constexpr double step = 1;       // K
    constexpr double inside = 1e-4;  // K; the limit itself may count as outside, by the last bits
    const clsProjectConditions& conditions = machine.choice.conditions;
    const double own =
        axis == CurveAxis::evaporating ? conditions.TEvaporatingDew : conditions.TCondensationDew;
    Curve curve;
    for (const auto& [from, to] : partsWithin(machine, axis)) {
        if (to - from <= 2 * inside) continue;
        std::vector<double> values = multiplesOf(step, from + inside, to - inside);
        for (const double end : {from + inside, to - inside}) insertValue(values, end);
        if (own > from && own < to) insertValue(values, own);
        for (const double value : values)
            curve.push_back({.at = value, .beginsPart = value == values.front()});
    }
    return curve;
}

}  // namespace

OperatingPoint pointOf(const clsProjectConditions& conditions) {
    return {.ted = conditions.TEvaporatingDew,
            .tcd = conditions.TCondensationDew,
            .superheat = conditions.SuperHeat,
            .superheatKind = conditions.SuperHeatType,
            .subcooling = conditions.SubCooling};
}

clsProjectConditions movedTo(const clsProjectConditions& conditions, const OperatingPoint& point) {
    clsProjectConditions moved = conditions;
    moved.TEvaporatingDew = point.ted;
    moved.TCondensationDew = point.tcd;
    moved.SuperHeat = point.superheat;
    moved.SuperHeatType = point.superheatKind;
    moved.SubCooling = point.subcooling;
    return moved;
}

const clsLimits* ComparedMachine::limits() const {
    if (prepared == nullptr) return nullptr;
    const Envelope* const envelope = prepared->envelopeFor(choice.conditions.EcoCalculateMode);
    return envelope == nullptr || !envelope->fault.empty() ? nullptr : &envelope->limits;
}

std::optional<OperatingPoint> Comparison::samePoint() const {
    if (machines.empty()) return std::nullopt;
    const OperatingPoint point = pointOf(machines.front().choice.conditions);
    const bool isSame = std::ranges::all_of(machines, [&](const ComparedMachine& machine) {
        return pointOf(machine.choice.conditions) == point;
    });
    return isSame ? std::optional(point) : std::nullopt;
}

Comparison compare(std::span<const ComparedChoice> choices,
                   std::shared_ptr<const PreparedCatalogue> catalogue, Calculator& calculator) {
    Comparison comparison{.catalogue = std::move(catalogue)};
    for (const ComparedChoice& choice : choices)
        comparison.machines.push_back(machineOf(choice, *comparison.catalogue, calculator));
    return comparison;
}

std::optional<std::vector<Curve>> curvesOf(const Comparison& comparison, CurveAxis axis,
                                           const PointLoop& loop) {
    std::vector<Curve> curves;
    std::vector<std::pair<std::size_t, std::size_t>> all;  // machine and point
    for (const ComparedMachine& machine : comparison.machines) {
        curves.push_back(pointsOf(machine, axis));
        for (std::size_t i = 0; i < curves.back().size(); ++i) all.emplace_back(curves.size() - 1, i);
    }
    const bool isComplete = loop(all.size(), [&](Calculator& calculator, std::size_t index) {
        const auto& [at, i] = all[index];
        const ComparedMachine& machine = comparison.machines[at];
        CurvePoint& point = curves[at][i];
        clsProjectConditions conditions = machine.choice.conditions;
        (axis == CurveAxis::evaporating ? conditions.TEvaporatingDew : conditions.TCondensationDew) =
            point.at;
        point.performance = performanceAt(calculator, *machine.prepared, conditions);
    });
    if (!isComplete) return std::nullopt;
    return curves;
}

}  // namespace marvello
