#include "tools/select/Progress.h"

#include <cmath>
#include <cstdio>
#include <string>

#include "platform/Terminal.h"

namespace marvello::select {

Progress::Progress() : isWanted_(isTerminal(stderr) && !isTerminal(stdout)) {}

void Progress::add(int lines) {
    constexpr auto pause = std::chrono::milliseconds(250);
    lines_ += lines;
    const auto now = Clock::now();
    if (!isWanted_ || now - shown_ < pause) return;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    const std::string text = std::to_string(lines_) + " lines, " +
                             std::to_string(std::llround(static_cast<double>(lines_) / seconds)) +
                             " a second";
    hide();
    std::fputs(text.c_str(), stderr);
    shown_ = now;
    width_ = text.size();
}

void Progress::hide() {
    if (width_ == 0) return;
    std::fprintf(stderr, "\r%*s\r", static_cast<int>(width_), "");
    width_ = 0;
}

}  // namespace marvello::select
