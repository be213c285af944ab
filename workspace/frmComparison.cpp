#include "workspace/frmComparison.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "controls/AdvanceText.h"
#include "controls/Hairline.h"
#include "controls/Link.h"
#include "controls/NumberText.h"
#include "controls/SegmentedSelector.h"
#include "controls/Splitter.h"
#include "results/ComparisonCharts.h"
#include "thermo/EnteredQuantity.h"
#include "workspace/ChartPane.h"
#include "workspace/ComparisonBar.h"
#include "workspace/ComparisonFigures.h"
#include "workspace/ComparisonHeads.h"
#include "workspace/CompressorFiles.h"
#include "workspace/CopiedTable.h"
#include "workspace/EmptyPage.h"
#include "workspace/ExportFile.h"
#include "workspace/ListPrint.h"
#include "workspace/Pane.h"
#include "workspace/SelectionExports.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int titleHeight = 40;
constexpr int minFigures = ComparisonFigures::captionWidth + 2 * ComparisonFigures::minColumnWidth;
constexpr int minCharts = 380;

/// Of the best values, in the status bar and on paper.
const QString bestMark = QStringLiteral("\u2022 ");

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

QLabel* titleLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setFont(lookFont(13, QFont::Medium));
    label->setMinimumHeight(titleHeight);
    label->setContentsMargins(16, 0, 8, 0);
    return label;
}

const char* keyOf(CurveAxis axis) { return axis == CurveAxis::evaporating ? "evaporating" : "condensing"; }

QString nameOf(const ComparedChoice& choice) { return fromCore(choice.serie + '-' + choice.model); }

/// Whether two choices are the same machine run in the same way, wherever.
bool isSameMachine(const ComparedChoice& one, const ComparedChoice& other) {
    ComparedChoice there = one;
    there.conditions = movedTo(one.conditions, pointOf(other.conditions));
    return there == other;
}

}  // namespace

frmComparison::frmComparison(QWidget* parent)
    : Form(parent),
      splitter_(new Splitter(this)),
      figuresPane_(new QWidget(splitter_)),
      chartsPane_(new QWidget(splitter_)),
      empty_(new EmptyPage(this)),
      run_(this) {
    setObjectName(QStringLiteral("frmComparison"));
    setMinimumSize(360, 180);
    setUpPane(*figuresPane_, "figures");
    setUpPane(*chartsPane_, "charts");
    setUpPane(*empty_, "empty");
    makeFigures();
    makeCharts();
    splitter_->SetOrientation(0);
    splitter_->SetChild1(QStringLiteral("figures"));
    splitter_->SetChild2(QStringLiteral("charts"));
    splitter_->SetMinSize1(minFigures);
    splitter_->SetMinSize2(minCharts);
    splitter_->SetSplitterPos(settings::comparisonWidth.value());
    axis_ = settings::comparisonAxis.value() == 1 ? CurveAxis::condensing : CurveAxis::evaporating;
    connectParts();
    Traduci();
    showPages();
    figures_->setFocus();
}

frmComparison::~frmComparison() = default;

void frmComparison::makeFigures() {
    bar_ = new ComparisonBar(figuresPane_);
    figures_ = new ComparisonFigures(figuresPane_);
    figures_->setObjectName(QStringLiteral("comparisonFigures"));
    heads_ = new ComparisonHeads(*figures_, figuresPane_);
    auto* column = new QVBoxLayout(figuresPane_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar_);
    column->addWidget(heads_);
    column->addWidget(new Hairline(figuresPane_));
    column->addWidget(figures_, 1);
}

