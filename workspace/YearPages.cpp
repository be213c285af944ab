#include "workspace/YearPages.h"

#include <QHeaderView>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

#include "controls/CoreText.h"
#include "controls/Marks.h"
#include "controls/MessagesView.h"
#include "controls/ResultsView.h"
#include "controls/TabStrip.h"
#include "workspace/ChartPane.h"
#include "workspace/ResultMarks.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

struct Page {
    const char* key;
    const char* textKey;
};
constexpr std::array<Page, 6> pages{{{"energy", "frmyear.tab.energy"},
                                     {"cop", "variables.cop.name"},
                                     {"hours", "frmyear.tab.hours"},
                                     {"load", "frmyear.tab.load"},
                                     {"table", "frmyear.tab.table"},
                                     {"assumptions", "frmyear.assumptions"}}};
constexpr std::size_t loadChart = 3;

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

}  // namespace

YearPages::YearPages(QWidget* parent) : QWidget(parent) {
    auto* band = new TabBand(TabStrip::Kind::pages, this);
    tabs_ = band->strip();
    tabs_->setObjectName(QStringLiteral("yearTabs"));
    for (const Page& page : pages) tabs_->addKeyed(QLatin1String(page.key), QString());
    stack_ = new QStackedWidget(this);
    for (std::size_t i = 0; i < charts_.size(); ++i) {
        charts_.at(i) = new ChartPane(stack_);
        charts_.at(i)->setObjectName(QStringLiteral("yearChart%1").arg(i));
        connect(charts_.at(i), &ChartPane::categoryClicked, this, &YearPages::binChosen);
        if (i < loadChart) stack_->addWidget(charts_.at(i));
    }
    lists_ = {newList("yearRunning"), newList("yearTable")};
    auto* load = new QWidget(stack_);
    auto* loadColumn = new QVBoxLayout(load);
    loadColumn->setContentsMargins(0, 0, 0, 0);
    loadColumn->setSpacing(0);
    loadColumn->addWidget(charts_[loadChart], 3);
    loadColumn->addWidget(lists_[0], 2);
    load->setFocusProxy(lists_[0]);
    stack_->addWidget(load);
    stack_->addWidget(lists_[1]);
    assumptions_ = new MessagesView(stack_);
    assumptions_->setObjectName(QStringLiteral("yearAssumptions"));
    stack_->addWidget(assumptions_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(band);
    column->addWidget(stack_, 1);
    connect(tabs_, &QTabBar::currentChanged, stack_, &QStackedWidget::setCurrentIndex);
}

ResultsView* YearPages::newList(const char* name) {
    auto* list = new ResultsView(stack_);
    list->setObjectName(QLatin1String(name));
    connect(list, &ResultsView::copyRequested, this, &YearPages::copyRequested);
    connect(list, &ResultsView::rowSelected, this, [this, list] {
        if (const int row = list->selectedRow(); row >= 0 && !isFilling_)
            emit binChosen(static_cast<std::size_t>(row));
    });
    return list;
}

void YearPages::translate() {
    for (std::size_t i = 0; i < pages.size(); ++i)
        tabs_->setTabText(static_cast<int>(i), text(pages.at(i).textKey));
    tabs_->setAccessibleName(text("frmyear.pages"));
    lists_[0]->setAccessibleName(text("frmyear.tab.load"));
    lists_[1]->setAccessibleName(text("frmyear.tab.table"));
    for (ResultsView* list : lists_) list->header()->setAccessibleName(text("frmselection.headings"));
    assumptions_->setAccessibleName(text("frmyear.assumptions"));
}

// In a low page the table needs the room more than the chart, which says less.
void YearPages::resizeEvent(QResizeEvent* event) {
    constexpr int lowBelow = 330;
    QWidget::resizeEvent(event);
    charts_[loadChart]->setVisible(height() >= lowBelow);
}

QWidget* YearPages::page() const { return stack_->currentWidget(); }

void YearPages::step(int by) {
    const int count = tabs_->count();
    tabs_->setCurrentIndex((tabs_->currentIndex() + by + count) % count);
}

void YearPages::show(std::shared_ptr<const YearComparison> years, const YearStyle& style,
                     const QStringList& assumptions) {
    years_ = std::move(years);
    style_ = style;
    fill(*lists_[0], runningSheet(*years_, style));
    fill(*lists_[1], yearSheet(*years_, style));
    assumptions_->clear();
    for (const QString& assumption : assumptions)
        assumptions_->addMessage(mark::information, markText(mark::information), assumption, QString());
}

void YearPages::showCharts() {
    const YearCharts made = yearCharts(*years_, style_, marked_);
    const std::array<const Chart*, 4> shown{&made.energy, &made.cop, &made.hours, &made.load};
    for (std::size_t i = 0; i < charts_.size(); ++i) charts_.at(i)->setChart(*shown.at(i));
}

void YearPages::fill(ResultsView& list, const YearSheet& sheet) {
    isFilling_ = true;
    list.clear();
    std::vector<ResultsView::Column> columns;
    for (const YearSheet::Column& column : sheet.columns) {
        const QString unit = column.unit.empty() ? QString() : u'(' + fromCore(column.unit) + u')';
        columns.push_back({fromCore(column.key), fromCore(column.name) + unit, QString()});
        columns.back().minWidth = 64;
        if (column.isText) columns.back().kind = ResultsModel::Kind::words;
    }
    list.setColumns(columns);
    for (std::size_t row = 0; row < sheet.rows.size(); ++row) {
        QStringList values;
        for (const std::string& cell : sheet.rows[row]) values += fromCore(cell);
        const QString label = values.takeFirst();
        list.addRow({QString::number(row), label, QString(), QString(), values});
    }
    list.fitColumns();
    isFilling_ = false;
}

void YearPages::mark(std::optional<std::size_t> bin) {
    marked_ = bin;
    if (!years_) return;
    showCharts();
    isFilling_ = true;
    if (bin)
        for (ResultsView* list : lists_) list->selectKey(QString::number(*bin));
    isFilling_ = false;
}

std::vector<PrintedCharts> YearPages::onPaper(const QSizeF& size) const {
    constexpr std::size_t hoursChart = 2;
    return {{tabs_->tabText(0), {charts_.front()->onPaper(size)}},
            {tabs_->tabText(static_cast<int>(hoursChart)), {charts_[hoursChart]->onPaper(size)}}};
}

QList<QStringList> YearPages::table() const {
    QList<QStringList> rows{lists_[1]->columnTexts()};
    for (int row = 0; row < lists_[1]->rowCount(); ++row) rows += lists_[1]->rowTexts(row);
    return rows;
}

}  // namespace marvello
