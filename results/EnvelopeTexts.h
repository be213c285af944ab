#pragma once

#include <string>

#include "catalogue/clsLimits.h"

namespace marvello {

/// Returns the name of a limit in the user's language: that of the legend, and of one without a legend the
/// label at its line with what it is.
std::string nameOfLimit(const clsLimit& limit);

/// Returns a copy of the limits whose descriptions are in the user's language. Limits that the dictionary
/// does not name keep theirs.
clsLimits namedLimits(const clsLimits& limits);

/// Returns a copy of the limits with every point in degrees Fahrenheit.
clsLimits inFahrenheit(const clsLimits& limits);

}  // namespace marvello
