#pragma once

#include "fluids/PureFluid.h"
#include "fluids/ResidualDerivatives.h"

namespace marvello::fluids {

/// Adds a term of the kind associating or nonanalytic (any other adds nothing) and its derivatives at tau and
/// delta, both positive. Everything is finite everywhere. Of a nonanalytic term
/// tau^2 alpha_tautau grows without bound towards tau = delta = 1, as the heat capacity does at the critical
/// point; at that point it is given as if tau lay one rounding off 1.
void addSpecialTerm(const ResidualTerm& term, double tau, double delta, ResidualDerivatives& sum);

}  // namespace marvello::fluids
