#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "catalogue/SearchRange.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/Calculator.h"
#include "engine/CalculatorPool.h"
#include "engine/CapacityStates.h"
#include "engine/Margins.h"

namespace marvello {

/// Whether compressors of inverter series take part.
enum class InverterUse : std::uint8_t { yes, no, only };

/// What is looked for. Names are compared without regard to case.
struct FindRequest {
    double needed = 0;  ///< Capacity of all machines together, kW.
    CapacityKind kind = CapacityKind::cooling;
    double below =
        searchRange::usualBelow;  ///< Permitted deviation of the capacity, percent of the needed one.
    double above = searchRange::usualAbove;  ///< The same to the other side.
    /// Operating point and options. The capacity step and the inverter's frequency are not read.
    clsProjectConditions conditions;
    std::vector<std::string> refrigerants{};  ///< Empty: all.
    std::vector<std::string> series{};        ///< As the catalogue names them. Empty: all.
    int markets = 0;                          ///< Bits of `Market`; 0 for all.
    int minMachines = 1;                      ///< In parallel, all alike.
    int maxMachines = 1;
    bool steps = false;  ///< Compressors on the mains may run at a capacity step below 100 %.
    InverterUse inverter = InverterUse::yes;
};

/// A compressor, how it runs and how many of it. Every figure of one machine is that of a selection of this
/// compressor at `conditions`. With economizer it is that of the economized cycle.
struct Candidate {
    const PreparedCompressor* compressor = nullptr;
    clsProjectConditions conditions;  ///< Of the selection, in metric units, with step and frequency.
    unsigned putBack = 0;             ///< Mask of `Selector`: what the series does not permit.
    int machines = 1;
    double capacity = 0;              ///< The needed kind, of all machines, kW.
    double power = 0;                 ///< Power input of all machines, kW.
    double cop = 0;                   ///< Cooling capacity over power input, as the selection has it.
    double deviation = 0;             ///< Of the capacity from the needed one, percent.
    double dischargeTemperature = 0;  ///< With oil cooling at most its limit, degrees Celsius.
    std::optional<Margin> margin{};   ///< To the application limit.
    bool isEconomized = false;
    bool hasWarnings = false;

    /// Hz; none for a compressor on the mains.
    std::optional<float> frequency() const { return frequencyOf(*compressor, conditions); }
};

/// A compressor of the choice that is in no candidate.
struct Rejection {
    enum class Reason : std::uint8_t {
        tooSmall,
        tooLarge,
        envelope,  ///< No limit holds the operating point.
        rule       ///< Another error.
    };
    Reason reason{};
    std::string rule{};  ///< The key of the error's message, or failureName.
    const PreparedCompressor* compressor = nullptr;
    /// Of a compressor that is too small or too large: what comes nearest to the need.
    std::optional<Candidate> nearest{};
};

struct FindResult {
    std::shared_ptr<const PreparedCatalogue> catalogue;  ///< Holds the compressors.
    std::vector<Candidate> candidates{};                 ///< The best first.
    std::vector<Rejection> rejections{};                 ///< In the order of the catalogue.
    bool isAborted = false;                              ///< Then both are empty.
    long long calculations = 0;

    /// Of the rejected ones, what comes nearest to the need; null if there is nothing.
    const Candidate* nearest() const;
};

/// How far a search has come; may be read while it runs.
struct FindProgress {
    std::atomic<std::size_t> done = 0;
    std::atomic<std::size_t> count = 0;  ///< Compressors of the choice.
};

/// Finds the compressors for a needed capacity. One on the mains is calculated at each permitted capacity
/// step; for one on an inverter the frequency is solved at which the machines together have the needed
/// capacity, from 20 to 70 Hz and within what the rules allow at the operating point; the end of that range
/// if the need is beyond it. Candidates are within the tolerance and without an error; they are ranked by COP
/// and, if equal, by deviation. A failure of one compressor rejects it and does not end the search.
///
/// The calling thread calculates. Throws std::invalid_argument for a request that nothing can answer (a need
/// that is not positive, a negative tolerance, machines outside searchRange or in the wrong order), and
/// FluidLibraryError.
FindResult find(const FindRequest& request, std::shared_ptr<const PreparedCatalogue> catalogue,
                Calculator& calculator, FindProgress* progress = nullptr);
/// The same over the threads of a pool, with turns for the user interface. AbortRequested() ends it.
FindResult find(const FindRequest& request, std::shared_ptr<const PreparedCatalogue> catalogue,
                CalculatorPool& pool, FindProgress* progress = nullptr);

}  // namespace marvello
