#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <utility>
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

    /// Rows that can be put somewhere else with a click on a pin in front of them.
    struct Pins {
        std::function<std::optional<bool>(int row)> isPinned{};  ///< none for a row that has no pin
        QString addText{};     ///< what a click does with a row that is not pinned, as a tool tip
        QString takeText{};    ///< and with one that is
        QString pinnedText{};  ///< what a screen reader says of that one
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

    /// Without pins isPinned is empty, as it is at first.
    void setPins(Pins pins) { pins_ = std::move(pins); }
    const Pins& pins() const { return pins_; }
    bool hasPins() const { return pins_.isPinned != nullptr; }
    /// Whether a row is pinned; none for one without a pin.
    std::optional<bool> isPinned(int row) const;

    /// Takes away all rows and columns.
    void clear();
    void setColumns(std::vector<Column> columns);
    void add(Row row);

  private:
    QString spoken(int row, int column) const;

    std::vector<Column> columns_;
    std::vector<Row> rows_;
    bool hasGroups_ = false;
    Pins pins_;
};

}  // namespace marvello
