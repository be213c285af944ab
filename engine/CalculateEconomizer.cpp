#include <cmath>

#include "data/Arithmetic.h"
#include "data/Hooks.h"
#include "engine/EconomizerCalculation.h"
#include "engine/MotorCurrent.h"
#include "engine/Statements.h"
#include "engine/Units.h"

namespace marvello {

EconomizerCalculation::EconomizerCalculation(clsCompressor& compressor, clsRefprop& refprop,
                                             formTimeout& timeout)
    : compressor_(compressor), refprop_(refprop), timeout_(timeout), v_(compressor.Variables) {}

void EconomizerCalculation::set(const std::string& name, VariableValue value, const std::string& unit) {
    if (v_.Exist(name)) {
        v_.Item(name).setValue(std::move(value));
    } else {
        v_.add(name, std::move(value), "", unit);
    }
}

void EconomizerCalculation::trySet(const std::string& name, const std::function<double()>& value) {
    Statements::attemptSilently([&] { set(name, value()); });
}

void EconomizerCalculation::turn() {
    timeout_.poll();
    giveTurn();
}

void EconomizerCalculation::noSolution() {
    compressor_.Messages.Error.add("messages.message26", "messages.message26");
}

void EconomizerCalculation::CalculateEconomizer() {
    const double mode = v_("EcoCalculateMode");
    if (mode == 2 && !isCapacityWithinReach()) return;
    efficiencies();
    portState();

    set("meco", v_("Mev") * firstShare);
    set("EcoOK", -1.0);
    set("EcoModel", "Impossible");
    if (mode == 1) {
        Eco_Automatic();
    } else {
        Eco_Q0();
    }

    power();
    // By the motor's polynomial for inverter compressors too.
    writeMotorCurrent(v_, compressor_.Motor, "PtaEco", "CAECO");
    oilLoad();
    set("CopEco", (v_("Q0") + v_("Qeco")) / v_("PtaEco"));
    set("TSat", saturationTemperature(v_("Peco"), saturation::dew));
    if (mode == 1) checkApproach();
}

/// Between the capacity without economizer and a bound that adds the heat from the subcooled liquid to
/// saturated vapour at the evaporating pressure (`HE`), which is nearly the capacity again. No economizer
/// comes close to it: a search ends long before, with message26.
bool EconomizerCalculation::isCapacityWithinReach() {
    const double least = roundedToPlaces(v_("Q0"), 1);
    const double most = checked(v_("Q0") + v_("Mbase") * (v_("HE") - v_("Hl")) / secondsPerHour);
    if (v_("Eco") < least) {
        compressor_.Messages.Error.add("messages.message23", "messages.message23");
        return false;
    }
    if (v_("Eco") >= most) {
        compressor_.Messages.Error.add("messages.message24", "messages.message24");
        return false;
    }
    return true;
}

void EconomizerCalculation::efficiencies() {
    set("Mev", v_("Q0") * secondsPerHour / (v_("Hga") - v_("H3")));
    set("T2Iso", temperatureOfEntropy(v_("Pc"), v_("Sga")));
    set("H2Iso", enthalpyOfEntropy(v_("Pc"), v_("Sga")));
    set("EtaIso", v_("Mev") * (v_("H2Iso") - v_("Hga")) / (v_("Pta") * secondsPerHour));
    // The discharge without cooling again, this time without the correction of the catalogue.
    const clsPolynomialSh& surface = compressor_.PolynomialSh;
    set("T21", surface.at(v_("Ted"), v_("Tcd")) + v_("Sh") - surface.Sh);
    set("H21", H(v_("T21"), v_("Pc")));
    set("EtaComp", v_("EtaIso") * (v_("H21") - v_("Hga")) / (v_("H2Iso") - v_("Hga")));
    set("EtaComp1", v_("EtaComp") * 1.05);
}

void EconomizerCalculation::portState() {
    set("P9", v_("Pe") * compressor_.Economizer.KForo);
    set("H9Iso", enthalpyOfEntropy(v_("P9"), v_("Sga")));
    set("H9", v_("Hga") + (v_("H9Iso") - v_("Hga")) * v_("EtaComp") / v_("EtaIso"));
    set("T9", temperatureOfEnthalpy(v_("P9"), v_("H9")));
    set("T9D", saturationTemperature(v_("P9"), saturation::dew));
    set("D9D", refprop_.Density(v_("P9"), property::pressure, saturation::dew));
}

void EconomizerCalculation::power() {
    set("PtaEco", v_("Pta") + v_("meco") * (v_("h2") - v_("H71")) / (secondsPerHour * v_("EtaComp1")));
    if (compressor_.KValues.hasValue1()) set("PtaEco", v_("PtaEco") * compressor_.KValues.Value1);
}

/// Only a discharge above the limit replaces the load of the standard cycle.
void EconomizerCalculation::oilLoad() {
    set("Pcool", 0.0, "Kw");
    if (v_("T2") <= v_("OC")) return;
    set("H2cool", H(v_("OC"), v_("Pc")));
    set("Pcool", (v_("meco") + v_("Mev")) * (v_("h2") - v_("H2cool")) / secondsPerHour);
    set("Pra", v_("Pcool"));
}

/// To within what is displayed: 0.24 counts as 0.2 and passes.
void EconomizerCalculation::checkApproach() {
    const double missed = roundedToPlaces((v_("T31") - v_("TSat")) - v_("Eco"), 1);
    if (std::abs(missed) > 0.2) {
        compressor_.Messages.Error.add("messages.message25", "messages.message25");
    }
}

}  // namespace marvello
