#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>
#include <vector>

namespace marvello {

/// The rows and columns of a ResultsView. What a screen reader says of a cell is made when it asks.
class ResultsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    struct Column {
        QString key;
        QString text;         ///< "name(unit)"
        QString description;  ///< shown as a tool tip
    };
    struct Row {
        QString key;
        QString label;
        QString mark;        ///< its name in Marks.h; blank without one
        QString markText;    ///< what the mark says, for a screen reader; of a group all that is said
        QStringList values;  ///< one for each column after the first
        bool isGroup = false;
    };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const std::vector<Column>& columns() const { return columns_; }
    const Row& row(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
    /// The label of a row or its value in a column; blank where it has none.
    QString text(int row, int column) const;

    /// Takes away all rows and columns.
    void clear();
    void setColumns(std::vector<Column> columns);
    void add(Row row);

  private:
    QString spoken(const Row& row, int column) const;

    std::vector<Column> columns_;
    std::vector<Row> rows_;
};

}  // namespace marvello
