#include "controls/RatingGrid.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "controls/Hatch.h"
#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/Marks.h"

namespace marvello {

namespace {

constexpr int cellWidth = 82;
constexpr int cellHeight = 26;
constexpr int headHeight = 34;
constexpr int captionWidth = 96;
constexpr int cornerPadding = 4;
constexpr int sidePadding = 10;
constexpr int markSize = 12;

QFont captionFont() { return lookFont(12, QFont::Medium); }

}  // namespace

class RatingGrid::Model : public QAbstractTableModel {
  public:
    using QAbstractTableModel::QAbstractTableModel;

    void setTable(Table table) {
        const bool isAlike = table.columns == table_.columns && table.rows == table_.rows;
        if (!isAlike) beginResetModel();
        table_ = std::move(table);
        if (!isAlike)
            endResetModel();
        else if (!table_.cells.empty())
            emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
    const Table& table() const { return table_; }
    const Cell& cell(int row, int column) const {
        return table_.cells.at(static_cast<std::size_t>(row * columnCount() + column));
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(table_.rows.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(table_.columns.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid()) return {};
        const Cell& of = cell(index.row(), index.column());
        if (role == Qt::DisplayRole) return of.text;
        if (role == Qt::AccessibleTextRole)
            return of.spoken.isEmpty() ? of.text : QString(of.text + u' ' + of.spoken).trimmed();
        return {};
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
        return (orientation == Qt::Horizontal ? table_.columns : table_.rows).value(section);
    }

  private:
    Table table_;
};

/// The captions of an axis; that of the operating point has the accent line.
class RatingGrid::Captions : public QHeaderView {
  public:
    Captions(Qt::Orientation orientation, const Model& model, QWidget* parent)
        : QHeaderView(orientation, parent), model_(model) {
        setSectionResizeMode(QHeaderView::Fixed);
        setSectionsClickable(true);
        setHighlightSections(false);
    }

    QSize sizeHint() const override {
        if (orientation() == Qt::Horizontal) return {cellWidth, headHeight};
        constexpr int reserve = 2;  // that a label rounds up
        const int corner = QFontMetrics(captionFont()).horizontalAdvance(model_.table().corner) + reserve;
        return {std::max(captionWidth, corner + cornerPadding + sidePadding), cellHeight};
    }

  protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override {
        const Look& look = Look::current();
        const bool isAcross = orientation() == Qt::Horizontal;
        const Table& table = model_.table();
        const bool isCurrent = section == (isAcross ? table.currentColumn : table.currentRow);
        painter->fillRect(rect, isCurrent ? look.hover : look.surfaceAlt);
        if (isAcross) painter->fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), look.line);
        if (isCurrent)
            painter->fillRect(isAcross ? QRect(rect.left(), rect.bottom() - 1, rect.width(), 2)
                                       : QRect(rect.left(), rect.top(), 3, rect.height()),
                              look.accent);
        if (!isAcross) painter->fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), look.controlLine);
        painter->setPen(look.text);
        painter->setFont(lookFont(13, isAcross ? QFont::Medium : QFont::Normal));
        painter->drawText(rect.adjusted(4, 0, -sidePadding, 0), Qt::AlignRight | Qt::AlignVCenter,
                          (isAcross ? table.columns : table.rows).value(section));
    }
    void paintEvent(QPaintEvent* event) override {
        QHeaderView::paintEvent(event);
        const Look& look = Look::current();
        const bool isAcross = orientation() == Qt::Horizontal;
        QRect beyond = viewport()->rect();  // the last section
        (isAcross ? beyond.setLeft(length() - offset()) : beyond.setTop(length() - offset()));
        if (!beyond.isValid()) return;
        QPainter painter(viewport());
        painter.fillRect(beyond, isAcross && length() > 0 ? look.surfaceAlt : look.surface);
        if (isAcross && length() > 0)
            painter.fillRect(beyond.adjusted(0, beyond.height() - 1, 0, 0), look.line);
    }

  private:
    const Model& model_;
};

class RatingGrid::CellDelegate : public QStyledItemDelegate {
  public:
    CellDelegate(const Model& model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Look& look = Look::current();
        const Table& table = model_.table();
        const Cell& cell = model_.cell(index.row(), index.column());
        const bool isInRow = index.row() == table.currentRow;
        const bool isInColumn = index.column() == table.currentColumn;
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->setClipRect(option.rect);
        painter->fillRect(option.rect, isSelected              ? look.accentTint
                                       : isInRow || isInColumn ? look.hover
                                                               : look.surface);
        if (cell.kind == Kind::none) paintHatch(*painter, option.rect, look.controlLine);
        if (cell.kind == Kind::warning)
            paintMark(*painter,
                      QRect(option.rect.left() + 5, option.rect.center().y() - markSize / 2 + 1, markSize,
                            markSize),
                      mark::withWarnings);
        painter->setPen(look.text);
        painter->setFont(lookFont());
        painter->drawText(option.rect.adjusted(4, 0, -sidePadding, 0), Qt::AlignRight | Qt::AlignVCenter,
                          cell.text);
        paintFrames(*painter, option, isInRow && isInColumn);
        painter->restore();
    }

