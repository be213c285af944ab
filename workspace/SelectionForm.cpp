#include "workspace/SelectionForm.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>

#include "controls/AdvanceText.h"
#include "controls/Link.h"
#include "controls/MessageBox.h"
#include "controls/Splitter.h"
#include "controls/ctlBtn.h"
#include "data/Session.h"
#include "workspace/ApplyFormParameters.h"
#include "workspace/EmptyPage.h"
#include "workspace/InputFields.h"
#include "workspace/InputPanel.h"
#include "workspace/InputSummary.h"
#include "workspace/InputsFold.h"
#include "workspace/Pane.h"
#include "workspace/ResultsPane.h"
#include "workspace/SelectionExports.h"
#include "workspace/Settings.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmpG.h"

namespace marvello {

namespace {

constexpr int wideCaptionWidth = 116;

// Both forms have the sets, and the texts, of one.
void applySet(const char* key, QWidget& form) {
    ApplyFormParameters(QStringLiteral("frm"), QStringLiteral("frmselection"), QLatin1String(key), form);
}

/// Says what to do while there is no list, and why the list went: the field that was edited.
void invite(EmptyPage& page, const QString& button, const QString& edited = QString()) {
    const bool isFirst = edited.isEmpty();
    const QString title = isFirst ? dictionaryText(QStringLiteral("frmselection.empty.title"))
                                  : dictionaryText(QStringLiteral("frmselection.discarded.title"));
    const QString sentence = isFirst ? dictionaryText(QStringLiteral("frmselection.empty.text"))
                                     : dictionaryText(QStringLiteral("frmselection.discarded.text"));
    page.setTexts(title, sentence, button, QStringLiteral("F5"), edited);
}

}  // namespace

SelectionForm::SelectionForm(const SelectionKind& kind, QWidget* parent)
    : QWidget(parent), kind_(kind), inputs_(kind) {
    setObjectName(QLatin1String(kind.name));
    setMinimumSize(360, 180);
    makePanes();
    connectPanes();
    const auto onKey = [this](Qt::Key key, auto act) {
        auto* shortcut = new QShortcut(QKeySequence(key), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    onKey(Qt::Key_F5, [this] { lnkCalculate_Click(); });
    onKey(Qt::Key_F1, [this] {
        if (!fields_->showHelp()) emit guideRequested();
    });
    Traduci();
    if (kind_.hasInverter) {
        applySet("Init", *this);
        fields_->read();
    }
    defaults_ = state();
    (*panel_)[Input::evaporatingDew]->setFocus();
}

SelectionForm::~SelectionForm() = default;

void SelectionForm::makePanes() {
    Splitter1_ = new Splitter(this);
    Splitter1_->setObjectName(QStringLiteral("Splitter1"));
    auto* Frame1 = new QWidget(Splitter1_);
    setUpPane(*Frame1, "Frame1");
    panel_ = new InputPanel(kind_.hasInverter, Frame1);
    auto* inside = new QVBoxLayout(Frame1);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(panel_);
    frame2_ = new EmptyPage(Splitter1_);
    frame2_->setObjectName(QStringLiteral("frame2"));
    results_ = new ResultsPane(run_, inputs_, Splitter1_);
    results_->hide();
    Splitter1_->SetChild2(QStringLiteral("frame2"));

    fields_ = new InputFields(inputs_, *panel_, *this, kind_.hasFieldHelp);
    summary_ = new InputSummary(inputs_, *panel_, this);
    fold_ = new InputsFold(*this, *Splitter1_, *Frame1, *summary_);
}

void SelectionForm::connectPanes() {
    connect(panel_->lnkCalculate, &ctlBtn::clicked, this, &SelectionForm::lnkCalculate_Click);
    connect(panel_->lnkDefaults, &Link::clicked, this, [this] { takeOver(defaults_); });
    connect(fields_, &InputFields::edited, this, [this](const QString& caption) {
        if (hasResults()) closesplitter34(caption);
    });
    connect(fields_, &InputFields::subjectChanged, this, &SelectionForm::stateChanged);
    connect(fields_, &InputFields::wantsRoom, fold_, &InputsFold::show);
    connect(fold_, &InputsFold::changed, this, &SelectionForm::stateChanged);
    connect(this, &SelectionForm::stateChanged, summary_, &InputSummary::refresh);
    connect(summary_, &InputSummary::calculateClicked, this, &SelectionForm::lnkCalculate_Click);
    connect(results_, &ResultsPane::selectionChanged, this, &SelectionForm::stateChanged);
    connect(Splitter1_, &Splitter::moved, this, &SelectionForm::sizesChanged);
    connect(results_, &Splitter::moved, this, &SelectionForm::sizesChanged);
}

void SelectionForm::setKey(const QString& key) {
    key_ = key;
    setWindowTitle(description_.isEmpty() ? key : description_);
}

void SelectionForm::setDescription(const QString& description) {
    description_ = description;
    setWindowTitle(description);
}

void SelectionForm::Traduci() {
    const bool isChinese = gApplication().User().language == "cn-CN";
    panel_->ResizeControls(isChinese ? wideCaptionWidth : InputPanel::usualCaptionWidth);
    applySet("populate", *this);
    panel_->lnkCalculate->setText(dictionaryText(QStringLiteral("frmselection.lnkcalculate.caption")));
    panel_->SetCaptionText(dictionaryText(QStringLiteral("frmselection.coolframe1.captiontext")));
    panel_->lnkDefaults->setText(dictionaryText(QStringLiteral("frmselection.lnkdefaults.caption")));
    summary_->setTexts(panel_->property("CaptionText").toString().trimmed(),
                       dictionaryText(QStringLiteral("frmselection.summary.edit")),
                       panel_->lnkCalculate->text());
    invite(*frame2_, panel_->lnkCalculate->text());
    fields_->translate();
    summary_->refresh();
    panel_->layOut();
    results_->translate();
}

void SelectionForm::populateLVCPS(int groupBy) {
    results_->setGrouping(static_cast<Grouping>(groupBy));
    results_->relist();
}

void SelectionForm::PopulateFrame4() { results_->fillPage(); }

void SelectionForm::MeasureUnits(int unit, bool refresh) {
    const UnitSystem before = inputs_.units();
    fields_->setUnits(unit == 1 ? UnitSystem::imperial : UnitSystem::metric);
    if (inputs_.units() != before && refresh) results_->relist();
}

void SelectionForm::CloseFrame(bool collapse) { fold_->collapse(collapse); }
bool SelectionForm::isCollapsed() const { return fold_->isCollapsed(); }

void SelectionForm::MnuPopUp(const QString& name) {
    results_->selectPage(name);
    if (name == u"copytoclipboard") CopyToClipBoard();
    if (name == u"print" || name == u"printpreview") PrintReport(name == u"printpreview");
}

void SelectionForm::CopyToClipBoard() { results_->copy(); }

void SelectionForm::ExportCPS() {
    if (const QString note = exportResults(run_, this); !note.isEmpty()) emit exported(note);
}

void SelectionForm::ExportPolynomials() {
    if (const QString note = exportPolynomials(run_, this); !note.isEmpty()) emit exported(note);
}

void SelectionForm::PrintReport(bool preview) { results_->print(preview); }

void SelectionForm::Quit() {
    if (QWidget* window = parentWidget())
        window->close();
    else
        close();
}

void SelectionForm::lnkCalculate_Click() {
    if (progress_) return;
    if (fields_->check()) Calculate();
}

void SelectionForm::Calculate() {
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
        Splitter1_->SetChild2(QStringLiteral("splitter2"));
        frame2_->hide();
        fold_->setHasResults(true);
        results_->open();
    } else if (outcome.fault.empty() && !outcome.isAborted) {
        MessageBox::show(this, MessageBox::Mark::information,
                         dictionaryText(QStringLiteral("messages.message22")));
    }
    emit stateChanged();
}

void SelectionForm::closesplitter34(const QString& editedField) {
    invite(*frame2_, panel_->lnkCalculate->text(), editedField);
    Splitter1_->SetChild2(QStringLiteral("Frame2"));
    frame2_->show();
    results_->clear();
    fold_->setHasResults(false);
    emit stateChanged();
}

bool SelectionForm::WheelMoved(int step) { return fields_->turnWheel(step); }

bool SelectionForm::hasResults() const { return !results_->isHidden(); }

FormState SelectionForm::state() const { return {inputs_.state(), results_->chosenWidths()}; }

void SelectionForm::takeOver(const FormState& state) {
    if (state.isEmpty()) return;
    if (hasResults()) closesplitter34();
    fields_->commit();
    inputs_.takeOver(state.inputs);
    fields_->show();
    results_->setChosenWidths(state.columnWidths);
    emit stateChanged();
}

QString SelectionForm::subject() const {
    const QString between = QStringLiteral(" \u00B7 ");
    QStringList parts{fromCore(inputs_.caption(Input::refrigerant)),
                      fromCore(inputs_.caption(Input::series))};
    if (kind_.hasInverter) parts += withUnit(inputs_, Input::frequency);
    return parts.join(between);
}

SelectionForm::Sizes SelectionForm::sizes() const { return {fold_->panelWidth(), results_->SplitterPos()}; }

void SelectionForm::setSizes(const Sizes& sizes) {
    fold_->setPanelWidth(sizes.panelWidth);
    results_->SetSplitterPos(sizes.listHeight);
}

void SelectionForm::resizeEvent(QResizeEvent*) { fold_->layOut(); }

void SelectionForm::keyPressEvent(QKeyEvent* event) {
    // Enter leaves no field: the calculation is started by its own key.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
    if (event->key() == Qt::Key_Escape && fold_->isNarrow() && hasResults()) {
        fold_->collapse(true);
        return;
    }
    QWidget::keyPressEvent(event);
}

void SelectionForm::closeEvent(QCloseEvent* event) {
    keepFormState(objectName(), state());
    QWidget::closeEvent(event);
}

}  // namespace marvello
