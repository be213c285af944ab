#pragma once

#include <span>

#include "fluids/Mixture.h"

namespace marvello::fluids {

/// A phase of any composition, and how it changes with its temperature and the amount of each component: what
/// the search for two phases in equilibrium needs. R is the mixture's gas constant.
struct FugacityState {
    double density = 0;               ///< of all components together, mol/dm^3
    double pressure = 0;              ///< p/(R T), mol/dm^3
    double enthalpy = 0;              ///< h/(R T)
    double entropy = 0;               ///< s/R
    PerComponent potential{};         ///< ln f_i - ln(R T), f in kPa
    PerComponent pressureByAmount{};  ///< d(p/(R T))/d rho_j at constant T
    PerPair potentialByAmount{};      ///< d potential_i / d rho_j, dm^3/mol
    double pressureByHeat = 0;        ///< T d(p/(R T))/dT at constant amounts
    PerComponent potentialByHeat{};   ///< T d potential_i / dT
    /// Of the amounts rho h/(R T) and rho s/R in the unit volume, by rho_j.
    PerComponent enthalpyByAmount{};
    PerComponent entropyByAmount{};
    double enthalpyByHeat = 0;  ///< (T/(R T)) d(rho h)/dT, mol/dm^3
    double entropyByHeat = 0;   ///< T d(rho s/R)/dT, mol/dm^3
};

/// Evaluates one phase after another of the same mixture; allocates nothing.
class Fugacity {
  public:
    /// `mixture` must outlive this.
    explicit Fugacity(const Mixture& mixture) : mixture_(&mixture) {}

    /// At a temperature in K and the amounts rho_i of the components in mol/dm^3, all above 0. Enthalpy and
    /// entropy, on the equation's own zero, and their derivatives are left out unless `withHeat`.
    void evaluate(double temperature, std::span<const double> amounts, bool withHeat, FugacityState& to);

  private:
    void sumBlocks(double tau, double delta);
    void addHeat(double temperature, std::span<const double> amounts, FugacityState& to) const;

    const Mixture* mixture_;
    PerComponent x_{};
    ReducingFunction temperature_;
    ReducingFunction volume_;
    ResidualDerivatives all_;  ///< of the mixture
    /// By mole fraction, all taken as independent: of alpha, delta alpha_delta and tau alpha_tau, and of
    /// alpha a second time.
    PerComponent alpha_{}, alphaD_{}, alphaT_{};
    PerPair alphaTwice_{};
    PerComponent heatByAmount_{};  ///< d(rho tau alpha_tau)/d rho_j
};

}  // namespace marvello::fluids
