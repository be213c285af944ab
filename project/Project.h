#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "engine/Comparison.h"
#include "inputs/SelectionInputs.h"
#include "project/Promise.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// Whom a project is for and what it is about, in the words of the user.
struct ProjectDetails {
    std::string name{};
    std::string item{};
    std::string customer{};
    std::string contact{};
    std::string engineer{};
    std::string date{};     ///< As the user wrote it.
    std::string remarks{};  ///< Of several lines.

    bool operator==(const ProjectDetails&) const = default;
};

/// How a list with its pages was left.
struct ListState {
    std::map<std::string, int> widths{};    ///< Of columns that the user made wider or narrower, pixels.
    std::vector<std::string> switched{};    ///< Columns shown or hidden against what a list begins with.
    std::optional<std::string> sortedBy{};  ///< A column; none for the order of the catalogue.
    bool isDescending = false;
    std::vector<std::string> filters{};  ///< Of a search.
    std::string page{};                  ///< By the key of its tab.
    std::string map{};                   ///< The quantity of the map on the page of the limits.

    bool operator==(const ListState&) const = default;
};

/// Which form asks for the inputs.
enum class FormKind : std::uint8_t { selection, inverter, search };

/// Their names in files.
inline constexpr std::array formKindNames{std::pair{FormKind::selection, "selection"},
                                          std::pair{FormKind::inverter, "inverter"},
                                          std::pair{FormKind::search, "search"}};

/// A selection or a search, with its inputs in the units that they were typed in.
struct SavedSelection {
    FormKind form = FormKind::selection;
    InputState inputs{};
    ListState list{};
    std::vector<CompressorName> chosen{};  ///< The compressors that the user selected in the list.

    bool operator==(const SavedSelection&) const = default;
};

/// Compressors next to each other.
struct SavedComparison {
    std::vector<ComparedChoice> choices{};
    bool isAtSamePoint = false;  ///< All at the operating point of the first one.
    std::optional<std::size_t> reference{};
    CurveAxis axis = CurveAxis::evaporating;
    UnitSystem units = UnitSystem::metric;

    bool operator==(const SavedComparison&) const = default;
};

/// One form of a project.
struct ProjectItem {
    std::string title{};
    std::variant<SavedSelection, SavedComparison> content{};
    std::optional<Promise> promise{};  ///< The results that were promised; none without a calculation.

    bool operator==(const ProjectItem&) const = default;
};

/// What a user keeps of the work for a customer.
struct Project {
    std::string program{};  ///< The version that wrote it.
    ProjectDetails details{};
    std::vector<ProjectItem> items{};  ///< In the order of the report.

    bool operator==(const Project&) const = default;
};

}  // namespace marvello
