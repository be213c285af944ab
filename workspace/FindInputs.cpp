#include "workspace/FindInputs.h"

#include <charconv>
#include <cmath>

#include "data/Numbers.h"

namespace marvello {

namespace {

constexpr const char* all = "*";

int numberOf(const std::string& key) {
    int number = 0;
    std::from_chars(key.data(), key.data() + key.size(), number);
    return number;
}

/// What a form of selections calls the series of a compressor: itself, or its market.
std::string seriesKeyOf(const PreparedCompressor& compressor) {
    for (const MarketChoice& choice : seriesTraits(compressor.Serie).markets)
        if (!compressor.hasInvert && codeOf(choice.market) == compressor.Market)
            return std::string(choice.key);
    return compressor.Serie;
}

template <class Mode>
std::string keyOf(Mode mode) {
    return std::to_string(codeOf(mode));
}

}  // namespace

std::optional<Input> unusableInput(const SelectionInputs& inputs) {
    if (inputs.keys(Input::refrigerants).empty()) return Input::refrigerants;
    for (const Input input : {Input::capacity, Input::toleranceBelow, Input::toleranceAbove})
        if (!inputs[input].number || inputs.exceededBounds(input)) return input;
    for (const InputDefinition& definition : allInputs()) {
        if (definition.isChoice || !inputs.has(definition.input) || !inputs.isShown(definition.input))
            continue;
        const InputValue& value = inputs[definition.input];
        if (value.refusal || (!value.number && !value.isUnknown)) return definition.input;
    }
    return std::nullopt;
}

FindRequest requestOf(const SelectionInputs& inputs) {
    FindRequest request;
    request.needed = convertedCapacity(inputs.number(Input::capacity), inputs.units(), UnitSystem::metric);
    request.kind = static_cast<CapacityKind>(numberOf(inputs.key(Input::capacityKind)));
    request.below = std::abs(inputs.number(Input::toleranceBelow));
    request.above = std::abs(inputs.number(Input::toleranceAbove));
    request.conditions = *inputs.conditions();
    request.refrigerants = inputs.keys(Input::refrigerants);
    if (inputs.key(Input::allSeries) != all) request.series = inputs.keys(Input::allSeries);
    if (inputs.isShown(Input::market)) request.markets = numberOf(inputs.key(Input::market));
    request.minMachines = numberOf(inputs.key(Input::minMachines));
    request.maxMachines = numberOf(inputs.key(Input::maxMachines));
    request.steps = numberOf(inputs.key(Input::usesSteps)) != 0;
    request.inverter = static_cast<InverterUse>(numberOf(inputs.key(Input::inverterUse)));
    return request;
}

SelectionOfCandidate selectionOf(const SelectionInputs& inputs, const Candidate& candidate) {
    const PreparedCompressor& compressor = *candidate.compressor;
    const clsProjectConditions& conditions = candidate.conditions;
    SelectionOfCandidate selection{compressor.hasInvert ? &onInverter : &fixedSpeed, inputs.state()};
    const auto choose = [&](Input input, const std::string& key) {
        selection.inputs.keys[std::string(definitionOf(input).name)] = key;
    };
    choose(Input::refrigerant, compressor.Refrigerant);
    choose(Input::series, seriesKeyOf(compressor));
    choose(Input::models, all);
    choose(Input::economizerMode, keyOf(conditions.EcoCalculateMode));
    choose(Input::oilCoolingMode, keyOf(conditions.OilCoolingCalculateMode));
    choose(Input::motorVoltage,
           storedText(conditions.MotorVoltage) + '_' + std::to_string(conditions.MotorHz));
    choose(Input::motorSize, keyOf(conditions.MotorSize));
    choose(Input::motorSpeed, std::to_string(conditions.MotorRPM));
    choose(Input::capacityStep, std::to_string(conditions.StepCapacity));
    if (const auto frequency = candidate.frequency())
        selection.inputs.values[std::string(definitionOf(Input::frequency).name)] =
            static_cast<double>(*frequency);
    return selection;
}

std::optional<WiderTolerance> widerTolerance(const Candidate& nearest) {
    const double percent = std::ceil(std::abs(nearest.deviation));
    if (nearest.deviation < 0)
        return percent <= searchRange::maxBelow
                   ? std::optional(WiderTolerance{Input::toleranceBelow, -percent})
                   : std::nullopt;
    return percent <= searchRange::maxAbove ? std::optional(WiderTolerance{Input::toleranceAbove, percent})
                                            : std::nullopt;
}

}  // namespace marvello
