#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tools/select/Run.h"

namespace marvello::select {

/// The number of the line of a batch that states a run; none for a single selection.
using LineNumber = std::optional<long long>;

/// What stands around runs that are written one after the other: before the first, between two, after the
/// last.
struct Frame {
    std::string opening, between, closing;
};

/// A form in which runs are written, each for itself, so that a batch of any length can be.
struct Format {
    std::string_view name;
    bool isForBatches;
    bool hasAdvice;   ///< Has a place for what ends a message.
    int linesAtOnce;  ///< Of a batch, for a thread: few where the text of a line is long.
    Frame (*frame)(bool isBatch, bool hasHeading);
    /// Writes a run at the end of a text.
    void (*add)(std::string& text, const Run& run, LineNumber line);
};

/// table: aligned columns to read.
/// csv: a line for each compressor, numbers with "." and read back exactly. That of a batch begins with the
/// number of
///      the line that states the run.
/// json: an object for each run, in an array for a batch; numbers read back exactly.
/// jsonl: the same object in a line of its own. That of a batch begins with the number of the line.
/// xml, list-csv: the list in metric units, byte for byte as a form exports it. CSV has the decimal mark of
/// the user's
///      locale.
std::span<const Format> formats();

/// Returns the format of a name. Throws BadRequest with those that there are.
const Format& formatOf(const std::string& name);

}  // namespace marvello::select
