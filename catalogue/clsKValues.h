#pragma once

namespace marvello {

/// Correction factors.
class clsKValues {
  public:
    double Value1 = 0;  ///< Factor on the power input with economizer; 0 counts as absent.

    bool hasValue1() const { return Value1 != 0; }
};

}  // namespace marvello
