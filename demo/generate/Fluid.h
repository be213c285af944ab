#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "fluids/RefpropSession.h"

namespace marvello::generate {

/// One component of a refrigerant.
struct FluidPart {
    std::string file;         ///< such as "R134A.FLD"
    double massFraction = 1;  ///< 1 for a pure fluid
};

/// The components of all refrigerants of a catalogue, from its table tFluidi. Throws std::runtime_error.
std::map<std::string, std::vector<FluidPart>> readCompositions(const std::filesystem::path& contentFolder);

/// A refrigerant of the property library, in degC, kPa, kg/m^3, kJ/kg, kJ/(kg K), its reference state the one
/// that the program uses. The library keeps one refrigerant for the process: the last Fluid made is the one
/// that answers. A call out of range throws std::runtime_error.
class Fluid {
  public:
    /// The fluid files are looked for in the folder Fluids, next to the library or below the current folder.
    explicit Fluid(const std::vector<FluidPart>& parts);

    double dewPressure(double temperature) const;
    double dewTemperature(double pressure) const;
    double bubbleTemperature(double pressure) const;
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
    double saturationTemperature(double pressure, int side) const;

    mutable RefpropSession session_;  ///< A call changes its buffers.
    double molarMass_ = 0;            ///< g/mol
};

}  // namespace marvello::generate
