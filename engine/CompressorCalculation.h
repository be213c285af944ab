#pragma once

#include "catalogue/clsCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "data/Arithmetic.h"
#include "engine/SelectionRules.h"
#include "engine/Statements.h"
#include "engine/Tracing.h"
#include "engine/formTimeout.h"

namespace marvello {

/// The calculation of one compressor at one operating point. All it finds lands in the compressor's Variables
/// and Messages. Temperatures in degrees Celsius, pressures in bar, enthalpies in kJ/kg, mass flows in kg/h,
/// capacity and power in kW, currents in A.
///
/// A reference-point model: the catalogue's surfaces give capacity and power at a suction superheat of 10 K.
/// The reference capacity gives the volume flow that the compressor displaces, and this flow is applied to
/// the real suction state. Power is taken as it is.
///
/// Written once for calculations with a trace and without: `Tracing` is Untraced or Tracer.
template <class Tracing>
class CompressorCalculation {
  public:
    CompressorCalculation(clsCompressor& compressor, clsRefprop& refprop,
                          const clsProjectConditions& conditions, formTimeout& timeout,
                          const Tracing& tracing = {});

    void run();

  private:
    using Number = typename Tracing::Number;

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
    /// The heat that oil cooling carries off in the standard cycle. Throws what the reads throw.
    void CalculateOilCooling();
    void economizer();
    void condenser();

    template <class Mode>
    bool is(var variable, Mode mode) const {
        return v_[variable] == codeOf(mode);
    }
    bool failed() const { return compressor_.Messages.Error.Count() > 0; }

    template <class Value>
    void let(var variable, Value&& value) {
        statements_.let(variable, std::forward<Value>(value));
    }

    /// A value on the way to a variable; a failing one is an error entry and counts as 0 from there on.
    template <class Value>
    Number intermediate(var variable, Value&& value) {
        Number result = 0;
        statements_.attempt(definitionOf(variable).name, [&] { result = checked(value()); });
        return result;
    }

    Tracing tracing_;
    clsCompressor& compressor_;
    typename Tracing::States states_;
    const clsProjectConditions& conditions_;
    formTimeout& timeout_;
    typename Tracing::Variables v_;
    Statements<Tracing> statements_;
    SelectionRules<Tracing> rules_;
    HoldingLimits around_;  ///< The limits that hold the point.
};

}  // namespace marvello
