#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace marvello {

// What the program asks of a catalogue, besides what its windows tell (Windows.h).

/// A parameter set that the program applies, all of the type "frm".
struct AppliedSet {
    std::string_view typeKey;
    std::string_view key;
    bool isNeeded = false;
    /// The windows it is applied to.
    // NOLINTNEXTLINE(readability-redundant-member-init): GCC asks for it where a set leaves it out
    std::vector<std::string_view> windows{};
    /// Applied before the dictionary is there, so that no value may need a text.
    bool isWithoutTexts = false;
};
std::span<const AppliedSet> appliedSets();

/// The fKey of the sets "catalog", one a series-model.
inline constexpr std::string_view technicalDataKey = "eng";

/// The dictionary keys that stand whole in the program's sources, and those that it completes: "general."
/// with something behind it, "frmselection.help.%1.caption". Taken from the sources by the build.
std::span<const std::string_view> keysInSources();
std::span<const std::string_view> completedKeysInSources();

/// What a key is completed with.
struct CompletedKey {
    std::string_view pattern;  ///< As it stands in the sources.
    std::vector<std::string> endings;
    bool isNeeded = true;  ///< False where the program does without the text.
    /// The whole keys.
    std::vector<std::string> keys() const;
};
std::span<const CompletedKey> completedKeys();

}  // namespace marvello
