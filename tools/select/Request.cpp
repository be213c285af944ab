#include "tools/select/Request.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>

#include "catalogue/clsInverter.h"
#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello::select {

namespace {

using Conditions = clsProjectConditions;

// What the rules of the engine judge is wider than what the forms offer; these bounds keep out what can be no
// operating point at all.
constexpr Range superheat{0, 100, "K"};
constexpr Range suctionTemperature{-100, 200, "degrees Celsius"};
constexpr Range subcooling{0, 100, "K"};
constexpr Range approach{0, 100, "K"};
constexpr Range economizerPower{0, 100000, "kW"};
constexpr Range dischargeLimit{0, 200, "degrees Celsius"};
constexpr Range inverterFrequency{clsInverter::minimumFrequency, clsInverter::maximumFrequency, "Hz"};

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

std::string rangeText(const Range& range) {
    const auto text = [](double value) { return formatNumber(value, "#0.##"); };
    return text(range.minimum) + " to " + text(range.maximum) + " " + range.unit;
}

std::string wordOf(const std::string& word) { return word; }
std::string wordOf(int number) { return std::to_string(number); }

template <class Values>
std::string listText(const Values& values) {
    std::string list;
    for (const auto& value : values) list += (list.empty() ? "" : ", ") + wordOf(value);
    return list;
}

double number(const std::string& text) {
    const auto value = storedNumber(text);
    if (!value) throw BadRequest(quoted(text) + " is not a number such as 2.5");
    return *value;
}

void checkRange(const std::string& text, double value, const Range& range) {
    if (value < range.minimum || value > range.maximum)
        throw BadRequest(quoted(text) + " is outside the range of " + rangeText(range));
}

template <auto member>
void readReal(Request& request, const std::string& text, const Choices&) {
    request.conditions.*member = number(text);
}

template <auto member, const Range& range>
void readInRange(Request& request, const std::string& text, const Choices&) {
    auto& target = request.conditions.*member;
    target = static_cast<std::remove_reference_t<decltype(target)>>(numberIn(text, range));
}

template <class Allowed>
int oneOf(const std::string& text, const Allowed& allowed) {
    const auto value = storedNumber(text);
    const auto found = std::ranges::find_if(allowed, [&](int each) { return value && *value == each; });
    if (found == std::end(allowed)) throw BadRequest(quoted(text) + " is not one of " + listText(allowed));
    return *found;
}

template <auto member, auto list>
void readChoice(Request& request, const std::string& text, const Choices& choices) {
    auto& target = request.conditions.*member;
    target = static_cast<std::remove_reference_t<decltype(target)>>(oneOf(text, choices.*list));
}

void readStep(Request& request, const std::string& text, const Choices&) {
    request.conditions.StepCapacity = oneOf(text, capacitySteps);
}

void readMarket(Request& request, const std::string& text, const Choices&) {
    constexpr std::array<int, 3> markets{codeOf(Market::any), codeOf(Market::european),
                                         codeOf(Market::farEast)};
    request.market = oneOf(text, markets);
}

void readModels(Request& request, const std::string& text, const Choices&) {
    request.models = trimmed(text).empty() ? "*" : trimmed(text);
}

void need(bool given, const char* name) {
    if (!given) throw BadRequest(std::string(name) + " is missing");
}

constexpr std::array options = {
    RequestOption{"refrigerant", "refrigerant, such as R134A",
                  [](Request& r, const std::string& text, const Choices&) { r.refrigerant = trimmed(text); }},
    RequestOption{"series", "series as the catalogue names it",
                  [](Request& r, const std::string& text, const Choices&) { r.series = trimmed(text); }},
    RequestOption{"models", "models joined with \";\", or * for all", readModels},
    RequestOption{"ted", "evaporating dew temperature, degrees Celsius",
                  readReal<&Conditions::TEvaporatingDew>},
    RequestOption{"tcd", "condensing dew temperature, degrees Celsius",
                  readReal<&Conditions::TCondensationDew>},
    RequestOption{"sh", "superheat in K, or suction temperature (10)", readReal<&Conditions::SuperHeat>},
    RequestOption{"sh-type", "0: --sh is a superheat, 1: a suction temperature (0)",
                  readChoice<&Conditions::SuperHeatType, &Choices::superheatTypes>},
    RequestOption{"sc", "liquid subcooling, K (5)", readInRange<&Conditions::SubCooling, subcooling>},
    RequestOption{"eco-mode", "economizer: 0 none, 1 approach --eco in K, 2 capacity --eco in kW (0)",
                  readChoice<&Conditions::EcoCalculateMode, &Choices::economizerModes>},
    RequestOption{"eco", "economizer value (10)", readReal<&Conditions::Eco>},
    RequestOption{"oc-mode", "oil cooling: 0 none, 1 limit of the catalogue, 2 limit --oc (1)",
                  readChoice<&Conditions::OilCoolingCalculateMode, &Choices::oilCoolingModes>},
    RequestOption{"oc", "limit of the discharge temperature, degrees Celsius (110)",
                  readInRange<&Conditions::OilCooling, dischargeLimit>},
    RequestOption{"voltage", "supply voltage, V (400)",
                  readChoice<&Conditions::MotorVoltage, &Choices::voltages>},
    RequestOption{"hz", "supply frequency, 50 or 60 Hz (50)",
                  readChoice<&Conditions::MotorHz, &Choices::frequencies>},
    RequestOption{"motor-size", "-1 default, 0 small, 1 full motor (-1)",
                  readChoice<&Conditions::MotorSize, &Choices::motorSizes>},
    RequestOption{"rpm", "speed of an open drive, 1/min (1450)",
                  readChoice<&Conditions::MotorRPM, &Choices::speeds>},
    RequestOption{"step", "capacity step in percent: 100, 75, 50 or 25 (100)", readStep},
    RequestOption{"frequency", "inverter frequency, 20 to 70 Hz (50)",
                  readInRange<&Conditions::InverterFrequency, inverterFrequency>},
    RequestOption{"market", "market of the series DZ: 1 European, 2 Far East (0: no filter)", readMarket},
};

}  // namespace

