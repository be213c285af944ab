#pragma once

#include <string>
#include <vector>

namespace marvello {

/// A value that is another one now.
struct DiffLine {
    std::string caption;
    std::string before;
    std::string after;
    std::string unit;
    std::string percent;
};

/// A row or a compressor.
struct DiffEntry {
    std::string change;  ///< "added", "removed", "changed"; may be empty
    std::string name;
    std::string place;
    std::vector<DiffLine> lines;
    std::vector<std::string> notes;
};

/// What belongs to one table, or to one series at one operating point.
struct DiffSection {
    std::string title;
    std::string entryCaption;  ///< what an entry is: "Row", "Model"
    std::vector<DiffEntry> entries{};
};

struct DiffReport {
    std::string before;
    std::string after;
    std::string summary;
    std::vector<DiffSection> sections;
};

/// Returns the report as a page in HTML that needs no other file.
std::string diffPage(const DiffReport& report);

}  // namespace marvello
