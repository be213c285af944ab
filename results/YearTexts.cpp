#include "results/YearTexts.h"

#include <algorithm>
#include <array>
#include <set>

#include "catalogue/clsInverter.h"
#include "data/DictionaryTexts.h"
#include "engine/CapacityStates.h"
#include "engine/PermittedConditions.h"
#include "engine/Statements.h"
#include "results/PartLoadTexts.h"
#include "results/ReportLines.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

constexpr std::string_view onePlace = "#0.0";
constexpr std::string_view anyPlaces = "#0.###";
const std::string times = " \u00D7 ";
const std::string dot = " \u00B7 ";

std::string joined(const std::vector<std::string>& parts, const std::string& between) {
    std::string all;
    for (const std::string& part : parts) all += (all.empty() ? "" : between) + part;
    return all;
}

int machinesOf(const Plant& plant) {
    int count = 0;
    for (const PlantMachines& machines : plant.machines) count += machines.count;
    return count;
}

bool hasInverter(const Plant& plant) {
    return std::ranges::any_of(plant.machines, [](const auto& each) { return each.compressor->hasInvert; });
}

/// How a plant is driven, in a few words.
std::string driveOf(const Plant& plant) {
    if (plant.machines.size() > 1)
        return hasInverter(plant) ? dictionaryText("frmyear.oneinverter", {std::to_string(machinesOf(plant))})
                                  : dictionaryText("frmyear.machines", {std::to_string(machinesOf(plant))});
    if (hasInverter(plant))
        return dictionaryText("frmyear.inverter",
                              {formatNumber(static_cast<double>(clsInverter::minimumFrequency), "#0"),
                               formatNumber(static_cast<double>(clsInverter::maximumFrequency), "#0")});
    std::vector<std::string> steps;
    for (const int step : stepsOf(*plant.machines.front().compressor)) steps.push_back(std::to_string(step));
    return steps.size() > 1 ? dictionaryText("frmyear.steps", {joined(steps, ", ")})
                            : dictionaryText("frmyear.onestep");
}

std::string errorText(const std::string& error) {
    return dictionaryText(error == failureName ? "find.rejected.failed" : error);
}

/// Why a plant runs in no bin.
std::string errorOf(const YearOfPlant& plant) {
    if (plant.canRun()) return {};
    for (const YearBin& bin : plant.year.bins)
        for (const std::string& error : bin.errors)
            if (!error.empty()) return errorText(error);
    return dictionaryText("frmyear.noload");
}

/// Names that are there twice get what tells them apart.
void tellApart(std::vector<ComparedHead>& heads, const YearComparison& comparison) {
    const auto isTwice = [&](const std::string& name) {
        return std::ranges::count(heads, name, &ComparedHead::name) > 1;
    };
    std::vector<std::string> names;
    for (std::size_t i = 0; i < heads.size(); ++i)
        names.push_back(isTwice(heads[i].name)
                            ? heads[i].name + dot + comparison.plants[i].choice.plant.refrigerant()
                            : heads[i].name);
    for (std::size_t i = 0; i < heads.size(); ++i) heads[i].name = names[i];
    for (std::size_t i = 0; i < heads.size(); ++i)
        if (isTwice(heads[i].name)) names[i] += " (" + std::to_string(i + 1) + ')';
    for (std::size_t i = 0; i < heads.size(); ++i) heads[i].name = names[i];
}

std::string differenceText(double kelvin, const YearStyle& style) {
    return withUnit(
        formatNumber(convertedDifference(kelvin, UnitSystem::metric, style.units), "#0.0#", style.marks),
        unitText(Quantity::temperatureDifference, style.units));
}

std::string evaporatingText(const EvaporatingRule& rule, const YearStyle& style) {
    if (rule.points.size() == 1) return temperatureText(rule.points.front().evaporating, style);
    std::vector<std::string> points;
    for (const EvaporatingRule::Point& point : rule.points)
        points.push_back(dictionaryText(
            "frmyear.assumption.evaporatingpoint",
            {temperatureText(point.evaporating, style), temperatureText(point.outdoor, style)}));
    return joined(points, ", ");
}

std::string condensingText(const CondensingRule& rule, const YearStyle& style) {
    if (!rule.difference) return temperatureText(rule.minimum.value_or(0), style);
    const std::string difference = differenceText(*rule.difference, style);
    std::string text = dictionaryText(
        rule.isScaled ? "frmyear.assumption.outdoorscaled" : "frmyear.assumption.outdoorplus", {difference});
    if (rule.minimum)
        text += ", " + dictionaryText("frmyear.assumption.minimum", {temperatureText(*rule.minimum, style)});
    return text;
}

