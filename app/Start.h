#pragma once

namespace marvello {

/// Exit statuses of the program.
enum ExitStatus : int { ended = 0, failedStart = 2 };

/// Starts the program and runs it to its end: second-instance test, splash, catalogue, shared polynomials,
/// main window. Needs the application object and a session with its hooks. A start that fails shows one
/// sentence, in a box and on standard error, and no main window; a second start raises the window of the
/// first one and says so. The environment variable MARVELLO_SPLASH_MS replaces the three seconds of the
/// splash.
int Main();

}  // namespace marvello
