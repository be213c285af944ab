#pragma once

#include <optional>

namespace marvello {

/// A state of a refrigerant, in the units of the clsRefprop that it comes from, usually degrees Celsius, bar
/// absolute, kJ/kg, kJ/kg-K and kg/m^3.
struct FluidState {
    double t = 0;
    double p = 0;
    double h = 0;
    double s = 0;
    double density = 0;               ///< Of the whole.
    std::optional<double> quality{};  ///< The vapour's share of the mass in two phases.
};

}  // namespace marvello
