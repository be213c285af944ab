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
class SelectionRules {
  public:
    SelectionRules(clsCompressor& compressor, const clsProjectConditions& conditions, Statements& statements);

    /// Rules 1 to 10. `around` are the limits that hold the point.
    void envelopeRules(const HoldingLimits& around);
    /// Rules 11 and 12, on the values as the user entered them.
    void inputRangeRules();
    /// Rules 13 and 14.
    void oilRules(const HoldingLimits& around);
    /// Rules 16 to 20.
    void closingRules();

  private:
    void forbiddenRegion();                          // 1
    void capacityStep(const HoldingLimits& around);  // 2, and again in 4
    bool hasSoundPolynomials() const;
    void polynomials();                                     // 3
    void polynomialsAndMotor(const HoldingLimits& around);  // 4
    void overLimit(const HoldingLimits& around);            // 5
    void oilFilter(const HoldingLimits& around);            // 6
    void smallMotor(const HoldingLimits& around);           // 7
    void injection(const HoldingLimits& around);            // 8
    void suggestedVersion(const HoldingLimits& around);     // 9
    void inverterFrequency(const HoldingLimits& around);    // 10
    void subcooling();                                      // 11
    void superheat();                                       // 12
    void oilCooling(const HoldingLimits& around);           // 13
    void injectionForOil(const HoldingLimits& around);      // 14
    void lowTemperatureRefrigerant();                       // 16
    void variableSeries();                                  // 17
    void powerOfModel();                                    // 18
    void modelOnRequest();                                  // 19
    void flammableRefrigerant();                            // 20

    bool raisedPowerLimit(var variable);

    clsCompressor& compressor_;
    const clsProjectConditions& conditions_;
    Statements& statements_;
    ClsSelectionMessages& messages_;
    const clsVariables& v_;
    const SeriesTraits& series_;
    const RefrigerantTraits& refrigerant_;
};

/// True for the key of a warning that follows from refrigerant, series or model, whatever the inputs are.
bool isWhateverTheInputs(std::string_view warning);

}  // namespace marvello
