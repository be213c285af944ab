#include "engine/CompressorCalculation.h"

#include <cmath>

#include "data/Arithmetic.h"
#include "data/Texts.h"
#include "engine/AbortRequested.h"
#include "engine/EconomizerCalculation.h"
#include "engine/MotorCurrent.h"
#include "engine/Units.h"

namespace marvello {

namespace {

constexpr double referenceSuperheat = 10;
constexpr double referenceSubcooling = 5;
constexpr double btuPerWattHour = 3.412;
/// An inverter drives the economizer's flow too while its current is this much below the rated one.
constexpr double inverterMargin = 1.15;

}  // namespace

CompressorCalculation::CompressorCalculation(clsCompressor& compressor, clsRefprop& refprop,
                                             const clsProjectConditions& conditions, formTimeout& timeout)
    : compressor_(compressor),
      refprop_(refprop),
      conditions_(conditions),
      timeout_(timeout),
      v_(compressor.Variables),
      units_(refprop.Convert),
      statements_(compressor.Messages.Error),
      rules_(compressor, conditions, statements_) {}

void CompressorCalculation::run() {
    AbortRequested() = false;
    preparation();
    calculateInEnvelope();
    timeout_.StopTimeout();
}

void CompressorCalculation::calculateInEnvelope() {
    statements_.attempt([this] { around_ = compressor_.limits.GetLimitsFromPoint(v_("Ted"), v_("Tcd")); });
    if (around_.Count() == 0) {
        compressor_.Messages.Error.add("messages.message01", "messages.message01");
        return;
    }
    rules_.envelopeRules(around_);
    if (failed()) return;

    timeout_.StartTimeout();
    rules_.inputRangeRules();
    correctInputs();
    if (failed()) return;

    suctionState();
    liquidSide();
    referenceSurfaces();
    flowsAndCapacity();
    current();
    ratedCurrents();
    efficiency();
    dischargeTemperature();
    dischargeLimit();
    dischargeStateAndOilLoad();
    rules_.oilRules(around_);
    economizer();
    condenser();
    rules_.closingRules();
}

void CompressorCalculation::preparation() {
    inputVariables();
    saturationVariables();
}

void CompressorCalculation::inputVariables() {
    const auto input = [this](const char* name, double value) { let(name, [value] { return value; }); };
    input("Ted", conditions_.TEvaporatingDew);
    input("Tcd", conditions_.TCondensationDew);
    input("ShType", conditions_.SuperHeatType);
    input("Sh", conditions_.SuperHeat);
    input("Sc", conditions_.SubCooling);
    input("OC", conditions_.OilCooling);
    input("OCCalculateMode", conditions_.OilCoolingCalculateMode);
    input("EcoCalculateMode", conditions_.EcoCalculateMode);
    input("Eco", conditions_.Eco);
    input("Fm", conditions_.MotorHz);
    input("MotorType", conditions_.MotorSize);
    input("Vm", conditions_.MotorVoltage);
    input("InverterFrequency", static_cast<double>(conditions_.InverterFrequency));

    const std::string surface = trimmed(compressor_.PolynomialSh.Name);
    if (surface.empty() || surface == "-") set("OCCalculateMode", [] { return 0.0; });
}

void CompressorCalculation::saturationVariables() {
    let("Pe", [&] { return refprop_.Pressure(v_("Ted"), saturation::dew); }, units_.Punits);
    // Kept: the pressure goes in where a temperature belongs, so this is not the bubble temperature at Pe.
    let("Teb", [&] { return refprop_.Pressure(v_("Pe"), saturation::bubble); }, units_.Tunits);
    let("Tem", [&] { return ((v_("Teb") - v_("Sc")) + v_("Ted")) / 2; }, units_.Tunits);
    let("Pc", [&] { return refprop_.Pressure(v_("Tcd"), saturation::dew); }, units_.Punits);
    let("Tcb", [&] { return saturationTemperature(v_("Pc"), saturation::bubble); }, units_.Tunits);
    let("Tcm", [&] { return ((v_("Tcb") - v_("Sc")) + v_("Tcd")) / 2; }, units_.Tunits);

    if (uppered(trimmed(refprop_.Refrigerant)) != "R407C") return;
    // With its glide the mean is that of the evaporator's inlet, after expansion, and its dew temperature.
    const double t = intermediate([&] { return v_("Tcb") - v_("Sc"); });
    const double liquid = intermediate([&] { return H(t, v_("Pc")); });
    const double inlet = intermediate([&] {
        return refprop_.Temperature(liquid, property::enthalpy, saturation::dew, v_("Pe"),
                                    property::pressure);
    });
    set("Tem", [&] { return (v_("Ted") + inlet) / 2; });
}

/// Keeps the states clear of the saturation line; the additions stay in what is shown.
void CompressorCalculation::correctInputs() {
    constexpr double clearance = 0.0001;
    set("Sh", [&] { return v_("Sh") + clearance; });
    set("Sc", [&] { return v_("Sc") + clearance; });
}

void CompressorCalculation::suctionState() {
    statements_.attempt([&] {
        // A suction temperature becomes a superheat, and stays one from here on.
        if (v_("ShType") != 0) v_.Item("Sh").setValue(v_("Sh") - v_("Ted"));
    });
    let("Tga", [&] { return v_("Ted") + v_("Sh"); }, units_.Tunits);
    let("Hga", [&] { return H(v_("Tga"), v_("Pe")); }, units_.Hunits);
    let("Sga", [&] { return S(v_("Tga"), v_("Pe")); }, units_.Sunits);
    let("Dga", [&] { return D(v_("Tga"), v_("Pe")); }, units_.Dunits);

    let("Tga10", [&] { return v_("Ted") + referenceSuperheat; }, units_.Tunits);
    let("Hga10", [&] { return H(v_("Tga10"), v_("Pe")); }, units_.Hunits);
    let("Sga10", [&] { return S(v_("Tga10"), v_("Pe")); }, units_.Sunits);
    let("Dga10", [&] { return D(v_("Tga10"), v_("Pe")); }, units_.Dunits);
}

void CompressorCalculation::liquidSide() {
    let("Plb", [&] { return v_("Pc"); }, units_.Punits);
    let("Tlb", [&] { return v_("Tcb"); }, units_.Tunits);
    // A pure fluid has liquid and vapour at one temperature and pressure, of which the library returns the
    // vapour: `Hlb` and `Hcb` are vapour enthalpies then, and those of the liquid for a blend. In Q0 they
    // cancel out.
    let("Tl", [&] { return v_("Tlb") - v_("Sc"); }, units_.Tunits);
    let("Hl", [&] { return H(v_("Tl"), v_("Pc")); }, units_.Hunits);
    let("Hlb", [&] { return H(v_("Tlb"), v_("Plb")); }, units_.Hunits);
    let("Tlba", [&] { return v_("Tcb") - referenceSubcooling; }, units_.Tunits);
    let("Hcb", [&] { return H(v_("Tcb"), v_("Pc")); }, units_.Hunits);
    let("hlba", [&] { return H(v_("Tlba"), v_("Pc")); }, units_.Hunits);
    let("HE", [&] { return H(v_("Ted"), v_("Pe")); });
}

void CompressorCalculation::referenceSurfaces() {
    let(
        "Q010", [&] { return compressor_.PolynomialQ0.at(v_("Ted"), v_("Tcd")); }, "KW",
        "Potenza frigo di riferimento");
    let(
        "Pta010", [&] { return compressor_.polynomialPta.at(v_("Ted"), v_("Tcd")); }, "KW",
        "Potenza Assorbita di riferimento");
}

void CompressorCalculation::flowsAndCapacity() {
    let(
        "M010", [&] { return v_("Q010") / (v_("Hga10") - v_("hlba")) * secondsPerHour; }, "Kg/h",
        "Portata di massa di riferimento");
    let("V010", [&] { return v_("M010") / v_("Dga10"); }, "", "Portata volumetrica di riferimento");
    let("Mbase", [&] { return v_("V010") * v_("Dga"); }, "Kw", "Portata di Massa");
    // Kept: multiplied where Q0 divides; nothing reads it.
    let("Qbase", [&] { return v_("Mbase") * (v_("Hga") - v_("hlba")) * secondsPerHour; });
    let(
        "Q0", [&] { return v_("Mbase") * ((v_("Hga") - v_("Hcb") + v_("Hlb")) - v_("Hl")) / secondsPerHour; },
        "Kw/h", "Potenza Frigo");
    let("Pta", [&] { return v_("Pta010"); }, "Kw/h");
}

// From here through the rated currents a failure is passed over: without motor data the rest still counts.
void CompressorCalculation::current() {
    if (compressor_.hasInvert) {
        const clsInverter& inverter = compressor_.InverterInfo;
        double powerFactor = 0;
        Statements::attemptSilently([&] { powerFactor = checked(inverter.powerFactor(v_("Pta"))); });
        Statements::attemptSilently(
            [&] { v_.add("CA", v_("Pta") * 1000 / ((std::sqrt(3.0) * powerFactor) * v_("Vm")), "", "A"); });
        return;
    }
    writeMotorCurrent(v_, compressor_.Motor, "Pta", "CA");
}

void CompressorCalculation::ratedCurrents() {
    const auto rated = [this](const char* name, double atReferenceVoltage) {
        Statements::attemptSilently(
            [&] { v_.add(name, atReferenceVoltage * referenceVoltage(v_("Fm")) / v_("Vm")); });
    };
    rated("Fla", compressor_.Fla);
    rated("Lra1", compressor_.Motor.Lra1);
    rated("Lra2", compressor_.Motor.Lra2);
}

void CompressorCalculation::efficiency() {
    // The quotient of the numbers that are shown, so that a reader gets the same.
    let("COP", [&] { return roundedToPlaces(v_("Q0"), 1) / roundedToPlaces(v_("Pta"), 1); });
    let("EER", [&] { return v_("COP") * btuPerWattHour; });
}

/// A compressor without a discharge surface has all its coefficients 0 and goes through here like any other.
void CompressorCalculation::dischargeTemperature() {
    const clsPolynomialSh& surface = compressor_.PolynomialSh;
    const double atReference = intermediate([&] { return surface.at(v_("Ted"), v_("Tcd")); });
    const double t = intermediate([&] { return atReference + v_("Sh") - surface.Sh; });
    const double corrected = t + static_cast<double>(compressor_.ctsca);
    let("T21", [&] { return corrected; });
    let("Tsca", [&] { return corrected; });
}

void CompressorCalculation::dischargeLimit() {
    statements_.attempt([&] {
        const double mode = v_("OCCalculateMode");
        if (mode == 1 && v_("T21") > compressor_.OilCoolingLimit) {
            v_.Item("Tsca").setValue(compressor_.OilCoolingLimit);
        } else if (mode == 2 && v_("T21") > v_("OC")) {
            v_.Item("Tsca").setValue(v_("OC"));
        } else if (mode == 0) {
            v_.Item("Tsca").setValue("-");
        }
    });
}

void CompressorCalculation::dischargeStateAndOilLoad() {
    let("H21", [&] { return H(v_("T21"), v_("Pc")); }, units_.Hunits, "Entalpia di massa");
    let("Pra", [] { return 0.0; }, "Kw", "Raffreddamento Olio");
    statements_.attempt([&] {
        if (v_("OCCalculateMode") == 1) v_.Item("OC").setValue(compressor_.OilCoolingLimit);
    });
    statements_.attempt([&] {
        const double mode = v_("OCCalculateMode");
        if (mode == 1 || mode == 2) CalculateOilCooling(compressor_, refprop_);
    });
}

void CompressorCalculation::economizer() {
    let("PLiq", [&] { return compressor_.Economizer.KForo * v_("Pe"); });
    let("T3", [&] { return v_("Tcb") - v_("Sc"); });
    let("H3", [&] { return H(v_("T3"), v_("Pc")); });
    statements_.attempt([&] {
        if (!compressor_.Economizer.hasPort() || v_("EcoCalculateMode") == 0) return;
        const bool hasMargin = !compressor_.hasInvert || v_("CA") * inverterMargin < compressor_.Fla;
        if (hasMargin) {
            EconomizerCalculation(compressor_, refprop_, timeout_).CalculateEconomizer();
        } else {
            compressor_.Messages.Error.add("messages.message37", "messages.message37");
        }
    });
}

void CompressorCalculation::condenser() {
    double meco = 0;
    statements_.attempt([&] {
        if (v_.Exist("meco")) meco = v_("meco");
    });
    let("Qc", [&] { return v_("Q0") + v_("Pta"); }, "", "Condenser Capacity");
    let("QcEco", [&] { return v_("Qc") * (1 + meco / v_("Mbase")); }, "", "Condenser Capacity with Eco");
}

}  // namespace marvello
