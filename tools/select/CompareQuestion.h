#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Comparison.h"
#include "tools/select/Request.h"

namespace marvello::select {

enum class CompareFormat : std::uint8_t { table, csv, json };

/// A comparison as the command line states it.
struct CompareQuestion {
    Request common;                          ///< What holds for all choices.
    std::vector<std::string> choices{};      ///< Each with what it has of its own: "series=TK-A,models=255".
    std::optional<std::size_t> reference{};  ///< Of the differences, from 0.
    CompareFormat format = CompareFormat::table;
};

/// Reads the number of a choice, from 1; 0 is none. Throws BadRequest.
std::optional<std::size_t> referenceIn(const std::string& text, std::size_t choices);
/// Throws BadRequest for a word that is no format.
CompareFormat compareFormatOf(const std::string& word);

/// Returns the choices of a question, spelled as the catalogue does. Throws BadRequest with the number of the
/// choice, and NothingMatches for names that the catalogue does not have.
std::vector<ComparedChoice> choicesOf(const CompareQuestion& question, const PreparedCatalogue& catalogue,
                                      const Choices& choices);

}  // namespace marvello::select
