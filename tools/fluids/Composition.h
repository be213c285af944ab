#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marvello::properties {

/// What a refrigerant consists of.
struct Composition {
    struct Part {
        std::string file;  ///< name of the fluid file
        double massFraction = 0;
    };
    std::string name;
    std::vector<Part> parts;

    bool isBlend() const { return parts.size() > 1; }
};

/// All refrigerants of the table blends.csv in `folder`, in its order. Throws Refusal.
std::vector<Composition> readCompositions(const std::filesystem::path& folder);

/// From the arguments of a command: fluid files with mass fractions, such as "R32=0.5", ".FLD" added where it
/// is not there; one alone needs no fraction. With a `folder`, one argument may be a name of its blends.csv.
/// Throws Refusal.
Composition compositionOf(const std::vector<std::string>& arguments, const std::filesystem::path& folder);

}  // namespace marvello::properties
