#pragma once

#include <QString>
#include <QStringView>
#include <cstdint>
#include <string>

#include "catalogue/SeriesTraits.h"

namespace marvello {

/// The mask of a series key, with the motor size added where there are two motors.
unsigned seriesMask(const QString& serieKey, const QString& refrigerantKey);

/// The series of the catalogue behind a series key, and its market.
struct SeriesOfMarket {
    std::string serie;
    std::uint8_t market = 0;
};
SeriesOfMarket seriesOfMarket(const QString& serieKey);
/// The choices "key|caption;..." that the form offers for a series: itself, or its markets.
QString seriesChoices(const QString& serie);

/// The bounds of a superheat, which are permitted themselves, and what takes the place of a value beyond
/// them.
struct SuperheatRange {
    double low;
    double high;
    double fallback;
};
/// `isDifference` tells a superheat from a suction temperature; temperatures in the units of the form.
SuperheatRange superheatRange(const QString& refrigerantKey, bool isImperial, bool isDifference,
                              double evaporatingDew);
/// The superheat that holds for one that was asked for: the value itself, or the fallback.
double permittedSuperheat(double value, const SuperheatRange& range);

/// The economizer modes, by the keys of their selector.
inline const QString noEconomizer = QString::number(codeOf(EconomizerMode::none));
inline const QString approachMode = QString::number(codeOf(EconomizerMode::approach));
inline const QString capacityMode = QString::number(codeOf(EconomizerMode::capacity));

}  // namespace marvello
