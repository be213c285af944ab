#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "engine/PlantText.h"
#include "engine/Tewi.h"
#include "engine/Year.h"

namespace marvello {

/// How many plants are compared over a year.
inline constexpr std::size_t maxYearChoices = 4;

/// A plant with options of its own. Temperatures, step and frequency of the conditions are not read.
struct YearChoice {
    Plant plant;
    clsProjectConditions conditions;
};

/// What all plants of a comparison have in common.
struct YearTerms {
    LoadProfile profile{};
    std::optional<SeasonalRule> rule{};  ///< That the profile follows; has a figure of four points.
    double designLoad = 0;               ///< Cooling capacity, kW.
    EvaporatingRule evaporating{};
    CondensingRule condensing{};
    Staging staging = Staging::power;
    Degradation degradation{};      ///< Of intermittent running.
    std::optional<double> price{};  ///< Of a kWh, in any currency.
    EmissionInputs emissions{};     ///< Its GWP is not read: it belongs to the refrigerant of a plant.
    GwpBasis gwp = GwpBasis::ar4;
};

/// What a plant comes to in a year.
struct YearOfPlant {
    YearChoice choice;
    Year year{};
    std::optional<FourPoints> fourPoints{};  ///< Of terms with a rule.
    EmissionInputs emissions{};              ///< With the GWP of its refrigerant.
    std::optional<double> price{};

    /// Whether it runs in any bin.
    bool canRun() const { return year.energy > 0; }
    std::optional<double> cost() const;
    /// Over its life.
    Tewi tewi() const { return tewiOf(year.energy, emissions); }
    /// Of one year: that of the life over its years.
    Tewi yearlyTewi() const;
};

/// Plants over the same year, in their order.
struct YearComparison {
    std::shared_ptr<const PreparedCatalogue> catalogue;  ///< Holds the compressors.
    YearTerms terms;
    std::vector<YearOfPlant> plants{};
};

/// Calculates the year of each choice, whose machines belong to the catalogue. None if the loop was given up.
/// Throws what yearOf throws.
std::optional<YearComparison> yearsOf(const std::vector<YearChoice>& choices, const YearTerms& terms,
                                      std::shared_ptr<const PreparedCatalogue> catalogue,
                                      const PointLoop& loop);

/// Returns what electricity costs; none without a price.
std::optional<double> costOf(double energy, std::optional<double> price);

}  // namespace marvello
