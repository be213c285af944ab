#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "fluids/Phase.h"

namespace marvello::fluids {

/// Liquid and vapour in equilibrium, in K, kPa, mol/dm^3.
struct SaturationPoint {
    double temperature = 0;
    double pressure = 0;
    double liquidDensity = 0;
    double vapourDensity = 0;
};

/// The vapour-pressure curve of a pure fluid, from its lowest temperature to the critical point of its
/// equation.
///
/// A table made at set-up gives the first guess; each answer is then solved from the equation (equal pressure
/// and Gibbs energy of both phases). The table stands over theta = sqrt(1 - T/Tc), in which the logarithms of
/// pressure and densities are smooth up to the critical point.
class SaturationLine {
  public:
    /// Makes the table. `phase` holds the pure fluid and is used, and changed, by every call. Throws when the
    /// equation has no sound critical point near the published one or no saturation between it and the lowest
    /// temperature.
    SaturationLine(Phase& phase, const PureFluid& fluid);

    const FluidPoint& critical() const { return critical_; }

    /// At a temperature from the lowest one up to the critical one; throws outside.
    SaturationPoint atTemperature(double temperature);

    /// At a pressure between that of the lowest temperature and the critical one; throws outside.
    SaturationPoint atPressure(double pressure);

    double pressureMin() const;

    /// A density of the liquid that is surely not above the saturated one, for a temperature below the
    /// critical.
    double liquidDensityFloor(double temperature) const;

  private:
    /// Of ln p, ln liquid density and ln vapour density.
    struct Logarithms {
        double pressure = 0;
        double liquid = 0;
        double vapour = 0;
    };
    struct Node {
        Logarithms value;
        Logarithms slope;  ///< by theta
    };
    /// Where a temperature lies in the table.
    struct Place {
        std::size_t cell = 0;
        double within = 0;  ///< 0 to 1, growing with theta
    };

    struct CriticalStep {
        double temperature = 0;
        double density = 0;
    };

    CriticalStep stepToCritical(double temperature, double density);
    void findCritical(const FluidPoint& published, const std::string& name);
    void makeTable(const PureFluid& fluid);
    SaturationPoint firstPoint(const PureFluid& fluid, double temperature);
    Node nodeAt(const SaturationPoint& point);
    double theta(double temperature) const;
    double temperatureAt(double theta) const;
    Place placeOf(double theta) const;
    SaturationPoint guessAt(double theta) const;
    double thetaAtPressure(double logPressure) const;
    std::optional<SaturationPoint> solve(SaturationPoint guess);
    double clapeyron(const SaturationPoint& point);

    Phase& phase_;
    FluidPoint critical_;
    double temperatureMin_ = 0;
    double step_ = 0;  ///< of theta between two nodes
    std::vector<Node> nodes_;
};

}  // namespace marvello::fluids
