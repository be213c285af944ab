#pragma once

#include <QString>

namespace marvello {

/// Exit statuses of the program.
enum ExitStatus : int { ended = 0, failedStart = 2 };

/// Starts the program and runs it to its end: splash, second-instance test, catalogue, shared polynomials,
/// main window. Needs the application object and the hooks. A start that fails shows one sentence, in a box
/// and on standard error, and no main window. The environment variable MARVELLO_SPLASH_MS replaces the three
/// seconds of the splash.
int Main();

/// The file by whose lock a second instance of the same user is known.
QString instanceLockFile();

}  // namespace marvello
