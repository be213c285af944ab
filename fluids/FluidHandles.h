#pragma once

#include <cstdint>

#include "fluids/Refprop.h"

/// A set-up of one's own next to others in the process.
///
/// The ten functions of fluids/Refprop.h share one set-up. Here each takes a handle before its arguments and
/// does the same with the handle's set-up. A handle is for one thread at a time; different handles may be
/// used in different threads at the same time, and give the same results. What a set-up reads and solves is
/// shared by all handles of the process: the second set-up of the same files and composition reads the files
/// and solves nothing.
struct FluidHandle;

namespace marvello {

/// The type of a function with a handle before the arguments of `Function`.
template <class Function>
struct WithHandle;
template <class... Arguments>
struct WithHandle<void (*)(Arguments...)> {
    using Type = void (*)(FluidHandle*, Arguments...);
};

/// Where the states of an array call go: an array for each number of fluids/Refprop.h, the inputs among them.
/// `x` and `y` hold 20 fractions each, or are both null where no one wants them. `ierr` is that of the
/// single call, which has the sentence to it.
struct FluidStateArrays {
    double *t, *p, *D, *Dl, *Dv, *q, *e, *h, *s, *cv, *cp, *w;
    double *x, *y;
    std::int32_t* ierr;
};

/// The states of `count` pairs of inputs at the mole fractions `z`. What single calls answer, to 1e-12,
/// several at once in the vector unit.
using FluidStatesFunction = void (*)(FluidHandle*, std::int32_t count, const double* first,
                                     const double* second, const double* z, const FluidStateArrays* to);

/// Later versions add members at the end.
inline constexpr std::int32_t fluidHandlesVersion = 1;

/// What a library with handles offers. A null handle is one without a set-up.
struct FluidHandleFunctions {
    std::int32_t version;         ///< of the library, fluidHandlesVersion or later
    FluidHandle* (*open)();       ///< Returns a handle without a set-up, or null if memory is exhausted.
    void (*close)(FluidHandle*);  ///< Does nothing with null.
    WithHandle<decltype(&::SETUPdll)>::Type SETUPdll;
    WithHandle<decltype(&::SETREFdll)>::Type SETREFdll;
    WithHandle<decltype(&::XMOLEdll)>::Type XMOLEdll;
    WithHandle<decltype(&::WMOLdll)>::Type WMOLdll;
    WithHandle<decltype(&::SATTdll)>::Type SATTdll;
    WithHandle<decltype(&::SATPdll)>::Type SATPdll;
    WithHandle<decltype(&::TPFLSHdll)>::Type TPFLSHdll;
    WithHandle<decltype(&::TSFLSHdll)>::Type TSFLSHdll;
    WithHandle<decltype(&::PHFLSHdll)>::Type PHFLSHdll;
    WithHandle<decltype(&::PSFLSHdll)>::Type PSFLSHdll;
    FluidStatesFunction statesAtTP;
    FluidStatesFunction statesAtPH;
    FluidStatesFunction statesAtPS;
};

}  // namespace marvello

/// Returns the table, which stays as long as the library is loaded. A program looks this name up at run time:
/// a library that lacks it has the ten functions alone.
extern "C" const marvello::FluidHandleFunctions* FLUIDHANDLESdll();
