#include "inputs/InputRules.h"

namespace marvello {

unsigned seriesMask(const std::string& serieKey, const std::string& refrigerantKey) {
    return permittedSelectors(seriesTraits(seriesOfMarket(uppered(trimmed(serieKey))).serie),
                              refrigerantTraits(refrigerantKey));
}

SeriesOfMarket seriesOfMarket(const std::string& serieKey) {
    for (const SeriesTraits& series : allSeriesTraits())
        for (const MarketChoice& choice : series.markets)
            if (choice.key == serieKey) return {std::string(series.name), codeOf(choice.market)};
    return {serieKey, 0};
}

std::vector<Choice> seriesChoices(const std::string& serie) {
    std::vector<Choice> choices;
    if (const SeriesTraits& traits = seriesTraits(serie); traits.name == serie)
        for (const MarketChoice& choice : traits.markets)
            choices.push_back({std::string(choice.key), std::string(choice.caption)});
    if (choices.empty()) choices.push_back({serie, serie});
    return choices;
}

SuperheatRange superheatRange(const std::string& refrigerantKey, UnitSystem units, bool isDifference,
                              double evaporatingDew) {
    constexpr double usual = 10;  // K
    const double maximum = refrigerantTraits(refrigerantKey).maxSuperheat;
    // Kept: the superheat of a suction temperature is converted as a temperature, not as a difference, so
    // that imperial bounds are wider.
    const auto convert = isDifference ? convertedDifference : convertedTemperature;
    const double lowest = isDifference ? 0 : evaporatingDew;
    return {lowest, lowest + convert(maximum, UnitSystem::metric, units),
            lowest + convert(usual, UnitSystem::metric, units)};
}

double permittedSuperheat(double value, const SuperheatRange& range) {
    double result = value;
    if (result < range.low) result = range.fallback;
    if (result > range.high) result = range.fallback;
    return result;
}

}  // namespace marvello
