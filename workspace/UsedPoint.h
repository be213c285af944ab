#pragma once

#include <optional>

namespace marvello {

/// An operating point that was chosen in place of that of the inputs, in their units.
struct UsedPoint {
    double evaporating = 0;             ///< Dew temperature.
    double condensing = 0;              ///< Dew temperature.
    std::optional<double> frequency{};  ///< Hz, if it was chosen too.
};

}  // namespace marvello
