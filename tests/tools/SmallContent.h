#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marvello::test {

/// The demonstration content with a few compressors only, in a folder: R134A of TK-A 120 and 165, NL-H 165,
/// TK-B 140 and TK-D 140, with all texts, sets, motors and refrigerants. Nothing else is left out, so that it
/// is as sound as the whole.
void writeSmallContent(const std::filesystem::path& folder);

/// The lines of a file, and a file of lines.
std::vector<std::string> linesOf(const std::filesystem::path& file);
void writeLines(const std::filesystem::path& file, const std::vector<std::string>& lines);

}  // namespace marvello::test
