#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "fluids/Flash.h"
#include "fluids/FluidCache.h"

namespace marvello::fluids {

/// What a set-up has made: the fluids, their interactions, and the solvers for each composition asked for. A
/// failed set-up leaves nothing of the one before. For one thread; what is immutable comes from the process's
/// FluidCache.
class PropertyLibrary {
  public:
    /// Loads the files. `reference` is DEF for the fluid's usual one, or IIR, NBP, ASH; it holds for each
    /// component until a call below says otherwise.
    void setUp(const FluidFiles& files, const std::string& reference);

    /// The reference state of each component, or of the mixture of the mole fractions `z`.
    void setReferenceOfComponents(const std::string& reference);
    void setReferenceOfMixture(const std::string& reference, std::span<const double> z);

    /// The solvers for the mole fractions `z`, one for each component; made where they are not there yet.
    /// Throws before a successful set-up. The fluid alone where the set-up has one component, whatever `z`
    /// holds.
    Flash& flash(const double* z);

    /// Mole fractions of both phases of the flash asked for last, for each component of the set-up, from ln K
    /// and the vapour's share.
    void compositions(const PerComponent& logK, double share, std::span<double> liquid,
                      std::span<double> vapour) const;

    std::size_t componentCount() const;

    /// Turns mass fractions into mole fractions, both one for each component; returns the molar mass in
    /// g/mol.
    double moleFractions(std::span<const double> massFractions, std::span<double> moleFractions) const;

    /// Molar mass in g/mol; for one component whatever `moleFractions` holds.
    double molarMass(std::span<const double> moleFractions) const;

  private:
    /// Solvers for one composition.
    struct Solved {
        Solved(const std::shared_ptr<const Mixture>& mixture, Composition itsComposition);

        PerComponent z{};         ///< as asked for
        Composition composition;  ///< of the components that are there
        std::shared_ptr<const FluidModel> fluid;
        std::unique_ptr<Flash> flash;
        bool hasShift = false;
    };

    const Mixture& mixture() const;
    Solved& solvedFor(const double* z);
    void setShift(Solved& solved) const;
    Solved make(std::span<const double> z) const;
    FluidModel::Shift shiftOfComponents(const Solved& solved) const;

    std::shared_ptr<const Mixture> mixture_;
    /// The compositions asked for lately, the last one first; no more than a few.
    std::vector<Solved> solved_;
    std::string componentReference_ = "DEF";  ///< holds where there is no shift of the mixture
    std::optional<FluidModel::Shift> mixtureShift_;
};

}  // namespace marvello::fluids
