#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tools/select/FindQuestion.h"

namespace marvello::select {

/// A search that was carried out.
struct FindAnswer {
    const FindQuestion& question;
    const FindResult& result;
    /// Calculates the candidates that are written once more, for their messages.
    Calculator& calculator;
};

struct FindFormat {
    std::string_view name;
    std::string (*text)(const FindAnswer& answer);
};

/// table: aligned columns to read, with the reasons why other compressors are not possible.
/// csv: a line for each candidate, numbers with "." and read back exactly.
/// json: an object; numbers read back exactly.
std::span<const FindFormat> findFormats();
/// Returns the format of a name. Throws BadRequest with those that there are.
const FindFormat& findFormatOf(const std::string& name);

/// Returns the sentence for a search that found nothing, with what comes nearest.
std::string nothingFound(const FindRequest& request, const FindResult& result);

}  // namespace marvello::select
