#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace marvello {

/// A library that is loaded while the program runs, and unloaded with the object.
class SharedLibrary {
  public:
    SharedLibrary() = default;
    /// Throws std::runtime_error with the system's reason.
    explicit SharedLibrary(const std::filesystem::path& file);

    /// The address of an exported function; none if the library has no such function.
    void* function(const char* name) const;

    /// How the file of a library is named here.
    static std::string fileName(const std::string& library);

  private:
    struct Close {
        void operator()(void* library) const;
    };
    std::unique_ptr<void, Close> handle_;
};

}  // namespace marvello
