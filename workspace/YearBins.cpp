#include "workspace/YearBins.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <set>
#include <utility>

#include "controls/CoreText.h"
#include "controls/FieldFrame.h"
#include "controls/FieldNote.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "controls/TwoLineHeader.h"
#include "results/YearTexts.h"
#include "thermo/EnteredQuantity.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int rowHeight = 24;
constexpr int sumHeight = 26;
constexpr int side = 10;
constexpr const char* goesDown = "goesDown";  // of an editor that Enter ends

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

QString tooManyBins() { return fromCore(sentenceOf(LoadProfileFault::Reason::tooManyBins, {})); }

/// The digits and signs of every script as those of ASCII, in rows of fields.
QString plainRows(const QString& text) {
    QStringList rows;
    for (const QString& row : text.split(u'\n')) {
        QStringList fields;
        for (const QString& field : row.split(u'\t')) fields += plainNumberText(field);
        rows += fields.join(u'\t');
    }
    return rows.join(u'\n');
}

/// Paints the values, and takes them at the right end where they are.
class BinDelegate : public QStyledItemDelegate {
  public:
    explicit BinDelegate(QTableView& table) : QStyledItemDelegate(&table), table_(table) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Look& look = Look::current();
        painter->save();
        const bool isChosen = index.row() == table_.currentIndex().row();
        const bool isSelected = option.state & QStyle::State_Selected;
        if (isChosen || isSelected) painter->fillRect(option.rect, look.accentTint);
        painter->setFont(lookFont());
        painter->setPen(index.column() == BinsModel::condensingColumn ? look.muted : look.text);
        painter->drawText(option.rect.adjusted(side, 0, -side, 0), Qt::AlignRight | Qt::AlignVCenter,
                          index.data().toString());
        if (table_.hasFocus() && index == table_.currentIndex()) {
            painter->setPen(look.accent);
            painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
        }
        painter->restore();
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex& index) const override {
        auto* edit = new QLineEdit(parent);
        edit->setFrame(false);
        edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        edit->setTextMargins(0, 0, side - 4, 0);
        edit->setFont(lookFont());
        edit->setAccessibleName(index.data(Qt::AccessibleTextRole).toString());
        return edit;
    }

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        const QString typed = static_cast<QLineEdit*>(editor)->text();
        if (typed != index.data(Qt::EditRole).toString()) model->setData(index, typed, Qt::EditRole);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* const editor = qobject_cast<QLineEdit*>(watched);
        const auto* const key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
        if (!editor || !key || (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter))
            return QStyledItemDelegate::eventFilter(watched, event);
        editor->setProperty(goesDown, true);
        emit commitData(editor);
        emit closeEditor(editor, NoHint);
        return true;
    }

  private:
    QTableView& table_;
};

}  // namespace

void BinsModel::setBins(const std::vector<LoadBin>& bins) {
    if (bins == bins_) return;
    beginResetModel();
    bins_ = bins;
    endResetModel();
}

void BinsModel::setCondensing(const CondensingRule& rule, UnitSystem units) {
    condensing_ = rule;
    units_ = units;
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

int BinsModel::rowCount(const QModelIndex&) const { return static_cast<int>(bins_.size()) + 1; }

int BinsModel::columnCount(const QModelIndex&) const { return binColumns + 1; }

QString BinsModel::text(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= bins_.size()) return {};
    const LoadBin& bin = bins_[row];
    if (index.column() == condensingColumn)
        return formatNumber(
            convertedTemperature(condensing_.at(bin.outdoor, bin.load), UnitSystem::metric, units_), u"#0.0");
    const auto column = static_cast<BinColumn>(index.column());
    return formatNumber(shownValue(bin, column, units_), column == BinColumn::outdoor ? u"#0.0#" : u"#0.##");
}

QVariant BinsModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::DisplayRole || role == Qt::EditRole) return text(index);
    if (role == Qt::ToolTipRole && static_cast<std::size_t>(index.row()) >= bins_.size())
        return dictionaryText(QStringLiteral("frmyear.bins.newrow"));
    if (role != Qt::AccessibleTextRole) return {};
    QString words = headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString();
    if (static_cast<std::size_t>(index.row()) >= bins_.size())
        return words + QStringLiteral(", ") + dictionaryText(QStringLiteral("frmyear.bins.newrow"));
    return words + QStringLiteral(", ") + text(index);
}

