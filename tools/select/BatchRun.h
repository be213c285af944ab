#pragma once

#include <optional>
#include <string>

#include "tools/select/Choices.h"
#include "tools/select/Output.h"
#include "tools/select/Request.h"

namespace marvello::select {

/// How a batch is run.
struct BatchOptions {
    std::string file;                    ///< "-" is standard input.
    std::optional<std::string> columns;  ///< Instead of a heading in the file.
    std::string language;
    long long firstLine = 1;  ///< The number of its first line.
    int jobs = 1;
    bool isStrict = false;   ///< Stops at the first line that cannot be calculated.
    bool hasHeading = true;  ///< Of the output, where the format has one.
};

/// How a batch ended.
struct BatchEnd {
    bool hasBadLine = false;
    bool hasCompressor = false;
    bool isInterrupted = false;
    long long lastLine = 0;  ///< The number of the last line that was done, the heading's if it is that.
};

/// Runs a batch line by line on `jobs` threads with a session each, and writes the runs to standard output
/// and what is wrong with lines to standard error, in the order of the lines. An option of `base` holds for
/// every line that does not state it. Throws BadRequest if the file cannot be read or names what is no
/// option, DatabaseError, FluidLibraryError, and std::runtime_error if the output cannot be written; what is
/// written until then is whole.
BatchEnd runBatch(const BatchOptions& options, const Format& format, const Request& base,
                  const Choices& choices);

}  // namespace marvello::select
