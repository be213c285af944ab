#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace marvello {

/// A column of a Jet database, its type as the programs of mdbtools name it: "Single", "Text (255)".
struct JetColumn {
    std::string name;
    std::string type;
};

/// A table with its values as texts; NULL and an empty text are both empty.
struct JetTable {
    std::string name;
    std::vector<JetColumn> columns;
    std::vector<std::vector<std::string>> rows;
    /// What speaks against having read all of it, each in a sentence part.
    std::vector<std::string> doubts;
};

/// A text of so many bytes may have been longer: the programs cut it there.
inline constexpr std::size_t cutTextLength = 199999;

/// A Jet 3 or Jet 4 database, read by the programs of mdbtools.
class JetFile {
  public:
    /// `charset` is that of the texts of a Jet 3 database, as iconv names it; empty for the one that the file
    /// states. Throws std::runtime_error for a file that is no such database, or without the programs.
    JetFile(std::filesystem::path file, std::string charset);

    /// "JET3", "JET4" or the name of a later version.
    const std::string& version() const { return version_; }
    bool isJet3() const { return version_ == "JET3"; }

    /// The tables of the user, in the order of the file.
    std::vector<std::string> tables() const;

    /// The tables that are links to another database, and have no rows in this one.
    std::vector<std::string> linkedTables() const;

    /// Reads a table. What cannot be read is a doubt.
    JetTable read(const std::string& table) const;

  private:
    std::vector<std::string> namesOf(const std::string& type, std::string& complaint) const;

    std::filesystem::path file_;
    std::string charset_;
    std::string version_;
};

}  // namespace marvello
