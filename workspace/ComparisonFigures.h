#pragma once

#include <QAbstractTableModel>
#include <QTableView>

#include "results/ComparisonTable.h"

namespace marvello {

/// The rows of a comparison: captions in the first column, and a column for each machine.
class ComparisonModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// A line of the list; a heading of a group has no row.
    struct Line {
        const ComparedGroup* group = nullptr;
        const ComparedRow* row = nullptr;
    };

    void setTable(ComparisonTable table, const QString& bestText);
    const ComparisonTable& table() const { return table_; }
    const Line& line(int row) const { return lines_.at(static_cast<std::size_t>(row)); }
    /// The cell of a machine; null in the column of captions and in a heading.
    const ComparedCell* cell(const QModelIndex& index) const;
    /// The lines of values that the error of a machine takes the place of: those at the operating point that
    /// have none. `count` is 0 for one without an error.
    struct Lines {
        int first = 0;
        int count = 0;
    };
    Lines errorLines(std::size_t machine) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    ComparisonTable table_;
    std::vector<Line> lines_;
    QString bestText_;
};

/// Shows the figures of a comparison. The columns of the machines share the width that is left of the
/// captions; a machine without values has its error in their place.
class ComparisonFigures : public QTableView {
    Q_OBJECT

  public:
    static constexpr int captionWidth = 212;  ///< where there is room for it
    static constexpr int minCaptionWidth = 130;
    static constexpr int minColumnWidth = 104;

    explicit ComparisonFigures(QWidget* parent = nullptr);

    void setTable(ComparisonTable table, const QString& bestText);
    const ComparisonTable& table() const { return model_.table(); }
    /// The machine of the cell in use, -1 without one.
    int currentMachine() const { return currentIndex().column() - 1; }
    /// Puts the cell in use into the column of a machine, in the same row.
    void setCurrentMachine(int machine);

  signals:
    void copyRequested();
    /// The columns have other widths, or are scrolled sideways.
    void columnsChanged();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void layOut();

    ComparisonModel model_;
};

}  // namespace marvello
