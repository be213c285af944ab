#include "workspace/InputForm.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>

#include "controls/Link.h"
#include "controls/Splitter.h"
#include "controls/ctlBtn.h"
#include "data/Session.h"
#include "workspace/ApplyFormParameters.h"
#include "workspace/EmptyPage.h"
#include "workspace/InputFields.h"
#include "workspace/InputPanel.h"
#include "workspace/InputSummary.h"
#include "workspace/InputsFold.h"
#include "workspace/ListPane.h"
#include "workspace/Pane.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int wideCaptionWidth = 116;

}  // namespace

InputForm::InputForm(const SelectionKind& kind, QWidget* parent) : Form(parent), kind_(kind), inputs_(kind) {
    setObjectName(QLatin1String(kind.name));
    setMinimumSize(360, 180);
    makePanes();
    const auto onKey = [this](const QKeySequence& keys, auto act) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    onKey(Qt::Key_F5, [this] { lnkCalculate_Click(); });
    onKey(Qt::Key_F6, [this] {
        QList<QWidget*> parts{panel_};
        if (hasResults()) parts += results().parts();
        goRound(parts);
    });
    const auto goToPage = [this](int by) {
        if (hasResults()) results().stepPage(by);
    };
    onKey(Qt::CTRL | Qt::Key_PageDown, [goToPage] { goToPage(1); });
    onKey(Qt::CTRL | Qt::Key_PageUp, [goToPage] { goToPage(-1); });
    onKey(QKeySequence::Find, [this] {
        if (hasResults()) results().findOnPage();
    });
    onKey(Qt::Key_F1, [this] {
        if (!fields_->showHelp()) emit guideRequested();
    });
}

InputForm::~InputForm() = default;

void InputForm::makePanes() {
    Splitter1_ = new Splitter(this);
    Splitter1_->setObjectName(QStringLiteral("Splitter1"));
    auto* Frame1 = new QWidget(Splitter1_);
    setUpPane(*Frame1, "Frame1");
    panel_ = new InputPanel(inputs_, Frame1);
    auto* inside = new QVBoxLayout(Frame1);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(panel_);
    frame2_ = new EmptyPage(Splitter1_);
    frame2_->setObjectName(QStringLiteral("frame2"));
    Splitter1_->SetChild2(QStringLiteral("frame2"));

    fields_ = new InputFields(inputs_, *panel_, *this, kind_.hasFieldHelp);
    summary_ = new InputSummary(inputs_, *panel_, this);
    fold_ = new InputsFold(*this, *Splitter1_, *Frame1, *summary_);
}

void InputForm::setUp(ListPane& results) {
    results.hide();
    connectPanes();
    connect(&results, &ListPane::selectionChanged, this, &InputForm::stateChanged);
    connect(&results, &Splitter::moved, this, &InputForm::sizesChanged);
    Traduci();
    if (kind_.hasInverter) {
        applySet("Init");
        fields_->read();
    }
    defaults_ = state();
}

void InputForm::connectPanes() {
    connect(panel_->lnkCalculate, &ctlBtn::clicked, this, &InputForm::lnkCalculate_Click);
    connect(panel_->lnkDefaults, &Link::clicked, this, [this] { takeOver(defaults_); });
    connect(fields_, &InputFields::edited, this, &InputForm::edited);
    connect(fields_, &InputFields::subjectChanged, this, &InputForm::stateChanged);
    connect(fields_, &InputFields::wantsRoom, fold_, &InputsFold::show);
    connect(fold_, &InputsFold::changed, this, &InputForm::stateChanged);
    connect(this, &InputForm::stateChanged, summary_, &InputSummary::refresh);
    connect(summary_, &InputSummary::calculateClicked, this, &InputForm::lnkCalculate_Click);
    connect(Splitter1_, &Splitter::moved, this, &InputForm::sizesChanged);
}

// All forms have the sets, and the texts, of one.
void InputForm::applySet(const char* key) {
    ApplyFormParameters(QStringLiteral("frm"), QStringLiteral("frmselection"), QLatin1String(key), *this);
}

