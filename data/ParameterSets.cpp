#include "data/ParameterSets.h"

#include <array>
#include <charconv>
#include <cmath>
#include <exception>
#include <limits>
#include <string_view>

#include "data/Hooks.h"
#include "data/Numbers.h"
#include "data/Session.h"
#include "data/Texts.h"

namespace marvello {

namespace {

using DictionaryText = std::function<std::string(const std::string&)>;

/// The value with its placeholders replaced; nothing when a text is missing or the replacing never ends, as
/// with a text that holds its own key.
std::optional<std::string> expanded(std::string value, const DictionaryText& dictionaryText) {
    constexpr int maxReplacements = 100;
    constexpr std::size_t longestValue = 1'000'000;
    for (int count = 0; count <= maxReplacements && value.size() <= longestValue; ++count) {
        const auto open = value.find('{');
        const auto close = value.find('}');
        if (open == std::string::npos || close == std::string::npos || close < open) return value;
        try {
            value.replace(open, close - open + 1, dictionaryText(value.substr(open + 1, close - open - 1)));
        } catch (const std::exception&) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

void addAssignments(std::vector<ParameterAssignment>& assignments, const std::string& object,
                    std::string_view propertyValues, const DictionaryText& dictionaryText) {
    for (const std::string& piece : splitText(propertyValues, ':')) {
        const auto parts = splitText(piece, '=');
        if (parts.size() < 2) continue;
        const auto value = expanded(trimmed(parts[1]), dictionaryText);
        if (value) assignments.push_back({object, trimmed(parts[0]), trimmed(*value)});
    }
}

std::optional<unsigned> colourNumber(std::string_view digits, int base) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    const bool isWhole = error == std::errc() && end == digits.data() + digits.size();
    return isWhole && value <= 0xFFFFFF ? std::optional(value) : std::nullopt;
}

std::optional<AssignedColour> asColour(std::string_view text) {
    const auto parts = [](unsigned value) {
        return std::array{static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF),
                          static_cast<int>(value >> 16)};
    };
    if (text.starts_with('#')) {
        const auto value = text.size() == 7 ? colourNumber(text.substr(1), 16) : std::nullopt;
        if (!value) return std::nullopt;
        const auto [blue, green, red] = parts(*value);
        return AssignedColour{red, green, blue};
    }
    std::string digits(text);
    const bool isHexadecimal = lowered(text.substr(0, 2)) == "&h";
    if (isHexadecimal) {
        digits.erase(0, 2);
        std::erase(digits, '&');
    }
    const auto value = colourNumber(digits, isHexadecimal ? 16 : 10);
    if (!value) return std::nullopt;
    const auto [red, green, blue] = parts(*value);  // the lowest byte is red
    return AssignedColour{red, green, blue};
}

}  // namespace

std::vector<ParameterAssignment> readParameterSet(const std::string& type, const std::string& typeKey,
                                                  const std::string& key,
                                                  const DictionaryText& dictionaryText) {
    std::vector<ParameterAssignment> assignments;
    if (!gDatabase().Connect("")) {
        showBox(BoxKind::critical, "Database not connect");
        return assignments;
    }
    auto rows = gDatabase().Execute(
        "SELECT tParametersHead.fType, tParametersHead.fTypeKey, tParametersHead.fKey, "
        "tParametersRows.fObjectName, tParametersRows.fObjectType, tParametersRows.fObjectPropertyValue "
        "FROM tParametersHead INNER JOIN tParametersRows "
        "ON tParametersHead.fParametersRowsID = tParametersRows.fParametersRowsID "
        "WHERE fType=" +
        sqlText(type) + " AND fTypeKey=" + sqlText(typeKey) + " AND fKey=" + sqlText(key) + ";");
    for (; !rows.eof(); rows.moveNext())
        addAssignments(assignments, rows.NullToDefault("fObjectName", ""),
                       rows.NullToDefault("fobjectpropertyvalue", ""), dictionaryText);
    return assignments;
}

std::vector<ParameterAssignment> readParameterSet(const std::string& type, const std::string& typeKey,
                                                  const std::string& key) {
    return readParameterSet(type, typeKey, key,
                            [](const std::string& text) { return gApplication().DictionaryRead(text); });
}

std::optional<AssignedValue> convertedValue(ValueKind kind, const std::string& value) {
    if (kind == ValueKind::text) return value;
    if (kind == ValueKind::colour) {
        const auto colour = asColour(value);
        return colour ? std::optional<AssignedValue>(*colour) : std::nullopt;
    }
    if (kind == ValueKind::boolean && equalIgnoringCase(value, "true")) return true;
    if (kind == ValueKind::boolean && equalIgnoringCase(value, "false")) return false;
    const auto number = storedNumber(value);
    if (!number) return std::nullopt;
    if (kind == ValueKind::boolean) return *number != 0;
    if (kind == ValueKind::real) return *number;
    if (std::abs(*number) > std::numeric_limits<int>::max()) return std::nullopt;
    return static_cast<int>(std::nearbyint(*number));
}

}  // namespace marvello
