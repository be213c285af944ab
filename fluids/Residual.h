#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "fluids/PureFluid.h"
#include "fluids/ResidualDerivatives.h"
#include "fluids/VectorMath.h"

namespace marvello::fluids {

/// ResidualDerivatives of several states.
struct LaneDerivatives {
    Lanes value{}, d{}, dd{}, t{}, tt{}, dt{};
};

/// The terms of one evaluation of several states, for the next one nearby.
struct LaneTerms {
    static constexpr std::size_t most = 512;
    /// So close that e^x is its Taylor polynomial of degree 4 to rounding, with the exponents that terms
    /// have.
    static constexpr double near = 3e-5;
    Lanes tau, delta;
    std::array<Lanes, most> terms;
};

enum class LaneEvaluation {
    pressure,  ///< of the derivatives d and dd alone
    all,
    near  ///< of all, no tau and delta further than LaneTerms::near from those of the last evaluation; the
          ///< quickest
};

/// A sum of residual terms, laid out for the vector unit.
///
/// A term is n exp(t ln tau + d ln delta - ...), so each costs one exponential whatever its exponents, and
/// its derivatives are it times a polynomial. An evaluation keeps nothing and allocates nothing.
class Residual {
  public:
    Residual() = default;
    explicit Residual(const std::vector<ResidualTerm>& terms);

    /// The sum and its derivatives at tau > 0 and delta > 0.
    ResidualDerivatives at(double tau, double delta) const;

    /// The same at another tau and delta in each lane, tau from 1/4 to 4 and delta from 1e-5 to 4. Only where
    /// `fitsLanes`.
    void lanesAt(const Lanes& tau, const Lanes& delta, LaneEvaluation evaluation, LaneTerms& last,
                 LaneDerivatives& total) const;
    /// Whether there is room for the terms, and their exponents are small enough.
    bool fitsLanes() const;

  private:
    /// Terms with one and the same decay exp(-delta^l - tau^m), filled up with zeros to whole vectors.
    struct DecayGroup {
        double l = 0;  ///< 0 for none
        double m = 0;  ///< 0 for none
        std::size_t end = 0;
    };
    struct PowerColumns {
        std::vector<double> n, t, d;
    };
    struct GaussianColumns {
        std::vector<double> n, t, d, eta, epsilon, beta, gamma;
    };

    void addPowerTerms(std::vector<ResidualTerm> terms);
    void addGaussianTerms(const std::vector<ResidualTerm>& terms);
    ResidualDerivatives evaluate(double tau, double delta) const;
    ResidualDerivatives evaluateWide(double tau, double delta) const;
    template <LaneEvaluation evaluation>
    void evaluateLanes(const Lanes& tau, const Lanes& delta, LaneTerms& last, LaneDerivatives& total) const;

    std::vector<DecayGroup> groups_;
    PowerColumns powers_;
    GaussianColumns gaussians_;
    std::vector<ResidualTerm> special_;
};

}  // namespace marvello::fluids
