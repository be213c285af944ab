#include "controls/ResultsView.h"

#include <QFontMetrics>
#include <QHash>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <utility>

#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/Marks.h"
#include "controls/TwoLineHeader.h"

namespace marvello {

namespace {

constexpr int rowHeight = 26;
constexpr int firstWidth = 120;
constexpr int markSize = 14;
constexpr int groupIndent = 10;
constexpr int rowIndent = 24;
constexpr int plainIndent = 12;
constexpr int markGap = 8;
constexpr int sidePadding = 10;
constexpr int noteGap = 8;
constexpr int barWidth = 64;
constexpr int barHeight = 14;
constexpr int deviationText = 58;  // the widest is "+100.0 %"

/// How wide a text is at most: its signs next to each other, each asked for once. To shape a text costs a
/// hundred times as much, and most of a column fit into its width without.
class WidthBound {
  public:
    explicit WidthBound(const QFontMetrics& metrics) : metrics_(metrics) {}

    int of(const QString& text) {
        constexpr int beyond = 4;  // what pairs of signs may be set apart
        return std::accumulate(text.begin(), text.end(), beyond,
                               [this](int sum, QChar sign) { return sum + of(sign); });
    }

  private:
    int of(QChar sign) {
        int& width = widths_[sign];
        if (width == 0) width = metrics_.horizontalAdvance(sign) + 1;
        return width;
    }

    const QFontMetrics& metrics_;
    QHash<QChar, int> widths_;
};

/// Paints the contents of a cell; the row paints what is behind it.
class CellDelegate : public QStyledItemDelegate {
  public:
    CellDelegate(const ResultsModel& model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {0, rowHeight}; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const ResultsModel::Row& row = model_.row(index.row());
        const QString text = model_.text(index.row(), index.column());
        painter->setPen(Look::current().text);
        painter->setFont(lookFont(13, row.isGroup ? QFont::Medium : QFont::Normal));
        if (index.column() > 0) {
            paintValue(*painter, option.rect.adjusted(4, 0, -sidePadding, 0), text, row, index.column());
            return;
        }
        const int indent = row.mark.isEmpty()             ? plainIndent
                           : row.isGroup || !isIndented() ? groupIndent
                                                          : rowIndent;
        QRect place = option.rect.adjusted(indent, 0, 0, 0);
        if (!row.mark.isEmpty()) {
            const int top = place.top() + (place.height() - markSize) / 2;
            paintMark(*painter, QRect(place.left(), top, markSize, markSize), row.mark);
            place.adjust(markSize + markGap, 0, 0, 0);
        }
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter, text);
    }

  private:
    /// Below a group, or behind the room of the pins.
    bool isIndented() const { return model_.hasGroups() || model_.hasPins(); }
    void paintValue(QPainter& painter, const QRect& room, const QString& text, const ResultsModel::Row& row,
                    int number) const {
        const ResultsModel::Column& column = model_.column(number);
        const ResultsModel::Aside aside = row.asides.value(number);
        if (column.kind == ResultsModel::Kind::words) {
            const int indent = sidePadding - 4;
            QRect place = room.adjusted(indent, 0, sidePadding, 0);
            painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                             painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
            place.adjust(painter.fontMetrics().horizontalAdvance(text) + noteGap, 0, 0, 0);
            painter.setPen(Look::current().muted);
            painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, aside.note);
            return;
        }
        painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, text);
        if (column.kind == ResultsModel::Kind::deviation && !text.trimmed().isEmpty())
            paintDeviation(painter, room, aside.deviation, column);
        if (aside.icon.isEmpty()) return;
        const int end = room.right() + 1 - painter.fontMetrics().horizontalAdvance(text) - noteGap;
        const QRect place(end - markSize, room.center().y() - markSize / 2 + 1, markSize, markSize);
        paintIcon(painter, place, aside.icon, Look::current().muted);
    }

    /// A line as long as the tolerance, a tick at the need, and a bar from there to the value.
    static void paintDeviation(QPainter& painter, const QRect& room, double deviation,
                               const ResultsModel::Column& column) {
        const Look& look = Look::current();
        const QRect bar(room.right() + 1 - deviationText - barWidth, room.center().y() - barHeight / 2,
                        barWidth, barHeight);
        const double whole = column.below + column.above;
        const auto placeOf = [&](double at) {
            const double share = whole > 0 ? (column.below + at) / whole : 0.5;
            return bar.left() + static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * barWidth));
        };
        const int need = placeOf(0);
        const int value = placeOf(deviation);
        painter.fillRect(QRect(bar.left(), bar.center().y(), barWidth, 1), look.line);
        painter.fillRect(QRect(std::min(need, value), bar.center().y() - 2, std::abs(value - need), 5),
                         look.muted);
        painter.fillRect(QRect(need, bar.top(), 1, barHeight), look.text);
    }

    const ResultsModel& model_;
};

}  // namespace

