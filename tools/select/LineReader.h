#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/Interrupt.h"

namespace marvello::select {

/// Some lines of a text, as they follow one another.
struct LineBlock {
    long long first = 1;     ///< The number of the first one, from 1.
    std::string text;        ///< With the line ends; the last line of a text may have none.
    bool isTooLong = false;  ///< It is one line, of more than `longestLine` bytes, and its text was dropped.
};

/// Reads a text of any length by lines. It holds little more than the longest line that is allowed.
class LineReader {
  public:
    static constexpr std::size_t longestLine = 1'000'000;

    /// `first` is the number of the first line.
    LineReader(ByteInput& input, long long first) : input_(input), line_(first) {}

    /// The next lines, `most` of them or those that have come in; waits for one. None at the end, and once an
    /// interrupt was asked for. Throws std::system_error if the text cannot be read.
    std::optional<LineBlock> next(int most);

  private:
    bool readMore();
    LineBlock take(std::size_t size, int lines);
    LineBlock passOver();

    ByteInput& input_;
    std::string held_;  ///< What was read and not taken.
    std::size_t at_ = 0;
    long long line_;
};

}  // namespace marvello::select
