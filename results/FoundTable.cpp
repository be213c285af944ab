#include "results/FoundTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <tuple>
#include <utility>

#include "data/DictionaryTexts.h"
#include "data/Texts.h"
#include "engine/Statements.h"
#include "results/MarginTexts.h"
#include "results/RefrigerantTexts.h"
#include "results/ReportLines.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

constexpr const char* onePlace = "#0.0";
constexpr const char* twoPlaces = "#0.00";
constexpr const char* notFlammableClass = "A1";
const std::string times = " \u00D7 ";
const std::string dot = " \u00B7 ";

bool isOnInverter(const Candidate& candidate) { return candidate.compressor->hasInvert; }

std::string modelOf(const PreparedCompressor& compressor) {
    return compressor.Serie + '-' + compressor.Model;
}

/// Solutions of one kind, of which a short list has the best.
using Kind = std::tuple<std::string, bool, bool>;
Kind kindOf(const Candidate& candidate) {
    const bool onInverter = isOnInverter(candidate);
    return {lowered(candidate.compressor->Refrigerant), onInverter, !onInverter && candidate.machines > 1};
}

bool passes(const FindResult& result, const Candidate& candidate, FoundFilter filter) {
    const auto facts = [&]() -> const RefrigerantFacts& {
        return result.catalogue->factsOf(candidate.compressor->Refrigerant);
    };
    switch (filter) {
        case FoundFilter::withoutWarnings:
            return !candidate.hasWarnings;
        case FoundFilter::oneMachine:
            return candidate.machines == 1;
        case FoundFilter::onInverter:
            return isOnInverter(candidate);
        case FoundFilter::lowGwp:
            return facts().gwpAr4.value_or(maxGwp + 1) <= maxGwp;
        case FoundFilter::notFlammable:
            return facts().safetyClass == notFlammableClass;
        case FoundFilter::bestOfEach:
            break;
    }
    return true;
}

/// Only the best of each kind, which is the first of a ranked list.
std::vector<const Candidate*> bestOfEach(const std::vector<const Candidate*>& ranked) {
    std::set<Kind> kinds;
    std::vector<const Candidate*> best;
    for (const Candidate* candidate : ranked)
        if (kinds.insert(kindOf(*candidate)).second) best.push_back(candidate);
    return best;
}

std::string valueOf(const FindResult& result, const Candidate& candidate, FoundFact fact) {
    const PreparedCompressor& compressor = *candidate.compressor;
    switch (fact) {
        case FoundFact::refrigerant:
            return compressor.Refrigerant;
        case FoundFact::safetyClass:
            return factText(result.catalogue->factsOf(compressor.Refrigerant).safetyClass);
        case FoundFact::series:
            break;
    }
    return compressor.Serie;
}

std::vector<const Candidate*> filtered(const FindResult& result, const FoundFilters& filters,
                                       const FoundChoices& choices = {}) {
    std::vector<const Candidate*> left;
    for (const Candidate& candidate : result.candidates)
        if (std::ranges::all_of(filters, [&](FoundFilter each) { return passes(result, candidate, each); }) &&
            std::ranges::all_of(choices, [&](const auto& choice) {
                const auto& [fact, values] = choice;
                return values.empty() || values.contains(valueOf(result, candidate, fact));
            }))
            left.push_back(&candidate);
    return filters.contains(FoundFilter::bestOfEach) ? bestOfEach(left) : left;
}

double speedOf(const Candidate& candidate) {
    const auto frequency = candidate.frequency();
    return frequency ? static_cast<double>(*frequency) : candidate.conditions.MotorHz;
}

bool isOpenDrive(const Candidate& candidate) {
    return seriesTraits(candidate.compressor->Serie).drive == Drive::open;
}

/// What a column of numbers is sorted by; a solution without a value is behind the others.
std::function<double(const Candidate&)> numberOf(const std::string& column) {
    if (column == foundColumn::capacity) return &Candidate::capacity;
    if (column == foundColumn::deviation) return &Candidate::deviation;
    if (column == foundColumn::power) return &Candidate::power;
    if (column == foundColumn::cop) return &Candidate::cop;
    if (column == foundColumn::speed) return speedOf;
    if (column == foundColumn::discharge) return &Candidate::dischargeTemperature;
    if (column == foundColumn::margin)
        return [](const Candidate& candidate) {
            return candidate.margin ? candidate.margin->kelvin : -std::numeric_limits<double>::infinity();
        };
    return {};
}

std::string directionTextOf(const Candidate& candidate) {
    return candidate.margin ? directionText(candidate.margin->direction) : std::string();
}

std::string wordsOf(const Candidate& candidate, const std::string& column) {
    if (column == foundColumn::refrigerant) return candidate.compressor->Refrigerant;
    if (column == foundColumn::nearestLimit) return directionTextOf(candidate);
    return modelOf(*candidate.compressor);
}

