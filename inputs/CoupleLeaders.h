#pragma once

#include <span>
#include <string>
#include <vector>

#include "inputs/Input.h"

namespace marvello {

/// Which input leads each of the two couples of a form: the evaporating dew and mid temperature with their
/// pressure, and the condensing ones.
class CoupleLeaders {
  public:
    /// Lets the dew temperatures lead.
    void reset() { *this = CoupleLeaders(); }
    /// Lets an input that was typed lead its couple. Ignores an input outside the couples.
    void typed(Input input);

    /// Names that say which inputs lead, such as "ted" and "tcm", and the leaders that they say. Names that
    /// no couple has are passed over.
    std::vector<std::string> names() const;
    static CoupleLeaders named(std::span<const std::string> names);

    /// The inputs typed last; the others of their couples are derived.
    Input evaporating() const { return evaporating_; }
    Input condensing() const { return condensing_; }
    /// The temperatures that lead if something changes that their couples depend on.
    Input evaporatingTemperature() const {
        return evaporating_ == Input::evaporatingMid ? evaporating_ : Input::evaporatingDew;
    }
    Input condensingTemperature() const { return condensingTemperature_; }

    bool operator==(const CoupleLeaders&) const = default;

  private:
    Input evaporating_ = Input::evaporatingDew;
    Input condensing_ = Input::condensingDew;
    Input condensingTemperature_ = Input::condensingDew;
};

}  // namespace marvello
