#pragma once

#include <cstddef>
#include <functional>
#include <memory>

#include "engine/Calculator.h"

namespace marvello {

/// Threads that calculate, each in a session of its own with a calculator, on the application folder and the
/// catalogue of the session that makes the pool. They stay from one run to the next, and with them the
/// refrigerants that they have set up. A property library that keeps one set-up for the process has one
/// thread.
class CalculatorPool {
  public:
    using Work = std::function<void(Calculator& calculator, std::size_t index)>;

    /// With 0 as many threads as the machine has processors. Throws FluidLibraryError, and
    /// std::system_error if the system has no thread left.
    explicit CalculatorPool(unsigned threads = 0);
    ~CalculatorPool();
    CalculatorPool(const CalculatorPool&) = delete;
    CalculatorPool& operator=(const CalculatorPool&) = delete;

    unsigned threads() const;

    /// Calls `work` for each index below `count`, lower ones first, and returns when all are done. The
    /// calling thread gives its user interface turns meanwhile; AbortRequested() in one of them ends the run
    /// early, with false. What the work throws ends it too, and the first of it, by index, is thrown here.
    /// The boxes that it would show are shown here, each text once.
    bool run(std::size_t count, const Work& work);

  private:
    struct Shared;
    std::unique_ptr<Shared> shared_;
};

/// The pool of the current session, made at its first use. Throws what its constructor throws.
CalculatorPool& sessionPool();

}  // namespace marvello
