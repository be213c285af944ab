#pragma once

#include <QSize>
#include <filesystem>
#include <string>

#include "demo/pictures/Design.h"

namespace marvello::pictures {

/// What a photo is taken of.
struct Motif {
    std::string name;
    Design design;
    bool isStandIn = false;  ///< a plain model behind the maker's emblem, for a series without a picture
};

/// Takes the photo of a machine with the ray tracer povray and saves it in `file`, the same each time. A
/// draft has rough edges. Throws std::runtime_error with what povray said.
void takePhoto(const Motif& motif, const std::filesystem::path& file, QSize size, bool isDraft);

}  // namespace marvello::pictures
