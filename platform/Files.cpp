#include "platform/Files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <random>
#include <string>
#include <system_error>

namespace marvello {

namespace {

namespace fs = std::filesystem;

/// Tries names until `make` finds one free. `make` returns 0, or -1 with the reason in errno.
template <class Make>
fs::path makeFresh(const fs::path& beginning, Make make) {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    constexpr int length = 6;
    constexpr int trials = 100;
    std::random_device random;
    std::uniform_int_distribution<std::size_t> letter(0, letters.size() - 1);
    for (int trial = 0; trial < trials; ++trial) {
        std::string name = beginning.string();
        for (int i = 0; i < length; ++i) name += letters[letter(random)];
        if (make(name.c_str()) == 0) return name;
        if (errno != EEXIST) break;
    }
    throw fs::filesystem_error("nothing can be made", beginning, {errno, std::generic_category()});
}

}  // namespace

fs::path makeFreshFile(const fs::path& beginning) {
    return makeFresh(beginning, [](const char* name) {
        const int file = open(name, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
        return file < 0 ? -1 : close(file);
    });
}

fs::path makeFreshFolder(const fs::path& beginning) {
    return makeFresh(beginning, [](const char* name) { return mkdir(name, 0777); });
}

std::optional<FileStamp> stampOf(const fs::path& file) {
    struct stat found{};
    if (stat(file.c_str(), &found) != 0) return std::nullopt;
    constexpr std::int64_t perSecond = 1'000'000'000;
    return FileStamp{found.st_dev, found.st_ino, found.st_size,
                     found.st_mtim.tv_sec * perSecond + found.st_mtim.tv_nsec};
}

void takeRights(const fs::path& file, const fs::path& from) {
    struct stat old{};
    if (stat(from.c_str(), &old) != 0) return;
    [[maybe_unused]] const int ownerKept = chown(file.c_str(), old.st_uid, old.st_gid);
    fs::permissions(file, fs::status(from).permissions());
}

FolderLock::FolderLock(const fs::path& folder)
    : file_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (file_ < 0) throw fs::filesystem_error("cannot open", folder, {errno, std::generic_category()});
    while (flock(file_, LOCK_EX) != 0 && errno == EINTR) continue;
}

FolderLock::~FolderLock() { close(file_); }

void settle(const fs::path& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return;
    fsync(file);
    close(file);
}

}  // namespace marvello
