#pragma once

#include <string>

namespace marvello::generate {

/// A refrigerant of the property library, in degC, kPa, kg/m^3, kJ/kg, kJ/(kg K). The library keeps one fluid
/// for the process: the last Fluid made is the one that answers. A call out of range throws
/// std::runtime_error.
class Fluid {
  public:
    /// `file` as the catalogue names it, beside the library or below the current folder.
    explicit Fluid(const std::string& file);

    double saturationPressure(double temperature) const;
    double density(double temperature, double pressure) const;
    double enthalpy(double temperature, double pressure) const;
    double entropy(double temperature, double pressure) const;

    struct Isentropic {
        double enthalpy;
        double density;
    };
    /// The state at a pressure with a given entropy.
    Isentropic atEntropy(double pressure, double entropy) const;

    /// The temperature at a pressure with a given enthalpy.
    double temperature(double pressure, double enthalpy) const;

  private:
    double molarMass_ = 0;  ///< g/mol
};

}  // namespace marvello::generate
