#include "workspace/SelectionForm.h"

#include <QAction>
#include <QActionGroup>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <array>

#include "controls/AdvanceText.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/MessagesView.h"
#include "controls/ResultsView.h"
#include "controls/Splitter.h"
#include "controls/TabStrip.h"
#include "controls/ctlBtn.h"
#include "data/Session.h"
#include "workspace/ApplyFormParameters.h"
#include "workspace/DimensionPage.h"
#include "workspace/DropList.h"
#include "workspace/EmptyPage.h"
#include "workspace/InputPanel.h"
#include "workspace/InputSummary.h"
#include "workspace/InputsFold.h"
#include "workspace/LimitsPage.h"
#include "workspace/PolynomialsPage.h"
#include "workspace/TechnicalPage.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmpG.h"

namespace marvello {

namespace {

constexpr int leastListHeight = 92;  // headings and two rows
constexpr int leastPageHeight = 64;
constexpr int listHeightAtStart = 338;
constexpr int wideCaptionWidth = 116;

/// The pages in the order of their tabs: the key of the tab, and the text of its entry in the pop-up menu.
struct Page {
    const char* key;
    const char* menuText;
};
constexpr std::array<Page, 5> allPages{{
    {"messages", "mdimain.menu.cpspopup.messages"},
    {"tecnic", "mdimain.menu.cpspopup.tecnicaldata"},
    {"polynomials", "mdimain.menu.cpspopup.polynomials"},
    {"dimension", "mdimain.menu.cpspopup.dimesion"},
    {"limits", "mdimain.menu.cpspopup.limits"},
}};

QString menuName(const char* key) { return QStringLiteral("mnu_cpspopup_") + QLatin1String(key); }

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
    setMinimumSize(360, 180);
    makePanes();
    connectInputs();
    auto* calculate = new QShortcut(QKeySequence(Qt::Key_F5), this);
    calculate->setContext(Qt::WidgetWithChildrenShortcut);
    connect(calculate, &QShortcut::activated, this, &SelectionForm::lnkCalculate_Click);
    auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
    help->setContext(Qt::WidgetWithChildrenShortcut);
    connect(help, &QShortcut::activated, this, &SelectionForm::showHelp);
    connect(panel_->lnkCalculate, &ctlBtn::clicked, this, &SelectionForm::lnkCalculate_Click);
    connect(panel_->lnkDefaults, &Link::clicked, this, &SelectionForm::resetInputs);

    writeDefaults();
    Traduci();
    if (kind_.hasInverter) applySet(QStringLiteral("Init"));
    keepEconomizerValue();
    PopulateInputObject(1, QStringLiteral("R134A"));
    SyncTemperatureFields(QStringLiteral("tcd"));
    SyncTemperatureFields(QStringLiteral("ted"));
    panel_->layOut();
    panel_->txtTED->setFocus();
    defaults_ = state();
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
    for (const Page& page : allPages) TabStrip_->addKeyed(QLatin1String(page.key), QString());
    makePages(Frame4);
    makePopUp();
    auto* below = new QVBoxLayout(Frame4);
    below->setContentsMargins(0, 0, 0, 0);
    below->setSpacing(0);
    below->addWidget(band);
    below->addWidget(pages_, 1);

    Splitter2_->SetOrientation(1);
    Splitter2_->SetMinSize1(leastListHeight);
    Splitter2_->SetMinSize2(leastPageHeight);
    Splitter2_->SetChild1(QStringLiteral("Frame3"));
    Splitter2_->SetChild2(QStringLiteral("Frame4"));
    Splitter2_->SetSplitterPos(listHeightAtStart);
    Splitter2_->hide();

    Splitter1_->SetChild2(QStringLiteral("frame2"));
    summary_ = new InputSummary(*panel_, this);
    fold_ = new InputsFold(*this, *Splitter1_, *Frame1, *summary_);
    connect(fold_, &InputsFold::changed, this, &SelectionForm::stateChanged);
    connect(this, &SelectionForm::stateChanged, summary_, &InputSummary::refresh);
    connect(summary_, &InputSummary::calculateClicked, this, &SelectionForm::lnkCalculate_Click);

