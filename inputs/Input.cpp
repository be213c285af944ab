#include "inputs/Input.h"

#include <algorithm>
#include <array>

#include "data/Texts.h"

namespace marvello {

namespace {

constexpr bool choice = true;
constexpr bool number = false;

constexpr bool several = true;

constexpr std::array<InputDefinition, inputCount> inputs{{
    {Input::refrigerant, "lstRefrigerants", choice, Asked::inSelections},
    {Input::series, "lstSeries", choice, Asked::inSelections},
    {Input::models, "lstModels", choice, Asked::inSelections, several},
    {Input::capacityKind, "cmbCapacity", choice, Asked::inSearch},
    {Input::capacity, "txtCapacity", number, Asked::inSearch},
    {Input::toleranceBelow, "txtBelow", number, Asked::inSearch},
    {Input::toleranceAbove, "txtAbove", number, Asked::inSearch},
    {Input::refrigerants, "lstAllRefrigerants", choice, Asked::inSearch, several},
    {Input::allSeries, "lstAllSeries", choice, Asked::inSearch, several},
    {Input::market, "cmbMarket", choice, Asked::inSearch},
    {Input::evaporatingDew, "txtTED", number},
    {Input::evaporatingMid, "txtTEM", number},
    {Input::evaporatingPressure, "txtPE", number},
    {Input::condensingDew, "txtTCD", number},
    {Input::condensingMid, "txtTCM", number},
    {Input::condensingPressure, "txtPC", number},
    {Input::superheatKind, "cmbSh", choice},
    {Input::superheat, "txtSH", number},
    {Input::subcooling, "txtSC", number},
    {Input::economizerMode, "cmbEco", choice, Asked::always, !several, Selector::economizer},
    {Input::economizer, "txtEco", number},
    {Input::oilCoolingMode, "cmbOilCooling", choice, Asked::always, !several, Selector::oilCooling},
    {Input::oilCooling, "txtOilCooling", number},
    {Input::frequency, "txtFrequency", number, Asked::onInverter},
    {Input::motorVoltage, "cmbMotorVoltage", choice, Asked::always, !several, Selector::motorVoltage},
    {Input::motorSize, "cmbMotorSize", choice, Asked::always, !several, Selector::motorSize},
    {Input::motorSpeed, "cmbMotorRPM", choice, Asked::always, !several, Selector::motorRpm},
    {Input::capacityStep, "cmbStepCapacity", choice, Asked::inSelections, !several, Selector::stepCapacity},
    {Input::minMachines, "cmbMachinesFrom", choice, Asked::inSearch},
    {Input::maxMachines, "cmbMachinesTo", choice, Asked::inSearch},
    {Input::usesSteps, "cmbUsesSteps", choice, Asked::inSearch},
    {Input::inverterUse, "cmbInverterUse", choice, Asked::inSearch},
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
