#include "controls/ResultsModel.h"

#include <utility>

#include "controls/TwoLineHeader.h"

namespace marvello {

int ResultsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ResultsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ResultsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::DisplayRole) return text(index.row(), index.column());
    if (role == Qt::AccessibleTextRole) return spoken(index.row(), index.column());
    return {};
}

QVariant ResultsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const Column& column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return column.text;
    if (role == Qt::ToolTipRole) return column.description;
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(column.kind == Kind::words ? Qt::AlignLeft : Qt::AlignRight);
    return {};
}

QString ResultsModel::text(int row, int column) const {
    const Row& shown = this->row(row);
    return column == 0 ? shown.label : shown.values.value(column - 1);
}

std::optional<bool> ResultsModel::isPinned(int row) const {
    return hasPins() && !this->row(row).isGroup ? pins_.isPinned(row) : std::nullopt;
}

QString ResultsModel::spoken(int number, int column) const {
    const Row& row = this->row(number);
    if (row.isGroup) return row.markText;
    if (column == 0) {
        QStringList words{row.label};
        if (!row.markText.isEmpty()) words += row.markText;
        if (isPinned(number).value_or(false)) words += pins_.pinnedText;
        return words.join(QStringLiteral(", "));
    }
    // A figure says what it is, as a heading far above it does for the eye.
    const auto [name, unit] = TwoLineHeader::lines(this->column(column).text);
    const QString value = row.values.value(column - 1).trimmed();
    if (this->column(column).kind == Kind::words)
        return QStringList{name, value, row.asides.value(column).note}.join(u' ').trimmed();
    return QStringList{name, value.isEmpty() ? QStringLiteral("\u2013") : value, unit}.join(u' ').trimmed();
}

void ResultsModel::clear() {
    beginResetModel();
    columns_.clear();
    rows_.clear();
    hasGroups_ = false;
    endResetModel();
}

void ResultsModel::setColumns(std::vector<Column> columns) {
    beginResetModel();
    columns_ = std::move(columns);
    endResetModel();
}

void ResultsModel::add(Row row) {
    beginInsertRows({}, rowCount(), rowCount());
    hasGroups_ = hasGroups_ || row.isGroup;
    rows_.push_back(std::move(row));
    endInsertRows();
}

}  // namespace marvello
