#pragma once

#include <optional>
#include <span>
#include <vector>

#include "fluids/Mixture.h"

namespace marvello::fluids {

/// All properties of one phase at a temperature and a density, in K, kPa, mol/dm^3, J/mol, J/(mol K), m/s.
struct PhaseState {
    double temperature = 0;
    double density = 0;
    double pressure = 0;
    double energy = 0;
    double enthalpy = 0;
    double entropy = 0;
    double cv = 0;
    double cp = 0;
    double soundSpeed = 0;
    double pressureByDensity = 0;      ///< dp/drho at constant T, kPa dm^3/mol
    double pressureByTemperature = 0;  ///< dp/dT at constant rho, kPa/K
};

/// What a search for a density needs, divided by R T.
struct ReducedPressure {
    double value = 0;      ///< p/(R T), mol/dm^3
    double byDensity = 0;  ///< its derivative by density, without dimension
    double potential = 0;  ///< g/(R T) less its part that depends on temperature alone
};

class Isotherm;

/// One homogeneous phase of given composition. Nothing of it changes, so threads may share it.
class Phase {
  public:
    /// `mixture` must outlive the phase.
    Phase(const Mixture& mixture, std::span<const double> moleFractions);

    const Mixture& mixture() const { return *mixture_; }
    std::span<const double> fractions() const { return fractions_; }
    double gasConstant() const { return mixture_->gasConstant(); }
    double molarMass() const { return molarMass_; }
    const FluidPoint& reducing() const { return reducing_; }
    const Residual& residual() const { return residual_; }
    /// Sum of x_i R_i/R, the weight of ln rho in the ideal part.
    double densityShare() const { return densityShare_; }

    /// At a temperature in K, positive. The phase must outlive what is returned.
    Isotherm at(double temperature) const;

  private:
    friend class Isotherm;

    /// At rho = 1 mol/dm^3.
    TauDerivatives idealAt(double temperature) const;

    const Mixture* mixture_;
    std::vector<double> fractions_;
    Residual residual_;  ///< of the mixture at this composition
    FluidPoint reducing_;
    double molarMass_ = 0;
    double densityShare_ = 0;
};

/// A phase at one temperature, whose density is asked for as often as wanted. An evaluation allocates no
/// memory.
class Isotherm {
  public:
    Isotherm(const Phase& phase, double temperature);

    double temperature() const { return temperature_; }

    /// At a density above 0.
    ReducedPressure reducedPressure(double density) const;
    PhaseState state(double density);

    /// Times the critical or the reducing density: denser than any liquid at saturation, to begin from.
    static constexpr double denseLiquid = 3.5;
    /// The density of a cold liquid at a low p/(R T), approached from `dense`.
    double liquidDensity(double reducedPressure, double dense) const;

  private:
    const Phase* phase_;
    double temperature_;
    double tau_;
    std::optional<TauDerivatives> ideal_;  ///< from the first state on
};

inline Isotherm Phase::at(double temperature) const { return {*this, temperature}; }

}  // namespace marvello::fluids
