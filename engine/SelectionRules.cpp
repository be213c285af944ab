#include "engine/SelectionRules.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "data/Arithmetic.h"
#include "data/Texts.h"
#include "engine/Margins.h"

namespace marvello {

namespace {

void raise(clsMessages& list, std::string_view key) { list.add(key, key); }

/// With an argument 0 that no text refers to.
void raiseWithZero(clsMessages& list, std::string_view key) { list.add(key, key, {0.0}); }

}  // namespace

const FrequencyLimit* frequencyLimit(const HoldingLimits& around) {
    static constexpr std::array limits{FrequencyLimit{limitType::hertz70, 70, "<= 70 Hz"},
                                       FrequencyLimit{limitType::hertz60, 60, "<=60 Hz"},
                                       FrequencyLimit{limitType::hertz50, 50, "<=50 Hz"}};
    const auto* const found = std::ranges::find_if(
        limits, [&](const auto& limit) { return around.FindLimitType(limit.limitType); });
    return found == limits.end() ? nullptr : found;
}

template <class Tracing>
SelectionRules<Tracing>::SelectionRules(clsCompressor& compressor, const clsProjectConditions& conditions,
                                        Statements<Tracing>& statements, const Tracing& tracing)
    : tracing_(tracing),
      compressor_(compressor),
      conditions_(conditions),
      statements_(statements),
      messages_(compressor.Messages),
      v_(tracing.variables(compressor.Variables)),
      series_(seriesTraits(compressor.Serie)),
      refrigerant_(refrigerantTraits(compressor.Refrigerant)) {}

template <class Tracing>
void SelectionRules<Tracing>::envelopeRules(const HoldingLimits& around) {
    const bool isForbidden = isInside(around, limitType::forbidden);
    if (isForbidden) {
        rule(1, [&] { forbiddenRegion(); });
    } else {
        rule(2, [&] { capacityStep(around); });
        rule(3, [&] { polynomials(); });
        rule(4, [&] { polynomialsAndMotor(around); });
        rule(5, [&] { overLimit(around); });
        rule(6, [&] { oilFilter(around); });
        rule(7, [&] { smallMotor(around); });
        rule(8, [&] { injection(around); });
        rule(9, [&] { suggestedVersion(around); });
    }
    rule(10, [&] { inverterFrequency(around); });
}

template <class Tracing>
void SelectionRules<Tracing>::inputRangeRules() {
    rule(11, [&] { subcooling(); });
    rule(12, [&] { statements_.attempt("superheat rule", [this] { superheat(); }); });
}

template <class Tracing>
void SelectionRules<Tracing>::oilRules(const HoldingLimits& around) {
    rule(13, [&] { statements_.attempt("oil cooling rule", [&] { oilCooling(around); }); });
    rule(14, [&] { statements_.attempt("injection rule", [&] { injectionForOil(around); }); });
}

template <class Tracing>
void SelectionRules<Tracing>::closingRules() {
    rule(16, [&] { lowTemperatureRefrigerant(); });
    rule(17, [&] { variableSeries(); });
    rule(18, [&] { statements_.attempt("power rule", [this] { powerOfModel(); }); });
    rule(19, [&] { modelOnRequest(); });
    rule(20, [&] { flammableRefrigerant(); });
}

template <class Tracing>
void SelectionRules<Tracing>::forbiddenRegion() {
    messages_.Clear();
    raise(messages_.Error, "messages.message02");
}

template <class Tracing>
void SelectionRules<Tracing>::capacityStep(const HoldingLimits& around) {
    const Number step = tracing_.named("StepCapacity", conditions_.StepCapacity);
    if (step == 100) {
        if (tracing_.test("series.isOnRequest", series_.isOnRequest))
            raiseWithZero(messages_.Information, "messages.message28");
        return;
    }
    const bool allowed = (step == 75 && isInside(around, limitType::step75)) ||
                         (step == 50 && isInside(around, limitType::step50)) ||
                         (step == 25 && isInside(around, limitType::step25));
    if (allowed) {
        raise(messages_.Information, "messages.message30");
    } else {
        raise(messages_.Error, "messages.message29");
    }
}

template <class Tracing>
bool SelectionRules<Tracing>::hasSoundPolynomials() const {
    return tracing_.test("Pta.isOK", compressor_.polynomialPta.isOK()) &&
           tracing_.test("Q0.isOK", compressor_.PolynomialQ0.isOK());
}

template <class Tracing>
void SelectionRules<Tracing>::polynomials() {
    if (!hasSoundPolynomials()) raise(messages_.Error, "messages.message31");
}

// Kept: the polynomials and the capacity step are tested again, so their messages come twice, as lists and
// reports have always had them.
template <class Tracing>
void SelectionRules<Tracing>::polynomialsAndMotor(const HoldingLimits& around) {
    if (!hasSoundPolynomials()) {
        raise(messages_.Error, "messages.message31");
    } else if (!hasInverter() && !tracing_.test("series.isOpen", series_.drive == Drive::open) &&
               !tracing_.test("motor.isValid", compressor_.Motor.isValid())) {
        raise(messages_.Error, "messages.message33");
    } else {
        capacityStep(around);
    }
}

template <class Tracing>
void SelectionRules<Tracing>::overLimit(const HoldingLimits& around) {
    if (isInside(around, limitType::over) && !isInside(around, limitType::application)) {
        raise(messages_.Attention, "messages.message02");
    }
}

template <class Tracing>
void SelectionRules<Tracing>::oilFilter(const HoldingLimits& around) {
    if (isInside(around, limitType::oilFilter)) raise(messages_.Attention, "messages.message03");
}

template <class Tracing>
void SelectionRules<Tracing>::smallMotor(const HoldingLimits& around) {
    if (!tracing_.test("hasFullSmallMotor", compressor_.hasFullSmallMotor)) return;
    const Number motor = tracing_.named("motor.type", codeOf(compressor_.Motor.MotorType));
    const bool inSmallMotorLimit = isInside(around, limitType::smallMotor);
    if (inSmallMotorLimit && motor == codeOf(MotorChoice::full))
        raise(messages_.Information, "messages.message04");
    if (hasLimit(limitType::smallMotor) && motor == codeOf(MotorChoice::small) && !inSmallMotorLimit) {
        raise(messages_.Error, "messages.message05");
    }
}

template <class Tracing>
void SelectionRules<Tracing>::injection(const HoldingLimits& around) {
    if (isInside(around, limitType::oilCooling) || !isInside(around, limitType::injection)) return;
    raise(messages_.Attention, tracing_.test("series.isLiquidInjected", series_.isLiquidInjected)
                                   ? "messages.message06"
                                   : "messages.message07");
}

template <class Tracing>
void SelectionRules<Tracing>::suggestedVersion(const HoldingLimits& around) {
    if (isInside(around, limitType::hOnly)) {
        raise(messages_.Information, "messages.message08");
    } else if (isInside(around, limitType::hSuggested)) {
        raise(messages_.Information, "messages.message09");
    } else if (isInside(around, limitType::sSuggested)) {
        raise(messages_.Information, "messages.message10");
    }
}

template <class Tracing>
void SelectionRules<Tracing>::inverterFrequency(const HoldingLimits& around) {
    if (!hasInverter()) return;
    const FrequencyLimit* limit = frequencyLimit(around);
    if (limit != nullptr &&
        tracing_.named("InverterFrequency", static_cast<double>(conditions_.InverterFrequency)) >
            tracing_.named(limitName(limit->limitType), static_cast<double>(limit->hertz)))
        messages_.Error.add("messages.message35", limit->format);
}

template <class Tracing>
void SelectionRules<Tracing>::subcooling() {
    constexpr double maxShare = 0.8;  // of the lift from evaporating to condensing
    Number highest = 0;
    statements_.attempt("subcooling rule",
                        [&] { highest = roundedToPlaces((v_[var::Tcb] - v_[var::Teb]) * maxShare, 2); });
    statements_.attempt("subcooling rule", [&] {
        if (v_[var::Sc] < 0 || v_[var::Sc] > highest) {
            messages_.Error.add("messages.message12", "messages.message12 ({0})", {valueOf(highest)});
        }
    });
}

template <class Tracing>
void SelectionRules<Tracing>::superheat() {
    const Number highest = tracing_.named("maxSuperheat", refrigerant_.maxSuperheat);
    const Number base = v_[var::ShType] == codeOf(SuperheatKind::difference) ? Number(0) : v_[var::Ted];
    if (v_[var::Sh] < base || v_[var::Sh] > base + highest)
        raiseWithZero(messages_.Error, "messages.message13");
}

template <class Tracing>
void SelectionRules<Tracing>::oilCooling(const HoldingLimits& around) {
    if (!isInside(around, limitType::oilCooling)) return;
    if (!hasHVersions()) {
        raise(messages_.Attention, "messages.message16");
    } else {
        const bool isHigh =
            tracing_.test("model contains H", lowered(compressor_.Model).find('h') != std::string::npos);
        raiseWithZero(messages_.Attention, isHigh ? "messages.message14" : "messages.message15");
    }
}

template <class Tracing>
void SelectionRules<Tracing>::injectionForOil(const HoldingLimits& around) {
    if (!hasLimit(limitType::injection) || isInside(around, limitType::injection)) return;
    if (v_[var::Pra] > 0)
        raise(messages_.Attention, hasHVersions() ? "messages.message17" : "messages.message07");
}

template <class Tracing>
void SelectionRules<Tracing>::lowTemperatureRefrigerant() {
    if (tracing_.test("series.needsConfirmation", series_.needsConfirmation) &&
        tracing_.test("refrigerant.isForLowTemperature", refrigerant_.isForLowTemperature))
        raiseWithZero(messages_.Attention, "messages.message18");
}

template <class Tracing>
void SelectionRules<Tracing>::variableSeries() {
    if (!tracing_.test("series.hasAdaptiveRatio", series_.hasAdaptiveRatio)) return;
    raiseWithZero(messages_.Information, "messages.message19");
    raiseWithZero(messages_.Attention, "messages.message20");
}

template <class Tracing>
void SelectionRules<Tracing>::powerOfModel() {
    if (!raisedPowerLimit(var::Pta) && v_.isSet(var::PtaEco)) raisedPowerLimit(var::PtaEco);
}

template <class Tracing>
bool SelectionRules<Tracing>::raisedPowerLimit(var variable) {
    for (const PowerLimit& limit : series_.powerLimits) {
        if (compressor_.Model == limit.model &&
            v_[variable] > tracing_.named("powerLimit", limit.kilowatts)) {
            raiseWithZero(messages_.Error, "messages.message32");
            return true;
        }
    }
    return false;
}

template <class Tracing>
void SelectionRules<Tracing>::modelOnRequest() {
    const std::string model = uppered(compressor_.Model);
    const bool isOnRequest =
        (!series_.requestPrefix.empty() && model.starts_with(series_.requestPrefix)) ||
        std::ranges::find(series_.requestModels, trimmed(model)) != series_.requestModels.end();
    if (tracing_.test("model is on request", isOnRequest))
        raiseWithZero(messages_.Information, "messages.message34");
}

template <class Tracing>
void SelectionRules<Tracing>::flammableRefrigerant() {
    if (!tracing_.test("refrigerant.isFlammable", refrigerant_.isFlammable)) return;
    raiseWithZero(messages_.Information, "messages.message28");
    raiseWithZero(messages_.Information, "messages.message35");
    raiseWithZero(messages_.Attention, "messages.message36");
}

template class SelectionRules<Untraced>;
template class SelectionRules<Tracer>;

bool isWhateverTheInputs(std::string_view warning) {
    return warning == "messages.message18" || warning == "messages.message20" ||
           warning == "messages.message36";
}

}  // namespace marvello
