#include "platform/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>

namespace marvello {

namespace {

[[noreturn]] void fail(int code, const std::string& what) {
    throw std::system_error(code, std::generic_category(), what);
}

class Pipe {
  public:
    Pipe() {
        if (pipe2(ends_.data(), O_CLOEXEC) != 0) fail(errno, "no pipe");
    }
    ~Pipe() {
        closeEnd(0);
        closeEnd(1);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int reading() const { return ends_[0]; }
    int writing() const { return ends_[1]; }
    void closeWriting() { closeEnd(1); }

  private:
    void closeEnd(std::size_t end) {
        if (ends_[end] >= 0) close(std::exchange(ends_[end], -1));
    }
    std::array<int, 2> ends_{-1, -1};
};

/// Where a new program reads and writes.
class FileActions {
  public:
    FileActions(const Pipe& output, const Pipe& errors) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&actions_, output.writing(), STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions_, errors.writing(), STDERR_FILENO);
    }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    const posix_spawn_file_actions_t* get() const { return &actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

std::vector<std::string> environmentWith(const std::map<std::string, std::string>& added) {
    std::vector<std::string> all;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view text = *entry;
        if (!added.contains(std::string(text.substr(0, text.find('='))))) all.emplace_back(text);
    }
    for (const auto& [name, value] : added) all.push_back(name + "=" + value);
    return all;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Reads both ends until both are closed.
void readAll(const Pipe& output, const Pipe& errors, ChildOutput& child) {
    std::array<pollfd, 2> ends{pollfd{output.reading(), POLLIN, 0}, pollfd{errors.reading(), POLLIN, 0}};
    const std::array<std::string*, 2> texts{&child.output, &child.errors};
    std::array<char, 1 << 16> buffer{};
    while (ends[0].fd >= 0 || ends[1].fd >= 0) {
        if (poll(ends.data(), ends.size(), -1) < 0) {
            if (errno == EINTR) continue;
            fail(errno, "no output of another program");
        }
        for (std::size_t i = 0; i < ends.size(); ++i) {
            if (ends[i].fd < 0 || ends[i].revents == 0) continue;
            const ssize_t count = read(ends[i].fd, buffer.data(), buffer.size());
            if (count > 0)
                texts[i]->append(buffer.data(), static_cast<std::size_t>(count));
            else if (count == 0 || errno != EINTR)
                ends[i].fd = -1;
        }
    }
}

int statusOf(pid_t process) {
    constexpr int signalled = 128;
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
        if (errno != EINTR) fail(errno, "no end of another program");
    return WIFEXITED(status) ? WEXITSTATUS(status) : signalled + WTERMSIG(status);
}

}  // namespace

ChildOutput runProgram(const std::string& program, const std::vector<std::string>& arguments,
                       const std::map<std::string, std::string>& environment) {
    Pipe output;
    Pipe errors;
    const FileActions actions(output, errors);
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables = environmentWith(environment);
    pid_t process = 0;
    const int failure = posix_spawnp(&process, program.c_str(), actions.get(), nullptr,
                                     pointersTo(words).data(), pointersTo(variables).data());
    if (failure != 0) fail(failure, program);
    output.closeWriting();
    errors.closeWriting();
    ChildOutput child;
    readAll(output, errors, child);
    child.status = statusOf(process);
    return child;
}

}  // namespace marvello
