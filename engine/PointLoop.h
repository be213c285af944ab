#pragma once

#include <cstddef>
#include <functional>

#include "engine/Calculator.h"
#include "engine/CalculatorPool.h"

namespace marvello {

/// Carries out work for each index below a count. Returns false if it was given up before the end.
using PointLoop = std::function<bool(std::size_t count, const CalculatorPool::Work& work)>;

/// In the calling thread, until `isWanted` says no.
PointLoop loopWith(Calculator& calculator, std::function<bool()> isWanted = {});

/// In the threads of a pool, until AbortRequested() is set at a turn of the user interface.
PointLoop loopWith(CalculatorPool& pool);

}  // namespace marvello
