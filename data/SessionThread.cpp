#include "data/SessionThread.h"

#include <system_error>
#include <utility>

#include "data/Session.h"

namespace marvello {

SessionThread::~SessionThread() {
    {
        const std::lock_guard held(lock_);
        ++wanted_;
        isOver_ = true;
    }
    changed_.notify_one();
}

bool SessionThread::start(Task task) {
    if (!hasThread()) return false;
    {
        const std::lock_guard held(lock_);
        next_ = Order{std::move(task), gDatabase().ConnectionString, ++wanted_};
    }
    changed_.notify_one();
    return true;
}

void SessionThread::stop() {
    const std::lock_guard held(lock_);
    ++wanted_;
    next_.reset();
}

bool SessionThread::hasThread() {
    if (thread_.joinable()) return true;
    try {
        thread_ = std::jthread([this, folder = Session::current().applicationFolder] { live(folder); });
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

/// The thread's life: a session, and one task after the other.
void SessionThread::live(const std::string& folder) {
    Session session(folder);
    while (true) {
        std::unique_lock held(lock_);
        changed_.wait(held, [this] { return isOver_ || next_; });
        if (isOver_) return;
        const Order order = *std::exchange(next_, std::nullopt);
        held.unlock();
        const auto isWanted = [this, &order] { return wanted_ == order.number; };
        session.hooks.giveTurn = [&isWanted] {
            if (!isWanted()) AbortRequested() = true;
        };
        AbortRequested() = false;
        gDatabase().ConnectionString = order.catalogue;
        order.task(isWanted);
    }
}

}  // namespace marvello
