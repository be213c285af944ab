#pragma once

#include <filesystem>

namespace marvello {

/// The file of the running program; empty if it is not known.
std::filesystem::path programFile();

/// The file of the program or library that holds a function; empty if it is not known.
std::filesystem::path fileWith(const void* function);

}  // namespace marvello
