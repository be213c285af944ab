#include "results/ComparedCells.h"

#include <set>

namespace marvello {

ComparedCell numberCell(std::optional<double> value, std::string_view pattern, const NumberMarks& marks) {
    if (!value) return {};
    return {
        .text = formatNumber(*value, pattern, marks), .value = value, .shown = shownValue(*value, pattern)};
}

void markBest(ComparedRow& row, Better better) {
    std::set<double> values;
    for (const ComparedCell& cell : row.cells)
        if (cell.shown) values.insert(*cell.shown);
    if (better == Better::neither || values.size() < 2) return;
    const double best = better == Better::lower ? *values.begin() : *values.rbegin();
    for (ComparedCell& cell : row.cells) cell.isBest = cell.shown == best;
}

}  // namespace marvello
