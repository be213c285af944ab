#pragma once

#include <string>
#include <string_view>

namespace marvello {

/// The direction of a pass through a unit family.
enum class UnitPass { toBase = 1, fromBase = -1 };

/// Brings a value from a unit of the family of a property to the family's base unit, or back. `property` and
/// `unit` are trimmed upper-case texts, `molarMass` in g/mol. An unknown property or unit changes nothing.
double convertInFamily(double value, std::string_view property, std::string unit, double molarMass,
                       UnitPass pass);

}  // namespace marvello
