#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace marvello::fluids {

/// Things that take long to make and do not change: each is made once for its key and shared. Those asked for
/// last are kept. Threads may ask at the same time; who asks for what another is making waits for it.
template <class Key, class Thing>
class MadeOnce {
  public:
    /// `make` returns a shared pointer; what it throws passes through, and nothing is kept then.
    template <class Make>
    std::shared_ptr<const Thing> get(const Key& key, Make make) {
        const std::shared_ptr<Entry> entry = entryOf(key);
        const std::lock_guard making(entry->making);
        if (!entry->thing) entry->thing = make();
        return entry->thing;
    }

  private:
    static constexpr std::size_t most = 48;
    struct Entry {
        explicit Entry(const Key& itsKey) : key(itsKey) {}
        const Key key;
        std::mutex making;
        std::shared_ptr<const Thing> thing;
    };

    std::shared_ptr<Entry> entryOf(const Key& key) {
        const std::lock_guard looking(lock_);
        const auto isIt = [&](const std::shared_ptr<Entry>& entry) { return entry->key == key; };
        const auto found = std::find_if(entries_.begin(), entries_.end(), isIt);
        if (found != entries_.end()) {
            std::rotate(entries_.begin(), found, found + 1);
        } else {
            if (entries_.size() == most) entries_.pop_back();
            entries_.insert(entries_.begin(), std::make_shared<Entry>(key));
        }
        return entries_.front();
    }

    std::mutex lock_;
    std::vector<std::shared_ptr<Entry>> entries_;  ///< the one asked for last comes first
};

}  // namespace marvello::fluids
