#pragma once

#include <string>
#include <vector>

#include "tools/select/Request.h"

namespace marvello::select {

/// The most numbers that a range may have.
inline constexpr std::size_t maxListed = 250'000;

/// Reads numbers of a range that is permitted: one, a list such as "2;5;10", or steps from low to high such
/// as
/// "-20:10:5". `noun` is what one of them is. Throws BadRequest with the value and what is allowed.
std::vector<double> numbersIn(const std::string& text, const Range& permitted, const std::string& noun);

}  // namespace marvello::select
