#pragma once

#include <cstddef>

#include "catalogue/clsProjectConditions.h"
#include "engine/PointLoop.h"

namespace marvello::select {

/// Does work with a loop over so many points at these conditions. An economizer takes milliseconds for each
/// point, which are worth threads, and so are many points.
template <class Work>
auto inLoop(const clsProjectConditions& conditions, std::size_t points, Work work) {
    constexpr std::size_t worthThreads = 2000;
    if (conditions.EcoCalculateMode == EconomizerMode::none && points < worthThreads) {
        Calculator calculator;
        return work(loopWith(calculator));
    }
    CalculatorPool pool;
    return work(loopWith(pool));
}

}  // namespace marvello::select
