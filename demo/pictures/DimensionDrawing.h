#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "demo/pictures/Bodies.h"

namespace marvello::pictures {

/// A row of the table below a drawing: what is the same for some models.
struct DimensionRow {
    std::vector<std::string> models;
    std::vector<int> lengths;              ///< A to F in mm
    std::vector<std::string> connections;  ///< suction, discharge, and economizer where the series has one
};

/// Length, width, height, length and width of the feet, and height of the shaft of each body.
std::vector<DimensionRow> dimensionRows(const SeriesBodies& series);

/// The drawing of a series as a placeable metafile: side and end view of its typical body, letters at the
/// dimensions and a table with a row a body; with one body its lengths stand at the dimensions.
std::vector<std::uint8_t> dimensionDrawing(const SeriesBodies& series);

}  // namespace marvello::pictures
