#include "workspace/frmYear.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLocale>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "controls/AdvanceText.h"
#include "controls/CoreText.h"
#include "controls/Hairline.h"
#include "controls/Link.h"
#include "controls/MessageBox.h"
#include "controls/NumberText.h"
#include "controls/Splitter.h"
#include "controls/TabStrip.h"
#include "controls/ctlBtn.h"
#include "data/FileText.h"
#include "data/Session.h"
#include "results/YearSheet.h"
#include "workspace/Commands.h"
#include "workspace/ComparisonFigures.h"
#include "workspace/CopiedTable.h"
#include "workspace/EmptyPage.h"
#include "workspace/ExportFile.h"
#include "workspace/Pane.h"
#include "workspace/SelectionExports.h"
#include "workspace/Settings.h"
#include "workspace/Veil.h"
#include "workspace/WindowTexts.h"
#include "workspace/YearBins.h"
#include "workspace/YearPages.h"
#include "workspace/YearPanel.h"
#include "workspace/YearPrint.h"
#include "workspace/YearTop.h"
#include "workspace/frmpG.h"

namespace marvello {

namespace {

// Milliseconds.
constexpr int pauseOfTyping = 150;
constexpr int pauseOfNames = 400;  // a name is longer on its way
constexpr int beforeProgress = 300;
constexpr int betweenProgress = 100;

constexpr int minTop = 120;
constexpr int roomForSide = 600;
constexpr int minPages = 200;
constexpr int minResults = 320;

/// Of the best values, in the status bar and on paper.
const QString bestMark = QStringLiteral("\u2022 ");

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

/// The options without what a year finds by itself.
clsProjectConditions optionsOf(clsProjectConditions conditions) {
    const clsProjectConditions first = conditionsAt(0, 0);
    conditions.TEvaporatingDew = first.TEvaporatingDew;
    conditions.TCondensationDew = first.TCondensationDew;
    conditions.StepCapacity = first.StepCapacity;
    conditions.InverterFrequency = first.InverterFrequency;
    return conditions;
}

std::string firstMachine(const Plant& plant) {
    return plant.refrigerant() + ' ' + machineName(*plant.machines.front().compressor);
}

QStringList fromCore(const std::vector<std::string>& texts) {
    QStringList result;
    for (const std::string& each : texts) result += marvello::fromCore(each);
    return result;
}

}  // namespace

frmYear::frmYear(QWidget* parent)
    : Form(parent),
      tables_(yearTables()),
      inputs_(keptYearInputs(tables_)),
      catalogue_(preparedCatalogue(gDatabase())),
      splitter_(new Splitter(this)),
      panelPane_(new QWidget(splitter_)),
      panel_(new YearPanel(inputs_, tables_, panelPane_)),
      results_(new Splitter(splitter_)),
      top_(new QWidget(results_)),
      figures_(new ComparisonFigures(top_)),
      heads_(new YearHeads(*figures_, top_)),
      side_(new YearSide(top_)),
      pages_(new YearPages(results_)),
      empty_(new EmptyPage(splitter_)),
      veil_(new Veil(results_)),
      pause_(new QTimer(this)),
      patience_(new QTimer(this)),
      follow_(new QTimer(this)),
      run_(this) {
    setObjectName(QStringLiteral("frmYear"));
    setMinimumSize(360, 180);
    makePanes();
    makeResults();
    connectParts();
    makeKeys();
    offerPlants();
    Traduci();
    showPlants();
    calculate();
    panel_->plant(0)->setFocus();
}

frmYear::~frmYear() = default;

void frmYear::makePanes() {
    setUpPane(*panelPane_, "yearInputs");
    setUpPane(*results_, "yearResults");
    setUpPane(*empty_, "yearEmpty");
    auto* inside = new QVBoxLayout(panelPane_);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(panel_);
    splitter_->SetOrientation(0);
    splitter_->SetChild1(QStringLiteral("yearInputs"));
    splitter_->SetChild2(QStringLiteral("yearEmpty"));
    splitter_->SetMinSize1(InputsFold::minWidth);
    splitter_->SetMaxSize(InputsFold::maxWidth);
    splitter_->SetMinSize2(minResults);
    splitter_->SetSplitterPos(settings::yearWidth.value());
}

void frmYear::makeResults() {
    setUpPane(*top_, "yearTop");
    setUpPane(*pages_, "yearPages");
    constexpr int captions = 180;
    figures_->setCaptionWidth(captions);
    figures_->setObjectName(QStringLiteral("yearFigures"));
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(heads_);
    column->addWidget(figures_, 1);
    topRow_ = new QHBoxLayout(top_);
    topRow_->setContentsMargins(0, 0, 0, 0);
    topRow_->setSpacing(0);
    topRow_->addLayout(column, 3);
    topRow_->addWidget(new Hairline(top_));
    topRow_->addWidget(side_, 2);
    results_->SetOrientation(1);
    results_->SetChild1(QStringLiteral("yearTop"));
    results_->SetChild2(QStringLiteral("yearPages"));
    results_->SetMinSize1(minTop);
    results_->SetMinSize2(minPages);
    results_->SetSplitterPos(settings::yearHeight.value());
    results_->hide();
    veil_->hide();
}

void frmYear::connectParts() {
    for (QTimer* once : {pause_, patience_}) once->setSingleShot(true);
    connect(pause_, &QTimer::timeout, this, &frmYear::calculate);
    connect(patience_, &QTimer::timeout, this, &frmYear::showProgress);
    connect(follow_, &QTimer::timeout, this, [this] {
        if (progress_) progress_->setPercent(run_.percent());
    });
    connect(panel_, &YearPanel::edited, this, [this] { changed(pauseOfTyping); });
    connect(panel_, &YearPanel::plantEdited, this, &frmYear::plantTyped);
    connect(panel_, &YearPanel::fileWanted, this, &frmYear::openFile, Qt::QueuedConnection);
    connect(panel_->lnkCalculate, &ctlBtn::clicked, this, &frmYear::calculate);
    connect(panel_->lnkDefaults, &Link::clicked, this, &frmYear::takeDefaults);
    connect(&panel_->bins(), &YearBins::chosenByUser, this, [this] {
        pages_->mark(panel_->bins().chosen());
        emit stateChanged();
    });
    connect(pages_, &YearPages::binChosen, &panel_->bins(), &YearBins::choose);
    connect(pages_, &YearPages::copyRequested, this, &frmYear::CopyToClipBoard);
    connect(figures_, &ComparisonFigures::copyRequested, this, &frmYear::CopyToClipBoard);
    connect(splitter_, &Splitter::moved, this, [this] {
        if (isCollapsed()) return;
        splitter_->SetMinSize1(InputsFold::minWidth);  // the bar was dragged out of its corner
        settings::yearWidth.keep(splitter_->SplitterPos());
        layOut();
        emit stateChanged();
    });
    connect(results_, &Splitter::moved, this, [this] { settings::yearHeight.keep(results_->SplitterPos()); });
    connect(&run_, &YearRun::calculated, this, &frmYear::calculated);
    connect(&run_, &YearRun::failed, this, [this](const QString& reason) {
        hideProgress();
        failure_ = filled(text("frmyear.failed"), {reasonText(reason)});
        years_.reset();
        showPages();
    });
}

void frmYear::makeKeys() {
    const auto onKey = [this](const QKeySequence& keys, auto act) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    onKey(Qt::Key_F5, [this] { recalculate(); });
    onKey(Qt::Key_F6, [this] {
        QList<QWidget*> parts{panel_};
        if (results_->isVisible()) parts += {figures_, side_, pages_->tabs(), pages_->page()};
        goRound(parts);
    });
    onKey(Qt::CTRL | Qt::Key_PageDown, [this] { pages_->step(1); });
    onKey(Qt::CTRL | Qt::Key_PageUp, [this] { pages_->step(-1); });
    onKey(Qt::Key_F1, [this] { emit guideRequested(); });
}

void frmYear::offerPlants() {
    QStringList names;
    for (const PreparedCompressor& compressor : catalogue_->compressors())
        names += marvello::fromCore(textOf(Plant{{{&compressor, 1}}}));
    panel_->offerPlants(names.join(u';'));
}

void frmYear::Traduci() {
    panel_->translate();
    pages_->translate();
    figures_->setAccessibleName(text("frmyear.table"));
    relist();
    showPages();
}

void frmYear::MeasureUnits(int unit, bool) {
    units_ = unit == 1 ? UnitSystem::imperial : UnitSystem::metric;
    panel_->setUnits(units_);
    relist();
}

frmYear::Added frmYear::add(const std::vector<ComparedChoice>& choices) {
    Added added;
    for (const ComparedChoice& choice : choices) {
        const PreparedCompressor* const found =
            catalogue_->find(choice.refrigerant, choice.serie, choice.model);
        if (!found) continue;
        const Plant plant{{{found, choice.machines}}};
        const Typed typed{marvello::fromCore(textOf(plant)), optionsOf(choice.conditions),
                          firstMachine(plant)};
        const QString name = marvello::fromCore(plantName(plant));
        const bool isThere = std::ranges::any_of(typed_, [&](const Typed& other) {
            return other.text == typed.text && other.conditions == typed.conditions;
        });
        const auto free =
            std::ranges::find_if(typed_, [](const Typed& other) { return other.text.trimmed().isEmpty(); });
        if (isThere) {
            added.note = filled(text("frmyear.already"), {name});
        } else if (free == typed_.end()) {
            added.refusal = filled(text("frmyear.full"), {name});
            break;
        } else {
            *free = typed;
            added.note = filled(text("frmyear.added"), {name, QString::number(free - typed_.begin() + 1)});
        }
    }
    showPlants();
    calculate();
    return added;
}

bool frmYear::isCalculating() const { return pause_->isActive() || run_.isRunning(); }

/// One field more than there are plants.
void frmYear::showPlants() {
    std::size_t used = 0;
    for (std::size_t i = 0; i < typed_.size(); ++i) {
        AdvanceText& field = *panel_->plant(i);
        if (field.TextText() != typed_.at(i).text) field.SetTextValue(typed_.at(i).text);
        if (!typed_.at(i).text.trimmed().isEmpty()) used = i + 1;
    }
    panel_->showPlants(std::min(used + 1, typed_.size()));
}

void frmYear::plantTyped(std::size_t place) {
    Typed& typed = typed_.at(place);
    typed.text = panel_->plant(place)->TextText();
    if (typed.text.trimmed().isEmpty()) typed = {};
    showPlants();
    changed(pauseOfNames);
}

void frmYear::changed(int pause) {
    run_.stop();
    patience_->stop();
    setOutdated(true);
    pause_->start(pause);
    emit stateChanged();
}

void frmYear::recalculate() { calculate(); }

std::vector<YearChoice> frmYear::readPlants() {
    std::vector<YearChoice> choices;
    std::string usual;
    for (std::size_t i = 0; i < typed_.size(); ++i) {
        AdvanceText& field = *panel_->plant(i);
        QString refusal;
        if (const QString typed = typed_.at(i).text.trimmed(); !typed.isEmpty()) {
            try {
                const Plant plant = plantOf(toCore(typed), *catalogue_, usual);
                // Another machine has options of its own.
                if (std::exchange(typed_.at(i).machine, firstMachine(plant)) != firstMachine(plant))
                    typed_.at(i).conditions = conditionsAt(0, 0);
                choices.push_back({plant, typed_.at(i).conditions});
                usual = plant.refrigerant();
            } catch (const PlantTextFault& fault) {
                refusal = marvello::fromCore(sentenceOf(fault));
                if (unusable_.isEmpty()) unusable_ = field.CaptionText();
            }
        }
        if (field.Refusal() != refusal) field.SetRefusal(refusal);
    }
    return choices;
}

void frmYear::calculate() {
    pause_->stop();
    failure_ = inputs_.load.bins.empty() ? tables_.fault : QString();
    unusable_.clear();
    isGivenUp_ = false;
    catalogue_ = preparedCatalogue(gDatabase());
    const std::vector<YearChoice> choices = readPlants();
    if (!choices.empty()) unusable_.clear();  // the others go on
    if (const AdvanceText* field = panel_->unusable()) unusable_ = field->CaptionText();
    if (inputs_.load.bins.empty()) unusable_ = text("frmyear.profile");
    if (choices.empty() || !unusable_.isEmpty() || !failure_.isEmpty()) {
        run_.stop();
        hideProgress();
        years_.reset();
        showPages();
        return;
    }
    keep();
    setOutdated(true);
    run_.start(choices, inputs_.terms(), catalogue_);
    if (!progress_) patience_->start(beforeProgress);
    emit stateChanged();
}

void frmYear::calculated(const std::shared_ptr<const YearComparison>& years) {
    hideProgress();
    years_ = years;
    setOutdated(false);
    relist();
    showPages();
}

void frmYear::setOutdated(bool isOutdated) {
    isOutdated_ = isOutdated;
    veil_->setGeometry(results_->rect());
    veil_->setVisible(isOutdated && years_);
    veil_->raise();
}

QStringList frmYear::assumptions() const {
    return fromCore(yearAssumptions(*years_, styleOf(inputs_, tables_, units_)));
}

void frmYear::relist() {
    if (!years_) {
        emit stateChanged();
        return;
    }
    const YearStyle style = styleOf(inputs_, tables_, units_);
    table_ = yearTable(*years_, style);
    figures_->setTable(table_.figures, text("frmcomparison.best"));
    heads_->setHeads(table_.figures.heads);
    const QStringList lines = assumptions();
    side_->show(table_, lines);
    pages_->show(years_, style, lines);
    pages_->mark(panel_->bins().chosen());
    emit stateChanged();
}

void frmYear::showPages() {
    if (!failure_.isEmpty())
        empty_->setTexts(text("formselection.year"), failure_, {}, {});
    else if (isGivenUp_)
        empty_->setTexts(text("frmyear.aborted.title"), text("frmyear.aborted.text"),
                         panel_->lnkCalculate->text(), QStringLiteral("F5"));
    else if (!unusable_.isEmpty())
        empty_->setTexts(text("frmyear.unusable.title"), text("frmyear.unusable.text"), {}, {}, unusable_);
    else
        empty_->setTexts(text("frmyear.empty.title"), text("frmyear.empty.text"),
                         withoutAccessKey(text("mdimain.menu.cpspopup.year")),
                         definitionOf(Command::addToYear).keys.toString(QKeySequence::NativeText));
    const bool isEmpty = !years_;
    splitter_->SetChild2(isEmpty ? QStringLiteral("yearEmpty") : QStringLiteral("yearResults"));
    empty_->setVisible(isEmpty);
    results_->setVisible(!isEmpty);
    if (isEmpty) isOutdated_ = false;
    emit stateChanged();
}

void frmYear::openFile() {
    const QString path =
        QFileDialog::getOpenFileName(this, text("frmyear.open.title"), keptFolder(settings::exportFolder),
                                     text("frmyear.open.filter") + QStringLiteral(" (*.csv *.txt)"));
    if (path.isEmpty()) return;
    const QString name = QDir::toNativeSeparators(path);
    try {
        const auto content = fileText(path.toStdString());
        if (!content) {
            MessageBox::show(this, MessageBox::Mark::critical,
                             filled(text("frmyear.open.unreadable"), {name}));
            return;
        }
        inputs_.load = loadProfileIn(*content, toCore(QFileInfo(path).fileName()));
    } catch (const LoadProfileFault& fault) {
        MessageBox::show(this, MessageBox::Mark::critical,
                         name + u'\n' + marvello::fromCore(sentenceOf(fault)));
        return;
    }
    inputs_.profile.clear();
    dropRule(inputs_);
    inputs_.profileName = QFileInfo(path).completeBaseName();
    settings::exportFolder.keep(QFileInfo(path).absolutePath());
    panel_->show();
    changed(0);
}

void frmYear::takeDefaults() {
    inputs_ = firstYearInputs(tables_);
    panel_->show();
    changed(0);
}

void frmYear::keep() const { keepYearInputs(inputs_); }

bool frmYear::isCollapsed() const { return splitter_->SplitterPos() == 0; }

void frmYear::CloseFrame(bool collapse) {
    if (collapse == isCollapsed()) return;
    const bool heldFocus = panel_->isAncestorOf(window()->focusWidget());
    splitter_->SetMinSize1(collapse ? 0 : InputsFold::minWidth);
    splitter_->SetSplitterPos(collapse ? 0 : settings::yearWidth.value());
    layOut();
    if (collapse && heldFocus && results_->isVisible()) figures_->setFocus();
    emit stateChanged();
}

void frmYear::resizeEvent(QResizeEvent*) { layOut(); }

void frmYear::layOut() {
    splitter_->setGeometry(rect());
    // Without room next to the figures, what there is to say of them is below.
    const bool isNarrow = width() - splitter_->SplitterPos() < roomForSide;
    topRow_->setDirection(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    veil_->setGeometry(results_->rect());
}

void frmYear::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && isCalculating())
        giveUp();
    else
        Form::keyPressEvent(event);
}