void frmComparison::makeCharts() {
    limitsTitle_ = titleLabel(chartsPane_);
    limits_ = new ChartPane(chartsPane_);
    limits_->setObjectName(QStringLiteral("comparisonLimits"));
    curvesTitle_ = titleLabel(chartsPane_);
    axes_ = new SegmentedSelector(chartsPane_);
    axes_->setObjectName(QStringLiteral("comparisonAxis"));
    capacity_ = new ChartPane(chartsPane_);
    capacity_->setObjectName(QStringLiteral("comparisonCapacity"));
    cop_ = new ChartPane(chartsPane_);
    cop_->setObjectName(QStringLiteral("comparisonCop"));
    curvesTitle_->setWordWrap(true);
    auto* titles = new QHBoxLayout;
    titles->setContentsMargins(0, 0, 12, 0);
    titles->addWidget(curvesTitle_, 1);
    titles->addWidget(axes_);
    auto* pair = new QHBoxLayout;
    pair->setSpacing(0);
    pair->addWidget(capacity_);
    pair->addWidget(cop_);
    auto* column = new QVBoxLayout(chartsPane_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(limitsTitle_);
    column->addWidget(new Hairline(chartsPane_));
    column->addWidget(limits_, 5);
    column->addWidget(new Hairline(chartsPane_));
    column->addLayout(titles);
    column->addWidget(new Hairline(chartsPane_));
    column->addLayout(pair, 4);
}

void frmComparison::connectParts() {
    connect(figures_, &ComparisonFigures::columnsChanged, heads_, &ComparisonHeads::layOut);
    connect(figures_, &ComparisonFigures::copyRequested, this, &frmComparison::CopyToClipBoard);
    connect(heads_, &ComparisonHeads::takenOut, this, &frmComparison::takeOut, Qt::QueuedConnection);
    connect(heads_, &ComparisonHeads::moved, this, &frmComparison::move, Qt::QueuedConnection);
    connect(heads_, &ComparisonHeads::stepped, this, &frmComparison::step, Qt::QueuedConnection);
    connect(heads_, &ComparisonHeads::menuRequested, this, &frmComparison::openMenu);
    connect(&heads_->addLink(), &Link::clicked, this, [this] {
        const Link& link = heads_->addLink();
        emit addRequested(link.mapToGlobal(QPoint(0, link.height())));
    });
    connect(empty_, &EmptyPage::linkClicked, this,
            [this] { emit addRequested(empty_->mapToGlobal(empty_->rect().center())); });
    connect(bar_, &ComparisonBar::sameChosen, this, &frmComparison::setSamePoint);
    connect(bar_, &ComparisonBar::pointTyped, this, &frmComparison::setPoint);
    connect(bar_, &ComparisonBar::referenceChosen, this, [this](const auto& reference) {
        reference_ = reference;
        relist();
    });
    connect(axes_, &SegmentedSelector::chosenByUser, this, [this](const QString& key) {
        axis_ = key == QLatin1String(keyOf(CurveAxis::condensing)) ? CurveAxis::condensing
                                                                   : CurveAxis::evaporating;
        settings::comparisonAxis.keep(axis_ == CurveAxis::condensing ? 1 : 0);
        recalculate();
    });
    connect(splitter_, &Splitter::moved, this,
            [this] { settings::comparisonWidth.keep(splitter_->SplitterPos()); });
    connect(&run_, &ComparisonRun::compared, this, &frmComparison::compared);
    connect(&run_, &ComparisonRun::drawn, this, [this](const std::vector<Curve>& curves) {
        curves_ = curves;
        showCharts();
    });
    connect(&run_, &ComparisonRun::failed, this, [this](const QString& reason) {
        failure_ = filled(text("frmcomparison.failed"), {reasonText(reason)});
        comparison_.reset();
        showPages();
    });
}

void frmComparison::Traduci() {
    bar_->translate();
    heads_->translate();
    figures_->setAccessibleName(text("frmcomparison.table"));
    limitsTitle_->setText(text("frmcomparison.limits"));
    axes_->setChoices(
        {{QLatin1String(keyOf(CurveAxis::evaporating)), text("frmselection.txtted.captiontext")},
         {QLatin1String(keyOf(CurveAxis::condensing)), text("frmselection.txttcd.captiontext")}});
    axes_->setChosen(QLatin1String(keyOf(axis_)));
    axes_->setAccessibleName(text("frmcomparison.axis"));
    relist();
    showPages();
}

void frmComparison::MeasureUnits(int unit, bool refresh) {
    units_ = unit == 1 ? UnitSystem::imperial : UnitSystem::metric;
    if (refresh) relist();
}

frmComparison::Added frmComparison::add(const std::vector<ComparedChoice>& choices) {
    Added added;
    for (const ComparedChoice& choice : choices) {
        const bool isThere = std::ranges::any_of(choices_.all(), [&](const ComparedChoice& each) {
            return same_ ? isSameMachine(each, choice) : each == choice;
        });
        if (isThere) {
            added.note = filled(text("frmcomparison.already"), {nameOf(choice)});
        } else if (choices_.all().size() == maxCompared) {
            added.refusal = filled(text("frmcomparison.full"), {nameOf(choice)});
            break;
        } else {
            choices_.add(choice);
            added.note =
                filled(text("frmcomparison.added"), {nameOf(choice), QString::number(choices_.all().size())});
        }
    }
    recalculate();
    emit choicesChanged();
    return added;
}

void frmComparison::remove(const ComparedChoice& choice) {
    const auto found = std::ranges::find(choices_.all(), choice) - choices_.all().begin();
    if (found < std::ssize(choices_.all())) takeOut(choices_.numbers()[static_cast<std::size_t>(found)]);
}

void frmComparison::takeOut(int number) {
    const bool isInHeads = heads_->focusedPlace().has_value();
    const auto place = choices_.placeOf(number);
    if (!choices_.takeOut(number)) return;
    if (reference_ == number) reference_.reset();
    recalculate();
    emit choicesChanged();
    if (choices_.all().empty())
        setFocus();
    else if (isInHeads)  // to the one that takes its place
        if (const auto next =
                shownPlaceOf(choices_.numbers()[std::min(*place, choices_.numbers().size() - 1)]))
            heads_->focusPlace(static_cast<std::ptrdiff_t>(*next));
}

void frmComparison::move(int number, int intoPlaceOf) {
    if (choices_.move(number, intoPlaceOf)) recalculate();
}

void frmComparison::step(int number, int by) {
    if (choices_.step(number, by)) recalculate();
}

std::optional<std::size_t> frmComparison::shownPlaceOf(int number) const {
    const auto found = std::ranges::find(shown_, number);
    if (found == shown_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - shown_.begin());
}

std::optional<int> frmComparison::machineInUse() const {
    const int place = figures_->currentMachine();
    if (!figures_->hasFocus() || place < 0 || place >= std::ssize(shown_)) return std::nullopt;
    return shown_[static_cast<std::size_t>(place)];
}

void frmComparison::openMenu(int number, const QPoint& place) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto addEntry = [&](const char* key, const QKeySequence& keys, bool isEnabled, auto act) {
        QAction* entry = menu->addAction(text(key));
        entry->setShortcut(keys);
        entry->setShortcutVisibleInContextMenu(true);
        entry->setEnabled(isEnabled);
        connect(entry, &QAction::triggered, this, act);
    };
    const auto& numbers = choices_.numbers();
    addEntry("frmcomparison.moveleft", Qt::ALT | Qt::Key_Left, number != numbers.front(),
             [this, number] { step(number, -1); });
    addEntry("frmcomparison.moveright", Qt::ALT | Qt::Key_Right, number != numbers.back(),
             [this, number] { step(number, 1); });
    addEntry("frmcomparison.takeout", Qt::Key_Delete, true, [this, number] { takeOut(number); });
    menu->popup(place);
}

