#include "workspace/SelectionForm.h"

#include <QApplication>

#include "controls/AdvanceText.h"
#include "controls/MessageBox.h"
#include "controls/Splitter.h"
#include "controls/ctlBtn.h"
#include "data/Numbers.h"
#include "workspace/EmptyPage.h"
#include "workspace/InputFields.h"
#include "workspace/InputPanel.h"
#include "workspace/ResultsPane.h"
#include "workspace/SelectionExports.h"
#include "workspace/Settings.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmpG.h"

namespace marvello {

namespace {

/// Says what to do while there is no list, and why the list went: the field that was edited.
void invite(EmptyPage& page, const QString& button, const QString& edited = QString()) {
    const bool isFirst = edited.isEmpty();
    const QString title = isFirst ? dictionaryText(QStringLiteral("frmselection.empty.title"))
                                  : dictionaryText(QStringLiteral("frmselection.discarded.title"));
    const QString sentence = isFirst ? dictionaryText(QStringLiteral("frmselection.empty.text"))
                                     : dictionaryText(QStringLiteral("frmselection.discarded.text"));
    page.setTexts(title, sentence, button, QStringLiteral("F5"), edited);
}

Input inputOf(AdvisedInput advised) {
    switch (advised) {
        case AdvisedInput::evaporating:
            return Input::evaporatingDew;
        case AdvisedInput::condensing:
            return Input::condensingDew;
        case AdvisedInput::superheat:
            return Input::superheat;
        case AdvisedInput::subcooling:
            return Input::subcooling;
        case AdvisedInput::economizer:
            return Input::economizer;
        case AdvisedInput::frequency:
            return Input::frequency;
        case AdvisedInput::motorSize:
            return Input::motorSize;
        case AdvisedInput::oilCoolingMode:
            return Input::oilCoolingMode;
        case AdvisedInput::capacityStep:
            break;
    }
    return Input::capacityStep;
}

}  // namespace

SelectionForm::SelectionForm(const SelectionKind& kind, QWidget* parent)
    : InputForm(kind, parent), results_(new ResultsPane(run_, inputs_, Splitter1_)) {
    setUp(*results_);
    // Queued: the line that is followed goes with the old results.
    connect(results_, &ListPane::adviceUsed, this, &SelectionForm::followAdvice, Qt::QueuedConnection);
    connect(results_, &ListPane::pointUsed, this, &SelectionForm::followPoint, Qt::QueuedConnection);
    connect(results_, &ListPane::exported, this, &SelectionForm::exported);
    (*panel_)[Input::evaporatingDew]->setFocus();
}

SelectionForm::~SelectionForm() = default;

ResultsPane& SelectionForm::results() const { return *results_; }

void SelectionForm::Traduci() {
    InputForm::Traduci();
    invite(*frame2_, panel_->lnkCalculate->text());
}

void SelectionForm::populateLVCPS(int groupBy) {
    results_->setGrouping(static_cast<Grouping>(groupBy));
    results_->relist();
}

void SelectionForm::ExportCPS() {
    if (const QString note = exportResults(run_, this); !note.isEmpty()) emit exported(note);
}

void SelectionForm::ExportPolynomials() {
    if (const QString note = exportPolynomials(run_, this); !note.isEmpty()) emit exported(note);
}

void SelectionForm::calculate() {
    run();
    if (run_.hasResults()) results_->open();
    emit stateChanged();
}

void SelectionForm::follow(const std::function<void()>& setInputs) {
    if (isBusy()) return;
    // The old results stay in sight until the new ones are there.
    Splitter1_->setUpdatesEnabled(false);
    panel_->lnkCalculate->setFocus();  // a field would show its help when the results go
    fields_->commit();
    setInputs();
    run();
    if (run_.hasResults()) results_->openAgain();
    Splitter1_->setUpdatesEnabled(true);
    emit stateChanged();
}

void SelectionForm::followAdvice(AdvisedInput advised, double value) {
    const Input input = inputOf(advised);
    follow([this, input, value] {
        if (definitionOf(input).isChoice)
            inputs_.choose(input, storedText(value));
        else
            inputs_.change(input, value);
    });
}

void SelectionForm::followPoint(const UsedPoint& point) {
    follow([this, &point] {
        inputs_.change(Input::condensingDew, point.condensing);
        inputs_.change(Input::evaporatingDew, point.evaporating);
        if (point.frequency) inputs_.change(Input::frequency, *point.frequency);
    });
}

void SelectionForm::run() {
    closesplitter34();
    fields_->prepareRun();
    progress_ = std::make_unique<frmpG>(window());
    progress_->show();
    QApplication::processEvents();
    const SelectionRun::Outcome outcome = run_.calculate(inputs_, [this](int percent) {
        if (progress_) progress_->setPercent(percent);
        QApplication::processEvents();
    });
    if (!outcome.fault.empty() || !outcome.said.empty()) progress_->hide();
    for (const std::string& text : outcome.said)
        MessageBox::show(this, MessageBox::Mark::plain, fromCore(text));
    if (!outcome.fault.empty()) MessageBox::show(this, MessageBox::Mark::critical, fromCore(outcome.fault));
    progress_.reset();
    window()->activateWindow();

    keepFormState(objectName(), state());
    if (run_.hasResults()) {
        showResults(true);
    } else if (outcome.fault.empty() && !outcome.isAborted) {
        MessageBox::show(this, MessageBox::Mark::information,
                         dictionaryText(QStringLiteral("messages.message22")));
    }
}

void SelectionForm::edited(const QString& caption) {
    if (hasResults()) closesplitter34(caption);
}

void SelectionForm::closesplitter34(const QString& editedField) {
    invite(*frame2_, panel_->lnkCalculate->text(), editedField);
    results_->clear();
    showResults(false);
    emit stateChanged();
}

void SelectionForm::takeOverInputs(const InputState& inputs) {
    if (hasResults()) closesplitter34();
    InputForm::takeOverInputs(inputs);
}

QString SelectionForm::subject() const {
    const QString between = QStringLiteral(" \u00B7 ");
    QStringList parts{fromCore(inputs_.caption(Input::refrigerant)),
                      fromCore(inputs_.caption(Input::series))};
    if (kind_.hasInverter) parts += withUnit(inputs_, Input::frequency);
    return parts.join(between);
}

QString SelectionForm::counts() const {
    const int good = run_.countOf(Verdict::possible);
    const int warned = run_.countOf(Verdict::possibleWithWarnings);
    const int stopped = run_.countOf(Verdict::notPossible);
    return filled(dictionaryText(QStringLiteral("mdimain.status.counts")),
                  {QString::number(good + warned + stopped), QString::number(good), QString::number(warned),
                   QString::number(stopped)});
}

}  // namespace marvello
