#include "engine/Year.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <stdexcept>
#include <utility>

#include "data/Texts.h"
#include "engine/CapacityStates.h"

namespace marvello {

namespace {

void check(const YearRequest& request) {
    const auto need = [](bool holds, const char* sentence) {
        if (!holds) throw std::invalid_argument(sentence);
    };
    int machines = 0;
    int inverters = 0;
    for (const PlantMachines& each : request.machines) {
        need(each.count >= 1, "A kind of machine has no machine.");
        machines += each.count;
        if (each.compressor->hasInvert) inverters += each.count;
        need(
            equalIgnoringCase(each.compressor->Refrigerant, request.machines.front().compressor->Refrigerant),
            "The machines have more than one refrigerant.");
    }
    need(machines >= 1 && machines <= YearRequest::maxMachines, "The number of machines is not from 1 to 8.");
    need(inverters <= 1, "More than one machine is on an inverter.");
    need(std::isfinite(request.designLoad) && request.designLoad > 0, "The design load is not above 0 kW.");
    need(!request.evaporating.points.empty(), "The evaporating temperature is missing.");
    need(request.condensing.difference || request.condensing.minimum,
         "The condensing temperature is missing.");
}

RunningState runningState(const CapacityState& state, const PreparedCompressor& compressor) {
    return {.capacity = capacityOf(state.performance, CapacityKind::cooling),
            .power = state.performance.duty().power,
            .step = state.step(),
            .frequency = frequencyOf(compressor, state.at.conditions)};
}

/// Of rising capacity, without those that have no more capacity than another one for more power.
void order(std::vector<RunningState>& states) {
    std::ranges::sort(states, [](const RunningState& a, const RunningState& b) {
        return std::pair(a.capacity, a.power) < std::pair(b.capacity, b.power);
    });
    const auto isSame = [](const RunningState& a, const RunningState& b) { return a.capacity == b.capacity; };
    states.erase(std::unique(states.begin(), states.end(), isSame), states.end());
}

/// Machines of one kind at an operating point, with what they cannot run for.
struct MachinesAt {
    StagedMachines machines;
    std::string error{};
};

class PointStates {
  public:
    PointStates(Calculator& calculator, const clsProjectConditions& conditions)
        : calculator_(calculator), conditions_(conditions) {}

    MachinesAt of(const PlantMachines& machines) {
        MachinesAt at =
            machines.compressor->hasInvert ? ofInverter(*machines.compressor) : ofSteps(*machines.compressor);
        at.machines.count = machines.count;
        order(at.machines.states);
        return at;
    }

    long long calculations() const {
        return calculations_ + (inverter_ ? static_cast<long long>(inverter_->calculations()) : 0);
    }

  private:
    MachinesAt ofSteps(const PreparedCompressor& compressor) {
        MachinesAt at;
        const auto states = stepStates(calculator_, compressor, conditions_, stepsOf(compressor));
        calculations_ += static_cast<long long>(states.size());
        for (const CapacityState& state : states)
            if (state.isPossible()) at.machines.states.push_back(runningState(state, compressor));
        if (at.machines.states.empty()) at.error = states.front().performance.error;
        return at;
    }

    MachinesAt ofInverter(const PreparedCompressor& compressor) {
        inverter_ = std::make_unique<InverterStates>(calculator_, compressor, conditions_);
        if (!inverter_->isPossible()) return {.machines = {}, .error = inverter_->first().performance.error};
        MachinesAt at;
        std::vector<RunningState>& states = at.machines.states;
        states.push_back(runningState(inverter_->lowest(), compressor));
        states.push_back(runningState(inverter_->highest(), compressor));
        addBetween(states, compressor);
        at.machines.solve = [this, &compressor](double capacity) {
            return runningState(inverter_->forCapacity(capacity), compressor);
        };
        return at;
    }

    /// Some that say how the power rises, which spares solving for many combinations.
    void addBetween(std::vector<RunningState>& states, const PreparedCompressor& compressor) {
        constexpr int parts = 5;
        const float low = *states.front().frequency;
        const float high = *states.back().frequency;
        clsProjectConditions conditions = conditions_;
        conditions.StepCapacity = capacitySteps.front();
        for (int i = 1; i < parts; ++i) {
            conditions.InverterFrequency = low + (high - low) * static_cast<float>(i) / parts;
            const CapacityState state = stateAt(calculator_, compressor, conditions);
            ++calculations_;
            if (state.isPossible()) states.push_back(runningState(state, compressor));
        }
    }

