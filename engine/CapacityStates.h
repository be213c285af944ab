#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "catalogue/PreparedCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/Calculator.h"
#include "engine/FrequencySearch.h"
#include "engine/Performance.h"
#include "engine/PermittedConditions.h"

namespace marvello {

/// Which capacity is meant: that of the evaporator or that of the condenser.
enum class CapacityKind : std::uint8_t { cooling, heating };

/// Returns a capacity of a point that has values, kW; of the economized cycle, as a whole, if there is one.
double capacityOf(const Performance& performance, CapacityKind kind);

/// One way to run a machine: at a capacity step, or at a frequency of its inverter. What it comes to is a
/// selection at its conditions.
struct CapacityState {
    PermittedConditions at;  ///< With step and frequency.
    Performance performance{};

    bool isPossible() const { return performance.hasValues(); }
    /// Percent.
    int step() const { return at.conditions.StepCapacity; }
};

/// Hz; none for a compressor on the mains.
std::optional<float> frequencyOf(const PreparedCompressor& compressor,
                                 const clsProjectConditions& conditions);

/// Calculates a machine at conditions as its form permits them. Throws FluidLibraryError.
CapacityState stateAt(Calculator& calculator, const PreparedCompressor& compressor,
                      const clsProjectConditions& conditions);

/// The capacity steps that can be asked of a compressor on the mains, in percent, 100 first; 100 alone for a
/// series without steps. Which of them the limits allow is a matter of the operating point.
std::span<const int> stepsOf(const PreparedCompressor& compressor);

/// Calculates a compressor on the mains at these steps, in their order, those with an error included; outside
/// of all limits at the first one alone. The step of the conditions is not read. Throws FluidLibraryError.
std::vector<CapacityState> stepStates(Calculator& calculator, const PreparedCompressor& compressor,
                                      clsProjectConditions conditions, std::span<const int> steps);

/// The frequencies of an inverter at an operating point, Hz.
struct FrequencyRange {
    float low = 0;
    float high = 0;
};

/// Returns the range of the form, 20 to 70 Hz, up to the line of the envelope that holds the operating point.
/// Other rules may narrow it.
FrequencyRange frequencyRange(const PreparedCompressor& compressor, const clsProjectConditions& conditions);

/// What a compressor on an inverter comes to over its frequencies, at full capacity step. Step and frequency
/// of the conditions are not read. What was calculated is kept. Refers to compressor and calculator.
class InverterStates {
  public:
    /// Finds where the range has errors. Throws FluidLibraryError, as the others do.
    InverterStates(Calculator& calculator, const PreparedCompressor& compressor,
                   const clsProjectConditions& conditions, CapacityKind kind = CapacityKind::cooling);
    InverterStates(const InverterStates&) = delete;
    InverterStates& operator=(const InverterStates&) = delete;

    /// Whether there is any frequency without an error.
    bool isPossible() const { return search_.isPossible(); }
    /// At the low end of the range, whatever it says there.
    const CapacityState& first() const { return states_.begin()->second; }
    /// The ends of what is possible; need a possible one.
    const CapacityState& lowest() const;
    const CapacityState& highest() const;

    /// Returns the state whose capacity comes nearest to the wanted one, in kW: within 1e-9 of it between the
    /// ends, but for the steps in which an economizer's search ends. Needs a possible one.
    const CapacityState& forCapacity(double wanted);

    std::size_t calculations() const { return states_.size(); }

  private:
    FrequencySearch::Trial calculate(float frequency);

    Calculator& calculator_;
    const PreparedCompressor& compressor_;
    clsProjectConditions conditions_;
    CapacityKind kind_;
    std::map<float, CapacityState> states_;
    FrequencySearch search_;
};

}  // namespace marvello
