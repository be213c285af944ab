#pragma once

#include <string>
#include <string_view>

namespace marvello {

/// Which field leads each of the two couples of a form: the evaporating dew and mid temperature with their
/// pressure, and the condensing ones. Fields go by their names: "ted", "tem", "pe", "tcd", "tcm" and "pc".
class CoupleLeaders {
  public:
    /// Lets the dew temperatures lead.
    void reset() { *this = CoupleLeaders(); }
    /// Lets a field that was typed in lead its couple. Ignores any other name.
    void typed(std::string_view name);

    /// The fields typed in last; the others of their couples are derived.
    const std::string& evaporatingField() const { return evaporatingField_; }
    const std::string& condensingField() const { return condensingField_; }
    /// The temperature that leads when something changes that its couple depends on.
    std::string evaporating() const { return evaporatingField_ == "tem" ? "tem" : "ted"; }
    std::string condensing() const { return midLeadsCondensation_ ? "tcm" : "tcd"; }

  private:
    std::string evaporatingField_ = "ted";
    std::string condensingField_ = "tcd";
    bool midLeadsCondensation_ = false;
};

}  // namespace marvello
