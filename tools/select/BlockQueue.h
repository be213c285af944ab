#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <string>

#include "tools/select/LineReader.h"

namespace marvello::select {

/// What came of some lines.
struct BlockResult {
    std::string text;            ///< For standard output.
    std::string complaints;      ///< For standard error.
    int lines = 0;               ///< How many were done.
    bool hasBadLine = false;     ///< One could not be calculated.
    bool hasCompressor = false;  ///< A run had one.
    bool isLast = false;         ///< Nothing is to be written after it.
    bool isInterrupted = false;
    std::exception_ptr failure;  ///< What ends the batch, after the text.
};

/// The way of blocks of lines: read one after the other, worked on by any number of threads at once, and
/// handed out in the order in which they were read. It holds a limited number of them, so that who reads
/// waits for who writes.
class BlockQueue {
  public:
    struct Slot {
        LineBlock lines;
        std::optional<BlockResult> result{};
    };

    explicit BlockQueue(std::size_t room) : room_(room) {}

    // For the one thread that reads.

    /// Adds a block; waits for room. Returns false once the queue is closed.
    bool add(LineBlock lines);
    /// Says that no block follows, and what comes after the results of all.
    void end(BlockResult last);
    /// Whether more blocks wait than threads do.
    bool needsHands();

    // For the threads that work.

    /// Takes the next block; waits for one. None when there is no more, or the queue is closed. It stays
    /// until it was given back.
    Slot* take();
    void giveBack(Slot& slot, BlockResult result);

    // For the one thread that writes.

    /// The results in their order, and the last one; waits for each.
    BlockResult next();
    /// Ends it all: no other result is wanted.
    void close();

  private:
    std::mutex mutex_;
    std::condition_variable hasRoom_, hasBlock_, hasResult_;
    const std::size_t room_;
    std::deque<Slot> slots_;  ///< In the order of reading.
    std::size_t taken_ = 0;   ///< So many slots at the front have been taken.
    std::size_t idle_ = 0;    ///< Threads that wait for a block.
    std::optional<BlockResult> last_;
    bool isClosed_ = false;
};

}  // namespace marvello::select
