#include "workspace/FoundPane.h"

#include <QAction>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "controls/FilterChip.h"
#include "controls/Icons.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/Marks.h"
#include "controls/NumberText.h"
#include "controls/WrapBar.h"
#include "controls/ctlCombo.h"
#include "data/CollectedBoxes.h"
#include "workspace/CompressorPages.h"
#include "workspace/CopiedTable.h"
#include "workspace/ListPrint.h"
#include "workspace/RefrigerantDetail.h"
#include "workspace/RejectedCompressors.h"
#include "workspace/ResultMarks.h"
#include "workspace/SearchTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int rejectedLineHeight = 32;
constexpr int minColumnWidth = 70;
constexpr int markSize = 14;

/// Covers what must not be read as valid.
class Veil : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        QColor ground = Look::current().surface;
        ground.setAlphaF(0.65F);
        QPainter(this).fillRect(rect(), ground);
    }
};

ResultsModel::Kind kindOf(const std::string& column) {
    if (column == foundColumn::refrigerant || column == foundColumn::nearestLimit)
        return ResultsModel::Kind::words;
    return column == foundColumn::deviation ? ResultsModel::Kind::deviation : ResultsModel::Kind::number;
}

/// The names by which the settings know the filters.
struct FilterName {
    FoundFilter filter;
    const char* name;
    const char* textKey;
};
constexpr std::array<FilterName, 6> filterNames{
    {{FoundFilter::bestOfEach, "best", "find.filter.best"},
     {FoundFilter::withoutWarnings, "nowarnings", "find.filter.nowarnings"},
     {FoundFilter::oneMachine, "onemachine", "find.filter.onemachine"},
     {FoundFilter::onInverter, "inverter", "find.filter.inverter"},
     {FoundFilter::lowGwp, "lowgwp", "find.filter.lowgwp"},
     {FoundFilter::notFlammable, "notflammable", "find.filter.notflammable"}}};

}  // namespace

FoundPane::FoundPane(const SelectionInputs& inputs, QWidget* parent)
    : ListPane(inputs, parent), veil_(new Veil(this)) {
    lvCps_->setColumnMenu();
    makeChips();
    makeRejectedLine();
    addToPopUp("find.open", Needs::nothing, [this] { emit opened(); });
    veil_->hide();
    SetMinSize1(minListHeight + around());
    connect(lvCps_, &ResultsView::headingClicked, this, &FoundPane::sortBy);
    connect(lvCps_, &ResultsView::columnMenuRequested, this, &FoundPane::openColumnMenu);
    connect(lvCps_, &QAbstractItemView::activated, this, &FoundPane::opened);
}

void FoundPane::makeChips() {
    bar_ = new WrapBar(this);
    auto* shown = new QButtonGroup(this);
    const auto add = [this](FilterChip* chip, const QString& name) {
        chip->setObjectName(QStringLiteral("chip_") + name);
        bar_->add(chip, FilterChip::ring);
        connect(chip, &FilterChip::toggled, this, [this] { relist(); });
    };
    all_ = new FilterChip(bar_);
    for (std::size_t i = 0; i < chips_.size(); ++i) {
        const auto& [filter, name, textKey] = filterNames.at(i);
        chips_[i] = {filter, name, textKey, new FilterChip(bar_)};
        add(chips_[i].button, QLatin1String(name));
        if (filter != FoundFilter::bestOfEach) continue;
        add(all_, QStringLiteral("all"));
        bar_->addSeparator();
        shown->addButton(chips_[i].button);
        shown->addButton(all_);
        const QSignalBlocker quiet(chips_[i].button);
        chips_[i].button->setChecked(true);
    }
    makeChoiceChips();
    listColumn_->insertWidget(0, bar_);
}

void FoundPane::makeChoiceChips() {
    constexpr std::array<std::pair<FoundFact, const char*>, 3> facts{
        {{FoundFact::refrigerant, "find.column.refrigerant"},
         {FoundFact::safetyClass, "find.filter.safetyclass"},
         {FoundFact::series, "frmselection.lstseries.captiontext"}}};
    for (std::size_t i = 0; i < choiceChips_.size(); ++i) {
        const auto& [fact, textKey] = facts.at(i);
        ChoiceChip& chip = choiceChips_[i];
        chip = {fact, textKey, new FilterChip(bar_)};
        chip.button->setOpensList();
        chip.button->setObjectName(QStringLiteral("chip_fact%1").arg(i));
        bar_->add(chip.button, FilterChip::ring);
        connect(chip.button, &FilterChip::clicked, this, [this, &chip] { openChoice(chip); });
    }
}

