#include "workspace/InputRules.h"

#include <QStringList>

namespace marvello {

namespace {

constexpr unsigned operator|(Selector a, Selector b) {
    return static_cast<unsigned>(a) | static_cast<unsigned>(b);
}
constexpr unsigned operator|(unsigned mask, Selector selector) {
    return mask | static_cast<unsigned>(selector);
}

constexpr unsigned usualMask = Selector::economizer | Selector::oilCooling | Selector::motorVoltage;

}  // namespace

unsigned seriesMask(const QString& serieKey, const QString& refrigerantKey) {
    const QString serie = serieKey.trimmed().toUpper();
    const auto isOneOf = [&serie](const QStringList& keys) { return keys.contains(serie); };
    unsigned mask = 0;
    if (isOneOf({"NL-H"}))
        mask = mask | Selector::motorRpm;
    else if (isOneOf({"TK-A", "TK-A(P)", "TK-A(Q)", "TK-A(V)"}))
        mask = usualMask | Selector::stepCapacity;
    else if (isOneOf({"TK-E", "MV-A", "MV-A(V)", "MV-E", "DZ1", "DZ2"}))
        mask = usualMask;
    else if (isOneOf({"MV-G", "GH", "MV-H"}))
        mask = mask | Selector::motorVoltage;
    if (refrigerantKey.toUpper() == u"R134A" && isOneOf({"MV-H", "TK-A", "MV-G", "MV-A"}))
        mask = mask | Selector::motorSize;
    return mask;
}

SeriesOfMarket seriesOfMarket(const QString& serieKey) {
    if (serieKey == u"DZ1") return {"DZ", 1};
    if (serieKey == u"DZ2") return {"DZ", 2};
    return {serieKey.toStdString(), 0};
}

SuperheatRange superheatRange(const QString& refrigerantKey, bool isImperial, bool isDifference,
                              double evaporatingDew) {
    const bool isPropane = refrigerantKey.toLower() == u"r290";
    if (isDifference)
        return {0, isImperial ? (isPropane ? 72.0 : 36.0) : (isPropane ? 40.0 : 20.0),
                isImperial ? 18.0 : 10.0};
    // Kept: the imperial bounds of a suction temperature are not the metric ones converted.
    const double high = isImperial ? (isPropane ? 104.0 : 68.0) : (isPropane ? 40.0 : 20.0);
    return {evaporatingDew, evaporatingDew + high, evaporatingDew + (isImperial ? 50.0 : 10.0)};
}

double permittedSuperheat(double value, const SuperheatRange& range) {
    double result = value;
    if (result < range.low) result = range.fallback;
    if (result > range.high) result = range.fallback;
    return result;
}

}  // namespace marvello