// The temperatures have to be stated.
Request::Request() : conditions(conditionsAt(std::nan(""), std::nan(""))) {}

std::span<const RequestOption> requestOptions() { return options; }

void readOption(Request& request, const RequestOption& option, const std::string& text,
                const Choices& choices) {
    try {
        option.read(request, text, choices);
    } catch (const BadRequest& fault) {
        throw BadRequest(std::string(option.name) + ": " + fault.what());
    }
}

void checkConditions(const Conditions& c) {
    need(!std::isnan(c.TEvaporatingDew), "ted");
    need(!std::isnan(c.TCondensationDew), "tcd");
    const auto check = [](const char* name, double value, const Range& range) {
        try {
            checkRange(storedText(value), value, range);
        } catch (const BadRequest& fault) {
            throw BadRequest(std::string(name) + ": " + fault.what());
        }
    };
    check("sh", c.SuperHeat, c.SuperHeatType == SuperheatKind::difference ? superheat : suctionTemperature);
    check("eco", c.Eco, c.EcoCalculateMode == EconomizerMode::capacity ? economizerPower : approach);
}

void checkOrder(const Conditions& c) {
    if (c.TEvaporatingDew <= c.TCondensationDew) return;
    throw BadRequest("ted: " + quoted(storedText(c.TEvaporatingDew)) +
                     " is above the condensing temperature; at most tcd, \"" +
                     storedText(c.TCondensationDew) + "\", is allowed");
}

void checkRequest(const Request& request) {
    need(!request.refrigerant.empty(), "refrigerant");
    need(!request.series.empty(), "series");
    checkConditions(request.conditions);
}

void checkTemperatures(const Request& request, const SaturationRange& range) {
    const Conditions& c = request.conditions;
    const auto outside = [&](const char* name, double value) {
        const auto [minimum, maximum] = inTenths(range);
        const Range shown{minimum, maximum, "degrees Celsius"};
        return BadRequest(std::string(name) + ": " + request.refrigerant + " has no saturation state at \"" +
                          storedText(value) + "\"; it has some from " + rangeText(shown));
    };
    switch (judgeTemperatures(range, c.TEvaporatingDew, c.TCondensationDew)) {
        case TemperatureFault::evaporatingOutside:
            throw outside("ted", c.TEvaporatingDew);
        case TemperatureFault::condensingOutside:
            throw outside("tcd", c.TCondensationDew);
        case TemperatureFault::evaporatingAboveCondensing:
            checkOrder(c);
            break;
        case TemperatureFault::none:
            break;
    }
}

double numberIn(const std::string& text, const Range& range) {
    const auto value = storedNumber(text);
    if (!value) throw BadRequest(quoted(text) + " is not a number from " + rangeText(range));
    checkRange(text, *value, range);
    return *value;
}

long long wholeNumberIn(const std::string& text, long long minimum, long long maximum) {
    const auto value = storedNumber(text);
    if (!value || *value < static_cast<double>(minimum) || *value > static_cast<double>(maximum) ||
        *value != std::floor(*value))
        throw BadRequest(quoted(text) + " is not a whole number from " + std::to_string(minimum) + " to " +
                         std::to_string(maximum));
    return static_cast<long long>(*value);
}

std::string notOneOf(std::string_view option, const std::string& value,
                     const std::vector<std::string>& allowed) {
    return std::string(option) + ": " + quoted(value) + " is not one of " + listText(allowed);
}

}  // namespace marvello::select
