#include "tools/catalogue/CatalogueDiff.h"

#include <algorithm>
#include <array>
#include <deque>
#include <map>
#include <optional>
#include <set>

#include "data/Texts.h"
#include "tools/catalogue/Fields.h"

namespace marvello {

namespace {

std::string counted(std::size_t count) { return std::to_string(count) + (count == 1 ? " row" : " rows"); }

/// The length of the longest rising sequence that leaving some numbers out can give.
std::size_t longestRise(const std::vector<std::size_t>& numbers) {
    std::vector<std::size_t> ends;  // the smallest end of a rising sequence of each length
    for (const std::size_t number : numbers) {
        const auto place = std::ranges::lower_bound(ends, number);
        if (place == ends.end())
            ends.push_back(number);
        else
            *place = number;
    }
    return ends.size();
}

/// Compares one table of both catalogues.
class TableComparison {
  public:
    TableComparison(const PlainTable& before, const PlainTable& after, CatalogueDiff& diff)
        : before_(before), after_(after), table_(after.known()), diff_(diff) {}

    void run() {
        compareColumns();
        if (table_ && !table_->key.empty() && hasAll(table_->key)) {
            match(table_->key);
        } else {
            match(shared_);
            if (table_ && hasAll(table_->naming)) match(table_->naming);
        }
        for (std::size_t i = 0; i < before_.rows.size(); ++i)
            if (!partner_.contains(i)) add(ChangeKind::removed, before_, before_.rows[i]);
        for (std::size_t i = 0; i < after_.rows.size(); ++i)
            if (!taken_.contains(i)) add(ChangeKind::added, after_, after_.rows[i]);
        for (const auto& [from, to] : partner_) compareRows(before_.rows[from], after_.rows[to]);
        if (table_ && table_->keepsOrder) compareOrder();
    }

  private:
    using Names = std::vector<std::string_view>;

    void compareColumns() {
        for (const std::string& column : before_.columns)
            if (after_.columnIndex(column) < after_.columns.size())
                shared_.emplace_back(column);
            else
                diff_.tables.push_back({after_.name, "the column " + column + " is gone"});
        for (const std::string& column : after_.columns)
            if (before_.columnIndex(column) == before_.columns.size())
                diff_.tables.push_back({after_.name, "the column " + column + " is new"});
    }

    bool hasAll(const Names& columns) const {
        return !columns.empty() && std::ranges::all_of(columns, [&](std::string_view column) {
            return std::ranges::any_of(
                shared_, [&](std::string_view each) { return equalIgnoringCase(each, column); });
        });
    }

    /// What a field says, whichever way it is written; as it is if it does not fit the column.
    std::string said(const PlainTable& in, const PlainRow& row, std::string_view column) const {
        const std::string& field = in.field(row, column);
        const std::size_t index = table_ ? table_->columnIndex(column) : 0;
        if (!table_ || index == table_->columns.size()) return field;
        const ColumnKind kind = table_->columns[index].kind;
        const ParsedField read = parsedField(field, kind);
        return read.reason.empty() ? comparedText(read.value, kind) : field;
    }

    std::string identity(const PlainTable& in, const PlainRow& row, const Names& columns) const {
        const bool isKey = table_ && &columns != &shared_;
        std::string text;
        for (const std::string_view column : columns) {
            const std::string field = said(in, row, column);
            text += (isKey ? lowered(field) : field) + '\0';
        }
        return text;
    }

    /// Pairs the rows that are still alone and agree in the columns, in their order.
    void match(const Names& columns) {
        std::map<std::string, std::deque<std::size_t>> open;
        for (std::size_t i = 0; i < after_.rows.size(); ++i)
            if (!taken_.contains(i)) open[identity(after_, after_.rows[i], columns)].push_back(i);
        for (std::size_t i = 0; i < before_.rows.size(); ++i) {
            if (partner_.contains(i)) continue;
            const auto found = open.find(identity(before_, before_.rows[i], columns));
            if (found == open.end() || found->second.empty()) continue;
            partner_[i] = found->second.front();
            taken_.insert(found->second.front());
            found->second.pop_front();
        }
    }

    std::string nameOfRow(const PlainTable& in, const PlainRow& row) const {
        Names columns = shared_;
        if (table_) columns = table_->key.empty() ? table_->naming : table_->key;
        std::string name;
        for (const std::string_view column : columns)
            name += (name.empty() ? "" : ", ") + said(in, row, column);
        return name;
    }

    RowChange& add(ChangeKind kind, const PlainTable& in, const PlainRow& row) {
        return diff_.rows.emplace_back(RowChange{.kind = kind,
                                                 .table = in.name,
                                                 .key = nameOfRow(in, row),
                                                 .place = row.place,
                                                 .in = &in,
                                                 .row = &row});
    }

    void compareRows(const PlainRow& before, const PlainRow& after) {
        std::vector<ColumnChange> columns;
        for (const std::string_view column : shared_)
            if (said(before_, before, column) != said(after_, after, column))
                columns.push_back(
                    {std::string(column), before_.field(before, column), after_.field(after, column)});
        if (!columns.empty()) add(ChangeKind::changed, after_, after).columns = std::move(columns);
    }

    void compareOrder() {
        std::vector<std::size_t> places;
        for (const auto& [from, to] : partner_) places.push_back(to);
        if (const std::size_t moved = places.size() - longestRise(places); moved > 0)
            diff_.tables.push_back(
                {after_.name, "the order is another one: " + counted(moved) + " moved, and it counts"});
    }

    const PlainTable& before_;
    const PlainTable& after_;
    const Table* table_;  ///< Of the schema, or null.
    CatalogueDiff& diff_;
    Names shared_;                                ///< The columns that both have.
    std::map<std::size_t, std::size_t> partner_;  ///< Of each former row that is still there.
    std::set<std::size_t> taken_;
};

const PlainTable* tableOf(const std::vector<PlainTable>& tables, const std::string& name) {
    const auto found = std::ranges::find_if(
        tables, [&](const PlainTable& table) { return equalIgnoringCase(table.name, name); });
    return found == tables.end() ? nullptr : &*found;
}

/// A table that may be missing is one without rows.
bool mayBeMissing(const PlainTable& table) {
    const Table* const known = table.known();
    return known && known->isOptional;
}

void compareMissing(const PlainTable& table, ChangeKind kind, CatalogueDiff& diff) {
    const bool isNew = kind == ChangeKind::added;
    if (!mayBeMissing(table)) {
        diff.tables.push_back({table.name, std::string("the table is ") + (isNew ? "new" : "gone") +
                                               ", with " + counted(table.rows.size())});
        return;
    }
    const PlainTable none{table.name, table.columns, {}};
    if (isNew)
        TableComparison(none, table, diff).run();
    else
        TableComparison(table, none, diff).run();
}

}  // namespace

std::string_view nameOf(ChangeKind kind) {
    constexpr std::array<std::string_view, 3> names{"added", "removed", "changed"};
    return names[static_cast<std::size_t>(kind)];
}

CatalogueDiff compareTables(const std::vector<PlainTable>& before, const std::vector<PlainTable>& after) {
    CatalogueDiff diff;
    for (const PlainTable& table : before)
        if (const PlainTable* const other = tableOf(after, table.name))
            TableComparison(table, *other, diff).run();
        else
            compareMissing(table, ChangeKind::removed, diff);
    for (const PlainTable& table : after)
        if (!tableOf(before, table.name)) compareMissing(table, ChangeKind::added, diff);
    return diff;
}

}  // namespace marvello
