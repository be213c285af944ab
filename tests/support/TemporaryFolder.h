#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace marvello::test {

/// Makes a new, empty folder whose name begins with `name`. A name made of the process number would meet what
/// a process of the same number, killed in a test, has left.
inline std::filesystem::path newTemporaryFolder(const std::string& name) {
    std::string path = (std::filesystem::temp_directory_path() / (name + "-XXXXXX")).string();
    if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("No folder can be made for the test.");
    return path;
}

/// The path of such a folder, which goes with it.
class TemporaryFolder : public std::filesystem::path {
  public:
    explicit TemporaryFolder(const std::string& name) : path(newTemporaryFolder(name)) {}
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(*this, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
};

}  // namespace marvello::test
