#pragma once

#include <cstdint>
#include <string_view>

#include "catalogue/clsProjectConditions.h"
#include "thermo/EnteredQuantity.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// The inputs of a calculation that can end a message. The last three are choices: their values are codes.
enum class AdvisedInput : std::uint8_t {
    evaporating,  ///< dew temperature
    condensing,   ///< dew temperature
    superheat,    ///< or suction temperature, by the kind that the conditions have
    subcooling,
    economizer,  ///< approach or capacity, by the mode
    frequency,   ///< of the inverter
    motorSize,
    oilCoolingMode,
    capacityStep,
};

/// Returns the name of the command line's option.
std::string_view nameOf(AdvisedInput input);

bool isChoice(AdvisedInput input);

/// Returns what a number measures at these conditions; `number` for a choice.
Quantity quantityOf(AdvisedInput input, const clsProjectConditions& conditions);

/// Returns a metric value of an input in `units`.
double inUnits(AdvisedInput input, double metric, const clsProjectConditions& conditions, UnitSystem units);

/// Returns the value of an input in `units`.
double valueOf(AdvisedInput input, const clsProjectConditions& conditions, UnitSystem units);

/// Returns the conditions with one input set to a value in `units`.
clsProjectConditions withInput(clsProjectConditions conditions, AdvisedInput input, double value,
                               UnitSystem units);

}  // namespace marvello
