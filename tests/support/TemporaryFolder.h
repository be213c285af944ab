#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace marvello::test {

/// Makes a new, empty folder whose name begins with `name`. A name made of the process number would meet what
/// a process of the same number, killed in a test, has left.
inline std::filesystem::path newTemporaryFolder(const std::string& name) {
    std::string path = (std::filesystem::temp_directory_path() / (name + "-XXXXXX")).string();
    if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("No folder can be made for the test.");
    return path;
}

}  // namespace marvello::test