ShownValue shown(double value, const char* pattern, const NumberMarks& marks) {
    return {shownValue(value, pattern), formatNumber(value, pattern, marks)};
}

ShownValue shownDeviation(double percent, const NumberMarks& marks) {
    ShownValue value = shown(percent, onePlace, marks);
    if (*value.number == 0) value = shown(0, onePlace, marks);
    value.text = (*value.number > 0 ? "+" : "") + value.text + " %";
    return value;
}

ShownValue shownSpeed(const Candidate& candidate, const NumberMarks& marks) {
    if (isOpenDrive(candidate))
        return {{}, formatNumber(candidate.conditions.MotorRPM, "#0", marks) + "/min"};
    return shown(speedOf(candidate), onePlace, marks);
}

std::string reasonText(const Rejection& rejection) {
    switch (rejection.reason) {
        case Rejection::Reason::tooSmall:
            return dictionaryText("find.rejected.toosmall");
        case Rejection::Reason::tooLarge:
            return dictionaryText("find.rejected.toolarge");
        case Rejection::Reason::envelope:
            return dictionaryText("find.rejected.envelope");
        case Rejection::Reason::rule:
            break;
    }
    return dictionaryText(rejection.rule == failureName ? "find.rejected.failed" : rejection.rule);
}

}  // namespace

void FoundOrder::clicked(const std::string& clicked) {
    const bool highFirst = clicked == foundColumn::cop || clicked == foundColumn::margin;
    isDescending = clicked == column ? !isDescending : highFirst;
    column = clicked;
}

std::vector<ResultColumn> foundColumns(double needed, const FoundStyle& style) {
    const auto text = [](const char* key) { return dictionaryText(key); };
    const auto unit = [&](Quantity quantity) { return unitText(quantity, style.units); };
    const double need = convertedCapacity(needed, UnitSystem::metric, style.units);
    const std::string from =
        dictionaryText("find.column.deviation.from",
                       {withUnit(formatNumber(need, "#0.##", style.marks), unit(Quantity::power))});
    return {{nameColumn, text("variables.compressor.name"), "", text("find.column.compressor.help")},
            {foundColumn::refrigerant, text("find.column.refrigerant"), text("find.column.refrigerant.facts"),
             text("find.column.refrigerant.help")},
            {foundColumn::capacity, text("find.column.capacity"), unit(Quantity::power),
             text("find.column.capacity.help")},
            {foundColumn::deviation, text("find.column.deviation"), from, text("find.column.deviation.help")},
            {foundColumn::power, text("find.column.power"), "kW", text("find.column.power.help")},
            {foundColumn::cop, "COP", "", text("find.column.cop.help")},
            {foundColumn::speed, text("find.column.speed"), unit(Quantity::frequency),
             text("find.column.speed.help")},
            {foundColumn::discharge, text("find.column.discharge"), unit(Quantity::temperature),
             text("find.column.discharge.help")},
            {foundColumn::margin, text("find.column.margin"), unit(Quantity::temperatureDifference),
             text("find.column.margin.help")},
            {foundColumn::nearestLimit, text("find.column.nearestlimit"), "",
             text("find.column.nearestlimit.help")}};
}

std::vector<const Candidate*> listed(const FindResult& result, const FoundFilters& filters,
                                     const FoundOrder& order, const FoundChoices& choices) {
    std::vector<const Candidate*> rows = filtered(result, filters, choices);
    const auto number = numberOf(order.column);
    const auto compare = [&](const Candidate* a, const Candidate* b) {
        const Candidate* first = order.isDescending ? b : a;
        const Candidate* second = order.isDescending ? a : b;
        if (number) {
            const double left = number(*first);
            const double right = number(*second);
            if (left != right) return left < right;
        } else {
            const std::string left = wordsOf(*first, order.column);
            const std::string right = wordsOf(*second, order.column);
            if (left != right) return comesBefore(left, right);
        }
        return std::abs(a->deviation) < std::abs(b->deviation);
    };
    std::ranges::stable_sort(rows, compare);
    return rows;
}

int countOf(const FindResult& result, FoundFilter filter) {
    return static_cast<int>(filtered(result, {filter}).size());
}

int countOf(const FindResult& result, FoundFact fact, const std::set<std::string>& values) {
    return static_cast<int>(filtered(result, {}, {{fact, values}}).size());
}

std::set<std::string> valuesOf(const FindResult& result, FoundFact fact) {
    std::set<std::string> values;
    for (const Candidate& candidate : result.candidates) values.insert(valueOf(result, candidate, fact));
    return values;
}

