#include "workspace/FoundPane.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "controls/Icons.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/Marks.h"
#include "controls/NumberText.h"
#include "data/CollectedBoxes.h"
#include "workspace/CompressorPages.h"
#include "workspace/CopiedTable.h"
#include "workspace/FoundFilterBar.h"
#include "workspace/ListPrint.h"
#include "workspace/RejectedCompressors.h"
#include "workspace/ResultMarks.h"
#include "workspace/SearchTexts.h"
#include "workspace/Veil.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int rejectedLineHeight = 32;
constexpr int minColumnWidth = 70;
constexpr int markSize = 14;

ResultsModel::Kind kindOf(const std::string& column) {
    if (column == foundColumn::refrigerant || column == foundColumn::nearestLimit)
        return ResultsModel::Kind::words;
    return column == foundColumn::deviation ? ResultsModel::Kind::deviation : ResultsModel::Kind::number;
}

}  // namespace

FoundPane::FoundPane(const SelectionInputs& inputs, QWidget* parent)
    : ListPane(inputs, parent), veil_(new Veil(this)) {
    filters_ = new FoundFilterBar(this);
    listColumn_->insertWidget(0, filters_);
    connect(filters_, &FoundFilterBar::changed, this, &FoundPane::relist);
    makeRejectedLine();
    addToPopUp("find.open", Needs::nothing, [this] { emit opened(); });
    veil_->hide();
    SetMinSize1(minListHeight + around());
    connect(lvCps_, &ResultsView::headingClicked, this, &FoundPane::sortBy);
    connect(lvCps_, &QAbstractItemView::activated, this, &FoundPane::opened);
}

void FoundPane::makeRejectedLine() {
    rejectedLine_ = new QWidget(this);
    rejectedLine_->setFixedHeight(rejectedLineHeight);
    auto* row = new QHBoxLayout(rejectedLine_);
    row->setContentsMargins(12, 0, 12, 0);
    row->setSpacing(8);
    auto* picture = new QLabel(rejectedLine_);
    picture->setPixmap(markIcon(mark::notPossible).pixmap(QSize(markSize, markSize), devicePixelRatioF()));
    rejectedText_ = new QLabel(rejectedLine_);
    rejectedLink_ = new Link(QString(), rejectedLine_);
    rejectedLink_->setObjectName(QStringLiteral("lnkRejected"));
    row->addWidget(picture);
    row->addWidget(rejectedText_);
    row->addWidget(rejectedLink_);
    row->addStretch(1);
    putBackText_ = new QLabel(rejectedLine_);
    putBackText_->setStyleSheet(QStringLiteral("color: %1").arg(Look::current().muted.name()));
    row->addWidget(putBackText_);
    listColumn_->addWidget(rejectedLine_);
    connect(this, &ListPane::selectionChanged, this, &FoundPane::refreshPutBack);
    connect(rejectedLink_, &Link::clicked, this, &FoundPane::showRejected);
}

QList<QWidget*> FoundPane::controls() const {
    return filters_->controls() + QList<QWidget*>{lvCps_, lvCps_->header(), rejectedLink_, pages_->tabs()};
}

void FoundPane::translate() {
    filters_->translate();
    lvCps_->setEmptyText(dictionaryText(QStringLiteral("find.filtered")));
    ListPane::translate();
    refreshRejected();
}

void FoundPane::showResult(const std::shared_ptr<const FindResult>& result, const FindRequest& request) {
    if (const Candidate* before = selected()) kept_ = fromCore(foundKey(*before));
    rows_.clear();
    lvCps_->clear();
    result_ = result;
    request_ = request;
    filters_->showResult(result, inputs_.units());
    setOutdated(false);
    refreshRejected();
    relist();
}

void FoundPane::setOutdated(bool isOutdated) {
    isOutdated_ = isOutdated;
    placeVeil();
}

void FoundPane::placeVeil() {
    veil_->setGeometry(rect());
    veil_->setVisible(isOutdated_);
    if (isOutdated_) veil_->raise();
}

int FoundPane::around() const { return WrapBar::lineHeight + rejectedLineHeight; }

void FoundPane::resizeEvent(QResizeEvent* event) {
    ListPane::resizeEvent(event);
    placeVeil();
}

FoundStyle FoundPane::style() const { return {inputs_.units(), marksOf(QLocale())}; }

std::vector<ResultsView::Column> FoundPane::viewColumns() const {
    std::vector<ResultsView::Column> columns;
    for (const ResultColumn& column : columns_)
        if (!isSwitched(column.key))
            columns.push_back({fromCore(column.key), fromCore(column.caption()), fromCore(column.description),
                               kindOf(column.key), request_.below, request_.above, minColumnWidth});
    return columns;
}

ResultsView::Row FoundPane::viewRow(const FoundRow& row) const {
    const QString mark = markOf(row.verdict);
    ResultsView::Row shown{fromCore(foundKey(*row.candidate)), fromCore(row.label), mark, markText(mark), {}};
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        const std::string& key = columns_[i + 1].key;
        if (isSwitched(key)) continue;
        shown.values += fromCore(row.values[i].text);
        ResultsModel::Aside aside;
        if (key == foundColumn::refrigerant) aside.note = fromCore(row.facts);
        if (key == foundColumn::deviation) aside.deviation = row.candidate->deviation;
        if (key == foundColumn::speed && row.candidate->frequency()) aside.icon = QStringLiteral("inverter");
        shown.asides.insert(static_cast<int>(shown.values.size()), aside);
    }
    return shown;
}

