#include "engine/formTimeout.h"

#include "data/Hooks.h"

namespace marvello {

void formTimeout::StartTimeout() {
    StopTimeout();
    start_ = std::chrono::steady_clock::now();
    enabled_ = true;
}

void formTimeout::poll() {
    if (!enabled_ || std::chrono::steady_clock::now() - start_ < interval_) return;
    enabled_ = false;
    giveTurn();
    if (Timeout) Timeout();
    giveTurn();
}

}  // namespace marvello
