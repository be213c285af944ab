#include <cmath>

#include "data/Arithmetic.h"
#include "data/Constants.h"
#include "data/Session.h"
#include "engine/EconomizerCalculation.h"
#include "engine/StepControl.h"

namespace marvello {

template <class Tracing>
void EconomizerCalculation<Tracing>::EcoCycle() {
    injectionPressure();
    if (AbortRequested()) return;

    trySet(var::Peco, [&] { return v_[var::P7]; });
    const auto mixed = [&](var injected, var compressed) {
        return (v_[injected] * v_[var::meco] + v_[compressed] * v_[var::Mev]) /
               (v_[var::meco] + v_[var::Mev]);
    };
    trySet(var::H71, [&] { return mixed(var::H7, var::H9); });
    trySet(var::P71, [&] { return mixed(var::P7, var::P9); });
    if (!isDischargeKnown_) {
        dischargeStates();  // of the first pass, for the place of their variables among the others
        isDischargeKnown_ = true;
    }
    trySet(var::T6, [&] { return states_.bubbleTemperature(v_[var::Peco]); });
    trySet(var::Qeco, [&] { return v_[var::meco] * (v_[var::H7] - v_[var::H3]) / secondsPerHour; });
    trySet(var::H31,
           [&] { return v_[var::H3] - v_[var::meco] * (v_[var::H7] - v_[var::H3]) / v_[var::Mev]; });
    trySet(var::T31, [&] { return states_.temperatureAtEnthalpy(v_[var::Pc], v_[var::H31]); });
    trySet(var::SCeco, [&] { return v_[var::T3] - v_[var::T31]; });
}

template <class Tracing>
void EconomizerCalculation<Tracing>::dischargeStates() {
    trySet(var::T71, [&] { return states_.temperatureAtEnthalpy(v_[var::P71], v_[var::H71]); });
    trySet(var::S71, [&] { return states_.entropyAtEnthalpy(v_[var::P71], v_[var::H71]); });
    trySet(var::H7Iso, [&] { return states_.enthalpyAtEntropy(v_[var::Pc], v_[var::S71]); });
    trySet(var::h2, [&] {
        return v_[var::H71] + (v_[var::H7Iso] - v_[var::H71]) * v_[var::EtaComp1] / v_[var::EtaIso];
    });
    trySet(var::T2, [&] { return states_.temperatureAtEnthalpy(v_[var::Pc], v_[var::h2]); });
}

/// The pressure before the port: the port's own and the loss of the injected gas, whose density depends on
/// it.
template <class Tracing>
void EconomizerCalculation<Tracing>::injectionPressure() {
    constexpr double tolerance = 0.001;
    constexpr double perBar = 100;
    Number loss = 0;
    const auto gasAt = [&](var pressure) {
        trySet(var::T7D, [&] { return states_.dewTemperature(v_[pressure]); });
        trySet(var::T7, [&] { return v_[var::T7D] + v_[var::Sh]; });
        trySet(var::D7, [&] { return states_.density(v_[var::T7], v_[pressure]); });
        trySet(var::H7, [&] { return states_.enthalpy(v_[var::T7], v_[pressure]); });
        attemptSilently([&] {
            const clsEconomizer& port = compressor_.Economizer;
            const Number share =
                checked(tracing_.named("KPerdita", port.KPerdita) / tracing_.named("Sez", port.Sez));
            loss = checked(share * (v_[var::D7] / v_[var::D9D]) * v_[var::meco]);
        });
    };
    gasAt(var::P9);
    trySet(var::P7, [&] { return v_[var::P9] + loss; });

    using std::abs;
    Number error = 1;
    Number old = 0;
    // The pressure rises with the loss and the loss with the pressure: a step that hardly clears its fixed
    // point lingers there for thousands of passes before it settles or runs off.
    constexpr int patience = 10000;
    LostSearch passes(patience);
    while (abs(error) > tolerance && !AbortRequested()) {
        turn();
        gasAt(var::P7);
        attemptSilently([&] { old = v_[var::P7]; });
        trySet(var::P7, [&] { return v_[var::P9] + loss; });
        attemptSilently([&] { error = perBar * (v_[var::P7] - old); });
        if (passes.isLost(valueOf(error))) return;  // comes no nearer: the search judges what is there
    }
}

template void EconomizerCalculation<Untraced>::EcoCycle();
template void EconomizerCalculation<Tracer>::EcoCycle();
template void EconomizerCalculation<Untraced>::dischargeStates();
template void EconomizerCalculation<Tracer>::dischargeStates();

}  // namespace marvello
