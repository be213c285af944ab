#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "results/YearTable.h"

namespace marvello {

/// The bins of a year as a list.
struct YearSheet {
    struct Column {
        std::string key;
        std::string name;
        std::string unit;  ///< Empty for a number without one.
        bool isText = false;
    };
    std::vector<Column> columns;  ///< Of the bin, and then of each plant.
    std::vector<std::vector<std::string>> rows;
};

/// Returns the figures of all bins: what is needed, and energy, COP, running hours and missing capacity of
/// each plant.
YearSheet yearSheet(const YearComparison& comparison, const YearStyle& style);

/// Returns how each plant runs in the bins.
YearSheet runningSheet(const YearComparison& comparison, const YearStyle& style);

/// Returns totals, assumptions and bins as CSV, separated by ";", with the decimal mark `point`: the totals
/// with caption and unit, and all digits of numbers. Captions and words are in quotes. The bins are in metric
/// units, named in their heading.
std::string yearCsv(const YearComparison& comparison, const YearTable& table,
                    const std::vector<std::string>& assumptions, std::string_view point = ".");

}  // namespace marvello
