#pragma once

#include <ctime>

namespace marvello {

/// The time of now where the user is.
std::tm localTime();

}  // namespace marvello
