#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/Numbers.h"
#include "engine/Performance.h"
#include "results/Columns.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// How a figure of a point is written, as the list of a selection writes it.
struct FigureText {
    std::string_view name;         ///< Key of the short name: "Capacity".
    std::string_view description;  ///< Key of the long name: "Cooling capacity".
    std::string_view pattern;      ///< of its numbers, in both systems of units
    UnitRule convert = nullptr;    ///< null for a figure that is the same in both
};

const FigureText& textOf(Figure figure);

/// Returns the unit of a figure, such as "kW" or "Tons"; empty for the COP.
std::string unitOf(Figure figure, UnitSystem units);

/// Converts a metric value of a figure.
double valueIn(Figure figure, double metric, UnitSystem units);

/// Returns what is shown of a metric value; "-" for none and for 0.
ShownValue shownFigure(Figure figure, std::optional<double> metric, UnitSystem units,
                       const NumberMarks& marks = {});

/// Returns the name of a figure in files and scripts, such as "dischargeTemperature".
std::string_view nameOf(Figure figure);

}  // namespace marvello
