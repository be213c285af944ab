#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "data/ParameterSets.h"

namespace marvello {

/// The windows of the program, as the build described them from the real ones. Names are in lower case.
struct ProgramWindows {
    /// The properties that a set may assign to a control.
    using Properties = std::map<std::string, ValueKind>;

    /// The controls of each window, itself among them.
    std::map<std::string, std::map<std::string, const Properties*>> controls;
    /// What the selectors of a new form stand at: their list of choices must offer it.
    std::map<std::string, std::string> neutralKeys;
    std::vector<std::string> fields;  ///< of the forms
    std::vector<std::string> pages;   ///< below the list of a form
    std::vector<std::string> marks;   ///< that have a text
};

const ProgramWindows& programWindows();

/// The description as the build made it: JSON.
std::string_view windowsText();

}  // namespace marvello
