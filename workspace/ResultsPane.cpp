#include "workspace/ResultsPane.h"

#include <QAction>
#include <QActionGroup>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/NumberText.h"
#include "controls/ResultsView.h"
#include "workspace/CompressorPages.h"
#include "workspace/CopiedTable.h"
#include "workspace/Pane.h"
#include "workspace/ReportPreview.h"
#include "workspace/ResultMarks.h"
#include "workspace/SelectionReport.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int minPageHeight = 64;

ResultsView::Row viewRowOf(const ResultRow& row) {
    QStringList values;
    for (const ShownValue& value : row.values) values += fromCore(value.text);
    const QString mark = markOf(row.verdict);
    return {fromCore(row.compressor->Key()), fromCore(row.label), mark, markText(mark), values};
}

}  // namespace

ResultsPane::ResultsPane(SelectionRun& run, const SelectionInputs& inputs, QWidget* parent)
    : Splitter(parent), run_(run), inputs_(inputs) {
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

    const auto pageChanged = [this] {
        mnu_cpspopup_->actions().at(pages_->current())->setChecked(true);
        fillPage();
    };
    connect(pages_, &CompressorPages::pageChanged, this, pageChanged);
    pageChanged();
}

void ResultsPane::makeList() {
    auto* frame3 = new QWidget(this);
    setUpPane(*frame3, "frame3");
    lvCps_ = new ResultsView(frame3);
    lvCps_->setObjectName(QStringLiteral("lvCps"));
    lvCps_->setContextMenuPolicy(Qt::CustomContextMenu);
    lvCps_->setSortable();
    auto* column = new QVBoxLayout(frame3);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(lvCps_);
    connect(lvCps_, &ResultsView::rowSelected, this, [this] {
        fillPage();
        emit selectionChanged();
    });
    connect(lvCps_, &QWidget::customContextMenuRequested, this, &ResultsPane::openPopUp);
    connect(lvCps_, &ResultsView::headingClicked, this, &ResultsPane::sortBy);
    connect(lvCps_, &ResultsView::copyRequested, this, &ResultsPane::copy);
}

void ResultsPane::makePopUp() {
    mnu_cpspopup_ = new QMenu(this);
    mnu_cpspopup_->setObjectName(QStringLiteral("mnu_cpspopup"));
    auto* shown = new QActionGroup(mnu_cpspopup_);
    for (const CompressorPages::Page& page : CompressorPages::all()) {
        QAction* entry = shown->addAction(mnu_cpspopup_->addAction(QString()));
        entry->setObjectName(QStringLiteral("mnu_cpspopup_") + QLatin1String(page.key));
        entry->setCheckable(true);
        connect(entry, &QAction::triggered, this, [this, key = page.key] { selectPage(QLatin1String(key)); });
        popUpEntries_.push_back({entry, page.menuTextKey, Needs::nothing});
    }
    mnu_cpspopup_->addSeparator();
    addToPopUp(Command::copy, [this] { copy(); });
    addToPopUp(Command::printPreview, [this] { print(true); });
    addToPopUp(Command::print, [this] { print(false); });
}

void ResultsPane::addToPopUp(Command command, const std::function<void()>& act) {
    const CommandDefinition& definition = definitionOf(command);
    QAction* entry = mnu_cpspopup_->addAction(QString());
    entry->setObjectName(QLatin1String(definition.popUpName));
    // Only shown here: the list and the main window listen to the keys.
    entry->setShortcutContext(Qt::WidgetShortcut);
    entry->setShortcut(definition.keys);
    entry->setShortcutVisibleInContextMenu(true);
    connect(entry, &QAction::triggered, this, act);
    popUpEntries_.push_back({entry, definition.popUpTextKey, definition.needs});
}

void ResultsPane::openPopUp(const QPoint& place) {
    if (!selected()) return;
    for (const PopUpEntry& entry : popUpEntries_)
        if (entry.needs == Needs::printableRow) entry.action->setEnabled(canPrint());
    mnu_cpspopup_->popup(lvCps_->viewport()->mapToGlobal(place));
}

void ResultsPane::translate() {
    columns_ = catalogueColumns();
    lvCps_->header()->setAccessibleName(dictionaryText(QStringLiteral("frmselection.headings")));
    lvCps_->setAccessibleName(dictionaryText(QStringLiteral("frmselection.list")));
    lvCps_->setSpokenGroup(dictionaryText(QStringLiteral("frmselection.list.group")));
    for (const PopUpEntry& entry : popUpEntries_)
        entry.action->setText(dictionaryText(QLatin1String(entry.textKey)));
    pages_->translate();
    relist();
}

