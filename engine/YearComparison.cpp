#include "engine/YearComparison.h"

#include <utility>

namespace marvello {

namespace {

YearRequest requestOf(const YearChoice& choice, const YearTerms& terms) {
    return {.machines = choice.plant.machines,
            .conditions = choice.conditions,
            .profile = terms.profile,
            .designLoad = terms.designLoad,
            .evaporating = terms.evaporating,
            .condensing = terms.condensing,
            .staging = terms.staging,
            .degradation = terms.degradation};
}

}  // namespace

std::optional<double> costOf(double energy, std::optional<double> price) {
    return price ? std::optional(energy * *price) : std::nullopt;
}

std::optional<double> YearOfPlant::cost() const { return costOf(year.energy, price); }

Tewi YearOfPlant::yearlyTewi() const {
    Tewi yearly = tewi();
    for (std::optional<double>* part : {&yearly.direct, &yearly.indirect, &yearly.total})
        if (*part) **part /= emissions.years;
    return yearly;
}

std::optional<YearComparison> yearsOf(const std::vector<YearChoice>& choices, const YearTerms& terms,
                                      std::shared_ptr<const PreparedCatalogue> catalogue,
                                      const PointLoop& loop) {
    YearComparison comparison{.catalogue = std::move(catalogue), .terms = terms};
    for (const YearChoice& choice : choices) {
        const YearRequest request = requestOf(choice, terms);
        auto year = yearOf(request, loop);
        if (!year) return std::nullopt;
        YearOfPlant& plant = comparison.plants.emplace_back(
            YearOfPlant{.choice = choice, .year = std::move(*year), .emissions = terms.emissions});
        plant.price = terms.price;
        plant.emissions.gwp = gwpOf(comparison.catalogue->factsOf(choice.plant.refrigerant()), terms.gwp);
        if (!terms.rule) continue;
        plant.fourPoints = fourPointsOf(request, *terms.rule, loop);
        if (!plant.fourPoints) return std::nullopt;
    }
    return comparison;
}

}  // namespace marvello
