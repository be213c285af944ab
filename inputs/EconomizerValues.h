#pragma once

#include <map>
#include <string>

#include "thermo/UnitSystem.h"

namespace marvello {

/// The values of the economizer's modes: an approach and a capacity are different quantities, so that each
/// mode keeps its own. Modes go by the keys of their selector.
class EconomizerValues {
  public:
    void keep(const std::string& mode, double value, UnitSystem system);
    /// Returns the value kept for a mode in a system of units, 0 for a mode without one.
    double valueOf(const std::string& mode, UnitSystem system) const;

  private:
    struct Kept {
        double value = 0;
        UnitSystem system = UnitSystem::metric;
    };
    std::map<std::string, Kept> kept_;
};

}  // namespace marvello
