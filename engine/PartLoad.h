#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "catalogue/ClsSelectionMessages.h"
#include "catalogue/PreparedCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/CapacityStates.h"
#include "engine/CondensingRule.h"
#include "engine/Degradation.h"
#include "engine/LoadSplit.h"
#include "engine/PointLoop.h"

namespace marvello {

/// A state and the share of the time in which the machine runs in it, 0 to 1.
struct TimedState {
    CapacityState state;
    double share = 0;
};

/// How one machine meets a load. All figures are means over the time, of the economized cycle if there is
/// one.
struct LoadRun {
    using Kind = LoadSplit::Kind;

    Kind kind = Kind::none;
    std::vector<TimedState> running{};  ///< The larger capacity first.
    double capacity = 0;                ///< Cooling capacity, kW.
    double power = 0;                   ///< Power input with what intermittent running costs, kW.
    double cop = 0;          ///< Of a steady state as its selection has it, else capacity over power.
    double massFlow = 0;     ///< Through the evaporator, kg/h.
    double degradation = 1;  ///< The factor of intermittent running on the COP.
};

/// Meets a load above 0, in kW of cooling, with a machine that has these states; those with an error are
/// passed over. A state within `tolerance` of the need, as a share of it, meets it.
LoadRun meetLoad(double needed, std::span<const CapacityState> states, const Degradation& degradation,
                 double tolerance = 1e-9);
/// The same with a frequency that is solved. An economizer's search ends in steps: within 0.1 % of the need
/// the nearest frequency counts.
LoadRun meetLoad(double needed, InverterStates& states, const Degradation& degradation);

/// A machine whose load falls below its full capacity.
struct PartLoadPlan {
    const PreparedCompressor* compressor = nullptr;
    clsProjectConditions conditions;  ///< At full load. Step and frequency are not read.
    /// How the condensing temperature falls with the load: a rule with a scaled difference. The outdoor
    /// temperature stays where the difference at full load puts it, and no minimum lifts it above that of
    /// full load. None for one that is fixed.
    std::optional<CondensingRule> condensing{};
    Degradation degradation{};  ///< Of intermittent running.

    /// Returns the conditions at a share of the full capacity.
    clsProjectConditions conditionsOf(double share) const;
};

/// What a machine comes to at a share of its full capacity.
struct PartLoad {
    double share = 0;       ///< Of the full capacity.
    double needed = 0;      ///< kW
    double condensing = 0;  ///< Condensing dew temperature of all that is running, degrees Celsius.
    LoadRun run{};          ///< Has the kind none if no state is possible at this temperature.
    std::string error{};    ///< Then the key of the first error.
};

/// A step or frequency of a machine in steady running.
struct SteadyLoad {
    CapacityState state;
    std::optional<double> share{};    ///< Of the full capacity; none without values.
    ClsSelectionMessages messages{};  ///< Of a state with warnings or errors.
};

/// One machine from full to lowest load. Its full capacity is the largest that is possible at full load: that
/// of the highest step without an error or, on an inverter, of the highest frequency. It may be used by
/// several threads, each with a calculator of its own.
class MachineLoads {
  public:
    /// Throws FluidLibraryError, as the others do.
    MachineLoads(Calculator& calculator, const PartLoadPlan& plan);

    /// At full load; has an error if nothing is possible there.
    const CapacityState& full() const { return full_; }
    /// kW; needs a possible one.
    double fullCapacity() const { return capacityOf(full_.performance, CapacityKind::cooling); }

    /// A step at the condensing temperature of the load that it meets; needs a full capacity, as do the next.
    SteadyLoad atStep(Calculator& calculator, int step) const;
    SteadyLoad atFrequency(Calculator& calculator, float hertz) const;
    /// A share of the full capacity, above 0.
    PartLoad at(Calculator& calculator, double share) const;

  private:
    /// `share` is near the load that the state meets.
    SteadyLoad steady(Calculator& calculator, int step, float hertz, double share) const;

    PartLoadPlan plan_;
    CapacityState full_;
};

/// What a table of a machine over its load is asked for.
struct PartLoadQuestion {
    PartLoadPlan plan;
    std::vector<float> frequencies{};  ///< Of a machine on an inverter, Hz. One on the mains has its steps.
    std::vector<double> shares{};      ///< Of the full capacity, above 0 to 1.
};

struct PartLoadTable {
    SteadyLoad full;                   ///< With an error the rest is empty.
    std::vector<SteadyLoad> states{};  ///< Its steps, 100 % first, or the frequencies.
    std::vector<PartLoad> shares{};    ///< As they were asked for.
};

/// Calculates a machine over its load. None if the loop was given up. Throws FluidLibraryError.
std::optional<PartLoadTable> partLoadTable(const PartLoadQuestion& question, const PointLoop& loop);

}  // namespace marvello
