#include "thermo/clsRefprop.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "data/Arithmetic.h"
#include "data/Hooks.h"
#include "data/RefrigerantFluids.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "thermo/UnitFamilies.h"

namespace marvello {

namespace {

std::string nativePath(std::string path) {
    if constexpr (std::filesystem::path::preferred_separator == '/')
        std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

/// What a session shares: a service for each refrigerant that was asked for.
struct SharedServices {
    std::vector<std::shared_ptr<clsRefprop>> services;
    std::string folder;     ///< Of their library.
    long long opening = 0;  ///< Of the file that has the refrigerants.
};

/// Those of the present library and file.
std::vector<std::shared_ptr<clsRefprop>>& sharedServices() {
    Session& session = Session::current();
    auto& shared = session.part<SharedServices>();
    const long long opening = gDatabase().openings();
    if (shared.folder != session.applicationFolder || shared.opening != opening)
        shared = {{}, session.applicationFolder, opening};
    return shared.services;
}

bool isFor(const clsRefprop& service, const std::string& refrigerant) {
    return equalIgnoringCase(service.Refrigerant, withoutBlanks(refrigerant));
}

}  // namespace

clsRefprop::clsRefprop() : session_(refpropFunctions()) {}

bool clsRefprop::Initialize(clsDatabase& db, int unitsMeasure, const std::string& refrigerant,
                            const std::string& fluidPath) {
    if (!trimmed(refrigerant).empty()) Refrigerant = trimmed(refrigerant);
    if (!trimmed(fluidPath).empty()) Fluidpath = trimmed(fluidPath);

    std::vector<std::string> files;
    std::vector<double> massFractions;
    for (const auto& [file, massFraction] : fluidsOf(db, Refrigerant)) {
        if (files.size() == RefpropSession::maximumComponents)
            throw std::out_of_range("The refrigerant " + Refrigerant + " has more than 20 components.");
        files.push_back(nativePath(file));
        massFractions.push_back(massFraction);
    }
    remembered_.clear();
    dewRange_.reset();
    const RefpropAnswer answer = session_.setUp(files, massFractions, nativePath(Fluidpath));
    setupFault_ = answer.code > 0 ? answer.sentence() : std::string();
    Convert.Initialize(unitsMeasure, session_.molarMass());
    return true;
}

double clsRefprop::Pressure(double t, int kph) {
    ask({Function::satt, kph, Convert.ConvertUnitsRefprop(t, property::temperature), 0});
    return answer({"Pressure", t, property::temperature}, state_.p, property::pressure);
}

bool clsRefprop::hasDewPressure(double kelvin) {
    const RefpropState before = state_;  // a look ahead must not change what a failing call leaves
    ask({Function::satt, saturation::dew, kelvin, 0});
    const bool has = state_.answer.code <= 0 && state_.p > 0;
    state_ = before;
    return has;
}

const SaturationRange& clsRefprop::DewRange() {
    if (dewRange_) return *dewRange_;
    constexpr double coldest = 50;  // K, with room around all refrigerants
    constexpr double hottest = 750;
    constexpr double stride = 10;
    constexpr double tolerance = 0.01;
    // The states that are there are one piece, wider than the stride.
    double inside = coldest;
    while (inside < hottest && !hasDewPressure(inside)) inside += stride;
    if (inside >= hottest)
        throw std::runtime_error("The refrigerant " + Refrigerant + " has no saturation states.");
    const auto edge = [&](double from, double beyond) {
        while (std::abs(beyond - from) > tolerance) {
            const double middle = (from + beyond) / 2;
            (hasDewPressure(middle) ? from : beyond) = middle;
        }
        return from;
    };
    const double lowest = edge(inside, inside - stride);
    double beyond = inside + stride;
    while (beyond < hottest && hasDewPressure(beyond)) beyond += stride;
    const double highest = edge(beyond - stride, beyond);
    const auto celsius = [](double kelvin) {
        return convertInFamily(kelvin, "T", "C", 0, UnitPass::fromBase);
    };
    dewRange_ = SaturationRange{celsius(lowest), celsius(highest)};
    return *dewRange_;
}

/// Kept: so long is the error text of the two enthalpy calls for a temperature, and what is shown of it ends
/// there.
constexpr std::int32_t shortErrorLength = 173;

// Which call serves which pair of property codes.
constexpr clsRefprop::Route clsRefprop::temperatureRoutes[] = {
    {property::pressure, property::none, Function::satp},
    {property::pressure, property::entropy, Function::psflsh},
    {property::entropy, property::pressure, Function::psflsh, swapped},
    {property::pressure, property::enthalpy, Function::phflsh, asGiven, shortErrorLength},
    {property::enthalpy, property::pressure, Function::phflsh, swapped, shortErrorLength}};

constexpr clsRefprop::Route clsRefprop::enthalpyRoutes[] = {
    {property::temperature, property::pressure, Function::tpflsh},
    {property::pressure, property::temperature, Function::tpflsh, swapped},
    {property::pressure, property::entropy, Function::psflsh},
    {property::entropy, property::pressure, Function::psflsh, swapped},
    {property::temperature, property::entropy, Function::tsflsh},
    {property::entropy, property::temperature, Function::tsflsh, swapped}};

constexpr clsRefprop::Route clsRefprop::entropyRoutes[] = {
    {property::temperature, property::pressure, Function::tpflsh},
    {property::pressure, property::temperature, Function::tpflsh, swapped},
    {property::pressure, property::enthalpy, Function::phflsh},
    {property::enthalpy, property::pressure, Function::phflsh, swapped}};

// Kept: a temperature alone goes in as a pressure; the calculation asks by pressure only.
constexpr clsRefprop::Route clsRefprop::densityRoutes[] = {
    {property::temperature, property::none, Function::satp},
    {property::temperature, property::pressure, Function::tpflsh},
    {property::pressure, property::temperature, Function::tpflsh, swapped},
    {property::pressure, property::none, Function::satp}};

double clsRefprop::Temperature(double value1, int type1, int kph, double value2, int type2) {
    const double v1 = Convert.ConvertUnitsRefprop(value1, type1);
    const double v2 = type2 == property::none ? 0 : Convert.ConvertUnitsRefprop(value2, type2);
    askBy(temperatureRoutes, {type1, type2}, {v1, v2}, kph);
    return answer({"Temperature", value1, type1, value2, type2}, state_.t, property::temperature);
}

double clsRefprop::Enthalpy(double value1, int type1, double value2, int type2) {
    const double v1 = Convert.ConvertUnitsRefprop(value1, type1);
    const double v2 = Convert.ConvertUnitsRefprop(value2, type2);
    askBy(enthalpyRoutes, {type1, type2}, {v1, v2}, 0);
    return answer({"Enthalpy", value1, type1, value2, type2}, state_.h, property::enthalpy);
}

double clsRefprop::Entropy(double value1, int type1, double value2, int type2) {
    const double v1 = Convert.ConvertUnitsRefprop(value1, type1);
    const double v2 = Convert.ConvertUnitsRefprop(value2, type2);
    askBy(entropyRoutes, {type1, type2}, {v1, v2}, 0);
    return answer({"Entropy", value1, type1, value2, type2}, state_.s, property::entropy);
}

double clsRefprop::Density(double value1, int type1, int kph, std::optional<double> value2, int type2) {
    const double v1 = Convert.ConvertUnitsRefprop(value1, type1);
    double v2 = 0;
    if (value2) {
        if (type2 == property::none) {
            // Kept: Italian in every language; it is for those who write calls.
            showBox(BoxKind::plain, "Il parametro vValue2 non è conforme alle specifiche della funzione");
            return 0;
        }
        v2 = Convert.ConvertUnitsRefprop(*value2, type2);
    }
    const bool isAsked = askBy(densityRoutes, {type1, type2}, {v1, v2}, kph);
    if (isAsked && type2 == property::none)
        state_.D = state_.Dv;  // Kept: the vapour's, whatever kph says: the port's gas is worked out with it.
    return answer({"Density", value1, type1, value2.value_or(0), type2}, state_.D, property::density);
}

std::optional<FluidState> clsRefprop::StateAtTemperature(double t, double p) {
    auto state = wholeState(Function::tpflsh, {t, property::temperature}, {p, property::pressure});
    if (state) state->t = t;
    if (state) state->p = p;
    return state;
}

std::optional<FluidState> clsRefprop::StateAtEnthalpy(double p, double h) {
    auto state = wholeState(Function::phflsh, {p, property::pressure}, {h, property::enthalpy});
    if (state) state->p = p;
    if (state) state->h = h;
    return state;
}

std::optional<FluidState> clsRefprop::StateAtEntropy(double p, double s) {
    auto state = wholeState(Function::psflsh, {p, property::pressure}, {s, property::entropy});
    if (state) state->p = p;
    if (state) state->s = s;
    return state;
}

std::optional<FluidState> clsRefprop::SaturationAtPressure(double p, int kph) {
    const double kilopascals = Convert.ConvertUnitsRefprop(p, property::pressure);
    const RefpropState point = asked({Function::satp, kph, kilopascals, 0});
    if (point.answer.code > 0) return std::nullopt;
    return saturated(kph, Convert.ConvertUnitsApp(point.t, property::temperature), p);
}

std::optional<FluidState> clsRefprop::SaturationAtTemperature(double t, int kph) {
    const double kelvin = Convert.ConvertUnitsRefprop(t, property::temperature);
    const RefpropState point = asked({Function::satt, kph, kelvin, 0});
    if (point.answer.code > 0) return std::nullopt;
    return saturated(kph, t, Convert.ConvertUnitsApp(point.p, property::pressure));
}

/// The library's saturation calls know no enthalpy. At their temperature and pressure it takes a state for
/// vapour; so little above the pressure it is liquid, and hardly another one.
std::optional<FluidState> clsRefprop::saturated(int kph, double t, double p) {
    constexpr double clearance = 1e-8;
    const bool isBubble = kph == saturation::bubble;
    auto state = StateAtTemperature(t, isBubble ? p * (1 + clearance) : p);
    if (!state) return std::nullopt;
    state->p = p;
    state->quality = isBubble ? 0 : 1;
    return state;
}

std::optional<FluidState> clsRefprop::wholeState(Function function, std::pair<double, int> first,
                                                 std::pair<double, int> second) {
    const RefpropState state = asked({function, 0, Convert.ConvertUnitsRefprop(first.first, first.second),
                                      Convert.ConvertUnitsRefprop(second.first, second.second)});
    if (state.answer.code > 0) return std::nullopt;
    FluidState whole{.t = Convert.ConvertUnitsApp(state.t, property::temperature),
                     .p = Convert.ConvertUnitsApp(state.p, property::pressure),
                     .h = Convert.ConvertUnitsApp(state.h, property::enthalpy),
                     .s = Convert.ConvertUnitsApp(state.s, property::entropy),
                     .density = Convert.ConvertUnitsApp(state.D, property::density)};
    if (state.q >= 0 && state.q <= 1)
        whole.quality = state.q * session_.molarMassOf(session_.vapour()) / session_.molarMass();
    return whole;
}

bool clsRefprop::askBy(std::span<const Route> routes, std::pair<int, int> types,
                       std::pair<double, double> values, int kph) {
    for (const Route& route : routes) {
        if (std::pair(route.type1, route.type2) != types) continue;
        if (route.order == swapped) std::swap(values.first, values.second);
        const bool isSaturation = route.function == Function::satp;
        ask({route.function, isSaturation ? kph : 0, values.first, isSaturation ? 0 : values.second},
            route.errorLength);
        return true;
    }
    showBox(BoxKind::plain, "Aggiungere funzione");
    return false;
}

void clsRefprop::ask(const StateCall& call, std::int32_t errorLength) {
    const std::uint64_t hash = call.hash();
    if (const RefpropState* found = remembered_.find(call, hash)) {
        state_ = *found;
        return;
    }
    state_ = askLibrary(call, errorLength);
    ++libraryCalls_;
    if (noted_ != nullptr) noted_->push_back(call);
    remembered_.keep(call, hash, state_);
}

RefpropState clsRefprop::askLibrary(const StateCall& call, std::int32_t errorLength) {
    switch (call.function) {
        case Function::satt:
            return session_.saturationAtT(call.first, call.kph, state_);
        case Function::satp:
            return session_.saturationAtP(call.first, call.kph, state_);
        case Function::tpflsh:
            return session_.atTP(call.first, call.second, state_);
        case Function::tsflsh:
            return session_.atTS(call.first, call.second, state_);
        case Function::phflsh:
            return session_.atPH(call.first, call.second, state_, errorLength);
        case Function::psflsh:
            break;
    }
    return session_.atPS(call.first, call.second, state_);
}

std::string clsRefprop::describe(const Request& request) const {
    const auto text = [this](double value, int type) {
        const std::array<const std::string*, 5> units{&Convert.Tunits, &Convert.Punits, &Convert.Dunits,
                                                      &Convert.Hunits, &Convert.Sunits};
        std::array<char, 32> number{};
        std::snprintf(number.data(), number.size(), "%.7g ", value);
        const bool isKnown = type >= 0 && static_cast<std::size_t>(type) < units.size();
        return number.data() + (isKnown ? *units[static_cast<std::size_t>(type)] : "");
    };
    std::string call = request.name + ("(" + text(request.value1, request.type1));
    if (request.type2 != property::none) call += ", " + text(request.value2, request.type2);
    return call + ")";
}

double clsRefprop::answer(const Request& request, double value, int type) {
    try {
        if (isUndefinedMarker(value))
            lastUndefined_ = describe(request) + ": " +
                             (state_.answer.sentence().empty() ? undefinedText : state_.answer.sentence());
        return Convert.ConvertUnitsApp(value, type);
    } catch (const ArithmeticFault& fault) {
        throw ArithmeticFault(describe(request) + ": " + fault.what());
    }
}

void InitRefprop(const std::string& refrigerant) {
    auto service = std::make_shared<clsRefprop>();
    service->Initialize(gDatabase(), 0, refrigerant, "Fluids\\");
    auto& services = sharedServices();
    std::erase_if(services, [&](const auto& other) { return isFor(*other, refrigerant); });
    services.push_back(std::move(service));
}

std::shared_ptr<clsRefprop> SharedRefprop(const std::string& refrigerant) {
    const auto& services = sharedServices();
    const auto found =
        std::ranges::find_if(services, [&](const auto& service) { return isFor(*service, refrigerant); });
    if (found != services.end() && (*found)->SetupFault().empty()) return *found;
    InitRefprop(refrigerant);
    return services.back();
}

clsRefprop& GetRefprop(const std::string& refrigerant) { return *SharedRefprop(refrigerant); }

}  // namespace marvello
