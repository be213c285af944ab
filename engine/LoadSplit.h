#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace marvello {

/// The steps in which the search of an economizer ends, as a share of a needed capacity: a frequency that was
/// solved to them meets the load.
inline constexpr double stepsOfSearch = 1e-3;

/// How one machine meets a load: in which of its states it runs, and for which share of the time.
struct LoadSplit {
    enum class Kind : std::uint8_t {
        none,     ///< No state is possible.
        steady,   ///< In one state, all of the time.
        blended,  ///< Between two neighbouring states by turns, so that the mean capacity is what is needed.
        intermittent,  ///< In the lowest state for a part of the time.
        tooSmall       ///< In the highest state, all of the time; the rest of the need is not met.
    };
    Kind kind = Kind::none;
    std::size_t state = 0;  ///< Index of the only state, or of that with more capacity.
    double share = 1;       ///< Of the time in it.
    std::size_t other = 0;  ///< Index of the state in the rest of the time; of a blended load alone.
};

/// Splits a load above 0, in kW, over states with these capacities, in any order; 0 stands for a state that
/// is not possible. A state within `tolerance` of the need, as a share of it, meets it.
LoadSplit splitLoad(double needed, std::span<const double> capacities, double tolerance = 1e-9);

}  // namespace marvello
