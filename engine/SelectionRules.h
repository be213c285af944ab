#pragma once

#include <string_view>

#include "catalogue/SeriesTraits.h"
#include "catalogue/clsCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/Statements.h"

namespace marvello {

/// The highest frequency that an inverter may have inside a line of an envelope.
struct FrequencyLimit {
    int limitType;
    float hertz;
    const char* format;  ///< Of the message; kept as they are written.
};
/// Returns the highest of the lines that hold a point, or null if none does.
const FrequencyLimit* frequencyLimit(const HoldingLimits& around);

/// What is said about a compressor at an operating point. A rule looks at the point against the envelope, at
/// the series, the model and the refrigerant, and adds a message. The rules run in the order of their
/// numbers, in groups between the stages of the calculation.
template <class Tracing>
class SelectionRules {
  public:
    SelectionRules(clsCompressor& compressor, const clsProjectConditions& conditions,
                   Statements<Tracing>& statements, const Tracing& tracing);

    /// Rules 1 to 10. `around` are the limits that hold the point.
    void envelopeRules(const HoldingLimits& around);
    /// Rules 11 and 12, on the values as the user entered them.
    void inputRangeRules();
    /// Rules 13 and 14.
    void oilRules(const HoldingLimits& around);
    /// Rules 16 to 20.
    void closingRules();

  private:
    using Number = typename Tracing::Number;

    void forbiddenRegion();
    void capacityStep(const HoldingLimits& around);
    bool hasSoundPolynomials() const;
    void polynomials();
    void polynomialsAndMotor(const HoldingLimits& around);
    void overLimit(const HoldingLimits& around);
    void oilFilter(const HoldingLimits& around);
    void smallMotor(const HoldingLimits& around);
    void injection(const HoldingLimits& around);
    void suggestedVersion(const HoldingLimits& around);
    void inverterFrequency(const HoldingLimits& around);
    void subcooling();
    void superheat();
    void oilCooling(const HoldingLimits& around);
    void injectionForOil(const HoldingLimits& around);
    void lowTemperatureRefrigerant();
    void variableSeries();
    void powerOfModel();
    void modelOnRequest();
    void flammableRefrigerant();

    bool raisedPowerLimit(var variable);
    /// Runs a rule under its number.
    template <class Rule>
    void rule(int number, const Rule& rule) {
        tracing_.rule(number, messages_, rule);
    }
    bool isInside(const HoldingLimits& around, int limitType) const {
        return tracing_.inside(limitType, around.FindLimitType(limitType));
    }

    bool hasLimit(int limitType) const {
        return tracing_.hasLimit(limitType, compressor_.limits.FindLimitType(limitType));
    }
    bool hasInverter() const { return tracing_.test("hasInvert", compressor_.hasInvert); }
    bool hasHVersions() const { return tracing_.test("series.hasHVersions", series_.hasHVersions); }

    Tracing tracing_;
    clsCompressor& compressor_;
    const clsProjectConditions& conditions_;
    Statements<Tracing>& statements_;
    ClsSelectionMessages& messages_;
    typename Tracing::Variables v_;
    const SeriesTraits& series_;
    const RefrigerantTraits& refrigerant_;
};

/// True for the key of a warning that follows from refrigerant, series or model, whatever the inputs are.
bool isWhateverTheInputs(std::string_view warning);

}  // namespace marvello
