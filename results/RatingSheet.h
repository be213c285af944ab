#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "data/Numbers.h"
#include "engine/RatingTable.h"
#include "results/Columns.h"
#include "results/PerformanceRows.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// How a rating table is laid out.
struct RatingStyle {
    UnitSystem units = UnitSystem::metric;
    RatingAcross across = RatingAcross::evaporating;
    double acrossStep = 5;  ///< K, in the imperial system degrees Fahrenheit; Hz for frequencies.
    double downStep = 5;
};

/// A rating table about an operating point: its axes as they are shown, and the plan to calculate it. Column
/// and row of the operating point are always there, off the steps as well.
struct RatingSheet {
    RatingPlan plan;
    RatingStyle style;
    std::vector<double> columns{};  ///< In the units of the style.
    std::vector<double> rows{};
    std::size_t currentColumn = 0;  ///< Of the operating point.
    std::size_t currentRow = 0;
};

/// Returns the table of a compressor over its application limit; with the operating point that `conditions`
/// hold, in metric units. None without an application limit.
std::optional<RatingSheet> ratingSheet(const PreparedCompressor& compressor,
                                       const clsProjectConditions& conditions, const RatingStyle& style);

/// Returns the caption of a column or row, such as "-15.0".
std::string axisText(double value, const NumberMarks& marks);

/// Returns the cells as lines for a file.
std::vector<PerformanceRow> ratingRows(const RatingSheet& sheet, std::span<const Performance> cells);

}  // namespace marvello
