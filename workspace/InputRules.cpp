#include "workspace/InputRules.h"

#include "workspace/WindowTexts.h"

namespace marvello {

unsigned seriesMask(const QString& serieKey, const QString& refrigerantKey) {
    const SeriesTraits& series = seriesTraits(seriesOfMarket(serieKey.trimmed().toUpper()).serie);
    const bool hasSmallMotor =
        series.hasSmallMotor && refrigerantTraits(toCore(refrigerantKey)).hasSmallMotors;
    return series.inputs | (hasSmallMotor ? static_cast<unsigned>(Selector::motorSize) : 0U);
}

SeriesOfMarket seriesOfMarket(const QString& serieKey) {
    const std::string key = toCore(serieKey);
    for (const SeriesTraits& series : allSeriesTraits())
        for (const MarketChoice& choice : series.markets)
            if (choice.key == key) return {std::string(series.name), codeOf(choice.market)};
    return {key, 0};
}

QString seriesChoices(const QString& serie) {
    QStringList pairs;
    const SeriesTraits& traits = seriesTraits(toCore(serie));
    if (traits.name == toCore(serie))
        for (const MarketChoice& choice : traits.markets)
            pairs += fromCore(choice.key) + u'|' + fromCore(choice.caption);
    return pairs.isEmpty() ? serie + u'|' + serie : pairs.join(u';');
}

SuperheatRange superheatRange(const QString& refrigerantKey, bool isImperial, bool isDifference,
                              double evaporatingDew) {
    const double most = refrigerantTraits(toCore(refrigerantKey)).maxSuperheat;
    if (isDifference) return {0, isImperial ? most * 1.8 : most, isImperial ? 18.0 : 10.0};
    // Kept: the imperial bounds of a suction temperature are not the metric ones converted.
    const double high = isImperial ? most * 1.8 + 32 : most;
    return {evaporatingDew, evaporatingDew + high, evaporatingDew + (isImperial ? 50.0 : 10.0)};
}

double permittedSuperheat(double value, const SuperheatRange& range) {
    double result = value;
    if (result < range.low) result = range.fallback;
    if (result > range.high) result = range.fallback;
    return result;
}

}  // namespace marvello
