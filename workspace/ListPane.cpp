#include "workspace/ListPane.h"

#include <QAction>
#include <QActionGroup>
#include <QHeaderView>
#include <QMenu>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/CoreText.h"
#include "controls/ResultsView.h"
#include "workspace/CompressorPages.h"
#include "workspace/Pane.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int minPageHeight = 64;

}  // namespace

ListPane::ListPane(const SelectionInputs& inputs, QWidget* parent) : Splitter(parent), inputs_(inputs) {
    setObjectName(QStringLiteral("Splitter2"));
    makeList();
    pages_ = new CompressorPages(inputs, this);
    setUpPane(*pages_, "Frame4");
    makePopUp();
    SetOrientation(1);
    SetMinSize1(minListHeight);
    SetMinSize2(minPageHeight);
    SetChild1(QStringLiteral("Frame3"));
    SetChild2(QStringLiteral("Frame4"));
    SetSplitterPos(listHeightAtStart);
    const auto markPage = [this] { mnu_cpspopup_->actions().at(pages_->current())->setChecked(true); };
    connect(pages_, &CompressorPages::pageChanged, this, [this, markPage] {
        markPage();
        placeBar();
        fillPage();
    });
    connect(this, &Splitter::moved, this, [this] { keepHeight(SplitterPos() - around()); });
    connect(this, &Splitter::doubleClicked, this, [this] {
        keepHeight(listHeight() == lowListHeight ? listHeightAtStart : lowListHeight);
        placeBar();
        emit moved();
    });
    markPage();
    connect(pages_, &CompressorPages::adviceUsed, this, &ListPane::adviceUsed);
    connect(pages_, &CompressorPages::pointUsed, this, &ListPane::pointUsed);
    connect(pages_, &CompressorPages::exported, this, &ListPane::exported);
}

void ListPane::makeList() {
    auto* frame3 = new QWidget(this);
    setUpPane(*frame3, "frame3");
    lvCps_ = new ResultsView(frame3);
    lvCps_->setObjectName(QStringLiteral("lvCps"));
    lvCps_->setContextMenuPolicy(Qt::CustomContextMenu);
    lvCps_->setSortable();
    lvCps_->setColumnMenu();
    listColumn_ = new QVBoxLayout(frame3);
    listColumn_->setContentsMargins(0, 0, 0, 0);
    listColumn_->setSpacing(0);
    listColumn_->addWidget(lvCps_);
    connect(lvCps_, &ResultsView::rowSelected, this, [this] {
        fillPage();
        emit selectionChanged();
    });
    connect(lvCps_, &QWidget::customContextMenuRequested, this, &ListPane::openPopUp);
    connect(lvCps_, &ResultsView::columnMenuRequested, this, &ListPane::openColumnMenu);
    connect(lvCps_, &ResultsView::copyRequested, this, [this] { copy(); });
    connect(lvCps_, &ResultsView::pinClicked, this, &ListPane::switchCompared);
}

void ListPane::makePopUp() {
    mnu_cpspopup_ = new QMenu(this);
    mnu_cpspopup_->setObjectName(QStringLiteral("mnu_cpspopup"));
    auto* shown = new QActionGroup(mnu_cpspopup_);
    for (const CompressorPages::Page& page : CompressorPages::all()) {
        QAction* entry = addToPopUp(page.menuTextKey, Needs::nothing,
                                    [this, key = page.key] { selectPage(QLatin1String(key)); });
        shown->addAction(entry);
        entry->setObjectName(QStringLiteral("mnu_cpspopup_") + QLatin1String(page.key));
        entry->setCheckable(true);
    }
    mnu_cpspopup_->addSeparator();
    addToPopUp(Command::addToComparison, [this] { emit chosenToCompare(selectedChoices()); });
    addToPopUp(Command::copy, [this] { copy(); });
    addToPopUp(Command::printPreview, [this] { print(true); });
    addToPopUp(Command::print, [this] { print(false); });
}

QAction* ListPane::addToPopUp(const char* textKey, Needs needs, const std::function<void()>& act) {
    QAction* entry = mnu_cpspopup_->addAction(QString());
    connect(entry, &QAction::triggered, this, act);
    popUpEntries_.push_back({entry, textKey, needs});
    return entry;
}

void ListPane::addToPopUp(Command command, const std::function<void()>& act) {
    const CommandDefinition& definition = definitionOf(command);
    QAction* entry = addToPopUp(definition.popUpTextKey, definition.needs, act);
    entry->setObjectName(QLatin1String(definition.popUpName));
    // Only shown here: the list and the main window listen to the keys.
    entry->setShortcutContext(Qt::WidgetShortcut);
    entry->setShortcut(definition.keys);
    entry->setShortcutVisibleInContextMenu(true);
}

void ListPane::openPopUp(const QPoint& place) {
    if (!canCopy()) return;
    for (const PopUpEntry& entry : popUpEntries_)
        if (entry.needs == Needs::printableRow) entry.action->setEnabled(canPrint());
    mnu_cpspopup_->popup(lvCps_->viewport()->mapToGlobal(place));
}

