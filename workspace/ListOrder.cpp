#include "workspace/ListOrder.h"

#include <QCollator>
#include <QStringList>
#include <algorithm>
#include <optional>
#include <utility>

#include "controls/NumberText.h"

namespace marvello {

namespace {

struct SortedRow {
    std::optional<double> number;
    QString text;
    ResultsView::Row row;

    /// Numbers stand before texts, and both before nothing.
    int rank() const {
        if (number) return 0;
        return text.isEmpty() || text == u"-" ? 2 : 1;
    }
};

}  // namespace

void ListOrder::clicked(const QString& column) {
    if (column != column_) {
        column_ = column;
        isDescending_ = false;
    } else if (!isDescending_) {
        isDescending_ = true;
    } else {
        *this = ListOrder();
    }
}

void ListOrder::sort(std::vector<ResultsView::Row>& rows, const QStringList& columns) const {
    const qsizetype column = columns.indexOf(column_);
    if (column < 0) return;
    const NumberMarks marks{QLocale()};
    QCollator names;
    names.setNumericMode(true);
    names.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<SortedRow> sorted;
    for (ResultsView::Row& row : rows) {
        SortedRow entry;
        entry.text = (column == 0 ? row.label : row.values.value(column - 1)).trimmed();
        if (column > 0) entry.number = shownNumber(entry.text, marks);
        entry.row = std::move(row);
        sorted.push_back(std::move(entry));
    }
    std::ranges::stable_sort(sorted, [&](const SortedRow& a, const SortedRow& b) {
        if (a.rank() != b.rank()) return a.rank() < b.rank();
        const SortedRow& first = isDescending_ ? b : a;
        const SortedRow& second = isDescending_ ? a : b;
        if (a.number) return *first.number < *second.number;
        return names.compare(first.text, second.text) < 0;
    });
    std::ranges::transform(sorted, rows.begin(), [](SortedRow& entry) { return std::move(entry.row); });
}

}  // namespace marvello
