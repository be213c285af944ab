#pragma once

#include <memory>
#include <span>
#include <string>

#include "fluids/IsobarTable.h"
#include "fluids/Phase.h"
#include "fluids/PhaseBoundary.h"
#include "fluids/PhaseLanes.h"

namespace marvello::fluids {

/// The usual choices of a zero for enthalpy and entropy.
enum class ReferenceState {
    iir,     ///< 200 kJ/kg and 1 kJ/(kg K) for saturated liquid at 0 degC
    nbp,     ///< 0 for saturated liquid at 101.325 kPa
    ashrae,  ///< 0 for saturated liquid at -40 degC
};

/// A fluid of given composition: its equation, where it boils, and the range of both. Making it takes
/// milliseconds; nothing of it changes afterwards, so threads may share it.
class FluidModel {
  public:
    /// The mole fractions `z`, one for each component of `mixture`, are all above 0 and add up to 1. Throws
    /// PropertyError where the equation has no sound boundary between liquid and vapour.
    FluidModel(Mixture mixture, std::span<const double> z);
    FluidModel(const FluidModel&) = delete;
    FluidModel& operator=(const FluidModel&) = delete;

    const Mixture& mixture() const { return mixture_; }
    bool isBlend() const { return mixture_.size() > 1; }
    const Phase& phase() const { return phase_; }
    const PhaseBoundary& boundary() const { return *boundary_; }
    /// The components, such as "R32/R125".
    const std::string& name() const { return name_; }

    const FluidLimits& limits() const { return limits_; }
    const IsobarTable& isobars() const { return *isobars_; }
    const PhaseLaneSearch& lanes() const { return lanes_; }

    /// What a reference state adds to enthalpy and entropy of the equation, in J/mol and J/(mol K).
    struct Shift {
        double enthalpy = 0;
        double entropy = 0;
    };
    Shift shiftFor(ReferenceState reference) const;

  private:
    double maxDensity() const;

    Mixture mixture_;
    Phase phase_;
    PhaseLaneSearch lanes_;
    std::unique_ptr<const PhaseBoundary> boundary_;
    std::string name_;
    FluidLimits limits_;
    std::unique_ptr<const IsobarTable> isobars_;
};

}  // namespace marvello::fluids
