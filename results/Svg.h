#pragma once

#include <string>

#include "results/Drawing.h"

namespace marvello {

/// Returns a drawing as an SVG file (UTF-8, one shape a line). Places and lengths have two decimals;
/// characters that XML does not have are left out.
std::string svgOf(const Drawing& drawing);

}  // namespace marvello
