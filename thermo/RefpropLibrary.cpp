#include "thermo/RefpropLibrary.h"

#include "data/Session.h"
#include "platform/SharedLibrary.h"

namespace marvello {

namespace {

struct LoadedLibrary {
    std::string file;
    SharedLibrary code;
    RefpropFunctions functions{};
};

template <class Function>
void bind(const LoadedLibrary& library, const char* name, Function& function) {
    void* address = library.code.function(name);
    if (address == nullptr) {
        throw FluidLibraryError("The fluid library " + library.file + " has no function " + name + ".");
    }
    function = reinterpret_cast<Function>(address);
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
    return library;
}

}  // namespace

const RefpropFunctions& refpropFunctions() {
    Session& session = Session::current();
    auto& library = session.part<LoadedLibrary>();
    const std::string file = session.applicationFolder + "/" + SharedLibrary::fileName("Refprop");
    if (library.file != file) {
        LoadedLibrary loaded = load(file);
        library = std::move(loaded);
    }
    return library.functions;
}

}  // namespace marvello
