#include "workspace/SelectionForm.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>

#include "controls/AdvanceText.h"
#include "controls/Look.h"
#include "controls/MessagesView.h"
#include "controls/ResultsView.h"
#include "controls/Splitter.h"
#include "controls/TabStrip.h"
#include "controls/ctlBtn.h"
#include "data/Globals.h"
#include "workspace/ApplyFormParameters.h"
#include "workspace/DropList.h"
#include "workspace/EmptyPage.h"
#include "workspace/InputPanel.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmpG.h"

namespace marvello {

namespace {

constexpr int panelWidthAtStart = 400;
constexpr int mostPanelWidth = 520;
constexpr int leastPanelWidth = 400;
constexpr int leastListHeight = 120;
constexpr int listHeightAtStart = 338;
constexpr int captionWidth = 112;
constexpr int wideCaptionWidth = 116;

/// A plain widget that paints its ground.
QWidget* pane(const char* name, QWidget* parent) {
    auto* result = new QWidget(parent);
    result->setObjectName(QLatin1String(name));
    result->setAutoFillBackground(true);
    QPalette palette = result->palette();
    palette.setColor(QPalette::Window, Look::current().surface);
    result->setPalette(palette);
    return result;
}

}  // namespace

SelectionForm::SelectionForm(const SelectionKind& kind, QWidget* parent)
    : QWidget(parent),
      kind_(kind),
      dropList_(new DropList(this)),
      Selection_(std::make_unique<clsSelections>()) {
    setObjectName(QLatin1String(kind.name));
    setMinimumSize(880, 560);
    makePanes();
    connectInputs();
    auto* calculate = new QShortcut(QKeySequence(Qt::Key_F5), this);
    calculate->setContext(Qt::WidgetWithChildrenShortcut);
    connect(calculate, &QShortcut::activated, this, &SelectionForm::lnkCalculate_Click);
    connect(panel_->lnkCalculate, &ctlBtn::clicked, this, &SelectionForm::lnkCalculate_Click);

    writeDefaults();
    Traduci();
    if (kind_.hasInverter) applySet(QStringLiteral("Init"));
    PopulateInputObject(1, QStringLiteral("R134A"));
    SyncTemperatureFields(QStringLiteral("tcd"));
    SyncTemperatureFields(QStringLiteral("ted"));
    panel_->layOut();
    panel_->txtTED->setFocus();
}

SelectionForm::~SelectionForm() = default;

void SelectionForm::makePanes() {
    Splitter1_ = new Splitter(this);
    Splitter1_->setObjectName(QStringLiteral("Splitter1"));
    QWidget* Frame1 = pane("Frame1", Splitter1_);
    panel_ = new InputPanel(kind_.hasInverter, Frame1);
    auto* inside = new QVBoxLayout(Frame1);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(panel_);
    frame2_ = new EmptyPage(Splitter1_);
    frame2_->setObjectName(QStringLiteral("frame2"));

    Splitter2_ = new Splitter(Splitter1_);
    Splitter2_->setObjectName(QStringLiteral("Splitter2"));
    QWidget* frame3 = pane("frame3", Splitter2_);
    lvCps_ = new ResultsView(frame3);
    lvCps_->setObjectName(QStringLiteral("lvCps"));
    auto* list = new QVBoxLayout(frame3);
    list->setContentsMargins(0, 0, 0, 0);
    list->addWidget(lvCps_);

    QWidget* Frame4 = pane("Frame4", Splitter2_);
    auto* band = new TabBand(TabStrip::Kind::pages, Frame4);
    TabStrip_ = band->strip();
    TabStrip_->setObjectName(QStringLiteral("TabStrip"));
    TabStrip_->addKeyed(QStringLiteral("messages"), QString());
    lvMessages_ = new MessagesView(Frame4);
    lvMessages_->setObjectName(QStringLiteral("lvMessages"));
    auto* pages = new QVBoxLayout(Frame4);
    pages->setContentsMargins(0, 0, 0, 0);
    pages->setSpacing(0);
    pages->addWidget(band);
    pages->addWidget(lvMessages_, 1);

    Splitter2_->SetOrientation(1);
    Splitter2_->SetMinSize1(leastListHeight);
    Splitter2_->SetMinSize2(leastListHeight);
    Splitter2_->SetChild1(QStringLiteral("Frame3"));
    Splitter2_->SetChild2(QStringLiteral("Frame4"));
    Splitter2_->SetSplitterPos(listHeightAtStart);
    Splitter2_->hide();

    Splitter1_->SetMinSize1(leastPanelWidth);
    Splitter1_->SetMaxSize(mostPanelWidth);
    Splitter1_->SetChild1(QStringLiteral("Frame1"));
    Splitter1_->SetChild2(QStringLiteral("frame2"));
    Splitter1_->SetSplitterPos(panelWidthAtStart);

    connect(lvCps_, &ResultsView::rowSelected, this, [this] {
        PopulateFrame4();
        emit stateChanged();
    });
    connect(TabStrip_, &QTabBar::currentChanged, this, &SelectionForm::PopulateFrame4);
    connect(Splitter1_, &Splitter::moved, this, &SelectionForm::sizesChanged);
    connect(Splitter2_, &Splitter::moved, this, &SelectionForm::sizesChanged);
}

void SelectionForm::setKey(const QString& key) {
    key_ = key;
    setWindowTitle(description_.isEmpty() ? key : description_);
}

void SelectionForm::setDescription(const QString& description) {
    description_ = description;
    setWindowTitle(description);
}

// Both forms have the sets, and the texts, of one.
void SelectionForm::applySet(const QString& key) {
    ApplyFormParameters(QStringLiteral("frm"), QStringLiteral("frmselection"), key, *this);
}

void SelectionForm::Traduci() {
    const bool isChinese = gApplication().User().language == "cn-CN";
    panel_->ResizeControls(isChinese ? wideCaptionWidth : captionWidth);
    applySet(QStringLiteral("populate"));
    panel_->lnkCalculate->setText(dictionaryText(QStringLiteral("frmselection.lnkcalculate.caption")));
    panel_->SetCaptionText(dictionaryText(QStringLiteral("frmselection.coolframe1.captiontext")));
    frame2_->setTexts(dictionaryText(QStringLiteral("frmselection.empty.title")),
                      dictionaryText(QStringLiteral("frmselection.empty.text")), panel_->lnkCalculate->text(),
                      QStringLiteral("F5"));
    translateTabs();
    // The descriptions of the chosen keys, in the new language.
    for (AdvanceText* field : panel_->fields())
        if (field->Locked()) showChoice(field);
    showUnits();
    markDerived(evaporatingMaster_ == 1 ? QStringLiteral("tem") : QStringLiteral("ted"));
    markDerived(condensingMaster_ == 1 ? QStringLiteral("tcm") : QStringLiteral("tcd"));
    if (hasResults()) relistResults();
}

void SelectionForm::translateTabs() {
    for (int tab = 0; tab < TabStrip_->count(); ++tab)
        TabStrip_->setTabText(
            tab, dictionaryText(QStringLiteral("frmselection.tabstrip.tabs.") + TabStrip_->key(tab)));
}

void SelectionForm::CloseFrame(bool collapse) {
    if (collapse == collapsed_) return;
    collapsed_ = collapse;
    if (collapse) {
        keptSplitterPos_ =
            Splitter1_->CurrSplitterPos() > 0 ? Splitter1_->CurrSplitterPos() : panelWidthAtStart;
        Splitter1_->SetMinSize1(0);
        Splitter1_->SetSplitterPos(0);
    } else {
        Splitter1_->SetMinSize1(leastPanelWidth);
        Splitter1_->SetSplitterPos(keptSplitterPos_);
    }
}

void SelectionForm::MnuPopUp(const QString& name) {
    if (const int tab = TabStrip_->indexOf(name); tab >= 0) TabStrip_->setCurrentIndex(tab);
}

void SelectionForm::Quit() {
    if (QWidget* window = parentWidget())
        window->close();
    else
        close();
}

int SelectionForm::panelWidth() const { return collapsed_ ? keptSplitterPos_ : Splitter1_->SplitterPos(); }
void SelectionForm::setPanelWidth(int width) { Splitter1_->SetSplitterPos(width); }
int SelectionForm::listHeight() const { return Splitter2_->SplitterPos(); }
void SelectionForm::setListHeight(int height) { Splitter2_->SetSplitterPos(height); }

QString SelectionForm::subject() const {
    return panel_->lstRefrigerants->TextText() + QStringLiteral(" \u00B7 ") + panel_->lstSeries->TextText();
}

void SelectionForm::resizeEvent(QResizeEvent*) { Splitter1_->resize(size()); }

void SelectionForm::keyPressEvent(QKeyEvent* event) {
    // Enter leaves no field: the calculation is started by its own key.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
    QWidget::keyPressEvent(event);
}

}  // namespace marvello
