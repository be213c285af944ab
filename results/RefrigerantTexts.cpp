#include "results/RefrigerantTexts.h"

#include "data/DictionaryTexts.h"
#include "data/Texts.h"

namespace marvello {

namespace {

/// A temperature or a difference of temperatures, in the units of the user.
std::string temperatureText(std::optional<double> fact, UnitRule convert, std::string_view metricUnit,
                            UnitSystem units, const NumberMarks& marks) {
    if (!fact) return unknownFact;
    const bool isImperial = units == UnitSystem::imperial;
    return formatNumber(convert(*fact, UnitSystem::metric, units), degreesPattern, marks) + ' ' +
           (isImperial ? dictionaryText("general.variable03") + 'F' : std::string(metricUnit));
}

}  // namespace

std::string factText(const std::optional<double>& fact, std::string_view pattern, const NumberMarks& marks) {
    return fact ? formatNumber(*fact, pattern, marks) : unknownFact;
}

std::string factText(const std::string& fact) { return fact.empty() ? unknownFact : fact; }

std::string shortFacts(const RefrigerantFacts& facts, const NumberMarks& marks) {
    if (facts.safetyClass.empty() && !facts.gwpAr4) return unknownFact;
    std::string text = dictionaryText("technicaldata.refrigerant.short");
    replaceAll(text, "{0}", factText(facts.safetyClass));
    replaceAll(text, "{1}", factText(facts.gwpAr4, gwpPattern, marks));
    return text;
}

std::vector<TechnicalEntry> factEntries(const RefrigerantFacts& facts, UnitSystem units,
                                        const NumberMarks& marks) {
    const bool hasGwp = facts.gwpAr4 || facts.gwpAr5 || facts.gwpAr6;
    const std::string gwp = factText(facts.gwpAr4, gwpPattern, marks) + " / " +
                            factText(facts.gwpAr5, gwpPattern, marks) + " / " +
                            factText(facts.gwpAr6, gwpPattern, marks);
    const auto temperature = [&](const std::optional<double>& fact) {
        return temperatureText(fact, convertedTemperature, dictionaryText("general.variable03") + 'C', units,
                               marks);
    };
    return {{dictionaryText("technicaldata.safetyclass.caption"), factText(facts.safetyClass)},
            {dictionaryText("technicaldata.gwp.caption"), hasGwp ? gwp : unknownFact},
            {dictionaryText("technicaldata.odp.caption"), factText(facts.odp, odpPattern, marks)},
            {dictionaryText("technicaldata.boilingpoint.caption"), temperature(facts.boilingPoint)},
            {dictionaryText("technicaldata.glide.caption"),
             temperatureText(facts.glide, convertedDifference, "K", units, marks)},
            {dictionaryText("technicaldata.criticaltemperature.caption"),
             temperature(facts.criticalTemperature)}};
}

}  // namespace marvello
