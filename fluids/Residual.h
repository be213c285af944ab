#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "fluids/PowerTable.h"
#include "fluids/PureFluid.h"
#include "fluids/ResidualDerivatives.h"

namespace marvello::fluids {

/// The residual Helmholtz energy of a mixture: a weighted sum of blocks of terms, one block for each
/// component and one for each departure function. For a pure fluid there is one block of weight 1.
///
/// Every term is a factor of tau times a factor of delta. The factors of tau are kept in a workspace, so that
/// an iteration on the density at one temperature pays for them once.
class Residual {
  public:
    explicit Residual(const std::vector<std::vector<ResidualTerm>>& blocks);

    /// n times the factor of tau of a term, with its logarithmic derivatives tau f'/f and tau^2 f''/f.
    struct TauFactor {
        double value;
        double first;
        double second;
    };

    /// Memory of an evaluation, made once so that none is allocated later.
    struct Workspace {
        std::vector<double> tauPowers;
        std::vector<double> deltaPowers;
        std::vector<double> decayPowers;  ///< delta^l
        std::vector<double> decays;       ///< exp(-delta^l)
        std::vector<TauFactor> factors;   ///< one for each term
    };
    Workspace makeWorkspace() const;

    std::size_t blockCount() const { return blocks_.size(); }

    /// Prepares `workspace` for all densities at `tau`.
    void setTau(double tau, Workspace& workspace) const;

    /// alpha and its first two derivatives by delta; the others stay 0.
    ResidualDerivatives byDensity(double delta, std::span<const double> weights, Workspace& workspace) const;

    /// All derivatives.
    ResidualDerivatives all(double delta, std::span<const double> weights, Workspace& workspace) const;

  private:
    struct Term {
        ResidualTerm form;
        std::size_t tauPower;
        std::size_t deltaPower;
        std::size_t decayPower;
    };
    /// The terms of a block stand in the order of their kinds; these are where each kind ends.
    struct Block {
        std::size_t begin;
        std::size_t powerEnd;
        std::size_t exponentialEnd;
        std::size_t end;
    };

    void setDelta(double delta, Workspace& workspace) const;
    template <class Add>
    void visit(const Block& block, double delta, const Workspace& workspace, Add add) const;

    PowerTable tauPowers_;
    PowerTable deltaPowers_;
    PowerTable decayPowers_;
    std::vector<Term> terms_;
    std::vector<Block> blocks_;
};

}  // namespace marvello::fluids
