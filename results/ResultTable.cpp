#include "results/ResultTable.h"

#include <algorithm>
#include <map>
#include <utility>

#include "data/Texts.h"

namespace marvello {

namespace {

using Compressor = std::shared_ptr<const clsCompressor>;

/// The compressors in the order of the list. The key sets those of one text in a fixed order.
std::vector<Compressor> inOrder(const clsSelections& selection, Grouping grouping) {
    std::vector<std::pair<std::string, Compressor>> sorted;
    for (const Compressor compressor : selection) {
        const std::string key = compressor->Key();
        const bool isByName = grouping == Grouping::byCompressor;
        sorted.emplace_back(lowered(isByName ? nameWithRefrigerant(*compressor) + '\n' + key : key),
                            compressor);
    }
    std::ranges::sort(sorted);
    std::vector<Compressor> compressors;
    for (auto& [text, compressor] : sorted) compressors.push_back(std::move(compressor));
    return compressors;
}

}  // namespace

std::string nameOf(const clsCompressor& compressor) { return compressor.Serie + '-' + compressor.Model; }

std::string nameWithRefrigerant(const clsCompressor& compressor) {
    return nameOf(compressor) + '-' + compressor.Refrigerant;
}

ResultTable listResults(const clsSelections& selection, const clsOutputs& columns,
                        const ListOptions& options) {
    ResultTable table;
    std::vector<const clsOutput*> shown;
    for (const clsOutput& column : columns) {
        if (!isShown(column.Visibility, options.units, options.hasEconomizer)) continue;
        shown.push_back(&column);
        table.columns.push_back(
            {column.Key, column.Name, unitText(column, options.units), column.Description});
    }
    for (const Compressor& compressor : inOrder(selection, options.grouping)) {
        const bool isByName = options.grouping == Grouping::byCompressor;
        std::string group = isByName ? nameOf(*compressor) : compressor->Refrigerant;
        std::string label = isByName ? compressor->Refrigerant : nameOf(*compressor);
        if (table.groups.empty() || table.groups.back().name != group)
            table.groups.push_back({std::move(group), {}});
        ResultRow row{compressor, std::move(label), verdictOf(*compressor), {}};
        const bool isBlank = row.verdict == Verdict::notPossible;
        for (const clsOutput* column : shown)
            row.values.push_back(isBlank ? blankValue
                                         : valueIn(*compressor, *column, options.units, options.marks));
        table.groups.back().rows.push_back(std::move(row));
    }
    options.order.sort(table);
    return table;
}

}  // namespace marvello
