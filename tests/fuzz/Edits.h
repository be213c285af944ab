#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <string>

#include "tools/catalogue/Content.h"

namespace marvello::fuzz {

/// The shipped content with three models of R134A and the beginnings of the other tables: some tens of
/// kilobytes as a catalogue file, which still calculates.
Content cutContent();

/// The file with a few bytes changed and, now and then, its end cut off.
std::string withChangedBytes(std::string file, FuzzedDataProvider& changes);

/// The CSV text with a few fields, or runs of bytes, replaced.
std::string withChangedFields(std::string text, FuzzedDataProvider& changes);

}  // namespace marvello::fuzz