QStringList FoundPane::captions() const {
    QStringList captions;
    for (const ResultColumn& column : columns_)
        if (!isSwitched(column.key))
            captions += fromCore(column.unit.empty() ? column.name : column.caption());
    return captions;
}

QStringList FoundPane::cellsOf(const Candidate& candidate) const {
    const FoundRow row = foundRow(*result_, candidate, style());
    QStringList cells{fromCore(row.label)};
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        const std::string& key = columns_[i + 1].key;
        if (isSwitched(key)) continue;
        cells += fromCore(row.values[i].text);
        if (key == foundColumn::refrigerant) cells.back() += QStringLiteral("  ") + fromCore(row.facts);
    }
    return cells;
}

void FoundPane::relist() {
    if (!result_) return;
    if (const Candidate* before = selected()) kept_ = fromCore(foundKey(*before));
    const QSignalBlocker quiet(lvCps_);
    lvCps_->clear();
    columns_ = foundColumns(request_.needed, style());
    rows_ = listed(*result_, filters_->filters(), order_, filters_->choices());
    lvCps_->setColumns(viewColumns());
    for (const Candidate* candidate : rows_) lvCps_->addRow(viewRow(foundRow(*result_, *candidate, style())));
    lvCps_->markSorted(fromCore(order_.column), order_.isDescending);
    lvCps_->fitColumns();
    filters_->layOut();
    if (!lvCps_->selectKey(kept_)) lvCps_->selectRow(0);
    fillPage();
    emit selectionChanged();
}

void FoundPane::refreshRejected() {
    const auto count = result_ ? result_->rejections.size() : 0;
    rejectedLine_->setVisible(count > 0);
    rejectedText_->setText(filled(dictionaryText(QStringLiteral("find.rejected")), {QString::number(count)}));
    rejectedLink_->setText(dictionaryText(QStringLiteral("find.rejected.show")));
}

// A series may not permit an input; its compressors are calculated without it.
void FoundPane::refreshPutBack() {
    QStringList inputs;
    if (const Candidate* const candidate = selected())
        for (const std::string& input : putBackInputs(*candidate)) inputs += fromCore(input);
    putBackText_->setText(inputs.isEmpty() ? QString()
                                           : filled(dictionaryText(QStringLiteral("find.putback")),
                                                    {inputs.join(QStringLiteral(", "))}));
}

void FoundPane::showRejected() const {
    if (result_) RejectedCompressors(rejectedGroups(*result_), window()).exec();
}

void FoundPane::sortBy(const QString& column) {
    order_.clicked(toCore(column));
    // The column stays where it was clicked.
    const int scrolled = lvCps_->horizontalScrollBar()->value();
    relist();
    lvCps_->horizontalScrollBar()->setValue(scrolled);
}

QList<ListPane::OfferedColumn> FoundPane::offeredColumns() const {
    QList<OfferedColumn> offered;
    for (const ResultColumn& column : columns_)
        if (column.key != nameColumn)
            offered.push_back({fromCore(column.key), fromCore(column.name), !isSwitched(column.key)});
    return offered;
}

const Candidate* FoundPane::selected() const {
    const int row = lvCps_->selectedRow();
    return row < 0 || row >= std::ssize(rows_) ? nullptr : rows_[static_cast<std::size_t>(row)];
}

const clsCompressor* FoundPane::selectedCompressor() const {
    const Candidate* const candidate = selected();
    if (!candidate) return nullptr;
    const CollectedBoxes said;  // the messages of the compressor say it
    return &calculator_.calculate(*candidate->compressor, candidate->conditions);
}

std::optional<ComparedChoice> FoundPane::choiceOf(int row) const {
    if (!isCurrent() || row < 0 || row >= std::ssize(rows_)) return std::nullopt;
    const Candidate& candidate = *rows_[static_cast<std::size_t>(row)];
    const PreparedCompressor& compressor = *candidate.compressor;
    return ComparedChoice{compressor.Refrigerant, compressor.Serie, compressor.Model, candidate.conditions,
                          candidate.machines};
}

std::shared_ptr<const clsProjectConditions> FoundPane::conditions() const {
    const Candidate* const candidate = selected();
    return candidate ? std::make_shared<clsProjectConditions>(candidate->conditions) : nullptr;
}

void FoundPane::copy() const {
    if (!canCopy()) return;
    const QString lineEnd = QStringLiteral("\r\n");
    CopiedTable table{captions(), {}, 2};
    QString text = table.columns.join(u'\t') + lineEnd;
    for (const int row : lvCps_->selectedRows()) {
        table.rows += cellsOf(*rows_.at(static_cast<std::size_t>(row)));
        text += table.rows.back().join(u'\t') + lineEnd;
    }
    copyTable(text, table);
}

void FoundPane::print(bool preview) const {
    if (!canPrint()) return;
    PrintedList list{.title = dictionaryText(QStringLiteral("find.title")),
                     .conditions = searchTexts(inputs_),
                     .columns = captions(),
                     .rows = {},
                     .wordColumns = {}};
    for (const Candidate* candidate : rows_) list.rows += cellsOf(*candidate);
    int column = 0;
    for (const ResultColumn& each : columns_) {
        if (isSwitched(each.key)) continue;
        if (column == 0 || kindOf(each.key) == ResultsModel::Kind::words) list.wordColumns += column;
        ++column;
    }
    printList(list, preview, window());
}

RowSet FoundPane::records() const { return foundRecords(*result_, rows_, style()); }

QStringList FoundPane::filters() const { return filters_->names(); }

void FoundPane::setFilters(const QStringList& names) {
    filters_->setNames(names);
    relist();
}

}  // namespace marvello
