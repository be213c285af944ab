#pragma once

#include <chrono>
#include <cstddef>

namespace marvello::select {

/// A line on the terminal that says how far a long run is; nothing where standard error is no terminal, or
/// the results go to one themselves. The program's other words go around it: hide it before each.
class Progress {
  public:
    Progress();
    ~Progress() { hide(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Counts lines that are done, and shows the count a few times a second.
    void add(int lines);
    void hide();

  private:
    using Clock = std::chrono::steady_clock;

    const bool isWanted_;
    const Clock::time_point start_ = Clock::now();
    Clock::time_point shown_ = start_;
    long long lines_ = 0;
    std::size_t width_ = 0;  ///< Of what stands on the terminal.
};

}  // namespace marvello::select
