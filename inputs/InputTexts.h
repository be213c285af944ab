#pragma once

#include <string>
#include <string_view>

#include "data/Numbers.h"
#include "inputs/SelectionInputs.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

/// The pattern in which the numbers of all inputs are shown.
inline constexpr std::string_view inputPattern = "#0.00";

/// Returns what the user reads of an input: a number with the marks of a locale, or the caption of a choice.
std::string inputText(const SelectionInputs& inputs, Input input, const NumberMarks& marks);
/// Returns the unit of a number in the system of the inputs, such as "bar abs".
std::string unitText(const SelectionInputs& inputs, Input input);

/// Reads what was typed for a number: in its unit or another one of its quantity, or as a sum. The value of
/// the economizer is a plain number.
EnteredQuantity readInput(const SelectionInputs& inputs, Input input, std::string_view text);
/// The same for a quantity that is no input of the form.
EnteredQuantity readTyped(Quantity quantity, UnitSystem units, std::string_view text);

}  // namespace marvello
