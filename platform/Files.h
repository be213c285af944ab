#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace marvello {

/// Makes an empty file or folder whose name begins with `beginning` and ends with six letters that were not
/// there before, with the access rights of any new file. Throws std::filesystem::filesystem_error.
std::filesystem::path makeFreshFile(const std::filesystem::path& beginning);
std::filesystem::path makeFreshFolder(const std::filesystem::path& beginning);

/// What tells a file from another one of its name, and from itself after it was written to.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0;  ///< On the device.
    std::int64_t size = 0;
    std::int64_t written = 0;  ///< When, in nanoseconds.
    bool operator==(const FileStamp&) const = default;
};

/// Returns the stamp of the file that bears the name; none if there is no file.
std::optional<FileStamp> stampOf(const std::filesystem::path& file);

/// Gives a file the access rights of another one, and its owner where the user may do that.
void takeRights(const std::filesystem::path& file, const std::filesystem::path& from);

/// Keeps others that lock the folder waiting while it lives. A file system without locks goes without. Throws
/// std::filesystem::filesystem_error if the folder cannot be opened.
class FolderLock {
  public:
    explicit FolderLock(const std::filesystem::path& folder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

  private:
    int file_;
};

/// Waits until a file or the entries of a folder are on the disk. What cannot be waited for is left alone.
void settle(const std::filesystem::path& path);

}  // namespace marvello
