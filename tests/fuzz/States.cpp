#include "tests/fuzz/States.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace marvello::fuzz {
namespace {

using fluids::Flash;
using fluids::PropertyError;

[[noreturn]] void fail(const char* what, const char* text) {
    std::fprintf(stderr, "%s: %s\n", what, text);
    std::abort();
}

/// A refusal is as good as an answer, if it says something.
template <class Ask>
void ask(Ask question) {
    try {
        question();
    } catch (const PropertyError& error) {
        if (std::strlen(error.what()) < 10) fail("a refusal without a reason", error.what());
    }
}

}  // namespace

void askForStates(Flash& flash) {
    using Side = Flash::Side;
    constexpr std::array temperatures{1.0, 200.0, 273.15, 300.0, 350.0, 400.0, 1e4};
    constexpr std::array pressures{1e-9, 1.0, 500.0, 4000.0, 1e6};
    constexpr std::array heats{-1e7, -1e4, 100.0, 2e4, 5e4, 1e7};
    for (const Side side : {Side::bubble, Side::dew}) {
        for (const double t : temperatures) ask([&] { flash.saturationAtTemperature(t, side); });
        for (const double p : pressures) ask([&] { flash.saturationAtPressure(p, side); });
    }
    for (const double p : pressures) {
        for (const double t : temperatures) {
            ask([&] {
                // What was found is asked for once more, so that the searches end somewhere.
                const fluids::FluidState state = flash.atTemperaturePressure(t, p);
                ask([&] { flash.atPressureEnthalpy(p, state.enthalpy); });
                ask([&] { flash.atPressureEntropy(p, state.entropy); });
                ask([&] { flash.atTemperatureEntropy(t, state.entropy); });
            });
        }
        for (const double heat : heats) {
            ask([&] { flash.atPressureEnthalpy(p, heat); });
            ask([&] { flash.atPressureEntropy(p, heat / 100); });
        }
    }
    for (const double t : temperatures) {
        for (const double heat : heats) ask([&] { flash.atTemperatureEntropy(t, heat / 100); });
    }
    for (const auto reference :
         {fluids::ReferenceState::iir, fluids::ReferenceState::nbp, fluids::ReferenceState::ashrae}) {
        ask([&] { flash.shiftFor(reference); });
    }
}

void checkRefusal(const PropertyError& error, const char* file) {
    const std::size_t length = std::strlen(file);
    if (error.fault() != fluids::Fault::fluidFile || std::strncmp(error.what(), file, length) != 0 ||
        std::strlen(error.what()) < length + 10) {
        fail("a refusal that does not tell the file and the reason", error.what());
    }
}

}  // namespace marvello::fuzz
