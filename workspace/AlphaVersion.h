#pragma once

namespace marvello {

/// Whether this build shows the stamps of a version that is not for customers.
constexpr bool isAlphaVersion() { return false; }

}  // namespace marvello
