#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "catalogue/SeriesTraits.h"

namespace marvello {

/// The inputs of the forms.
enum class Input : std::uint8_t {
    refrigerant,
    series,
    models,
    capacityKind,
    capacity,
    toleranceBelow,
    toleranceAbove,
    refrigerants,
    allSeries,
    market,
    evaporatingDew,
    evaporatingMid,
    evaporatingPressure,
    condensingDew,
    condensingMid,
    condensingPressure,
    superheatKind,
    superheat,
    subcooling,
    economizerMode,
    economizer,
    oilCoolingMode,
    oilCooling,
    frequency,
    motorVoltage,
    motorSize,
    motorSpeed,
    capacityStep,
    minMachines,
    maxMachines,
    usesSteps,
    inverterUse,
};
inline constexpr std::size_t inputCount = static_cast<std::size_t>(Input::inverterUse) + 1;

/// Which forms ask for an input.
enum class Asked : std::uint8_t { always, inSelections, onInverter, inSearch };

struct InputDefinition {
    Input input;
    std::string_view name;  ///< of its field; parameter sets, help texts and kept forms know it
    bool isChoice = false;  ///< a key of a list, otherwise a number
    Asked asked = Asked::always;
    bool isSeveral = false;              ///< a choice of several keys, joined with ";"
    std::optional<Selector> selector{};  ///< what a series has to allow for it
};

/// All inputs, in the order of the panel.
std::span<const InputDefinition> allInputs();
const InputDefinition& definitionOf(Input input);

/// The evaporating or the condensing temperatures and pressure, which depend on each other, if the input is
/// one of them; else empty. The dew temperature comes first.
std::span<const Input> coupleOf(Input input);
/// The name of an input of a couple: "ted" of "txtTED". Settings keep the leaders by it.
std::string nameInCouple(Input input);

}  // namespace marvello
