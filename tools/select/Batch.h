#pragma once

#include <string>
#include <vector>

#include "tools/select/Request.h"

namespace marvello::select {

/// One line of a batch: a request, or the reason why it is none.
struct BatchLine {
    std::string place;  ///< "file:line"
    Request request;
    std::string fault;  ///< Empty for a sound line.
};

/// The lines of a batch: one request a line of the CSV text, the columns named as the options. An option of
/// `base` holds for every line that does not state it. A line at fault does not touch the others. Throws
/// BadRequest if the header line is missing or names what is not an option.
std::vector<BatchLine> readBatch(const std::string& text, const std::string& file, const Request& base,
                                 const Choices& choices);

}  // namespace marvello::select
