#include "catalogue/clsVariables.h"

#include <algorithm>

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

std::size_t clsVariables::NameHash::operator()(std::string_view name) const {
    std::size_t hash = 14695981039346656037ULL;  // FNV-1a
    for (const char c : name) hash = (hash ^ static_cast<unsigned char>(lower(c))) * 1099511628211ULL;
    return hash;
}

bool clsVariables::NameEqual::operator()(std::string_view a, std::string_view b) const {
    return equalIgnoringCase(a, b);
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
    byName_.emplace(variable->Name, variable.get());
    entries_.push_back(std::move(variable));
}

clsVariable* clsVariables::find(std::string_view name) const {
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : found->second;
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
    const auto found = byName_.find(name);
    if (found == byName_.end()) return;
    const clsVariable* gone = found->second;
    byName_.erase(found);
    std::erase_if(entries_, [gone](const auto& entry) { return entry.get() == gone; });
}

void clsVariables::Clear() {
    byName_.clear();
    entries_.clear();
}

const clsVariable* clsVariables::getFromTag(std::string_view tag) const {
    for (const auto& entry : entries_) {
        if (equalIgnoringCase(entry->Tag, tag)) return entry.get();
    }
    return nullptr;
}

}  // namespace marvello
