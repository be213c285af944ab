#pragma once

#include "catalogue/clsCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "data/Arithmetic.h"
#include "engine/SelectionRules.h"
#include "engine/Statements.h"
#include "engine/formTimeout.h"
#include "thermo/clsRefprop.h"

namespace marvello {

/// The calculation of one compressor at one operating point. All it finds lands in the compressor's Variables
/// and Messages. Temperatures in degrees Celsius, pressures in bar, enthalpies in kJ/kg, mass flows in kg/h,
/// capacity and power in kW, currents in A.
///
/// A reference-point model: the catalogue's surfaces give capacity and power at a suction superheat of 10 K.
/// The reference capacity gives the volume flow that the compressor displaces, and this flow is applied to
/// the real suction state. Power is taken as it is.
class CompressorCalculation {
  public:
    CompressorCalculation(clsCompressor& compressor, clsRefprop& refprop,
                          const clsProjectConditions& conditions, formTimeout& timeout);

    void run();

  private:
    // The stages, in order.
    void preparation();
    void inputVariables();
    void saturationVariables();
    void calculateInEnvelope();
    void correctInputs();
    void suctionState();
    void liquidSide();
    void referenceSurfaces();
    void flowsAndCapacity();
    void current();
    void ratedCurrents();
    void efficiency();
    void dischargeTemperature();
    void dischargeLimit();
    void dischargeStateAndOilLoad();
    void economizer();
    void condenser();

    bool failed() const { return compressor_.Messages.Error.Count() > 0; }

    /// Writes a variable; a failing value is an error entry and leaves the variable as it was.
    template <class Value>
    void let(var variable, Value&& value) {
        statements_.attempt([&] { v_.set(variable, value()); });
    }

    /// A value on the way to a variable; a failing one is an error entry and counts as 0 from there on.
    template <class Value>
    double intermediate(Value&& value) {
        double result = 0;
        statements_.attempt([&] { result = checked(value()); });
        return result;
    }

    double saturationTemperature(double p, int side) {
        return refprop_.Temperature(p, property::pressure, side, 0, property::none);
    }
    double H(double t, double p) {
        return refprop_.Enthalpy(t, property::temperature, p, property::pressure);
    }
    double S(double t, double p) { return refprop_.Entropy(t, property::temperature, p, property::pressure); }
    double D(double t, double p) {
        return refprop_.Density(t, property::temperature, saturation::dew, p, property::pressure);
    }

    clsCompressor& compressor_;
    clsRefprop& refprop_;
    const clsProjectConditions& conditions_;
    formTimeout& timeout_;
    clsVariables& v_;
    Statements statements_;
    SelectionRules rules_;
    clsLimits around_;  ///< The limits that hold the point.
};

/// The heat that oil cooling carries off in the standard cycle: writes `Pra` in kW, and `H2Rif` where the
/// discharge is above 0 degrees Celsius. Reads `OC`, `T21`, `H21`, `Pc` and `MBase`. Raises what the reads
/// raise.
void CalculateOilCooling(clsCompressor& compressor, clsRefprop& refprop);

}  // namespace marvello
