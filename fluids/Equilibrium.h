#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "fluids/Fugacity.h"

namespace marvello::fluids {

/// Two phases of a mixture: the second one's share of the moles, and what each consists of. The balance z =
/// (1 - share) first + share second holds for each component.
struct TwoPhases {
    double temperature = 0;  ///< K
    double pressure = 0;     ///< kPa
    double share = 0;
    double firstDensity = 0;  ///< mol/dm^3
    double secondDensity = 0;
    PerComponent logK{};  ///< ln of second over first mole fraction

    /// Mole fractions of the phases at the overall composition z.
    void compositions(std::span<const double> z, PerComponent& first, PerComponent& second) const;
};

/// What is asked of two phases in equilibrium; two such conditions make the state.
struct Condition {
    enum class Of {
        temperature,   ///< K
        share,         ///< of the second phase, 0 to 1
        pressure,      ///< kPa
        densityRatio,  ///< ln of second over first density
        enthalpy,      ///< of both phases together, J/mol on the equation's own zero
        entropy        ///< of both phases together, J/(mol K), likewise
    };
    Of of = Of::temperature;
    double value = 0;
};

/// Solves the equilibrium of two phases: equal pressure and equal fugacity of every component.
///
/// Newton's method on ln K_i, both ln rho, ln T and the share together, with all derivatives analytic.
/// Nothing is allocated.
class Equilibrium {
  public:
    /// The overall mole fractions `z` are all above 0. `mixture` must outlive this.
    Equilibrium(const Mixture& mixture, std::span<const double> z);

    using Conditions = std::array<Condition, 2>;

    /// The state near `guess`, or none where the search leads nowhere or to two phases alike.
    std::optional<TwoPhases> solve(const TwoPhases& guess, const Conditions& conditions);

    /// Whether both phases of the state solved last withstand small changes of density and composition.
    bool isStable() const;

    /// Enthalpy in J/mol and entropy in J/(mol K) of both phases together, on the equation's own zero.
    struct EnthalpyEntropy {
        double enthalpy = 0;
        double entropy = 0;
    };
    /// Of the state solved last, where one of its conditions was enthalpy or entropy.
    const EnthalpyEntropy& heat() const { return heat_; }
    /// At a state.
    EnthalpyEntropy enthalpyEntropy(const TwoPhases& state);

    const Mixture& mixture() const { return *mixture_; }
    std::span<const double> fractions() const { return {z_.data(), mixture_->size()}; }

  private:
    static constexpr std::size_t maxUnknowns = maxComponents + 4;
    using Row = std::array<double, maxUnknowns + 1>;  // the last entry is the right-hand side

    void evaluate(const TwoPhases& state, bool withHeat);
    void setEquations(const TwoPhases& state, const Conditions& conditions);
    void setCondition(const TwoPhases& state, const Condition& condition, Row& row) const;
    void setHeat(const TwoPhases& state, const Condition& condition, Row& row) const;
    template <class First, class Second>
    void chain(const TwoPhases& state, First byFirst, Second bySecond, Row& row) const;
    bool eliminate();
    double pressureOf(const TwoPhases& state, double logTemperatureStep) const;
    double heatAfterStep(const TwoPhases& state, Condition::Of of) const;

    const Mixture* mixture_;
    PerComponent z_{};
    Fugacity fugacity_;
    std::array<FugacityState, 2> phases_;
    std::array<PerComponent, 2> fractions_{};
    std::array<PerComponent, 2> amounts_{};
    std::array<Row, maxUnknowns> rows_{};
    EnthalpyEntropy heat_;
};

}  // namespace marvello::fluids
