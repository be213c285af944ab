#include "workspace/ComparisonFigures.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "controls/CoreText.h"
#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/Marks.h"

namespace marvello {

namespace {

constexpr int lineHeight = 26;
constexpr int headingHeight = 34;
constexpr int side = 15;

/// Paints a row as the lists of the program do, and the dot of a best value.
class FigureDelegate : public QStyledItemDelegate {
  public:
    FigureDelegate(const ComparisonModel& model, QTableView& view)
        : QStyledItemDelegate(&view), model_(model), view_(view) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Look& look = Look::current();
        const bool isCurrent = view_.hasFocus() && index == view_.currentIndex();
        painter->save();
        painter->fillRect(option.rect,
                          option.state & QStyle::State_Selected ? look.accentTint : look.surface);
        painter->fillRect(QRect(option.rect.bottomLeft(), QSize(option.rect.width(), 1)), look.line);
        const QRect room = option.rect.adjusted(side, 0, -side, -1);
        const ComparisonModel::Line& line = model_.line(index.row());
        if (!line.row)
            heading(*painter, room, index);
        else if (index.column() == 0)
            caption(*painter, room, *line.row);
        else if (const QString error = index.data(Qt::UserRole).toString(); !error.isEmpty())
            errorText(*painter, room, error);
        else
            value(*painter, room, *model_.cell(index));
        if (isCurrent) {
            painter->setPen(QPen(look.accent, 1));
            painter->drawRect(option.rect.adjusted(0, 0, -1, -2));
        }
        painter->restore();
    }

  private:
    static void heading(QPainter& painter, const QRect& room, const QModelIndex& index) {
        painter.setFont(lookFont(13, QFont::Medium));
        painter.setPen(Look::current().text);
        painter.drawText(room.adjusted(0, 6, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         index.data().toString());
    }

    static void caption(QPainter& painter, const QRect& room, const ComparedRow& row) {
        const QFont font = lookFont();
        const QFontMetrics metrics(font);
        constexpr int gap = 5;
        const QString unit = fromCore(row.unit);
        const QFont small = lookFont(12);
        const int unitWidth = unit.isEmpty() ? 0 : QFontMetrics(small).horizontalAdvance(unit) + gap;
        const QString name =
            metrics.elidedText(fromCore(row.caption), Qt::ElideRight, room.width() - unitWidth);
        painter.setFont(font);
        painter.setPen(Look::current().text);
        painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, name);
        const QRect rest = room.adjusted(metrics.horizontalAdvance(name) + gap, 0, 0, 0);
        painter.setFont(small);
        painter.setPen(Look::current().muted);
        painter.drawText(rest, Qt::AlignVCenter | Qt::AlignLeft, unit);
    }

    static void errorText(QPainter& painter, const QRect& room, const QString& error) {
        constexpr int mark = 14;
        constexpr int gap = 6;
        paintMark(painter, QRect(room.left(), room.top() + gap, mark, mark), mark::notPossible);
        painter.setFont(lookFont(12));
        painter.setPen(Look::current().text);
        painter.drawText(room.adjusted(mark + gap, gap - 1, 0, 0), Qt::AlignTop | Qt::TextWordWrap, error);
    }

    static void value(QPainter& painter, const QRect& room, const ComparedCell& cell) {
        const Look& look = Look::current();
        const QFont font = lookFont(13, cell.isBest ? QFont::Medium : QFont::Normal);
        const QFontMetrics metrics(font);
        const QString text = metrics.elidedText(fromCore(cell.text), Qt::ElideRight, room.width());
        painter.setFont(font);
        painter.setPen(cell.isEmpty() ? look.muted : look.text);
        painter.drawText(room, Qt::AlignVCenter | Qt::AlignRight, text);
        double left = room.right() + 1 - metrics.horizontalAdvance(text);
        if (cell.isBest) {
            constexpr double radius = 3;
            constexpr double gap = 7;
            left -= gap + 2 * radius;
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(look.text);
            painter.drawEllipse(QPointF(left + radius, room.center().y() + 1), radius, radius);
        }
        if (cell.difference.empty()) return;
        constexpr int gap = 8;
        const QRect rest(room.left(), room.top(), static_cast<int>(left) - gap - room.left(), room.height());
        const QFont small = lookFont(11);
        if (QFontMetrics(small).horizontalAdvance(fromCore(cell.difference)) > rest.width()) return;
        painter.setFont(small);
        painter.setPen(look.muted);
        painter.drawText(rest, Qt::AlignVCenter | Qt::AlignRight, fromCore(cell.difference));
    }

    const ComparisonModel& model_;
    QTableView& view_;
};

}  // namespace

void ComparisonModel::setTable(ComparisonTable table, const QString& bestText) {
    beginResetModel();
    table_ = std::move(table);
    bestText_ = bestText;
    lines_.clear();
    for (const ComparedGroup& group : table_.groups) {
        lines_.push_back({&group, nullptr});
        for (const ComparedRow& row : group.rows) lines_.push_back({&group, &row});
    }
    endResetModel();
}