void frmComparison::setSamePoint(bool isSame) {
    same_.reset();
    if (isSame && !choices_.all().empty()) same_ = pointOf(choices_.all().front().conditions);
    recalculate();
}

void frmComparison::setPoint(const OperatingPoint& point) {
    same_ = point;
    recalculate();
}

std::vector<ComparedChoice> frmComparison::calculated() const {
    std::vector<ComparedChoice> choices = choices_.all();
    if (same_)
        for (ComparedChoice& choice : choices) choice.conditions = movedTo(choice.conditions, *same_);
    return choices;
}

void frmComparison::recalculate() {
    failure_.clear();
    if (choices_.all().empty()) {
        run_.stop();
        comparison_.reset();
        curves_.clear();
        same_.reset();
        reference_.reset();
        relist();
        showPages();
        return;
    }
    run_.start(calculated(), axis_);
    emit stateChanged();
}

void frmComparison::compared(const std::shared_ptr<const Comparison>& comparison) {
    const int place = figures_->currentMachine();
    const auto inUse = place < 0 || place >= std::ssize(shown_)
                           ? std::nullopt
                           : std::optional(shown_[static_cast<std::size_t>(place)]);
    comparison_ = comparison;
    shown_ = choices_.numbers();  // nothing changes them without a newer run
    curves_.clear();
    relist();
    if (const auto now = inUse ? shownPlaceOf(*inUse) : std::nullopt)
        figures_->setCurrentMachine(static_cast<int>(*now));
    showPages();
}

