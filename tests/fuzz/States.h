#pragma once

#include "fluids/Flash.h"
#include "fluids/PropertyError.h"

namespace marvello::fuzz {

/// Asks for states of all kinds, in and far out of range. Each is found or refused; anything else aborts.
void askForStates(fluids::Flash& flash);

/// Aborts unless the text of a refusal names the file and says more than that.
void checkRefusal(const fluids::PropertyError& error, const char* file);

}  // namespace marvello::fuzz
