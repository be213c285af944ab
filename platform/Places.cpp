#include "platform/Places.h"

#include <dlfcn.h>

#include <system_error>

namespace marvello {

std::filesystem::path programFile() {
    std::error_code failure;
    return std::filesystem::read_symlink("/proc/self/exe", failure);
}

std::filesystem::path fileWith(const void* function) {
    Dl_info info{};
    if (dladdr(function, &info) == 0 || info.dli_fname == nullptr) return {};
    return std::filesystem::absolute(info.dli_fname);
}

}  // namespace marvello