QList<QStringList> frmYear::figureRows(const QString& bestMark) const {
    QList<QStringList> rows{{QString()}};
    for (const ComparedHead& head : table_.figures.heads) rows.front() += marvello::fromCore(head.label());
    const auto& figures = table_.figures.groups.front().rows;
    for (const ComparedRow& row : figures) {
        rows += QStringList{marvello::fromCore(row.captionWithUnit())};
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            const std::string& error = table_.figures.heads[i].error;
            const bool isError = &row == &figures.front() && !error.empty();
            rows.back() += (row.cells[i].isBest ? bestMark : QString()) +
                           marvello::fromCore(isError ? error : row.cells[i].text);
        }
    }
    return rows;
}

/// The figures, what is to be said of them, and the bins.
void frmYear::CopyToClipBoard() {
    if (!hasResults()) return;
    QList<QStringList> rows = figureRows({});
    for (const QString& line : fromCore(table_.warnings) + assumptions()) rows += QStringList{line};
    rows += QStringList{QString()};
    rows += pages_->table();
    QString copied;
    for (const QStringList& row : rows) copied += row.join(u'\t') + QStringLiteral("\r\n");
    CopiedTable table{rows.takeFirst(), rows, 1};
    copyTable(copied, table);
}

void frmYear::ExportCPS() {
    if (!hasResults()) return;
    const auto file = chooseExportFile(this, {ExportFile::Form::csv}, text("formselection.year").trimmed());
    if (!file) return;
    const std::string csv =
        yearCsv(*years_, table_, yearAssumptions(*years_, styleOf(inputs_, tables_, units_)),
                toCore(QLocale().decimalPoint()));
    const QString path = file->path;
    if (const QString failure = writeExport(csv, *file); !failure.isEmpty())
        sayNotWritten(path, failure, this);
    else
        emit exported(filled(text("frmyear.exported"), {path}));
}

