#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QTreeView>
#include <vector>

#include "controls/ResultsModel.h"

namespace marvello {

class TwoLineHeader;

/// A list of results in columns, under group rows. The first column stays in place when the others scroll
/// sideways. Rows and columns are known by their keys. Several rows may be selected; the one chosen last
/// leads.
class ResultsView : public QTreeView {
    Q_OBJECT

  public:
    using Column = ResultsModel::Column;
    using Row = ResultsModel::Row;

    explicit ResultsView(QWidget* parent = nullptr);

    /// Takes away all rows and columns.
    void clear();
    /// The first column holds the labels.
    void setColumns(const std::vector<Column>& columns);
    /// What a screen reader says of a group row, with "{0}" for its text.
    void setSpokenGroup(const QString& pattern) { spokenGroup_ = pattern; }
    /// Gives the rows a pin each, which is seen while the mouse is over a row or the row is pinned. The list
    /// asks what is pinned whenever it is painted; see repaintPins().
    void setPins(ResultsModel::Pins pins);
    void repaintPins() { viewport()->update(); }
    /// What is said in the middle of a list without rows.
    void setEmptyText(const QString& text) { emptyText_ = text; }
    /// Lets a click on a heading, or its keys, ask for another order of the rows.
    void setSortable();
    /// Lets the menu key, or the right mouse button, on the headings ask for the menu of the columns.
    void setColumnMenu();
    /// Marks the column by which the rows are sorted; a key that no column has marks none.
    void markSorted(const QString& column, bool descending);
    void addGroup(const QString& key, const QString& text);
    void addRow(Row row);
    /// Widens every column until neither its header nor a value is cut; those that the user made wider or
    /// narrower keep that width.
    void fitColumns();
    /// The widths that the user gave to columns, by their keys; kept also for columns that are away.
    const QHash<QString, int>& chosenWidths() const { return chosenWidths_; }
    void setChosenWidths(const QHash<QString, int>& widths);

    int rowCount() const { return model_.rowCount(); }
    bool isGroup(int row) const;
    QString key(int row) const;
    QString text(int row, int column) const;
    QString mark(int row) const;
    /// The label and the values of a row.
    QStringList rowTexts(int row) const;
    QStringList columnKeys() const;
    QStringList columnTexts() const;

    /// The selected row that leads, -1 without a selected row.
    int selectedRow() const;
    /// All selected rows, from the top.
    QList<int> selectedRows() const;
    /// Scrolls as far as it takes to see a row.
    void showRow(int row);
    /// Selects a row alone and scrolls to it; nothing for a row that is not there.
    void selectRow(int row);
    /// Selects the row of a key. False when there is none.
    bool selectKey(const QString& key);

  signals:
    /// The selected rows changed, by mouse, key or program.
    void rowSelected();
    /// A heading was clicked, or chosen with its keys.
    void headingClicked(const QString& column);
    /// The menu of the columns was asked for, at a place of the screen.
    void columnMenuRequested(const QPoint& place);
    /// The keys of copying were pressed.
    void copyRequested();
    /// The pin of a row was clicked.
    void pinClicked(int row);

  protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                 const QModelIndex& index) const override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    /// The row whose pin is at a place of the viewport, -1 elsewhere.
    int pinAt(const QPoint& place) const;
    bool isHovered(const QRect& row) const;
    void drawPin(QPainter* painter, const QRect& place, int row) const;
    void paintGround(QPainter* painter, const QRect& place, int row) const;
    void drawGroup(QPainter* painter, const QStyleOptionViewItem& options, const QModelIndex& index) const;
    void drawLabelOver(QPainter* painter, const QStyleOptionViewItem& options,
                       const QModelIndex& index) const;
    bool isInUse() const;
    int fittingWidth(int column) const;
    bool isCut(const QModelIndex& index) const;
    void setWidth(int column, int width);

    ResultsModel model_;
    TwoLineHeader* headings_;
    QString spokenGroup_ = QStringLiteral("{0}");
    QString emptyText_;
    QHash<QString, int> chosenWidths_;
    int pressedPin_ = -1;
    bool isArranging_ = false;  // widths are set by the program
};

}  // namespace marvello
