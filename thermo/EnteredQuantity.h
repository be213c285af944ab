#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "thermo/UnitSystem.h"

namespace marvello {

/// What a number that people enter measures.
enum class Quantity {
    number,  ///< takes no unit
    temperature,
    temperatureDifference,
    pressure,  ///< absolute
    power,
    frequency,
};

/// Returns how an entered number of a quantity is converted; null for one that is the same in every system.
UnitRule conversionOf(Quantity quantity);

/// Returns the unit of a quantity as the user reads it, such as "bar abs"; empty for a plain number.
std::string unitText(Quantity quantity, UnitSystem units);

/// What an entered text comes to.
struct EnteredQuantity {
    std::optional<double> value{};  ///< in the unit asked for; none if the text is no number of the quantity
    bool isPlain = false;           ///< a bare number, without a unit and without a sum
    bool isUnfinished = false;      ///< no value yet, but more typing may make it one
};

/// Reads a number, or a sum such as "35+8", with an optional unit of `quantity` behind it: "45 F", "3.2 bar
/// g", "12 TR". `text` is UTF-8 with "." or "," as decimal mark, in any case of letters. A bare number is in
/// `unit`, which is one of "C", "F", "K", "bar", "psi", "kW", "tons" and "Hz"; any other number is converted
/// to it. A pressure is absolute unless its unit says gauge, which counts from 1.01325 bar. In a temperature
/// difference F and R are differences too. A sum with K is no temperature, since it may mean either. Throws
/// std::invalid_argument if `unit` is none of `quantity`.
EnteredQuantity readQuantity(std::string_view text, Quantity quantity, std::string_view unit);

}  // namespace marvello
