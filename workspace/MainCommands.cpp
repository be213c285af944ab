// The menus, the tool bar and the selectors of the main window.

#include <QAction>
#include <QCoreApplication>
#include <QFileInfo>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLibraryInfo>
#include <QMenu>
#include <QMenuBar>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolBar>
#include <QToolButton>
#include <initializer_list>
#include <memory>
#include <vector>

#include "controls/AdvanceText.h"
#include "controls/Hairline.h"
#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/TabStrip.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "workspace/DropList.h"
#include "workspace/MDIMain.h"
#include "workspace/ResultsPane.h"
#include "workspace/SelectionForm.h"
#include "workspace/WindowTexts.h"
#include "workspace/WorkArea.h"
#include "workspace/formBuilds.h"
#include "workspace/formGuide.h"
#include "workspace/frmAbout.h"

namespace marvello {

namespace {

constexpr int measureBoxWidth = 116;
constexpr int groupBoxWidth = 132;

/// The button of a tool bar that opens a menu: its icon and a chevron.
class MenuButton : public QToolButton {
  public:
    using QToolButton::QToolButton;

    QSize sizeHint() const override { return QToolButton::sizeHint() + QSize(chevronRoom, 0); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionToolButton option;
        initStyleOption(&option);
        option.features = QStyleOptionToolButton::None;
        option.icon = QIcon();
        option.text.clear();
        painter.drawComplexControl(QStyle::CC_ToolButton, option);
        const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
        const QRect place((width() - chevronRoom - iconSize().width()) / 2,
                          (height() - iconSize().height()) / 2, iconSize().width(), iconSize().height());
        icon().paint(&painter, place, Qt::AlignCenter, mode);
        const QRect chevron(place.right() + 1, (height() - chevronRoom) / 2, chevronRoom, chevronRoom);
        marvello::icon(QStringLiteral("chev")).paint(&painter, chevron, Qt::AlignCenter, mode);
    }

  private:
    static constexpr int chevronRoom = 14;
};

QToolButton* toolButton(QAction* action, QWidget* bar) {
    QToolButton* button = action->menu() ? new MenuButton(bar) : new QToolButton(bar);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);  // menus and keys have the same commands
    button->setIconSize(QSize(20, 20));
    // The whole button opens its entries: none of them is more likely to be meant than the other.
    if (action->menu()) button->setPopupMode(QToolButton::InstantPopup);
    return button;
}

/// The line between two groups of buttons.
QWidget* separator(QWidget* bar) {
    auto* line = new Hairline(bar);
    line->setFixedSize(17, 20);
    return line;
}

QString guideFile() {
    return fromCore(Session::current().applicationFolder) + QStringLiteral("/guide/guide.md");
}
QString buildsFile() {
    return fromCore(Session::current().applicationFolder) + QStringLiteral("/builds.rtf");
}

}  // namespace

void MDIMain::showKey(AdvanceText* field, const QString& key) {
    field->setkey(key);
    field->SetTextValue(fromCore(ListLookup(toCore(key), toCore(field->Tag1()))));
}

