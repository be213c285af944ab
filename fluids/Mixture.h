#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "fluids/PairInteraction.h"
#include "fluids/PureFluid.h"
#include "fluids/Residual.h"

namespace marvello::fluids {

/// A mixture of pure fluids after Kunz and Wagner (J. Chem. Eng. Data 57 (2012) 3032): the residual parts of
/// the components and the departures of the pairs, all at a reduced temperature and density that depend on
/// the composition. One component alone is the pure fluid exactly.
class Mixture {
  public:
    /// `components` holds at least one fluid, `pairs` an entry for each pair of them.
    Mixture(std::vector<PureFluid> components, std::vector<PairInteraction> pairs, double gasConstant);

    const std::vector<PureFluid>& components() const { return components_; }
    const Residual& residual() const { return residual_; }
    double gasConstant() const { return gasConstant_; }

    /// Molar mass in g/mol at the mole fractions `x`.
    double molarMass(std::span<const double> x) const;

    /// Reducing temperature and density at the mole fractions `x`; the pressure stays 0.
    FluidPoint reducing(std::span<const double> x) const;

    /// The weights of the residual's blocks: x_i, then x_i x_j F_ij.
    void setWeights(std::span<const double> x, std::span<double> weights) const;

  private:
    std::vector<PureFluid> components_;
    std::vector<PairInteraction> pairs_;
    double gasConstant_;
    Residual residual_;
};

}  // namespace marvello::fluids
