#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Coefficients.h"
#include "results/CoefficientFiles.h"
#include "tools/select/Request.h"

namespace marvello::select {

/// How the answer is written; not each goes with each question.
enum class RatingFormat : std::uint8_t { table, csv, json, idf };

/// A rating table, or coefficients, as the command line states it.
struct RatingQuestion {
    Request request;             ///< Its temperatures are the first ones of the lists.
    std::vector<double> teds{};  ///< Empty unless stated; of coefficients the range.
    std::vector<double> tcds{};
    std::string quantity{};  ///< Name of a column; empty for all.
    std::optional<CoefficientForm> coefficients{};
    std::optional<RatingConditions> rating{};
    std::optional<CoefficientUnits> units{};
    std::optional<RatingFormat> format{};
};

/// An option of this command under the name that the command line uses.
struct RatingOption {
    std::string_view name;
    std::string_view help;
    void (*read)(RatingQuestion&, const std::string& text);
};

/// Those besides the options of a selection.
std::span<const RatingOption> ratingOptions();

/// Whether an option of a selection is one of this command too: all but the temperatures and the market.
bool isRatingOption(const RequestOption& option);

/// Reads one option. Throws BadRequest with its name, the value and what is allowed.
void readOption(RatingQuestion& question, const RatingOption& option, const std::string& text);

/// Reads temperatures: a number, a list such as "2;5;10", or a range such as "-20:10:5". Throws BadRequest.
std::vector<double> temperaturesIn(const std::string& text);

/// Completes what is not stated. Throws BadRequest for what is missing or does not go together.
void complete(RatingQuestion& question);

}  // namespace marvello::select
