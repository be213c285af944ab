#include <cmath>

#include "data/Arithmetic.h"
#include "data/Constants.h"
#include "data/Hooks.h"
#include "engine/EconomizerCalculation.h"
#include "engine/MotorCurrent.h"

namespace marvello {

namespace {

/// The maker's factor: the compression after the port is more efficient than the one before it.
constexpr double injectedEfficiency = 1.05;

}  // namespace

template <class Tracing>
EconomizerCalculation<Tracing>::EconomizerCalculation(clsCompressor& compressor,
                                                      const typename Tracing::States& states,
                                                      formTimeout& timeout, Statements<Tracing>& statements,
                                                      const Tracing& tracing)
    : tracing_(tracing),
      compressor_(compressor),
      states_(states),
      timeout_(timeout),
      statements_(statements),
      v_(tracing.variables(compressor.Variables)) {}

template <class Tracing>
void EconomizerCalculation<Tracing>::turn() {
    constexpr unsigned turnsBetweenLooks = 8;  // at the clock
    if (++turns_ % turnsBetweenLooks == 0) timeout_.poll();
    giveTurn();
}

/// However the search ends, the discharge is that of its last pass.
template <class Tracing>
void EconomizerCalculation<Tracing>::search(EconomizerMode mode) {
    try {
        mode == EconomizerMode::approach ? Eco_Automatic() : Eco_Q0();
    } catch (...) {
        dischargeStates();
        throw;
    }
    dischargeStates();
}

template <class Tracing>
void EconomizerCalculation<Tracing>::noSolution() {
    dischargeStates();  // what is undefined is named
    compressor_.Messages.Error.add("messages.message26", "messages.message26", {},
                                   statements_.undefinedStates());
}

template <class Tracing>
void EconomizerCalculation<Tracing>::CalculateEconomizer() {
    const auto mode = static_cast<EconomizerMode>(valueOf(v_[var::EcoCalculateMode]));
    if (mode == EconomizerMode::capacity && !isCapacityWithinReach()) return;
    efficiencies();
    portState();

    set(var::meco, v_[var::Mev] * firstShare);
    set(var::EcoOK, -1.0);
    set(var::EcoModel, "Impossible");
    search(mode);
    power();
    // By the motor's polynomial for inverter compressors too.
    writeMotorCurrent(tracing_, v_, compressor_.Motor, var::PtaEco, var::CAECO);
    oilLoad();
    set(var::CopEco, (v_[var::Q0] + v_[var::Qeco]) / v_[var::PtaEco]);
    set(var::TSat, states_.dewTemperature(v_[var::Peco]));
    if (mode == EconomizerMode::approach) checkApproach();
}

/// Between the capacity without economizer and a bound that adds the heat from the subcooled liquid to
/// saturated vapour at the evaporating pressure (`HE`), which is nearly the capacity again. No economizer
/// comes close to it: a search ends long before, with message26.
template <class Tracing>
bool EconomizerCalculation<Tracing>::isCapacityWithinReach() {
    const Number minCapacity = roundedToPlaces(v_[var::Q0], 1);
    const Number maxCapacity =
        checked(v_[var::Q0] + v_[var::Mbase] * (v_[var::HE] - v_[var::Hl]) / secondsPerHour);
    if (v_[var::Eco] < minCapacity) {
        compressor_.Messages.Error.add("messages.message23", "messages.message23");
        return false;
    }
    if (v_[var::Eco] >= maxCapacity) {
        compressor_.Messages.Error.add("messages.message24", "messages.message24");
        return false;
    }
    return true;
}

template <class Tracing>
void EconomizerCalculation<Tracing>::efficiencies() {
    set(var::Mev, v_[var::Q0] * secondsPerHour / (v_[var::Hga] - v_[var::H3]));
    set(var::T2Iso, states_.temperatureAtEntropy(v_[var::Pc], v_[var::Sga]));
    set(var::H2Iso, states_.enthalpyAtEntropy(v_[var::Pc], v_[var::Sga]));
    set(var::EtaIso, v_[var::Mev] * (v_[var::H2Iso] - v_[var::Hga]) / (v_[var::Pta] * secondsPerHour));
    // The discharge without cooling again, this time without the correction of the catalogue.
    const clsPolynomialSh& surface = compressor_.PolynomialSh;
    set(var::T21, tracing_.surface("Tsca", surface, v_[var::Ted], v_[var::Tcd]) + v_[var::Sh] -
                      tracing_.named("Tsca.Sh", surface.Sh));
    set(var::H21, states_.enthalpy(v_[var::T21], v_[var::Pc]));
    set(var::EtaComp, v_[var::EtaIso] * (v_[var::H21] - v_[var::Hga]) / (v_[var::H2Iso] - v_[var::Hga]));
    set(var::EtaComp1, v_[var::EtaComp] * injectedEfficiency);
}

template <class Tracing>
void EconomizerCalculation<Tracing>::portState() {
    set(var::P9, v_[var::Pe] * tracing_.named("KForo", compressor_.Economizer.KForo));
    set(var::H9Iso, states_.enthalpyAtEntropy(v_[var::P9], v_[var::Sga]));
    set(var::H9, v_[var::Hga] + (v_[var::H9Iso] - v_[var::Hga]) * v_[var::EtaComp] / v_[var::EtaIso]);
    set(var::T9, states_.temperatureAtEnthalpy(v_[var::P9], v_[var::H9]));
    set(var::T9D, states_.dewTemperature(v_[var::P9]));
    set(var::D9D, states_.dewDensity(v_[var::P9]));
}

template <class Tracing>
void EconomizerCalculation<Tracing>::power() {
    set(var::PtaEco,
        v_[var::Pta] + v_[var::meco] * (v_[var::h2] - v_[var::H71]) / (secondsPerHour * v_[var::EtaComp1]));
    if (tracing_.test("hasK", compressor_.KValues.hasValue1()))
        set(var::PtaEco, v_[var::PtaEco] * tracing_.named("K", compressor_.KValues.Value1));
}

/// Only a discharge above the limit replaces the load of the standard cycle.
template <class Tracing>
void EconomizerCalculation<Tracing>::oilLoad() {
    set(var::Pcool, 0.0);
    if (v_[var::T2] <= v_[var::OC]) return;
    set(var::H2cool, states_.enthalpy(v_[var::OC], v_[var::Pc]));
    set(var::Pcool, (v_[var::meco] + v_[var::Mev]) * (v_[var::h2] - v_[var::H2cool]) / secondsPerHour);
    set(var::Pra, v_[var::Pcool]);
}

/// To within what is displayed: 0.24 counts as 0.2 and passes.
template <class Tracing>
void EconomizerCalculation<Tracing>::checkApproach() {
    constexpr double tolerance = 0.2;  // K
    const Number missed = roundedToPlaces((v_[var::T31] - v_[var::TSat]) - v_[var::Eco], 1);
    using std::abs;
    if (abs(missed) > tolerance) {
        compressor_.Messages.Error.add("messages.message25", "messages.message25");
    }
}

template class EconomizerCalculation<Untraced>;
template class EconomizerCalculation<Tracer>;

}  // namespace marvello
