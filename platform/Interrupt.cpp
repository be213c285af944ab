#include "platform/Interrupt.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace marvello {

namespace {

constexpr std::array<int, 2> signals{SIGINT, SIGTERM};

std::atomic<bool> isAskedFor = false;
std::array<int, 2> wakeUp{-1, -1};  ///< A pipe that has a byte in it once an interrupt was asked for.
std::array<struct sigaction, signals.size()> before{};

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

void onSignal(int) {
    if (Interrupt::isAsked()) std::_Exit(Interrupt::status);
    const int kept = errno;
    Interrupt::ask();
    errno = kept;
}

}  // namespace

Interrupt::Interrupt() {
    isAskedFor = false;
    if (pipe2(wakeUp.data(), O_CLOEXEC | O_NONBLOCK) != 0) fail("no pipe");
    struct sigaction noted{};
    noted.sa_handler = onSignal;
    noted.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < signals.size(); ++i) {
        sigaction(signals[i], nullptr, &before[i]);
        if (before[i].sa_handler != SIG_IGN) sigaction(signals[i], &noted, nullptr);
    }
}

Interrupt::~Interrupt() {
    for (std::size_t i = 0; i < signals.size(); ++i) sigaction(signals[i], &before[i], nullptr);
    for (int& end : wakeUp) close(std::exchange(end, -1));
}

bool Interrupt::isAsked() { return isAskedFor; }

void Interrupt::ask() {
    isAskedFor = true;
    [[maybe_unused]] const auto written = write(wakeUp.back(), "!", 1);
}

ByteInput::ByteInput(const std::string& file)
    : file_(file == "-" ? STDIN_FILENO : open(file.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (file_ < 0) fail(file);
}

ByteInput::~ByteInput() {
    if (file_ != STDIN_FILENO) close(file_);
}

std::size_t ByteInput::read(char* bytes, std::size_t size) {
    // Without an Interrupt the pipe is -1, which poll passes over.
    std::array<pollfd, 2> waits{pollfd{file_, POLLIN, 0}, pollfd{wakeUp.front(), POLLIN, 0}};
    while (!Interrupt::isAsked()) {
        if (poll(waits.data(), waits.size(), -1) < 0) {
            if (errno == EINTR) continue;
            fail("poll");
        }
        if (waits.back().revents != 0) break;
        const auto count = ::read(file_, bytes, size);
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR && errno != EAGAIN) fail("read");
    }
    return 0;
}

}  // namespace marvello
