#pragma once

#include <cstddef>
#include <optional>

#include "results/Chart.h"
#include "results/YearTexts.h"

namespace marvello {

/// Over the bins of the profile, with one of them marked. All of them have the same bins across.
struct YearCharts {
    Chart energy;  ///< Bars.
    Chart cop;
    Chart hours;  ///< Running hours, from the coldest bin on.
    Chart load;   ///< What is needed and what is delivered.
};

/// Returns the charts of years in the user's language. They have a legend if there is more to tell apart than
/// their title says.
YearCharts yearCharts(const YearComparison& comparison, const YearStyle& style,
                      std::optional<std::size_t> markedBin = {});

}  // namespace marvello
