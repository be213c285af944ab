// Any text as a mixture file: refused with a reason, or pairs that a blend can be made of and asked for
// states.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "fluids/FluidFile.h"
#include "fluids/MixtureFile.h"
#include "tests/fuzz/States.h"

namespace {

using namespace marvello;
using Components = std::vector<fluids::PureFluid>;

/// Blends of two and of three components.
const std::vector<Components>& blends() {
    static const std::vector<Components> all = [] {
        const auto read = [](const std::string& name) {
            return fluids::readFluidFile(MARVELLO_SOURCE_FOLDER "/fluids/files/" + name + ".FLD");
        };
        return std::vector<Components>{{read("R32"), read("R125")},
                                       {read("R134A"), read("R1234YF")},
                                       {read("CO2"), read("PROPANE")},
                                       {read("R125"), read("R143A"), read("R134A")}};
    }();
    return all;
}

void tryOut(const std::string& text) {
    constexpr const char* name = "fuzzed.bnc";
    const Components& components = blends()[text.size() % blends().size()];
    std::vector<std::string> names;
    for (const fluids::PureFluid& fluid : components) names.push_back(fluid.name);
    fluids::MixtureModel model;
    try {
        model = fluids::readMixtureText(text, name, names);
    } catch (const fluids::PropertyError& error) {
        fuzz::checkRefusal(error, name);
        return;
    }
    constexpr std::array<std::array<double, 3>, 2> fractions{{{0.3, 0.7, 0}, {0.4, 0.5, 0.1}}};
    try {
        fluids::Flash flash(fluids::Mixture(components, std::move(model.pairs), model.gasConstant),
                            {fractions[components.size() - 2].data(), components.size()});
        fuzz::askForStates(flash);
    } catch (const fluids::PropertyError&) {
        // A blend whose phase boundary cannot be followed.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tryOut({reinterpret_cast<const char*>(data), size});
    return 0;
}