void ResultsPane::open() {
    list();
    show();
    selectPage(QLatin1String(CompressorPages::all().front().key));
    lvCps_->setFocus();
    selectCompressor();
    fillPage();
}

void ResultsPane::clear() {
    if (const int row = lvCps_->selectedRow(); row >= 0)
        keptSelection_ = run_.row(row) ? lvCps_->key(row) : QString();
    lvCps_->clear();
    run_.clear();
    hide();
}

void ResultsPane::list() {
    if (!run_.hasResults()) return;
    lvCps_->clear();
    run_.list(inputs_, columns_, marksOf(QLocale()));
    std::vector<ResultsView::Column> columns{
        {fromCore(nameColumn), dictionaryText(QStringLiteral("variables.compressor.name")), QString()}};
    for (const ResultColumn& column : run_.table().columns)
        columns.push_back({fromCore(column.key), fromCore(column.caption()), fromCore(column.description)});
    lvCps_->setColumns(columns);
    for (const ResultGroup& group : run_.table().groups) {
        const QString name = fromCore(group.name);
        lvCps_->addGroup(u'@' + name, name);
        for (const ResultRow& row : group.rows) lvCps_->addRow(viewRowOf(row));
    }
    lvCps_->markSorted(fromCore(run_.order.column()), run_.order.isDescending());
    lvCps_->fitColumns();
}

void ResultsPane::relist() {
    const int row = lvCps_->selectedRow();
    const QString selected = row < 0 ? QString() : lvCps_->key(row);
    list();
    lvCps_->selectKey(selected);
    fillPage();
}

void ResultsPane::sortBy(const QString& column) {
    run_.order.clicked(toCore(column));
    // The column stays where it was clicked.
    const int scrolled = lvCps_->horizontalScrollBar()->value();
    relist();
    lvCps_->horizontalScrollBar()->setValue(scrolled);
}

void ResultsPane::selectCompressor() {
    if (lvCps_->selectKey(keptSelection_)) return;
    const auto isPossible = [](const ResultRow* row) { return row && row->verdict != Verdict::notPossible; };
    const auto first = std::ranges::find_if(run_.rows(), isPossible);
    // Where none is possible, the messages of the first say why.
    lvCps_->selectRow(first == run_.rows().end() ? 1 : static_cast<int>(first - run_.rows().begin()));
}

void ResultsPane::fillPage() {
    if (!run_.hasResults()) return;
    const int row = lvCps_->selectedRow();
    const ResultRow* const result = selected();
    pages_->showCompressor(result ? result->compressor.get() : nullptr,
                           row >= 0 && lvCps_->isGroup(row) ? lvCps_->text(row, 0) : QString());
}

bool ResultsPane::selectPage(const QString& key) { return pages_->select(key); }

const ResultRow* ResultsPane::selected() const { return run_.row(lvCps_->selectedRow()); }

bool ResultsPane::canPrint() const {
    const ResultRow* const result = selected();
    return result && result->compressor->Messages.Error.Count() == 0;
}

void ResultsPane::moveSelection(int rows) {
    if (const int row = lvCps_->selectedRow(); row >= 0) lvCps_->selectRow(row + rows);
}

std::optional<ReportContent> ResultsPane::report() const {
    const ResultRow* const result = selected();
    return result ? std::optional(reportOf(run_.table(), *result, inputs_)) : std::nullopt;
}

void ResultsPane::print(bool preview) const {
    const std::optional<ReportContent> shown = report();
    if (!shown) return;
    if (preview)
        ReportPreview(*shown, window()).exec();
    else
        printReport(*shown, window());
}

void ResultsPane::copy() const {
    const QString lineEnd = QStringLiteral("\r\n");
    CopiedTable table{
        {QStringLiteral("Refrigerant"), QStringLiteral("Serie"), QStringLiteral("Model")}, {}, 3};
    for (const ResultColumn& column : run_.table().columns) table.columns += fromCore(column.caption());
    QString text = table.columns.join(u'\t') + lineEnd;
    for (const int row : lvCps_->selectedRows()) {
        // Kept: models that are not possible are copied as well.
        const ResultRow* const result = run_.row(row);
        if (!result) continue;
        const clsCompressor& compressor = *result->compressor;
        QStringList cells{fromCore(compressor.Refrigerant), fromCore(compressor.Serie),
                          fromCore(compressor.Model)};
        for (const ShownValue& value : result->values) cells += fromCore(value.text);
        text += cells.join(u'\t') + lineEnd;
        table.rows += cells;
    }
    copyTable(text, table);
}

QHash<QString, int> ResultsPane::chosenWidths() const { return lvCps_->chosenWidths(); }
void ResultsPane::setChosenWidths(const QHash<QString, int>& widths) { lvCps_->setChosenWidths(widths); }

}  // namespace marvello
