#include "tools/select/Request.h"

#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

#include "data/Texts.h"

namespace marvello::select {

namespace {

double number(const std::string& text) {
    const auto value = storedNumber(text);
    if (!value) throw BadRequest("\"" + text + "\" is no number");
    return *value;
}

int wholeNumber(const std::string& text) {
    const double value = number(text);
    if (value != std::floor(value) || std::abs(value) > 1e6)
        throw BadRequest("\"" + text + "\" is no whole number");
    return static_cast<int>(value);
}

template <auto member>
void readReal(Request& request, const std::string& text) {
    auto& target = request.conditions.*member;
    using Real = std::remove_reference_t<decltype(target)>;
    const double value = number(text);
    if (std::abs(value) > static_cast<double>(std::numeric_limits<Real>::max()))
        throw BadRequest("\"" + text + "\" is too large");
    target = static_cast<Real>(value);
}

template <auto member>
void readWhole(Request& request, const std::string& text) {
    request.conditions.*member = wholeNumber(text);
}

void readMarket(Request& request, const std::string& text) {
    request.market = wholeNumber(text);
    if (request.market < 0 || request.market > 255) throw BadRequest("there is no market " + text);
}

using Conditions = clsProjectConditions;

constexpr std::array options = {
    RequestOption{"refrigerant", "refrigerant, such as R134A",
                  [](Request& r, const std::string& text) { r.refrigerant = trimmed(text); }},
    RequestOption{"series", "series as the catalogue names it",
                  [](Request& r, const std::string& text) { r.series = trimmed(text); }},
    RequestOption{
        "models", "models joined with \";\", or * for all",
        [](Request& r, const std::string& text) { r.models = trimmed(text).empty() ? "*" : trimmed(text); }},
    RequestOption{"ted", "evaporating dew temperature, degrees Celsius",
                  readReal<&Conditions::TEvaporatingDew>},
    RequestOption{"tcd", "condensing dew temperature, degrees Celsius",
                  readReal<&Conditions::TCondensationDew>},
    RequestOption{"sh", "superheat in K, or suction temperature (10)", readReal<&Conditions::SuperHeat>},
    RequestOption{"sh-type", "0: --sh is a superheat, 1: a suction temperature (0)",
                  readWhole<&Conditions::SuperHeatType>},
    RequestOption{"sc", "liquid subcooling, K (5)", readReal<&Conditions::SubCooling>},
    RequestOption{"eco-mode", "economizer mode (0: none)", readWhole<&Conditions::EcoCalculateMode>},
    RequestOption{"eco", "economizer value (10)", readReal<&Conditions::Eco>},
    RequestOption{"oc-mode", "oil cooling: 0 none, 1 limit of the catalogue, 2 limit --oc (1)",
                  readWhole<&Conditions::OilCoolingCalculateMode>},
    RequestOption{"oc", "limit of the discharge temperature, degrees Celsius (110)",
                  readReal<&Conditions::OilCooling>},
    RequestOption{"voltage", "supply voltage, V (400)", readReal<&Conditions::MotorVoltage>},
    RequestOption{"hz", "supply frequency, 50 or 60 Hz (50)", readWhole<&Conditions::MotorHz>},
    RequestOption{"motor-size", "-1 default, 0 small, 1 full motor (-1)", readWhole<&Conditions::MotorSize>},
    RequestOption{"rpm", "speed of an open drive, 1/min (1450)", readWhole<&Conditions::MotorRPM>},
    RequestOption{"step", "capacity step in percent: 100, 75, 50 or 25 (100)",
                  readWhole<&Conditions::StepCapacity>},
    RequestOption{"frequency", "inverter frequency, Hz (50)", readReal<&Conditions::InverterFrequency>},
    RequestOption{"market", "market of the series DZ: 1 European, 2 Far East (0: no filter)", readMarket},
};

}  // namespace

// The temperatures have to be stated.
Request::Request() : conditions(conditionsAt(std::nan(""), std::nan(""))) {}

std::span<const RequestOption> requestOptions() { return options; }

void readOption(Request& request, std::string_view name, const std::string& text) {
    for (const RequestOption& option : options) {
        if (option.name != name) continue;
        try {
            option.read(request, text);
        } catch (const BadRequest& fault) {
            throw BadRequest(std::string(name) + ": " + fault.what());
        }
        return;
    }
    throw BadRequest("there is no option " + std::string(name));
}

void checkRequest(const Request& request) {
    const auto need = [](bool given, const char* name) {
        if (!given) throw BadRequest(std::string(name) + " is missing");
    };
    need(!request.refrigerant.empty(), "refrigerant");
    need(!request.series.empty(), "series");
    need(!std::isnan(request.conditions.TEvaporatingDew), "ted");
    need(!std::isnan(request.conditions.TCondensationDew), "tcd");
}

}  // namespace marvello::select
