#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "project/Project.h"

namespace marvello::select {

enum class ProjectFormat : std::uint8_t { table, csv, json };

/// Throws BadRequest for a word that is no format.
ProjectFormat projectFormatOf(const std::string& word);

/// An item of a project with its promised results as they are today.
struct CheckedItem {
    const ProjectItem* item;
    std::vector<CheckedResult> results{};  ///< Empty without a promise.
};

/// Whether a result is another one than promised. Rows that changed without a result are no difference.
bool differs(const std::vector<CheckedItem>& items);

struct ProjectAnswer {
    const Project& project;
    const std::vector<CheckedItem>& items;
    bool hasDifferencesAlone = false;  ///< What is as promised is left out.
};

std::string projectReport(const ProjectAnswer& answer, ProjectFormat format);

}  // namespace marvello::select
