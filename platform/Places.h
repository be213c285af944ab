#pragma once

#include <filesystem>

namespace marvello {

/// The file of the running program; empty if it cannot be told.
std::filesystem::path programFile();

/// The file of the program or library that holds a function; empty if it cannot be told.
std::filesystem::path fileWith(const void* function);

}  // namespace marvello
