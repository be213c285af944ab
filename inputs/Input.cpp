#include "inputs/Input.h"

#include <algorithm>
#include <array>

#include "data/Texts.h"

namespace marvello {

namespace {

constexpr bool choice = true;
constexpr bool number = false;

constexpr std::array<InputDefinition, inputCount> inputs{{
    {Input::refrigerant, "lstRefrigerants", choice},
    {Input::series, "lstSeries", choice},
    {Input::models, "lstModels", choice},
    {Input::evaporatingDew, "txtTED", number},
    {Input::evaporatingMid, "txtTEM", number},
    {Input::evaporatingPressure, "txtPE", number},
    {Input::condensingDew, "txtTCD", number},
    {Input::condensingMid, "txtTCM", number},
    {Input::condensingPressure, "txtPC", number},
    {Input::superheatKind, "cmbSh", choice},
    {Input::superheat, "txtSH", number},
    {Input::subcooling, "txtSC", number},
    {Input::economizerMode, "cmbEco", choice, Selector::economizer},
    {Input::economizer, "txtEco", number},
    {Input::oilCoolingMode, "cmbOilCooling", choice, Selector::oilCooling},
    {Input::oilCooling, "txtOilCooling", number},
    {Input::frequency, "txtFrequency", number},
    {Input::motorVoltage, "cmbMotorVoltage", choice, Selector::motorVoltage},
    {Input::motorSize, "cmbMotorSize", choice, Selector::motorSize},
    {Input::motorSpeed, "cmbMotorRPM", choice, Selector::motorRpm},
    {Input::capacityStep, "cmbStepCapacity", choice, Selector::stepCapacity},
}};

constexpr std::array evaporatingCouple{Input::evaporatingDew, Input::evaporatingMid,
                                       Input::evaporatingPressure};
constexpr std::array condensingCouple{Input::condensingDew, Input::condensingMid, Input::condensingPressure};

}  // namespace

std::span<const InputDefinition> allInputs() { return inputs; }

const InputDefinition& definitionOf(Input input) {
    return *std::ranges::find(inputs, input, &InputDefinition::input);
}

std::span<const Input> coupleOf(Input input) {
    for (const std::span<const Input> couple : {std::span(evaporatingCouple), std::span(condensingCouple)})
        if (std::ranges::find(couple, input) != couple.end()) return couple;
    return {};
}

std::string nameInCouple(Input input) {
    constexpr std::string_view prefix = "txt";
    return lowered(definitionOf(input).name.substr(prefix.size()));
}

}  // namespace marvello
