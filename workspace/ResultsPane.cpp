#include "workspace/ResultsPane.h"

#include <QScrollBar>
#include <algorithm>

#include "controls/NumberText.h"
#include "controls/ResultsView.h"
#include "workspace/CompressorPages.h"
#include "workspace/CopiedTable.h"
#include "workspace/ReportPreview.h"
#include "workspace/ResultMarks.h"
#include "workspace/SelectionReport.h"
#include "workspace/Settings.h"
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

ResultsPane::ResultsPane(SelectionRun& run, const SelectionInputs& inputs, QWidget* parent)
    : ListPane(inputs, parent), run_(run) {
    pages_->setFollowed();
    connect(pages_, &CompressorPages::printWanted, this, &ResultsPane::printPage);
    connect(lvCps_, &ResultsView::headingClicked, this, &ResultsPane::sortBy);
}

void ResultsPane::translate() {
    columns_ = catalogueColumns();
    ListPane::translate();
}

void ResultsPane::open() {
    list();
    show();
    selectPage(QLatin1String(CompressorPages::all().front().key));
    lvCps_->setFocus();
    selectCompressor();
    fillPage();
}

void ResultsPane::openAgain() {
    list();
    show();
    selectCompressor();
    fillPage();
    lvCps_->horizontalScrollBar()->setValue(keptScroll_.x());
    lvCps_->verticalScrollBar()->setValue(keptScroll_.y());
    pages_->focusPage();
}

void ResultsPane::clear() {
    keptScroll_ = {lvCps_->horizontalScrollBar()->value(), lvCps_->verticalScrollBar()->value()};
    if (const int row = lvCps_->selectedRow(); row >= 0)
        keptSelection_ = run_.row(row) ? lvCps_->key(row) : QString();
    lvCps_->clear();
    run_.clear();
    hide();
}

void ResultsPane::list() {
    if (!run_.hasResults()) return;
    lvCps_->clear();
    std::vector<std::string> switched;
    for (const QString& key : switchedColumns()) switched.push_back(toCore(key));
    run_.list(inputs_, withSwitched(columns_, switched), marksOf(QLocale()));
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

QList<ListPane::OfferedColumn> ResultsPane::offeredColumns() const {
    QList<OfferedColumn> offered;
    const std::vector<ResultColumn>& listed = run_.table().columns;
    for (const clsOutput& column : columns_)
        if (isOffered(column.Visibility, inputs_.units(), inputs_.isShown(Input::economizer)))
            offered.push_back({fromCore(column.Key), fromCore(column.Name),
                               std::ranges::any_of(listed, [&](const ResultColumn& each) {
                                   return each.key == column.Key;
                               })});
    return offered;
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

const ResultRow* ResultsPane::selected() const { return run_.row(lvCps_->selectedRow()); }

const clsCompressor* ResultsPane::selectedCompressor() const {
    const ResultRow* const result = selected();
    return result ? result->compressor.get() : nullptr;
}

std::optional<ComparedChoice> ResultsPane::choiceOf(int row) const {
    const ResultRow* const result = run_.row(row);
    if (!result) return std::nullopt;
    const clsCompressor& compressor = *result->compressor;
    return ComparedChoice{compressor.Refrigerant, compressor.Serie, compressor.Model, *run_.conditions()};
}

bool ResultsPane::canPrint() const {
    const ResultRow* const result = selected();
    return result && result->compressor->Messages.Error.Count() == 0;
}

std::optional<ReportContent> ResultsPane::report() const {
    const ResultRow* const result = selected();
    if (!result) return std::nullopt;
    ReportContent content = reportOf(run_.table(), *result, inputs_);
    setSections(content, madeSections(sections(), settings::reportSections.value()));
    return content;
}

std::vector<OfferedSection> ResultsPane::sections() const {
    if (!canPrint()) return {};
    return offeredSections(selected()->compressor, run_.conditions(), inputs_, pages_->sectionChoices());
}

void ResultsPane::print(bool preview) const {
    if (preview)
        showPreview(settings::reportSections.value());
    else if (const std::optional<ReportContent> shown = report())
        printReport(*shown, window());
}

void ResultsPane::printPage(const QString& section) const {
    QStringList chosen = settings::reportSections.value();
    if (!chosen.contains(section)) chosen += section;
    showPreview(chosen);
}

void ResultsPane::showPreview(const QStringList& chosen) const {
    const ResultRow* const result = selected();
    if (!result) return;
    ReportPreview dialog(reportOf(run_.table(), *result, inputs_), window());
    dialog.offerSections(sections(), chosen);
    dialog.exec();
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

}  // namespace marvello