void ListPane::openColumnMenu(const QPoint& place) {
    QMenu menu(this);
    for (const OfferedColumn& column : offeredColumns()) {
        QAction* entry = menu.addAction(column.name);
        entry->setCheckable(true);
        entry->setChecked(column.isShown);
        connect(entry, &QAction::toggled, this, [this, key = column.key] {
            if (!switchedColumns_.removeOne(key)) switchedColumns_ += key;
            relist();
        });
    }
    menu.exec(place);
}

bool ListPane::isSwitched(const std::string& column) const {
    return switchedColumns_.contains(fromCore(column));
}

void ListPane::setSwitchedColumns(const QStringList& keys) {
    switchedColumns_ = keys;
    relist();
}

void ListPane::translate() {
    lvCps_->header()->setAccessibleName(dictionaryText(QStringLiteral("frmselection.headings")));
    lvCps_->setAccessibleName(dictionaryText(QStringLiteral("frmselection.list")));
    lvCps_->setSpokenGroup(dictionaryText(QStringLiteral("frmselection.list.group")));
    for (const PopUpEntry& entry : popUpEntries_)
        entry.action->setText(dictionaryText(QLatin1String(entry.textKey)));
    const CommandDefinition& add = definitionOf(Command::addToComparison);
    lvCps_->setPins({.isPinned = [this](int row) { return isCompared(row); },
                     .addText = withoutAccessKey(dictionaryText(QLatin1String(add.textKey))) +
                                QStringLiteral(" (%1)").arg(add.keys.toString(QKeySequence::NativeText)),
                     .takeText = dictionaryText(QStringLiteral("frmcomparison.takeout.list")),
                     .pinnedText = dictionaryText(QStringLiteral("frmcomparison.listed"))});
    pages_->translate();
    relist();
}

void ListPane::fillPage() {
    if (!hasRows()) return;
    const int row = lvCps_->selectedRow();
    pages_->showCompressor(selectedCompressor(),
                           row >= 0 && lvCps_->isGroup(row) ? lvCps_->text(row, 0) : QString(), conditions());
}

bool ListPane::selectPage(const QString& key) { return pages_->select(key); }

void ListPane::stepPage(int by) { pages_->step(by); }

void ListPane::findOnPage() { pages_->findOnPage(); }

QList<QWidget*> ListPane::parts() const { return {lvCps_, pages_->tabs(), pages_->page()}; }

QString ListPane::currentPage() const {
    return QLatin1String(CompressorPages::all()[static_cast<std::size_t>(pages_->current())].key);
}

int ListPane::listHeight() const {
    const bool isLow = CompressorPages::all()[static_cast<std::size_t>(pages_->current())].needsHeight;
    return heights_.value(currentPage(), isLow ? lowListHeight : listHeightAtStart);
}

void ListPane::keepHeight(int height) { heights_[currentPage()] = height; }

void ListPane::placeBar() {
    SetSplitterPos(listHeight() + around());
    if (const int row = lvCps_->selectedRow(); row >= 0) lvCps_->showRow(row);
}

void ListPane::setListHeights(const QHash<QString, int>& heights) {
    heights_ = heights;
    placeBar();
}

void ListPane::moveSelection(int rows) {
    if (const int row = lvCps_->selectedRow(); row >= 0) lvCps_->selectRow(row + rows);
}

std::vector<ListPane::Listed> ListPane::listedRows() const {
    std::vector<Listed> listed;
    for (int row = 0; row < lvCps_->rowCount(); ++row)
        if (const auto choice = choiceOf(row))
            listed.push_back(
                {lvCps_->text(row, 0) + QStringLiteral("  ") + fromCore(choice->refrigerant), *choice});
    return listed;
}

std::vector<ComparedChoice> ListPane::selectedChoices() const {
    std::vector<ComparedChoice> choices;
    for (const int row : lvCps_->selectedRows())
        if (const auto choice = choiceOf(row)) choices.push_back(*choice);
    return choices;
}

void ListPane::showCompared(const std::vector<ComparedChoice>& choices) {
    compared_ = choices;
    lvCps_->repaintPins();
}

std::optional<bool> ListPane::isCompared(int row) const {
    const auto choice = choiceOf(row);
    if (!choice) return std::nullopt;
    return std::ranges::find(compared_, *choice) != compared_.end();
}

void ListPane::switchCompared(int row) {
    const auto choice = choiceOf(row);
    if (!choice) return;
    if (*isCompared(row))
        emit takenFromComparison(*choice);
    else
        emit chosenToCompare({*choice});
}

QString ListPane::mapQuantity() const { return pages_->mapQuantity(); }
void ListPane::setMapQuantity(const QString& name) { pages_->setMapQuantity(name); }

QHash<QString, int> ListPane::chosenWidths() const { return lvCps_->chosenWidths(); }
void ListPane::setChosenWidths(const QHash<QString, int>& widths) { lvCps_->setChosenWidths(widths); }

}  // namespace marvello
