#include <cmath>

#include "data/Arithmetic.h"
#include "engine/AbortRequested.h"
#include "engine/EconomizerCalculation.h"
#include "engine/Statements.h"
#include "engine/StepControl.h"
#include "engine/Units.h"

namespace marvello {

void EconomizerCalculation::EcoCycle() {
    injectionPressure();
    if (AbortRequested()) return;

    trySet("Peco", [&] { return v_("P7"); });
    const auto mixed = [&](const char* injected, const char* compressed) {
        return (v_(injected) * v_("meco") + v_(compressed) * v_("Mev")) / (v_("meco") + v_("Mev"));
    };
    trySet("H71", [&] { return mixed("H7", "H9"); });
    trySet("P71", [&] { return mixed("P7", "P9"); });
    trySet("T71", [&] { return temperatureOfEnthalpy(v_("P71"), v_("H71")); });
    trySet("S71",
           [&] { return refprop_.Entropy(v_("P71"), property::pressure, v_("H71"), property::enthalpy); });
    trySet("H7Iso", [&] { return enthalpyOfEntropy(v_("Pc"), v_("S71")); });
    trySet("h2", [&] { return v_("H71") + (v_("H7Iso") - v_("H71")) * v_("EtaComp1") / v_("EtaIso"); });
    trySet("T2", [&] { return temperatureOfEnthalpy(v_("Pc"), v_("h2")); });
    trySet("T6", [&] { return saturationTemperature(v_("Peco"), saturation::bubble); });
    trySet("Qeco", [&] { return v_("meco") * (v_("H7") - v_("H3")) / secondsPerHour; });
    trySet("H31", [&] { return v_("H3") - v_("meco") * (v_("H7") - v_("H3")) / v_("Mev"); });
    trySet("T31", [&] { return temperatureOfEnthalpy(v_("Pc"), v_("H31")); });
    trySet("SCeco", [&] { return v_("T3") - v_("T31"); });
}

/// The pressure before the port: the port's own and the loss of the injected gas, whose density depends on
/// it.
void EconomizerCalculation::injectionPressure() {
    constexpr double tolerance = 0.001;
    constexpr double perBar = 100;
    double loss = 0;
    const auto gasAt = [&](const char* pressure) {
        trySet("T7D", [&] { return saturationTemperature(v_(pressure), saturation::dew); });
        trySet("T7", [&] { return v_("T7D") + v_("Sh"); });
        trySet("D7", [&] { return D(v_("T7"), v_(pressure)); });
        trySet("H7", [&] { return H(v_("T7"), v_(pressure)); });
        Statements::attemptSilently([&] {
            const clsEconomizer& port = compressor_.Economizer;
            loss = checked(checked(port.KPerdita / port.Sez) * (v_("D7") / v_("D9D")) * v_("meco"));
        });
    };
    gasAt("P9");
    trySet("P7", [&] { return v_("P9") + loss; });

    double error = 1;
    double old = 0;
    // The pressure rises with the loss and the loss with the pressure: a step that hardly clears its fixed
    // point lingers there for thousands of passes before it settles or runs off.
    constexpr int patience = 10000;
    LostSearch passes(patience);
    while (std::abs(error) > tolerance && !AbortRequested()) {
        turn();
        gasAt("P7");
        Statements::attemptSilently([&] { old = v_("P7"); });
        trySet("P7", [&] { return v_("P9") + loss; });
        Statements::attemptSilently([&] { error = perBar * (v_("P7") - old); });
        if (passes.isLost(error, loss, error)) return;  // comes no nearer: the search judges what is there
    }
}

}  // namespace marvello
