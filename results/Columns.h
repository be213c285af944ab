#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/clsCompressor.h"
#include "data/Numbers.h"
#include "results/clsOutputs.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// What a column shows for a compressor.
struct ShownValue {
    std::optional<double> number{};  ///< as it is shown, rounded; none for "-", a text and a blank
    std::string text;
};

/// Returns the columns of the results list as the catalogue has them, with their texts in the user's
/// language. Throws DatabaseError.
clsOutputs catalogueColumns();

/// Reads columns from the text "key|name|unit|description|visibility;...". A piece that lacks its parts, or
/// repeats a key, is left out.
clsOutputs readOutputs(std::string_view text);

/// Whether the list makes the column of a key itself; the others are variables of the calculation.
bool isOwnColumn(std::string_view key);

/// Whether a column of that visibility is shown.
bool isShown(int visibility, UnitSystem units, bool hasEconomizer);

/// Whether the user may show or hide a column now: not if it belongs to another system of units or to the
/// economizer.
bool isOffered(int visibility, UnitSystem units, bool hasEconomizer);

/// Returns the columns with those switched over that the user chose, by their keys: hidden, or shown if the
/// catalogue hides them.
clsOutputs withSwitched(const clsOutputs& columns, const std::vector<std::string>& keys);

/// Returns the unit of a column. In the imperial system the columns that are named there have units of their
/// own, and every other one follows its metric unit: temperatures, differences, heat flows and mass flows are
/// converted.
std::string unitText(const clsOutput& column, UnitSystem units);

inline const ShownValue blankValue{.text = "  "};

/// Returns what a column shows for a calculated compressor; blank if the calculation has no value for it.
ShownValue valueIn(const clsCompressor& compressor, const clsOutput& column, UnitSystem units,
                   const NumberMarks& marks = {});

}  // namespace marvello
