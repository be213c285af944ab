#pragma once

namespace marvello::fluids {

/// The residual part and its derivatives at one tau and delta, each made dimensionless: alpha,
/// delta alpha_delta, delta^2 alpha_deltadelta, tau alpha_tau, tau^2 alpha_tautau, delta tau alpha_deltatau.
struct ResidualDerivatives {
    double value = 0;
    double d = 0;
    double dd = 0;
    double t = 0;
    double tt = 0;
    double dt = 0;
};

}  // namespace marvello::fluids
