#include "inputs/InputTexts.h"

#include "data/DictionaryTexts.h"

namespace marvello {

namespace {

/// The unit of a bare number, as readQuantity names it.
std::string_view typedUnit(Quantity quantity, UnitSystem system) {
    const bool isImperial = system == UnitSystem::imperial;
    switch (quantity) {
        case Quantity::temperature:
            return isImperial ? "F" : "C";
        case Quantity::temperatureDifference:
            return isImperial ? "F" : "K";
        case Quantity::pressure:
            return isImperial ? "psi" : "bar";
        case Quantity::power:
            return isImperial ? "tons" : "kW";
        case Quantity::frequency:
            return "Hz";
        case Quantity::number:
            break;
    }
    return {};
}

}  // namespace

std::string inputText(const SelectionInputs& inputs, Input input, const NumberMarks& marks) {
    if (definitionOf(input).isChoice) return inputs.caption(input);
    const auto& number = inputs[input].number;
    return number ? formatNumber(*number, inputPattern, marks) : std::string();
}

std::string unitText(const SelectionInputs& inputs, Input input) {
    if (input == Input::toleranceBelow || input == Input::toleranceAbove) return "%";
    return unitText(inputs.quantity(input), inputs.units());
}

EnteredQuantity readInput(const SelectionInputs& inputs, Input input, std::string_view text) {
    const Quantity quantity = input == Input::economizer ? Quantity::number : inputs.quantity(input);
    return readTyped(quantity, inputs.units(), text);
}

EnteredQuantity readTyped(Quantity quantity, UnitSystem units, std::string_view text) {
    return readQuantity(text, quantity, typedUnit(quantity, units));
}

}  // namespace marvello
