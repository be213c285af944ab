#include "platform/SharedLibrary.h"

#include <dlfcn.h>

#include <stdexcept>

namespace marvello {

SharedLibrary::SharedLibrary(const std::filesystem::path& file)
    : handle_(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (handle_) return;
    const char* reason = dlerror();
    throw std::runtime_error(reason == nullptr ? "unknown reason" : reason);
}

void SharedLibrary::Close::operator()(void* library) const { dlclose(library); }

void* SharedLibrary::function(const char* name) const { return dlsym(handle_.get(), name); }

std::string SharedLibrary::fileName(const std::string& library) { return "lib" + library + ".so"; }

}  // namespace marvello
