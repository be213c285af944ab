#pragma once

#include <string>

#include "tools/select/Output.h"

namespace marvello::select {

Frame jsonFrame(bool isBatch, bool hasHeading);
/// Writes all of a run as an object over many lines, or as one in a line of its own.
void addJson(std::string& text, const Run& run, LineNumber line);
void addJsonLine(std::string& text, const Run& run, LineNumber line);

}  // namespace marvello::select
