#include "inputs/SelectionInputs.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>

#include "catalogue/CatalogueLists.h"
#include "catalogue/FirstConditions.h"
#include "catalogue/Globals.h"
#include "catalogue/SearchRange.h"
#include "catalogue/clsInverter.h"
#include "data/CollectedBoxes.h"
#include "data/DictionaryTexts.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "inputs/CoupledFields.h"
#include "thermo/clsRefprop.h"

namespace marvello {

namespace {

int wholeNumber(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

template <class Mode>
std::string keyOf(Mode mode) {
    return std::to_string(codeOf(mode));
}
template <class Mode>
Mode modeOf(const std::string& key) {
    return static_cast<Mode>(wholeNumber(key));
}

const std::string noEconomizer = keyOf(EconomizerMode::none);
const std::string approachMode = keyOf(EconomizerMode::approach);
const std::string capacityMode = keyOf(EconomizerMode::capacity);

constexpr double firstCapacity = 150;  // kW

/// Chooses all that is offered.
constexpr const char* allKey = "*";

/// The key of a choice in a new form, and while a series does not offer another.
std::string neutralKey(Input input) {
    switch (input) {
        case Input::refrigerant:
            return std::string(firstRefrigerant);
        case Input::models:
        case Input::allSeries:
            return allKey;
        case Input::capacityKind:
        case Input::market:
        case Input::usesSteps:
        case Input::inverterUse:
            return "0";
        case Input::minMachines:
            return "1";
        case Input::maxMachines:
            return std::to_string(searchRange::maxMachines);
        case Input::superheatKind:
            return keyOf(firstConditions.SuperHeatType);
        case Input::economizerMode:
            return noEconomizer;
        case Input::oilCoolingMode:
            return keyOf(firstConditions.OilCoolingCalculateMode);
        case Input::motorVoltage:
            return storedText(firstConditions.MotorVoltage) + '_' + std::to_string(firstConditions.MotorHz);
        case Input::motorSize:
            return keyOf(firstConditions.MotorSize);
        case Input::motorSpeed:
            return std::to_string(firstConditions.MotorRPM);
        case Input::capacityStep:
            return std::to_string(firstConditions.StepCapacity);
        default:
            return {};
    }
}

std::vector<Choice> namesAsChoices(const std::vector<std::string>& names) {
    std::vector<Choice> choices;
    for (const std::string& name : names) choices.push_back({name, name});
    return choices;
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ";") + name;
    return text;
}

bool offers(const InputValue& value, const std::string& key) {
    return std::ranges::find(value.choices, key, &Choice::key) != value.choices.end();
}

bool offersAll(const InputValue& value, const std::string& keys) {
    return std::ranges::all_of(splitText(keys, ';'),
                               [&](const std::string& key) { return offers(value, key); });
}

/// The name of a mode's own value among the values of a state.
std::string economizerEntry(const std::string& mode) { return "cmbEco_K" + mode; }

}  // namespace

SelectionInputs::SelectionInputs(const SelectionKind& kind) : kind_(kind) {
    for (const InputDefinition& definition : allInputs())
        if (definition.isChoice) at(definition.input).key = neutralKey(definition.input);
    for (const int step : capacitySteps) {
        const std::string key = std::to_string(step);
        at(Input::capacityStep).choices.push_back({key, step == 25 ? "Start/Stop(25%)" : key + '%'});
    }
    set(Input::evaporatingDew, firstConditions.TEvaporatingDew);
    set(Input::condensingDew, firstConditions.TCondensationDew);
    set(Input::superheat, firstConditions.SuperHeat);
    set(Input::subcooling, firstConditions.SubCooling);
    set(Input::economizer, firstConditions.Eco);
    set(Input::oilCooling, firstConditions.OilCooling);
    if (kind.hasInverter) set(Input::frequency, static_cast<double>(firstConditions.InverterFrequency));
    set(Input::capacity, firstCapacity);
    set(Input::toleranceBelow, -searchRange::usualBelow);
    set(Input::toleranceAbove, searchRange::usualAbove);
    for (int machines = 1; machines <= searchRange::maxMachines; ++machines)
        for (const Input limit : {Input::minMachines, Input::maxMachines})
            at(limit).choices.push_back({std::to_string(machines), std::to_string(machines)});
    keepEconomizerValue(approachMode);
    offerRefrigerants();
    followLeaders();
}

bool SelectionInputs::has(Input input) const {
    switch (definitionOf(input).asked) {
        case Asked::inSelections:
            return !kind_.isSearch;
        case Asked::inSearch:
            return kind_.isSearch;
        case Asked::onInverter:
            return kind_.hasInverter;
        case Asked::always:
            break;
    }
    return true;
}

void SelectionInputs::set(Input input, double value) {
    at(input).number = value;
    at(input).isUnknown = false;
}

std::string SelectionInputs::caption(Input input) const {
    const InputValue& value = (*this)[input];
    for (const Choice& choice : value.choices)
        if (equalIgnoringCase(choice.key, value.key) && !choice.caption.empty()) return choice.caption;
    return value.key;
}

Quantity SelectionInputs::quantity(Input input) const {
    switch (input) {
        case Input::evaporatingPressure:
        case Input::condensingPressure:
            return Quantity::pressure;
        case Input::subcooling:
            return Quantity::temperatureDifference;
        case Input::superheat:
            return key(Input::superheatKind) == keyOf(SuperheatKind::difference)
                       ? Quantity::temperatureDifference
                       : Quantity::temperature;
        case Input::economizer:
            return key(Input::economizerMode) == capacityMode ? Quantity::power
                                                              : Quantity::temperatureDifference;
        case Input::frequency:
            return Quantity::frequency;
        case Input::capacity:
            return Quantity::power;
        case Input::toleranceBelow:
        case Input::toleranceAbove:
            return Quantity::number;
        default:
            return Quantity::temperature;
    }
}

bool SelectionInputs::isNeutral(Input input) const { return key(input) == neutralKey(input); }

bool SelectionInputs::isShown(Input input) const {
    switch (input) {
        case Input::evaporatingMid:
        case Input::condensingMid:
            return hasMidTemperatures();
        case Input::evaporatingPressure:
        case Input::condensingPressure:
            return hasOneRefrigerant();
        case Input::market:
            return has(input) && std::ranges::any_of(keys(Input::allSeries), [](const std::string& series) {
                       return !seriesTraits(series).markets.empty();
                   });
        case Input::economizer:
            return key(Input::economizerMode) != noEconomizer;
        case Input::oilCooling:
            return wholeNumber(key(Input::oilCoolingMode)) >= codeOf(OilCoolingMode::givenLimit);
        default:
            return has(input);
    }
}

std::vector<std::string> SelectionInputs::keys(Input input) const {
    std::vector<std::string> names = splitText(key(input), ';');
    std::erase(names, std::string());
    return names;
}

bool SelectionInputs::hasOneRefrigerant() const {
    return !kind_.isSearch || keys(Input::refrigerants).size() == 1;
}

bool SelectionInputs::hasMidTemperatures() const {
    return hasOneRefrigerant() && refrigerantTraits(key(Input::refrigerant)).hasMidTemperatures();
}

std::optional<Input> SelectionInputs::leaderOf(Input input) const {
    const auto couple = coupleOf(input);
    if (couple.empty()) return std::nullopt;
    return couple.front() == Input::evaporatingDew ? leaders_.evaporating() : leaders_.condensing();
}

SeriesOfMarket SelectionInputs::series() const {
    const std::string& chosen = key(Input::series);
    return kind_.hasMarkets ? seriesOfMarket(chosen) : SeriesOfMarket{chosen};
}

void SelectionInputs::offer(Input input, std::vector<Choice> choices) {
    at(input).choices = std::move(choices);
}

void SelectionInputs::translate() {
    for (const Input input : {Input::models, Input::allSeries})
        if (has(input)) at(input).choices.front().caption = dictionaryText("frmselection.models.all");
}

void SelectionInputs::offerRefrigerants() {
    if (!kind_.isSearch) {
        offer(Input::refrigerant, namesAsChoices(refrigerantsOf({.onInverter = kind_.hasInverter})));
        offerSeries();
        return;
    }
    const std::vector<std::string> names = refrigerantsOf();
    offer(Input::refrigerants, namesAsChoices(names));
    at(Input::refrigerants).key = joined(names);
    offerAllSeries();
}

// Offers the series that run on one of the refrigerants.
void SelectionInputs::offerAllSeries() {
    InputValue& series = at(Input::allSeries);
    const std::vector<std::string> refrigerants = keys(Input::refrigerants);
    series.choices = {{allKey, {}}};
    std::set<std::string> those;
    for (const ModelName& name : modelsOf({}))
        if (std::ranges::find(refrigerants, name.refrigerant) != refrigerants.end())
            those.insert(name.series);
    for (const std::string& name : seriesOf({}))
        if (those.contains(name)) series.choices.push_back({name, name});
    translate();
    std::vector<std::string> kept = keys(Input::allSeries);
    std::erase_if(kept, [&series](const std::string& name) { return !offers(series, name); });
    series.key = kept.empty() ? allKey : joined(kept);
}

// Pressures and mid temperatures are asked for while one refrigerant is chosen.
void SelectionInputs::chooseRefrigerants() {
    offerAllSeries();
    leaders_.reset();
    if (hasOneRefrigerant()) at(Input::refrigerant).key = key(Input::refrigerants);
    followLeaders();
}

// Moves the other end of the range if they cross.
void SelectionInputs::orderMachines(Input chosen) {
    if (wholeNumber(key(Input::minMachines)) <= wholeNumber(key(Input::maxMachines))) return;
    const Input other = chosen == Input::minMachines ? Input::maxMachines : Input::minMachines;
    at(other).key = key(chosen);
}

void SelectionInputs::offerSeries() {
    InputValue& series = at(Input::series);
    series.choices.clear();
    for (const std::string& name :
         seriesOf({.onInverter = kind_.hasInverter, .refrigerant = key(Input::refrigerant)})) {
        const std::vector<Choice> offered =
            kind_.hasMarkets ? seriesChoices(name) : std::vector<Choice>{{name, name}};
        series.choices.insert(series.choices.end(), offered.begin(), offered.end());
    }
    if (!offers(series, series.key)) {
        series.key = series.choices.empty() ? std::string() : series.choices.front().key;
        offerModels();
    }
    applySeriesRules();
}

void SelectionInputs::offerModels() {
    const auto [serie, market] = series();
    std::vector<std::string> names;
    for (const ModelName& name :
         modelsOf({.onInverter = kind_.hasInverter,
                   .refrigerant = key(Input::refrigerant),
                   .series = serie,
                   .market = kind_.hasMarkets ? std::optional<int>(market) : std::nullopt}))
        names.push_back(name.model);
    InputValue& models = at(Input::models);
    models.choices = namesAsChoices(names);
    models.key = neutralKey(Input::models);
    models.choices.insert(models.choices.begin(), {models.key, {}});
    translate();
}

void SelectionInputs::applySeriesRules() {
    if (!kind_.hasSeriesRules) return;
    const unsigned mask = seriesMask(key(Input::series), key(Input::refrigerant));
    for (const InputDefinition& definition : allInputs()) {
        if (!definition.selector) continue;
        at(definition.input).isEnabled = allows(mask, *definition.selector);
        const std::string neutral = neutralKey(definition.input);
        if (!at(definition.input).isEnabled && key(definition.input) != neutral)
            choose(definition.input, neutral);
    }
}

void SelectionInputs::choose(Input input, const std::string& newKey) {
    if (input == Input::economizerMode && key(input) != noEconomizer) keepEconomizerValue(key(input));
    at(input).key = newKey;
    switch (input) {
        case Input::refrigerant:
            offerSeries();
            leaders_.reset();
            followLeaders();
            break;
        case Input::series:
            offerModels();
            applySeriesRules();
            break;
        case Input::economizerMode:
            if (newKey != noEconomizer) set(Input::economizer, economizerValues_.valueOf(newKey, units_));
            break;
        case Input::superheatKind:
            limitSuperheat();
            break;
        case Input::refrigerants:
            chooseRefrigerants();
            break;
        case Input::minMachines:
        case Input::maxMachines:
            orderMachines(input);
            break;
        default:
            break;
    }
}

void SelectionInputs::type(Input input, std::optional<double> value) {
    at(input).number = value;
    at(input).isUnknown = false;
    at(input).refusal.reset();
    if (!value) return;
    // A parameter set writes it before there is a mode; it is an approach then.
    if (input == Input::economizer)
        keepEconomizerValue(isShown(input) ? key(Input::economizerMode) : approachMode);
    if (const auto couple = coupleOf(input); !couple.empty()) {
        leaders_.typed(input);
        synchronize(input);
        if (couple.front() == Input::evaporatingDew) return;
    } else if (input != Input::subcooling) {
        return;
    }
    // The evaporating mid temperature depends on the liquid.
    if (hasMidTemperatures()) synchronize(leaders_.evaporatingTemperature());
}

void SelectionInputs::settle(Input input, double value) {
    const std::string& mode = key(Input::economizerMode);
    const bool hasNoSign = input == Input::subcooling || input == Input::toleranceAbove ||
                           (input == Input::economizer && (mode == approachMode || mode == capacityMode));
    const bool isBelow = input == Input::toleranceBelow;
    set(input, isBelow ? -std::abs(value) : hasNoSign ? std::abs(value) : value);
    if (input == Input::economizer && isShown(input)) keepEconomizerValue(mode);
}

void SelectionInputs::change(Input input, double value) {
    const double evaporating = number(Input::evaporatingDew);
    type(input, value);
    if (input != Input::evaporatingDew && number(Input::evaporatingDew) != evaporating)
        type(Input::evaporatingDew, evaporating);
}

void SelectionInputs::follow(Input input) {
    synchronize(input == Input::subcooling ? Input::evaporatingDew : input);
}

void SelectionInputs::synchronize(Input leader) {
    struct Entry {
        Input input;
        double CoupledFields::* value;
    };
    constexpr std::array entries{Entry{Input::evaporatingDew, &CoupledFields::TED},
                                 Entry{Input::evaporatingMid, &CoupledFields::TEM},
                                 Entry{Input::evaporatingPressure, &CoupledFields::PE},
                                 Entry{Input::condensingDew, &CoupledFields::TCD},
                                 Entry{Input::condensingMid, &CoupledFields::TCM},
                                 Entry{Input::condensingPressure, &CoupledFields::PC},
                                 Entry{Input::subcooling, &CoupledFields::SC}};
    if (!hasOneRefrigerant()) {
        refuse(leader, std::nullopt);
        return;
    }
    CoupledFields fields;
    for (const auto& [input, value] : entries)
        fields.*value = conversionOf(quantity(input))(number(input), units_, UnitSystem::metric);
    const CoupledFields before = fields;
    const std::string& refrigerant = key(Input::refrigerant);
    std::optional<Refusal> refusal;
    {
        const CollectedBoxes said;  // a key stroke opens no box; the field says it
        try {
            clsRefprop& refprop = GetRefprop(refrigerant);
            if (!refprop.SetupFault().empty()) {
                refusal = Refusal{.sentence = refprop.SetupFault()};
            } else {
                SyncTemperatureFields(nameInCouple(leader), fields, refrigerant, refprop, gPolynomialTEM(),
                                      gPolynomialTCM());
                if (!said.boxes().empty()) refusal = Refusal{.saturation = refprop.DewRange()};
            }
        } catch (const std::exception& error) {
            refusal = Refusal{.sentence = error.what()};
        }
    }
    refuse(leader, refusal);
    if (refusal) return;
    for (const auto& [input, value] : entries)
        if (fields.*value != before.*value || at(input).isUnknown)
            set(input, conversionOf(quantity(input))(fields.*value, UnitSystem::metric, units_));
}

void SelectionInputs::refuse(Input leader, std::optional<Refusal> refusal) {
    for (const Input member : coupleOf(leader)) {
        InputValue& value = at(member);
        value.refusal.reset();
        if (!refusal) continue;
        if (member == leader) {
            value.refusal = refusal;
        } else {
            value.number.reset();
            value.isUnknown = true;
        }
    }
}

void SelectionInputs::followLeaders() {
    synchronize(leaders_.condensing());
    synchronize(leaders_.evaporating());
}

SuperheatRange SelectionInputs::superheatRange() const {
    // Of several refrigerants the narrowest range, which most have.
    return marvello::superheatRange(hasOneRefrigerant() ? key(Input::refrigerant) : std::string(), units_,
                                    quantity(Input::superheat) == Quantity::temperatureDifference,
                                    number(Input::evaporatingDew));
}

bool SelectionInputs::limitSuperheat() {
    const double asked = number(Input::superheat);
    const double permitted = permittedSuperheat(asked, superheatRange());
    if (permitted == asked) return false;
    set(Input::superheat, permitted);
    return true;
}

bool SelectionInputs::prepareRun() {
    if (kind_.hasInverter)
        set(Input::frequency, std::clamp(number(Input::frequency), clsInverter::minimumFrequency,
                                         clsInverter::maximumFrequency));
    set(Input::subcooling, std::abs(number(Input::subcooling)));
    return limitSuperheat();
}

std::optional<SelectionInputs::Bounds> SelectionInputs::exceededBounds(Input input) const {
    Bounds bounds{};
    if (input == Input::superheat) {
        const SuperheatRange range = superheatRange();
        bounds = {range.low, range.high};
    } else if (input == Input::frequency) {
        bounds = {clsInverter::minimumFrequency, clsInverter::maximumFrequency};
    } else if (input == Input::capacity) {
        bounds = {searchRange::minCapacity, searchRange::maxCapacity};
    } else if (input == Input::toleranceBelow) {
        bounds = {-searchRange::maxBelow, 0};
    } else if (input == Input::toleranceAbove) {
        bounds = {0, searchRange::maxAbove};
    } else {
        return std::nullopt;
    }
    const std::optional<double>& value = (*this)[input].number;
    return value && (*value < bounds.low || *value > bounds.high) ? std::optional(bounds) : std::nullopt;
}

bool SelectionInputs::temperaturesCross() const {
    const std::optional<double>& evaporating = (*this)[Input::evaporatingDew].number;
    const std::optional<double>& condensing = (*this)[Input::condensingDew].number;
    return evaporating && condensing && *evaporating > *condensing;
}

// Kept: the capacity of an economizer follows the rule of its quantity, which converts it as a difference.
UnitRule SelectionInputs::conversionFor(Input input) const {
    return input == Input::capacity ? convertedCapacity : conversionOf(quantity(input));
}

void SelectionInputs::setUnits(UnitSystem units) {
    if (units == units_) return;
    for (const InputDefinition& definition : allInputs()) {
        InputValue& value = at(definition.input);
        const UnitRule rule = conversionFor(definition.input);
        if (rule && value.number)
            value.number = entered_[static_cast<std::size_t>(definition.input)].shownIn(units, *value.number,
                                                                                        units_, rule);
    }
    units_ = units;
}

std::shared_ptr<const clsProjectConditions> SelectionInputs::conditions() const {
    const auto metric = [this](Input input) {
        return conversionOf(quantity(input))(number(input), units_, UnitSystem::metric);
    };
    const std::string& supply = key(Input::motorVoltage);  // such as 400_50
    auto result = std::make_shared<clsProjectConditions>();
    result->TEvaporatingDew = metric(Input::evaporatingDew);
    result->TCondensationDew = metric(Input::condensingDew);
    result->SuperHeatType = modeOf<SuperheatKind>(key(Input::superheatKind));
    result->SuperHeat = metric(Input::superheat);
    result->SubCooling = metric(Input::subcooling);
    result->MotorSize = modeOf<MotorChoice>(key(Input::motorSize));
    result->MotorVoltage = storedNumber(supply.substr(0, 3)).value_or(0);
    result->MotorHz = wholeNumber(supply.substr(supply.size() - std::min<std::size_t>(2, supply.size())));
    result->MotorRPM = wholeNumber(key(Input::motorSpeed));
    result->EcoCalculateMode = modeOf<EconomizerMode>(key(Input::economizerMode));
    result->Eco = metric(Input::economizer);
    result->OilCoolingCalculateMode = modeOf<OilCoolingMode>(key(Input::oilCoolingMode));
    result->OilCooling = metric(Input::oilCooling);
    if (kind_.hasInverter) result->InverterFrequency = static_cast<float>(number(Input::frequency));
    result->StepCapacity = wholeNumber(key(Input::capacityStep));
    return result;
}

InputState SelectionInputs::state() const {
    InputState state{.units = units_, .keys = {}, .values = {}, .leaders = leaders_};
    for (const InputDefinition& definition : allInputs()) {
        const InputValue& value = (*this)[definition.input];
        const bool isOnlyRefrigerant = definition.input == Input::refrigerant && hasOneRefrigerant();
        if (!has(definition.input) && !isOnlyRefrigerant) continue;
        if (definition.isChoice)
            state.keys[std::string(definition.name)] = value.key;
        else if (value.number)
            state.values[std::string(definition.name)] = *value.number;
    }
    for (const std::string& mode : {approachMode, capacityMode})
        state.values[economizerEntry(mode)] = economizerValues_.valueOf(mode, units_);
    return state;
}

void SelectionInputs::takeOverChoices(const InputState& state) {
    // In their order: a refrigerant offers its series, a series its models and its selectors. What the
    // catalogue does not offer any more is left as it is.
    for (const InputDefinition& definition : allInputs()) {
        const auto kept = state.keys.find(std::string(definition.name));
        const InputValue& value = (*this)[definition.input];
        if (!definition.isChoice || !has(definition.input) || !value.isEnabled || kept == state.keys.end())
            continue;
        if (kept->second != value.key && offersAll(value, kept->second))
            choose(definition.input, kept->second);
    }
}

void SelectionInputs::takeOver(const InputState& state) {
    if (state.isEmpty()) return;
    const UnitSystem shown = units_;
    setUnits(state.units);
    takeOverChoices(state);
    for (const InputDefinition& definition : allInputs())
        if (const auto kept = state.values.find(std::string(definition.name));
            kept != state.values.end() && has(definition.input))
            set(definition.input, kept->second);
    if (isShown(Input::economizer)) keepEconomizerValue(key(Input::economizerMode));
    for (const std::string& mode : {approachMode, capacityMode})
        if (const auto kept = state.values.find(economizerEntry(mode)); kept != state.values.end()) {
            economizerValues_.keep(mode, kept->second, units_);
            if (mode == key(Input::economizerMode)) set(Input::economizer, kept->second);
        }
    // What another refrigerant has at the same pressure is another operating point.
    const auto fluid = state.keys.find(std::string(definitionOf(Input::refrigerant).name));
    const bool isSameFluid =
        fluid != state.keys.end() && fluid->second == key(Input::refrigerant) && hasOneRefrigerant();
    leaders_ = isSameFluid ? state.leaders : CoupleLeaders();
    followLeaders();
    setUnits(shown);
    limitSuperheat();
}

void SelectionInputs::keepEconomizerValue(const std::string& mode) {
    economizerValues_.keep(mode, number(Input::economizer), units_);
}

}  // namespace marvello
