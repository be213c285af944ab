#pragma once

#include <cstddef>
#include <map>
#include <optional>

#include "fluids/Equilibrium.h"
#include "fluids/Expansion.h"
#include "fluids/Phase.h"
#include "fluids/PhaseBoundary.h"

namespace marvello::fluids {

/// The bubble and dew curves of a blend of given composition: one curve from the coldest bubble point through
/// the critical point to the coldest dew point.
///
/// Set-up traces it once and lays polynomials through ln T, ln p, ln rho and all ln K, which answer from then
/// on. They are functions of u = ln(density of the incipient phase / density of the phase of overall
/// composition), which rises all along: negative at bubble points, 0 at the critical point, positive at dew
/// points.
class PhaseEnvelope final : public PhaseBoundary {
  public:
    /// `phase` is the blend at its overall composition and `equilibrium` that of the same; both are used
    /// during the construction only. Throws when the curve cannot be traced, or is not of the kind described.
    PhaseEnvelope(const Phase& phase, Equilibrium& equilibrium, double temperatureMin);

    SaturationPoint atTemperature(double temperature, Side side) const override;
    SaturationPoint atPressure(double pressure, Side side) const override;
    Cut cutAtTemperature(double temperature) const override;
    Cut cutAtPressure(double pressure) const override;
    End vapourEndAtPressure(double pressure) const override;
    double liquidDensityFloor(double temperature) const override;

    /// The largest error of the polynomials seen when they were tried out, relative.
    double error() const { return curve_.error(); }
    std::size_t cellCount() const { return curve_.cellCount(); }

  private:
    /// The curve as far as it is known during set-up, over u.
    struct Tracing {
        Equilibrium& equilibrium;
        std::map<double, TwoPhases> known;

        void add(const std::optional<TwoPhases>& state);
        TwoPhases guessAt(double u) const;
        std::optional<TwoPhases> solveFrom(const TwoPhases& guess, double u);
        double walk(double direction, double temperatureMin);
        void endAt(double temperature, double direction);
    };

    TwoPhases firstBubblePoint(const Phase& phase, const Mixture& mixture) const;
    bool fit(Tracing& tracing);
    void findLandmarks(const Mixture& mixture);
    SaturationPoint pointAt(double u) const;
    End endAt(double u) const;
    End endAtPressure(double pressure, Side side) const;
    SaturationPoint ofSide(double u, Side side, const char* what) const;
    double placeAtTemperature(double temperature, Side side) const;
    double placeAtPressure(double pressure, Side side) const;

    std::size_t componentCount_;
    Expansion curve_;
    double uAtMaxTemperature_ = 0;  ///< u where the temperature is highest
    double uAtMaxPressure_ = 0;     ///< u where the pressure is highest
};

}  // namespace marvello::fluids
