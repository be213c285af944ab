#pragma once

#include "catalogue/clsCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/Statements.h"

namespace marvello {

/// What is said about a compressor at an operating point. A rule looks at the point against the envelope, at
/// the series, the model and the refrigerant, and adds a message. The rules run in the order of their
/// numbers, in groups between the stages of the calculation.
class SelectionRules {
  public:
    SelectionRules(clsCompressor& compressor, const clsProjectConditions& conditions, Statements& statements);

    /// Rules 1 to 10. `around` are the limits that hold the point.
    void envelopeRules(const clsLimits& around);
    /// Rules 11 and 12, on the values as the user entered them.
    void inputRangeRules();
    /// Rules 13 and 14.
    void oilRules(const clsLimits& around);
    /// Rules 16 to 20.
    void closingRules();

  private:
    void forbiddenRegion();                      // 1
    void capacityStep(const clsLimits& around);  // 2, and again in 4
    bool hasSoundPolynomials() const;
    void polynomials();                                 // 3
    void polynomialsAndMotor(const clsLimits& around);  // 4
    void overLimit(const clsLimits& around);            // 5
    void oilFilter(const clsLimits& around);            // 6
    void smallMotor(const clsLimits& around);           // 7
    void injection(const clsLimits& around);            // 8
    void suggestedVersion(const clsLimits& around);     // 9
    void inverterFrequency(const clsLimits& around);    // 10
    void subcooling();                                  // 11
    void superheat();                                   // 12
    void oilCooling(const clsLimits& around);           // 13
    void injectionForOil(const clsLimits& around);      // 14
    void lowTemperatureRefrigerant();                   // 16
    void variableSeries();                              // 17
    void powerOfModel();                                // 18
    void bareModel();                                   // 19
    void flammableRefrigerant();                        // 20

    bool raisedPowerLimit(var variable);

    clsCompressor& compressor_;
    const clsProjectConditions& conditions_;
    Statements& statements_;
    ClsSelectionMessages& messages_;
    const clsVariables& v_;
    std::string serie_;  ///< In lower case, as are the next two.
    std::string model_;
    std::string refrigerant_;
};

}  // namespace marvello
