#pragma once

namespace marvello::bench {

/// Runs the benchmarks of a program in an application on a screen that no one sees, with settings of its own,
/// the program's look and the shipped catalogue, open; the status to leave it with.
int runInWindows(int argumentCount, char** arguments);

}  // namespace marvello::bench