std::string optionsOf(const YearOfPlant& plant, const YearStyle& style) {
    const clsProjectConditions& conditions = plant.choice.conditions;
    std::string text = gasText(pointOf(conditions), {.units = style.units, .marks = style.marks});
    const bool hasEconomizer =
        std::ranges::any_of(plant.choice.plant.machines, [&](const PlantMachines& machines) {
            return permittedConditions(*machines.compressor, conditions).conditions.EcoCalculateMode !=
                   EconomizerMode::none;
        });
    if (hasEconomizer) text += dot + dictionaryText("frmyear.assumption.economizer");
    return text;
}

std::string degradationText(const Degradation& degradation, const YearStyle& style) {
    const std::string coefficient = formatNumber(degradation.coefficient, "#0.0##", style.marks);
    switch (degradation.form) {
        case Degradation::Form::condensingUnit:
            return dictionaryText("frmyear.assumption.condensingunit", {coefficient});
        case Degradation::Form::chiller:
            return dictionaryText("frmyear.assumption.chiller", {coefficient});
        case Degradation::Form::none:
            break;
    }
    return dictionaryText("frmyear.assumption.nodegradation");
}

std::string number(double value, const YearStyle& style) {
    return formatNumber(value, anyPlaces, style.marks);
}

std::string electricityText(const YearTerms& terms, const YearStyle& style) {
    std::vector<std::string> parts;
    if (terms.price)
        parts.push_back(dictionaryText("frmyear.assumption.price",
                                       {withUnit(number(*terms.price, style), style.currency)}));
    if (terms.emissions.grid)
        parts.push_back(withUnit(number(*terms.emissions.grid, style), "kg CO\u2082e/kWh") +
                        (style.gridSource.empty() ? std::string() : " (" + style.gridSource + ')'));
    return joined(parts, "; ");
}

/// The charge in the units of the style, such as "48 kg".
std::string chargeText(double kilograms, const YearStyle& style) {
    const bool isMetric = style.units == UnitSystem::metric;
    const double shown = convertedMassFlow(kilograms, UnitSystem::metric, style.units);
    return withUnit(formatNumber(shown, "#0.#", style.marks), isMetric ? "kg" : "lb");
}

std::string gwpText(const YearComparison& comparison, const YearStyle& style) {
    std::vector<std::string> parts;
    std::set<std::string> said;
    for (const YearOfPlant& plant : comparison.plants) {
        const std::string& refrigerant = plant.choice.plant.refrigerant();
        if (!said.insert(refrigerant).second) continue;
        parts.push_back(refrigerant + ' ' +
                        (plant.emissions.gwp ? number(*plant.emissions.gwp, style) : std::string("-")));
    }
    return joined(parts, ", ");
}

}  // namespace

std::string plantName(const Plant& plant) {
    std::vector<std::string> names;
    for (const PlantMachines& machines : plant.machines)
        names.push_back((machines.count > 1 ? std::to_string(machines.count) + times : std::string()) +
                        machineName(*machines.compressor));
    return joined(names, " + ");
}

std::vector<ComparedHead> yearHeads(const YearComparison& comparison) {
    std::set<std::string> refrigerants;
    for (const YearOfPlant& plant : comparison.plants) refrigerants.insert(plant.choice.plant.refrigerant());
    std::vector<ComparedHead> heads;
    for (const YearOfPlant& plant : comparison.plants) {
        const Plant& machines = plant.choice.plant;
        const std::string drive = driveOf(machines);
        ComparedHead& head = heads.emplace_back(ComparedHead{.name = plantName(machines), .facts = drive});
        if (refrigerants.size() > 1) head.facts = machines.refrigerant() + dot + drive;
        head.error = errorOf(plant);
    }
    tellApart(heads, comparison);
    return heads;
}

std::string runningText(const YearOfPlant& plant, const YearBin& bin, const NumberMarks& marks) {
    std::vector<std::string> parts;
    for (const RunningMachines& running : bin.load.running) {
        const RunningState& state = running.state;
        std::string part = running.count > 1 ? std::to_string(running.count) + times : std::string();
        part += machineName(*plant.choice.plant.machines.at(running.kind).compressor) + ' ';
        part += state.frequency
                    ? withUnit(formatNumber(static_cast<double>(*state.frequency), onePlace, marks), "Hz")
                    : std::to_string(state.step) + " %";
        if (running.share < 1)
            part = dictionaryText("frmyear.running.share", {part, percentText(running.share, marks)});
        parts.push_back(std::move(part));
    }
    return parts.empty() ? "-" : joined(parts, ", ");
}

std::string temperatureText(double celsius, const YearStyle& style) {
    return withUnit(
        formatNumber(convertedTemperature(celsius, UnitSystem::metric, style.units), "#0.0#", style.marks),
        unitText(Quantity::temperature, style.units));
}

std::string capacityText(double kilowatts, const YearStyle& style) {
    return withUnit(
        formatNumber(convertedCapacity(kilowatts, UnitSystem::metric, style.units), onePlace, style.marks),
        unitText(Quantity::power, style.units));
}

