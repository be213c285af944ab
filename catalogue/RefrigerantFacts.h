#pragma once

#include <optional>
#include <string>

namespace marvello {

/// What is known of a refrigerant besides its properties. What the catalogue does not say is empty.
struct RefrigerantFacts {
    std::string safetyClass{};  ///< of ASHRAE 34, such as "A2L"
    /// Global warming potential over 100 years, by the fourth, fifth and sixth assessment report of the IPCC.
    /// The first one is the figure of Regulation (EU) 517/2014.
    std::optional<double> gwpAr4{}, gwpAr5{}, gwpAr6{};
    std::optional<double> odp{};                  ///< ozone depletion potential, 1 for R11
    std::optional<double> boilingPoint{};         ///< bubble temperature at 101.325 kPa, degrees Celsius
    std::optional<double> glide{};                ///< dew minus bubble temperature at 101.325 kPa, K
    std::optional<double> criticalTemperature{};  ///< degrees Celsius

    bool operator==(const RefrigerantFacts&) const = default;
};

/// Returns the facts of a refrigerant, case ignored, from the session's catalogue; empty ones for a
/// refrigerant that it does not know and from a catalogue that cannot be read.
RefrigerantFacts factsOf(const std::string& refrigerant);

}  // namespace marvello