    connect(lvCps_, &ResultsView::rowSelected, this, [this] {
        PopulateFrame4();
        emit stateChanged();
    });
    connect(lvCps_, &QWidget::customContextMenuRequested, this, &SelectionForm::openPopUp);
    lvCps_->setSortable();
    connect(lvCps_, &ResultsView::headingClicked, this, &SelectionForm::sortBy);
    connect(lvCps_, &ResultsView::copyRequested, this, &SelectionForm::CopyToClipBoard);
    connect(TabStrip_, &QTabBar::currentChanged, this, &SelectionForm::tabChanged);
    tabChanged();
    connect(Splitter1_, &Splitter::moved, this, &SelectionForm::sizesChanged);
    connect(Splitter2_, &Splitter::moved, this, &SelectionForm::sizesChanged);
}

// In the order of the tabs.
void SelectionForm::makePages(QWidget* Frame4) {
    pages_ = new QStackedWidget(Frame4);
    lvMessages_ = new MessagesView(pages_);
    lvMessages_->setObjectName(QStringLiteral("lvMessages"));
    technical_ = new TechnicalPage(pages_);
    polynomials_ = new PolynomialsPage(pages_);
    dimension_ = new DimensionPage(pages_);
    dimension_->setObjectName(QStringLiteral("picDimension"));
    limits_ = new LimitsPage(pages_);
    for (QWidget* page :
         std::initializer_list<QWidget*>{lvMessages_, technical_, polynomials_, dimension_, limits_})
        pages_->addWidget(page);
}

void SelectionForm::makePopUp() {
    mnu_cpspopup_ = new QMenu(this);
    mnu_cpspopup_->setObjectName(QStringLiteral("mnu_cpspopup"));
    auto* shown = new QActionGroup(mnu_cpspopup_);
    for (const Page& page : allPages) {
        QAction* entry = shown->addAction(mnu_cpspopup_->addAction(QString()));
        entry->setObjectName(menuName(page.key));
        entry->setCheckable(true);
        connect(entry, &QAction::triggered, this, [this, key = page.key] { MnuPopUp(QLatin1String(key)); });
        popUpEntries_.push_back({entry, page.menuText, Needs::nothing});
    }
    mnu_cpspopup_->addSeparator();
    const auto add = [this](Command command, auto act) {
        const CommandDefinition& definition = definitionOf(command);
        QAction* entry = mnu_cpspopup_->addAction(QString());
        entry->setObjectName(QLatin1String(definition.popUpName));
        // Only shown here: the list and the main window listen to the keys.
        entry->setShortcutContext(Qt::WidgetShortcut);
        entry->setShortcut(definition.keys);
        entry->setShortcutVisibleInContextMenu(true);
        connect(entry, &QAction::triggered, this, act);
        popUpEntries_.push_back({entry, definition.popUpTextKey, definition.needs});
    };
    add(Command::copy, [this] { CopyToClipBoard(); });
    add(Command::printPreview, [this] { PrintReport(true); });
    add(Command::print, [this] { PrintReport(false); });
    lvCps_->setContextMenuPolicy(Qt::CustomContextMenu);
}

void SelectionForm::openPopUp(const QPoint& place) {
    if (!resultOf(lvCps_->selectedRow())) return;
    for (const PopUpEntry& entry : popUpEntries_)
        if (entry.needs == Needs::printableRow) entry.action->setEnabled(canPrint());
    mnu_cpspopup_->popup(lvCps_->viewport()->mapToGlobal(place));
}

void SelectionForm::tabChanged() {
    const int tab = TabStrip_->currentIndex();
    pages_->setCurrentIndex(tab);
    mnu_cpspopup_->actions().at(tab)->setChecked(true);
    PopulateFrame4();
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
    panel_->ResizeControls(isChinese ? wideCaptionWidth : InputPanel::usualCaptionWidth);
    applySet(QStringLiteral("populate"));
    columns_ = catalogueColumns();
    panel_->lnkCalculate->setText(dictionaryText(QStringLiteral("frmselection.lnkcalculate.caption")));
    panel_->SetCaptionText(dictionaryText(QStringLiteral("frmselection.coolframe1.captiontext")));
    panel_->lnkDefaults->setText(dictionaryText(QStringLiteral("frmselection.lnkdefaults.caption")));
    summary_->setTexts(panel_->property("CaptionText").toString().trimmed(),
                       dictionaryText(QStringLiteral("frmselection.summary.edit")),
                       panel_->lnkCalculate->text());
    lvCps_->header()->setAccessibleName(dictionaryText(QStringLiteral("frmselection.headings")));
    invite();
    translatePages();
    translateModels();
    // The descriptions of the chosen keys, in the new language.
    for (AdvanceText* field : panel_->fields())
        if (field->Locked()) showChoice(field);
    showUnits();
    sayRanges();
    markLeaders();
    sayAgain();
    panel_->layOut();
    relistResults();
}

void SelectionForm::translatePages() {
    for (int tab = 0; tab < TabStrip_->count(); ++tab)
        TabStrip_->setTabText(
            tab, dictionaryText(QStringLiteral("frmselection.tabstrip.tabs.") + TabStrip_->key(tab)));
    lvCps_->setAccessibleName(dictionaryText(QStringLiteral("frmselection.list")));
    lvCps_->setSpokenGroup(dictionaryText(QStringLiteral("frmselection.list.group")));
    lvMessages_->setAccessibleName(dictionaryText(QStringLiteral("frmselection.tabstrip.tabs.messages")));
    technical_->setCaption(dictionaryText(QStringLiteral("frmselection.tabstrip.tabs.tecnic")));
    dimension_->setAccessibleName(dictionaryText(QStringLiteral("frmselection.tabstrip.tabs.dimension")));
    TabStrip_->setAccessibleName(dictionaryText(QStringLiteral("frmselection.pages")));
    for (const PopUpEntry& entry : popUpEntries_)
        entry.action->setText(dictionaryText(QLatin1String(entry.textKey)));
    polynomials_->setTexts(dictionaryText(QStringLiteral("frmselection.labelPoly.Caption")),
                           dictionaryText(QStringLiteral("frmselection.lctlCopyPolynomials.caption")));
}

void SelectionForm::CloseFrame(bool collapse) { fold_->collapse(collapse); }
bool SelectionForm::isCollapsed() const { return fold_->isCollapsed(); }

void SelectionForm::MnuPopUp(const QString& name) {
    if (const int tab = TabStrip_->indexOf(name); tab >= 0) TabStrip_->setCurrentIndex(tab);
    if (name == u"copytoclipboard") CopyToClipBoard();
    if (name == u"print" || name == u"printpreview") PrintReport(name == u"printpreview");
}

void SelectionForm::Quit() {
    if (QWidget* window = parentWidget())
        window->close();
    else
        close();
}

int SelectionForm::panelWidth() const { return fold_->panelWidth(); }
void SelectionForm::setPanelWidth(int width) { fold_->setPanelWidth(width); }
int SelectionForm::listHeight() const { return Splitter2_->SplitterPos(); }
void SelectionForm::setListHeight(int height) { Splitter2_->SetSplitterPos(height); }

QString SelectionForm::subject() const {
    const QString between = QStringLiteral(" \u00B7 ");
    const QString subject = panel_->lstRefrigerants->TextText() + between + panel_->lstSeries->TextText();
    if (!panel_->txtFrequency) return subject;
    return subject + between + withUnit(*panel_->txtFrequency);
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

}  // namespace marvello
