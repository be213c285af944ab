#include "workspace/YearInputs.h"

#include <QLocale>
#include <algorithm>
#include <array>
#include <exception>
#include <stdexcept>

#include "controls/CoreText.h"
#include "controls/NumberText.h"
#include "data/Session.h"
#include "engine/YearLimits.h"
#include "results/YearEntries.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// A number that is kept under a name.
struct KeptNumber {
    const char* name;
    double YearInputs::* value;
    YearLimit limit;
};
constexpr std::array keptNumbers{
    KeptNumber{"designLoad", &YearInputs::designLoad, yearLimits::designLoad},
    KeptNumber{"difference", &YearInputs::difference, yearLimits::condensingDifference},
    KeptNumber{"minimum", &YearInputs::minimum, yearLimits::condensingTemperature},
    KeptNumber{"fixedCondensing", &YearInputs::fixedCondensing, yearLimits::condensingTemperature},
    KeptNumber{"coefficient", &YearInputs::coefficient, yearLimits::degradation},
    KeptNumber{"price", &YearInputs::price, yearLimits::price},
    KeptNumber{"grid", &YearInputs::grid, yearLimits::grid},
    KeptNumber{"charge", &YearInputs::charge, yearLimits::charge},
    KeptNumber{"leakage", &YearInputs::leakage, yearLimits::percent},
    KeptNumber{"recovery", &YearInputs::recovery, yearLimits::percent},
    KeptNumber{"years", &YearInputs::years, yearLimits::life}};

/// A choice that is kept as its number, up to the last one.
template <class Choice>
void takeChoice(Choice& choice, double number, Choice last) {
    if (number >= 0 && number <= static_cast<double>(last)) choice = static_cast<Choice>(number);
}

void takeKeptProfile(YearInputs& inputs, const YearTables& tables, const QHash<QString, QString>& texts) {
    const std::string name = toCore(texts.value(QStringLiteral("profile")));
    const std::string bins = toCore(settings::yearBins.value());
    if (const ShippedProfile* const shipped = profileOf(tables, name)) takeProfile(inputs, *shipped);
    if (bins.empty()) return;
    try {
        inputs.load = loadProfileIn(bins, {});
    } catch (const LoadProfileFault&) {
        return;  // was changed by hand
    }
    inputs.profile.clear();
    inputs.profileName = texts.value(QStringLiteral("profileName"));
    dropRule(inputs);
    if (const auto* const ruling = profileOf(tables, toCore(texts.value(QStringLiteral("ruleOf"))))) {
        inputs.rule = ruling->rule;
        inputs.ruleOf = ruling->name;
    }
}

}  // namespace

Degradation YearInputs::usedDegradation() const {
    if (degradation) return {*degradation, coefficient};
    return rule ? rule->degradation : Degradation{};
}

YearTerms YearInputs::terms() const {
    YearTerms terms{.profile = load,
                    .rule = profile.empty() ? std::nullopt : rule,
                    .designLoad = designLoad,
                    .evaporating = evaporating,
                    .staging = staging,
                    .degradation = usedDegradation(),
                    .gwp = gwp};
    if (condensing == Condensing::fixed)
        terms.condensing.minimum = fixedCondensing;
    else
        terms.condensing = {
            .difference = difference, .minimum = minimum, .isScaled = condensing == Condensing::scaled};
    if (price > 0) terms.price = price;
    terms.emissions = {
        .charge = {}, .gwp = {}, .leakage = leakage, .recovery = recovery, .years = years, .grid = grid};
    if (charge > 0) terms.emissions.charge = charge;
    return terms;
}

YearTables yearTables() {
    YearTables tables;
    try {
        tables.profiles = shippedProfiles(Session::current().applicationFolder);
        tables.grids = gridIntensities(Session::current().applicationFolder);
    } catch (const std::exception& fault) {
        tables.fault = fromCore(fault.what());
    }
    return tables;
}

const ShippedProfile* profileOf(const YearTables& tables, const std::string& name) {
    const auto found = std::ranges::find(tables.profiles, name, &ShippedProfile::name);
    return found == tables.profiles.end() ? nullptr : &*found;
}

const GridIntensity* gridOf(const YearTables& tables, const std::string& region) {
    const auto found = std::ranges::find(tables.grids, region, &GridIntensity::region);
    return found == tables.grids.end() ? nullptr : &*found;
}

void dropRule(YearInputs& inputs) {
    inputs.rule.reset();
    inputs.ruleOf.clear();
}

void takeProfile(YearInputs& inputs, const ShippedProfile& profile) {
    inputs.profile = profile.name;
    inputs.profileName.clear();
    inputs.load = profile.profile;
    inputs.rule = profile.rule;
    inputs.ruleOf = profile.rule ? profile.name : std::string();
    if (profile.rule && profile.rule->evaporating)
        inputs.evaporating.points = {{.outdoor = 0, .evaporating = *profile.rule->evaporating}};
}

