#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "engine/Find.h"
#include "tools/select/Request.h"

namespace marvello::select {

/// By what the candidates are put in order, the best first.
enum class RankBy : std::uint8_t { cop, deviation, power, capacity, margin };

/// A search as the command line states it.
struct FindQuestion {
    FindRequest request;
    RankBy rankBy = RankBy::cop;
    std::size_t limit = 20;  ///< Candidates that are written; 0 for all.
};

/// An option of a search under the name that the command line uses.
struct FindOption {
    std::string_view name;
    std::string_view help;
    void (*read)(FindQuestion&, const std::string& text);
};

/// Those besides the options of a selection.
std::span<const FindOption> findOptions();

/// Whether an option of a selection is one of a search too: the operating point and the options of the
/// calculation, without names, step and frequency.
bool isFindOption(const RequestOption& option);

/// Reads one option. Throws BadRequest with its name, the value and what is allowed.
void readOption(FindQuestion& question, const FindOption& option, const std::string& text);

/// Throws BadRequest for a question that lacks something or has values that do not go together, and
/// NothingMatches for a name that the catalogue does not have.
void checkQuestion(const FindQuestion& question);

/// Puts candidates that are in the order of COP into another one; equal ones stay in it.
void rank(std::vector<Candidate>& candidates, RankBy rankBy);

}  // namespace marvello::select
