// The list of results.

#include <QScrollBar>
#include <algorithm>
#include <utility>
#include <vector>

#include "controls/AdvanceText.h"
#include "controls/ResultsView.h"
#include "controls/Splitter.h"
#include "workspace/InputPanel.h"
#include "workspace/InputRules.h"
#include "workspace/ResultsList.h"
#include "workspace/SelectionForm.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int byCompressor = 1;
const QString blank = QStringLiteral("  ");

QString markText(const QString& mark) { return dictionaryTextIfAny(QStringLiteral("general.") + mark); }

}  // namespace

void SelectionForm::populateLVCPS(int groupBy) {
    groupBy_ = groupBy;
    if (!Selection_ || Selection_->Count() == 0) return;
    outputs_ = readOutputs(lvCps_->Tag());
    lvCps_->clear();
    const bool isImperial = measureUnit_ == MeasureSystem::imperial;
    const bool hasEconomizer = panel_->cmbEco->Key() != noEconomizer;
    std::vector<ResultsView::Column> columns{{QStringLiteral("compressor"),
                                              dictionaryText(QStringLiteral("variables.compressor.name")),
                                              QString()}};
    for (const clsOutput& output : outputs_)
        if (isShown(output.Visibility, isImperial, hasEconomizer))
            columns.push_back({fromCore(output.Key), fromCore(output.Name) + u'(' + unitOf(output) + u')',
                               fromCore(output.Description)});
    lvCps_->setColumns(columns);

    // By the text of the grouping; the key sets those of one text in a fixed order.
    std::vector<std::pair<QString, clsCompressor*>> sorted;
    for (const auto& compressor : *Selection_) {
        const QString key = fromCore(compressor->Key());
        const QString text = groupBy == byCompressor ? nameWithRefrigerant(*compressor) + u'\n' + key : key;
        sorted.emplace_back(text.toLower(), compressor.get());
    }
    std::sort(sorted.begin(), sorted.end());
    QString group;
    std::vector<ResultsView::Row> rows;
    const auto listGroup = [&] {
        if (rows.empty()) return;
        lvCps_->addGroup(u'@' + group, group);
        order_.sort(rows, lvCps_->columnKeys());
        for (const ResultsView::Row& row : rows) lvCps_->addRow(row);
        rows.clear();
    };
    for (const auto& [text, compressor] : sorted) {
        const QString refrigerant = fromCore(compressor->Refrigerant);
        const QString name = nameOf(*compressor);
        const QString value = groupBy == byCompressor ? name : refrigerant;
        if (value != group) listGroup();
        group = value;
        rows.push_back(rowOf(*compressor, groupBy == byCompressor ? refrigerant : name));
    }
    listGroup();
    lvCps_->markSorted(order_.column(), order_.isDescending());
    lvCps_->fitColumns();
}

QString SelectionForm::unitOf(const clsOutput& output) const {
    return unitText(output, measureUnit_ == MeasureSystem::imperial);
}

void SelectionForm::relistResults() {
    if (!hasResults()) return;
    const int row = lvCps_->selectedRow();
    const QString selected = row < 0 ? QString() : lvCps_->key(row);
    populateLVCPS(groupBy_);
    lvCps_->selectKey(selected);
    PopulateFrame4();
}

ResultsView::Row SelectionForm::rowOf(clsCompressor& compressor, const QString& label) {
    const QString mark = markOf(compressor);
    QStringList values;
    for (const QString& key : lvCps_->columnKeys().mid(1)) {
        QString text = blank;
        if (!isBlank(compressor)) {
            try {
                text = resultText(compressor, outputs_.Item(toCore(key)),
                                  measureUnit_ == MeasureSystem::imperial);
            } catch (const std::exception&) {
                text = blank;  // A column of the catalogue that this calculation has no value for.
            }
        }
        values += text;
    }
    const QString tag =
        QStringList{fromCore(compressor.Refrigerant), fromCore(compressor.Serie), fromCore(compressor.Model)}
            .join(u';');
    return {fromCore(compressor.Key()), tag, label, mark, markText(mark), values};
}

void SelectionForm::sortBy(const QString& column) {
    order_.clicked(column);
    // The column stays where it was clicked.
    const int scrolled = lvCps_->horizontalScrollBar()->value();
    relistResults();
    lvCps_->horizontalScrollBar()->setValue(scrolled);
}

void SelectionForm::selectCompressor() {
    if (lvCps_->selectKey(keptSelection_)) return;
    for (int row = 0; row < lvCps_->rowCount(); ++row)
        if (isCompressorRow(row) && lvCps_->mark(row) != u"ledred") return lvCps_->selectRow(row);
    // None is possible, and the messages of the first say why.
    lvCps_->selectRow(1);
}

bool SelectionForm::isCompressorRow(int row) const { return row >= 0 && !lvCps_->isGroup(row); }

clsCompressor* SelectionForm::compressorOf(int row) const {
    if (!isCompressorRow(row)) return nullptr;
    const std::string key = toCore(lvCps_->key(row));
    return Selection_->Exist(key) ? &Selection_->Item(key) : nullptr;
}

void SelectionForm::moveSelection(int rows) {
    const int row = lvCps_->selectedRow() + rows;
    if (lvCps_->selectedRow() >= 0) lvCps_->selectRow(row);
}

bool SelectionForm::hasResults() const { return !Splitter2_->isHidden(); }

bool SelectionForm::canCopy() const { return hasResults() && isCompressorRow(lvCps_->selectedRow()); }

int SelectionForm::countOf(const QString& mark) const {
    int count = 0;
    for (int row = 0; row < lvCps_->rowCount(); ++row)
        if (!lvCps_->isGroup(row) && lvCps_->mark(row) == mark) ++count;
    return count;
}

}  // namespace marvello
