#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Performance.h"

namespace marvello {

/// What a compressor comes to at an operating point, as a line of a map or of a table for other programs.
struct PerformanceRow {
    double ted = 0;  ///< Evaporating dew temperature, degrees Celsius.
    double tcd = 0;  ///< Condensing dew temperature, degrees Celsius.
    Performance performance;
    std::optional<double> frequency{};  ///< Of an inverter, Hz, where it differs from line to line.
};

/// A figure of such a line. After the temperatures and the state they follow in this order.
struct PerformanceColumn {
    std::string_view name;  ///< In files.
    std::optional<double> (*value)(const Performance& performance);
};

/// Those of the compressor without an economizer in kW, A, kg/h and degrees Celsius; with one its totals
/// after them.
std::span<const PerformanceColumn> performanceColumns(bool hasEconomizer);

/// Returns the lines as CSV with a heading; the frequencies, if there are any, after the temperatures. A
/// figure without a value is an empty field. Numbers read back exactly.
std::string performanceCsv(std::span<const PerformanceRow> rows, std::span<const PerformanceColumn> figures);
inline std::string performanceCsv(std::span<const PerformanceRow> rows, bool hasEconomizer) {
    return performanceCsv(rows, performanceColumns(hasEconomizer));
}

}  // namespace marvello
