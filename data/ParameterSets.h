#pragma once

#include <functional>
#include <string>
#include <vector>

namespace marvello {

/// One assignment of a parameter set: the property `property` of the control `object` takes `value`.
struct ParameterAssignment {
    std::string object;
    std::string property;
    std::string value;
};

/// The assignments of the set (type, typeKey, key), in order, with each "{key}" replaced through
/// `dictionaryText`. A piece without "=" is left out, and so is a value that needs a text which
/// `dictionaryText` raises for or whose placeholders never end. Raises DatabaseError when the statement
/// fails.
std::vector<ParameterAssignment> readParameterSet(
    const std::string& type, const std::string& typeKey, const std::string& key,
    const std::function<std::string(const std::string&)>& dictionaryText);

}  // namespace marvello
