#pragma once

#include <vector>

#include "fluids/IsobarTable.h"
#include "fluids/Phase.h"
#include "fluids/VectorMath.h"

namespace marvello::fluids {

/// PhaseState of several states at once, one in each lane; energy is left out.
struct PhaseLanes {
    Lanes temperature, density, pressure, enthalpy, entropy, cv, cp, soundSpeed;
    Lanes pressureByDensity, pressureByTemperature;
};

/// Searches for several states of one phase at once. Lanes are apart: what one finds does not depend on the
/// others. Allocates nothing.
class PhaseLaneSearch {
  public:
    /// `phase` must outlive this.
    explicit PhaseLaneSearch(const Phase& phase);

    /// In `temperature` and `density` the guesses, in each other the conditions.
    struct Task {
        Lanes temperature, density, pressure, wanted;
    };

    /// The states of a pressure and of `wanted`, a value of the property on the equation's own zero. `found`
    /// has all bits set in the lanes that have theirs, which those have whose guess was close.
    void find(Property property, const Task& task, PhaseLanes& states, LaneBits& found) const;

  private:
    /// factor (T*/T)^exponent
    struct Power {
        double factor, logTemperature, exponent;
    };
    /// factor ln(1 - exp(-temperature/T))
    struct Einstein {
        double factor, temperature;
    };
    void ideal(const Lanes& temperature, Lanes& value, Lanes& first, Lanes& second) const;
    void evaluate(const Lanes& temperature, const Lanes& density, LaneEvaluation evaluation, LaneTerms& last,
                  PhaseLanes& to) const;
    void stepOnIsobar(const PhaseLanes& state, const Task& task, bool isEnthalpy, Lanes& temperatureStep,
                      Lanes& densityStep) const;
    void searchIsobar(Task& task, bool isEnthalpy, PhaseLanes& states, LaneBits& found) const;
    void searchIsotherm(Task& task, PhaseLanes& states, LaneBits& found) const;

    const Phase* phase_;
    double constant_ = 0;   ///< of the ideal part at rho = 1 mol/dm^3
    double linear_ = 0;     ///< times 1/T
    double logarithm_ = 0;  ///< times -ln T
    std::vector<Power> powers_;
    std::vector<Einstein> einstein_;
};

}  // namespace marvello::fluids
