#pragma once

#include <cstddef>
#include <memory>
#include <optional>

#include "fluids/Equilibrium.h"
#include "fluids/FluidModel.h"

namespace marvello::fluids {

/// The marker of a number that is not defined, such as a heat capacity in the two-phase region.
inline constexpr double undefined = -9999990;

/// Quality of a single phase, where none is defined.
inline constexpr double liquidQuality = -998;
inline constexpr double vapourQuality = 998;
inline constexpr double supercriticalQuality = 999;

/// A state of the fluid, one phase or two, in K, kPa, mol/dm^3, J/mol, J/(mol K), m/s. In one phase both
/// densities of the phases are the density. In two phases `quality` is the vapour's share of the moles, and
/// heat capacities and speed of sound are undefined. `logK` is ln of vapour over liquid mole fraction of each
/// component, 0 in one phase.
struct FluidState {
    double temperature = 0;
    double pressure = 0;
    double density = 0;
    double liquidDensity = 0;
    double vapourDensity = 0;
    double quality = 0;
    double energy = 0;
    double enthalpy = 0;
    double entropy = 0;
    double cv = 0;
    double cp = 0;
    double soundSpeed = 0;
    PerComponent logK{};
};

/// Finds states of a fluid of given composition from two of its properties. Every search runs in a bracket
/// that is known to hold the one stable solution. A state outside the range of the equation throws; nothing
/// is allocated otherwise. The fluid may be shared; a Flash is for one thread.
class Flash {
  public:
    using Side = PhaseBoundary::Side;

    explicit Flash(std::shared_ptr<const FluidModel> fluid);

    /// What is added to enthalpy and entropy of the equation.
    void setShift(const FluidModel::Shift& shift) { shift_ = shift; }

    SaturationPoint saturationAtTemperature(double temperature, Side side) const {
        return boundary().atTemperature(temperature, side);
    }
    SaturationPoint saturationAtPressure(double pressure, Side side) const {
        return boundary().atPressure(pressure, side);
    }

    /// Within 1e-9 of the saturation pressure of a pure fluid, or of the dew pressure of a blend, the answer
    /// is saturated vapour.
    FluidState atTemperaturePressure(double temperature, double pressure);
    FluidState atPressureEnthalpy(double pressure, double enthalpy);
    FluidState atPressureEntropy(double pressure, double entropy);
    FluidState atTemperatureEntropy(double temperature, double entropy);

    /// One of an array call.
    FluidState laneState(const PhaseLanes& states, std::size_t lane) const;

    const FluidModel& fluid() const { return *fluid_; }
    const FluidModel::Shift& shift() const { return shift_; }

  private:
    /// Densities between which the pressure rises at a temperature.
    struct Bracket {
        double low = 0;
        double high = 0;
    };
    /// Where to look for a state along an isobar.
    struct IsobarRange {
        double low = 0;      ///< K
        double high = 0;     ///< K
        double guess = 0;    ///< K
        double density = 0;  ///< a guess at the temperature guessed
        /// No density of a vapour lies above; 0 for a liquid or supercritical state.
        double vapourCeiling = 0;
    };
    struct IsobarStep {
        double temperature = 0;
        double density = 0;
        double size = 0;  ///< the larger of both, relative
    };
    /// A search along a line through the two-phase region of a blend, between two states known: its ends, or
    /// the state at the lowest temperature.
    struct TwoPhaseSearch {
        Condition fixed;   ///< temperature or pressure
        Condition wanted;  ///< the other property
        TwoPhases from, to;
        double valueFrom = 0;  ///< of the property wanted
        double valueTo = 0;
    };

    const PhaseBoundary& boundary() const { return fluid_->boundary(); }
    const Phase& phase() const { return fluid_->phase(); }
    static double valueOf(const PhaseState& state, Property property);
    static Condition::Of conditionOf(Property property);
    void checkTemperature(double temperature) const;
    void checkPressure(double pressure) const;
    Bracket densities(double temperature, double vapourCeiling) const;
    PhaseState stateAtPressure(Isotherm& isotherm, double pressure, const Bracket& bracket,
                               double guess) const;
    PhaseState stateAt(const PhaseBoundary::End& end) const;
    FluidState single(const PhaseState& state, double quality) const;
    FluidState twoPhase(const SaturationPoint& point, double quality) const;
    FluidState twoPhase(const TwoPhaseSearch& search);
    FluidState twoPhaseState(const TwoPhases& phases, const Equilibrium::EnthalpyEntropy& values) const;
    TwoPhases solveTwoPhase(const TwoPhaseSearch& search);
    std::optional<TwoPhases> solveStable(const TwoPhases& guess, double value, const TwoPhaseSearch& search);
    std::optional<TwoPhases> continueFrom(TwoPhases state, double value, const TwoPhaseSearch& search);
    TwoPhases coldestAt(double pressure);
    FluidState atPressureAnd(double pressure, Property property, double wanted);
    FluidState nextToEnd(const PhaseBoundary::End& end, PhaseState edge, Property property, double wanted);
    FluidState betweenEnds(const PhaseBoundary::Cut& cut, Property property, double wanted);
    FluidState aboveColdEnd(const PhaseBoundary::End& vapour, Property property, double wanted);
    std::optional<FluidState> fromTable(const IsobarTable::Isobar& isobar, double pressure, Property property,
                                        double wanted);
    std::optional<FluidState> onePhaseNear(const IsobarTable::OnePhase& guess, double pressure,
                                           Property property, double wanted) const;
    std::optional<FluidState> onePhaseNear(const IsobarTable::OnePhase& guess, double pressure) const;
    std::optional<FluidState> twoPhasesNear(const IsobarTable::Isobar& isobar, double pressure,
                                            Property property, double wanted);
    static IsobarStep stepOnIsobar(const PhaseState& state, double pressure, Property property,
                                   double wanted);
    std::optional<PhaseState> newtonOnIsobar(double pressure, Property property, double wanted,
                                             const IsobarRange& range);
    FluidState searchIsobar(double pressure, Property property, double wanted, const IsobarRange& range);
    FluidState searchIsotherm(Isotherm& isotherm, double entropy, double low, double high, double guess);
    double qualityName(double temperature, double pressure, double density) const;

    std::shared_ptr<const FluidModel> fluid_;
    std::unique_ptr<Equilibrium> equilibrium_;  ///< of a blend, none of a pure fluid
    FluidModel::Shift shift_;
};

}  // namespace marvello::fluids
