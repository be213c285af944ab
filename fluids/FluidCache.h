#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fluids/FluidModel.h"
#include "fluids/MadeOnce.h"

namespace marvello::fluids {

/// The files of a set-up; relative names are looked for in `folders` in turn.
struct FluidFiles {
    std::vector<std::string> fluids;
    std::string mixture;  ///< read for more than one fluid
    std::vector<std::filesystem::path> folders;
};

/// Some of the components of a mixture: their places in it, and their mole fractions, which add up to 1.
struct Composition {
    std::vector<std::size_t> kept;
    std::vector<double> fractions;
    bool operator==(const Composition&) const = default;
};

/// The fluids that the process has read and solved last, so that no one does it a second time. Threads may
/// use it at the same time.
class FluidCache {
  public:
    static FluidCache& ofProcess();

    /// What the files hold now: they are known again by their text. Throws PropertyError with the file, the
    /// line or the field, and the reason.
    std::shared_ptr<const Mixture> mixture(const FluidFiles& files);

    /// Throws as FluidModel() does.
    std::shared_ptr<const FluidModel> fluid(const std::shared_ptr<const Mixture>& mixture,
                                            const Composition& composition);

  private:
    MadeOnce<std::vector<std::string>, Mixture> mixtures_;  ///< by the text of each file
    MadeOnce<std::pair<std::shared_ptr<const Mixture>, Composition>, FluidModel> fluids_;
};

}  // namespace marvello::fluids
