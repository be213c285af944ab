#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "fluids/Equilibrium.h"
#include "fluids/Phase.h"
#include "fluids/PhaseBoundary.h"

namespace marvello::fluids {

/// Of the two that a state is searched by along an isobar.
enum class Property { enthalpy, entropy };

/// The range of a fluid's equation: K, kPa, mol/dm^3.
struct FluidLimits {
    double temperatureMin = 0;
    double temperatureMax = 0;
    double pressureMax = 0;
    double densityMax = 0;
};

/// Both ends of the two-phase part of an isobar, each with the state of the phase that has the overall
/// composition; K, mol/dm^3, J/mol and J/(mol K) on the equation's own zero.
struct IsobarEnds {
    double liquidTemperature = 0;
    double vapourTemperature = 0;
    double liquidDensity = 0;
    double vapourDensity = 0;
    double liquidEnthalpy = 0;
    double vapourEnthalpy = 0;
    double liquidEntropy = 0;
    double vapourEntropy = 0;

    double ofLiquid(Property property) const {
        return property == Property::enthalpy ? liquidEnthalpy : liquidEntropy;
    }
    double ofVapour(Property property) const {
        return property == Property::enthalpy ? vapourEnthalpy : vapourEntropy;
    }
};

/// Where states lie along isobars, roughly: what searches begin from.
///
/// Pressures are divided into cells, narrower towards the critical point, and each isobar into pieces: liquid
/// near and far from boiling, two phases, vapour near and far. On each piece of a cell lie polynomials of two
/// variables. A piece is made when it is first asked for, and always in the same way, so that an answer
/// depends on the question alone. Threads may ask at the same time. There are no answers next to the critical
/// point and above its pressure, at pressures close to 0, and far from boiling.
class IsobarTable {
    struct Cell;

  public:
    /// All are used as long as the table.
    IsobarTable(const Phase& phase, const PhaseBoundary& boundary, const FluidLimits& limits);
    ~IsobarTable();
    IsobarTable(const IsobarTable&) = delete;
    IsobarTable& operator=(const IsobarTable&) = delete;

    /// A state of one phase: K, mol/dm^3.
    struct OnePhase {
        double temperature = 0;
        double density = 0;
    };

    /// One isobar; the table must outlive it.
    class Isobar {
      public:
        /// To about 1e-8 of the way between them, those of `hasSharpEnds` to 1e-11.
        const IsobarEnds& ends() const { return ends_; }
        bool hasSharpEnds() const;

        /// What lies beyond an end at a value of the property.
        std::optional<OnePhase> liquidAt(Property property, double value) const;
        std::optional<OnePhase> vapourAt(Property property, double value) const;
        /// Between the ends, of a blend.
        std::optional<TwoPhases> twoPhasesAt(Property property, double value) const;

      private:
        friend class IsobarTable;
        std::optional<OnePhase> onePhaseAt(Property property, double value, double direction,
                                           double endTemperature) const;

        const IsobarTable* table_ = nullptr;
        Cell* cell_ = nullptr;
        double within_ = 0;  ///< the cell, -1 to 1
        double pressure_ = 0;
        IsobarEnds ends_;
    };
    std::optional<Isobar> at(double pressure) const;

  private:
    struct Ends;
    struct OnePhasePiece;
    struct TwoPhasePiece;
    /// How far from boiling the states of a piece are.
    struct Stretch {
        double direction;  ///< 1 for vapour, -1 for liquid
        double near;       ///< K
        double far;        ///< K

        /// From the temperature of the end; `place` is -1 to 1.
        double temperature(double end, double place) const {
            return end + direction * ((near + far) + place * (far - near)) / 2;
        }
    };
    /// Of each side the nearer one first.
    static constexpr std::array<Stretch, 4> stretches{{{1, 0, 25}, {1, 25, 90}, {-1, 0, 30}, {-1, 30, 90}}};
    /// What is made at its first use.
    template <class Thing>
    struct Lazy {
        std::atomic<const Thing*> made = nullptr;
        std::unique_ptr<const Thing> owned;
    };

    template <class Thing, class Make>
    const Thing& made(Lazy<Thing>& lazy, Make make) const;
    void makeEnds(const Cell& cell, Ends& ends) const;
    void makePiece(const Cell& cell, const Stretch& stretch, OnePhasePiece& piece) const;
    void makeTwoPhases(const Cell& cell, TwoPhasePiece& piece) const;
    IsobarEnds endsAt(double pressure) const;
    PhaseState stateAt(double temperature, double pressure, const Stretch& stretch, double vapourCeiling,
                       double guess) const;

    const Phase* phase_;
    const PhaseBoundary* boundary_;
    const FluidLimits* limits_;
    std::vector<double> borders_;    ///< of the cells, ln p
    std::unique_ptr<Cell[]> cells_;  ///< one less
    mutable std::mutex making_;
};

}  // namespace marvello::fluids
