#pragma once

#include <array>
#include <string>

namespace marvello::generate {

/// A three-phase motor at 400 V, 50 Hz.
struct Motor {
    std::array<double, 5> current{};  ///< A, polynomial of the absorbed power in kW
    double lockedRotorFirst = 0;      ///< A, in the first stage of the start
    double lockedRotorSecond = 0;     ///< A, direct on the line
    std::string nominalPower;

    double currentAt(double power) const;
};

/// How a motor is started.
enum class Start { starDelta = 1, partWinding = 2 };

/// A motor for an absorbed power of at most `rating` kW; `nominal` kW is its usual absorbed power, which
/// gives it its name.
Motor motorFor(double rating, double nominal, Start start);

}  // namespace marvello::generate
