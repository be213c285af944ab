#include "catalogue/clsVariables.h"

#include <algorithm>
#include <cmath>

#include "data/Arithmetic.h"
#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello {

void clsVariable::setValue(VariableValue value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (const auto number = localNumber(*text)) value = *number;
    }
    if (const auto* number = std::get_if<double>(&value)) checked(*number);
    value_ = std::move(value);
}

double clsVariable::number() const {
    if (const auto* number = std::get_if<double>(&value_)) return *number;
    throw VariableError("The variable " + Name + " is no number.");
}

std::string clsVariable::text() const {
    if (const auto* number = std::get_if<double>(&value_)) return localText(*number);
    if (const auto* text = std::get_if<std::string>(&value_)) return *text;
    return {};
}

clsVariable* clsVariables::find(var variable) const {
    return known_.empty() ? nullptr : known_[static_cast<std::size_t>(variable)];
}

clsVariable* clsVariables::find(std::string_view name) const {
    if (const auto variable = variableNamed(name)) return find(*variable);
    const auto found = std::ranges::find_if(
        entries_, [name](const auto& entry) { return equalIgnoringCase(entry->Name, name); });
    return found == entries_.end() ? nullptr : found->get();
}

bool clsVariables::isSet(var variable) const {
    const clsVariable* entry = find(variable);
    return entry != nullptr && entry->isNumber();
}

double clsVariables::operator[](var variable) const {
    if (const clsVariable* entry = find(variable)) return entry->number();
    throw VariableError("There is no variable " + std::string(definitionOf(variable).name) + ".");
}

void clsVariables::set(var variable, VariableValue value) {
    if (const auto* number = std::get_if<double>(&value); number != nullptr && !std::isfinite(*number))
        throw ArithmeticFault(std::string(definitionOf(variable).name) +
                              " is no finite number: a division by zero or a result out of range.");
    if (clsVariable* entry = find(variable)) {
        entry->setValue(std::move(value));
        return;
    }
    auto entry = std::make_unique<clsVariable>();
    entry->setValue(std::move(value));
    const VariableDefinition& definition = definitionOf(variable);
    entry->Name = definition.name;
    entry->Description = definition.description;
    entry->UnitMeasuretext = definition.shownUnit;
    append(std::move(entry), variable);
}

void clsVariables::append(std::unique_ptr<clsVariable> entry, std::optional<var> variable) {
    if (variable) {
        known_.resize(variableCount);
        known_[static_cast<std::size_t>(*variable)] = entry.get();
    }
    entries_.push_back(std::move(entry));
}

void clsVariables::add(const std::string& Name, VariableValue value, const std::string& Description,
                       const std::string& UnitMeasuretext, const std::string& Tag) {
    auto variable = std::make_unique<clsVariable>();
    variable->Name = Name;
    variable->setValue(std::move(value));  // before the old entry goes: a fault leaves it in place
    variable->Description = Description;
    variable->UnitMeasuretext = UnitMeasuretext;
    variable->Tag = Tag;
    Remove(variable->Name);  // `Name` may be that of the entry which goes
    const auto known = variableNamed(variable->Name);
    append(std::move(variable), known);
}

clsVariable& clsVariables::Item(std::string_view name) {
    if (clsVariable* variable = find(name)) return *variable;
    throw VariableError("There is no variable " + std::string(name) + ".");
}

const clsVariable& clsVariables::Item(std::string_view name) const {
    if (const clsVariable* variable = find(name)) return *variable;
    throw VariableError("There is no variable " + std::string(name) + ".");
}

const clsVariable& clsVariables::Item(int position) const {
    if (position < 1 || position > Count()) {
        throw VariableError("There is no variable at position " + std::to_string(position) + ".");
    }
    return *entries_[static_cast<std::size_t>(position) - 1];
}

bool clsVariables::Exist(std::string_view name) const { return find(name) != nullptr; }

void clsVariables::Remove(std::string_view name) {
    const clsVariable* gone = find(name);
    if (gone == nullptr) return;
    std::ranges::replace(known_, gone, nullptr);
    std::erase_if(entries_, [gone](const auto& entry) { return entry.get() == gone; });
}

void clsVariables::Clear() {
    known_.clear();
    entries_.clear();
}

const clsVariable* clsVariables::getFromTag(std::string_view tag) const {
    for (const auto& entry : entries_) {
        if (equalIgnoringCase(entry->Tag, tag)) return entry.get();
    }
    return nullptr;
}

}  // namespace marvello
