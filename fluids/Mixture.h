#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "fluids/PairInteraction.h"
#include "fluids/PureFluid.h"
#include "fluids/Residual.h"

namespace marvello::fluids {

/// The most components that the arrays of the C functions hold.
inline constexpr std::size_t maxComponents = 20;

/// One number for each component; those beyond the mixture's size are not used.
using PerComponent = std::array<double, maxComponents>;

/// A number for each pair of components, row by row.
using PerPair = std::array<PerComponent, maxComponents>;

/// A reducing function of the composition with its derivatives, all mole fractions taken as independent.
struct ReducingFunction {
    double value = 0;
    PerComponent first{};
    PerPair second{};
};

/// A mixture of pure fluids after Kunz and Wagner (J. Chem. Eng. Data 57 (2012) 3032): the residual parts of
/// the components and the departures of the pairs, all at a reduced temperature and density that depend on
/// the composition. One component alone is the pure fluid exactly.
class Mixture {
  public:
    /// A departure function of two components, at the pair's factor.
    struct Departure {
        std::size_t first = 0;
        std::size_t second = 0;
        double factor = 0;
        Residual residual;
    };

    /// `components` holds at least one fluid, `pairs` an entry for each pair of them.
    Mixture(std::vector<PureFluid> components, std::vector<PairInteraction> pairs, double gasConstant);

    /// The same model with these components only.
    Mixture reduced(std::span<const std::size_t> kept) const;

    std::size_t size() const { return components_.size(); }
    const std::vector<PureFluid>& components() const { return components_; }
    double gasConstant() const { return gasConstant_; }

    /// The residual part of a component.
    const Residual& residual(std::size_t component) const { return residuals_[component]; }
    /// The departures that are not 0.
    std::span<const Departure> departures() const { return departures_; }
    /// The residual part of the mixture at the mole fractions `x`.
    Residual residualAt(std::span<const double> x) const;

    /// Molar mass in g/mol at the mole fractions `x`.
    double molarMass(std::span<const double> x) const;

    /// Reducing temperature and density at the mole fractions `x`; the pressure stays 0.
    FluidPoint reducing(std::span<const double> x) const;

    /// Reducing temperature in K, and reducing volume in dm^3/mol, at the mole fractions `x`.
    void reducingTemperature(std::span<const double> x, ReducingFunction& to) const;
    void reducingVolume(std::span<const double> x, ReducingFunction& to) const;

    /// All together, such as "R32/R125".
    std::string name() const;

  private:
    /// What a pair adds to a reducing function: 2 beta gamma Y_ij, and beta^2.
    struct PairShare {
        double weight = 0;
        double betaSquare = 1;
    };
    struct PairShares {
        std::size_t first = 0;
        std::size_t second = 0;
        PairShare temperature;
        PairShare volume;
    };

    template <class Own, class Share>
    void fillReducing(std::span<const double> x, Own own, Share share, ReducingFunction& to) const;

    std::vector<PureFluid> components_;
    std::vector<PairInteraction> pairs_;
    double gasConstant_;
    std::vector<Residual> residuals_;
    std::vector<Departure> departures_;
    std::vector<PairShares> shares_;
};

}  // namespace marvello::fluids