ResultsView::ResultsView(QWidget* parent) : QTreeView(parent), headings_(new TwoLineHeader(this)) {
    setModel(&model_);
    setHeader(headings_);
    header()->setStretchLastSection(false);
    header()->setMouseTracking(true);
    setItemDelegate(new CellDelegate(model_, this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setIndentation(0);
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setMouseTracking(true);
    setAllColumnsShowFocus(true);
    connect(header(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!isArranging_) chosenWidths_[columnKeys().at(column)] = width;
    });
    // A double click on the edge of a column gives it the width of its contents again.
    connect(header(), &QHeaderView::sectionHandleDoubleClicked, this, [this](int column) {
        chosenWidths_.remove(columnKeys().at(column));
        setWidth(column, fittingWidth(column));
    });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &ResultsView::rowSelected);
    // An extended selection grows before the row that leads it is known.
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        if (selectionModel()->selectedRows().size() > 1) emit rowSelected();
    });
}

void ResultsView::clear() {
    const bool hadSelection = selectionModel()->hasSelection();
    model_.clear();
    doItemsLayout();  // back at the top, before rows come again
    // A model that starts anew takes the selection away without a word.
    if (hadSelection) emit rowSelected();
}

void ResultsView::setColumns(const std::vector<Column>& columns) {
    model_.setColumns(columns);
    for (int i = 0; i < model_.columnCount(); ++i)
        setWidth(i, i == 0 ? firstWidth : model_.column(i).minWidth);
}

void ResultsView::setSortable() {
    headings_->setSortable();
    connect(headings_, &TwoLineHeader::sectionClicked, this,
            [this](int column) { emit headingClicked(columnKeys().value(column)); });
    connect(headings_, &TwoLineHeader::sectionReached, this, [this](int column) {
        // The first column is always in sight, over what scrolls.
        if (column == 0) return;
        const int left = headings_->sectionViewportPosition(column) - headings_->sectionSize(0);
        const int beyond =
            left + headings_->sectionSize(0) + headings_->sectionSize(column) - viewport()->width();
        QScrollBar* bar = horizontalScrollBar();
        if (left < 0)
            bar->setValue(bar->value() + left);
        else if (beyond > 0)
            bar->setValue(bar->value() + std::min(beyond, left));
    });
}

void ResultsView::setColumnMenu() {
    headings_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(headings_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { emit columnMenuRequested(headings_->mapToGlobal(at)); });
}

void ResultsView::markSorted(const QString& column, bool descending) {
    headings_->setSortMark(static_cast<int>(columnKeys().indexOf(column)), descending);
}

void ResultsView::addGroup(const QString& key, const QString& text) {
    const QString spoken = QString(spokenGroup_).replace(QStringLiteral("{0}"), text);
    model_.add({key, text, mark::group, spoken, {}, true});
}

void ResultsView::addRow(Row row) { model_.add(std::move(row)); }

int ResultsView::fittingWidth(int column) const {
    const QFontMetrics metrics(lookFont());
    const QString header = columnTexts().at(column);
    int width =
        std::max(column == 0 ? firstWidth : model_.column(column).minWidth, TwoLineHeader::widthOf(header));
    const ResultsModel::Kind kind = model_.column(column).kind;
    if (kind == ResultsModel::Kind::deviation)
        return std::max(width, barWidth + deviationText + sidePadding + 4);
    const int around = column == 0                         ? rowIndent + markSize + markGap + sidePadding
                       : kind == ResultsModel::Kind::words ? 2 * sidePadding
                                                           : sidePadding + 4;
    WidthBound bound(metrics);
    for (int row = 0; row < model_.rowCount(); ++row) {
        if (column == 0 && isGroup(row)) continue;
        QString shown = text(row, column);
        const ResultsModel::Aside aside = model_.row(row).asides.value(column);
        const int beside =
            around + (aside.icon.isEmpty() ? 0 : markSize + noteGap) + (aside.note.isEmpty() ? 0 : noteGap);
        shown += aside.note;
        if (bound.of(shown) + beside > width)
            width = std::max(width, metrics.horizontalAdvance(shown) + beside);
    }
    if (const int most = model_.column(column).maxWidth; most > 0) width = std::min(width, most);
    return width;
}

