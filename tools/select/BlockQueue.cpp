#include "tools/select/BlockQueue.h"

#include <utility>

namespace marvello::select {

bool BlockQueue::add(LineBlock lines) {
    std::unique_lock lock(mutex_);
    hasRoom_.wait(lock, [this] { return isClosed_ || slots_.size() < room_; });
    if (isClosed_) return false;
    slots_.push_back({std::move(lines)});
    hasBlock_.notify_one();
    return true;
}

void BlockQueue::end(BlockResult last) {
    const std::lock_guard lock(mutex_);
    last_ = std::move(last);
    hasBlock_.notify_all();
    hasResult_.notify_one();
}

bool BlockQueue::needsHands() {
    const std::lock_guard lock(mutex_);
    return slots_.size() - taken_ > idle_;
}

BlockQueue::Slot* BlockQueue::take() {
    std::unique_lock lock(mutex_);
    ++idle_;
    hasBlock_.wait(lock, [this] { return isClosed_ || last_ || taken_ < slots_.size(); });
    --idle_;
    if (isClosed_ || taken_ == slots_.size()) return nullptr;
    return &slots_[taken_++];
}

void BlockQueue::giveBack(Slot& slot, BlockResult result) {
    const std::lock_guard lock(mutex_);
    slot.result = std::move(result);
    if (&slot == &slots_.front()) hasResult_.notify_one();
}

BlockResult BlockQueue::next() {
    std::unique_lock lock(mutex_);
    hasResult_.wait(
        lock, [this] { return slots_.empty() ? last_.has_value() : slots_.front().result.has_value(); });
    if (slots_.empty()) return *std::move(last_);
    BlockResult result = *std::move(slots_.front().result);
    slots_.pop_front();
    --taken_;
    hasRoom_.notify_one();
    return result;
}

void BlockQueue::close() {
    const std::lock_guard lock(mutex_);
    isClosed_ = true;
    hasRoom_.notify_all();
    hasBlock_.notify_all();
}

}  // namespace marvello::select
