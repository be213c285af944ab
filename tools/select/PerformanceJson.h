#pragma once

#include <span>
#include <string>

#include "results/PerformanceRows.h"

namespace marvello::select {

/// Returns lines of a map or a table as a JSON array, an object with the names of the columns in each line of
/// the text. A figure without a value is null. Numbers read back exactly.
std::string performanceJson(std::span<const PerformanceRow> rows, std::span<const PerformanceColumn> figures);
inline std::string performanceJson(std::span<const PerformanceRow> rows, bool hasEconomizer) {
    return performanceJson(rows, performanceColumns(hasEconomizer));
}

}  // namespace marvello::select
