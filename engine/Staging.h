#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "engine/Degradation.h"

namespace marvello {

/// One way in which a machine runs.
struct RunningState {
    double capacity = 0;               ///< kW
    double power = 0;                  ///< kW
    int step = 100;                    ///< Capacity step, percent.
    std::optional<float> frequency{};  ///< Of an inverter, Hz.
};

/// Machines of one kind at an operating point.
struct StagedMachines {
    int count = 1;
    /// The ways to run that have no error, of rising capacity; empty if there is none. Of an inverter both
    /// ends of its range, and what else is known of it.
    std::vector<RunningState> states{};
    /// Of an inverter: returns how it has a capacity, in kW, that is between those of the ends. Its power has
    /// to rise with the capacity. Empty for a compressor on the mains.
    std::function<RunningState(double capacity)> solve{};
};

/// How machines share a load. One of them trims: it alternates between two neighbouring states, or takes the
/// frequency that is missing, or below its lowest state runs intermittently. All others are off or at a state
/// of their own for all the time, which of an inverter is an end of its range.
enum class Staging : std::uint8_t {
    /// The least power of all such combinations; of equal ones that with fewer machines, then that with more
    /// load on the first ones.
    power,
    /// Each machine is loaded up to its highest capacity before the next one starts.
    sequence
};

/// Machines that run alike.
struct RunningMachines {
    std::size_t kind = 0;  ///< Index in the group.
    int count = 1;
    RunningState state;
    double share = 1;        ///< Of the time.
    double degradation = 1;  ///< Factor on the COP; below 1 for intermittent running.

    /// Of all of them, as a mean over the time, kW.
    double capacity() const { return count * share * state.capacity; }
    double power() const { return count * share * state.power / degradation; }
};

/// How a group meets a load.
struct StagedLoad {
    std::vector<RunningMachines> running{};  ///< In the order of the group, the highest state first.

    double unmet = 0;  ///< What is needed beyond the highest capacity of the group, kW.

    double capacity() const;  ///< kW
    double power() const;     ///< kW
    /// Machines that run at any time.
    int machines() const;
    /// Share of the time in which one of them is stopped because less is needed than its lowest state has.
    double intermittent() const;
};

/// Returns how a group meets a needed capacity, kW. A group that is too small runs at its highest capacity.
/// What is solved for an inverter is added to its states.
StagedLoad sharedLoad(std::span<StagedMachines> group, double needed, Staging staging,
                      const Degradation& degradation);

}  // namespace marvello
