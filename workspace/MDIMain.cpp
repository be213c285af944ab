#include "workspace/MDIMain.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QRandomGenerator>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "controls/AdvanceText.h"
#include "controls/Hairline.h"
#include "controls/Icons.h"
#include "controls/MessageBox.h"
#include "controls/TabStrip.h"
#include "data/DictionaryTexts.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "workspace/AlphaVersion.h"
#include "workspace/ApplyFormParameters.h"
#include "workspace/DropList.h"
#include "workspace/FormFocus.h"
#include "workspace/FramePlace.h"
#include "workspace/ResultsPane.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"
#include "workspace/WorkArea.h"
#include "workspace/frmComparison.h"
#include "workspace/frmFind.h"
#include "workspace/frmMenu.h"
#include "workspace/frmSelection.h"
#include "workspace/frmYear.h"
#include "workspace/frmselectionInverter.h"

namespace marvello {

namespace {

/// The pointer waits as long as this lives.
struct WaitCursor {
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

bool isOfInverters(const Form* form) {
    const auto* withInputs = qobject_cast<const InputForm*>(form);
    return withInputs && withInputs->kind().hasInverter;
}

}  // namespace

MDIMain::MDIMain(const QString& version, QWidget* parent)
    : QMainWindow(parent), version_(version), dropList_(new DropList(this)) {
    setObjectName(QStringLiteral("MDIMain"));
    setWindowTitle(QStringLiteral("Kestrom - Marvello "));
    setWindowIcon(markIcon(QStringLiteral("emblem")));
    setMinimumSize(560, 320);
    makeCommands();
    makeMenus();
    makeToolBar();
    makeWorkArea();
    makeStatusBar();
    ApplyFormParameters(QStringLiteral("frm"), objectName(), QStringLiteral("eng"), *this);
    populateDictionary(fromCore(gApplication().User().language));
    Traduci();
    populateLanguages();
    setWindowTitle(QStringLiteral("Marvello ") + version);
    restoreSizes();
    OpenForms();
    qApp->installEventFilter(this);
}

MDIMain::~MDIMain() {
    // The forms report their end to this window: they go first.
    disconnect(area_, nullptr, this, nullptr);
    for (QMdiSubWindow* window : area_->subWindowList()) disconnect(window, nullptr, this, nullptr);
    for (Form* form : forms()) disconnect(form, nullptr, this, nullptr);
}

void MDIMain::makeWorkArea() {
    auto* centre = new QWidget(this);
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    tabBand_ = new TabBand(TabStrip::Kind::forms, centre);
    TabStrip_ = tabBand_->strip();
    TabStrip_->setObjectName(QStringLiteral("TabStrip"));
    area_ = new WorkArea(centre);
    area_->setFrameShape(QFrame::NoFrame);
    formFocus_ = new FormFocus(*area_);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    column->addWidget(tabBand_);
    column->addWidget(area_, 1);
    setCentralWidget(centre);
    connect(area_, &QMdiArea::subWindowActivated, this, &MDIMain::activated);
    connect(TabStrip_, &QTabBar::currentChanged, this, [this](int tab) {
        for (QMdiSubWindow* window : area_->subWindowList())
            if (const auto* form = qobject_cast<Form*>(window->widget());
                form && form->Key() == TabStrip_->key(tab) && area_->activeSubWindow() != window)
                area_->setActiveSubWindow(window);
    });
}

void MDIMain::makeStatusBar() {
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    statusBar()->setSizeGripEnabled(false);
    subject_ = new QLabel(this);
    counts_ = new QLabel(this);
    subject_->setContentsMargins(10, 0, 6, 0);
    separator_ = new Hairline(this);
    separator_->setFixedHeight(14);
    counts_->setContentsMargins(6, 0, 12, 0);
    counts_->setObjectName(QStringLiteral("statusCounts"));
    statusBar()->addWidget(subject_);
    statusBar()->addWidget(separator_);
    statusBar()->addWidget(counts_, 1);
    makeAlphaStamp();
}

// The stamp of a version that is tried out; its colour changes, so that no one overlooks it.
void MDIMain::makeAlphaStamp() {
    auto* lAlphaVersion = new QLabel(QStringLiteral("ALPHA"), this);
    lAlphaVersion->setObjectName(QStringLiteral("lAlphaVersion"));
    lAlphaVersion->setVisible(isAlphaVersion());
    statusBar()->addPermanentWidget(lAlphaVersion);
    if (!isAlphaVersion()) return;
    constexpr int blinking = 500;  // milliseconds
    auto* timerBlinking = new QTimer(this);
    connect(timerBlinking, &QTimer::timeout, lAlphaVersion, [lAlphaVersion] {
        const auto part = [] { return 1 + QRandomGenerator::global()->bounded(255); };
        lAlphaVersion->setStyleSheet(QStringLiteral("color: %1").arg(QColor(part(), part(), part()).name()));
    });
    timerBlinking->start(blinking);
}

void MDIMain::populateDictionary(const QString& language) {
    gApplication().populateDictionary(defaultLanguage, toCore(language));
}

void MDIMain::populateLanguages() {
    languages_ = new QActionGroup(this);
    const QString current = fromCore(lowered(trimmed(gApplication().User().language)));
    for (const Language& each : catalogueLanguages()) {
        const QString language = fromCore(each.key);
        QAction* item = mnu_tools_language_->addAction(fromCore(each.name));
        item->setObjectName(QStringLiteral("mnu_tools_language_items"));
        item->setData(language);
        item->setCheckable(true);
        item->setChecked(language.trimmed().toLower() == current);
        languages_->addAction(item);
        connect(item, &QAction::triggered, this, [this, language] { chooseLanguage(language); });
    }
}

void MDIMain::chooseLanguage(const QString& language) {
    populateDictionary(language);
    for (QAction* item : languages_->actions()) item->setChecked(item->data().toString() == language);
    clsUser user = gApplication().User();
    user.language = toCore(language);
    gApplication().SaveUserInformation(user);
    Traduci();
    for (Form* form : forms()) {
        form->Traduci();
        describe(*form);
        TabStrip_->setTabText(TabStrip_->indexOf(form->Key()), form->Description());
    }
    refreshState();
}

void MDIMain::openStartMenu() {
    constexpr int delay = 100;  // milliseconds; the window is drawn by then
    QTimer::singleShot(delay, this, [this] {
        showNewBuilds();
        newForm();
    });
}

void MDIMain::newForm() {
    const frmMenu::Choice choice = frmMenu(this).choose();
    activateWindow();
    switch (choice) {
        case frmMenu::selection:
            newSelection();
            break;
        case frmMenu::inverter:
            newInverterSelection();
            break;
        case frmMenu::find:
            newFind();
            break;
        case frmMenu::year:
            newYear();
            break;
        default:
            break;
    }
}

SelectionForm* MDIMain::newSelection() { return openNew<frmSelection>(); }

SelectionForm* MDIMain::newInverterSelection() { return openNew<frmselectionInverter>(); }

frmFind* MDIMain::newFind() {
    auto* form = openNew<frmFind>();
    connect(form, &frmFind::opened, this, &MDIMain::openSolution);
    return form;
}

void MDIMain::openSolution(const SelectionOfCandidate& solution, const QString& compressor) {
    SelectionForm* form = solution.kind->hasInverter ? newInverterSelection() : newSelection();
    form->takeOverInputs(solution.inputs);
    form->keepSelection(compressor);
    form->lnkCalculate_Click();
}

frmComparison* MDIMain::comparison() const {
    for (Form* form : forms())
        if (auto* found = qobject_cast<frmComparison*>(form)) return found;
    return nullptr;
}

// The list stays in front, where more may be chosen.
void MDIMain::compare(const std::vector<ComparedChoice>& choices) {
    if (choices.empty()) return;
    frmComparison* form = comparison();
    if (!form) {
        form = std::make_unique<frmComparison>().release();  // its window owns it
        connect(form, &frmComparison::addRequested, this, &MDIMain::offerToCompare);
        connect(form, &frmComparison::choicesChanged, this, &MDIMain::showCompared);
        connect(form, &QObject::destroyed, this, &MDIMain::showCompared);
        placeBehind(form);
    }
    const frmComparison::Added added = form->add(choices);
    sayAdded(added.note, added.refusal);
}

void MDIMain::placeBehind(Form* form) {
    QMdiSubWindow* const before = area_->activeSubWindow();
    QWidget* const inUse = QApplication::focusWidget();
    setUpdatesEnabled(false);
    form->MeasureUnits(cmbmeasureunits_->Key().toInt(), false);
    place(form, form->focusWidget());
    if (before) area_->setActiveSubWindow(before);
    if (inUse) inUse->setFocus();
    setUpdatesEnabled(true);
}

void MDIMain::sayAdded(const QString& said, const QString& refusal) {
    if (!said.isEmpty()) note(said);
    if (!refusal.isEmpty()) MessageBox::show(this, MessageBox::Mark::information, refusal);
}

frmYear* MDIMain::newYear() {
    const WaitCursor wait;
    auto* form = std::make_unique<frmYear>().release();  // its window owns it
    form->MeasureUnits(cmbmeasureunits_->Key().toInt(), false);
    place(form, form->focusWidget());
    return form;
}

void MDIMain::addToYear(const std::vector<ComparedChoice>& choices) {
    if (choices.empty()) return;
    frmYear* form = nullptr;
    for (QMdiSubWindow* window : area_->subWindowList(QMdiArea::ActivationHistoryOrder))
        if (auto* found = qobject_cast<frmYear*>(window->widget())) form = found;
    if (!form) {
        form = std::make_unique<frmYear>().release();
        placeBehind(form);
    }
    const frmYear::Added added = form->add(choices);
    sayAdded(added.note, added.refusal);
}

void MDIMain::showCompared() {
    const frmComparison* const form = comparison();
    for (Form* each : forms())
        if (auto* withInputs = qobject_cast<InputForm*>(each))
            withInputs->results().showCompared(form ? form->choices() : std::vector<ComparedChoice>());
}

void MDIMain::offerToCompare(const QPoint& place) {
    QMenu menu(this);
    for (Form* form : forms()) {
        auto* withInputs = qobject_cast<InputForm*>(form);
        if (!withInputs || !withInputs->hasResults()) continue;
        QMenu* const list = menu.addMenu(form->Description());
        for (const ListPane::Listed& listed : withInputs->results().listedRows())
            connect(list->addAction(listed.label), &QAction::triggered, this,
                    [this, choice = listed.choice] { compare({choice}); });
    }
    if (menu.isEmpty())
        menu.addAction(dictionaryText(QStringLiteral("frmcomparison.nolist")))->setEnabled(false);
    menu.exec(place);
}

template <class Kind>
Kind* MDIMain::openNew() {
    const WaitCursor wait;
    // The frame of the form owns it.
    Kind* form = std::make_unique<Kind>().release();
    open(form);
    return form;
}

void MDIMain::open(InputForm* form) {
    QWidget* const firstInUse = form->focusWidget();
    form->MeasureUnits(cmbmeasureunits_->Key().toInt(), true);
    // From the form at hand; the first form goes on where the one before it ended. A search has more to ask
    // than a selection, and goes on with that in any case.
    const auto* active = qobject_cast<const InputForm*>(ActiveForm());
    const bool isLike = active && active->kind().isSearch == form->kind().isSearch;
    form->takeOver(isLike ? active->state() : keptFormState(form->objectName()));
    if (active && !isLike) form->takeOverInputs(active->state().inputs);
    form->setSizes({settings::panelWidth.value(), settings::listHeights.value()});
    connect(form, &Form::sizesChanged, this, [form] { keepSizes(*form); });
    if (auto* selection = qobject_cast<SelectionForm*>(form))
        selection->populateLVCPS(cmbGroupBy_->Key().toInt());
    connect(&form->results(), &ListPane::chosenToCompare, this, &MDIMain::compare);
    connect(&form->results(), &ListPane::chosenForYear, this, &MDIMain::addToYear);
    connect(&form->results(), &ListPane::takenFromComparison, this, [this](const ComparedChoice& choice) {
        if (frmComparison* compared = comparison()) compared->remove(choice);
    });
    place(form, firstInUse);
    showCompared();
}

void MDIMain::place(Form* form, QWidget* firstInUse) {
    const QString number = QString::number(++formNumber_);
    const QIcon picture = icon(QLatin1String(form->face().icon));
    form->setKey(number + QStringLiteral("Selection"));
    describe(*form);
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->setWindowIcon(picture);

    const QString key = form->Key();
    connect(form, &Form::stateChanged, this, &MDIMain::refreshState);
    connect(form, &Form::guideRequested, this, &MDIMain::showGuide);
    connect(form, &Form::exported, this, &MDIMain::note);
    connect(form, &QObject::destroyed, this, [this, key] {
        TabStrip_->removeTab(TabStrip_->indexOf(key));
        OpenForms();
    });
    const int tab = TabStrip_->addKeyed(key, form->Description(), picture);
    QMdiSubWindow* window = area_->addSubWindow(form);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowIcon(form->windowIcon());
    formFocus_->begin(window, firstInUse);
    // The menu of the program closes forms; two holders of one key would leave it without effect.
    for (QAction* action : window->systemMenu()->actions()) action->setShortcuts({});
    connect(window, &QMdiSubWindow::windowStateChanged, this, &MDIMain::hideChildControls);
    window->showMaximized();
    TabStrip_->setCurrentIndex(tab);
    OpenForms();
}

void MDIMain::note(const QString& text) {
    constexpr int shown = 15000;  // milliseconds
    statusBar()->showMessage(text, shown);
}

void MDIMain::describe(Form& form) {
    const QString number = form.Key().chopped(QStringLiteral("Selection").size());
    const QString what = dictionaryText(QLatin1String(form.face().textKey));
    form.setDescription(number + u' ' + what.trimmed());
}

Form* MDIMain::ActiveForm() const {
    const QMdiSubWindow* window = area_->currentSubWindow();
    return window ? qobject_cast<Form*>(window->widget()) : nullptr;
}

QList<Form*> MDIMain::forms() const {
    QList<Form*> result;
    for (const QMdiSubWindow* window : area_->subWindowList())
        if (auto* form = qobject_cast<Form*>(window->widget())) result += form;
    return result;
}

void MDIMain::activated(QMdiSubWindow* window) {
    if (const auto* form = window ? qobject_cast<Form*>(window->widget()) : nullptr)
        TabStrip_->setCurrentIndex(TabStrip_->indexOf(form->Key()));
    hideChildControls();
    refreshState();
}

// A maximized form puts its icon and its buttons into the menu bar: its tab shows the icon already, and a
// second set of buttons would be taken for those of the frame.
void MDIMain::hideChildControls() {
    for (const Qt::Corner corner : {Qt::TopLeftCorner, Qt::TopRightCorner})
        if (QWidget* widget = menuBar()->cornerWidget(corner)) widget->hide();
}

void MDIMain::OpenForms() {
    const bool any = TabStrip_->count() > 0;
    tabBand_->setVisible(any);
    commands_.enable(Needs::form, any);
    refreshState();
}

void MDIMain::refreshState() {
    const Form* form = TabStrip_->count() > 0 ? ActiveForm() : nullptr;
    const auto* withInputs = qobject_cast<const InputForm*>(form);
    const bool hasResults = form && form->hasResults();
    const bool isSelection = qobject_cast<const SelectionForm*>(form) != nullptr;
    commands_.enable(Needs::results, hasResults);
    commands_.enable(Needs::selectionResults, hasResults && isSelection);
    commands_.enable(Needs::listedRow, withInputs && withInputs->canCopy());
    commands_.enable(Needs::copyableRow, form && form->canCopy());
    commands_.enable(Needs::printableRow, form && form->canPrint());
    commands_.enable(Needs::inputs, form && form->canCollapse());
    commands_.enable(Needs::listedResults, hasResults && withInputs);
    commands_[Command::collapseInputs]->setChecked(form && form->isCollapsed());
    cmbGroupBy_->setEnabled(hasResults && isSelection);
    cmbmeasureunits_->setEnabled(form != nullptr);
    // Each form keeps its own system of units.
    if (form) showKey(cmbmeasureunits_, QString::number(form->MeasureUnit()));
    refreshStatus(form);
}

void MDIMain::refreshStatus(const Form* form) {
    subject_->setText(form ? form->subject() : dictionaryText(QStringLiteral("mdimain.status.ready")));
    separator_->setVisible(form != nullptr);
    if (!form) {
        counts_->clear();
    } else if (!form->hasCounts()) {
        counts_->setText(dictionaryText(QStringLiteral("mdimain.status.notcalculated")));
    } else {
        counts_->setText(form->counts());
    }
}

void MDIMain::closeAll() {
    // Kept: forms of inverter compressors stay open: the command closes the others alone.
    for (Form* form : forms())
        if (!isOfInverters(form)) form->Quit();
}

void MDIMain::restoreSizes() {
    migrateSettings();
    placeFrame(*this, settings::frame.value());
    showKey(cmbmeasureunits_, QString::number(settings::measureUnit.value()));
    showKey(cmbGroupBy_, QString::number(settings::groupBy.value()));
}

void MDIMain::keepSizes(const InputForm& form) {
    QSettings store = userSettings();
    settings::panelWidth.keep(form.sizes().panelWidth, store);
    settings::listHeights.keep(form.sizes().listHeights, store);
}

void MDIMain::closeEvent(QCloseEvent* event) {
    QSettings store = userSettings();
    settings::frame.keep(saveGeometry(), store);
    settings::measureUnit.keep(cmbmeasureunits_->Key().toInt(), store);
    settings::groupBy.keep(cmbGroupBy_->Key().toInt(), store);
    if (const Form* form = ActiveForm()) form->keep();
    QMainWindow::closeEvent(event);
}

bool MDIMain::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && watched->isWidgetType())
        if (turnedWheel(static_cast<QWheelEvent*>(event)->angleDelta().y())) return true;
    if (event->type() == QEvent::KeyPress && watched->isWidgetType())
        if (tookKey(*static_cast<QWidget*>(watched), *static_cast<QKeyEvent*>(event))) return true;
    return QMainWindow::eventFilter(watched, event);
}

// The keys of a form, where the focus is in the tool bar, the tabs or the frame itself. In a form they are
// its own.
bool MDIMain::tookKey(const QWidget& focused, const QKeyEvent& key) {
    Form* form = ActiveForm();
    // A key that no control took goes up to the frame as well: it counts where it was pressed.
    if (key.modifiers() != Qt::NoModifier || focused.window() != this || !focused.hasFocus() ||
        (form && form->isAncestorOf(&focused)))
        return false;
    if (key.key() == Qt::Key_F5 && form) form->recalculate();
    if (key.key() == Qt::Key_F1) showGuide();
    return key.key() == Qt::Key_F5 || key.key() == Qt::Key_F1;
}

// Turns of the wheel over the field in use change its value; fine-stepping wheels add up. True when it was
// used.
bool MDIMain::turnedWheel(int delta) {
    constexpr int turn = 120;
    // Kept: the wheel does not reach a form of inverter compressors, where scrolling changes no value.
    Form* form = ActiveForm();
    if (!form || isOfInverters(form)) return false;
    wheel_ += delta;
    const int count = wheel_ / turn;
    wheel_ %= turn;
    return form->WheelMoved(count);
}

}  // namespace marvello
