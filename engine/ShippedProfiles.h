#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "engine/LoadProfile.h"
#include "engine/SeasonalFigure.h"

namespace marvello {

/// A load profile that comes with the program.
struct ShippedProfile {
    std::string name;    ///< Such as "eu-mt".
    std::string title;   ///< English.
    std::string source;  ///< Literature.
    LoadProfile profile;
    /// By which its loads follow from the outdoor temperature; none for a load of its own.
    std::optional<SeasonalRule> rule;
};

/// Reads the profiles from the folder "year" of an application folder, in the order of the file. Throws
/// std::runtime_error with file, line and reason.
std::vector<ShippedProfile> shippedProfiles(const std::filesystem::path& applicationFolder);

/// What electricity emits somewhere.
struct GridIntensity {
    std::string region;  ///< ISO 3166 code of a country, or "WORLD".
    int year = 0;
    double intensity = 0;  ///< kg CO2e/kWh
    std::string basis;     ///< What is in the figure, such as "life cycle".
    std::string source;
};

/// Reads what electricity emits from the same folder. Throws std::runtime_error.
std::vector<GridIntensity> gridIntensities(const std::filesystem::path& applicationFolder);

}  // namespace marvello
