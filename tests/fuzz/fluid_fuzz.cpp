// Any text as a fluid file: refused with a reason, or a fluid that can be asked for states.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fluids/FluidFile.h"
#include "tests/fuzz/States.h"

namespace {

using namespace marvello;

void tryOut(const std::string& text) {
    constexpr const char* name = "fuzzed.fld";
    fluids::PureFluid fluid;
    try {
        fluid = fluids::readFluidText(text, name);
    } catch (const fluids::PropertyError& error) {
        fuzz::checkRefusal(error, name);
        return;
    }
    constexpr std::array all{1.0};
    try {
        fluids::Flash flash(fluids::Mixture({fluid}, {}, fluid.gasConstant), all);
        fuzz::askForStates(flash);
    } catch (const fluids::PropertyError&) {
        // An equation without a sound saturation line.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tryOut({reinterpret_cast<const char*>(data), size});
    return 0;
}