ComparisonStyle frmComparison::style() const {
    return {units_, marksOf(QLocale()), reference_ ? shownPlaceOf(*reference_) : std::nullopt};
}

const ComparisonTable& frmComparison::table() const { return figures_->table(); }

void frmComparison::relist() {
    if (!comparison_) {
        emit stateChanged();
        return;
    }
    const ComparisonStyle shown = style();
    const ComparisonTable table = comparisonTable(*comparison_, shown);
    std::vector<QImage> photos;
    for (const ComparedMachine& machine : comparison_->machines)
        photos.push_back(readPhoto(fromCore(machine.choice.serie), fromCore(machine.choice.model)));
    figures_->setTable(table, text("frmcomparison.best"));
    heads_->setHeads(table.heads, shown_, photos);
    bar_->showPoint(pointOf(comparison_->machines.front().choice.conditions), same_.has_value(), units_);
    bar_->showReference(table.heads, shown_, shown.reference);
    showCharts();
    emit stateChanged();
}

QString frmComparison::curvesTitle() const {
    const bool isEvaporating = axis_ == CurveAxis::evaporating;
    const auto point = comparison_->samePoint();
    const QString caption =
        text(isEvaporating ? "frmselection.txttcd.captiontext" : "frmselection.txtted.captiontext");
    if (!point)
        return filled(text(isEvaporating ? "frmcomparison.curves.evaporating.own"
                                         : "frmcomparison.curves.condensing.own"),
                      {caption});
    const double other =
        convertedTemperature(isEvaporating ? point->tcd : point->ted, UnitSystem::metric, units_);
    return filled(
        text(isEvaporating ? "frmcomparison.curves.evaporating" : "frmcomparison.curves.condensing"),
        {caption + u' ' + fromCore(formatNumber(other, "#0.0", marksOf(QLocale()))) + u' ' +
         fromCore(unitText(Quantity::temperature, units_))});
}

void frmComparison::showCharts() {
    if (!comparison_) return;
    curvesTitle_->setText(curvesTitle());
    limits_->setChart(limitsChart(*comparison_, units_));
    if (curves_.size() != comparison_->machines.size()) return;  // they follow
    capacity_->setChart(curvesChart(*comparison_, curves_, axis_, Figure::capacity, units_));
    cop_->setChart(curvesChart(*comparison_, curves_, axis_, Figure::cop, units_));
}

void frmComparison::showPages() {
    const bool isEmpty = !hasResults();
    if (!failure_.isEmpty())
        empty_->setTexts(text("formselection.comparison"), failure_, {}, {});
    else
        empty_->setTexts(text("frmcomparison.empty.title"), text("frmcomparison.empty.text"),
                         withoutAccessKey(text("mdimain.menu.cpspopup.compare")),
                         QKeySequence(Qt::CTRL | Qt::Key_Return).toString(QKeySequence::NativeText));
    empty_->setLinks({text("frmcomparison.add")});
    empty_->setVisible(isEmpty);
    splitter_->setVisible(!isEmpty);
    emit stateChanged();
}

void frmComparison::resizeEvent(QResizeEvent*) {
    splitter_->setGeometry(rect());
    empty_->setGeometry(rect());
    heads_->updateGeometry();
}