void takeRegion(YearInputs& inputs, const GridIntensity& grid) {
    inputs.region = grid.region;
    inputs.grid = grid.intensity;
}

YearInputs firstYearInputs(const YearTables& tables) {
    YearInputs inputs;
    inputs.evaporating.points = {{.outdoor = 0, .evaporating = -10}};
    inputs.currency = QLocale::system().currencySymbol();
    if (!tables.profiles.empty()) takeProfile(inputs, tables.profiles.front());
    if (!tables.grids.empty()) takeRegion(inputs, tables.grids.front());
    return inputs;
}

YearInputs keptYearInputs(const YearTables& tables) {
    YearInputs inputs = firstYearInputs(tables);
    const QHash<QString, double> numbers = settings::yearNumbers.value();
    const QHash<QString, QString> texts = settings::yearTexts.value();
    if (texts.isEmpty()) return inputs;
    takeKeptProfile(inputs, tables, texts);
    for (const KeptNumber& kept : keptNumbers) {
        const double value = numbers.value(QLatin1String(kept.name), inputs.*kept.value);
        if (kept.limit.holds(value)) inputs.*kept.value = value;
    }
    const auto number = [&](const char* name) { return numbers.value(QLatin1String(name), -1); };
    takeChoice(inputs.condensing, number("condensing"), YearInputs::Condensing::fixed);
    takeChoice(inputs.staging, number("staging"), Staging::sequence);
    takeChoice(inputs.gwp, number("gwp"), GwpBasis::ar6);
    if (Degradation::Form form{}; number("degradation") >= 0) {
        takeChoice(form, number("degradation"), Degradation::Form::chiller);
        inputs.degradation = form;
    }
    inputs.currency = texts.value(QStringLiteral("currency"), inputs.currency);
    inputs.region = toCore(texts.value(QStringLiteral("region")));
    if (const GridIntensity* grid = gridOf(tables, inputs.region)) takeRegion(inputs, *grid);
    try {
        inputs.evaporating = evaporatingRuleOf(toCore(texts.value(QStringLiteral("evaporating"))));
    } catch (const std::invalid_argument&) {
        // that of the profile
    }
    return inputs;
}

void keepYearInputs(const YearInputs& inputs) {
    QHash<QString, double> numbers;
    for (const KeptNumber& kept : keptNumbers) numbers[QLatin1String(kept.name)] = inputs.*kept.value;
    numbers[QStringLiteral("condensing")] = static_cast<double>(inputs.condensing);
    numbers[QStringLiteral("staging")] = static_cast<double>(inputs.staging);
    numbers[QStringLiteral("gwp")] = static_cast<double>(inputs.gwp);
    if (inputs.degradation) numbers[QStringLiteral("degradation")] = static_cast<double>(*inputs.degradation);
    const QHash<QString, QString> texts{{QStringLiteral("profile"), fromCore(inputs.profile)},
                                        {QStringLiteral("profileName"), inputs.profileName},
                                        {QStringLiteral("ruleOf"), fromCore(inputs.ruleOf)},
                                        {QStringLiteral("evaporating"), fromCore(textOf(inputs.evaporating))},
                                        {QStringLiteral("currency"), inputs.currency},
                                        {QStringLiteral("region"), fromCore(inputs.region)}};
    QSettings store = userSettings();
    settings::yearNumbers.keep(numbers, store);
    settings::yearTexts.keep(texts, store);
    settings::yearBins.keep(inputs.profile.empty() ? fromCore(binsText(inputs.load.bins)) : QString(), store);
}

YearStyle styleOf(const YearInputs& inputs, const YearTables& tables, UnitSystem units) {
    YearStyle style{.units = units,
                    .marks = marksOf(QLocale()),
                    .currency = toCore(inputs.currency.trimmed()),
                    .profile = toCore(profileTitle(inputs))};
    if (const ShippedProfile* shipped = profileOf(tables, inputs.profile))
        style.profileSource = shipped->source;
    if (const GridIntensity* grid = gridOf(tables, inputs.region))
        style.gridSource = grid->region + ", " + std::to_string(grid->year) + ", " + grid->basis;
    return style;
}

QString profileTitle(const ShippedProfile& profile) {
    const QString title = dictionaryTextIfAny(QStringLiteral("frmyear.profile.") + fromCore(profile.name));
    return title.isEmpty() ? fromCore(profile.title) : title;
}

QString profileTitle(const YearInputs& inputs) {
    if (!inputs.profile.empty())
        return profileTitle(ShippedProfile{
            .name = inputs.profile, .title = inputs.profile, .source = {}, .profile = {}, .rule = {}});
    return inputs.profileName.isEmpty() ? dictionaryText(QStringLiteral("frmyear.profile.own"))
                                        : inputs.profileName;
}

}  // namespace marvello
