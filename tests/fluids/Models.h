#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fluids/FluidModel.h"
#include "fluids/Fugacity.h"
#include "tests/fluids/FluidCalls.h"

namespace marvello::test {

/// The fluids of these shipped files, such as R134A.FLD, with their pairs.
fluids::Mixture mixtureOf(const std::vector<std::string>& files);

/// A refrigerant as the inner classes of the library see it, next to the C functions.
struct Model {
    explicit Model(const Refrigerant& refrigerant);

    fluids::Mixture mixture;
    std::vector<double> z;  ///< mole fractions
    fluids::FluidModel fluid;
    /// What every component's equation and the blend's two-phase region allow: K, kPa.
    double lowest = 0;
    double highest = 0;
    double pressureMax = 0;

    const fluids::FluidPoint& critical() const { return fluid.boundary().critical(); }
    double molarMass() const { return mixture.molarMass(z); }
};

/// Made once for each refrigerant.
const Model& modelOf(const Refrigerant& refrigerant);

/// A phase of any composition, by the class of the two-phase solver without the solver.
fluids::FugacityState phaseAt(const Model& model, double t, double density, const Fractions& x);

/// Enthalpy in J/mol of the overall composition, on the equation's own zero.
double enthalpyAt(const Model& model, double t, double density);

/// How far two phases are from equilibrium, told by their densities and compositions alone: the greatest
/// difference of ln f of the components and of the pressures from `p`, relative. The liquid's pressure, in
/// the cold all rounding of its density, is measured as a tenth of that density.
double imbalance(const Model& model, double t, double p, const Properties& found);

}  // namespace marvello::test
