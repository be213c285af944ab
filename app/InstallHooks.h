#pragma once

namespace marvello {

struct Hooks;

/// Gives the modules below what they need from the window library: turns, message boxes and the settings
/// store.
void installHooks(Hooks& hooks);

}  // namespace marvello
