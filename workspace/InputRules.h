#pragma once

#include <QString>
#include <QStringView>
#include <cstdint>
#include <string>

namespace marvello {

/// The selectors that a series may switch on, as bits of its mask.
enum class Selector : unsigned {
    economizer = 1,
    stepCapacity = 2,
    oilCooling = 4,
    motorVoltage = 8,
    motorSize = 16,
    motorRpm = 32,
};

/// The mask of a series key, with the motor size added for the series of R134A that have two motors.
unsigned seriesMask(const QString& serieKey, const QString& refrigerantKey);

inline bool allows(unsigned mask, Selector selector) { return (mask & static_cast<unsigned>(selector)) != 0; }

/// The series of the catalogue behind a series key, and its market: "DZ1" and "DZ2" are the two markets of
/// "DZ".
struct SeriesOfMarket {
    std::string serie;
    std::uint8_t market = 0;
};
SeriesOfMarket seriesOfMarket(const QString& serieKey);

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
inline constexpr QStringView noEconomizer = u"0";
inline constexpr QStringView approachMode = u"1";
inline constexpr QStringView capacityMode = u"2";

}  // namespace marvello