void FoundPane::openChoice(ChoiceChip& chip) {
    if (!result_) return;
    if (!choiceList_) {
        choiceList_ = new ctlCombo(window());
        choiceList_->setObjectName(QStringLiteral("lstFacts"));
        connect(choiceList_, &ctlCombo::Choice, this,
                [this](const QString& keys) { choose(*opened_, keys); });
        connect(choiceList_, &ctlCombo::Closed, this,
                [this] { opened_->button->setFocus(Qt::PopupFocusReason); });
    }
    choiceList_->hide();
    opened_ = &chip;
    QString values = QStringLiteral("*|") + dictionaryText(QStringLiteral("frmselection.models.all"));
    for (const std::string& value : valuesOf(*result_, chip.fact)) values += u';' + fromCore(value);
    QStringList chosen;
    for (const std::string& value : chip.chosen) chosen += fromCore(value);
    choiceList_->Populate(values, chosen.isEmpty() ? QStringLiteral("*") : chosen.join(u';'), false, true);
    if (chip.fact == FoundFact::refrigerant)
        choiceList_->setDetails([this](const QString& key) {
            return key == u"*" ? RowDetail() : refrigerantDetail(key, inputs_.units());
        });
    choiceList_->SetCaption(dictionaryText(QLatin1String(chip.textKey)));
    choiceList_->setApplyText(dictionaryText(QStringLiteral("frmselection.apply")));
    constexpr int leastWidth = 240;
    QRect box(chip.button->mapToGlobal(QPoint()), chip.button->size());
    box.setWidth(std::max(box.width(), leastWidth));
    choiceList_->openUnder(box);
}

void FoundPane::choose(ChoiceChip& chip, const QString& keys) {
    chip.chosen.clear();
    for (const QString& key : keys.split(u';', Qt::SkipEmptyParts))
        if (key != u"*") chip.chosen.insert(toCore(key));
    refreshChoice(chip);
    relist();
}

void FoundPane::refreshChoice(const ChoiceChip& chip) {
    constexpr std::size_t mostNamed = 3;
    QString text = dictionaryText(QLatin1String(chip.textKey));
    if (!chip.chosen.empty()) {
        QStringList names;
        for (const std::string& value : chip.chosen) names += fromCore(value);
        text += QStringLiteral(": ") + (chip.chosen.size() > mostNamed ? QString::number(chip.chosen.size())
                                                                       : names.join(QStringLiteral(", ")));
    }
    chip.button->setChecked(!chip.chosen.empty());
    chip.button->setFilter(text,
                           chip.chosen.empty() || !result_ ? -1 : countOf(*result_, chip.fact, chip.chosen));
}

FoundChoices FoundPane::choices() const {
    FoundChoices choices;
    for (const ChoiceChip& chip : choiceChips_) choices[chip.fact] = chip.chosen;
    return choices;
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
    return bar_->controls() + QList<QWidget*>{lvCps_, lvCps_->header(), rejectedLink_, pages_->tabs()};
}

void FoundPane::translate() {
    all_->setText(dictionaryText(QStringLiteral("find.filter.all")));
    for (const Chip& chip : chips_) chip.button->setText(dictionaryText(QLatin1String(chip.textKey)));
    lvCps_->setEmptyText(dictionaryText(QStringLiteral("find.filtered")));
    ListPane::translate();
    refreshChips();
    refreshRejected();
}

