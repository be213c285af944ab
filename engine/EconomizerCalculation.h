#pragma once

#include "catalogue/clsCompressor.h"
#include "engine/Statements.h"
#include "engine/StepControl.h"
#include "engine/Tracing.h"
#include "engine/formTimeout.h"

namespace marvello {

/// The economized cycle of one compressor: next to the evaporator's flow `Mev` it takes in the flow `meco`
/// through a port at intermediate pressure. Works on the compressor's variables as the standard cycle left
/// them; temperatures in degrees Celsius, pressures in bar, enthalpies in kJ/kg, flows in kg/h, power and
/// capacity in kW.
template <class Tracing>
class EconomizerCalculation {
  public:
    EconomizerCalculation(clsCompressor& compressor, const typename Tracing::States& states,
                          formTimeout& timeout, Statements<Tracing>& statements, const Tracing& tracing);

    /// The whole calculation: efficiencies, port state, search, power, current and oil load. What it has to
    /// say are error messages of the compressor. A step that fails leaves it by an exception, but for those
    /// of the current and of the searches that go on.
    void CalculateEconomizer();

  private:
    using Number = typename Tracing::Number;

    /// Solves the cycle for the present `meco`, the discharge in the first pass alone. A step that fails is
    /// passed over.
    void EcoCycle();
    /// The states from the port to the discharge, of the last pass. No search looks at them.
    void dischargeStates();
    void injectionPressure();

    /// Searches the `meco` that gives the total capacity `Eco`. A step that fails leaves it.
    void Eco_Q0();
    /// Searches the `meco` that gives the approach `Eco`, with a plate economizer or else with a flash tank.
    /// A step that fails is passed over.
    void Eco_Automatic();
    void plateStage(const Number& wanted);
    void tankStage(Number error, StepControl step);
    static constexpr float automaticStep = 0.1F;
    static constexpr double firstShare = 0.01;  ///< of the evaporator's flow, where a search begins

    bool isCapacityWithinReach();
    void efficiencies();
    void portState();
    void power();
    void oilLoad();
    void checkApproach();
    void search(EconomizerMode mode);
    void noSolution();

    template <class Value>
    void set(var variable, const Value& value) {
        statements_.set(variable, value);
    }
    /// The same, a failure passed over.
    void trySet(var variable, const auto& value) {
        attemptSilently([&] { set(variable, value()); });
    }
    void turn();

    Tracing tracing_;
    clsCompressor& compressor_;
    typename Tracing::States states_;
    formTimeout& timeout_;
    Statements<Tracing>& statements_;
    typename Tracing::Variables v_;
    bool isDischargeKnown_ = false;
    unsigned turns_ = 0;
};

}  // namespace marvello
