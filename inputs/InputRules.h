#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/SeriesTraits.h"
#include "data/Texts.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// The mask of the selectors that a series key has with a refrigerant.
unsigned seriesMask(const std::string& serieKey, const std::string& refrigerantKey);

/// The series of the catalogue behind a series key, and its market.
struct SeriesOfMarket {
    std::string serie;
    std::uint8_t market = 0;
};
SeriesOfMarket seriesOfMarket(const std::string& serieKey);
/// What the form offers for a series: itself, or its markets.
std::vector<Choice> seriesChoices(const std::string& serie);

/// The bounds of a superheat, which are permitted themselves, and what takes the place of a value beyond
/// them.
struct SuperheatRange {
    double low;
    double high;
    double fallback;
};
/// `isDifference` tells a superheat from a suction temperature; temperatures in `units`.
SuperheatRange superheatRange(const std::string& refrigerantKey, UnitSystem units, bool isDifference,
                              double evaporatingDew);
/// The superheat that holds for one that was asked for: the value itself, or the fallback.
double permittedSuperheat(double value, const SuperheatRange& range);

}  // namespace marvello
