#include "tools/catalogue/TableExchange.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "platform/Files.h"
#include "tools/catalogue/Schema.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

constexpr const char* decidedName = ".marvello-exchange";
constexpr const char* unfinishedBeginning = ".marvello-exchange-";
constexpr const char* listName = "tables.list";

bool isTableName(const std::string& name) {
    const std::string table = name.substr(0, name.find('.'));
    const std::string extension = fs::path(name).extension().string();
    const bool isKnown = std::ranges::find(schemaTables(), table, &Table::name) != schemaTables().end();
    return isKnown && (extension == ".csv" || extension == ".rtf") && name.find('/') == std::string::npos;
}

[[noreturn]] void refuse(const fs::path& folder, const std::string& reason) {
    throw std::runtime_error("The tables cannot be written to " + folder.string() + ": " + reason + ".");
}

class Exchange {
  public:
    Exchange(fs::path folder, ExchangeStep step) : folder_(std::move(folder)), step_(std::move(step)) {}

    /// Writes the files and the list of their names into a fresh folder.
    fs::path stage(const fs::path& beginning, const std::map<std::string, std::string>& files) const {
        step();
        const fs::path unfinished = makeFreshFolder(beginning);
        try {
            for (const auto& [name, text] : files) write(unfinished / name, text);
        } catch (...) {
            removeStaged(unfinished);
            throw;
        }
        return unfinished;
    }

    void replace(const std::map<std::string, std::string>& files) const {
        std::string list;
        for (const auto& [name, text] : files) {
            list += name + "\n";
            if (fs::is_directory(folder_ / name)) refuse(folder_, "a folder is in the place of " + name);
        }
        const fs::path unfinished = stage(folder_ / unfinishedBeginning, files);
        try {
            write(unfinished / listName, list);
            settle(unfinished);
            step();
            fs::rename(unfinished, folder_ / decidedName);
        } catch (...) {
            removeStaged(unfinished);
            throw;
        }
        settle(folder_);
        finish();
    }

    /// Moves what is laid up into place and removes the tables that are not on its list.
    void finish() const {
        const fs::path decided = folder_ / decidedName;
        if (!fs::is_directory(fs::symlink_status(decided))) return;
        if (std::ifstream list(decided / listName); list) {
            std::set<std::string> names;
            for (std::string name; std::getline(list, name);)
                if (isTableName(name)) names.insert(name);
            for (const auto& name : names) {
                if (!fs::exists(fs::symlink_status(decided / name))) continue;
                step();
                fs::rename(decided / name, folder_ / name);
            }
            for (const auto& table : tablesIn(folder_)) {
                if (names.contains(table.filename().string())) continue;
                step();
                fs::remove(table);
            }
            settle(folder_);
            step();
            fs::remove(decided / listName);
        }
        step();
        fs::remove(decided);  // throws if it holds what no exchange has put there
    }

    /// Removes what processes that were ended in the midst of laying up have left. Needs the lock.
    void removeLeftovers() const {
        std::vector<fs::path> leftovers;
        for (const auto& entry : fs::directory_iterator(folder_))
            if (entry.path().filename().string().starts_with(unfinishedBeginning) && entry.is_directory() &&
                !entry.is_symlink())
                leftovers.push_back(entry.path());
        for (const auto& leftover : leftovers) removeStaged(leftover);
    }

    /// Removes tables and list of a laid-up folder, and the folder if nothing else is in it.
    static void removeStaged(const fs::path& unfinished) {
        std::error_code ignored;
        for (const auto& table : tablesIn(unfinished)) fs::remove(table, ignored);
        fs::remove(unfinished / listName, ignored);
        fs::remove(unfinished, ignored);
    }

  private:
    void step() const {
        if (step_) step_();
    }

    void write(const fs::path& file, const std::string& text) const {
        step();
        std::ofstream stream(file, std::ios::binary);
        stream << text;
        stream.close();
        if (!stream) refuse(folder_, file.filename().string() + " cannot be written");
        settle(file);
    }

    fs::path folder_;
    ExchangeStep step_;
};

/// The folder with the links in front of its last part resolved, and without a slash at its end.
fs::path placeOf(const fs::path& folder) {
    fs::path place = fs::absolute(folder).lexically_normal();
    if (!place.has_filename()) place = place.parent_path();
    fs::create_directories(place.parent_path());
    return place;
}

}  // namespace

std::vector<fs::path> tablesIn(const fs::path& folder) {
    std::vector<fs::path> found;
    if (!fs::is_directory(folder)) return found;
    for (const auto& entry : fs::directory_iterator(folder))
        if (isTableName(entry.path().filename().string()) && !fs::is_directory(entry.symlink_status()))
            found.push_back(entry.path());
    return found;
}

void writeTableFiles(const fs::path& folder, const std::map<std::string, std::string>& files, bool replace,
                     const ExchangeStep& step) {
    if (folder.empty()) throw std::runtime_error("The name of the folder for the tables is empty.");
    try {
        const fs::path place = placeOf(folder);
        const Exchange exchange(place, step);
        if (!fs::exists(fs::symlink_status(place))) {
            const fs::path unfinished = exchange.stage(place.string() + ".", files);
            settle(unfinished);
            if (step) step();
            std::error_code taken;
            fs::rename(unfinished, place, taken);
            if (!taken) return settle(place.parent_path());
            // Another process was faster.
            Exchange::removeStaged(unfinished);
            if (!fs::exists(fs::symlink_status(place)))
                throw fs::filesystem_error("cannot rename", unfinished, place, taken);
        }
        if (!fs::is_directory(place)) refuse(folder, "it is not a folder");
        const FolderLock lock(place);
        exchange.finish();
        if (!replace && !tablesIn(place).empty())
            throw std::runtime_error("The folder " + folder.string() +
                                     " has tables already; choose another one, or --force to replace them.");
        exchange.removeLeftovers();
        exchange.replace(files);
    } catch (const fs::filesystem_error& failure) {
        refuse(folder, failure.code().message());
    }
}

void finishExchange(const fs::path& folder) {
    if (!fs::is_directory(fs::symlink_status(folder / decidedName))) return;
    try {
        const FolderLock lock(folder);
        Exchange(folder, {}).finish();
    } catch (const fs::filesystem_error& failure) {
        throw std::runtime_error("An exchange of the tables in " + folder.string() +
                                 " was interrupted and cannot be completed: " + failure.code().message() +
                                 ".");
    }
}

}  // namespace marvello
