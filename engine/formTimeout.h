#pragma once

#include <chrono>
#include <functional>

namespace marvello {

/// The one-shot watchdog of one compressor's calculation. It ends nothing: after 4 seconds it gives the user
/// interface, and so the abort button, a turn. Its tick is delivered where a calculation calls poll().
class formTimeout {
  public:
    explicit formTimeout(std::chrono::milliseconds interval = std::chrono::milliseconds(4000))
        : interval_(interval) {}

    /// Called by the tick.
    std::function<void()> Timeout;

    void StartTimeout();
    void StopTimeout() { enabled_ = false; }
    bool isStopped() const { return !enabled_; }

    /// Delivers the tick when its time has come.
    void poll();

  private:
    std::chrono::milliseconds interval_;
    bool enabled_ = false;
    std::chrono::steady_clock::time_point start_;
};

}  // namespace marvello
