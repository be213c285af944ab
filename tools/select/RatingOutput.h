#pragma once

#include <span>
#include <string>

#include "results/PerformanceRows.h"
#include "tools/select/RatingQuestion.h"

namespace marvello::select {

/// A rating table that was calculated: the rows of the condensing temperatures one after the other.
struct RatingAnswer {
    const RatingQuestion& question;
    std::span<const PerformanceRow> rows;
};

/// Returns a table in the format of its question: grids to read, or a line for each point.
std::string ratingText(const RatingAnswer& answer);

/// Returns coefficients in the format of their question.
std::string coefficientsText(const RatingQuestion& question, const RatedCoefficients& rated);

}  // namespace marvello::select
