#include "workspace/frmFind.h"

#include <QKeyEvent>
#include <utility>

#include "controls/AdvanceText.h"
#include "controls/Link.h"
#include "controls/NumberText.h"
#include "controls/Splitter.h"
#include "controls/TagBox.h"
#include "controls/ctlBtn.h"
#include "workspace/EmptyPage.h"
#include "workspace/InputFields.h"
#include "workspace/InputPanel.h"
#include "workspace/InputSummary.h"
#include "workspace/SearchTexts.h"
#include "workspace/SelectionExports.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmpG.h"

namespace marvello {

namespace {

// Milliseconds.
constexpr int pauseOfTyping = 150;
constexpr int beforeProgress = 300;
constexpr int betweenProgress = 100;

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

}  // namespace

frmFind::frmFind(QWidget* parent)
    : InputForm(searching, parent),
      results_(new FoundPane(inputs_, Splitter1_)),
      pause_(new QTimer(this)),
      patience_(new QTimer(this)),
      follow_(new QTimer(this)) {
    for (QTimer* once : {pause_, patience_}) once->setSingleShot(true);
    connect(pause_, &QTimer::timeout, this, &frmFind::search);
    connect(patience_, &QTimer::timeout, this, &frmFind::showProgress);
    connect(follow_, &QTimer::timeout, this, [this] {
        if (progress_) progress_->setPercent(run_.percent());
    });
    connect(&run_, &FindRun::found, this, &frmFind::found);
    connect(&run_, &FindRun::failed, this, [this](const QString& reason) {
        failure_ = reason;
        hideProgress();
        show(Shown::failed);
    });
    connect(results_, &FoundPane::opened, this, &frmFind::openSelected);
    connect(results_, &ListPane::exported, this, &frmFind::exported);
    connect(frame2_, &EmptyPage::linkClicked, this, &frmFind::followLink);
    setUp(*results_);
    results_->setFilters({QStringLiteral("best")});
    QWidget* before = panel_->lnkDefaults;
    for (QWidget* control : results_->controls()) setTabOrder(std::exchange(before, control), control);
    (*panel_)[Input::capacity]->setFocus();
    searchSoon();
}

frmFind::~frmFind() = default;

void frmFind::Traduci() {
    InputForm::Traduci();
    panel_->SetCaptionText(u' ' + text("find.title"));
    panel_->lnkCalculate->setText(text("find.button"));
    summary_->setTexts(text("find.title"), text("frmselection.summary.edit"), panel_->lnkCalculate->text());
    (*panel_)[Input::toleranceAbove]->SetCaptionText(text("find.to"));
    (*panel_)[Input::maxMachines]->SetCaptionText(text("find.to"));
    show(shown_);
}

bool frmFind::hasResults() const { return shown_ == Shown::list && results_->isCurrent(); }

FormState frmFind::state() const {
    FormState state = InputForm::state();
    state.filters = results_->filters();
    return state;
}

void frmFind::takeOver(const FormState& state) {
    if (state.isEmpty()) return;
    InputForm::takeOver(state);
    if (!state.filters.isEmpty()) results_->setFilters(state.filters);
}

void frmFind::takeOverInputs(const InputState& inputs) {
    InputForm::takeOverInputs(inputs);
    searchSoon();
}

void frmFind::edited(const QString&) { searchSoon(); }

void frmFind::searchSoon() {
    run_.abort();
    patience_->stop();
    results_->setOutdated(true);
    pause_->start(pauseOfTyping);
    emit stateChanged();
}

void frmFind::calculate() { search(); }

void frmFind::search() {
    pause_->stop();
    if (unusableInput(inputs_)) {
        hideProgress();
        show(Shown::unusable);
        return;
    }
    request_ = requestOf(inputs_);
    results_->setOutdated(true);
    run_.start(request_);
    if (!progress_) patience_->start(beforeProgress);
    keepFormState(objectName(), state());
}

void frmFind::found(const std::shared_ptr<const FindResult>& result) {
    hideProgress();
    last_ = result;
    results_->showResult(result, request_);
    show(result->candidates.empty() ? Shown::nothing : Shown::list);
}

void frmFind::abort() {
    run_.abort();
    hideProgress();
    show(Shown::aborted);
}

void frmFind::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && run_.isRunning())
        abort();
    else
        InputForm::keyPressEvent(event);
}

