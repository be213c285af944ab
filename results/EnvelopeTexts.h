#pragma once

#include "catalogue/clsLimits.h"

namespace marvello {

/// Returns a copy of the limits whose descriptions are in the user's language. Limits that the dictionary
/// does not name keep theirs.
clsLimits namedLimits(const clsLimits& limits);

/// Returns a copy of the limits with every point in degrees Fahrenheit.
clsLimits inFahrenheit(const clsLimits& limits);

}  // namespace marvello
