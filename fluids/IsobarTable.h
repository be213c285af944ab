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
#include "fluids/VectorMath.h"

namespace marvello::fluids {

/// What a state is searched by along an isobar.
enum class Property { temperature, enthalpy, entropy };

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
};

/// Where states lie along isobars, roughly: what searches begin from.
///
/// Pressures are divided into cells, narrower towards the critical point, and each isobar into stretches:
/// liquid near and far from boiling, two phases, vapour near and far. For a stretch of a cell there are
/// polynomials of two variables. They are made when they are first asked for, and always in the same way, so
/// that an answer depends on the question alone. Threads may ask at the same time. There are no answers next
/// to the ends of the two-phase region and to the critical point, above its pressure, at pressures close to
/// 0, and far from boiling.
class IsobarTable {
    struct Cell;
    struct Ends;
    struct OnePhasePiece;
    struct TwoPhasePiece;

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

        /// A state of one phase at a value of the property.
        std::optional<OnePhase> onePhaseAt(Property property, double value) const;
        /// From 0 to 1 where the value of enthalpy or entropy lies between those of the ends; none next to
        /// them and beyond.
        std::optional<double> placeBetweenEnds(Property property, double value) const;
        /// Of a blend, between the ends.
        std::optional<TwoPhases> twoPhasesAt(Property property, double value) const;

      private:
        friend class IsobarTable;
        const IsobarTable* table_ = nullptr;
        Cell* cell_ = nullptr;
        double within_ = 0;  ///< the cell, -1 to 1
        double pressure_ = 0;
        IsobarEnds ends_;
    };
    std::optional<Isobar> at(double pressure) const;

    // The same for several states of one phase at once, in three steps: the cell of each; then, for states of
    // one cell, the stretch of each; then, for states of one stretch, temperatures and densities.

    /// A cell's number and where in it a pressure lies, -1 to 1.
    struct Place {
        std::size_t cell = 0;
        double within = 0;
    };
    std::size_t cellCount() const { return borders_.size() - 1; }
    static constexpr std::size_t stretchCount = 4;
    std::optional<Place> placeOf(double pressure) const;
    /// stretchCount where there is none.
    using StretchOfLane = std::array<std::size_t, laneCount>;
    void stretchesOf(std::size_t cell, Property property, const Lanes& within, const Lanes& value,
                     StretchOfLane& to) const;
    void onePhaseAt(std::size_t cell, std::size_t stretch, Property property, const Lanes& within,
                    const Lanes& value, Lanes& temperature, Lanes& density) const;

  private:
    /// How far from boiling the states of a piece are.
    struct Stretch {
        double direction;  ///< 1 for vapour, -1 for liquid
        double near;       ///< K
        double far;        ///< K

        /// From the temperature of the end; `place` is -1 to 1.
        template <class Number>
        [[gnu::always_inline]] void temperature(const Number& end, const Number& place, Number& to) const {
            to = end + direction / 2 * ((near + far) + (far - near) * place);
        }
        template <class Number>
        [[gnu::always_inline]] void place(const Number& end, const Number& temperature, Number& to) const {
            to = (2 * direction * (temperature - end) - (near + far)) / (far - near);
        }
    };
    /// Of each side the nearer one first.
    static constexpr std::array<Stretch, stretchCount> stretches{
        {{1, 0, 25}, {1, 25, 90}, {-1, 0, 30}, {-1, 30, 90}}};

    /// What is made at its first use.
    template <class Thing>
    struct Lazy {
        std::atomic<const Thing*> made = nullptr;
        std::unique_ptr<const Thing> owned;
    };
    template <class Thing, class Make>
    const Thing& made(Lazy<Thing>& lazy, Make make) const;
    const Ends& endsOf(Cell& cell) const;
    const OnePhasePiece& pieceOf(Cell& cell, std::size_t stretch) const;
    void makeEnds(const Cell& cell, Ends& ends) const;
    void makePiece(const Cell& cell, const Stretch& stretch, OnePhasePiece& piece) const;
    void makeTwoPhases(const Cell& cell, TwoPhasePiece& piece) const;
    IsobarEnds endsAt(double pressure) const;
    bool isInRange(const Stretch& stretch, const IsobarEnds& ends) const;
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
