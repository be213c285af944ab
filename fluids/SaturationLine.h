#pragma once

#include <optional>
#include <string>
#include <vector>

#include "fluids/Expansion.h"
#include "fluids/Phase.h"
#include "fluids/PhaseBoundary.h"

namespace marvello::fluids {

/// The vapour-pressure curve of a pure fluid, from its lowest temperature to the critical point of its
/// equation.
///
/// Set-up solves the equation (equal pressure and Gibbs energy of both phases) and lays polynomials through
/// ln p and ln rho, which answer from then on. They are functions of theta = sqrt(1 - T/Tc), counted negative
/// for the vapour: ln rho is one smooth function of it through the critical point, and ln p an even one.
class SaturationLine final : public PhaseBoundary {
  public:
    /// `phase` holds the pure fluid and is used during the construction only. Throws when the equation has no
    /// sound critical point near the published one or no saturation between it and the lowest temperature.
    SaturationLine(const Phase& phase, const PureFluid& fluid);

    SaturationPoint atTemperature(double temperature) const;
    SaturationPoint atPressure(double pressure) const;

    SaturationPoint atTemperature(double temperature, Side) const override {
        return atTemperature(temperature);
    }
    SaturationPoint atPressure(double pressure, Side) const override { return atPressure(pressure); }
    Cut cutAtTemperature(double temperature) const override;
    Cut cutAtPressure(double pressure) const override;
    End vapourEndAtPressure(double pressure) const override;
    double liquidDensityFloor(double temperature) const override;

    /// The largest error of the polynomials seen when they were tried out, relative.
    double error() const { return line_.error(); }
    std::size_t cellCount() const { return line_.cellCount(); }

  private:
    struct CriticalStep {
        double temperature = 0;
        double density = 0;
    };
    struct Densities {
        double liquid = 0;
        double vapour = 0;
    };

    CriticalStep stepToCritical(const Phase& phase, double temperature, double density) const;
    void findCritical(const Phase& phase, const FluidPoint& published, const std::string& name);
    void makeLine(const Phase& phase, const PureFluid& fluid);
    void checkPressureRises(const std::string& name) const;
    Densities firstGuess(const Phase& phase, const PureFluid& fluid, double temperature) const;
    double theta(double temperature) const;
    double temperatureAt(double theta) const;
    SaturationPoint pointAt(double theta) const;

    Expansion line_;  ///< ln p and ln rho
    double thetaMax_ = 0;
};

}  // namespace marvello::fluids