const ComparedCell* ComparisonModel::cell(const QModelIndex& index) const {
    const Line& at = line(index.row());
    if (!at.row || index.column() == 0) return nullptr;
    return &at.row->cells.at(static_cast<std::size_t>(index.column() - 1));
}

ComparisonModel::Lines ComparisonModel::errorLines(std::size_t machine) const {
    if (table_.groups.empty() || table_.heads.at(machine).error.empty()) return {};
    const std::vector<ComparedRow>& rows = table_.groups.front().rows;
    const auto isEmpty = [machine](const ComparedRow& row) { return row.cells.at(machine).isEmpty(); };
    const auto first = std::ranges::find_if(rows, isEmpty);
    const auto behind = std::find_if_not(first, rows.end(), isEmpty);
    return {static_cast<int>(first - rows.begin()) + 1, static_cast<int>(behind - first)};
}

int ComparisonModel::rowCount(const QModelIndex&) const { return static_cast<int>(lines_.size()); }

int ComparisonModel::columnCount(const QModelIndex&) const {
    return table_.heads.empty() ? 0 : static_cast<int>(table_.heads.size()) + 1;
}

/// The role of the user is the error that stands in the place of values.
QVariant ComparisonModel::data(const QModelIndex& index, int role) const {
    const Line& at = line(index.row());
    const bool isText = role == Qt::DisplayRole || role == Qt::AccessibleTextRole || role == Qt::ToolTipRole;
    if (!at.row) return isText ? fromCore(at.group->caption) : QVariant();
    if (index.column() == 0) return isText ? fromCore(at.row->captionWithUnit()) : QVariant();
    const ComparedHead& head = table_.heads.at(static_cast<std::size_t>(index.column() - 1));
    const auto [first, count] = errorLines(static_cast<std::size_t>(index.column() - 1));
    const bool isError = index.row() >= first && index.row() < first + count;
    if (role == Qt::UserRole) return isError ? fromCore(head.error) : QString();
    if (!isText) return {};
    if (isError) return fromCore(head.error);
    const ComparedCell& of = *cell(index);
    if (role == Qt::DisplayRole) return fromCore(of.text);
    QStringList words{fromCore(of.text)};
    if (of.isBest) words += bestText_;
    if (!of.difference.empty()) words += fromCore(of.difference);
    if (role == Qt::AccessibleTextRole)
        words.prepend(fromCore(head.name) + u' ' + fromCore(at.row->captionWithUnit()));
    return words.join(QStringLiteral(", "));
}

ComparisonFigures::ComparisonFigures(QWidget* parent) : QTableView(parent) {
    setModel(&model_);
    setItemDelegate(new FigureDelegate(model_, *this));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(minColumnWidth);
    verticalHeader()->setMinimumSectionSize(lineHeight);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &ComparisonFigures::columnsChanged);
}

void ComparisonFigures::setTable(ComparisonTable table, const QString& bestText) {
    const int beforeRow = currentIndex().row();
    const int beforeColumn = currentIndex().column();
    const int scrolled = verticalScrollBar()->value();
    clearSpans();
    model_.setTable(std::move(table), bestText);
    for (int row = 0; row < model_.rowCount(); ++row) {
        const bool isHeading = !model_.line(row).row;
        setRowHeight(row, isHeading ? headingHeight : lineHeight);
        if (isHeading) setSpan(row, 0, 1, model_.columnCount());
    }
    for (std::size_t i = 0; i < model_.table().heads.size(); ++i)
        if (const auto [first, count] = model_.errorLines(i); count > 1)
            setSpan(first, static_cast<int>(i) + 1, count, 1);
    layOut();
    const int column = std::min(std::max(beforeColumn, 1), model_.columnCount() - 1);
    const int row = std::min(std::max(beforeRow, 1), model_.rowCount() - 1);
    setAutoScroll(false);  // the heading above the first row stays in sight
    setCurrentIndex(model_.index(row, column));
    setAutoScroll(true);
    verticalScrollBar()->setValue(scrolled);
}

void ComparisonFigures::layOut() {
    const int machines = model_.columnCount() - 1;
    if (machines < 1) return;
    const int forCaptions =
        std::clamp(viewport()->width() - machines * minColumnWidth, minCaptionWidth, captionWidth);
    setColumnWidth(0, forCaptions);
    const int room = viewport()->width() - forCaptions;
    const int width = std::max(room / machines, minColumnWidth);
    for (int i = 1; i <= machines; ++i)
        setColumnWidth(i, i == machines ? std::max(room - width * (machines - 1), width) : width);
    emit columnsChanged();
}

void ComparisonFigures::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    layOut();
}

void ComparisonFigures::setCurrentMachine(int machine) {
    const QModelIndex index = model_.index(currentIndex().row(), machine + 1);
    if (machine >= 0 && index.isValid()) setCurrentIndex(index);
}

void ComparisonFigures::keyPressEvent(QKeyEvent* event) {
    const bool isSideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (event->matches(QKeySequence::Copy))
        emit copyRequested();
    else if (event->key() == Qt::Key_Delete || (isSideways && event->modifiers() & Qt::AltModifier))
        event->ignore();  // the form takes machines out and moves them
    else
        QTableView::keyPressEvent(event);
}

}  // namespace marvello