std::string foundLabel(const Candidate& candidate) {
    const std::string step = std::to_string(candidate.conditions.StepCapacity);
    const bool isPart =
        candidate.conditions.StepCapacity != capacitySteps.front() && !isOnInverter(candidate);
    return std::to_string(candidate.machines) + times + modelOf(*candidate.compressor) +
           (isPart ? dot + step + " %" : std::string());
}

std::vector<std::string> putBackInputs(const Candidate& candidate) {
    constexpr std::array<std::pair<Selector, const char*>, 6> captions{
        {{Selector::economizer, "frmselection.cmbeco.captiontext"},
         {Selector::stepCapacity, "frmselection.cmbstepcapacity.captiontext"},
         {Selector::oilCooling, "frmselection.cmboilcooling.captiontext"},
         {Selector::motorVoltage, "frmselection.cmbmotorvoltage.captiontext"},
         {Selector::motorSize, "frmselection.cmbmotorsize.captiontext"},
         {Selector::motorRpm, "frmselection.cmbmotorrpm.captiontext"}}};
    std::vector<std::string> inputs;
    for (const auto& [selector, caption] : captions)
        if (allows(candidate.putBack, selector)) inputs.push_back(dictionaryText(caption));
    return inputs;
}

std::string foundKey(const Candidate& candidate) {
    const PreparedCompressor& compressor = *candidate.compressor;
    return compressor.Refrigerant + '|' + compressor.Serie + '|' + compressor.Sequence + '|' +
           compressor.Model + '|' + std::to_string(candidate.machines) + '|' +
           std::to_string(candidate.conditions.StepCapacity);
}

FoundRow foundRow(const FindResult& result, const Candidate& candidate, const FoundStyle& style) {
    const auto& marks = style.marks;
    const RefrigerantFacts& facts = result.catalogue->factsOf(candidate.compressor->Refrigerant);
    FoundRow row{.candidate = &candidate,
                 .verdict = candidate.hasWarnings ? Verdict::possibleWithWarnings : Verdict::possible,
                 .label = foundLabel(candidate),
                 .facts = shortFacts(facts, marks),
                 .values = {}};
    const auto in = [&](UnitRule rule, double value) { return rule(value, UnitSystem::metric, style.units); };
    row.values = {
        {{}, candidate.compressor->Refrigerant},
        shown(in(convertedCapacity, candidate.capacity), onePlace, marks),
        shownDeviation(candidate.deviation, marks),
        shown(candidate.power, onePlace, marks),
        shown(candidate.cop, twoPlaces, marks),
        shownSpeed(candidate, marks),
        shown(in(convertedTemperature, candidate.dischargeTemperature), onePlace, marks),
        candidate.margin ? shown(in(convertedDifference, candidate.margin->kelvin), onePlace, marks)
                         : ShownValue{{}, "-"},
        {{}, directionTextOf(candidate)},
    };
    return row;
}

std::vector<RejectedGroup> rejectedGroups(const FindResult& result) {
    std::map<std::string, std::vector<std::string>> byReason;
    for (const Rejection& rejection : result.rejections) {
        const PreparedCompressor& compressor = *rejection.compressor;
        std::string text = modelOf(compressor) + dot + compressor.Refrigerant;
        byReason[reasonText(rejection)].push_back(std::move(text));
    }
    std::vector<RejectedGroup> groups;
    for (auto& [reason, compressors] : byReason) groups.push_back({reason, std::move(compressors)});
    std::ranges::stable_sort(groups, std::ranges::greater{},
                             [](const RejectedGroup& group) { return group.compressors.size(); });
    return groups;
}

RowSet foundRecords(const FindResult& result, const std::vector<const Candidate*>& candidates,
                    const FoundStyle& style) {
    constexpr int textSize = 20;
    RowSet records;
    for (const char* name : {"Refrigerant", "Serie", "Model"}) records.addText(name, textSize);
    for (const char* name : {"Machines", "Step", "Frequency", "Capacity", "Deviation", "Power", "COP",
                             "DischargeTemperature", "Margin"})
        records.addNumber(name);
    for (const Candidate* candidate : candidates) {
        const FoundRow row = foundRow(result, *candidate, style);
        std::vector<RowSet::Value> values{candidate->compressor->Refrigerant, candidate->compressor->Serie,
                                          candidate->compressor->Model};
        values.emplace_back(static_cast<double>(candidate->machines));
        values.emplace_back(static_cast<double>(candidate->conditions.StepCapacity));
        values.emplace_back();
        if (const auto frequency = candidate->frequency()) values.back() = static_cast<double>(*frequency);
        for (const std::size_t column : {1U, 2U, 3U, 4U, 6U, 7U}) {
            values.emplace_back();
            if (row.values[column].number) values.back() = *row.values[column].number;
        }
        records.addRow(std::move(values));
    }
    return records;
}

}  // namespace marvello
