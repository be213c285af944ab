#pragma once

#include <array>

#include "demo/generate/PointGrid.h"

namespace marvello::generate {

/// How capacity and power follow the frequency of an inverter: factor = (c1 r^2 + c2 r + c3 + 1) r with
/// r = frequency / 50 Hz. The factor is 1 at 50 Hz.
struct FrequencyLaw {
    std::array<double, 3> capacity{};
    std::array<double, 3> power{};
    double capacityError = 0;  ///< relative rms over frequencies and application limit
    double powerError = 0;

    static double factor(const std::array<double, 3>& law, double hertz);
};

/// The law that stands best, over the application limit from 25 to 70 Hz, for a machine whose gaps leak the
/// same at any speed.
FrequencyLaw frequencyLaw(const ScrewMachine& machine, const PointGrid& grid);

}  // namespace marvello::generate
