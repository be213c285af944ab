#pragma once

#include <memory>
#include <string>
#include <vector>

#include "catalogue/clsCompressor.h"
#include "data/Numbers.h"
#include "engine/Verdict.h"
#include "engine/clsSelections.h"
#include "results/Columns.h"
#include "results/ListOrder.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// Serie-Model, and Serie-Model-Refrigerant.
std::string nameOf(const clsCompressor& compressor);
std::string nameWithRefrigerant(const clsCompressor& compressor);

struct ResultColumn {
    std::string key;
    std::string name;
    std::string unit;
    std::string description;

    /// "Capacity(kW)".
    std::string caption() const { return name + '(' + unit + ')'; }
};

struct ResultRow {
    std::shared_ptr<const clsCompressor> compressor;
    std::string label;
    Verdict verdict = Verdict::possible;
    std::vector<ShownValue> values;  ///< one for each column
};

struct ResultGroup {
    std::string name;
    std::vector<ResultRow> rows;
};

/// The results of a selection as list, paper and files show them.
struct ResultTable {
    std::vector<ResultColumn> columns;
    std::vector<ResultGroup> groups;
};

/// How a list is grouped, by the keys of its selector.
enum class Grouping { byRefrigerant = 0, byCompressor = 1 };

struct ListOptions {
    UnitSystem units = UnitSystem::metric;
    bool hasEconomizer = false;
    Grouping grouping = Grouping::byRefrigerant;
    ListOrder order{};
    NumberMarks marks{};
};

/// Lists the compressors of a selection in those of the columns that the options show. Groups, and the rows
/// of a group that is not sorted by a column, are in the order of their texts.
ResultTable listResults(const clsSelections& selection, const clsOutputs& columns,
                        const ListOptions& options);

}  // namespace marvello
