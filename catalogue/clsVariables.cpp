#include "catalogue/clsVariables.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "data/Arithmetic.h"
#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello {

namespace {

/// The texts of the variables of the calculation, by their index.
const VariableTexts& textsOf(var variable) {
    static const auto all = [] {
        std::array<VariableTexts, variableCount> texts;
        for (const VariableDefinition& definition : variableDefinitions())
            texts[static_cast<std::size_t>(definition.id)] = {std::string(definition.name),
                                                              std::string(definition.description),
                                                              std::string(definition.shownUnit),
                                                              {}};
        return texts;
    }();
    return all[static_cast<std::size_t>(variable)];
}

}  // namespace

void clsVariable::setValue(VariableValue value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (const auto number = localNumber(*text)) value = *number;
    }
    if (const auto* number = std::get_if<double>(&value)) checked(*number);
    value_ = std::move(value);
}

double clsVariable::number() const {
    if (const auto* number = std::get_if<double>(&value_)) return *number;
    throw VariableError("The variable " + Name() + " is no number.");
}

std::string clsVariable::text() const {
    if (const auto* number = std::get_if<double>(&value_)) return localText(*number);
    if (const auto* text = std::get_if<std::string>(&value_)) return *text;
    return {};
}

clsVariable* clsVariables::find(std::string_view name) const {
    if (const auto variable = variableNamed(name)) return find(*variable);
    const auto found = std::ranges::find_if(
        own_, [name](const auto& entry) { return equalIgnoringCase(entry->texts.Name, name); });
    return found == own_.end() ? nullptr : &(*found)->variable;
}

bool clsVariables::isSet(var variable) const {
    const clsVariable* entry = find(variable);
    return entry != nullptr && entry->isNumber();
}

double clsVariables::operator[](var variable) const {
    if (const clsVariable* entry = find(variable)) return entry->number();
    throw VariableError("There is no variable " + std::string(definitionOf(variable).name) + ".");
}

/// The variable of the calculation, which is added if it is not there.
clsVariable& clsVariables::made(var variable) {
    if (!known_) {
        known_ = std::make_unique<Known>();
        entries_.reserve(variableCount);
    }
    clsVariable& entry = (*known_)[static_cast<std::size_t>(variable)];
    if (entry.texts_ == nullptr) {
        entry.texts_ = &textsOf(variable);
        entries_.push_back(&entry);
    }
    return entry;
}

void clsVariables::set(var variable, double value) {
    if (!std::isfinite(value))
        throw ArithmeticFault(std::string(definitionOf(variable).name) +
                              " is no finite number: a division by zero or a result out of range.");
    made(variable).value_ = value;
}

void clsVariables::set(var variable, const char* text) { made(variable).setValue(std::string(text)); }

void clsVariables::add(const std::string& Name, VariableValue value, const std::string& Description,
                       const std::string& UnitMeasuretext, const std::string& Tag) {
    auto own = std::make_unique<Own>(Own{{Name, Description, UnitMeasuretext, Tag}, {}});
    own->variable.setValue(std::move(value));  // before the old entry goes: a fault leaves it in place
    Remove(own->texts.Name);                   // `Name` may be that of the entry which goes
    clsVariable* entry = &own->variable;
    if (const auto known = variableNamed(own->texts.Name)) {
        entry = &made(*known);
        entry->value_ = std::move(own->variable.value_);
    } else {
        entries_.push_back(entry);
    }
    entry->texts_ = &own->texts;
    own_.push_back(std::move(own));
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
    clsVariable* gone = find(name);
    if (gone == nullptr) return;
    std::erase(entries_, gone);
    const VariableTexts* texts = std::exchange(gone->texts_, nullptr);
    std::erase_if(own_, [texts](const auto& own) { return &own->texts == texts; });
}

void clsVariables::Clear() {
    for (clsVariable* entry : entries_) entry->texts_ = nullptr;
    entries_.clear();
    own_.clear();
}

const clsVariable* clsVariables::getFromTag(std::string_view tag) const {
    for (const clsVariable* entry : entries_) {
        if (equalIgnoringCase(entry->Tag(), tag)) return entry;
    }
    return nullptr;
}

}  // namespace marvello
