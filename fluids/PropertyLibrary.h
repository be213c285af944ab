#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "fluids/Flash.h"

namespace marvello::fluids {

/// The most components that the arrays of the C functions hold.
inline constexpr std::size_t mostComponents = 20;

/// What a set-up has made: the fluid and its solvers. A failed set-up leaves nothing of the one before.
class PropertyLibrary {
  public:
    /// Loads the fluid of each file name; relative names are looked for in `folders` in turn. `reference` is
    /// DEF for the fluid's usual one, or IIR, NBP, ASH.
    void setUp(const std::vector<std::string>& fileNames, const std::string& reference,
               const std::vector<std::filesystem::path>& folders);

    void setReference(const std::string& reference);

    /// The solvers; throws before a successful set-up.
    Flash& flash();

    std::size_t componentCount();

    /// Turns mass fractions into mole fractions, both one for each component; returns the molar mass in
    /// g/mol.
    double moleFractions(std::span<const double> massFractions, std::span<double> moleFractions);

    /// Molar mass in g/mol; for one component whatever `moleFractions` holds.
    double molarMass(std::span<const double> moleFractions);

  private:
    std::unique_ptr<Flash> flash_;
};

}  // namespace marvello::fluids
