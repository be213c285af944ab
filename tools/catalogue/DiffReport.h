#pragma once

#include <optional>
#include <string>

#include "tools/catalogue/ResultDiff.h"

namespace marvello {

enum class DiffFormat { table, csv, html };

/// What two catalogues differ in, for a report.
struct DiffFindings {
    std::string before;  ///< The names that the user gave them.
    std::string after;
    CatalogueDiff rows;
    std::optional<ResultDiff> results{};  ///< None if they were not asked for.

    bool areEqual() const { return rows.isEmpty() && (!results || results->changes.empty()); }
};

/// Returns the findings as a text for people, as one table of comma-separated values or as a page that needs
/// no other file.
std::string diffText(const DiffFindings& findings, DiffFormat format);

}  // namespace marvello
