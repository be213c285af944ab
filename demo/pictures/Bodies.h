#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marvello::pictures {

/// The outside of the models of a series up to a displacement; lengths in mm.
struct Body {
    std::string name;
    double displacementTo = 0;  ///< m^3/h
    double length = 0;
    double width = 0;
    double height = 0;
    double feetLength = 0;
    double feetWidth = 0;
    std::string suction;  ///< connections as the catalogue writes them
    std::string discharge;
    std::string economizer;           ///< empty: none
    std::vector<std::string> models;  ///< that have this body
};

struct SeriesBodies {
    std::string serie;
    std::vector<Body> bodies;  ///< the smallest first

    bool hasEconomizer() const;
    /// The one in the middle, which stands for the series in its photo.
    const Body& typical() const { return bodies[bodies.size() / 2]; }
};

/// All series of the plans in their order. A model has the smallest body of its series that is large enough.
/// Throws std::runtime_error that names what is missing or does not fit.
std::vector<SeriesBodies> readBodies(const std::filesystem::path& plans);

}  // namespace marvello::pictures
