#include "workspace/PartLoadPage.h"

#include <QDir>
#include <QHBoxLayout>
#include <QTimer>
#include <QVBoxLayout>

#include "controls/Hairline.h"
#include "controls/NumberText.h"
#include "controls/ResultsView.h"
#include "data/Session.h"
#include "results/FigureTexts.h"
#include "results/PartLoadTexts.h"
#include "workspace/ChartPane.h"
#include "workspace/CopiedTable.h"
#include "workspace/ExportFile.h"
#include "workspace/PartLoadBar.h"
#include "workspace/ResultMarks.h"
#include "workspace/SelectionExports.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int beforeProgress = 300;  // milliseconds
constexpr int afterTyping = 150;
constexpr int minChartWidth = 280;

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

void addRows(ResultsView& list, const std::string& title, const std::vector<PartLoadSheet::Row>& rows) {
    list.addGroup(fromCore(title), fromCore(title));
    for (const PartLoadSheet::Row& row : rows) {
        QStringList values;
        for (const std::string& value : row.values) values += fromCore(value);
        const QString mark = markOf(row.state);
        list.addRow({fromCore(title + row.label), fromCore(row.label), mark, markText(mark), values});
    }
}

}  // namespace

PartLoadPage::PartLoadPage(const SelectionInputs& inputs, QWidget* parent)
    : QWidget(parent),
      inputs_(inputs),
      bar_(new PartLoadBar(this)),
      list_(new ResultsView(this)),
      between_(new Hairline(this)),
      chart_(new ChartPane(this)),
      patience_(new QTimer(this)),
      typing_(new QTimer(this)) {
    list_->setObjectName(QStringLiteral("lvPartLoad"));
    chart_->setObjectName(QStringLiteral("picPartLoad"));
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(list_, 2);
    row->addWidget(between_);
    row->addWidget(chart_, 1);
    chart_->setMinimumWidth(minChartWidth);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar_);
    column->addLayout(row, 1);
    setFocusProxy(list_);
    for (QTimer* timer : {patience_, typing_}) timer->setSingleShot(true);
    patience_->setInterval(beforeProgress);
    typing_->setInterval(afterTyping);
    connect(patience_, &QTimer::timeout, this, [this] { say(text("frmpg.label1.caption") + u'\u2026'); });
    connect(typing_, &QTimer::timeout, this, &PartLoadPage::start);
    connect(bar_, &PartLoadBar::ruleChanged, typing_, qOverload<>(&QTimer::start));
    connect(bar_, &PartLoadBar::ruleUnfinished, typing_, &QTimer::stop);
    connect(bar_, &PartLoadBar::copyClicked, this, &PartLoadPage::copy);
    connect(bar_, &PartLoadBar::exportClicked, this, &PartLoadPage::write);
    connect(list_, &ResultsView::copyRequested, this, &PartLoadPage::copy);
    connect(&run_, &PartLoadRun::calculated, this, &PartLoadPage::show);
    connect(&run_, &PartLoadRun::failed, this, [this](const QString& reason) {
        patience_->stop();
        isCalculating_ = false;
        table_.reset();
        say(reason);
    });
    clear();
}

void PartLoadPage::translate() {
    bar_->translate();
    bar_->orderTabs(list_);
    list_->setAccessibleName(text("frmselection.tabstrip.tabs.partload"));
    fill();
}

PartLoadRule PartLoadPage::rule() const { return bar_->rule(inputs_.units()); }

void PartLoadPage::clear() {
    run_.stop();
    patience_->stop();
    typing_->stop();
    isCalculating_ = false;
    compressor_ = nullptr;
    table_.reset();
    say({});
}

void PartLoadPage::showCompressor(const clsCompressor& compressor, const clsProjectConditions& conditions) {
    catalogue_ = preparedCatalogue(gDatabase());
    compressor_ = catalogue_->find(compressor.Refrigerant, compressor.Serie, compressor.Model);
    conditions_ = conditions;
    if (compressor_ == nullptr) return say(text("frmselection.rating.empty"));
    bar_->setUnits(inputs_.units());
    start();
}

