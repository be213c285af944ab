#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>
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
/// `dictionaryText` throws for or whose placeholders never end. Throws DatabaseError if the statement
/// fails.
std::vector<ParameterAssignment> readParameterSet(
    const std::string& type, const std::string& typeKey, const std::string& key,
    const std::function<std::string(const std::string&)>& dictionaryText);

/// The same with the texts of the user's language.
std::vector<ParameterAssignment> readParameterSet(const std::string& type, const std::string& typeKey,
                                                  const std::string& key);

/// What the value of an assignment is converted to, by the type of the property.
enum class ValueKind { boolean, whole, real, colour, text };

struct AssignedColour {
    int red, green, blue;
};
using AssignedValue = std::variant<bool, int, double, AssignedColour, std::string>;

/// Converts a value by the rules of US English: a number, rounded half to even where a whole one is wanted;
/// True, False or a number; a colour as "#RRGGBB", or as a number "&HBBGGRR&" or in decimals. Nothing when it
/// does not fit.
std::optional<AssignedValue> convertedValue(ValueKind kind, const std::string& value);

}  // namespace marvello
