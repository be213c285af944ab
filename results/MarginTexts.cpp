#include "results/MarginTexts.h"

#include <algorithm>
#include <cmath>

#include "data/DictionaryTexts.h"
#include "data/Texts.h"
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

std::string filled(std::string_view key, const std::string& argument) {
    std::string text = dictionaryText(key);
    replaceAll(text, "{0}", argument);
    return text;
}

/// On the safe side: what is left rounded down, what is missed rounded up.
std::string distanceOf(const Margin& margin, UnitSystem units, const NumberMarks& marks) {
    if (margin.kelvin >= 0) return differenceText(margin.kelvin, false, units, marks);
    return filled("messages.margin.over", differenceText(-margin.kelvin, true, units, marks));
}

std::optional<Margin> applicationMarginOf(const clsCompressor& compressor) {
    const clsVariables& v = compressor.Variables;
    return applicationMargin(compressor.limits, v[var::Ted], v[var::Tcd]);
}

std::string temperatureText(double celsius, UnitSystem units, const NumberMarks& marks) {
    return withUnit(formatNumber(convertedTemperature(celsius, UnitSystem::metric, units), tenths, marks),
                    unitText(Quantity::temperature, units));
}

std::string beyondApplication(const clsCompressor& compressor, UnitSystem units, const NumberMarks& marks) {
    const auto margin = applicationMarginOf(compressor);
    if (!margin || margin->kelvin >= 0) return {};
    return filled("messages.margin.beyond", differenceText(-margin->kelvin, true, units, marks));
}

std::string hotDischarge(const clsCompressor& compressor, UnitSystem units, const NumberMarks& marks) {
    const clsVariables& v = compressor.Variables;
    if (!v.isSet(var::T21) || !v.isSet(var::OC) || v[var::T21] <= v[var::OC]) return {};
    std::string text = dictionaryText("messages.margin.discharge");
    replaceAll(text, "{0}", temperatureText(v[var::T21], units, marks));
    replaceAll(text, "{1}", temperatureText(v[var::OC], units, marks));
    return text;
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
    constexpr double farthest = 20;  // K
    std::vector<Margin> margins = limitMargins(compressor, conditions);
    if (const auto margin = applicationMarginOf(compressor)) margins.insert(margins.begin(), *margin);
    std::ranges::stable_sort(margins, {}, [](const Margin& margin) { return std::abs(margin.kelvin); });
    std::vector<ShownMargin> shown;
    for (const Margin& margin : margins) {
        const clsLimit& limit = *compressor.limits.GetLimitType(margin.limitType);
        if (!limit.Visible || std::abs(margin.kelvin) > farthest) continue;
        shown.push_back({margin.limitType, nameOfLimit(limit), distanceOf(margin, units, marks),
                         directionText(margin.direction)});
    }
    return shown;
}

std::string marginLine(const clsCompressor& compressor, UnitSystem units, const NumberMarks& marks) {
    const auto margin = applicationMarginOf(compressor);
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
