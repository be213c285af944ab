#include "results/ReportLines.h"

#include <algorithm>

#include "data/DictionaryTexts.h"
#include "data/Texts.h"

namespace marvello {

namespace {

using Quantity = ReportConditions::Quantity;

constexpr const char* between = " / ";

ReportLine heading(std::string_view key) { return {dictionaryText(key), {}, true}; }

/// A dew temperature, with its mid temperature where that is shown.
ReportLine temperatureLine(std::string_view key, const Quantity& dew, const Quantity& mid) {
    const std::string name = dictionaryText(key);
    if (mid.value.empty()) return {name, withUnit(dew.value, dew.unit)};
    return {
        name + ' ' + dictionaryText("report.dew.caption") + between + dictionaryText("report.mid.caption"),
        withUnit(dew.value + between + mid.value, dew.unit)};
}

}  // namespace

std::string withUnit(const std::string& value, std::string_view unit) {
    unit = withoutBlanks(unit);
    return unit.empty() ? value : value + ' ' + std::string(unit);
}

std::vector<ReportLine> conditionLines(const ReportConditions& conditions) {
    const auto line = [](const char* key, const Quantity& quantity) {
        return ReportLine{dictionaryText(key), withUnit(quantity.value, quantity.unit)};
    };
    const ReportConditions& c = conditions;
    std::vector<ReportLine> lines{heading("report.projectcondition.caption"),
                                  {dictionaryText("report.refrigerant.caption"), c.refrigerant},
                                  temperatureLine("report.ted.caption", c.evaporatingDew, c.evaporatingMid),
                                  line("report.pe.caption", c.evaporatingPressure),
                                  temperatureLine("report.tcd.caption", c.condensingDew, c.condensingMid),
                                  line("report.pc.caption", c.condensingPressure),
                                  {c.superheatType, withUnit(c.superheat.value, c.superheat.unit)},
                                  line("report.liquidsubcooling.caption", c.subcooling),
                                  {dictionaryText("report.motorsize.caption"), c.motorSize},
                                  {dictionaryText("report.stepcapacity.caption"), c.capacityStep}};
    if (!c.inverterFrequency.value.empty())
        lines.push_back(line("frmselection.txtfrequency.captiontext", c.inverterFrequency));
    return lines;
}

std::vector<ReportLine> resultLines(const ResultTable& table, const ResultRow& row) {
    std::vector<ReportLine> lines{heading("report.outputdata.caption")};
    const auto shown = [&](std::size_t column) {
        return withUnit(trimmed(row.values[column].text), table.columns[column].unit);
    };
    const auto inBtu = [&](const std::string& key) {
        return std::ranges::find_if(table.columns, [&](const ResultColumn& column) {
            return equalIgnoringCase(column.key, key + "btu");
        });
    };
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const ResultColumn& column = table.columns[i];
        if (equalIgnoringCase(column.key, "q0btu") || equalIgnoringCase(column.key, "qecobtu")) continue;
        ReportLine line{column.description, shown(i)};
        if (const auto btu = inBtu(column.key); btu != table.columns.end())
            line.value += between + shown(static_cast<std::size_t>(btu - table.columns.begin()));
        lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<ReportLine> technicalLines(const std::vector<TechnicalEntry>& entries) {
    std::vector<ReportLine> lines{heading("report.technicaldata.caption")};
    for (const TechnicalEntry& entry : entries) lines.push_back({entry.caption, entry.value});
    return lines;
}

}  // namespace marvello
