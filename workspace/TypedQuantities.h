#pragma once

#include <functional>

#include "thermo/EnteredQuantity.h"
#include "thermo/UnitSystem.h"

namespace marvello {

class AdvanceText;
class InputPanel;

/// Returns what the value of a field measures as the inputs are now: a superheat is a difference or a
/// temperature. The value of the economizer is a plain number.
Quantity quantityOf(const InputPanel& panel, const AdvanceText* field);

/// Lets the numeric fields of `panel` take sums and values in other units of their quantity. `system` returns
/// the units that the fields show.
void takeOtherUnits(InputPanel& panel, const std::function<UnitSystem()>& system);

}  // namespace marvello
