#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "project/Project.h"

namespace marvello {

/// The version of the file's format. A change that an older program would misread raises it.
inline constexpr int projectFileVersion = 1;

/// A longer text is no project.
inline constexpr std::size_t maxProjectBytes = std::size_t{32} << 20;

/// Why a text is no project that this program can open. `what()` is an English sentence; a window makes its
/// own of the rest.
class ProjectFault : public std::runtime_error {
  public:
    enum class Reason : std::uint8_t {
        tooLarge,      ///< Has more than maxProjectBytes.
        notJson,       ///< `place` is the line.
        tooDeep,       ///< The value at `place` has too many levels.
        repeatedName,  ///< `place` is there twice.
        notProject,    ///< JSON of something else.
        newerVersion,  ///< `text` is the version of the format.
        wrongKind,     ///< The value at `place` is of another kind: `text` is what is expected.
        outOfRange,    ///< The value at `place` is not permitted: `text` is what is.
        unknownName,   ///< This version has nothing of the name at `place`.
    };
    ProjectFault(Reason reason, std::string place, std::string text = {});

    Reason reason;
    std::string place;  ///< The line, or the way to the value, such as "items[2].numbers.txtTED".
    std::string text;
};

/// Returns a project as the text of its file: JSON in UTF-8, indented, always in the same order, and with a
/// line end at its end. Numbers read back exactly. What is empty is left out. Equal projects have equal
/// texts.
std::string projectText(const Project& project);

/// Reads the text of a file. A mark of UTF-8 at its beginning is passed over. Nothing of the text is lost: a
/// name that this version does not know is refused. Throws ProjectFault.
Project projectIn(std::string_view text);

}  // namespace marvello
