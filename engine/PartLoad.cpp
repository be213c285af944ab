#include "engine/PartLoad.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>

#include "thermo/RefpropLibrary.h"

namespace marvello {

namespace {

constexpr auto cooling = CapacityKind::cooling;

double capacityOf(const CapacityState& state) { return marvello::capacityOf(state.performance, cooling); }
double powerOf(const CapacityState& state) { return state.performance.duty().power; }

/// The means of states that share the time.
LoadRun meanOf(LoadRun::Kind kind, std::vector<TimedState> running) {
    LoadRun run{.kind = kind, .running = std::move(running)};
    for (const auto& [state, share] : run.running) {
        run.capacity += share * capacityOf(state);
        run.power += share * powerOf(state);
        run.massFlow += share * state.performance.massFlow;
    }
    run.cop = run.capacity / run.power;
    return run;
}

/// What the calculation of a machine says.
ClsSelectionMessages messagesAt(Calculator& calculator, const PreparedCompressor& compressor,
                                const clsProjectConditions& conditions) try {
    return calculator.calculate(compressor, conditions).Messages;
} catch (const FluidLibraryError&) {
    throw;
} catch (const std::exception&) {
    return {};  // the state has failureName
}

}  // namespace

LoadRun meetLoad(double needed, std::span<const CapacityState> states, const Degradation& degradation,
                 double tolerance) {
    std::vector<double> capacities;
    for (const CapacityState& state : states)
        capacities.push_back(state.isPossible() ? capacityOf(state) : 0);
    const LoadSplit split = splitLoad(needed, capacities, tolerance);
    if (split.kind == LoadRun::Kind::none) return {};
    const CapacityState& state = states[split.state];
    if (split.kind == LoadRun::Kind::blended)
        return meanOf(split.kind, {{state, split.share}, {states[split.other], 1 - split.share}});
    LoadRun run = meanOf(split.kind, {{state, split.share}});
    if (split.kind == LoadRun::Kind::intermittent) {
        run.degradation = degradation.factor(split.share);
        run.power /= run.degradation;
        run.cop = run.capacity / run.power;
    } else {
        run.cop = state.performance.duty().cop;
    }
    return run;
}

LoadRun meetLoad(double needed, InverterStates& states, const Degradation& degradation) {
    if (!states.isPossible()) return {};
    const std::array candidates{states.forCapacity(needed), states.lowest(), states.highest()};
    return meetLoad(needed, candidates, degradation, stepsOfSearch);
}

clsProjectConditions PartLoadPlan::conditionsOf(double share) const {
    clsProjectConditions of = conditions;
    if (!condensing || share >= 1) return of;  // full load is the operating point, to the last bit
    const double outdoor = conditions.TCondensationDew - condensing->difference.value_or(0);
    of.TCondensationDew = std::min(condensing->at(outdoor, share), conditions.TCondensationDew);
    return of;
}

MachineLoads::MachineLoads(Calculator& calculator, const PartLoadPlan& plan) : plan_(plan) {
    const PreparedCompressor& compressor = *plan_.compressor;
    const clsProjectConditions conditions = plan_.conditionsOf(1);
    if (compressor.hasInvert) {
        const InverterStates states(calculator, compressor, conditions);
        full_ = states.isPossible() ? states.highest() : states.first();
        return;
    }
    const auto states = stepStates(calculator, compressor, conditions, stepsOf(compressor));
    full_ = *std::ranges::max_element(
        states, {}, [](const CapacityState& state) { return state.isPossible() ? capacityOf(state) : -1; });
}

/// A higher load condenses higher, where the machine has less capacity: each pass comes nearer to the load at
/// which both agree.
SteadyLoad MachineLoads::steady(Calculator& calculator, int step, float hertz, double share) const {
    constexpr int maxPasses = 50;
    constexpr double near = 1e-6;  // K
    SteadyLoad load;
    for (int pass = 0; pass < maxPasses; ++pass) {
        clsProjectConditions conditions = plan_.conditionsOf(share);
        const double change = conditions.TCondensationDew - load.state.at.conditions.TCondensationDew;
        if (pass > 0 && std::abs(change) <= near) break;
        conditions.StepCapacity = step;
        conditions.InverterFrequency = hertz;
        load.state = stateAt(calculator, *plan_.compressor, conditions);
        load.share.reset();
        if (!load.state.isPossible()) break;
        share = capacityOf(load.state) / fullCapacity();
        load.share = share;
    }
    if (load.state.performance.state != PointState::ok)
        load.messages = messagesAt(calculator, *plan_.compressor, load.state.at.conditions);
    return load;
}

SteadyLoad MachineLoads::atStep(Calculator& calculator, int step) const {
    const double share = static_cast<double>(step) / full_.step();
    return steady(calculator, step, plan_.conditions.InverterFrequency, share);
}

SteadyLoad MachineLoads::atFrequency(Calculator& calculator, float hertz) const {
    const float share = hertz / full_.at.conditions.InverterFrequency;
    return steady(calculator, capacitySteps.front(), hertz, static_cast<double>(share));
}

PartLoad MachineLoads::at(Calculator& calculator, double share) const {
    const PreparedCompressor& compressor = *plan_.compressor;
    const clsProjectConditions conditions = plan_.conditionsOf(share);
    PartLoad load{
        .share = share, .needed = share * fullCapacity(), .condensing = conditions.TCondensationDew};
    if (compressor.hasInvert) {
        InverterStates states(calculator, compressor, conditions);
        load.run = meetLoad(load.needed, states, plan_.degradation);
        if (load.run.kind == LoadRun::Kind::none) load.error = states.first().performance.error;
    } else {
        const auto states = stepStates(calculator, compressor, conditions, stepsOf(compressor));
        load.run = meetLoad(load.needed, states, plan_.degradation);
        if (load.run.kind == LoadRun::Kind::none) load.error = states.front().performance.error;
    }
    return load;
}

std::optional<PartLoadTable> partLoadTable(const PartLoadQuestion& question, const PointLoop& loop) {
    const PreparedCompressor& compressor = *question.plan.compressor;
    std::optional<MachineLoads> loads;
    PartLoadTable table;
    const auto full = [&](Calculator& calculator, std::size_t) {
        loads.emplace(calculator, question.plan);
        table.full.state = loads->full();
        table.full.messages = messagesAt(calculator, compressor, loads->full().at.conditions);
    };
    if (!loop(1, full)) return std::nullopt;
    if (!loads->full().isPossible()) return table;
    table.full.share = 1;
    const auto steps = stepsOf(compressor);
    table.states.resize(compressor.hasInvert ? question.frequencies.size() : steps.size());
    table.shares.resize(question.shares.size());
    const auto row = [&](Calculator& calculator, std::size_t index) {
        if (index >= table.states.size()) {
            const std::size_t share = index - table.states.size();
            table.shares[share] = loads->at(calculator, question.shares[share]);
        } else if (compressor.hasInvert) {
            table.states[index] = loads->atFrequency(calculator, question.frequencies[index]);
        } else {
            table.states[index] = loads->atStep(calculator, steps[index]);
        }
    };
    if (!loop(table.states.size() + table.shares.size(), row)) return std::nullopt;
    return table;
}

}  // namespace marvello
