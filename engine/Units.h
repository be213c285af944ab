#pragma once

namespace marvello {

/// Flows are kept in kg/h, capacity and power in kW.
inline constexpr double secondsPerHour = 3600;

}  // namespace marvello
