#include "results/ListOrder.h"

#include <algorithm>
#include <optional>

#include "data/Texts.h"
#include "results/ResultTable.h"

namespace marvello {

namespace {

/// What a row is sorted by.
struct Sortable {
    std::optional<double> number;
    std::string_view text;

    /// Numbers come before texts, and rows without a value last.
    int rank() const {
        if (number) return 0;
        return text.empty() || text == "-" ? withoutValue : 1;
    }
    static constexpr int withoutValue = 2;
};

/// `column` is the position of the column, none for the names.
Sortable sortableOf(const ResultRow& row, std::optional<std::size_t> column) {
    if (!column) return {{}, row.label};
    const ShownValue& value = row.values[*column];
    return {value.number, withoutBlanks(value.text)};
}

constexpr bool isDigit(char sign) { return sign >= '0' && sign <= '9'; }

/// Takes the whole number off the front of a text, without its leading zeros.
std::string_view takeDigits(std::string_view& text) {
    const auto end = std::ranges::find_if_not(text, isDigit) - text.begin();
    std::string_view digits = text.substr(0, static_cast<std::size_t>(end));
    text.remove_prefix(digits.size());
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    return digits;
}

}  // namespace

bool comesBefore(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        if (isDigit(a.front()) && isDigit(b.front())) {
            const std::string_view first = takeDigits(a);
            const std::string_view second = takeDigits(b);
            if (first.size() != second.size()) return first.size() < second.size();
            if (first != second) return first < second;
            continue;
        }
        if (lower(a.front()) != lower(b.front())) return lower(a.front()) < lower(b.front());
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return a.empty() && !b.empty();
}

void ListOrder::clicked(const std::string& column) {
    if (column != column_) {
        column_ = column;
        isDescending_ = false;
    } else if (!isDescending_) {
        isDescending_ = true;
    } else {
        *this = ListOrder();
    }
}

void ListOrder::sort(ResultTable& table) const {
    std::optional<std::size_t> position;
    if (column_ != nameColumn) {
        const auto found = std::ranges::find(table.columns, column_, &ResultColumn::key);
        if (found == table.columns.end()) return;
        position = static_cast<std::size_t>(found - table.columns.begin());
    }
    const auto comesFirst = [&](const ResultRow& left, const ResultRow& right) {
        const Sortable a = sortableOf(left, position);
        const Sortable b = sortableOf(right, position);
        if (a.rank() != b.rank()) return a.rank() < b.rank();
        if (a.rank() == Sortable::withoutValue) return false;
        const Sortable& first = isDescending_ ? b : a;
        const Sortable& second = isDescending_ ? a : b;
        return first.number ? *first.number < *second.number : comesBefore(first.text, second.text);
    };
    for (ResultGroup& group : table.groups) std::ranges::stable_sort(group.rows, comesFirst);
}

}  // namespace marvello
