#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

namespace marvello {

/// The rows and columns of a ResultsView. What a screen reader says of a cell is made when it asks.
class ResultsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum class Kind {
        number,     ///< at the right end
        words,      ///< at the left end
        deviation,  ///< a number with a bar: how far from a need, within a tolerance
    };
    struct Column {
        QString key;
        QString text;         ///< "name(unit)"
        QString description;  ///< shown as a tool tip
        Kind kind = Kind::number;
        double below = 0;  ///< the tolerance of a deviation at both sides, positive
        double above = 0;
        int minWidth = 83;  ///< after the first column
        int maxWidth = 0;   ///< of its own accord; 0 for as wide as the widest value
    };
    /// What a cell has besides its value.
    struct Aside {
        QString note{};        ///< behind words, quieter
        QString icon{};        ///< in front of a number
        double deviation = 0;  ///< in the measure of the column's tolerance
    };
    struct Row {
        QString key;
        QString label;
        QString mark;        ///< its name in Marks.h; blank without one
        QString markText;    ///< what the mark says, for a screen reader; of a group all that is said
        QStringList values;  ///< one for each column after the first
        bool isGroup = false;
        QHash<int, Aside> asides{};  ///< by column
    };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const std::vector<Column>& columns() const { return columns_; }
    const Row& row(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
    const Column& column(int column) const { return columns_.at(static_cast<std::size_t>(column)); }
    /// True if rows stand under a group row.
    bool hasGroups() const { return hasGroups_; }
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
    bool hasGroups_ = false;
};

}  // namespace marvello