/// What is shown stays until there is something newer.
void PartLoadPage::start() {
    if (compressor_ == nullptr) return;
    patience_->start();
    isCalculating_ = true;
    run_.start(catalogue_, partLoadQuestion(rule().planOf(*compressor_, conditions_)));
}

void PartLoadPage::show(const PartLoadTable& table) {
    patience_->stop();
    isCalculating_ = false;
    table_.reset();
    if (!table.full.share) return say(text("frmselection.rating.empty"));
    table_ = table;
    fill();
}

void PartLoadPage::fill() {
    if (!table_) return;
    const NumberMarks marks = marksOf(QLocale());
    const PartLoadSheet sheet = partLoadSheet(*compressor_, *table_, inputs_.units(), marks);
    const QString selected = list_->selectedRow() < 0 ? QString() : list_->key(list_->selectedRow());
    std::vector<ResultsView::Column> columns{{QStringLiteral("state"), fromCore(sheet.label), QString()}};
    for (const PartLoadSheet::Column& column : sheet.columns) {
        const QString unit = column.unit.empty() ? QString() : u'(' + fromCore(column.unit) + u')';
        columns.push_back({fromCore(column.key), fromCore(column.name) + unit, fromCore(column.description)});
        columns.back().minWidth = 52;
        if (!column.isText) continue;
        columns.back().kind = ResultsModel::Kind::words;
        columns.back().maxWidth = 400;
    }
    list_->clear();
    list_->setColumns(columns);
    addRows(*list_, sheet.statesTitle, sheet.states);
    addRows(*list_, sheet.sharesTitle, sheet.shares);
    list_->fitColumns();
    list_->selectKey(selected);
    chart_->setChart(partLoadChart(*compressor_, *table_, inputs_.units()));
    bar_->setSentence(fromCore(sheet.full));
    list_->setAccessibleDescription({});
    showParts();
}

/// In place of the table.
void PartLoadPage::say(const QString& sentence) {
    list_->clear();
    list_->setEmptyText(sentence);
    list_->setAccessibleDescription(sentence);
    bar_->setSentence({});
    showParts();
}

// In a narrow page the table needs the room more than the chart, which says the same.
void PartLoadPage::showParts() {
    constexpr int minimumWidthWithChart = 640;
    const bool hasTable = list_->rowCount() > 0;
    bar_->setVisible(compressor_ != nullptr);
    bar_->setHasTable(hasTable);
    for (QWidget* part : std::initializer_list<QWidget*>{between_, chart_})
        part->setVisible(hasTable && width() >= minimumWidthWithChart);
}

void PartLoadPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    showParts();
}

void PartLoadPage::copy() const {
    if (!table_) return;
    CopiedTable table{list_->columnTexts(), {}, 1};
    QString plain = table.columns.join(u'\t') + QStringLiteral("\r\n");
    for (int row = 0; row < list_->rowCount(); ++row) {
        if (list_->isGroup(row)) continue;
        table.rows += list_->rowTexts(row);
        plain += table.rows.back().join(u'\t') + QStringLiteral("\r\n");
    }
    copyTable(plain, table);
}

void PartLoadPage::write() {
    if (!table_) return;
    const QString model =
        fromCore(compressor_->Serie + '-' + compressor_->Model + ' ' + compressor_->Refrigerant);
    const auto file = chooseExportFile(this, {ExportFile::Form::csv}, model);
    if (!file) return;
    const QString path = QDir::toNativeSeparators(file->path);
    const QString failure = writeExport(partLoadCsv(*compressor_, *table_), *file);
    if (failure.isEmpty())
        emit exported(filled(text("frmselection.rating.export.done"), {path}));
    else
        sayNotWritten(path, failure, this);
}

}  // namespace marvello
