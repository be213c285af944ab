#include "thermo/RefpropLibrary.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#include <memory>

#include "data/ApplicationFolder.h"

namespace marvello {

namespace {

#ifdef _WIN32
constexpr const char* libraryFile = "\\Refprop.dll";

struct CloseLibrary {
    void operator()(void* library) const { FreeLibrary(static_cast<HMODULE>(library)); }
};
void* openLibrary(const std::string& file) { return LoadLibraryA(file.c_str()); }
void* symbol(void* library, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}
std::string lastError() { return "error " + std::to_string(GetLastError()); }
#else
#ifdef __APPLE__
constexpr const char* libraryFile = "/libRefprop.dylib";
#else
constexpr const char* libraryFile = "/libRefprop.so";
#endif

struct CloseLibrary {
    void operator()(void* library) const { dlclose(library); }
};
void* openLibrary(const std::string& file) { return dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL); }
void* symbol(void* library, const char* name) { return dlsym(library, name); }
std::string lastError() {
    const char* text = dlerror();
    return text == nullptr ? "unknown reason" : text;
}
#endif

struct LoadedLibrary {
    std::string file;
    std::unique_ptr<void, CloseLibrary> handle;
    RefpropFunctions functions{};
};

template <class Function>
void bind(const LoadedLibrary& library, const char* name, Function& function) {
    void* address = symbol(library.handle.get(), name);
    if (address == nullptr) {
        throw FluidLibraryError("The fluid library " + library.file + " has no function " + name + ".");
    }
    function = reinterpret_cast<Function>(address);
}

LoadedLibrary load(const std::string& file) {
    LoadedLibrary library;
    library.file = file;
    library.handle.reset(openLibrary(file));
    if (!library.handle) {
        throw FluidLibraryError("The fluid library cannot be loaded: " + lastError() + ".");
    }
    RefpropFunctions& f = library.functions;
    bind(library, "SETUPdll", f.SETUPdll);
    bind(library, "SETREFdll", f.SETREFdll);
    bind(library, "XMOLEdll", f.XMOLEdll);
    bind(library, "WMOLdll", f.WMOLdll);
    bind(library, "SATTdll", f.SATTdll);
    bind(library, "SATPdll", f.SATPdll);
    bind(library, "TPFLSHdll", f.TPFLSHdll);
    bind(library, "TSFLSHdll", f.TSFLSHdll);
    bind(library, "PHFLSHdll", f.PHFLSHdll);
    bind(library, "PSFLSHdll", f.PSFLSHdll);
    return library;
}

}  // namespace

const RefpropFunctions& refpropFunctions() {
    static LoadedLibrary library;
    const std::string file = applicationFolder() + libraryFile;
    if (library.file != file) {
        LoadedLibrary loaded = load(file);
        library = std::move(loaded);
    }
    return library.functions;
}

}  // namespace marvello
