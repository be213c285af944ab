#pragma once

#include <string>
#include <vector>

namespace marvello::fluids {

/// The forms of a residual term. The first three are a function of tau times a function of delta that share
/// their powers and exponentials with other terms; the others are evaluated one by one (SpecialTerms.h).
enum class TermKind {
    power,              ///< n delta^d tau^t
    exponential,        ///< n delta^d tau^t exp(-delta^l)
    gaussian,           ///< n delta^d tau^t exp(-eta (delta - epsilon)^2 - beta (tau - gamma)^2)
    doubleExponential,  ///< n delta^d tau^t exp(-delta^l - tau^m)
    /// n delta^d tau^t exp(1/(b + beta (tau - gamma)^2) + eta (delta - epsilon)^2) with a negative eta: the
    /// associating term of Gao, Wu, Bell, Harvey and Lemmon, J. Phys. Chem. Ref. Data 52 (2023) 013102.
    associating,
    /// n Delta^b delta exp(-C (delta - 1)^2 - D (tau - 1)^2) with Delta = theta^2 + B x^a,
    /// theta = 1 - tau + A x^(1/(2 beta)) and x = (delta - 1)^2: the term for the critical region of Span and
    /// Wagner, J. Phys. Chem. Ref. Data 25 (1996) 1509.
    nonanalytic
};

/// One term of the residual Helmholtz energy: the parameters that its kind names, under the letters of the
/// literature. Two forms that use one letter, such as b, mean different things by it.
struct ResidualTerm {
    TermKind kind = TermKind::power;
    double n = 0;
    double d = 0;
    double t = 0;
    double l = 0;
    double m = 0;
    double eta = 0;
    double epsilon = 0;
    double beta = 0;
    double gamma = 0;
    double a = 0;
    double b = 0;
    double A = 0;
    double B = 0;
    double C = 0;
    double D = 0;
};

/// n tau^t in the ideal part.
struct IdealPower {
    double n = 0;
    double t = 0;
};

/// n ln(1 - exp(-theta tau)) in the ideal part.
struct EinsteinTerm {
    double n = 0;
    double theta = 0;
};

/// A function of tau and its derivatives, each made dimensionless: f, tau f', tau^2 f''.
struct TauDerivatives {
    double value = 0;
    double first = 0;
    double second = 0;
};

/// The ideal part without ln delta: constant + linear tau + logarithm ln tau + powers + Einstein terms.
struct IdealPart {
    double constant = 0;
    double linear = 0;
    double logarithm = 0;
    std::vector<IdealPower> powers;
    std::vector<EinsteinTerm> einstein;

    TauDerivatives at(double tau) const;
};

/// Temperature in K, pressure in kPa, density in mol/dm^3.
struct FluidPoint {
    double temperature = 0;
    double pressure = 0;
    double density = 0;
};

/// A pure fluid as its file gives it. The Helmholtz energy is a/(R T) = ln delta + ideal(tau) + residual(tau,
/// delta) with tau = reducing.temperature/T and delta = rho/reducing.density.
struct PureFluid {
    std::string name;
    double molarMass = 0;    ///< g/mol
    double gasConstant = 0;  ///< J/(mol K), the one that the equation was fitted with
    double acentricFactor = 0;
    FluidPoint critical;        ///< as published; the library finds the equation's own
    FluidPoint reducing;        ///< pressure unused
    double temperatureMin = 0;  ///< K, triple point or lower limit of the equation
    double temperatureMax = 0;  ///< K, upper limit of the equation as published
    /// K, up to where the equation may be used beyond its published range; temperatureMax where it may not.
    double temperatureExtrapolated = 0;
    double pressureMax = 0;      ///< kPa
    std::string referenceState;  ///< the fluid's usual one: IIR, NBP or ASH
    IdealPart ideal;
    std::vector<ResidualTerm> residual;
};

}  // namespace marvello::fluids
