#pragma once

#include <optional>

#include "engine/Find.h"
#include "inputs/SelectionInputs.h"

namespace marvello {

/// The input that keeps a search from beginning; none if there is none.
std::optional<Input> unusableInput(const SelectionInputs& inputs);

/// Returns what the inputs of a search ask for, in metric units.
FindRequest requestOf(const SelectionInputs& inputs);

/// A selection form in which a solution is calculated as in its search.
struct SelectionOfCandidate {
    const SelectionKind* kind;
    InputState inputs;
};
SelectionOfCandidate selectionOf(const SelectionInputs& inputs, const Candidate& candidate);

/// Returns the tolerance, below or above, with which a search would have that solution, in percent with its
/// sign; none beyond what can be entered.
struct WiderTolerance {
    Input input;
    double percent;
};
std::optional<WiderTolerance> widerTolerance(const Candidate& nearest);

}  // namespace marvello
