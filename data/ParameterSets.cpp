#include "data/ParameterSets.h"

#include <exception>
#include <optional>
#include <string_view>

#include "data/Globals.h"
#include "data/Hooks.h"
#include "data/Texts.h"

namespace marvello {

namespace {

using DictionaryText = std::function<std::string(const std::string&)>;

/// The value with its placeholders replaced; nothing when a text is missing or the replacing never ends, as
/// with a text that holds its own key.
std::optional<std::string> expanded(std::string value, const DictionaryText& dictionaryText) {
    constexpr int mostReplacements = 100;
    constexpr std::size_t longestValue = 1'000'000;
    for (int count = 0; count <= mostReplacements && value.size() <= longestValue; ++count) {
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

}  // namespace marvello
