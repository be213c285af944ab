#pragma once

#include <functional>
#include <string>
#include <vector>

#include "catalogue/ClsSelectionMessages.h"
#include "catalogue/PreparedCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/AdvisedInput.h"
#include "engine/Calculator.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// A message by what raised it. Equal ones that are raised twice are one.
struct MessageId {
    Severity severity = Severity::error;
    std::string key;  ///< of the dictionary
    bool operator==(const MessageId&) const = default;
};

/// The change of one input that ends a message, the others left as they are.
struct Advice {
    AdvisedInput input{};
    double value = 0;        ///< What to set, in the system of units asked for: a multiple of 0.1, or a code.
    double change = 0;       ///< From the present value; 0 for a choice.
    bool isLasting = false;  ///< The next step of the search in the same direction ends it too.
    std::vector<MessageId> ends{};    ///< Other messages that end with it.
    std::vector<MessageId> brings{};  ///< Messages of less weight that it brings.
};

struct MessageAdvice {
    MessageId message;
    std::vector<Advice>
        advice{};  ///< One for each input at most; the choices, then the smallest change first.
};

/// Returns what ends each error of a compressor or, without errors, each warning that depends on the inputs:
/// the nearest value of each input that its form permits at which the message is not raised and no other of
/// the same weight or more. Each value is checked by a calculation at it. A message that no single input
/// ends has no advice.
///
/// The numbers are multiples of 0.1 in `units`. A cure that lasts for less than 0.5 of a temperature, or
/// 1 of any other number, may be missed in favour of one further away. Takes some hundred calculations;
/// returns early, with nothing, once `isWanted` says no. Throws what Calculator::calculate throws at the
/// present conditions.
std::vector<MessageAdvice> adviseOn(Calculator& calculator, const PreparedCompressor& compressor,
                                    const clsProjectConditions& conditions,
                                    UnitSystem units = UnitSystem::metric,
                                    const std::function<bool()>& isWanted = {});

}  // namespace marvello
