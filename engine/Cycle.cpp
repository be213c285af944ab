#include "engine/Cycle.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "data/Arithmetic.h"
#include "data/Constants.h"
#include "data/Texts.h"

namespace marvello {

namespace {

using Part = CycleBalance::Part;

/// A state that the library refuses.
class NoState : public std::runtime_error {
  public:
    NoState() : std::runtime_error("a state of the cycle has no result") {}
};

FluidState found(const std::optional<FluidState>& state) { return state ? *state : throw NoState(); }

/// Puts a cycle together from the variables of a calculation.
class CycleOf {
  public:
    CycleOf(const clsCompressor& calculated, clsRefprop& refprop)
        : v_(calculated.Variables), refprop_(refprop), performance_(performanceOf(calculated)) {}

    Cycle cycle();

  private:
    /// Which variables a state is; those that it does not have are looked up at p and h.
    struct Sources {
        var p, h;
        std::optional<var> t{}, s{}, density{};
    };
    void add(CyclePoint point, double massFlow, const Sources& sources);
    void addSaturation(CyclePoint point, double massFlow, int side, var t);
    void compression();
    void condensation();
    void expansion();
    void injection();
    void oilCooling();
    void branches();
    void balances();
    void figures();

    double value(var variable) const;
    bool hasEconomizer() const { return cycle_.economizer != EconomizerKind::none; }
    bool isTank() const { return cycle_.economizer == EconomizerKind::tank; }
    double evaporatorFlow() const { return value(hasEconomizer() ? var::Mev : var::Mbase); }
    double injectedFlow() const;
    double totalFlow() const { return evaporatorFlow() + injectedFlow(); }
    bool isOilCooled() const;
    std::size_t numberOf(CyclePoint point) const;
    const CycleState& at(CyclePoint point) const { return cycle_.states[numberOf(point)]; }
    double enthalpy(CyclePoint point) const { return at(point).state.h; }
    /// What a flow takes up from one state to another, kW.
    double heat(double flow, CyclePoint from, CyclePoint to) const {
        return flow * (enthalpy(to) - enthalpy(from)) / secondsPerHour;
    }

