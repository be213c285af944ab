#include "tools/catalogue/Rows.h"

#include <algorithm>

#include "data/Numbers.h"

namespace marvello {

namespace {

std::string plainText(const Value& value) {
    if (const auto* const text = std::get_if<std::string>(&value)) return *text;
    if (const auto* const whole = std::get_if<int>(&value)) return std::to_string(*whole);
    if (const auto* const real = std::get_if<double>(&value)) return storedText(*real);
    return {};
}

}  // namespace

std::string Row::name() const {
    const Table& told = *table.table;
    std::string values;
    for (const auto column : told.key.empty() ? told.index : told.key)
        values += (values.empty() ? "" : ", ") + plainText(record.values[told.columnIndex(column)]);
    return values;
}

std::string shortList(const std::vector<std::string>& names) {
    constexpr std::size_t most = 5;
    std::string list;
    for (std::size_t i = 0; i < std::min(names.size(), most); ++i) list += (i == 0 ? "" : ", ") + names[i];
    if (names.size() > most) list += " and " + std::to_string(names.size() - most) + " more";
    return list;
}

}  // namespace marvello
