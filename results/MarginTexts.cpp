#include "results/MarginTexts.h"

#include <algorithm>
#include <cmath>

#include "data/DictionaryTexts.h"
#include "results/EnvelopeTexts.h"
#include "results/ReportLines.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

constexpr const char* tenths = "#0.0";

/// A difference in tenths, rounded up or down.
std::string differenceText(double kelvin, bool isUp, UnitSystem units, const NumberMarks& marks) {
    constexpr double rounding = 1e-6;
    const double shown = convertedDifference(kelvin, UnitSystem::metric, units) * 10;
    const double rounded = isUp ? std::ceil(shown - rounding) : std::floor(shown + rounding);
    return withUnit(formatNumber(rounded / 10, tenths, marks),
                    unitText(Quantity::temperatureDifference, units));
}

/// On the safe side: what is left rounded down, what is missed rounded up. A note misses nothing.
std::string distanceOf(const Margin& margin, UnitSystem units, const NumberMarks& marks) {
    if (margin.kelvin >= 0 || margin.severity == Severity::information)
        return differenceText(std::abs(margin.kelvin), false, units, marks);
    return dictionaryText("messages.margin.over", {differenceText(-margin.kelvin, true, units, marks)});
}

std::string temperatureText(double celsius, UnitSystem units, const NumberMarks& marks) {
    return withUnit(formatNumber(convertedTemperature(celsius, UnitSystem::metric, units), tenths, marks),
                    unitText(Quantity::temperature, units));
}

std::string beyondApplication(const clsCompressor& compressor, UnitSystem units, const NumberMarks& marks) {
    const auto margin = applicationMargin(compressor);
    if (!margin || margin->kelvin >= 0) return {};
    return dictionaryText("messages.margin.beyond", {differenceText(-margin->kelvin, true, units, marks)});
}

std::string hotDischarge(const clsCompressor& compressor, UnitSystem units, const NumberMarks& marks) {
    const clsVariables& v = compressor.Variables;
    if (!v.isSet(var::T21) || !v.isSet(var::OC) || v[var::T21] <= v[var::OC]) return {};
    return dictionaryText("messages.margin.discharge", {temperatureText(v[var::T21], units, marks),
                                                        temperatureText(v[var::OC], units, marks)});
}

}  // namespace

std::string directionText(Direction direction) {
    switch (direction) {
        case Direction::tedUp:
            return dictionaryText("find.margin.tedup");
        case Direction::tedDown:
            return dictionaryText("find.margin.teddown");
        case Direction::tcdUp:
            return dictionaryText("find.margin.tcdup");
        case Direction::tcdDown:
            break;
    }
    return dictionaryText("find.margin.tcddown");
}

std::vector<ShownMargin> shownMargins(const clsCompressor& compressor, const clsProjectConditions& conditions,
                                      UnitSystem units, const NumberMarks& marks) {
    constexpr double maxDistance = 20;  // K
    std::vector<Margin> margins = limitMargins(compressor, conditions);
    if (const auto margin = applicationMargin(compressor)) margins.insert(margins.begin(), *margin);
    std::ranges::stable_sort(margins, {}, [](const Margin& margin) { return std::abs(margin.kelvin); });
    std::vector<ShownMargin> shown;
    for (const Margin& margin : margins) {
        const clsLimit& limit = *compressor.limits.GetLimitType(margin.limitType);
        if (!limit.Visible || std::abs(margin.kelvin) > maxDistance) continue;
        shown.push_back({margin.limitType, nameOfLimit(limit), distanceOf(margin, units, marks),
                         directionText(margin.direction)});
    }
    return shown;
}

std::string marginText(const clsCompressor& compressor, UnitSystem units, const NumberMarks& marks) {
    const auto margin = applicationMargin(compressor);
    return margin ? distanceOf(*margin, units, marks) : std::string();
}

std::string marginLine(const clsCompressor& compressor, UnitSystem units, const NumberMarks& marks) {
    const auto margin = applicationMargin(compressor);
    if (!margin) return {};
    const clsLimit& limit = *compressor.limits.GetLimitType(margin->limitType);
    return nameOfLimit(limit) + ": " + distanceOf(*margin, units, marks) + " (" +
           directionText(margin->direction) + ")";
}

std::string distanceText(const clsCompressor& compressor, const ShownMessage& message, UnitSystem units,
                         const NumberMarks& marks) {
    const std::string& key = message.key;
    if (key == "messages.message01" || key == "messages.message02")
        return beyondApplication(compressor, units, marks);
    if (key == "messages.message07" || key == "messages.message17")
        return hotDischarge(compressor, units, marks);
    return {};
}

}  // namespace marvello
