#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace marvello {

/// Is called before each change of the file system, so that a test can stop in front of any.
using ExchangeStep = std::function<void()>;

/// The text tables and help documents of a folder; empty if there is no such folder.
std::vector<std::filesystem::path> tablesIn(const std::filesystem::path& folder);

/// Writes `files`, texts by name, as the tables of a folder; other files of it stay. A new folder appears
/// whole or not at all. In a folder that is there, the new files are laid up in a folder of its own; renaming
/// that is the moment from which they count, and they are then moved into place. A process that ends before
/// that moment leaves the old tables, and one that ends after it leaves the rest to finishExchange(). One
/// process at a time exchanges the tables of a folder; others wait. Tables that are there are refused unless
/// `replace` is set. Throws std::runtime_error.
void writeTableFiles(const std::filesystem::path& folder, const std::map<std::string, std::string>& files,
                     bool replace, const ExchangeStep& step = {});

/// Completes an exchange that was interrupted after its decisive moment; does nothing otherwise. Throws
/// std::runtime_error if it cannot, for example in a folder that must not be written.
void finishExchange(const std::filesystem::path& folder);

}  // namespace marvello
