#include "engine/SelectionRules.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "data/Arithmetic.h"
#include "data/Texts.h"

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

SelectionRules::SelectionRules(clsCompressor& compressor, const clsProjectConditions& conditions,
                               Statements& statements)
    : compressor_(compressor),
      conditions_(conditions),
      statements_(statements),
      messages_(compressor.Messages),
      v_(compressor.Variables),
      series_(seriesTraits(compressor.Serie)),
      refrigerant_(refrigerantTraits(compressor.Refrigerant)) {}

void SelectionRules::envelopeRules(const HoldingLimits& around) {
    if (around.FindLimitType(limitType::forbidden)) {
        forbiddenRegion();
    } else {
        capacityStep(around);
        polynomials();
        polynomialsAndMotor(around);
        overLimit(around);
        oilFilter(around);
        smallMotor(around);
        injection(around);
        suggestedVersion(around);
    }
    inverterFrequency(around);
}

void SelectionRules::inputRangeRules() {
    subcooling();
    statements_.attempt("superheat rule", [this] { superheat(); });
}

void SelectionRules::oilRules(const HoldingLimits& around) {
    statements_.attempt("oil cooling rule", [&] { oilCooling(around); });
    statements_.attempt("injection rule", [&] { injectionForOil(around); });
}

void SelectionRules::closingRules() {
    lowTemperatureRefrigerant();
    variableSeries();
    statements_.attempt("power rule", [this] { powerOfModel(); });
    modelOnRequest();
    flammableRefrigerant();
}

void SelectionRules::forbiddenRegion() {
    messages_.Clear();
    raise(messages_.Error, "messages.message02");
}

void SelectionRules::capacityStep(const HoldingLimits& around) {
    const int step = conditions_.StepCapacity;
    if (step == 100) {
        if (series_.isOnRequest) raiseWithZero(messages_.Information, "messages.message28");
        return;
    }
    const bool allowed = (step == 75 && around.FindLimitType(limitType::step75)) ||
                         (step == 50 && around.FindLimitType(limitType::step50)) ||
                         (step == 25 && around.FindLimitType(limitType::step25));
    if (allowed) {
        raise(messages_.Information, "messages.message30");
    } else {
        raise(messages_.Error, "messages.message29");
    }
}

bool SelectionRules::hasSoundPolynomials() const {
    return compressor_.polynomialPta.isOK() && compressor_.PolynomialQ0.isOK();
}

void SelectionRules::polynomials() {
    if (!hasSoundPolynomials()) raise(messages_.Error, "messages.message31");
}

// Kept: the polynomials and the capacity step are tested again, so their messages come twice, as lists and
// reports have always had them.
void SelectionRules::polynomialsAndMotor(const HoldingLimits& around) {
    if (!hasSoundPolynomials()) {
        raise(messages_.Error, "messages.message31");
    } else if (!compressor_.hasInvert && series_.drive != Drive::open && !compressor_.Motor.isValid()) {
        raise(messages_.Error, "messages.message33");
    } else {
        capacityStep(around);
    }
}

void SelectionRules::overLimit(const HoldingLimits& around) {
    if (around.FindLimitType(limitType::over) && !around.FindLimitType(limitType::application)) {
        raise(messages_.Attention, "messages.message02");
    }
}

void SelectionRules::oilFilter(const HoldingLimits& around) {
    if (around.FindLimitType(limitType::oilFilter)) raise(messages_.Attention, "messages.message03");
}

void SelectionRules::smallMotor(const HoldingLimits& around) {
    if (!compressor_.hasFullSmallMotor) return;
    const bool inSmallMotorLimit = around.FindLimitType(limitType::smallMotor);
    if (inSmallMotorLimit && compressor_.Motor.MotorType == MotorChoice::full)
        raise(messages_.Information, "messages.message04");
    if (compressor_.limits.FindLimitType(limitType::smallMotor) &&
        compressor_.Motor.MotorType == MotorChoice::small && !inSmallMotorLimit) {
        raise(messages_.Error, "messages.message05");
    }
}

void SelectionRules::injection(const HoldingLimits& around) {
    if (around.FindLimitType(limitType::oilCooling) || !around.FindLimitType(limitType::injection)) return;
    raise(messages_.Attention, series_.isLiquidInjected ? "messages.message06" : "messages.message07");
}