Form::Face InputForm::face() const {
    if (kind_.isSearch) return {"find", "formselection.find"};
    return kind_.hasInverter ? Face{"inverter", "formselection.inverter"}
                             : Face{"form", "formselection.description"};
}

void InputForm::Traduci() {
    const bool isChinese = gApplication().User().language == "cn-CN";
    panel_->ResizeControls(isChinese ? wideCaptionWidth : InputPanel::usualCaptionWidth);
    applySet("populate");
    panel_->lnkCalculate->setText(dictionaryText(QStringLiteral("frmselection.lnkcalculate.caption")));
    panel_->SetCaptionText(dictionaryText(QStringLiteral("frmselection.coolframe1.captiontext")));
    panel_->lnkDefaults->setText(dictionaryText(QStringLiteral("frmselection.lnkdefaults.caption")));
    summary_->setTexts(panel_->property("CaptionText").toString().trimmed(),
                       dictionaryText(QStringLiteral("frmselection.summary.edit")),
                       panel_->lnkCalculate->text());
    fields_->translate();
    summary_->refresh();
    panel_->layOut();
    results().translate();
}

void InputForm::PopulateFrame4() { results().fillPage(); }

void InputForm::MeasureUnits(int unit, bool refresh) {
    const UnitSystem before = inputs_.units();
    fields_->setUnits(unit == 1 ? UnitSystem::imperial : UnitSystem::metric);
    if (inputs_.units() != before && refresh) results().relist();
}

void InputForm::CloseFrame(bool collapse) { fold_->collapse(collapse); }
bool InputForm::isCollapsed() const { return fold_->isCollapsed(); }

void InputForm::MnuPopUp(const QString& name) {
    results().selectPage(name);
    if (name == u"copytoclipboard") CopyToClipBoard();
    if (name == u"print" || name == u"printpreview") PrintReport(name == u"printpreview");
}

void InputForm::CopyToClipBoard() { results().copy(); }

void InputForm::PrintReport(bool preview) { results().print(preview); }

void InputForm::lnkCalculate_Click() {
    if (!isBusy() && fields_->check()) calculate();
}

void InputForm::showResults(bool show) {
    Splitter1_->SetChild2(show ? results().objectName() : frame2_->objectName());
    frame2_->setVisible(!show);
    if (!show) results().hide();
    fold_->setHasResults(show);
}

bool InputForm::WheelMoved(int step) { return fields_->turnWheel(step); }

bool InputForm::hasResults() const { return !results().isHidden(); }

bool InputForm::canCopy() const { return results().canCopy(); }

bool InputForm::canPrint() const { return results().canPrint(); }

FormState InputForm::state() const {
    return {.inputs = inputs_.state(),
            .columnWidths = results().chosenWidths(),
            .switchedColumns = results().switchedColumns(),
            .mapQuantity = results().mapQuantity()};
}

void InputForm::takeOver(const FormState& state) {
    if (state.isEmpty()) return;
    takeOverInputs(state.inputs);
    results().setChosenWidths(state.columnWidths);
    results().setSwitchedColumns(state.switchedColumns);
    if (!state.mapQuantity.isEmpty()) results().setMapQuantity(state.mapQuantity);
}

void InputForm::takeOverInputs(const InputState& inputs) {
    fields_->commit();
    inputs_.takeOver(inputs);
    fields_->show();
    emit stateChanged();
}

InputForm::Sizes InputForm::sizes() const { return {fold_->panelWidth(), results().listHeights()}; }

void InputForm::setSizes(const Sizes& sizes) {
    fold_->setPanelWidth(sizes.panelWidth);
    results().setListHeights(sizes.listHeights);
}

void InputForm::resizeEvent(QResizeEvent*) { fold_->layOut(); }

void InputForm::keyPressEvent(QKeyEvent* event) {
    // Enter leaves no field: the calculation is started by its own key.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
    if (event->key() == Qt::Key_Escape && fold_->isNarrow() && hasResults()) {
        fold_->collapse(true);
        return;
    }
    Form::keyPressEvent(event);
}

void InputForm::keep() const { keepFormState(objectName(), state()); }

}  // namespace marvello