    Calculator& calculator_;
    clsProjectConditions conditions_;
    std::unique_ptr<InverterStates> inverter_;
    long long calculations_ = 0;
};

/// Bins at one operating point.
struct SamePoint {
    double ted, tcd;
    std::vector<std::size_t> bins{};
    long long calculations = 0;
};

std::vector<SamePoint> pointsOf(const std::vector<YearBin>& bins) {
    std::map<std::pair<double, double>, std::vector<std::size_t>> byPoint;
    for (std::size_t bin = 0; bin < bins.size(); ++bin)
        byPoint[{bins[bin].ted, bins[bin].tcd}].push_back(bin);
    std::vector<SamePoint> points;
    for (auto& [point, indices] : byPoint) points.push_back({point.first, point.second, std::move(indices)});
    return points;
}

/// Stages all bins of an operating point.
void calculate(const YearRequest& request, Calculator& calculator, SamePoint& point,
               std::vector<YearBin>& bins) {
    clsProjectConditions conditions = request.conditions;
    conditions.TEvaporatingDew = point.ted;
    conditions.TCondensationDew = point.tcd;
    PointStates states(calculator, conditions);
    std::vector<StagedMachines> group;
    std::vector<std::string> errors;
    for (const PlantMachines& machines : request.machines) {
        MachinesAt at = states.of(machines);
        group.push_back(std::move(at.machines));
        errors.push_back(std::move(at.error));
    }
    for (const std::size_t index : point.bins) {
        YearBin& bin = bins[index];
        bin.load = sharedLoad(group, bin.needed, request.staging, request.degradation);
        // Where nothing is needed nothing has to run.
        bin.errors = bin.needed > 0 ? errors : std::vector<std::string>(errors.size());
    }
    point.calculations = states.calculations();
}

std::vector<YearBin> binsOf(const YearRequest& request) {
    std::vector<YearBin> bins;
    for (const LoadBin& bin : request.profile.bins)
        bins.push_back({.bin = bin,
                        .needed = request.designLoad * bin.load,
                        .ted = request.evaporating.at(bin.outdoor),
                        .tcd = request.condensing.at(bin.outdoor, bin.load)});
    return bins;
}

void addTo(Year& year, const YearBin& bin) {
    const double hours = bin.bin.hours;
    year.hours += hours;
    year.energy += bin.energy();
    year.delivered += bin.delivered() * hours;
    year.unmet += bin.load.unmet * hours;
    if (bin.load.unmet > 0) year.unmetHours += hours;
    if (bin.load.intermittent() > 0) year.intermittentHours += hours;
    for (std::size_t kind = 0; kind < year.runningHours.size(); ++kind)
        year.runningHours[kind] += bin.runningHours(kind);
}

}  // namespace

double YearBin::runningHours(std::size_t kind) const {
    double machines = 0;
    for (const RunningMachines& running : load.running)
        if (running.kind == kind) machines += running.count * running.share;
    return machines * bin.hours;
}

std::optional<double> Year::seasonalCop() const {
    if (energy <= 0) return std::nullopt;
    return delivered / energy;
}

double Year::allRunningHours() const {
    double sum = 0;
    for (const double hours : runningHours) sum += hours;
    return sum;
}

std::optional<Year> yearOf(const YearRequest& request, const PointLoop& loop) {
    check(request);
    Year year{.bins = binsOf(request)};
    year.runningHours.resize(request.machines.size());
    std::vector<SamePoint> points = pointsOf(year.bins);
    const bool isComplete = loop(points.size(), [&](Calculator& calculator, std::size_t index) {
        calculate(request, calculator, points[index], year.bins);
    });
    if (!isComplete) return std::nullopt;
    for (const YearBin& bin : year.bins) addTo(year, bin);
    for (const SamePoint& point : points) year.calculations += point.calculations;
    return year;
}

std::optional<FourPoints> fourPointsOf(const YearRequest& request, const SeasonalRule& rule,
                                       const PointLoop& loop) {
    YearRequest atPoints = request;
    atPoints.profile.bins.clear();
    for (const double outdoor : rule.points)
        atPoints.profile.bins.push_back({.outdoor = outdoor, .hours = 0, .load = rule.loadAt(outdoor)});
    auto year = yearOf(atPoints, loop);
    if (!year) return std::nullopt;
    FourPoints result;
    std::array<double, 4> cops{};
    bool canRun = true;
    for (std::size_t i = 0; i < cops.size(); ++i) {
        result.points[i] = std::move(year->bins[i]);
        canRun = canRun && result.points[i].power() > 0;
        if (canRun) cops[i] = result.points[i].delivered() / result.points[i].power();
    }
    if (canRun && request.profile.fullLoadHours() > 0)
        result.figure = seasonalFigure(request.profile, CopByOutdoor(rule.points, cops));
    return result;
}

}  // namespace marvello