QVariant BinsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue<Qt::AlignmentFlag>(Qt::AlignRight);
    if (role != Qt::DisplayRole) return {};
    const auto named = [](const char* key, const QString& unit) {
        return marvello::text(key) + u'(' + unit + u')';
    };
    const QString degrees = fromCore(unitText(Quantity::temperature, units_));
    switch (section) {
        case 0:
            return named("frmyear.column.outdoor", degrees);
        case 1:
            return named("frmyear.column.hours", QStringLiteral("h"));
        case 2:
            return named("frmyear.column.load", QStringLiteral("%"));
        default:
            return named("frmselection.txttcd.captiontext", degrees);
    }
}

Qt::ItemFlags BinsModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.column() == condensingColumn ? flags : flags | Qt::ItemIsEditable;
}

bool BinsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || index.column() >= binColumns) return false;
    const auto row = static_cast<std::size_t>(index.row());
    const bool isNew = row >= bins_.size();
    LoadBin bin = isNew ? nextBin(bins_) : bins_[row];
    const auto column = static_cast<BinColumn>(index.column());
    try {
        enter(bin, column, toCore(plainNumberText(value.toString())), units_);
    } catch (const LoadProfileFault& fault) {
        emit refused(fromCore(sentenceOf(fault)));
        return false;
    }
    if (isNew && bins_.size() >= LoadProfile::maxBins) {
        emit refused(tooManyBins());
        return false;
    }
    put(bin, row);
    emit entered(this->index(static_cast<int>(rowOf_), index.column()));
    return true;
}

/// Rows keep their editors on the way.
void BinsModel::put(const LoadBin& bin, std::size_t row) {
    const bool isNew = row == bins_.size();
    std::vector<LoadBin> bins = bins_;
    if (isNew)
        bins.push_back(bin);
    else
        bins[row] = bin;
    rowOf_ = sortBins(bins, row);
    const int from = static_cast<int>(row);
    const int to = static_cast<int>(rowOf_);
    if (isNew) {
        beginInsertRows({}, to, to);
        bins_ = std::move(bins);
        endInsertRows();
    } else if (to != from) {
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        bins_ = std::move(bins);
        endMoveRows();
    } else {
        bins_ = std::move(bins);
    }
    emit dataChanged(index(to, 0), index(to, columnCount() - 1));
}

/// The view of the bins: keys and the way from one editor to the next.
class YearBins::Table : public QTableView {
  public:
    explicit Table(YearBins& owner) : QTableView(&owner), owner_(owner) {}

    /// What was entered is not taken.
    void setRefused() { isRefused_ = true; }
    /// Where a value is that was entered: its bin may have another row by then.
    void setEntered(const QModelIndex& index) { entered_ = index; }

  protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override {
        const bool isDown = editor->property(goesDown).toBool();
        const QPersistentModelIndex entered = std::exchange(entered_, {});
        QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
        if (std::exchange(isRefused_, false)) return;  // the reason is at this cell
        const bool isNext = hint == QAbstractItemDelegate::EditNextItem;
        if (!isDown && !isNext && hint != QAbstractItemDelegate::EditPreviousItem) return;
        if (entered.isValid()) setCurrentIndex(entered);
        if (isDown)
            setCurrentIndex(
                currentIndex().siblingAtRow(std::min(currentIndex().row() + 1, model()->rowCount() - 1)));
        else
            goOn(isNext ? 1 : -1);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Copy))
            owner_.copy();
        else if (event->matches(QKeySequence::Paste))
            owner_.paste();
        else if (event->key() == Qt::Key_Delete)
            owner_.removeRows();
        else if (event->key() == Qt::Key_Insert)
            owner_.insertRow();
        else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            edit(currentIndex());
        else
            QTableView::keyPressEvent(event);
    }

  private:
    /// Edits the value that comes so many values later.
    void goOn(int by) {
        const int at = currentIndex().row() * binColumns + currentIndex().column() + by;
        if (at < 0 || at >= model()->rowCount() * binColumns) return;
        setCurrentIndex(model()->index(at / binColumns, at % binColumns));
        edit(currentIndex());
    }

    YearBins& owner_;
    QPersistentModelIndex entered_;
    bool isRefused_ = false;
};