void MDIMain::makeCommands() {
    const auto on = [this](Command command, auto act) {
        connect(commands_[command], &QAction::triggered, this, act);
    };
    const auto onForm = [this, &on](Command command, auto act) {
        on(command, [this, act] {
            if (Form* form = ActiveForm()) act(*form);
        });
    };
    const auto onInputForm = [this, &on](Command command, auto act) {
        on(command, [this, act] {
            if (auto* form = qobject_cast<InputForm*>(ActiveForm())) act(*form);
        });
    };
    on(Command::newSelection, [this] { newForm(); });
    onForm(Command::closeForm, [](Form& form) { form.Quit(); });
    on(Command::closeAll, [this] { closeAll(); });
    on(Command::exit, [this] { close(); });
    // The key belongs to what has the focus: the list copies its rows, a field its text.
    commands_[Command::copy]->setShortcutContext(Qt::WidgetShortcut);
    onForm(Command::copy, [](Form& form) { form.CopyToClipBoard(); });
    onInputForm(Command::addToComparison,
                [this](InputForm& form) { compare(form.results().selectedChoices()); });
    onInputForm(Command::addToYear, [this](InputForm& form) { addToYear(form.results().selectedChoices()); });
    onForm(Command::print, [](Form& form) { form.PrintReport(false); });
    onForm(Command::printPreview, [](Form& form) { form.PrintReport(true); });
    onForm(Command::exportList, [](Form& form) { form.ExportCPS(); });
    onForm(Command::exportPolynomials, [](Form& form) {
        if (auto* selection = qobject_cast<SelectionForm*>(&form)) selection->ExportPolynomials();
    });
    commands_[Command::collapseInputs]->setCheckable(true);
    connect(commands_[Command::collapseInputs], &QAction::toggled, this, [this](bool collapse) {
        if (Form* form = ActiveForm()) form->CloseFrame(collapse);
    });
    onInputForm(Command::previousRow, [](InputForm& form) { form.results().moveSelection(-1); });
    onInputForm(Command::nextRow, [](InputForm& form) { form.results().moveSelection(1); });
    on(Command::cascade, [this] { area_->cascadeSubWindows(); });
    on(Command::tileHorizontal, [this] { area_->tile(Qt::Vertical); });
    on(Command::tileVertical, [this] { area_->tile(Qt::Horizontal); });
    on(Command::arrangeIcons, [this] { area_->arrangeIcons(); });
    on(Command::guide, [this] { showGuide(); });
    commands_[Command::builds]->setVisible(QFileInfo(buildsFile()).size() >= 1);
    on(Command::builds, [this] { showBuilds(); });
    on(Command::about, [this] { frmAbout(version_, this).exec(); });
}

void MDIMain::makeMenus() {
    using Groups = std::initializer_list<std::initializer_list<Command>>;
    using enum Command;
    const auto fill = [this](QMenu* menu, const char* name, const Groups& groups) {
        menu->setObjectName(QLatin1String(name));
        for (const auto& group : groups) {
            if (&group != groups.begin()) menu->addSeparator();
            for (const Command command : group) menu->addAction(commands_[command]);
        }
        return menu;
    };
    const auto menu = [this] { return menuBar()->addMenu(QString()); };
    mnu_file_ =
        fill(menu(), "mnu_file", {{newSelection}, {closeForm, closeAll}, {printPreview, print}, {exit}});
    // One menu, below the menu bar and below the button of the tool bar.
    commands_[exports]->setMenu(fill(new QMenu(this), "mnu_tools_export", {{exportList, exportPolynomials}}));
    mnu_tools_ = fill(menu(), "mnu_tools", {{exports, copy}, {addToComparison, addToYear}});
    mnu_tools_->addSeparator();
    mnu_tools_language_ = fill(mnu_tools_->addMenu(QString()), "mnu_tools_language", {});
    mnuWindow_ = fill(menu(), "mnuWindow", {{cascade, tileHorizontal, tileVertical, arrangeIcons}});
    mnu_help_ = fill(menu(), "mnu_help", {{guide, builds, about}});
}

void MDIMain::makeToolBar() {
    CoolBar1_ = addToolBar(QString());
    CoolBar1_->setObjectName(QStringLiteral("CoolBar1"));
    CoolBar1_->setMovable(false);
    CoolBar1_->setContextMenuPolicy(Qt::PreventContextMenu);
    setContextMenuPolicy(Qt::NoContextMenu);
    const auto bar = [this](const char* name, const std::vector<std::vector<Command>>& groups) {
        auto* result = new QWidget(CoolBar1_);
        result->setObjectName(QLatin1String(name));
        auto* row = new QHBoxLayout(result);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(2);
        for (const auto& group : groups) {
            if (&group != &groups.front()) row->addWidget(separator(result));
            for (const Command command : group) row->addWidget(toolButton(commands_[command], result));
        }
        return result;
    };
    using enum Command;
    CoolBar1_->addWidget(
        bar("ToolbarSelection", {{newSelection}, {print, printPreview, copy}, {collapseInputs, exports}}));
    CoolBar1_->addSeparator();
    CoolBar1_->addWidget(bar("ToolbarSelection", {{previousRow, nextRow}}));
    CoolBar1_->addSeparator();
    CoolBar1_->addWidget(bar("ToolbarWindows", {{cascade, tileHorizontal, tileVertical}}));
    CoolBar1_->addWidget(makeSelectors());
}

