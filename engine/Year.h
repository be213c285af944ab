#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/PreparedCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/CondensingRule.h"
#include "engine/Degradation.h"
#include "engine/EvaporatingRule.h"
#include "engine/LoadProfile.h"
#include "engine/PointLoop.h"
#include "engine/SeasonalFigure.h"
#include "engine/Staging.h"

namespace marvello {

/// Machines of a plant that are alike.
struct PlantMachines {
    const PreparedCompressor* compressor = nullptr;
    int count = 1;
};

/// A plant and the year that it runs through.
struct YearRequest {
    static constexpr int maxMachines = 8;

    /// All of one refrigerant, at most one of them on an inverter; in the order of the sequence.
    std::vector<PlantMachines> machines{};
    /// Options of the calculation. Its temperatures, capacity step and frequency are not read.
    clsProjectConditions conditions;
    LoadProfile profile{};
    double designLoad = 0;  ///< Cooling capacity, kW.
    EvaporatingRule evaporating{};
    CondensingRule condensing{};
    Staging staging = Staging::power;
    Degradation degradation{};  ///< Of intermittent running.
};

/// How a plant runs in the hours of a bin.
struct YearBin {
    LoadBin bin{};
    double needed = 0;  ///< Cooling capacity, kW.
    double ted = 0;     ///< Evaporating dew temperature, degrees Celsius.
    double tcd = 0;     ///< Condensing dew temperature, degrees Celsius.
    StagedLoad load{};
    /// By kind of machine: the key of the error, or failureName, of one that is needed and cannot run here;
    /// else empty.
    std::vector<std::string> errors{};

    double delivered() const { return load.capacity(); }   ///< kW
    double power() const { return load.power(); }          ///< kW
    double energy() const { return power() * bin.hours; }  ///< kWh
    /// The share of the needed capacity that is delivered; 1 if nothing is needed.
    double metShare() const { return needed > 0 ? 1 - load.unmet / needed : 1; }
    double runningHours(std::size_t kind) const;  ///< Of all machines of a kind.
};

/// What a year comes to.
struct Year {
    std::vector<YearBin> bins{};  ///< As those of the profile.
    double hours = 0;             ///< Of the profile.
    double energy = 0;            ///< kWh
    double delivered = 0;         ///< Cooling, kWh.
    double unmet = 0;             ///< Cooling, kWh.
    double unmetHours = 0;        ///< In which anything is missing.
    /// In which a machine stops and starts, since less is needed than its lowest state has.
    double intermittentHours = 0;
    std::vector<double> runningHours{};  ///< Of all machines of a kind together.
    long long calculations = 0;

    /// Cooling over electricity; none without electricity.
    std::optional<double> seasonalCop() const;
    double allRunningHours() const;
};

/// Calculates a year. Each state in which a machine runs is a selection at the temperatures of its bin; bins
/// of the same temperatures share them. None if the loop was given up. Throws std::invalid_argument for a
/// request that nothing can answer (no machine or more than maxMachines, two refrigerants, two inverters, a
/// design load that is not above 0, no rule for a temperature), and FluidLibraryError.
std::optional<Year> yearOf(const YearRequest& request, const PointLoop& loop);

/// The four-point method, with the plant at the points of its rule.
struct FourPoints {
    std::array<YearBin, 4> points{};  ///< A to D, without hours.
    /// None if the plant cannot run at one of them.
    std::optional<double> figure{};
};

/// Calculates the seasonal figure of the method that a rule defines, over the profile of the request. It is
/// that of the plant under the assumptions of the request, and no declared value. Throws what yearOf throws.
std::optional<FourPoints> fourPointsOf(const YearRequest& request, const SeasonalRule& rule,
                                       const PointLoop& loop);

}  // namespace marvello
