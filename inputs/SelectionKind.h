#pragma once

namespace marvello {

/// All in which the forms with inputs differ.
struct SelectionKind {
    const char* name;     ///< of the form
    int typeForm;         ///< 0 to 2
    bool hasInverter;     ///< lists compressors on an inverter; their frequency is an input
    bool hasSeriesRules;  ///< a series switches selectors off
    bool hasMarkets;      ///< a series may stand for one market of several
    bool hasFieldHelp;    ///< shows the help of the field in use
    bool isSearch;        ///< over several refrigerants and series, for a needed capacity
};

/// Compressors at mains frequency.
inline constexpr SelectionKind fixedSpeed{"frmSelection", 0, false, true, true, true, false};
/// Compressors on an inverter. Kept: this form has no help of its fields.
inline constexpr SelectionKind onInverter{"frmselectionInverter", 1, true, false, false, false, false};
/// A search for the compressors that have a needed capacity.
inline constexpr SelectionKind searching{"frmFind", 2, false, false, false, true, true};

}  // namespace marvello
