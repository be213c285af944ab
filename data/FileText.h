#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace marvello {

/// Returns all bytes of a file; none if it is missing, is a folder or fails while it is read.
std::optional<std::string> fileText(const std::filesystem::path& file);

/// Writes to standard output. Throws std::runtime_error if it cannot be written, as on a full disk.
void printText(const std::string& text);

}  // namespace marvello
