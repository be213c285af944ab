#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace marvello {

// What the program asks of a catalogue. The windows themselves cannot be linked here; a test of the workspace
// holds these tables against them.

/// What a text of a parameter set is converted to.
enum class PropertyKind { boolean, whole, real, colour, text };

struct ControlProperty {
    std::string_view name;
    PropertyKind kind;
};

enum class ControlKind {
    window,
    pane,       ///< a plain part of a window
    field,      ///< labelled input
    button,     ///< push button
    label,      ///< text
    results,    ///< list of results, its columns in "Tag"
    technical,  ///< page of technical data, its pairs in "Tag"
    splitter,   ///< two panes and the bar between
    container,  ///< framed group
    graph,      ///< envelope of a compressor
    command     ///< entry of a menu or a tool bar
};

struct Control {
    std::string_view name;
    ControlKind kind;
};

struct Window {
    std::string_view name;
    std::vector<Control> controls;
};

std::span<const Window> programWindows();

/// The properties of a kind of control that a parameter set may assign.
std::vector<ControlProperty> propertiesOf(ControlKind kind);

/// Whether the program converts the text to the kind: as a US-English number, as True or False, as a colour
/// "#RRGGBB", "&HBBGGRR&" or a number.
bool convertsTo(PropertyKind kind, std::string_view text);

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

/// The selectors whose list of choices must offer a key, because a form falls back to it.
struct NeutralChoice {
    std::string_view control;
    std::string_view key;
};
std::span<const NeutralChoice> neutralChoices();

/// Whether the results list makes the column itself, besides those that are variables of the calculation.
bool isOwnColumn(std::string_view key);

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
