#include "engine/CapacityStates.h"

#include <algorithm>

#include "catalogue/clsInverter.h"
#include "engine/SelectionRules.h"

namespace marvello {

namespace {

clsProjectConditions atFullStep(clsProjectConditions conditions) {
    conditions.StepCapacity = capacitySteps.front();
    return conditions;
}

bool isPossibleState(const std::pair<const float, CapacityState>& state) { return state.second.isPossible(); }

}  // namespace

double capacityOf(const Performance& performance, CapacityKind kind) {
    const Performance::Duty& duty = performance.duty();
    return kind == CapacityKind::heating ? duty.condenserLoad : duty.capacity;
}

std::optional<float> frequencyOf(const PreparedCompressor& compressor,
                                 const clsProjectConditions& conditions) {
    return compressor.hasInvert ? std::optional(conditions.InverterFrequency) : std::nullopt;
}

CapacityState stateAt(Calculator& calculator, const PreparedCompressor& compressor,
                      const clsProjectConditions& conditions) {
    CapacityState state{.at = permittedConditions(compressor, conditions)};
    state.performance = performanceAt(calculator, compressor, state.at.conditions);
    return state;
}

std::span<const int> stepsOf(const PreparedCompressor& compressor) {
    return std::span(capacitySteps)
        .first(permits(compressor, Selector::stepCapacity) ? capacitySteps.size() : 1);
}

std::vector<CapacityState> stepStates(Calculator& calculator, const PreparedCompressor& compressor,
                                      clsProjectConditions conditions, std::span<const int> steps) {
    std::vector<CapacityState> states;
    states.reserve(steps.size());
    for (const int step : steps) {
        conditions.StepCapacity = step;
        states.push_back(stateAt(calculator, compressor, conditions));
        if (states.back().performance.error == outsideEnvelope) break;
    }
    return states;
}

FrequencyRange frequencyRange(const PreparedCompressor& compressor, const clsProjectConditions& conditions) {
    FrequencyRange range{.low = static_cast<float>(clsInverter::minimumFrequency),
                         .high = static_cast<float>(clsInverter::maximumFrequency)};
    const Envelope* const envelope =
        compressor.envelopeFor(permittedConditions(compressor, conditions).conditions.EcoCalculateMode);
    if (envelope == nullptr) return range;
    const FrequencyLimit* const limit =
        frequencyLimit(envelope->limits.holding(conditions.TEvaporatingDew, conditions.TCondensationDew));
    if (limit != nullptr) range.high = std::min(range.high, limit->hertz);
    return range;
}

InverterStates::InverterStates(Calculator& calculator, const PreparedCompressor& compressor,
                               const clsProjectConditions& conditions, CapacityKind kind)
    : calculator_(calculator),
      compressor_(compressor),
      conditions_(atFullStep(conditions)),
      kind_(kind),
      search_(frequencyRange(compressor, conditions).low, frequencyRange(compressor, conditions).high,
              [this](float frequency) { return calculate(frequency); }) {}

FrequencySearch::Trial InverterStates::calculate(float frequency) {
    conditions_.InverterFrequency = frequency;
    const CapacityState& state = states_[frequency] = stateAt(calculator_, compressor_, conditions_);
    return {.isPossible = state.isPossible(),
            .capacity = state.isPossible() ? capacityOf(state.performance, kind_) : 0};
}

const CapacityState& InverterStates::lowest() const {
    return std::ranges::find_if(states_, isPossibleState)->second;
}

const CapacityState& InverterStates::highest() const {
    return std::find_if(states_.rbegin(), states_.rend(), isPossibleState)->second;
}

const CapacityState& InverterStates::forCapacity(double wanted) { return states_.at(search_.solve(wanted)); }

}  // namespace marvello
