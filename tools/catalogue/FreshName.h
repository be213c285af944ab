#pragma once

#include <filesystem>

namespace marvello {

/// Makes an empty file or folder whose name begins with `beginning` and ends with six letters that were not
/// there before, with the access rights of any new file. Throws std::filesystem::filesystem_error.
std::filesystem::path makeFreshFile(const std::filesystem::path& beginning);
std::filesystem::path makeFreshFolder(const std::filesystem::path& beginning);

/// Waits until a file or the entries of a folder are on the disk. What cannot be waited for is left alone.
void settle(const std::filesystem::path& path);

}  // namespace marvello
