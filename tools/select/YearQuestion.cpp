#include "tools/select/YearQuestion.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "data/FileText.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "engine/PlantText.h"
#include "engine/YearLimits.h"
#include "tools/select/Run.h"
#include "tools/select/WordOf.h"

namespace marvello::select {

namespace {

constexpr Range rangeOf(const YearLimit& limit, const char* unit) {
    return {limit.minimum, limit.maximum, unit};
}
constexpr Range designLoads = rangeOf(yearLimits::designLoad, "kW");
constexpr Range prices = rangeOf(yearLimits::price, "for a kWh");
constexpr Range grids = rangeOf(yearLimits::grid, "kg CO2e/kWh");
constexpr Range charges = rangeOf(yearLimits::charge, "kg");
constexpr Range percents = rangeOf(yearLimits::percent, "%");
constexpr Range lives = rangeOf(yearLimits::life, "years");

constexpr std::array options = {
    YearOption{"machines", "machines in the order of the sequence, such as \"TK-A-120x2;TK-D-140\"",
               [](YearQuestion& q, const std::string& text) { q.machines = text; }},
    YearOption{"profile",
               "load profile: eu-mt, eu-lt, eu-chiller, flat, or a CSV file with the columns outdoor, hours "
               "and load",
               [](YearQuestion& q, const std::string& text) { q.profile = trimmed(text); }},
    YearOption{
        "design-load", "cooling capacity at a load of 1, kW",
        [](YearQuestion& q, const std::string& text) { q.year.designLoad = numberIn(text, designLoads); }},
    YearOption{
        "ted",
        "evaporating dew temperature, degrees Celsius, or a table over the outdoor temperature such as "
        "\"-10:-8;30:-12\" (that of the profile)",
        [](YearQuestion& q, const std::string& text) {
            q.year.evaporating = asRequest([&] { return evaporatingRuleOf(text); });
        }},
    YearOption{"condensing",
               "condensing dew temperature: \"outdoor+12,min 25\", also \",scaled\" with the load, or a "
               "fixed one",
               [](YearQuestion& q, const std::string& text) {
                   q.year.condensing = asRequest([&] { return condensingRuleOf(text); });
               }},
    YearOption{"staging", "how machines share a load: power, the least one, or sequence (power)",
               [](YearQuestion& q, const std::string& text) {
                   q.year.staging = wordOf(text, std::array{std::pair{"power", Staging::power},
                                                            std::pair{"sequence", Staging::sequence}});
               }},
    YearOption{"degradation",
               "what intermittent running costs: none, condensing-unit or chiller, with a coefficient as in "
               "condensing-unit:0.25 (that of the profile)",
               [](YearQuestion& q, const std::string& text) {
                   q.degradation = asRequest([&] { return degradationOf(text); });
               }},
    YearOption{"price", "price of a kWh, in any currency",
               [](YearQuestion& q, const std::string& text) { q.price = numberIn(text, prices); }},
    YearOption{"grid", "emissions of electricity: kg CO2e/kWh, or a region such as DE (WORLD)",
               [](YearQuestion& q, const std::string& text) { q.grid = trimmed(text); }},
    YearOption{
        "charge", "refrigerant charge, kg",
        [](YearQuestion& q, const std::string& text) { q.emissions.charge = numberIn(text, charges); }},
    YearOption{
        "leakage", "refrigerant lost in a year, percent of the charge (10)",
        [](YearQuestion& q, const std::string& text) { q.emissions.leakage = numberIn(text, percents); }},
    YearOption{
        "recovery", "refrigerant recovered at the end, percent of the charge (90)",
        [](YearQuestion& q, const std::string& text) { q.emissions.recovery = numberIn(text, percents); }},
    YearOption{"years", "years of life (15)",
               [](YearQuestion& q, const std::string& text) { q.emissions.years = numberIn(text, lives); }},
    YearOption{"gwp", "assessment report of the GWP: ar4, ar5 or ar6 (ar4)",
               [](YearQuestion& q, const std::string& text) {
                   q.gwp = wordOf(text,
                                  std::array{std::pair{"ar4", GwpBasis::ar4}, std::pair{"ar5", GwpBasis::ar5},
                                             std::pair{"ar6", GwpBasis::ar6}});
               }},
    YearOption{"format", "table, csv or json (table)",
               [](YearQuestion& q, const std::string& text) {
                   q.format = wordOf(text, std::array{std::pair{"table", YearFormat::table},
                                                      std::pair{"csv", YearFormat::csv},
                                                      std::pair{"json", YearFormat::json}});
               }},
};

void readMachines(YearQuestion& question, const PreparedCatalogue& catalogue) {
    using Reason = PlantTextFault::Reason;
    try {
        const Plant plant = plantIn(question.machines, catalogue, question.request.refrigerant);
        question.year.machines = plant.machines;
        question.request.refrigerant = plant.refrigerant();
    } catch (const PlantTextFault& fault) {
        if (fault.reason == Reason::unknownCompressor) throw NothingMatches(fault.what());
        if (fault.reason == Reason::noMachine) throw BadRequest("machines is missing");
        const bool isWhole = fault.reason == Reason::severalInverters;
        throw BadRequest((isWhole ? "" : "machines: ") + std::string(fault.what()));
    }
}

void readProfile(YearQuestion& question, const std::filesystem::path& applicationFolder) {
    std::vector<std::string> names;
    for (ShippedProfile& profile : shippedProfiles(applicationFolder)) {
        names.push_back(profile.name);
        if (!equalIgnoringCase(profile.name, question.profile)) continue;
        question.chosen = std::move(profile);
        return;
    }
    const std::optional<std::string> text = fileText(question.profile);
    if (!text)
        throw BadRequest(notOneOf("profile", question.profile, names) +
                         ", and there is no such file that can be read");
    question.chosen = {.name = question.profile,
                       .title = question.profile,
                       .source = {},
                       .profile = loadProfileIn(*text, question.profile),
                       .rule = {}};
}

void readGrid(YearQuestion& question, const std::filesystem::path& applicationFolder) {
    if (storedNumber(question.grid)) {
        try {
            question.emissions.grid = numberIn(question.grid, grids);
        } catch (const BadRequest& fault) {
            throw BadRequest(std::string("grid: ") + fault.what());
        }
        return;
    }
    std::vector<std::string> regions;
    for (const GridIntensity& grid : gridIntensities(applicationFolder)) {
        regions.push_back(grid.region);
        if (!question.grid.empty() && !equalIgnoringCase(grid.region, question.grid)) continue;
        question.emissions.grid = grid.intensity;
        question.gridSource =
            grid.region + ", " + std::to_string(grid.year) + ", " + grid.basis + "; " + grid.source;
        return;
    }
    throw BadRequest(notOneOf("grid", question.grid, regions) + ", and no number of kg CO2e/kWh");
}

void readEmissions(YearQuestion& question, const RefrigerantFacts& facts) {
    question.emissions.gwp = gwpOf(facts, question.gwp);
    if (!question.emissions.charge || question.emissions.gwp) return;
    std::string known;
    for (const GwpBasis basis : {GwpBasis::ar4, GwpBasis::ar5, GwpBasis::ar6})
        if (gwpOf(facts, basis)) known += (known.empty() ? "" : ", ") + lowered(marvello::nameOf(basis));
    throw BadRequest("gwp: " + question.request.refrigerant + " has no figure by " +
                     std::string(marvello::nameOf(question.gwp)) +
                     (known.empty() ? "; leave --charge out" : "; it has one by " + known));
}

/// Each evaporating temperature against the refrigerant.
void checkEvaporating(const YearQuestion& question) {
    const SaturationRange range = saturationRange(question.request.refrigerant);
    Request point = question.request;
    for (const EvaporatingRule::Point& each : question.year.evaporating.points) {
        point.conditions.TEvaporatingDew = each.evaporating;
        point.conditions.TCondensationDew = each.evaporating;  // so that it alone can be at fault
        checkConditions(point.conditions);
        checkTemperatures(point, range);
    }
}

}  // namespace

std::span<const YearOption> yearOptions() { return options; }

bool isYearOption(const RequestOption& option) {
    constexpr std::array<std::string_view, 7> others{"series", "models",    "ted",   "tcd",
                                                     "step",   "frequency", "market"};
    return std::ranges::find(others, option.name) == others.end();
}

void readOption(YearQuestion& question, const YearOption& option, const std::string& text) {
    try {
        option.read(question, text);
    } catch (const BadRequest& fault) {
        throw BadRequest(std::string(option.name) + ": " + fault.what());
    }
}

void complete(YearQuestion& question, const PreparedCatalogue& catalogue,
              const std::filesystem::path& applicationFolder) {
    const auto need = [](bool given, const char* name) {
        if (!given) throw BadRequest(std::string(name) + " is missing");
    };
    YearRequest& year = question.year;
    need(!question.request.refrigerant.empty(), "refrigerant");
    need(!question.machines.empty(), "machines");
    need(!question.profile.empty(), "profile");
    need(year.designLoad > 0, "design-load");
    need(year.condensing.difference || year.condensing.minimum, "condensing");
    checkNames({question.request.refrigerant}, {});
    readMachines(question, catalogue);
    readProfile(question, applicationFolder);
    const auto& rule = question.chosen.rule;
    year.profile = question.chosen.profile;
    year.degradation = question.degradation.value_or(rule ? rule->degradation : Degradation{});
    if (year.evaporating.points.empty() && rule && rule->evaporating)
        year.evaporating.points = {{.outdoor = 0, .evaporating = *rule->evaporating}};
    need(!year.evaporating.points.empty(), "ted");
    checkEvaporating(question);
    year.conditions = question.request.conditions;
    readGrid(question, applicationFolder);
    readEmissions(question, catalogue.factsOf(question.request.refrigerant));
}

}  // namespace marvello::select
