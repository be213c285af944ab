#pragma once

#include <string>
#include <vector>

#include "results/ComparisonTable.h"
#include "results/YearTexts.h"

namespace marvello {

/// What the plants differ by from the first one in a year.
struct YearDifference {
    std::string caption;              ///< "Energy"
    std::vector<std::string> values;  ///< Of the second plant and the next ones, with their unit.
};

/// Years as windows, paper and files show them.
struct YearTable {
    ComparisonTable figures;                    ///< One group without a heading.
    std::vector<YearDifference> differences{};  ///< Empty for one plant.
    std::vector<std::string> warnings{};        ///< Load that is not met, machines that cannot run.
};

/// Returns the table of years in the user's language.
YearTable yearTable(const YearComparison& comparison, const YearStyle& style);

}  // namespace marvello
