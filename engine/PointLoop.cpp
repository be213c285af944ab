#include "engine/PointLoop.h"

#include <utility>

namespace marvello {

PointLoop loopWith(Calculator& calculator, std::function<bool()> isWanted) {
    return
        [&calculator, isWanted = std::move(isWanted)](std::size_t count, const CalculatorPool::Work& work) {
            for (std::size_t i = 0; i < count; ++i) {
                if (isWanted && !isWanted()) return false;
                work(calculator, i);
            }
            return true;
        };
}

PointLoop loopWith(CalculatorPool& pool) {
    return [&pool](std::size_t count, const CalculatorPool::Work& work) { return pool.run(count, work); };
}

}  // namespace marvello
