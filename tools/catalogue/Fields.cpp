#include "tools/catalogue/Fields.h"

#include <charconv>
#include <cmath>
#include <stdexcept>
#include <vector>

#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello {

namespace {

template <class T>
bool parsesWholly(std::string_view text, T& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

ParsedField parsedReal(std::string_view field) {
    double value = 0;
    if (!parsesWholly(field, value) || !std::isfinite(value))
        return {{}, "\"" + std::string(field) + "\" is not a number"};
    return {value, {}};
}

ParsedField parsedInteger(std::string_view field, ColumnKind kind) {
    int value = 0;
    if (!parsesWholly(field, value)) return {{}, "\"" + std::string(field) + "\" is not a whole number"};
    if (kind == ColumnKind::byte && (value < 0 || value > 255))
        return {{}, std::string(field) + " is outside 0 to 255"};
    return {value, {}};
}

ParsedField parsedName(const std::string& field) {
    if (trimmed(field) != field)
        return {{}, "\"" + field + "\" begins or ends with a blank; remove it, or nothing finds the name"};
    // Names are pasted into statements and into "key|caption;key|caption" lists.
    if (field.find_first_of("';|") != std::string::npos)
        return {{}, "\"" + field + "\" holds one of the characters ' ; | that a name cannot have"};
    return {field, {}};
}

/// The pieces "x,y" of a polyline.
std::vector<std::string> pointsIn(std::string field) {
    std::erase_if(field, [](char c) { return c == '(' || c == ')'; });
    return splitText(field, ';');
}

ParsedField parsedPoints(const std::string& field) {
    const auto points = pointsIn(field);
    for (const std::string& point : points) {
        const auto comma = point.find(',');
        if (comma == std::string::npos || !storedNumber(point.substr(0, comma)) ||
            !storedNumber(point.substr(comma + 1)))
            return {{}, "\"" + point + "\" is not a point \"x,y\""};
    }
    if (points.size() < 4)
        return {{}, "a polyline needs at least four points and has " + std::to_string(points.size())};
    return {field, {}};
}

}  // namespace

ParsedField parsedField(const std::string& field, ColumnKind kind) {
    const bool mayBeEmpty =
        kind == ColumnKind::nullable || kind == ColumnKind::freeText || kind == ColumnKind::optionalReal;
    if (trimmed(field).empty() && !mayBeEmpty) return {{}, "the value is missing"};
    switch (kind) {
        case ColumnKind::name:
            return parsedName(field);
        case ColumnKind::text:
        case ColumnKind::freeText:
            return {field, {}};
        case ColumnKind::nullable:
            return {field.empty() ? Value() : Value(field), {}};
        case ColumnKind::integer:
        case ColumnKind::byte:
            return parsedInteger(field, kind);
        case ColumnKind::real:
            return parsedReal(field);
        case ColumnKind::optionalReal:
            return trimmed(field).empty() ? ParsedField{} : parsedReal(field);
        case ColumnKind::points:
            return parsedPoints(field);
        case ColumnKind::boolean:
            if (equalIgnoringCase(field, "true")) return {1, {}};
            if (equalIgnoringCase(field, "false")) return {0, {}};
            return {{}, "\"" + field + "\" is neither True nor False"};
    }
    return {};
}

std::string fieldText(const Value& value, ColumnKind kind) {
    if (const auto* const whole = std::get_if<int>(&value)) {
        if (kind == ColumnKind::boolean) return *whole != 0 ? "True" : "False";
        return std::to_string(*whole);
    }
    if (const auto* const real = std::get_if<double>(&value)) {
        if (!std::isfinite(*real)) throw std::runtime_error("a number is not finite");
        return storedText(*real);
    }
    const auto* const text = std::get_if<std::string>(&value);
    return text ? *text : std::string();
}

std::string comparedText(const Value& value, ColumnKind kind) {
    if (const auto* const real = std::get_if<double>(&value); real && *real == 0) return "0";
    if (kind != ColumnKind::points) return fieldText(value, kind);
    std::string text;
    for (const std::string& point : pointsIn(std::get<std::string>(value)))
        for (const std::string& coordinate : splitText(point, ','))
            text += storedText(storedNumber(coordinate).value_or(0)) + ';';
    return text;
}

std::string keyText(const Table& table, const std::vector<Value>& values) {
    std::string key;
    for (const auto column : table.key) {
        const std::size_t index = table.columnIndex(column);
        key += lowered(fieldText(values[index], table.columns[index].kind)) + '\n';
    }
    return key;
}

}  // namespace marvello
