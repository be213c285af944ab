#pragma once

#include <array>
#include <stdexcept>
#include <string>
#include <utility>

#include "data/Texts.h"
#include "tools/select/Request.h"

namespace marvello::select {

/// Returns the value of a word, case ignored. Throws BadRequest with those that there are.
template <class Value, std::size_t count>
Value wordOf(const std::string& text, const std::array<std::pair<const char*, Value>, count>& words) {
    std::string allowed;
    for (const auto& [word, value] : words) {
        if (equalIgnoringCase(trimmed(text), word)) return value;
        allowed += (allowed.empty() ? "" : ", ") + std::string(word);
    }
    throw BadRequest("\"" + text + "\" is not one of " + allowed);
}

/// Returns what `read` returns. What a reader of the engine refuses is a bad request.
template <class Read>
auto asRequest(Read read) {
    try {
        return read();
    } catch (const std::invalid_argument& refusal) {
        throw BadRequest(refusal.what());
    }
}

}  // namespace marvello::select
