#include "thermo/RefpropLibrary.h"

#include <memory>

#include "data/Session.h"
#include "platform/SharedLibrary.h"

namespace marvello {

namespace {

struct LoadedLibrary {
    std::string file;
    SharedLibrary code;
    RefpropFunctions functions{};
};

/// The one that a session used last.
struct LastLibrary {
    std::shared_ptr<const LoadedLibrary> library;
};

template <class Function>
void bind(const LoadedLibrary& library, const char* name, Function& function) {
    void* address = library.code.function(name);
    if (address == nullptr) {
        throw FluidLibraryError("The fluid library " + library.file + " has no function " + name + ".");
    }
    function = reinterpret_cast<Function>(address);
}

/// None in a library that has the ten functions alone.
const FluidHandleFunctions* handlesOf(const LoadedLibrary& library) {
    void* address = library.code.function("FLUIDHANDLESdll");
    if (address == nullptr) return nullptr;
    const FluidHandleFunctions* handles = reinterpret_cast<decltype(&FLUIDHANDLESdll)>(address)();
    return handles != nullptr && handles->version >= fluidHandlesVersion ? handles : nullptr;
}

LoadedLibrary load(const std::string& file) {
    LoadedLibrary library;
    library.file = file;
    try {
        library.code = SharedLibrary(file);
    } catch (const std::exception& failure) {
        throw FluidLibraryError(std::string("The fluid library cannot be loaded: ") + failure.what() + ".");
    }
#define MARVELLO_BIND(name) bind(library, #name, library.functions.name);
    MARVELLO_FOR_EACH_REFPROP_FUNCTION(MARVELLO_BIND)
#undef MARVELLO_BIND
    library.functions.handles = handlesOf(library);
    return library;
}

}  // namespace

SharedRefpropFunctions refpropFunctions() {
    Session& session = Session::current();
    auto& library = session.part<LastLibrary>().library;
    const std::string file = session.applicationFolder + "/" + SharedLibrary::fileName("Refprop");
    if (!library || library->file != file) library = std::make_shared<const LoadedLibrary>(load(file));
    return {library, &library->functions};
}

bool isRefpropConcurrent() { return refpropFunctions()->handles != nullptr; }

}  // namespace marvello
