#pragma once

namespace marvello {

/// All in which the two selection forms differ.
struct SelectionKind {
    const char* name;     ///< of the form
    int typeForm;         ///< 0 or 1
    bool hasInverter;     ///< lists compressors on an inverter; their frequency is an input
    bool hasSeriesRules;  ///< a series switches selectors off
    bool hasMarkets;      ///< a series may stand for one market of several
    bool hasFieldHelp;    ///< shows the help of the field in use
};

/// Compressors at mains frequency.
inline constexpr SelectionKind fixedSpeed{"frmSelection", 0, false, true, true, true};
/// Compressors on an inverter. Kept: this form has no help of its fields.
inline constexpr SelectionKind onInverter{"frmselectionInverter", 1, true, false, false, false};

}  // namespace marvello
