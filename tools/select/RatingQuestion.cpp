#include "tools/select/RatingQuestion.h"

#include <algorithm>
#include <array>
#include <utility>

#include "data/Numbers.h"
#include "data/Texts.h"
#include "results/PerformanceRows.h"
#include "tools/select/NumberList.h"
#include "tools/select/WordOf.h"

namespace marvello::select {

namespace {

constexpr Range temperatures{-200, 400, "degrees Celsius"};

void readQuantity(RatingQuestion& question, const std::string& text) {
    std::vector<std::string> names;
    for (const PerformanceColumn& column : performanceColumns(true)) {
        names.emplace_back(column.name);
        if (equalIgnoringCase(trimmed(text), column.name)) question.quantity = column.name;
    }
    std::string allowed;
    for (const std::string& name : names) allowed += (allowed.empty() ? "" : ", ") + name;
    if (question.quantity.empty()) throw BadRequest("\"" + text + "\" is not one of " + allowed);
}

constexpr std::array options = {
    RatingOption{"ted", "evaporating dew temperatures, degrees Celsius: -20:10:5, \"2;5\" or 2",
                 [](RatingQuestion& q, const std::string& text) { q.teds = temperaturesIn(text); }},
    RatingOption{"tcd", "condensing dew temperatures likewise",
                 [](RatingQuestion& q, const std::string& text) { q.tcds = temperaturesIn(text); }},
    RatingOption{"quantity",
                 "only this one: capacity, power, cop, current, massFlow, dischargeTemperature, capacityEco, "
                 "powerEco or copEco (all)",
                 readQuantity},
    RatingOption{"coefficients", "ten coefficients in place of a table: ahri540, en12900 or energyplus",
                 [](RatingQuestion& q, const std::string& text) {
                     q.coefficients =
                         wordOf(text, std::array{std::pair{"ahri540", CoefficientForm::ahri540},
                                                 std::pair{"en12900", CoefficientForm::en12900},
                                                 std::pair{"energyplus", CoefficientForm::energyPlus}});
                 }},
    RatingOption{"rating",
                 "conditions of coefficients: own (10 K superheat, 5 K subcooling), en12900 (10 K, 0 K) or "
                 "form, as stated (own; en12900 for that form)",
                 [](RatingQuestion& q, const std::string& text) {
                     q.rating = wordOf(text, std::array{std::pair{"own", RatingConditions::own},
                                                        std::pair{"en12900", RatingConditions::en12900},
                                                        std::pair{"form", RatingConditions::form}});
                 }},
    RatingOption{"units", "units of coefficients: si or, for ahri540, ip (si)",
                 [](RatingQuestion& q, const std::string& text) {
                     q.units = wordOf(text, std::array{std::pair{"si", CoefficientUnits::si},
                                                       std::pair{"ip", CoefficientUnits::ip}});
                 }},
    RatingOption{
        "format", "table, csv or json; of coefficients csv or json, for energyplus idf (the first one)",
        [](RatingQuestion& q, const std::string& text) {
            q.format = wordOf(
                text, std::array{std::pair{"table", RatingFormat::table}, std::pair{"csv", RatingFormat::csv},
                                 std::pair{"json", RatingFormat::json}, std::pair{"idf", RatingFormat::idf}});
        }},
};

void completeTable(RatingQuestion& question) {
    if (question.teds.empty()) throw BadRequest("ted is missing");
    if (question.tcds.empty()) throw BadRequest("tcd is missing");
    if (question.teds.size() * question.tcds.size() > maxListed)
        throw BadRequest("ted, tcd: more than " + std::to_string(maxListed) +
                         " points; take larger steps or several runs");
    if (question.rating) throw BadRequest("rating: only coefficients have rating conditions");
    if (question.units) throw BadRequest("units: only coefficients have other units than kW, A, kg/h and C");
    if (!question.format) question.format = RatingFormat::table;
    if (*question.format == RatingFormat::idf) throw BadRequest("format: a table has table, csv and json");
}

void completeCoefficients(RatingQuestion& question) {
    const CoefficientForm form = *question.coefficients;
    const bool isEnergyPlus = form == CoefficientForm::energyPlus;
    if (!question.quantity.empty()) throw BadRequest("quantity: coefficients are written for all quantities");
    if (!question.rating)
        question.rating =
            form == CoefficientForm::en12900 ? RatingConditions::en12900 : RatingConditions::own;
    if (!question.units) question.units = CoefficientUnits::si;
    if (*question.units == CoefficientUnits::ip && form != CoefficientForm::ahri540)
        throw BadRequest("units: " + std::string(titleOf(form)) + " has si alone; ahri540 has both");
    if (!question.format) question.format = isEnergyPlus ? RatingFormat::idf : RatingFormat::csv;
    if ((*question.format == RatingFormat::idf) != isEnergyPlus || *question.format == RatingFormat::table)
        throw BadRequest(isEnergyPlus ? "format: energyplus has idf alone"
                                      : "format: coefficients have csv and json");
}

}  // namespace

std::span<const RatingOption> ratingOptions() { return options; }

bool isRatingOption(const RequestOption& option) {
    constexpr std::array<std::string_view, 3> others{"ted", "tcd", "market"};
    return std::ranges::find(others, option.name) == others.end();
}

void readOption(RatingQuestion& question, const RatingOption& option, const std::string& text) {
    try {
        option.read(question, text);
    } catch (const BadRequest& fault) {
        throw BadRequest(std::string(option.name) + ": " + fault.what());
    }
}

std::vector<double> temperaturesIn(const std::string& text) {
    return numbersIn(text, temperatures, "temperature");
}

void complete(RatingQuestion& question) {
    if (question.coefficients)
        completeCoefficients(question);
    else
        completeTable(question);
    // Coefficients are calculated all over the envelope; these only say that there is a point.
    question.request.conditions.TEvaporatingDew = question.teds.empty() ? 0 : question.teds.front();
    question.request.conditions.TCondensationDew = question.tcds.empty() ? 0 : question.tcds.front();
}

}  // namespace marvello::select
