#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace marvello {

/// A thread with a session of its own, made at the first task, that carries out the newest of the tasks it is
/// given: a newer one takes the place of one that waits, and gives up the one at work.
class SessionThread {
  public:
    /// Whether a task is still the newest, and was not given up.
    using IsWanted = std::function<bool()>;
    /// Runs in the thread and does not throw. Once it is given up, AbortRequested() is set at each turn of
    /// the user interface.
    using Task = std::function<void(const IsWanted& isWanted)>;

    SessionThread() = default;
    /// Gives up what is at work, and waits for its end.
    ~SessionThread();
    SessionThread(const SessionThread&) = delete;
    SessionThread& operator=(const SessionThread&) = delete;

    /// Carries out a task on the catalogue of the current session; the application folder is that of the
    /// first task. Returns false, and carries out nothing, if the system has no thread left.
    bool start(Task task);
    /// Gives up all tasks.
    void stop();

  private:
    struct Order {
        Task task;
        std::string catalogue;  ///< connection
        unsigned long long number = 0;
    };
    bool hasThread();
    void live(const std::string& folder);

    std::atomic<unsigned long long> wanted_ = 0;  ///< The number of the newest task.
    std::mutex lock_;
    std::condition_variable changed_;
    std::optional<Order> next_;
    bool isOver_ = false;
    std::jthread thread_;  ///< The last member: it uses the others.
};

}  // namespace marvello
