#include "controls/TypedChoice.h"

#include <algorithm>

namespace marvello {

int typedChoice(const QStringList& rows, const QString& typed, int current) {
    if (typed.isEmpty()) return -1;
    for (qsizetype row = 0; row < rows.size(); ++row)
        if (rows[row].compare(typed, Qt::CaseInsensitive) == 0) return static_cast<int>(row);
    const bool isRepeated = std::ranges::all_of(typed, [&](QChar sign) { return sign == typed.front(); });
    const auto count = static_cast<int>(rows.size());
    const auto next = [&](const QString& start, int from) {
        for (int step = 0; step < count; ++step)
            if (const int row = (from + step) % count; rows[row].startsWith(start, Qt::CaseInsensitive))
                return row;
        return -1;
    };
    // A second letter may still belong to the row found by the first one.
    if (typed.size() > 1)
        if (const int row = next(typed, std::max(current, 0)); row >= 0) return row;
    return isRepeated ? next(typed.left(1), current + 1) : -1;
}

}  // namespace marvello