void SelectionRules::suggestedVersion(const HoldingLimits& around) {
    if (around.FindLimitType(limitType::hOnly)) {
        raise(messages_.Information, "messages.message08");
    } else if (around.FindLimitType(limitType::hSuggested)) {
        raise(messages_.Information, "messages.message09");
    } else if (around.FindLimitType(limitType::sSuggested)) {
        raise(messages_.Information, "messages.message10");
    }
}

void SelectionRules::inverterFrequency(const HoldingLimits& around) {
    if (!compressor_.hasInvert) return;
    const FrequencyLimit* limit = frequencyLimit(around);
    if (limit != nullptr && conditions_.InverterFrequency > limit->hertz)
        messages_.Error.add("messages.message35", limit->format);
}

void SelectionRules::subcooling() {
    constexpr double maxShare = 0.8;  // of the lift from evaporating to condensing
    double highest = 0;
    statements_.attempt("subcooling rule",
                        [&] { highest = roundedToPlaces((v_[var::Tcb] - v_[var::Teb]) * maxShare, 2); });
    statements_.attempt("subcooling rule", [&] {
        if (v_[var::Sc] < 0 || v_[var::Sc] > highest) {
            messages_.Error.add("messages.message12", "messages.message12 ({0})", {highest});
        }
    });
}

void SelectionRules::superheat() {
    const double highest = refrigerant_.maxSuperheat;
    const double base = conditions_.SuperHeatType == SuperheatKind::difference ? 0 : v_[var::Ted];
    if (v_[var::Sh] < base || v_[var::Sh] > base + highest)
        raiseWithZero(messages_.Error, "messages.message13");
}

void SelectionRules::oilCooling(const HoldingLimits& around) {
    if (!around.FindLimitType(limitType::oilCooling)) return;
    if (!series_.hasHVersions) {
        raise(messages_.Attention, "messages.message16");
    } else {
        const bool isHigh = lowered(compressor_.Model).find('h') != std::string::npos;
        raiseWithZero(messages_.Attention, isHigh ? "messages.message14" : "messages.message15");
    }
}

void SelectionRules::injectionForOil(const HoldingLimits& around) {
    if (!compressor_.limits.FindLimitType(limitType::injection) || around.FindLimitType(limitType::injection))
        return;
    if (v_[var::Pra] > 0)
        raise(messages_.Attention, series_.hasHVersions ? "messages.message17" : "messages.message07");
}

void SelectionRules::lowTemperatureRefrigerant() {
    if (series_.needsConfirmation && refrigerant_.isForLowTemperature)
        raiseWithZero(messages_.Attention, "messages.message18");
}

void SelectionRules::variableSeries() {
    if (!series_.hasAdaptiveRatio) return;
    raiseWithZero(messages_.Information, "messages.message19");
    raiseWithZero(messages_.Attention, "messages.message20");
}

void SelectionRules::powerOfModel() {
    if (!raisedPowerLimit(var::Pta) && v_.isSet(var::PtaEco)) raisedPowerLimit(var::PtaEco);
}

bool SelectionRules::raisedPowerLimit(var variable) {
    for (const PowerLimit& limit : series_.powerLimits) {
        if (compressor_.Model == limit.model && v_[variable] > limit.kilowatts) {
            raiseWithZero(messages_.Error, "messages.message32");
            return true;
        }
    }
    return false;
}

void SelectionRules::modelOnRequest() {
    const std::string model = uppered(compressor_.Model);
    const bool isOnRequest =
        (!series_.requestPrefix.empty() && model.starts_with(series_.requestPrefix)) ||
        std::ranges::find(series_.requestModels, trimmed(model)) != series_.requestModels.end();
    if (isOnRequest) raiseWithZero(messages_.Information, "messages.message34");
}

void SelectionRules::flammableRefrigerant() {
    if (!refrigerant_.isFlammable) return;
    raiseWithZero(messages_.Information, "messages.message28");
    raiseWithZero(messages_.Information, "messages.message35");
    raiseWithZero(messages_.Attention, "messages.message36");
}

bool isWhateverTheInputs(std::string_view warning) {
    return warning == "messages.message18" || warning == "messages.message20" ||
           warning == "messages.message36";
}

}  // namespace marvello