YearBins::YearBins(QWidget* parent) : QWidget(parent), table_(new Table(*this)), sum_(new QLabel(this)) {
    setObjectName(QStringLiteral("yearBins"));
    table_->setObjectName(QStringLiteral("binTable"));
    table_->setModel(&model_);
    table_->setItemDelegate(new BinDelegate(*table_));
    auto* heading = new TwoLineHeader(table_);
    heading->setFirstNumbers();
    table_->setHorizontalHeader(heading);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->horizontalHeader()->setFocusPolicy(Qt::NoFocus);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setMinimumSectionSize(rowHeight);
    table_->verticalHeader()->setDefaultSectionSize(rowHeight);
    table_->setFrameShape(QFrame::NoFrame);
    table_->setShowGrid(false);
    table_->setTabKeyNavigation(false);
    table_->setCornerButtonEnabled(false);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::AnyKeyPressed);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    table_->installEventFilter(this);
    setFocusProxy(table_);
    sum_->setFont(lookFont());
    sum_->setObjectName(QStringLiteral("binSum"));
    connect(table_, &QWidget::customContextMenuRequested, this, &YearBins::openMenu);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        table_->viewport()->update();
        if (note_) note_->hide();
        if (!isFilling_) emit chosenByUser();
    });
    connect(&model_, &BinsModel::refused, this, [this](const QString& sentence) {
        table_->setRefused();
        refused(sentence);
    });
    connect(&model_, &BinsModel::entered, this, [this](const QModelIndex& now) {
        table_->setEntered(now);
        showSum();
        emit edited(now.column() != static_cast<int>(BinColumn::hours));
    });
}

void YearBins::translate() {
    table_->setAccessibleName(text("frmyear.open.title"));
    emit model_.headerDataChanged(Qt::Horizontal, 0, binColumns);
    layOut();
    showSum();
}

void YearBins::setBins(const std::vector<LoadBin>& bins) {
    if (bins == model_.bins()) return;
    const int row = table_->currentIndex().row();
    isFilling_ = true;
    model_.setBins(bins);
    if (row >= 0) table_->setCurrentIndex(model_.index(std::min(row, model_.rowCount() - 1), 0));
    isFilling_ = false;
    showSum();
}

void YearBins::setCondensing(const CondensingRule& rule, UnitSystem units) {
    model_.setCondensing(rule, units);
}

std::optional<std::size_t> YearBins::chosen() const {
    const int row = table_->currentIndex().row();
    if (row < 0 || row >= static_cast<int>(bins().size())) return std::nullopt;
    return static_cast<std::size_t>(row);
}

void YearBins::choose(std::size_t bin) {
    if (bin < bins().size()) table_->setCurrentIndex(model_.index(static_cast<int>(bin), 0));
}

int YearBins::heightFor(int bins) {
    return 2 * (halo + 1) + TwoLineHeader::headerHeight + bins * rowHeight + sumHeight;
}

void YearBins::showSum() {
    LoadProfile profile{.bins = bins()};
    sum_->setText(text("frmyear.sum") + QStringLiteral("   ") + formatNumber(profile.hours(), u"#0.##") +
                  QStringLiteral(" h"));
}

void YearBins::refused(const QString& sentence) {
    if (!note_) note_ = new FieldNote(*this);
    const QRect cell =
        table_->visualRect(table_->currentIndex()).translated(table_->viewport()->mapTo(this, QPoint()));
    note_->say(sentence, *this, cell);
}

void YearBins::copy() const {
    std::set<int> rows;
    for (const QModelIndex& index : table_->selectionModel()->selectedIndexes()) rows.insert(index.row());
    QString copied;
    for (const int row : rows) {
        if (row >= static_cast<int>(bins().size())) continue;
        QStringList cells;
        for (int column = 0; column < model_.columnCount(); ++column)
            cells += model_.index(row, column).data().toString();
        copied += cells.join(u'\t') + QStringLiteral("\r\n");
    }
    if (!copied.isEmpty()) QGuiApplication::clipboard()->setText(copied);
}

