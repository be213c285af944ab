#include "tools/select/Choices.h"

#include <algorithm>

#include "data/Numbers.h"
#include "data/ParameterSets.h"
#include "data/Session.h"
#include "data/Texts.h"

namespace marvello::select {

namespace {

using Assignments = std::vector<ParameterAssignment>;

/// The keys of a list "key|caption;key|caption".
std::vector<std::string> keysOf(const Assignments& assignments, std::string_view control) {
    for (const auto& [object, property, value] : assignments) {
        if (!equalIgnoringCase(object, control) || !equalIgnoringCase(property, "Tag1")) continue;
        std::vector<std::string> keys;
        for (const Choice& choice : choicesIn(value)) keys.push_back(choice.key);
        return keys;
    }
    throw DatabaseError("The catalogue has no list of choices for " + std::string(control) + ".");
}

void addNumber(std::vector<int>& numbers, std::string_view text) {
    const auto number = storedNumber(text);
    if (!number)
        throw DatabaseError("The choice \"" + std::string(text) + "\" of the catalogue is not a number.");
    const int whole = static_cast<int>(*number);
    if (std::ranges::find(numbers, whole) == numbers.end()) numbers.push_back(whole);
}

std::vector<int> numbersOf(const Assignments& assignments, std::string_view control) {
    std::vector<int> numbers;
    for (const std::string& key : keysOf(assignments, control)) addNumber(numbers, key);
    return numbers;
}

}  // namespace

Choices catalogueChoices() {
    const auto sets = readParameterSet("frm", "frmSelection", "populate",
                                       [](const std::string&) { return std::string("caption"); });
    Choices choices{.superheatTypes = numbersOf(sets, "cmbSh"),
                    .economizerModes = numbersOf(sets, "cmbEco"),
                    .oilCoolingModes = numbersOf(sets, "cmbOilCooling"),
                    .motorSizes = numbersOf(sets, "cmbMotorSize"),
                    .speeds = numbersOf(sets, "cmbMotorRPM"),
                    .voltages = {},
                    .frequencies = {}};
    for (const std::string& supply : keysOf(sets, "cmbMotorVoltage")) {  // such as 400_50
        const auto parts = splitText(supply, '_');
        addNumber(choices.voltages, parts.front());
        addNumber(choices.frequencies, parts.back());
    }
    std::ranges::sort(choices.voltages);
    return choices;
}

}  // namespace marvello::select
