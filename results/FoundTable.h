#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "engine/Find.h"
#include "results/ResultTable.h"
#include "results/RowSet.h"

namespace marvello {

/// What a list of solutions leaves out. Filters add up.
enum class FoundFilter : std::uint8_t {
    bestOfEach,  ///< all but the best single machine, the best set and the best on an inverter of a
                 ///< refrigerant
    withoutWarnings,
    oneMachine,
    onInverter,
    lowGwp,  ///< at most maxGwp, by AR4; a refrigerant without a figure is left out
    notFlammable,
};
using FoundFilters = std::set<FoundFilter>;
inline constexpr double maxGwp = 750;

/// What a list of solutions can be limited to by its values.
enum class FoundFact : std::uint8_t { refrigerant, safetyClass, series };
/// The values of facts that are listed. A fact that is empty or lacks leaves nothing out.
using FoundChoices = std::map<FoundFact, std::set<std::string>>;

/// The keys of the columns, besides nameColumn.
namespace foundColumn {
inline const std::string refrigerant = "refrigerant";
inline const std::string capacity = "capacity";
inline const std::string deviation = "deviation";
inline const std::string power = "power";
inline const std::string cop = "cop";
inline const std::string speed = "speed";
inline const std::string discharge = "discharge";
inline const std::string margin = "margin";
inline const std::string nearestLimit = "nearestLimit";
}  // namespace foundColumn

/// By which column a list of solutions is sorted.
struct FoundOrder {
    std::string column = foundColumn::cop;
    bool isDescending = true;

    /// Sorts by a column, the other way round if the list is sorted by it. A column begins with what is
    /// looked for: high COP and margin, and the others from low to high.
    void clicked(const std::string& clicked);
};

/// A solution as list, paper and files show it.
struct FoundRow {
    const Candidate* candidate = nullptr;
    Verdict verdict = Verdict::possible;
    std::string label;               ///< "2 × TK-E-130"
    std::string facts;               ///< of the refrigerant
    std::vector<ShownValue> values;  ///< one for each column but the first
};

/// Compressors that are not possible for one reason.
struct RejectedGroup {
    std::string reason;  ///< in the user's language
    std::vector<std::string> compressors;
};

/// How numbers of a list of solutions are shown.
struct FoundStyle {
    UnitSystem units = UnitSystem::metric;
    NumberMarks marks{};
};

/// Returns the columns with their texts in the user's language, the one of the names first. `needed` is in
/// kW.
std::vector<ResultColumn> foundColumns(double needed, const FoundStyle& style);

/// Returns the solutions that the filters leave, in the order; equal ones nearest to the need first.
std::vector<const Candidate*> listed(const FindResult& result, const FoundFilters& filters,
                                     const FoundOrder& order, const FoundChoices& choices = {});
/// How many of all solutions a filter leaves, or the chosen values of a fact.
int countOf(const FindResult& result, FoundFilter filter);
int countOf(const FindResult& result, FoundFact fact, const std::set<std::string>& values);
/// Returns the values of a fact that the solutions have; unknownFact for one that is not known.
std::set<std::string> valuesOf(const FindResult& result, FoundFact fact);

FoundRow foundRow(const FindResult& result, const Candidate& candidate, const FoundStyle& style);
/// Returns "2 × TK-E-130", with a capacity step below 100 % behind it.
std::string foundLabel(const Candidate& candidate);
/// Returns the inputs that the series of a solution does not permit, with which it was not calculated.
std::vector<std::string> putBackInputs(const Candidate& candidate);
/// Tells a solution from the others of all searches.
std::string foundKey(const Candidate& candidate);

/// Returns why compressors are not possible, the most frequent reason first.
std::vector<RejectedGroup> rejectedGroups(const FindResult& result);

/// Returns solutions for a file, one record each; values in the units of the style.
RowSet foundRecords(const FindResult& result, const std::vector<const Candidate*>& candidates,
                    const FoundStyle& style);

}  // namespace marvello