  private:
    static void paintFrames(QPainter& painter, const QStyleOptionViewItem& option, bool isOperatingPoint) {
        const Look& look = Look::current();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(Qt::NoBrush);
        const QRectF box(option.rect);
        if (isOperatingPoint) {
            painter.setPen(QPen(look.accent, 1.5));
            painter.drawRect(box.adjusted(0.75, 0.75, -0.75, -0.75));
        }
        const auto* const view = qobject_cast<const QAbstractItemView*>(option.widget);
        if (view && view->hasFocus() && view->currentIndex() == option.index) {
            painter.setPen(QPen(look.text, 1));
            painter.drawRect(box.adjusted(2.5, 2.5, -2.5, -2.5));
        }
    }

    const Model& model_;
};

RatingGrid::RatingGrid(QWidget* parent)
    : QTableView(parent), model_(new Model(this)), corner_(new QLabel(this)) {
    setModel(model_);
    setHorizontalHeader(new Captions(Qt::Horizontal, *model_, this));
    setVerticalHeader(new Captions(Qt::Vertical, *model_, this));
    horizontalHeader()->setDefaultSectionSize(cellWidth);
    verticalHeader()->setDefaultSectionSize(cellHeight);
    setItemDelegate(new CellDelegate(*model_, this));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTabKeyNavigation(false);
    setMouseTracking(true);
    corner_->setFont(captionFont());
    corner_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    corner_->setObjectName(QStringLiteral("corner"));
    corner_->setContentsMargins(cornerPadding, 0, sidePadding, 0);
    corner_->setAutoFillBackground(true);
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& cell) { emit chosen(cell.row(), cell.column()); });
}

void RatingGrid::setTable(Table table) {
    const bool isAlike = table.columns == model_->table().columns && table.rows == model_->table().rows;
    const int row = table.currentRow;
    const int column = table.currentColumn;
    corner_->setText(table.corner);
    QPalette ground = corner_->palette();
    ground.setColor(QPalette::Window,
                    table.rows.empty() ? Look::current().surface : Look::current().surfaceAlt);
    corner_->setPalette(ground);
    model_->setTable(std::move(table));
    if (isAlike) return;
    selectionModel()->setCurrentIndex(model_->index(row, column), QItemSelectionModel::NoUpdate);
    scrollTo(model_->index(row, column));
}

void RatingGrid::clear() { setTable({}); }

QList<QStringList> RatingGrid::texts() const {
    const Table& table = model_->table();
    QList<QStringList> rows{QStringList{table.corner} + table.columns};
    for (int row = 0; row < model_->rowCount(); ++row) {
        rows.append(QStringList{table.rows.at(row)});
        for (int column = 0; column < model_->columnCount(); ++column)
            rows.back() += model_->cell(row, column).text;
    }
    return rows;
}

QList<QStringList> RatingGrid::selectedTexts() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (selected.size() == model_->rowCount() * model_->columnCount()) return texts();
    QList<QStringList> rows;
    for (int row = 0; row < model_->rowCount(); ++row) {
        QStringList line;
        for (int column = 0; column < model_->columnCount(); ++column)
            if (selected.contains(model_->index(row, column))) line += model_->cell(row, column).text;
        if (!line.isEmpty()) rows.append(line);
    }
    return rows;
}

void RatingGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        emit copyRequested();
        return;
    }
    const QModelIndex cell = currentIndex();
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && cell.isValid()) {
        emit chosen(cell.row(), cell.column());
        return;
    }
    QTableView::keyPressEvent(event);
}

bool RatingGrid::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const QModelIndex cell = indexAt(help->pos());
    const QString tip = cell.isValid() && tipOf_ ? tipOf_(cell.row(), cell.column()) : QString();
    QToolTip::showText(help->globalPos(), tip, viewport(), visualRect(cell));
    return true;
}

void RatingGrid::updateGeometries() {
    QTableView::updateGeometries();
    // Also without a table: it hides a button of the view.
    corner_->setGeometry(0, 0, verticalHeader()->width(), horizontalHeader()->height());
    corner_->raise();
}

}  // namespace marvello