void ResultsView::fitColumns() {
    const QStringList keys = columnKeys();
    for (int column = 0; column < keys.size(); ++column) {
        const auto chosen = chosenWidths_.constFind(keys[column]);
        setWidth(column, chosen == chosenWidths_.constEnd() ? fittingWidth(column) : *chosen);
    }
}

void ResultsView::setChosenWidths(const QHash<QString, int>& widths) {
    chosenWidths_ = widths;
    fitColumns();
}

void ResultsView::setWidth(int column, int width) {
    isArranging_ = true;
    header()->resizeSection(column, width);
    isArranging_ = false;
}

bool ResultsView::isGroup(int row) const { return model_.row(row).isGroup; }
QString ResultsView::key(int row) const { return model_.row(row).key; }
QString ResultsView::mark(int row) const { return model_.row(row).mark; }
QString ResultsView::text(int row, int column) const { return model_.text(row, column); }

QStringList ResultsView::rowTexts(int row) const {
    QStringList texts;
    for (int column = 0; column < model_.columnCount(); ++column) texts += text(row, column);
    return texts;
}

QStringList ResultsView::columnKeys() const {
    QStringList keys;
    for (const Column& column : model_.columns()) keys += column.key;
    return keys;
}

QStringList ResultsView::columnTexts() const {
    QStringList texts;
    for (const Column& column : model_.columns()) texts += column.text;
    return texts;
}

int ResultsView::selectedRow() const {
    const QModelIndex current = currentIndex();
    if (current.isValid() && selectionModel()->isRowSelected(current.row(), {})) return current.row();
    const QList<int> rows = selectedRows();
    return rows.isEmpty() ? -1 : rows.front();
}

QList<int> ResultsView::selectedRows() const {
    QList<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows()) rows += index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ResultsView::showRow(int row) { scrollTo(model_.index(row, 0)); }

void ResultsView::selectRow(int row) {
    if (row < 0 || row >= model_.rowCount()) return;
    const QModelIndex index = model_.index(row, 0);
    // By itself alone, whatever keys are held down: Ctrl belongs to the keys that walk through the results.
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

bool ResultsView::selectKey(const QString& key) {
    for (int row = 0; row < model_.rowCount(); ++row)
        if (this->key(row) == key) {
            selectRow(row);
            return true;
        }
    return false;
}

// A dialog or another program takes the focus of the window only for a while.
bool ResultsView::isInUse() const { return hasFocus() || window()->focusWidget() == this; }

bool ResultsView::isHovered(const QRect& row) const {
    return viewport()->underMouse() && row.contains(viewport()->mapFromGlobal(QCursor::pos()));
}

void ResultsView::setPins(ResultsModel::Pins pins) {
    model_.setPins(std::move(pins));
    repaintPins();
}

int ResultsView::pinAt(const QPoint& place) const {
    if (place.x() < 0 || place.x() >= rowIndent) return -1;
    const QModelIndex index = indexAt(place);
    return index.isValid() && model_.isPinned(index.row()) ? index.row() : -1;
}

// Filled in a pinned row; as an outline in the row under the mouse.
void ResultsView::drawPin(QPainter* painter, const QRect& place, int row) const {
    constexpr int left = 5;
    constexpr int size = 16;
    const auto isPinned = model_.isPinned(row);
    if (!isPinned || (!*isPinned && !isHovered(place))) return;
    const Look& look = Look::current();
    const QRect pin(left, place.center().y() - size / 2 + 1, size, size);
    paintIcon(*painter, pin, *isPinned ? QStringLiteral("pinned") : QStringLiteral("pin"),
              *isPinned ? look.accent : look.muted);
}

// What is below the texts of a row, over its whole width or a part of it.
void ResultsView::paintGround(QPainter* painter, const QRect& place, int row) const {
    const Look& look = Look::current();
    const QRect whole(0, place.top(), viewport()->width(), place.height());
    const bool selected = selectionModel()->isRowSelected(row, {});
    const bool group = isGroup(row);
    painter->fillRect(place, selected           ? isInUse() ? look.accentTint : look.hover
                             : group            ? look.surfaceAlt
                             : isHovered(whole) ? look.hover
                                                : look.surface);
    if (group) {
        painter->fillRect(QRect(place.bottomLeft(), QSize(place.width(), 1)), look.line);
        if (row > 0) painter->fillRect(QRect(place.topLeft(), QSize(place.width(), 1)), look.line);
    }
    if (selected) painter->fillRect(QRect(place.topLeft(), QSize(3, place.height())), look.accent);
}

void ResultsView::drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                          const QModelIndex& index) const {
    paintGround(painter, QRect(0, options.rect.top(), viewport()->width(), options.rect.height()),
                index.row());
    QStyleOptionViewItem plain(options);
    plain.state &= ~(QStyle::State_Selected | QStyle::State_MouseOver | QStyle::State_HasFocus);
    plain.palette.setColor(QPalette::Highlight, Qt::transparent);
    plain.backgroundBrush = Qt::NoBrush;
    if (isGroup(index.row())) {
        drawGroup(painter, plain, index);
        return;
    }
    QTreeView::drawRow(painter, plain, index);
    if (horizontalOffset() > 0) drawLabelOver(painter, plain, index);
    drawPin(painter, QRect(0, options.rect.top(), viewport()->width(), options.rect.height()), index.row());
}

