#pragma once

#include <memory>

#include "data/Session.h"

class QApplication;
class QTemporaryDir;

namespace marvello::bench {

/// What benches of windows run in: an application on a screen that no one sees, with settings of its own, the
/// program's look and the shipped catalogue, open.
class Windows {
  public:
    Windows(int& argumentCount, char** arguments);
    ~Windows();
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;

  private:
    Session session_;
    std::unique_ptr<QApplication> application_;
    std::unique_ptr<QTemporaryDir> settings_;
};

/// Runs the benchmarks of a program in such a surrounding; the status to leave it with.
int runInWindows(int argumentCount, char** arguments);

}  // namespace marvello::bench
