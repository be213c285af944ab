#pragma once

#include <optional>

#include "engine/Find.h"
#include "inputs/SelectionInputs.h"

namespace marvello {

/// Returns the first input that a search cannot begin with; none if all are in order.
std::optional<Input> unusableInput(const SelectionInputs& inputs);

/// Returns what the inputs of a search ask for, in metric units.
FindRequest requestOf(const SelectionInputs& inputs);

/// A selection form in which a solution is calculated as in its search.
struct SelectionOfCandidate {
    const SelectionKind* kind;
    InputState inputs;
};
SelectionOfCandidate selectionOf(const SelectionInputs& inputs, const Candidate& candidate);

/// A tolerance, below or above, in percent with its sign.
struct WiderTolerance {
    Input input;
    double percent;
};
/// Returns the tolerance with which a search would have that solution; none beyond what can be entered.
std::optional<WiderTolerance> widerTolerance(const Candidate& nearest);

}  // namespace marvello
