#include "results/MarginTexts.h"

#include <cmath>

#include "data/DictionaryTexts.h"
#include "data/Texts.h"
#include "engine/Margins.h"
#include "results/ReportLines.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

constexpr const char* tenths = "#0.0";

/// A difference rounded up: what is left of it is no less.
std::string differenceText(double kelvin, UnitSystem units, const NumberMarks& marks) {
    constexpr double rounding = 1e-6;
    const double shown = convertedDifference(kelvin, UnitSystem::metric, units);
    return withUnit(formatNumber(std::ceil(shown * 10 - rounding) / 10, tenths, marks),
                    unitText(Quantity::temperatureDifference, units));
}

std::string temperatureText(double celsius, UnitSystem units, const NumberMarks& marks) {
    return withUnit(formatNumber(convertedTemperature(celsius, UnitSystem::metric, units), tenths, marks),
                    unitText(Quantity::temperature, units));
}

std::string beyondApplication(const clsCompressor& compressor, UnitSystem units, const NumberMarks& marks) {
    const clsVariables& v = compressor.Variables;
    const auto margin = applicationMargin(compressor.limits, v[var::Ted], v[var::Tcd]);
    if (!margin || margin->kelvin >= 0) return {};
    std::string text = dictionaryText("messages.margin.beyond");
    replaceAll(text, "{0}", differenceText(-margin->kelvin, units, marks));
    return text;
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
