#include "workspace/InputRules.h"

#include <QStringList>

namespace marvello {

namespace {

bool isOneOf(const QString& key, const QStringList& keys) { return keys.contains(key); }

}  // namespace

unsigned seriesMask(const QString& serieKey, const QString& refrigerantKey) {
    const QString serie = serieKey.trimmed().toUpper();
    unsigned mask = 0;
    if (serie == u"NL-H")
        mask = 32;
    else if (isOneOf(serie, {"TK-A", "TK-A(P)", "TK-A(Q)", "TK-A(V)"}))
        mask = 15;
    else if (isOneOf(serie, {"TK-E", "MV-A", "MV-A(V)", "MV-E", "DZ1", "DZ2"}))
        mask = 13;
    else if (isOneOf(serie, {"MV-G", "GH", "MV-H"}))
        mask = 8;
    if (refrigerantKey.toUpper() == u"R134A" && isOneOf(serie, {"MV-H", "TK-A", "MV-G", "MV-A"}))
        mask |= static_cast<unsigned>(Selector::motorSize);
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
    // The imperial bounds of a suction temperature are not the metric ones converted; they are kept as they
    // are.
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