void frmYear::PrintReport(bool preview) {
    if (!hasResults()) return;
    constexpr double chartHeight = 280;
    QStringList differences;
    for (const YearDifference& difference : table_.differences)
        differences += marvello::fromCore(difference.caption) + QStringLiteral(": ") +
                       fromCore(difference.values).join(QStringLiteral(", "));
    printYear({.title = text("formselection.year").trimmed(),
               .subject = subject(),
               .figures = figureRows(bestMark),
               .best = bestMark + text("frmcomparison.best"),
               .differencesTitle = text("frmyear.difference"),
               .differences = differences,
               .warnings = fromCore(table_.warnings),
               .charts = pages_->onPaper({PrintedList::width, chartHeight}),
               .binsTitle = text("frmyear.open.title"),
               .bins = pages_->table(),
               .assumptionsTitle = text("frmyear.assumptions"),
               .assumptions = assumptions()},
              preview, window());
}

QString frmYear::subject() const {
    if (!years_) return text("formselection.year").trimmed();
    QStringList refrigerants;
    QStringList names;
    for (const YearOfPlant& plant : years_->plants) {
        const QString refrigerant = marvello::fromCore(plant.choice.plant.refrigerant());
        if (!refrigerants.contains(refrigerant)) refrigerants += refrigerant;
        names += marvello::fromCore(plantName(plant.choice.plant));
    }
    names.removeDuplicates();
    return refrigerants.join(QStringLiteral(", ")) + QStringLiteral(" \u00B7 ") +
           names.join(QStringLiteral(", "));
}

