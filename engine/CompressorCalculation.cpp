#include "engine/CompressorCalculation.h"

#include <cmath>

#include "catalogue/SeriesTraits.h"
#include "data/Arithmetic.h"
#include "data/Constants.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "engine/EconomizerCalculation.h"
#include "engine/MotorCurrent.h"

namespace marvello {

namespace {

constexpr double referenceSuperheat = 10;
constexpr double referenceSubcooling = 5;
constexpr double btuPerWattHour = 3.412;  // rounded, as in the tables of the trade
/// An inverter drives the economizer's flow too while its current is this much below the rated one.
constexpr double inverterMargin = 1.15;

}  // namespace

template <class Tracing>
CompressorCalculation<Tracing>::CompressorCalculation(clsCompressor& compressor, clsRefprop& refprop,
                                                      const clsProjectConditions& conditions,
                                                      formTimeout& timeout, const Tracing& tracing)
    : tracing_(tracing),
      compressor_(compressor),
      states_(tracing.states(refprop)),
      conditions_(conditions),
      timeout_(timeout),
      v_(tracing.variables(compressor.Variables)),
      statements_(compressor, refprop, tracing),
      rules_(compressor, conditions, statements_, tracing) {}

template <class Tracing>
void CompressorCalculation<Tracing>::run() {
    AbortRequested() = false;
    preparation();
    calculateInEnvelope();
    timeout_.StopTimeout();
}

template <class Tracing>
void CompressorCalculation<Tracing>::calculateInEnvelope() {
    statements_.attempt("GetLimitsFromPoint", [this] {
        around_ = compressor_.limits.holding(valueOf(v_[var::Ted]), valueOf(v_[var::Tcd]));
    });
    if (!tracing_.test("inside(any limit)", around_.Count() > 0)) {
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
    statements_.warnOfUndefinedStates();
}

template <class Tracing>
void CompressorCalculation<Tracing>::preparation() {
    inputVariables();
    saturationVariables();
}

template <class Tracing>
void CompressorCalculation<Tracing>::inputVariables() {
    const auto input = [this](var variable, double value) { let(variable, [value] { return value; }); };
    input(var::Ted, conditions_.TEvaporatingDew);
    input(var::Tcd, conditions_.TCondensationDew);
    input(var::ShType, codeOf(conditions_.SuperHeatType));
    input(var::Sh, conditions_.SuperHeat);
    input(var::Sc, conditions_.SubCooling);
    input(var::OC, conditions_.OilCooling);
    input(var::OCCalculateMode, codeOf(conditions_.OilCoolingCalculateMode));
    input(var::EcoCalculateMode, codeOf(conditions_.EcoCalculateMode));
    input(var::Eco, conditions_.Eco);
    input(var::Fm, conditions_.MotorHz);
    input(var::MotorType, codeOf(conditions_.MotorSize));
    input(var::Vm, conditions_.MotorVoltage);
    input(var::InverterFrequency, static_cast<double>(conditions_.InverterFrequency));

    const std::string surface = trimmed(compressor_.PolynomialSh.Name);
    if (surface.empty() || surface == "-")
        let(var::OCCalculateMode, [] { return static_cast<double>(OilCoolingMode::none); });
}

template <class Tracing>
void CompressorCalculation<Tracing>::saturationVariables() {
    let(var::Pe, [&] { return states_.dewPressure(v_[var::Ted]); });
    // Kept: the pressure goes in where a temperature belongs, so this is not the bubble temperature at Pe.
    // The permitted subcooling and the mid temperature of the results follow from it.
    let(var::Teb, [&] { return states_.bubblePressure(v_[var::Pe]); });
    let(var::Tem, [&] { return ((v_[var::Teb] - v_[var::Sc]) + v_[var::Ted]) / 2; });
    let(var::Pc, [&] { return states_.dewPressure(v_[var::Tcd]); });
    let(var::Tcb, [&] { return states_.bubbleTemperature(v_[var::Pc]); });
    let(var::Tcm, [&] { return ((v_[var::Tcb] - v_[var::Sc]) + v_[var::Tcd]) / 2; });

    if (!refrigerantTraits(trimmed(compressor_.Refrigerant)).hasMidTemperatures()) return;
    // With its glide the mid temperature is that of the evaporator's inlet, after expansion, and its dew
    // temperature.
    const Number t = intermediate(var::Tem, [&] { return v_[var::Tcb] - v_[var::Sc]; });
    const Number liquid = intermediate(var::Tem, [&] { return states_.enthalpy(t, v_[var::Pc]); });
    const Number inlet =
        intermediate(var::Tem, [&] { return states_.temperatureAtEnthalpy(v_[var::Pe], liquid); });
    let(var::Tem, [&] { return (v_[var::Ted] + inlet) / 2; });
}

/// Keeps the states clear of the saturation line; the additions stay in what is shown.
template <class Tracing>
void CompressorCalculation<Tracing>::correctInputs() {
    constexpr double clearance = 0.0001;
    let(var::Sh, [&] { return v_[var::Sh] + clearance; });
    let(var::Sc, [&] { return v_[var::Sc] + clearance; });
}

template <class Tracing>
void CompressorCalculation<Tracing>::suctionState() {
    statements_.attempt("Sh", [&] {
        // A suction temperature becomes a superheat, and stays one from here on.
        if (!is(var::ShType, SuperheatKind::difference)) statements_.set(var::Sh, v_[var::Sh] - v_[var::Ted]);
    });
    let(var::Tga, [&] { return v_[var::Ted] + v_[var::Sh]; });
    let(var::Hga, [&] { return states_.enthalpy(v_[var::Tga], v_[var::Pe]); });
    let(var::Sga, [&] { return states_.entropy(v_[var::Tga], v_[var::Pe]); });
    let(var::Dga, [&] { return states_.density(v_[var::Tga], v_[var::Pe]); });

    let(var::Tga10, [&] { return v_[var::Ted] + referenceSuperheat; });
    let(var::Hga10, [&] { return states_.enthalpy(v_[var::Tga10], v_[var::Pe]); });
    let(var::Sga10, [&] { return states_.entropy(v_[var::Tga10], v_[var::Pe]); });
    let(var::Dga10, [&] { return states_.density(v_[var::Tga10], v_[var::Pe]); });
}

template <class Tracing>
void CompressorCalculation<Tracing>::liquidSide() {
    let(var::Plb, [&] { return v_[var::Pc]; });
    let(var::Tlb, [&] { return v_[var::Tcb]; });
    // A pure fluid has liquid and vapour at one temperature and pressure, of which the library returns the
    // vapour: `Hlb` and `Hcb` are vapour enthalpies then, and those of the liquid for a blend. In Q0 they
    // cancel out.
    let(var::Tl, [&] { return v_[var::Tlb] - v_[var::Sc]; });
    let(var::Hl, [&] { return states_.enthalpy(v_[var::Tl], v_[var::Pc]); });
    let(var::Hlb, [&] { return states_.enthalpy(v_[var::Tlb], v_[var::Plb]); });
    let(var::Tlba, [&] { return v_[var::Tcb] - referenceSubcooling; });
    let(var::Hcb, [&] { return states_.enthalpy(v_[var::Tcb], v_[var::Pc]); });
    let(var::hlba, [&] { return states_.enthalpy(v_[var::Tlba], v_[var::Pc]); });
    let(var::HE, [&] { return states_.enthalpy(v_[var::Ted], v_[var::Pe]); });
}

template <class Tracing>
void CompressorCalculation<Tracing>::referenceSurfaces() {
    const auto at = [this](std::string_view name, const clsPolynomial& surface) {
        return tracing_.surface(name, surface, v_[var::Ted], v_[var::Tcd]);
    };
    let(var::Q010, [&] { return at("Q0", compressor_.PolynomialQ0); });
    let(var::Pta010, [&] { return at("Pta", compressor_.polynomialPta); });
}

template <class Tracing>
void CompressorCalculation<Tracing>::flowsAndCapacity() {
    let(var::M010, [&] { return v_[var::Q010] / (v_[var::Hga10] - v_[var::hlba]) * secondsPerHour; });
    let(var::V010, [&] { return v_[var::M010] / v_[var::Dga10]; });
    let(var::Mbase, [&] { return v_[var::V010] * v_[var::Dga]; });
    // Kept: multiplied where Q0 divides; nothing reads it, but lists of variables show it.
    let(var::Qbase, [&] { return v_[var::Mbase] * (v_[var::Hga] - v_[var::hlba]) * secondsPerHour; });
    let(var::Q0, [&] {
        return v_[var::Mbase] * ((v_[var::Hga] - v_[var::Hcb] + v_[var::Hlb]) - v_[var::Hl]) / secondsPerHour;
    });
    let(var::Pta, [&] { return v_[var::Pta010]; });
}

// From here through the rated currents a failure is passed over: without motor data the rest still counts.
template <class Tracing>
void CompressorCalculation<Tracing>::current() {
    if (tracing_.test("hasInvert", compressor_.hasInvert)) {
        const clsInverter& inverter = compressor_.InverterInfo;
        const Number root = tracing_.named("√3", std::sqrt(3.0));
        Number powerFactor = 0;
        attemptSilently([&] { powerFactor = checked(tracing_.powerFactor(inverter, v_[var::Pta])); });
        attemptSilently([&] { v_.set(var::CA, v_[var::Pta] * 1000 / ((root * powerFactor) * v_[var::Vm])); });
        return;
    }
    writeMotorCurrent(tracing_, v_, compressor_.Motor, var::Pta, var::CA);
}

template <class Tracing>
void CompressorCalculation<Tracing>::ratedCurrents() {
    const auto rated = [this](var variable, std::string_view name, double atReferenceVoltage) {
        attemptSilently([&] {
            v_.set(variable, tracing_.named(name, atReferenceVoltage) *
                                 tracing_.named("Vref", referenceVoltage(valueOf(v_[var::Fm]))) /
                                 v_[var::Vm]);
        });
    };
    rated(var::Fla, "FLA", compressor_.Fla);
    rated(var::Lra1, "LRA1", compressor_.Motor.Lra1);
    rated(var::Lra2, "LRA2", compressor_.Motor.Lra2);
}

template <class Tracing>
void CompressorCalculation<Tracing>::efficiency() {
    // The quotient of the numbers that are shown, so that a reader gets the same.
    let(var::COP, [&] { return roundedToPlaces(v_[var::Q0], 1) / roundedToPlaces(v_[var::Pta], 1); });
    let(var::EER, [&] { return v_[var::COP] * btuPerWattHour; });
}

/// A compressor without a discharge surface has all its coefficients 0 and goes through here like any other.
template <class Tracing>
void CompressorCalculation<Tracing>::dischargeTemperature() {
    const clsPolynomialSh& surface = compressor_.PolynomialSh;
    const Number atReference =
        intermediate(var::T21, [&] { return tracing_.surface("Tsca", surface, v_[var::Ted], v_[var::Tcd]); });
    const Number t = intermediate(
        var::T21, [&] { return atReference + v_[var::Sh] - tracing_.named("Tsca.Sh", surface.Sh); });
    const Number corrected = t + tracing_.named("ctsca", static_cast<double>(compressor_.ctsca));
    let(var::T21, [&] { return corrected; });
    let(var::Tsca, [&] { return corrected; });
}

template <class Tracing>
void CompressorCalculation<Tracing>::dischargeLimit() {
    const Number limit = tracing_.named("OilCoolingLimit", compressor_.OilCoolingLimit);
    statements_.attempt("Tsca", [&] {
        if (is(var::OCCalculateMode, OilCoolingMode::catalogueLimit) && v_[var::T21] > limit) {
            v_.set(var::Tsca, limit);
        } else if (is(var::OCCalculateMode, OilCoolingMode::givenLimit) && v_[var::T21] > v_[var::OC]) {
            v_.set(var::Tsca, v_[var::OC]);
        } else if (is(var::OCCalculateMode, OilCoolingMode::none)) {
            v_.set(var::Tsca, "-");
        }
    });
}

template <class Tracing>
void CompressorCalculation<Tracing>::dischargeStateAndOilLoad() {
    let(var::H21, [&] { return states_.enthalpy(v_[var::T21], v_[var::Pc]); });
    let(var::Pra, [] { return 0.0; });
    statements_.attempt("OC", [&] {
        if (is(var::OCCalculateMode, OilCoolingMode::catalogueLimit))
            v_.set(var::OC, tracing_.named("OilCoolingLimit", compressor_.OilCoolingLimit));
    });
    statements_.attempt("oil cooling", [&] {
        if (is(var::OCCalculateMode, OilCoolingMode::catalogueLimit) ||
            is(var::OCCalculateMode, OilCoolingMode::givenLimit))
            CalculateOilCooling();
    });
}

template <class Tracing>
void CompressorCalculation<Tracing>::economizer() {
    let(var::PLiq, [&] { return tracing_.named("KForo", compressor_.Economizer.KForo) * v_[var::Pe]; });
    let(var::T3, [&] { return v_[var::Tcb] - v_[var::Sc]; });
    let(var::H3, [&] { return states_.enthalpy(v_[var::T3], v_[var::Pc]); });
    statements_.attempt("economizer", [&] {
        if (!tracing_.test("hasPort", compressor_.Economizer.hasPort()) ||
            is(var::EcoCalculateMode, EconomizerMode::none))
            return;
        const bool hasMargin =
            !compressor_.hasInvert || v_[var::CA] * inverterMargin < tracing_.named("FLA", compressor_.Fla);
        if (hasMargin) {
            EconomizerCalculation<Tracing>(compressor_, states_, timeout_, statements_, tracing_)
                .CalculateEconomizer();
        } else {
            compressor_.Messages.Error.add("messages.message37", "messages.message37");
        }
    });
}

template <class Tracing>
void CompressorCalculation<Tracing>::condenser() {
    Number meco = 0;
    statements_.attempt("meco", [&] {
        if (v_.isSet(var::meco)) meco = v_[var::meco];
    });
    let(var::Qc, [&] { return v_[var::Q0] + v_[var::Pta]; });
    let(var::QcEco, [&] { return v_[var::Qc] * (1 + meco / v_[var::Mbase]); });
}

template class CompressorCalculation<Untraced>;
template class CompressorCalculation<Tracer>;

}  // namespace marvello