void YearBins::paste() {
    const QModelIndex at = table_->currentIndex();
    if (!at.isValid() || at.column() >= binColumns) return;
    try {
        std::vector<LoadBin> bins =
            pasted(this->bins(), static_cast<std::size_t>(at.row()), static_cast<BinColumn>(at.column()),
                   toCore(plainRows(QGuiApplication::clipboard()->text())), model_.units());
        const std::size_t row = sortBins(bins, static_cast<std::size_t>(at.row()));
        if (bins == this->bins()) return;
        setBins(bins);
        table_->setCurrentIndex(model_.index(static_cast<int>(row), at.column()));
        emit edited(true);
    } catch (const LoadProfileFault& fault) {
        refused(filled(text("frmyear.bins.pastefault"), {fromCore(sentenceOf(fault))}));
    }
}

void YearBins::insertRow() {
    const auto row = chosen();
    std::vector<LoadBin> bins = this->bins();
    if (bins.size() >= LoadProfile::maxBins) return refused(tooManyBins());
    LoadBin bin = row ? bins[*row] : nextBin(bins);
    bin.hours = 0;
    bins.insert(bins.begin() + static_cast<std::ptrdiff_t>(row.value_or(bins.size())), bin);
    setBins(bins);
    if (row) table_->setCurrentIndex(model_.index(static_cast<int>(*row), 0));
    emit edited(true);
}

void YearBins::removeRows() {
    std::set<int, std::greater<>> rows;
    for (const QModelIndex& index : table_->selectionModel()->selectedIndexes()) rows.insert(index.row());
    std::vector<LoadBin> bins = this->bins();
    const std::size_t before = bins.size();
    for (const int row : rows)
        if (row < static_cast<int>(bins.size())) bins.erase(bins.begin() + row);
    if (bins.size() == before) return;
    setBins(bins);
    emit edited(true);
}

void YearBins::openMenu(const QPoint& place) {
    QMenu menu(this);
    const auto add = [&](const char* key, const QKeySequence& keys, void (YearBins::*act)()) {
        QAction* entry = menu.addAction(text(key));
        entry->setShortcut(keys);
        entry->setShortcutVisibleInContextMenu(true);
        connect(entry, &QAction::triggered, this, act);
    };
    add("frmyear.bins.paste", QKeySequence::Paste, &YearBins::paste);
    add("frmyear.bins.insert", Qt::Key_Insert, &YearBins::insertRow);
    add("frmyear.bins.remove", Qt::Key_Delete, &YearBins::removeRows);
    menu.exec(table_->viewport()->mapToGlobal(place));
}

bool YearBins::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        if (event->type() == QEvent::FocusOut && note_) note_->hide();
        update();
        table_->viewport()->update();
    }
    return QWidget::eventFilter(watched, event);
}

void YearBins::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    FieldFrame frame;
    frame.isFocused = table_->hasFocus();
    frame.paint(painter, QRectF(rect()).adjusted(halo, halo, -halo, -halo));
}

void YearBins::resizeEvent(QResizeEvent*) { layOut(); }

void YearBins::layOut() {
    const QRect inside = rect().adjusted(halo + 1, halo + 1, -halo - 1, -halo - 1);
    table_->setGeometry(inside.adjusted(0, 0, 0, -sumHeight));
    sum_->setGeometry(inside.left() + side, inside.bottom() + 1 - sumHeight, inside.width() - 2 * side,
                      sumHeight);
    // The bar of a long table takes its room whether it is there or not, so that the columns stand still.
    const int width = inside.width() - table_->verticalScrollBar()->sizeHint().width();
    const QString last =
        model_.headerData(BinsModel::condensingColumn, Qt::Horizontal, Qt::DisplayRole).toString();
    const int lastWidth = std::max(width / model_.columnCount(), TwoLineHeader::widthOf(last));
    for (int column = 0; column < binColumns; ++column)
        table_->setColumnWidth(column, (width - lastWidth) / binColumns);
    table_->setColumnWidth(BinsModel::condensingColumn, lastWidth);
}

}  // namespace marvello