/// What the chosen bin comes to; empty without one.
QString frmYear::statusOfBin() const {
    const auto chosen = panel_->bins().chosen();
    if (!chosen || *chosen >= years_->terms.profile.bins.size()) return {};
    QStringList missing;
    for (std::size_t i = 0; i < years_->plants.size(); ++i) {
        const YearBin& bin = years_->plants[i].year.bins.at(*chosen);
        if (bin.load.unmet <= 0) continue;
        missing += filled(text("frmyear.status.covers"),
                          {marvello::fromCore(table_.figures.heads[i].name),
                           formatNumber(bin.metShare() * 100, u"#0") + QStringLiteral(" %")});
    }
    if (missing.isEmpty()) missing += text("frmyear.status.met");
    const YearStyle style = styleOf(inputs_, tables_, units_);
    return filled(text("frmyear.status.bin"),
                  {marvello::fromCore(temperatureText(years_->terms.profile.bins[*chosen].outdoor, style)),
                   missing.join(QStringLiteral(", "))});
}

QString frmYear::counts() const {
    const LoadProfile& profile = years_->terms.profile;
    const QString bins =
        filled(text(profile.isOfAYear() ? "frmyear.status.bins" : "frmyear.status.noyear"),
               {QString::number(profile.bins.size()), formatNumber(profile.hours(), u"#0.##")});
    const QString bin = statusOfBin();
    return bins + (bin.isEmpty() ? QString() : QStringLiteral("   \u00B7   ") + bin);
}

void frmYear::showProgress() {
    if (!run_.isRunning() || !isVisible()) return;
    progress_ = std::make_unique<frmpG>(window());
    // Typing goes on meanwhile, and begins the calculation anew.
    progress_->setWindowModality(Qt::NonModal);
    progress_->setAttribute(Qt::WA_ShowWithoutActivating);
    connect(progress_.get(), &frmpG::aborted, this, &frmYear::giveUp, Qt::QueuedConnection);
    progress_->show();
    follow_->start(betweenProgress);
}

void frmYear::giveUp() {
    pause_->stop();
    run_.stop();
    hideProgress();
    years_.reset();
    isGivenUp_ = true;
    showPages();
}

void frmYear::hideProgress() {
    patience_->stop();
    follow_->stop();
    const bool wasActive = progress_ && progress_->isActiveWindow();
    progress_.reset();
    if (wasActive) window()->activateWindow();
}

}  // namespace marvello