void frmComparison::keyPressEvent(QKeyEvent* event) {
    const auto machine = machineInUse();
    const bool isAlt = event->modifiers() == Qt::AltModifier;
    if (event->key() == Qt::Key_F5)
        recalculate();
    else if (event->key() == Qt::Key_F6)
        goRound({bar_, heads_, figures_, axes_});
    else if (event->key() == Qt::Key_F1)
        emit guideRequested();
    else if (event->key() == Qt::Key_Delete && machine)
        takeOut(*machine);
    else if (isAlt && event->key() == Qt::Key_Left && machine)
        step(*machine, -1);
    else if (isAlt && event->key() == Qt::Key_Right && machine)
        step(*machine, 1);
    else
        Form::keyPressEvent(event);
}

QList<QStringList> frmComparison::textRows(const QString& bestMark) const {
    const ComparisonTable& shown = table();
    QList<QStringList> rows{{QString()}};
    for (const ComparedHead& head : shown.heads) rows.front() += fromCore(head.label());
    std::vector<bool> isSaid(shown.heads.size());  // whether the error of a machine is
    for (const ComparedGroup& group : shown.groups) {
        rows += QStringList{fromCore(group.caption)};
        for (const ComparedRow& row : group.rows) {
            rows += QStringList{fromCore(row.captionWithUnit())};
            for (std::size_t i = 0; i < row.cells.size(); ++i) {
                const ComparedCell& cell = row.cells[i];
                const bool isError = cell.isEmpty() && !shown.heads[i].error.empty() && !isSaid[i];
                isSaid[i] = isSaid[i] || isError;
                QString words = cell.isBest ? bestMark : QString();
                words += fromCore(isError ? shown.heads[i].error : cell.text);
                if (!cell.difference.empty()) words += QStringLiteral(" (%1)").arg(fromCore(cell.difference));
                rows.back() += words;
            }
        }
    }
    return rows;
}

void frmComparison::CopyToClipBoard() {
    if (!hasResults()) return;
    QList<QStringList> rows = textRows({});
    QString copied;
    for (const QStringList& row : rows) copied += row.join(u'\t') + QStringLiteral("\r\n");
    CopiedTable table{rows.takeFirst(), rows, 1};
    copyTable(copied, table);
}

void frmComparison::ExportCPS() {
    if (!hasResults()) return;
    const auto file =
        chooseExportFile(this, {ExportFile::Form::csv}, text("formselection.comparison").trimmed());
    if (!file) return;
    const std::string csv = comparisonCsv(table(), reference_.has_value(), toCore(QLocale().decimalPoint()));
    const QString path = file->path;
    if (const QString failure = writeExport(csv, *file); !failure.isEmpty())
        sayNotWritten(path, failure, this);
    else
        emit exported(filled(text("frmcomparison.exported"), {path}));
}

std::vector<PrintedCharts> frmComparison::printedCharts() const {
    constexpr double headings = 40;
    constexpr double half = (PrintedList::height - headings) / 2;
    const QSizeF whole(PrintedList::width, half);
    const QSizeF side(PrintedList::width / 2 - 8, half);
    std::vector<PrintedCharts> charts{{limitsTitle_->text(), {limits_->onPaper(whole)}}};
    if (curves_.size() == comparison_->machines.size())
        charts.push_back({curvesTitle(), {capacity_->onPaper(side), cop_->onPaper(side)}});
    return charts;
}

void frmComparison::PrintReport(bool preview) {
    if (!hasResults()) return;
    QList<QStringList> rows = textRows(bestMark);
    PrintedList list{.title = text("formselection.comparison").trimmed(),
                     .conditions = {counts()},
                     .columns = rows.takeFirst(),
                     .rows = rows,
                     .wordColumns = {0},
                     .charts = printedCharts()};
    printList(list, preview, window());
}

QString frmComparison::subject() const {
    return filled(text("frmcomparison.count"), {QString::number(choices_.all().size())});
}

QString frmComparison::counts() const {
    const auto point = comparison_->samePoint();
    const QString best = bestMark + text("frmcomparison.best");
    if (!point) return best;
    return fromCore(pointText(*point, style()) + " \u00B7 " + gasText(*point, style())) +
           QStringLiteral("   ") + best;
}

}  // namespace marvello
