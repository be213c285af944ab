#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "catalogue/RefrigerantFacts.h"

namespace marvello {

/// The assessment report of the IPCC that a global warming potential is taken from.
enum class GwpBasis : std::uint8_t { ar4, ar5, ar6 };

/// Returns "AR4", "AR5" or "AR6".
std::string_view nameOf(GwpBasis basis);

/// Returns the global warming potential over 100 years, kg CO2e/kg; none if it is not known.
std::optional<double> gwpOf(const RefrigerantFacts& facts, GwpBasis basis);

/// What a plant emits over its life follows from these. What is not known is empty.
struct EmissionInputs {
    std::optional<double> charge{};  ///< Of refrigerant, kg.
    std::optional<double> gwp{};     ///< kg CO2e/kg
    double leakage = 10;             ///< Percent of the charge in a year; made up for every year.
    double recovery = 90;            ///< Percent of the charge, at the end.
    double years = 15;               ///< Of life.
    /// What a kilowatt-hour emits, kg CO2e/kWh.
    std::optional<double> grid{};
};

/// Total equivalent warming impact over the life of a plant, kg CO2e.
struct Tewi {
    /// By refrigerant that leaks or is not recovered; none without charge or GWP.
    std::optional<double> direct{};
    std::optional<double> indirect{};  ///< By electricity; none without a grid.
    std::optional<double> total{};     ///< None without both.
};

/// Returns the emissions of a plant that takes `energy` kWh a year:
/// TEWI = GWP L n + GWP m (1 - a) + n E b with the charge m, the leakage L a year, n years, the recovered
/// share a and the grid b. The form is that of EN 378-1, informative annex.
Tewi tewiOf(double energy, const EmissionInputs& inputs);

}  // namespace marvello
