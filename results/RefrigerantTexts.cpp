#include "results/RefrigerantTexts.h"

#include "data/DictionaryTexts.h"
#include "results/ReportLines.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

/// A temperature or a difference of temperatures, in the units of the user.
std::string temperatureText(std::optional<double> fact, Quantity quantity, UnitSystem units,
                            const NumberMarks& marks) {
    if (!fact) return unknownFact;
    const double shown = conversionOf(quantity)(*fact, UnitSystem::metric, units);
    return withUnit(formatNumber(shown, degreesPattern, marks), unitText(quantity, units));
}

}  // namespace

std::string factText(const std::optional<double>& fact, std::string_view pattern, const NumberMarks& marks) {
    return fact ? formatNumber(*fact, pattern, marks) : unknownFact;
}

std::string factText(const std::string& fact) { return fact.empty() ? unknownFact : fact; }

std::string shortFacts(const RefrigerantFacts& facts, const NumberMarks& marks) {
    if (facts.safetyClass.empty() && !facts.gwpAr4) return unknownFact;
    return dictionaryText("technicaldata.refrigerant.short",
                          {factText(facts.safetyClass), factText(facts.gwpAr4, gwpPattern, marks)});
}

std::vector<TechnicalEntry> factEntries(const RefrigerantFacts& facts, UnitSystem units,
                                        const NumberMarks& marks) {
    const bool hasGwp = facts.gwpAr4 || facts.gwpAr5 || facts.gwpAr6;
    const std::string gwp = factText(facts.gwpAr4, gwpPattern, marks) + " / " +
                            factText(facts.gwpAr5, gwpPattern, marks) + " / " +
                            factText(facts.gwpAr6, gwpPattern, marks);
    const auto temperature = [&](const std::optional<double>& fact) {
        return temperatureText(fact, Quantity::temperature, units, marks);
    };
    return {{dictionaryText("technicaldata.safetyclass.caption"), factText(facts.safetyClass)},
            {dictionaryText("technicaldata.gwp.caption"), hasGwp ? gwp : unknownFact},
            {dictionaryText("technicaldata.odp.caption"), factText(facts.odp, odpPattern, marks)},
            {dictionaryText("technicaldata.boilingpoint.caption"), temperature(facts.boilingPoint)},
            {dictionaryText("technicaldata.glide.caption"),
             temperatureText(facts.glide, Quantity::temperatureDifference, units, marks)},
            {dictionaryText("technicaldata.criticaltemperature.caption"),
             temperature(facts.criticalTemperature)}};
}

}  // namespace marvello