void frmFind::show(Shown what) {
    shown_ = what;
    const QString button = panel_->lnkCalculate->text();
    const QString key = QStringLiteral("F5");
    frame2_->setLinks({});
    switch (what) {
        case Shown::invitation:
            frame2_->setTexts(text("find.empty.title"), text("find.empty.text"), button, key);
            break;
        case Shown::unusable:
            if (const auto input = unusableInput(inputs_)) {
                const QString caption = panel_->captionOf(*input);
                frame2_->setTexts(text("find.unusable.title"), text("find.unusable.text"), button, key,
                                  caption);
            }
            break;
        case Shown::aborted:
            frame2_->setTexts(text("find.aborted.title"), text("find.aborted.text"), button, key);
            break;
        case Shown::failed:
            frame2_->setTexts(text("find.failed.title"), reasonText(failure_), button, key);
            break;
        case Shown::nothing:
            sayNothingFound();
            break;
        case Shown::list:
            break;
    }
    const bool isList = what == Shown::list;
    showResults(isList);
    if (isList) results_->setVisible(true);
    emit stateChanged();
}

void frmFind::sayNothingFound() {
    QString sentence =
        filled(text("find.nothing.text"), {percentText(-request_.below), percentText(request_.above)});
    QStringList links;
    if (const Candidate* nearest = last_->nearest()) {
        const FoundStyle style{inputs_.units(), marksOf(QLocale())};
        const FoundRow row = foundRow(*last_, *nearest, style);
        const QString unit = fromCore(foundColumns(request_.needed, style).at(2).unit);
        const auto joined = [](QString words) { return words.replace(u' ', u'\u00A0'); };
        sentence += u' ' + filled(text("find.nothing.nearest"),
                                  {joined(fromCore(row.label)), fromCore(nearest->compressor->Refrigerant),
                                   joined(fromCore(row.values.at(1).text) + u' ' + unit)});
        if (widerTolerance(*nearest)) links += text("find.nothing.widen");
    } else {
        links += QString();
    }
    links.resize(1);
    if (!last_->rejections.empty()) links += text("find.nothing.why");
    frame2_->setTexts(text("find.nothing.title"), sentence, {}, {});
    frame2_->setLinks(links);
}

// The first link widens the tolerance, the second says why.
void frmFind::followLink(int link) {
    if (link == 1) {
        results_->showRejected();
        return;
    }
    const Candidate* const nearest = last_ ? last_->nearest() : nullptr;
    const auto wider = nearest ? widerTolerance(*nearest) : std::nullopt;
    if (!wider) return;
    inputs_.type(wider->input, wider->percent);
    fields_->show();
    search();
}

void frmFind::openSelected() {
    const Candidate* const candidate = results_->isCurrent() ? results_->selected() : nullptr;
    if (!candidate) return;
    const PreparedCompressor& compressor = *candidate->compressor;
    emit opened(selectionOf(inputs_, *candidate), fromCore(clsCompressor::keyOf(compressor)));
}

void frmFind::showProgress() {
    if (!run_.isRunning() || !isVisible()) return;
    progress_ = std::make_unique<frmpG>(window());
    // Typing goes on meanwhile, and begins the search anew.
    progress_->setWindowModality(Qt::NonModal);
    progress_->setAttribute(Qt::WA_ShowWithoutActivating);
    connect(progress_.get(), &frmpG::aborted, this, &frmFind::abort, Qt::QueuedConnection);
    progress_->show();
    follow_->start(betweenProgress);
}

void frmFind::hideProgress() {
    patience_->stop();
    follow_->stop();
    // After a press of its button, and on a screen without a window manager.
    const bool wasActive = progress_ && progress_->isActiveWindow();
    progress_.reset();
    if (wasActive) window()->activateWindow();
}

QString frmFind::subject() const { return searchSubject(inputs_); }

bool frmFind::hasCounts() const { return hasResults() || shown_ == Shown::nothing; }

QString frmFind::counts() const {
    const auto solutions = static_cast<int>(last_->candidates.size());
    const int good = countOf(*last_, FoundFilter::withoutWarnings);
    return filled(text("find.status"),
                  {QString::number(solutions), QString::number(good), QString::number(solutions - good),
                   QString::number(last_->rejections.size())});
}

void frmFind::ExportCPS() {
    if (!hasResults()) return;
    if (const QString note = exportRecords(results_->records(), this); !note.isEmpty()) emit exported(note);
}

}  // namespace marvello
