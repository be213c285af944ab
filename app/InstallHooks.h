#pragma once

namespace marvello {

/// Gives the rooms below what they need from the window library: turns, message boxes and the settings store.
void installHooks();

}  // namespace marvello
