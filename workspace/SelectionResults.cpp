// The list of results.

#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "controls/AdvanceText.h"
#include "controls/NumberText.h"
#include "controls/ResultsView.h"
#include "controls/Splitter.h"
#include "workspace/InputPanel.h"
#include "workspace/InputRules.h"
#include "workspace/ResultMarks.h"
#include "workspace/SelectionForm.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

ResultsView::Row viewRowOf(const ResultRow& row) {
    QStringList values;
    for (const ShownValue& value : row.values) values += fromCore(value.text);
    const QString mark = markOf(row.verdict);
    return {fromCore(row.compressor->Key()), fromCore(row.label), mark, markText(mark), values};
}

}  // namespace

void SelectionForm::populateLVCPS(int groupBy) {
    groupBy_ = static_cast<Grouping>(groupBy);
    if (!Selection_ || Selection_->Count() == 0) return;
    clearList();
    table_ = listResults(*Selection_, columns_,
                         {.units = measureUnit_,
                          .hasEconomizer = panel_->cmbEco->Key() != noEconomizer,
                          .grouping = groupBy_,
                          .order = order_,
                          .marks = marksOf(QLocale())});
    std::vector<ResultsView::Column> columns{
        {fromCore(nameColumn), dictionaryText(QStringLiteral("variables.compressor.name")), QString()}};
    for (const ResultColumn& column : table_.columns)
        columns.push_back({fromCore(column.key), fromCore(column.caption()), fromCore(column.description)});
    lvCps_->setColumns(columns);
    for (const ResultGroup& group : table_.groups) {
        const QString name = fromCore(group.name);
        lvCps_->addGroup(u'@' + name, name);
        rows_.push_back(nullptr);
        for (const ResultRow& row : group.rows) {
            lvCps_->addRow(viewRowOf(row));
            rows_.push_back(&row);
        }
    }
    lvCps_->markSorted(fromCore(order_.column()), order_.isDescending());
    lvCps_->fitColumns();
}

void SelectionForm::clearList() {
    lvCps_->clear();
    rows_.clear();
    table_ = {};
}

void SelectionForm::relistResults() {
    if (!hasResults()) return;
    const int row = lvCps_->selectedRow();
    const QString selected = row < 0 ? QString() : lvCps_->key(row);
    populateLVCPS(static_cast<int>(groupBy_));
    lvCps_->selectKey(selected);
    PopulateFrame4();
}

void SelectionForm::sortBy(const QString& column) {
    order_.clicked(toCore(column));
    // The column stays where it was clicked.
    const int scrolled = lvCps_->horizontalScrollBar()->value();
    relistResults();
    lvCps_->horizontalScrollBar()->setValue(scrolled);
}

void SelectionForm::selectCompressor() {
    if (lvCps_->selectKey(keptSelection_)) return;
    const auto isPossible = [](const ResultRow* row) { return row && row->verdict != Verdict::notPossible; };
    const auto first = std::ranges::find_if(rows_, isPossible);
    // Where none is possible, the messages of the first say why.
    lvCps_->selectRow(first == rows_.end() ? 1 : static_cast<int>(first - rows_.begin()));
}

const ResultRow* SelectionForm::resultOf(int row) const {
    return row < 0 ? nullptr : rows_[static_cast<std::size_t>(row)];
}

const clsCompressor* SelectionForm::compressorOf(int row) const {
    const ResultRow* const result = resultOf(row);
    return result ? result->compressor.get() : nullptr;
}

void SelectionForm::moveSelection(int rows) {
    const int row = lvCps_->selectedRow() + rows;
    if (lvCps_->selectedRow() >= 0) lvCps_->selectRow(row);
}

bool SelectionForm::hasResults() const { return !Splitter2_->isHidden(); }

bool SelectionForm::canCopy() const { return hasResults() && resultOf(lvCps_->selectedRow()); }

int SelectionForm::countOf(Verdict verdict) const {
    return static_cast<int>(std::ranges::count_if(
        rows_, [verdict](const ResultRow* row) { return row && row->verdict == verdict; }));
}

}  // namespace marvello
