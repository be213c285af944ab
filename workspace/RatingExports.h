#pragma once

#include <QString>
#include <span>

#include "results/RatingSheet.h"
#include "workspace/RatingBar.h"

class QWidget;

namespace marvello {

/// Asks for a file and writes a rating table with all figures, or coefficients of its compressor: after EN
/// 12900 at the conditions of that standard, else at those of the table, in IP units for an imperial one.
/// Returns a note that says where the file is; empty if none was written, which a box has said unless the
/// user gave up.
QString exportRating(RatingFile file, const RatingSheet& sheet, std::span<const Performance> cells,
                     QWidget* parent);

}  // namespace marvello
