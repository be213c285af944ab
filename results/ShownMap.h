#pragma once

#include <optional>
#include <string>
#include <vector>

#include "catalogue/clsLimits.h"
#include "data/Numbers.h"
#include "engine/PerformanceMap.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// A map of a figure as people read it: its contours over temperatures, and its levels, in a system of units.
struct ShownMap {
    std::string name;  ///< "Capacity"
    std::string unit;  ///< "kW"; empty for the COP
    Contours contours;
    std::vector<std::string> levels;
};

/// Returns the map of a figure within the application limit; none if the figure has no values there. The
/// levels are round in the units that are shown.
std::optional<ShownMap> shownMap(const PerformanceMap& map, const clsLimits& limits, Figure figure,
                                 UnitSystem units, const NumberMarks& marks);

}  // namespace marvello
