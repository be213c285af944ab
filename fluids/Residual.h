#pragma once

#include <cstddef>
#include <vector>

#include "fluids/PureFluid.h"
#include "fluids/ResidualDerivatives.h"

namespace marvello::fluids {

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

    std::vector<DecayGroup> groups_;
    PowerColumns powers_;
    GaussianColumns gaussians_;
    std::vector<ResidualTerm> special_;
};

}  // namespace marvello::fluids
