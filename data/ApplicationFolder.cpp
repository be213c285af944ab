#include "data/ApplicationFolder.h"

#include <filesystem>

#ifdef _WIN32
#include <windows.h>
#endif

namespace marvello {

namespace {

std::string& chosenFolder() {
    static std::string folder;
    return folder;
}

std::filesystem::path programFile() {
#ifdef _WIN32
    wchar_t name[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, name, MAX_PATH);
    return std::filesystem::path(std::wstring(name, length));
#else
    std::error_code failure;
    return std::filesystem::read_symlink("/proc/self/exe", failure);
#endif
}

}  // namespace

std::string applicationFolder() {
    if (!chosenFolder().empty()) return chosenFolder();
    return programFile().parent_path().string();
}

void setApplicationFolder(const std::string& folder) { chosenFolder() = folder; }

}  // namespace marvello
