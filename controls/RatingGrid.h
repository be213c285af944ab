#pragma once

#include <QString>
#include <QStringList>
#include <QTableView>
#include <cstdint>
#include <functional>
#include <vector>

class QLabel;

namespace marvello {

/// A table of values over two axes: frozen captions, hatched cells without a value, a mark on those with
/// warnings, and the cell of the operating point framed in the cross of its row and column. The arrow keys
/// move a cursor.
class RatingGrid : public QTableView {
    Q_OBJECT

  public:
    enum class Kind : std::uint8_t { plain, warning, none };
    struct Cell {
        QString text{};
        Kind kind = Kind::plain;
        QString spoken{};  ///< What a screen reader says in place of a text that lacks, or after it.
    };
    struct Table {
        QString corner;  ///< what the rows are
        QStringList columns;
        QStringList rows;
        std::vector<Cell> cells;  ///< row by row
        int currentColumn = 0;    ///< of the operating point
        int currentRow = 0;
    };

    explicit RatingGrid(QWidget* parent = nullptr);

    /// Shows another table, with the cursor on its operating point. One with the same axes keeps cursor,
    /// selection and scroll.
    void setTable(Table table);
    void clear();
    /// Asks for the tool tip of a cell when the mouse rests on it.
    void setToolTips(std::function<QString(int row, int column)> tipOf) { tipOf_ = std::move(tipOf); }

    /// The selected cells, row by row; the captions of their axes as well if all cells are selected.
    QList<QStringList> selectedTexts() const;
    /// All cells with their captions.
    QList<QStringList> texts() const;

    QSize sizeHint() const override { return {400, 200}; }

  signals:
    /// A cell was chosen by a double click or with Enter.
    void chosen(int row, int column);
    void copyRequested();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void updateGeometries() override;

  private:
    class Model;
    class Captions;
    class CellDelegate;

    Model* model_;
    QLabel* corner_;
    std::function<QString(int, int)> tipOf_;
};

}  // namespace marvello
