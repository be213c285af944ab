#pragma once

#include <stdexcept>

#include "fluids/RefpropSession.h"

namespace marvello {

/// The fluid library's file is missing or lacks a function.
class FluidLibraryError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The functions of the library file `Refprop` in the session's application folder, loaded at the first call
/// and again after the folder was changed. The library stays loaded as long as someone holds them. Throws
/// FluidLibraryError.
SharedRefpropFunctions refpropFunctions();

/// Whether that library calculates in several threads next to each other. One that keeps a set-up for the
/// process does not: threads with sessions of their own would set it up again with every turn.
bool isRefpropConcurrent();

}  // namespace marvello
