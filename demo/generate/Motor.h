#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace marvello::generate {

/// How a motor is started.
enum class Start { starDelta = 1, partWinding = 2 };

/// A three-phase motor of the maker's row at 400 V, 50 Hz.
struct Motor {
    double rating = 0;                ///< kW, the greatest power that it may absorb
    std::array<double, 5> current{};  ///< A, polynomial of the power input in kW
    double lockedRotorFirst = 0;      ///< A, in the first stage of the start
    double lockedRotorSecond = 0;     ///< A, direct on the line
    std::string nominalPower;

    double currentAt(double power) const;
};

/// The place in the maker's row of the smallest motor that drives a shaft with `shaftPower` kW. Throws
/// std::runtime_error when none does.
std::size_t motorSizeFor(double shaftPower);

Motor motorOf(std::size_t size, Start start);

/// Power factor of a motor at a power input, as c1 P^2 + c2 P + c3.
std::array<double, 3> powerFactorLaw(const Motor& motor);

}  // namespace marvello::generate
