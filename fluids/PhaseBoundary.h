#pragma once

#include "fluids/Mixture.h"

namespace marvello::fluids {

/// Liquid and vapour in equilibrium, one of them of the overall composition; in K, kPa, mol/dm^3.
struct SaturationPoint {
    double temperature = 0;
    double pressure = 0;
    double liquidDensity = 0;
    double vapourDensity = 0;
    PerComponent logK{};  ///< ln of vapour over liquid mole fraction of each component; 0 for a pure fluid
};

/// Where the overall composition begins to split in two: as saturated liquid at the bubble point, as
/// saturated vapour at the dew point. For a pure fluid the two are one curve.
class PhaseBoundary {
  public:
    enum class Side { bubble, dew };

    struct End {
        SaturationPoint point;
        double density = 0;  ///< of the phase that has the overall composition
    };

    /// Where a line of constant temperature or pressure enters and leaves the two-phase region. Near the
    /// critical point of a blend both ends may be of one kind; the liquid is the denser.
    struct Cut {
        End liquid;
        End vapour;
    };

    virtual ~PhaseBoundary() = default;

    const FluidPoint& critical() const { return critical_; }
    double temperatureMin() const { return temperatureMin_; }
    /// The highest temperature and pressure at which there are two phases: those of the critical point for a
    /// pure fluid, a little higher for a blend.
    double temperatureMax() const { return temperatureMax_; }
    double pressureMax() const { return pressureMax_; }
    /// The pressure of the bubble and of the dew point at the lowest temperature.
    double pressureMin(Side side) const {
        return side == Side::bubble ? bubblePressureMin_ : dewPressureMin_;
    }

    /// From the lowest temperature to the end of the curve; throws outside.
    virtual SaturationPoint atTemperature(double temperature, Side side) const = 0;
    virtual SaturationPoint atPressure(double pressure, Side side) const = 0;

    /// Between temperatureMin() and temperatureMax().
    virtual Cut cutAtTemperature(double temperature) const = 0;
    /// Between pressureMin(bubble) and pressureMax().
    virtual Cut cutAtPressure(double pressure) const = 0;
    /// The vapour's end alone, between pressureMin(dew) and pressureMax().
    virtual End vapourEndAtPressure(double pressure) const = 0;

    /// A density that the liquid does not fall below and is mechanically stable above, for a temperature
    /// between temperatureMin() and temperatureMax().
    virtual double liquidDensityFloor(double temperature) const = 0;

  protected:
    PhaseBoundary() = default;
    PhaseBoundary(const PhaseBoundary&) = default;
    PhaseBoundary& operator=(const PhaseBoundary&) = default;

    FluidPoint critical_;
    double temperatureMin_ = 0;
    double temperatureMax_ = 0;
    double pressureMax_ = 0;
    double bubblePressureMin_ = 0;
    double dewPressureMin_ = 0;
};

}  // namespace marvello::fluids
