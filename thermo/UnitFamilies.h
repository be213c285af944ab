#pragma once

#include <string_view>

#include "data/Constants.h"

namespace marvello {

/// The direction of a pass through a unit family.
enum class UnitPass { toBase = 1, fromBase = -1 };

/// A unit of the family of a property, looked up once to convert many values.
class FamilyUnit {
  public:
    /// `property` and `unit` are trimmed upper-case texts, `molarMass` in g/mol. An unknown property or unit
    /// changes nothing. Throws ArithmeticFault if the molar mass gives the unit no finite factor.
    FamilyUnit(std::string_view property, std::string_view unit, double molarMass);

    /// Brings a value to the family's base unit, or back.
    double convert(double value, UnitPass pass) const {
        const bool toBase = pass == UnitPass::toBase;
        if (way_ == Way::factor) return value * (toBase ? factor_ : inverse_);
        if (way_ == Way::celsius) return toBase ? value + zeroCelsius : value - zeroCelsius;
        return convertByRule(value, toBase);
    }

  private:
    /// The two that a calculation asks for at every state, and all others.
    enum class Way { factor, celsius, rule };

    double convertByRule(double value, bool toBase) const;
    double applyRule(double value, bool toBase) const;

    const struct Unit* unit_;  ///< None for an unknown one.
    double molarMass_;
    double factor_ = 1;
    double inverse_ = 1;
    /// How a pressure counts from one atmosphere: 1 upwards, -1 downwards, 0 not at all.
    int gauge_ = 0;
    bool isDensity_;
    Way way_ = Way::rule;
};

/// Converts one value.
inline double convertInFamily(double value, std::string_view property, std::string_view unit,
                              double molarMass, UnitPass pass) {
    return FamilyUnit(property, unit, molarMass).convert(value, pass);
}

}  // namespace marvello