AdvanceText* MDIMain::selector(const char* name, QWidget* parent) {
    auto* field = new AdvanceText(parent);
    field->setObjectName(QLatin1String(name));
    field->SetLocked(true);
    field->setProperty("ButtonVisible", true);
    field->setProperty("CaptionFont", lookFont(12));
    field->setProperty("CaptionAlignment", 1);
    field->setkey(QStringLiteral("0"));
    dropList_->serve(field);
    return field;
}

QWidget* MDIMain::makeSelectors() {
    auto* selectors = new QWidget(this);
    auto* row = new QHBoxLayout(selectors);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(16);
    row->addStretch(1);
    cmbmeasureunits_ = selector("cmbmeasureunits", selectors);
    cmbGroupBy_ = selector("cmbGroupBy", selectors);
    connect(cmbmeasureunits_, &AdvanceText::KeyChange, this, [this](const QString&, const QString& key) {
        Form* form = ActiveForm();
        if (form && form->MeasureUnit() != key.toInt()) form->MeasureUnits(key.toInt(), true);
    });
    connect(cmbGroupBy_, &AdvanceText::KeyChange, this, [this](const QString&, const QString& key) {
        // The other forms take it with their next list.
        for (Form* form : forms())
            if (auto* selection = qobject_cast<SelectionForm*>(form))
                selection->results().setGrouping(static_cast<Grouping>(key.toInt()));
        if (auto* form = qobject_cast<InputForm*>(ActiveForm())) form->results().relist();
    });
    row->addWidget(cmbmeasureunits_);
    row->addWidget(cmbGroupBy_);
    return selectors;
}

void MDIMain::showGuide() {
    auto* guide = findChild<formGuide*>();
    if (!guide)
        guide = std::make_unique<formGuide>(guideFile(), this).release();  // deletes itself when closed
    guide->show();
    guide->raise();
    guide->activateWindow();
}

void MDIMain::showBuilds() {
    formBuilds::markSeen(buildsFile());
    formBuilds(buildsFile(), this).exec();
}

void MDIMain::showNewBuilds() {
    if (formBuilds::hasNews(buildsFile())) showBuilds();
}

void MDIMain::Traduci() {
    translatePlatformDialogs();
    mnu_file_->setTitle(dictionaryText(QStringLiteral("mdimain.menu.file")));
    mnu_tools_->setTitle(dictionaryText(QStringLiteral("mdimain.menu.tools")));
    mnu_tools_language_->setTitle(dictionaryText(QStringLiteral("mdimain.menu.tools.language")));
    mnuWindow_->setTitle(dictionaryText(QStringLiteral("mdimain.menu.window")));
    mnu_help_->setTitle(dictionaryText(QStringLiteral("mdimain.menu.help")));
    TabStrip_->setAccessibleName(dictionaryText(QStringLiteral("mdimain.forms")));
    area_->setAccessibleName(dictionaryText(QStringLiteral("mdimain.forms")));
    commands_.translate();
    offer(cmbmeasureunits_, measureBoxWidth,
          {"mdimain.cmbmeasureunits.captiontext", "mdimain.cmbmeasureunits.item00",
           "mdimain.cmbmeasureunits.item01"});
    offer(cmbGroupBy_, groupBoxWidth,
          {"mdimain.cmbgroupby.captiontext", "mdimain.cmbgroupby.item00", "mdimain.cmbgroupby.item01"});
}

// The dialogs for files and printers are the platform's. Without its translations they speak English.
void MDIMain::translatePlatformDialogs() {
    QCoreApplication::removeTranslator(&platformTexts_);
    if (platformTexts_.load(userLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&platformTexts_);
}

// The caption of a selector and its two choices, by their keys.
void MDIMain::offer(AdvanceText* field, int boxWidth, const std::array<const char*, 3>& keys) {
    const QString caption = dictionaryText(QLatin1String(keys[0]));
    constexpr int captionGap = 9;
    const int captionWidth = QFontMetrics(lookFont(12)).horizontalAdvance(caption) + captionGap;
    field->SetCaptionText(caption);
    field->setProperty("CaptionWidth", captionWidth);
    field->setFixedWidth(captionWidth + boxWidth + 2 * AdvanceText::halo);
    field->SetTag1(QStringLiteral("0|%1;1|%2")
                       .arg(dictionaryText(QLatin1String(keys[1])), dictionaryText(QLatin1String(keys[2]))));
    showKey(field, field->Key());
}

}  // namespace marvello
