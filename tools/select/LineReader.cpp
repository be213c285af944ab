#include "tools/select/LineReader.h"

#include <utility>

namespace marvello::select {

std::optional<LineBlock> LineReader::next(int most) {
    for (;;) {
        std::size_t end = at_;
        int lines = 0;
        for (; lines < most; ++lines) {
            const auto lineEnd = held_.find('\n', end);
            if (lineEnd == std::string::npos || lineEnd - end > longestLine) break;
            end = lineEnd + 1;
        }
        if (lines > 0) return take(end - at_, lines);
        if (held_.size() - at_ > longestLine) return passOver();
        if (readMore()) continue;
        if (Interrupt::isAsked() || at_ == held_.size()) return std::nullopt;
        return take(held_.size() - at_, 1);
    }
}

/// False at the end.
bool LineReader::readMore() {
    constexpr std::size_t atOnce = 65536;
    held_.erase(0, std::exchange(at_, 0));
    const std::size_t before = held_.size();
    held_.resize(before + atOnce);
    held_.resize(before + input_.read(held_.data() + before, atOnce));
    return held_.size() > before;
}

LineBlock LineReader::take(std::size_t size, int lines) {
    LineBlock block{line_, held_.substr(at_, size)};
    at_ += size;
    line_ += lines;
    return block;
}

LineBlock LineReader::passOver() {
    std::size_t end = 0;
    while ((end = held_.find('\n', at_)) == std::string::npos) {
        at_ = held_.size();
        if (!readMore()) break;
    }
    at_ = end == std::string::npos ? held_.size() : end + 1;
    return {line_++, {}, true};
}

}  // namespace marvello::select