void FoundPane::showResult(const std::shared_ptr<const FindResult>& result, const FindRequest& request) {
    if (const Candidate* before = selected()) kept_ = fromCore(foundKey(*before));
    rows_.clear();
    lvCps_->clear();
    result_ = result;
    request_ = request;
    // What the new solutions do not have is no choice any more.
    for (ChoiceChip& chip : choiceChips_) {
        const std::set<std::string> values = valuesOf(*result, chip.fact);
        std::erase_if(chip.chosen, [&](const std::string& value) { return !values.contains(value); });
    }
    setOutdated(false);
    refreshChips();
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

FoundFilters FoundPane::chosenFilters() const {
    FoundFilters filters;
    for (const Chip& chip : chips_)
        if (chip.button->isChecked()) filters.insert(chip.filter);
    return filters;
}

FoundStyle FoundPane::style() const { return {inputs_.units(), marksOf(QLocale())}; }

bool FoundPane::isHidden(const std::string& column) const { return hidden_.contains(fromCore(column)); }

std::vector<ResultsView::Column> FoundPane::viewColumns() const {
    std::vector<ResultsView::Column> columns;
    for (const ResultColumn& column : columns_)
        if (!isHidden(column.key))
            columns.push_back({fromCore(column.key), fromCore(column.caption()), fromCore(column.description),
                               kindOf(column.key), request_.below, request_.above, minColumnWidth});
    return columns;
}

ResultsView::Row FoundPane::viewRow(const FoundRow& row) const {
    const QString mark = markOf(row.verdict);
    ResultsView::Row shown{fromCore(foundKey(*row.candidate)), fromCore(row.label), mark, markText(mark), {}};
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        const std::string& key = columns_[i + 1].key;
        if (isHidden(key)) continue;
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
        if (!isHidden(column.key)) captions += fromCore(column.unit.empty() ? column.name : column.caption());
    return captions;
}

QStringList FoundPane::cellsOf(const Candidate& candidate) const {
    const FoundRow row = foundRow(*result_, candidate, style());
    QStringList cells{fromCore(row.label)};
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        const std::string& key = columns_[i + 1].key;
        if (isHidden(key)) continue;
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
    rows_ = listed(*result_, chosenFilters(), order_, choices());
    lvCps_->setColumns(viewColumns());
    for (const Candidate* candidate : rows_) lvCps_->addRow(viewRow(foundRow(*result_, *candidate, style())));
    lvCps_->markSorted(fromCore(order_.column), order_.isDescending);
    lvCps_->fitColumns();
    bar_->layOut();
    if (!lvCps_->selectKey(kept_)) lvCps_->selectRow(0);
    fillPage();
    emit selectionChanged();
}

// The counts are those of all solutions: they stand still while filters change.
void FoundPane::refreshChips() {
    const auto count = [this](FoundFilter filter) { return result_ ? countOf(*result_, filter) : 0; };
    for (const Chip& chip : chips_) chip.button->setFilter(chip.button->text(), count(chip.filter));
    all_->setFilter(all_->text(), result_ ? static_cast<int>(result_->candidates.size()) : 0);
    for (const ChoiceChip& chip : choiceChips_) refreshChoice(chip);
    bar_->layOut();
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

void FoundPane::openColumnMenu(const QPoint& place) {
    QMenu menu(this);
    for (const ResultColumn& column : columns_) {
        if (column.key == nameColumn) continue;
        QAction* entry = menu.addAction(fromCore(column.name));
        const QString key = fromCore(column.key);
        entry->setCheckable(true);
        entry->setChecked(!hidden_.contains(key));
        connect(entry, &QAction::toggled, this, [this, key](bool isShown) {
            if (isShown)
                hidden_.removeAll(key);
            else
                hidden_ += key;
            relist();
        });
    }
    menu.exec(place);
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
        if (isHidden(each.key)) continue;
        if (column == 0 || kindOf(each.key) == ResultsModel::Kind::words) list.wordColumns += column;
        ++column;
    }
    printList(list, preview, window());
}

RowSet FoundPane::records() const { return foundRecords(*result_, rows_, style()); }

QStringList FoundPane::filters() const {
    QStringList names;
    for (const Chip& chip : chips_)
        if (chip.button->isChecked()) names += QLatin1String(chip.name);
    return names;
}

void FoundPane::setFilters(const QStringList& names) {
    for (const Chip& chip : chips_) {
        const QSignalBlocker quiet(chip.button);
        chip.button->setChecked(names.contains(QLatin1String(chip.name)));
    }
    if (!chips_.front().button->isChecked()) all_->setChecked(true);
    relist();
}

void FoundPane::setHiddenColumns(const QStringList& keys) {
    hidden_ = keys;
    relist();
}

}  // namespace marvello
