#include "results/PerformanceRows.h"

#include <array>

#include "data/Csv.h"
#include "data/Numbers.h"

namespace marvello {

namespace {

using Duty = Performance::Duty;

template <double Duty::* figure>
std::optional<double> plain(const Performance& performance) {
    if (!performance.hasValues()) return std::nullopt;
    return performance.plain.*figure;
}

template <double Duty::* figure>
std::optional<double> economized(const Performance& performance) {
    if (!performance.hasValues() || !performance.economized) return std::nullopt;
    return *performance.economized.*figure;
}

std::optional<double> current(const Performance& performance) {
    return performance.hasValues() ? performance.plain.current : std::nullopt;
}

std::optional<double> massFlow(const Performance& performance) {
    return performance.hasValues() ? std::optional(performance.massFlow) : std::nullopt;
}

constexpr std::array columns{PerformanceColumn{"capacity", plain<&Duty::capacity>},
                             PerformanceColumn{"power", plain<&Duty::power>},
                             PerformanceColumn{"cop", plain<&Duty::cop>},
                             PerformanceColumn{"current", current},
                             PerformanceColumn{"massFlow", massFlow},
                             PerformanceColumn{"dischargeTemperature", plain<&Duty::dischargeTemperature>},
                             PerformanceColumn{"capacityEco", economized<&Duty::capacity>},
                             PerformanceColumn{"powerEco", economized<&Duty::power>},
                             PerformanceColumn{"copEco", economized<&Duty::cop>}};
constexpr std::size_t economizedColumns = 3;

}  // namespace

std::span<const PerformanceColumn> performanceColumns(bool hasEconomizer) {
    return std::span(columns).first(columns.size() - (hasEconomizer ? 0 : economizedColumns));
}

std::string performanceCsv(std::span<const PerformanceRow> rows, std::span<const PerformanceColumn> figures) {
    const bool hasFrequency = !rows.empty() && rows.front().frequency;
    std::vector<std::string> fields{"ted", "tcd"};
    if (hasFrequency) fields.emplace_back("frequency");
    fields.emplace_back("state");
    for (const PerformanceColumn& column : figures) fields.emplace_back(column.name);
    std::string text = csvLine(fields);
    for (const PerformanceRow& row : rows) {
        fields = {storedText(row.ted), storedText(row.tcd)};
        if (hasFrequency) fields.push_back(storedText(row.frequency.value_or(0)));
        fields.emplace_back(nameOf(row.performance.state));
        for (const PerformanceColumn& column : figures) {
            const auto value = column.value(row.performance);
            fields.push_back(value ? storedText(*value) : std::string());
        }
        text += csvLine(fields);
    }
    return text;
}

}  // namespace marvello
