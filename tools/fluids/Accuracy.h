#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marvello::properties {

/// A property of the comparison with reference states, and how its deviation is measured.
enum class Quantity {
    saturationPressure,     ///< bubble and dew point, relative
    saturationDensity,      ///< both phases at either, relative
    composition,            ///< of the incipient phase, difference of mole fractions
    saturationHeat,         ///< enthalpy and entropy, as a share of the evaporation at 0 degC
    density,                ///< in one phase, relative
    heat,                   ///< in one phase, enthalpy and entropy as above
    heatCapacity,           ///< relative
    soundSpeed,             ///< relative
    temperatureByEnthalpy,  ///< at a pressure, K
    temperatureByEntropy,   ///< at a pressure, K
    quality,                ///< difference of the vapour's share of the moles
    count
};

/// One number of a reference state next to that of the library.
struct Deviation {
    std::string refrigerant;
    Quantity quantity{};
    std::string name;               ///< which number it is, such as "dew pressure"
    double temperature = 0;         ///< K
    double reducedTemperature = 0;  ///< over the critical temperature
    double pressure = 0;            ///< kPa
    bool inTwoPhases = false;
    double reference = 0;
    double computed = 0;
    double deviation = 0;  ///< computed less reference, as the quantity is measured
};

struct Comparison {
    std::vector<std::string> refrigerants;
    std::vector<Deviation> deviations;
    std::vector<std::string> refusals;  ///< what the library said of states that it did not answer
};

/// Compares the library with every row of blends.csv, saturation.csv, single_phase.csv and flash.csv in
/// `folder`. Throws Refusal where these cannot be read.
Comparison compare(const std::filesystem::path& folder);

/// Worst and median of the deviations without their signs, a row for each refrigerant.
std::string asTable(const Comparison& comparison);

std::string asCsv(const Comparison& comparison);

}  // namespace marvello::properties
