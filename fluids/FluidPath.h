#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace marvello::fluids {

/// Finds a file by its name in a data file made on another system: '\' separates folders as '/'
/// does, and where nothing is spelt exactly so, a name that differs only in the case of Latin letters is
/// taken. A relative name is looked for in each of `folders` in turn. Empty when there is no such file.
std::filesystem::path findFluidFile(const std::string& name,
                                    const std::vector<std::filesystem::path>& folders);

}  // namespace marvello::fluids