// The text of a group takes the whole width, however far the values are scrolled.
void ResultsView::drawGroup(QPainter* painter, const QStyleOptionViewItem& options,
                            const QModelIndex& index) const {
    QStyleOptionViewItem label(options);
    label.rect = QRect(0, options.rect.top(), viewport()->width(), options.rect.height());
    itemDelegate()->paint(painter, label, index.siblingAtColumn(0));
}

// The label stays in sight when the values are scrolled sideways: it is painted again over the values in its
// place.
void ResultsView::drawLabelOver(QPainter* painter, const QStyleOptionViewItem& options,
                                const QModelIndex& index) const {
    QStyleOptionViewItem label(options);
    label.rect = QRect(0, options.rect.top(), header()->sectionSize(0), options.rect.height());
    paintGround(painter, label.rect, index.row());
    painter->fillRect(QRect(label.rect.topRight(), QSize(1, label.rect.height())),
                      Look::current().controlLine);
    itemDelegate()->paint(painter, label, index.siblingAtColumn(0));
}

void ResultsView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (rowCount() > 0 || emptyText_.isEmpty()) return;
    QPainter painter(viewport());
    painter.setFont(lookFont());
    painter.setPen(Look::current().muted);
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

void ResultsView::scrollContentsBy(int dx, int dy) {
    QTreeView::scrollContentsBy(dx, dy);
    // What is painted over the scrolled cells does not move with them.
    if (dx == 0) return;
    viewport()->update();
    header()->viewport()->update();
}

void ResultsView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        emit copyRequested();
    else
        QTreeView::keyPressEvent(event);
}

void ResultsView::mousePressEvent(QMouseEvent* event) {
    pressedPin_ = event->button() == Qt::LeftButton ? pinAt(event->pos()) : -1;
    if (pressedPin_ < 0) QTreeView::mousePressEvent(event);
}

void ResultsView::mouseReleaseEvent(QMouseEvent* event) {
    const int pressed = std::exchange(pressedPin_, -1);
    if (pressed < 0)
        QTreeView::mouseReleaseEvent(event);
    else if (pinAt(event->pos()) == pressed)
        emit pinClicked(pressed);
}

// The second of two quick clicks on a pin is one as well.
void ResultsView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (pinAt(event->pos()) >= 0)
        mousePressEvent(event);
    else
        QTreeView::mouseDoubleClickEvent(event);
}

// A sentence in a cell that has no room for it, or is not in sight as a whole.
bool ResultsView::isCut(const QModelIndex& index) const {
    if (model_.column(index.column()).kind != ResultsModel::Kind::words || isGroup(index.row())) return false;
    const QRect cell = visualRect(index).intersected(viewport()->rect());
    const QString text = model_.text(index.row(), index.column());
    return QFontMetrics(lookFont()).horizontalAdvance(text) + 2 * sidePadding > cell.width();
}

bool ResultsView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const int x = help->pos().x();
        const int column = x < header()->sectionSize(0) ? 0 : header()->logicalIndexAt(x);
        QString text =
            column < 0 ? QString() : model_.columns().at(static_cast<std::size_t>(column)).description;
        if (const int row = pinAt(help->pos()); row >= 0)
            text = *model_.isPinned(row) ? model_.pins().takeText : model_.pins().addText;
        else if (const QModelIndex at = indexAt(help->pos());
                 at.isValid() && at.column() == column && isCut(at))
            text = model_.text(at.row(), column);
        QToolTip::showText(help->globalPos(), text, this);
        return true;
    }
    return QTreeView::viewportEvent(event);
}

}  // namespace marvello
