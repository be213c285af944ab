#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/clsLimits.h"
#include "tools/catalogue/CatalogueDiff.h"
#include "tools/catalogue/Content.h"

namespace marvello {

/// A figure of a compressor that is another one now; a side has no value where the calculation gives none.
struct FigureChange {
    std::string figure;  ///< "capacity", "envelope area"
    std::string unit;    ///< "kW"; empty for a ratio
    std::optional<double> before;
    std::optional<double> after;

    /// The change in percent of the former value; none without two values, or from 0.
    std::optional<double> percent() const;
};

/// A message of a compressor, with its severity: "error", "attention" or "information".
struct NamedMessage {
    std::string severity;
    std::string key;
    std::string text;  ///< As the catalogue has it in the default language.

    bool isSame(const NamedMessage& other) const { return severity == other.severity && key == other.key; }
};

/// What became of a compressor.
struct ResultChange {
    ChangeKind kind{};
    std::string refrigerant;
    std::string serie;
    std::string model;
    bool economized = false;
    clsPoint point;           ///< The usual operating point, dew temperatures in degrees Celsius.
    std::string stateBefore;  ///< "ok", "warning", "error" or "outside"; empty for a compressor that came.
    std::string stateAfter;
    std::vector<FigureChange> figures{};
    std::vector<NamedMessage> lost{};
    std::vector<NamedMessage> gained{};
    /// The positions of the changed rows that the calculation reads, in CatalogueDiff::rows.
    std::vector<std::size_t> reasons{};
};

/// What the change of a catalogue does to results.
struct ResultDiff {
    std::size_t calculations = 0;  ///< of both catalogues
    std::vector<ResultChange> changes;
};

/// Is told how many of how many calculations are done.
using DiffProgress = std::function<void(std::size_t done, std::size_t all)>;

/// Calculates all compressors of two catalogues at the usual operating points of their series (those of
/// `before`, and of a series that came those of `after`), without economizer and, for those that have one,
/// with an approach of 10 K, and compares them. `rows` says why. Uses the property library of the session's
/// application folder. Throws DatabaseError, FluidLibraryError and std::runtime_error.
ResultDiff compareResults(const Content& before, const Content& after, const CatalogueDiff& rows,
                          const DiffProgress& progress = {});

}  // namespace marvello
