#include "engine/Staging.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

#include "engine/LoadSplit.h"

namespace marvello {

namespace {

constexpr double lastBits = 1e-9;
constexpr int off = -1;

bool isInverter(const StagedMachines& machines) { return static_cast<bool>(machines.solve); }
bool canRun(const StagedMachines& machines) { return !machines.states.empty(); }

LoadSplit splitOver(std::span<const RunningState> states, double needed, double tolerance) {
    std::vector<double> capacities;
    for (const RunningState& state : states) capacities.push_back(state.capacity);
    return splitLoad(needed, capacities, tolerance);
}

/// Solves an inverter for a capacity between those of its ends, and keeps the state for the next load.
RunningState solved(StagedMachines& machines, double needed) {
    std::vector<RunningState>& states = machines.states;
    const RunningState state = machines.solve(needed);
    const auto at = std::ranges::lower_bound(states, state.capacity, {}, &RunningState::capacity);
    if (at != states.end() && at->capacity > state.capacity && at != states.begin()) states.insert(at, state);
    return state;
}

/// A machine of a kind that covers a part of the load on its own.
std::vector<RunningMachines> trimmed(StagedMachines& machines, std::size_t kind, double needed,
                                     const Degradation& degradation) {
    std::vector<RunningState> states = machines.states;
    LoadSplit split = splitOver(states, needed, lastBits);
    if (split.kind == LoadSplit::Kind::blended && isInverter(machines)) {
        states = {solved(machines, needed), states.front(), states.back()};
        split = splitOver(states, needed, stepsOfSearch);
    }
    if (split.kind == LoadSplit::Kind::none) return {};
    const auto running = [&](std::size_t state, double share) {
        return RunningMachines{.kind = kind, .state = states[state], .share = share};
    };
    std::vector<RunningMachines> parts{running(split.state, split.share)};
    if (split.kind == LoadSplit::Kind::intermittent)
        parts.front().degradation = degradation.factor(split.share);
    if (split.kind == LoadSplit::Kind::blended) parts.push_back(running(split.other, 1 - split.share));
    return parts;
}

/// No state of a machine that has this capacity takes less power: that of a state with less capacity.
double minPower(const StagedMachines& machines, double capacity) {
    const std::vector<RunningState>& states = machines.states;
    if (!std::ranges::is_sorted(states, {}, &RunningState::power)) return 0;
    const auto above = std::ranges::upper_bound(states, capacity, {}, &RunningState::capacity);
    return above == states.begin() ? 0 : std::prev(above)->power;
}

/// Nothing that the group can do takes less power for a kilowatt.
double minSpecificPower(std::span<const StagedMachines> group) {
    double lowest = std::numeric_limits<double>::infinity();
    for (const StagedMachines& machines : group) {
        // Between two frequencies of an inverter: the power of the lower one for the capacity of the higher
        // one.
        const std::size_t ahead = isInverter(machines) ? 1 : 0;
        const std::vector<RunningState>& states = machines.states;
        if (isInverter(machines) && !std::ranges::is_sorted(states, {}, &RunningState::power)) return 0;
        for (std::size_t i = 0; i < states.size(); ++i)
            lowest =
                std::min(lowest, states[i].power / states[std::min(i + ahead, states.size() - 1)].capacity);
    }
    return lowest;
}

/// The search over all combinations, one kind after the other as that of the machine that trims.
class LeastPower {
  public:
    /// From an answer that is one of the combinations.
    LeastPower(std::span<StagedMachines> group, double needed, const Degradation& degradation,
               StagedLoad known)
        : group_(group),
          needed_(needed),
          degradation_(degradation),
          minSpecificPower_(minSpecificPower(group)),
          best_(answerOf(std::move(known))) {}

    StagedLoad find() {
        std::vector<std::size_t> kinds;
        for (std::size_t kind = 0; kind < group_.size(); ++kind)
            if (canRun(group_[kind])) kinds.push_back(kind);
        // Those on the mains first: a good answer spares solving for the inverter.
        std::stable_partition(kinds.begin(), kinds.end(),
                              [this](std::size_t kind) { return !isInverter(group_[kind]); });
        for (const std::size_t kind : kinds) trimWith(kind);
        return std::move(best_.met);
    }

  private:
    /// A machine that does not trim.
    struct Unit {
        std::size_t kind;
        int state = off;
    };
    /// The machines that do not trim, and what is left for the one that does.
    struct Rest {
        std::vector<Unit> units;
        double power, left, minTotal;
    };
    struct Answer {
        StagedLoad met;
        double power;
        int machines;
        std::vector<double> loads;  // by kind
    };

    Answer answerOf(StagedLoad met) const {
        Answer answer{.met = std::move(met), .power = 0, .machines = 0, .loads = {}};
        answer.power = answer.met.power();
        answer.machines = answer.met.machines();
        answer.loads.resize(group_.size());
        for (const RunningMachines& machines : answer.met.running)
            answer.loads[machines.kind] += machines.capacity();
        return answer;
    }

    void trimWith(std::size_t kind) {
        trimming_ = kind;
        units_.clear();
        for (std::size_t other = 0; other < group_.size(); ++other) {
            const StagedMachines& machines = group_[other];
            const int count = canRun(machines) ? machines.count - (other == kind ? 1 : 0) : 0;
            units_.insert(units_.end(), static_cast<std::size_t>(count), {other});
        }
        maxFrom_.assign(units_.size() + 1, group_[kind].states.back().capacity);
        for (std::size_t i = units_.size(); i-- > 0;)
            maxFrom_[i] = maxFrom_[i + 1] + group_[units_[i].kind].states.back().capacity;
        rests_.clear();
        choose(0, 0, needed_);
        std::ranges::stable_sort(rests_, {}, &Rest::minTotal);
        for (const Rest& rest : rests_) {
            if (!isWorthTrying(rest.power + minPower(group_[kind], rest.left))) continue;
            take(rest);
        }
    }

