#pragma once

#include "thermo/UnitSystem.h"

namespace marvello {

/// A value of a field as it was entered, and its system of units. Other systems show the conversion of it, so
/// that a field is the same again after a change of system there and back.
class EnteredValue {
  public:
    /// Returns what the field shows in `to`. `shown` is what it holds in `from`: the conversion made last, or
    /// a value entered since, which takes the place of the one before.
    double shownIn(UnitSystem to, double shown, UnitSystem from, UnitRule rule);

  private:
    UnitRule rule_ = nullptr;
    double entered_ = 0;
    UnitSystem enteredIn_ = UnitSystem::metric;
    double shown_ = 0;
    UnitSystem shownIn_ = UnitSystem::metric;
};

}  // namespace marvello
