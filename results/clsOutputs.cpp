#include "results/clsOutputs.h"

#include <algorithm>
#include <stdexcept>

#include "data/Texts.h"

namespace marvello {

namespace {

auto hasKey(std::string_view key) {
    return [key](const clsOutput& output) { return equalIgnoringCase(output.Key, key); };
}

}  // namespace

void clsOutputs::add(const std::string& Key, const std::string& Name, const std::string& Description,
                     const std::string& UmDescription, VariableValue value, int Visibility) {
    clsOutput output{UmDescription, Key, Name, Description, Visibility, std::move(value)};
    Remove(output.Name);
    if (Exist(output.Key)) throw std::invalid_argument("The column " + output.Key + " is there already.");
    outputs_.push_back(std::move(output));
}

clsOutput& clsOutputs::Item(std::string_view key) {
    const auto found = std::ranges::find_if(outputs_, hasKey(key));
    if (found == outputs_.end()) throw std::out_of_range("There is no column " + std::string(key) + ".");
    return *found;
}

const clsOutput& clsOutputs::Item(int position) const {
    if (position < 1 || position > Count()) {
        throw std::out_of_range("There is no column " + std::to_string(position) + ".");
    }
    return outputs_[static_cast<std::size_t>(position) - 1];
}

bool clsOutputs::Exist(std::string_view key) const { return std::ranges::any_of(outputs_, hasKey(key)); }

void clsOutputs::Remove(std::string_view key) { std::erase_if(outputs_, hasKey(key)); }

void clsOutputs::Remove(int position) {
    Item(position);
    outputs_.erase(outputs_.begin() + (position - 1));
}

}  // namespace marvello