    bool isWorthTrying(double power) const { return power <= best_.power * (1 + lastBits); }

    /// Gives the unit at `index` and those after it their states.
    void choose(std::size_t index, double power, double left) {
        const double slack = lastBits * needed_;
        if (left < -slack || left > maxFrom_[index] + slack ||
            !isWorthTrying(power + left * minSpecificPower_))
            return;
        if (index == units_.size()) {
            left = std::clamp(left, 0.0, group_[trimming_].states.back().capacity);
            rests_.push_back({units_, power, left, power + minPower(group_[trimming_], left)});
            return;
        }
        Unit& unit = units_[index];
        const StagedMachines& machines = group_[unit.kind];
        const int highest = static_cast<int>(machines.states.size()) - 1;
        // Of machines that are alike the first ones have the higher states.
        const bool isAlike = index > 0 && units_[index - 1].kind == unit.kind;
        int state = isAlike ? units_[index - 1].state : highest;
        while (true) {
            unit.state = state;
            if (state == off) return choose(index + 1, power, left);
            const RunningState& runs = machines.states[static_cast<std::size_t>(state)];
            choose(index + 1, power + runs.power, left - runs.capacity);
            state = isInverter(machines) && state > 0 ? 0 : state - 1;
        }
    }

    void take(const Rest& rest) {
        StagedLoad met;
        std::vector<RunningMachines>& running = met.running;
        for (const Unit& unit : rest.units) {
            if (unit.state == off) continue;
            const RunningState& state = group_[unit.kind].states[static_cast<std::size_t>(unit.state)];
            if (!running.empty() && running.back().kind == unit.kind &&
                running.back().state.capacity == state.capacity)
                ++running.back().count;
            else
                running.push_back({.kind = unit.kind, .state = state});
        }
        if (rest.left > lastBits * needed_)
            std::ranges::move(trimmed(group_[trimming_], trimming_, rest.left, degradation_),
                              std::back_inserter(running));
        std::ranges::stable_sort(running, {}, &RunningMachines::kind);
        Answer answer = answerOf(std::move(met));
        if (isBetter(answer)) best_ = std::move(answer);
    }

    bool isBetter(const Answer& answer) const {
        if (std::abs(answer.power - best_.power) > lastBits * answer.power) return answer.power < best_.power;
        if (answer.machines != best_.machines) return answer.machines < best_.machines;
        for (std::size_t kind = 0; kind < answer.loads.size(); ++kind)
            if (std::abs(answer.loads[kind] - best_.loads[kind]) > lastBits * needed_)
                return answer.loads[kind] > best_.loads[kind];
        return false;
    }

    std::span<StagedMachines> group_;
    double needed_;
    const Degradation& degradation_;
    double minSpecificPower_;
    Answer best_;
    std::size_t trimming_ = 0;
    std::vector<Unit> units_;
    /// Highest capacity of the unit at an index, those after it and that which trims.
    std::vector<double> maxFrom_;
    std::vector<Rest> rests_;
};

/// The first machines at their highest capacity, then one that trims.
StagedLoad inSequence(std::span<StagedMachines> group, double needed, const Degradation& degradation) {
    StagedLoad met;
    for (std::size_t kind = 0; kind < group.size(); ++kind) {
        if (!canRun(group[kind])) continue;
        const RunningState highest = group[kind].states.back();
        const int full =
            static_cast<int>(std::min<double>(group[kind].count, needed / highest.capacity * (1 + lastBits)));
        if (full > 0) met.running.push_back({.kind = kind, .count = full, .state = highest});
        needed = std::max(0.0, needed - full * highest.capacity);
        if (full == group[kind].count) continue;
        if (needed > lastBits * highest.capacity)
            std::ranges::move(trimmed(group[kind], kind, needed, degradation),
                              std::back_inserter(met.running));
        break;
    }
    return met;
}

double highestCapacity(std::span<const StagedMachines> group) {
    double sum = 0;
    for (const StagedMachines& machines : group)
        if (canRun(machines)) sum += machines.count * machines.states.back().capacity;
    return sum;
}

}  // namespace

double StagedLoad::capacity() const {
    double sum = 0;
    for (const RunningMachines& machines : running) sum += machines.capacity();
    return sum;
}

double StagedLoad::power() const {
    double sum = 0;
    for (const RunningMachines& machines : running) sum += machines.power();
    return sum;
}

int StagedLoad::machines() const {
    int count = 0;
    const RunningMachines* last = nullptr;
    for (const RunningMachines& machines : running) {
        // The second of two states of the machine that alternates is that machine again.
        const bool isSecond = last != nullptr && last->kind == machines.kind && last->share < 1;
        if (!isSecond) count += machines.count;
        last = &machines;
    }
    return count;
}

double StagedLoad::intermittent() const {
    double share = 0;
    for (const RunningMachines& machines : running) share += machines.share;
    return std::ceil(share - lastBits) - share;
}

StagedLoad sharedLoad(std::span<StagedMachines> group, double needed, Staging staging,
                      const Degradation& degradation) {
    if (needed <= 0) return {};
    StagedLoad known = inSequence(group, needed, degradation);
    const double missing = needed - highestCapacity(group);
    if (missing > lastBits * needed) known.unmet = missing;
    // One order of the machines is as good as another when all run at their highest capacity.
    if (staging == Staging::sequence || missing > -lastBits * needed) return known;
    return LeastPower(group, needed, degradation, std::move(known)).find();
}

}  // namespace marvello
