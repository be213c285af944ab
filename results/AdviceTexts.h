#pragma once

#include <span>
#include <string>
#include <vector>

#include "data/Numbers.h"
#include "engine/Advice.h"

namespace marvello {

/// What an advice says to people, in their language.
struct ShownAdvice {
    std::string text;    ///< input and value: "Condensing temperature 56.5 °C or lower"
    std::string step;    ///< from the present value: "-0.5 K"; empty for a choice
    std::string effect;  ///< what it does to the other messages; empty if there are none
};

/// Those that are shown of a message: the first three at most.
std::span<const Advice> shownOf(const std::vector<Advice>& advice);

/// Returns the texts of `advice`, which is about `message` and was found in `units` at `conditions`. `all` is
/// what adviseOn gave.
ShownAdvice shownAdvice(const std::vector<MessageAdvice>& all, const MessageId& message, const Advice& advice,
                        const clsProjectConditions& conditions, UnitSystem units, const NumberMarks& marks);

/// Returns what is said of a message that no single input ends.
std::string noAdviceText();

}  // namespace marvello