    const clsVariables& v_;
    clsRefprop& refprop_;
    Performance performance_;
    Cycle cycle_;
};

EconomizerKind economizerOf(const clsVariables& v) {
    return v.Item("EcoModel").text() == "Tank" ? EconomizerKind::tank : EconomizerKind::plate;
}

double CycleOf::value(var variable) const {
    const double number = v_[variable];
    return isUndefinedMarker(number) ? throw NoState() : number;
}

/// That of the states: a search for a tank moves `meco` on once more after it has calculated them.
double CycleOf::injectedFlow() const {
    if (!hasEconomizer()) return 0;
    return checked(value(var::Qeco) * secondsPerHour / (value(var::H7) - value(var::H3)));
}

bool CycleOf::isOilCooled() const {
    const bool isOn = v_[var::OCCalculateMode] != codeOf(OilCoolingMode::none);
    return isOn && value(hasEconomizer() ? var::T2 : var::T21) > value(var::OC);
}

void CycleOf::add(CyclePoint point, double massFlow, const Sources& sources) {
    FluidState state = found(refprop_.StateAtEnthalpy(value(sources.p), value(sources.h)));
    if (sources.t) state.t = value(*sources.t);
    if (sources.s) state.s = value(*sources.s);
    if (sources.density) state.density = value(*sources.density);
    cycle_.states.push_back({point, state, massFlow, sources.t, sources.p, sources.h});
}

/// The enthalpies `Hcb` and `Hlb` of a pure refrigerant are those of its vapour: the liquid is looked up.
void CycleOf::addSaturation(CyclePoint point, double massFlow, int side, var t) {
    FluidState state = found(refprop_.SaturationAtPressure(value(var::Pc), side));
    state.t = value(t);
    cycle_.states.push_back({point, state, massFlow, t, var::Pc, {}});
}

void CycleOf::compression() {
    add(CyclePoint::suction, evaporatorFlow(),
        {.p = var::Pe, .h = var::Hga, .t = var::Tga, .s = var::Sga, .density = var::Dga});
    if (hasEconomizer()) {
        add(CyclePoint::portBeforeMixing, evaporatorFlow(), {.p = var::P9, .h = var::H9, .t = var::T9});
        add(CyclePoint::portMixed, totalFlow(), {.p = var::P71, .h = var::H71, .t = var::T71, .s = var::S71});
    }
    const bool isCooled = isOilCooled();
    if (hasEconomizer()) {
        add(CyclePoint::discharge, totalFlow(),
            isCooled ? Sources{.p = var::Pc, .h = var::H2cool, .t = var::OC}
                     : Sources{.p = var::Pc, .h = var::h2, .t = var::T2});
    } else {
        add(CyclePoint::discharge, totalFlow(),
            isCooled ? Sources{.p = var::Pc, .h = var::H2Rif, .t = var::Tsca}
                     : Sources{.p = var::Pc, .h = var::H21, .t = var::T21});
    }
}

void CycleOf::condensation() {
    addSaturation(CyclePoint::condenserDew, totalFlow(), saturation::dew, var::Tcd);
    addSaturation(CyclePoint::condenserBubble, totalFlow(), saturation::bubble, var::Tcb);
    add(CyclePoint::liquid, totalFlow(),
        hasEconomizer() ? Sources{.p = var::Pc, .h = var::H3, .t = var::T3}
                        : Sources{.p = var::Pc, .h = var::Hl, .t = var::Tl});
}

/// A plate cools the liquid at the condensing pressure; a tank expands all of it to its own pressure, at
/// which liquid and gas part.
void CycleOf::expansion() {
    if (isTank()) {
        add(CyclePoint::economizerInlet, totalFlow(), {.p = var::Peco, .h = var::H3});
        add(CyclePoint::liquidAfterEconomizer, evaporatorFlow(), {.p = var::Peco, .h = var::H31});
    } else if (hasEconomizer()) {
        add(CyclePoint::liquidAfterEconomizer, evaporatorFlow(),
            {.p = var::Pc, .h = var::H31, .t = var::T31});
    }
    add(CyclePoint::evaporatorInlet, evaporatorFlow(),
        {.p = var::Pe, .h = hasEconomizer() ? var::H31 : var::Hl});
}

void CycleOf::injection() {
    if (!hasEconomizer()) return;
    if (!isTank()) add(CyclePoint::economizerInlet, injectedFlow(), {.p = var::Peco, .h = var::H3});
    add(CyclePoint::economizerOutlet, injectedFlow(),
        {.p = var::P7, .h = var::H7, .t = var::T7, .density = var::D7});
}

void CycleOf::oilCooling() {
    if (!isOilCooled()) return;
    add(CyclePoint::dischargeUncooled, totalFlow(),
        hasEconomizer() ? Sources{.p = var::Pc, .h = var::h2, .t = var::T2}
                        : Sources{.p = var::Pc, .h = var::H21, .t = var::T21});
}

std::size_t CycleOf::numberOf(CyclePoint point) const {
    const auto place = std::ranges::find(cycle_.states, point, &CycleState::point);
    return static_cast<std::size_t>(place - cycle_.states.begin());
}

void CycleOf::branches() {
    const auto branch = [this](CycleBranch::Kind kind, std::initializer_list<CyclePoint> points) {
        std::vector<std::size_t> states;
        for (const CyclePoint point : points) states.push_back(numberOf(point));
        cycle_.branches.push_back({kind, std::move(states)});
    };
    // Its states are numbered as they follow one another.
    std::vector<std::size_t> main;
    for (std::size_t i = 0; i <= numberOf(CyclePoint::evaporatorInlet); ++i) main.push_back(i);
    main.push_back(0);
    cycle_.branches.push_back({CycleBranch::Kind::main, std::move(main)});
    if (isTank()) {
        branch(CycleBranch::Kind::economizer,
               {CyclePoint::economizerInlet, CyclePoint::economizerOutlet, CyclePoint::portMixed});
    } else if (hasEconomizer()) {
        branch(CycleBranch::Kind::economizer, {CyclePoint::liquid, CyclePoint::economizerInlet,
                                               CyclePoint::economizerOutlet, CyclePoint::portMixed});
    }
    if (isOilCooled())
        branch(CycleBranch::Kind::oilCooling, {CyclePoint::dischargeUncooled, CyclePoint::discharge});
}

void CycleOf::balances() {
    const double flow = evaporatorFlow();
    const double injected = injectedFlow();
    const Performance::Duty& duty = performance_.duty();
    const auto balance = [this](Part part, double states, double other) {
        cycle_.balances.push_back({part, states, other});
    };
    balance(Part::evaporator, heat(flow, CyclePoint::evaporatorInlet, CyclePoint::suction), duty.capacity);
    double work = heat(flow, CyclePoint::suction, CyclePoint::discharge);
    if (hasEconomizer()) {
        balance(Part::economizer, heat(injected, CyclePoint::liquid, CyclePoint::economizerOutlet),
                heat(flow, CyclePoint::liquidAfterEconomizer, CyclePoint::liquid));
        balance(Part::mixing, heat(injected, CyclePoint::portMixed, CyclePoint::economizerOutlet),
                heat(flow, CyclePoint::portBeforeMixing, CyclePoint::portMixed));
        work = heat(flow, CyclePoint::suction, CyclePoint::portBeforeMixing) +
               heat(totalFlow(), CyclePoint::portMixed, CyclePoint::discharge);
    }
    if (isOilCooled())
        balance(Part::oilCooling, heat(totalFlow(), CyclePoint::discharge, CyclePoint::dischargeUncooled),
                cycle_.figures.oilCoolerLoad);
    balance(Part::compressor, work, duty.power);
    balance(Part::condenser, heat(totalFlow(), CyclePoint::liquid, CyclePoint::discharge),
            duty.condenserLoad);
}

void CycleOf::figures() {
    CycleFigures& figures = cycle_.figures;
    figures.refrigeratingEffect = enthalpy(CyclePoint::suction) - enthalpy(CyclePoint::evaporatorInlet);
    figures.pressureRatio = checked(value(var::Pc) / value(var::Pe));
    figures.duty = performance_.duty();
    if (isOilCooled()) figures.oilCoolerLoad = value(hasEconomizer() ? var::Pcool : var::Pra);
    if (hasEconomizer()) {
        figures.isentropicEfficiency = value(var::EtaIso);
        figures.economizerGain = value(var::Qeco);
        figures.portPressure = value(var::P9);
    } else {
        const FluidState end = found(refprop_.StateAtEntropy(value(var::Pc), value(var::Sga)));
        figures.isentropicEfficiency =
            checked(evaporatorFlow() * (end.h - value(var::Hga)) / (value(var::Pta) * secondsPerHour));
    }
}

Cycle CycleOf::cycle() {
    if (performance_.economized) cycle_.economizer = economizerOf(v_);
    compression();
    condensation();
    expansion();
    injection();
    oilCooling();
    branches();
    figures();
    balances();
    return std::move(cycle_);
}

}  // namespace

std::string_view nameOf(CyclePoint point) {
    constexpr std::array<std::string_view, 12> names{
        "suction",         "portBeforeMixing", "portMixed",        "discharge",
        "condenserDew",    "condenserBubble",  "liquid",           "liquidAfterEconomizer",
        "evaporatorInlet", "economizerInlet",  "economizerOutlet", "dischargeUncooled"};
    return names[static_cast<std::size_t>(point)];
}

std::string_view nameOf(Part part) {
    constexpr std::array<std::string_view, 6> names{"evaporator", "economizer", "mixing",
                                                    "oilCooling", "compressor", "condenser"};
    return names[static_cast<std::size_t>(part)];
}

std::optional<Cycle> cycleOf(const clsCompressor& calculated, clsRefprop& refprop) {
    if (!performanceOf(calculated).hasValues()) return std::nullopt;
    try {
        return CycleOf(calculated, refprop).cycle();
    } catch (const NoState&) {
        return std::nullopt;
    } catch (const VariableError&) {
        return std::nullopt;
    }
}

}  // namespace marvello