std::vector<std::string> yearAssumptions(const YearComparison& comparison, const YearStyle& style) {
    const YearTerms& terms = comparison.terms;
    std::vector<std::string> lines;
    const auto add = [&](std::string_view key, const std::vector<std::string>& arguments) {
        lines.push_back(dictionaryText(key, arguments));
    };
    add("frmyear.assumption.load", {capacityText(terms.designLoad, style)});
    add("frmyear.assumption.temperatures",
        {evaporatingText(terms.evaporating, style), condensingText(terms.condensing, style)});
    const std::string source = style.profileSource.empty() ? std::string() : " (" + style.profileSource + ')';
    add("frmyear.assumption.profile",
        {style.profile + source, formatNumber(terms.profile.hours(), "#0.##", style.marks),
         formatNumber(terms.profile.fullLoadHours(), "#0", style.marks)});
    const auto heads = yearHeads(comparison);
    for (std::size_t i = 0; i < heads.size(); ++i) {
        const YearOfPlant& plant = comparison.plants[i];
        lines.push_back(heads[i].name + ": " + plant.choice.plant.refrigerant() + dot +
                        driveOf(plant.choice.plant) + dot + optionsOf(plant, style));
    }
    add(terms.staging == Staging::power ? "frmyear.assumption.power" : "frmyear.assumption.sequence", {});
    lines.push_back(degradationText(terms.degradation, style));
    if (const std::string text = electricityText(terms, style); !text.empty())
        add("frmyear.assumption.electricity", {text});
    if (terms.emissions.charge)
        add("frmyear.assumption.refrigerant",
            {chargeText(*terms.emissions.charge, style), number(terms.emissions.leakage, style),
             number(terms.emissions.recovery, style), number(terms.emissions.years, style),
             std::string(nameOf(terms.gwp)), gwpText(comparison, style)});
    add("frmyear.assumption.nodeclared", {});
    return lines;
}

std::string sentenceOf(const PlantTextFault& fault) {
    using Reason = PlantTextFault::Reason;
    const std::string all = joined(fault.arguments, ", ");
    switch (fault.reason) {
        case Reason::noMachine:
            return dictionaryText("frmyear.fault.nomachine");
        case Reason::unknownCompressor:
            return fault.arguments.size() > 1 ? dictionaryText("frmyear.fault.compressorfor", fault.arguments)
                                              : dictionaryText("frmyear.fault.compressor", fault.arguments);
        case Reason::unknownRefrigerant:
            return dictionaryText("frmyear.fault.refrigerant", fault.arguments);
        case Reason::severalRefrigerants:
            return fault.arguments.empty() ? dictionaryText("frmyear.fault.norefrigerant")
                                           : dictionaryText("frmyear.fault.refrigerants", {all});
        case Reason::count:
            return dictionaryText("frmyear.fault.count", {all, std::to_string(YearRequest::maxMachines)});
        case Reason::tooManyMachines:
            return dictionaryText("frmyear.fault.machines", {all, std::to_string(YearRequest::maxMachines)});
        case Reason::severalInverters:
            return dictionaryText("frmyear.fault.inverters");
    }
    return fault.what();
}

std::string sentenceOf(LoadProfileFault::Reason reason, const std::string& text) {
    using enum LoadProfileFault::Reason;
    const auto sentence = [&](const char* key) { return dictionaryText(key, {text}); };
    switch (reason) {
        case notCsv:
            return sentence("frmyear.file.notcsv");
        case noBins:
            return sentence("frmyear.file.nobins");
        case tooManyBins:
            return sentence("frmyear.file.toomanybins");
        case missingColumn:
            return sentence("frmyear.file.missingcolumn");
        case repeatedColumn:
            return sentence("frmyear.file.repeatedcolumn");
        case unknownUnit:
            return sentence("frmyear.file.unknownunit");
        case fieldCount:
            return sentence("frmyear.file.fieldcount");
        case missingValue:
            return sentence("frmyear.file.missingvalue");
        case notANumber:
            return sentence("frmyear.file.notanumber");
        case outsideRange:
            return sentence("frmyear.file.outsiderange");
        case negativeHours:
            return sentence("frmyear.file.negativehours");
        case hoursAboveYear:
            return sentence("frmyear.file.hoursaboveyear");
        case negativeLoad:
            return sentence("frmyear.file.negativeload");
        case loadAboveFull:
            return sentence("frmyear.file.loadabovefull");
    }
    return text;
}

std::string sentenceOf(const LoadProfileFault& fault) {
    const std::string sentence = sentenceOf(fault.reason, fault.text);
    return fault.line > 0 ? dictionaryText("frmyear.file.line", {std::to_string(fault.line), sentence})
                          : sentence;
}

}  // namespace marvello
