// The menus, the tool bar and the selectors of the main window.

#include <QAction>
#include <QCoreApplication>
#include <QFileInfo>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLibraryInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolBar>
#include <QToolButton>
#include <memory>

#include "controls/AdvanceText.h"
#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/TabStrip.h"
#include "data/ApplicationFolder.h"
#include "data/Texts.h"
#include "workspace/DropList.h"
#include "workspace/MDIMain.h"
#include "workspace/SelectionForm.h"
#include "workspace/WindowTexts.h"
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
    auto* line = new QWidget(bar);
    line->setFixedSize(17, 20);
    line->setStyleSheet(QStringLiteral("background: %1; margin: 0 8px").arg(Look::current().line.name()));
    return line;
}

QString guideFile() { return fromCore(applicationFolder()) + QStringLiteral("/guide/guide.md"); }
QString buildsFile() { return fromCore(applicationFolder()) + QStringLiteral("/builds.rtf"); }

}  // namespace

void MDIMain::showKey(AdvanceText* field, const QString& key) {
    field->setkey(key);
    field->SetTextValue(fromCore(ListLookup(toCore(key), toCore(field->Tag1()))));
}

QAction* MDIMain::command(const char* name, const char* iconName, const QKeySequence& keys) {
    auto* action = new QAction(this);
    action->setObjectName(QLatin1String(name));
    if (iconName) action->setIcon(icon(QLatin1String(iconName)));
    action->setIconVisibleInMenu(false);
    action->setShortcut(keys);
    commands_[QLatin1String(name)] = action;
    return action;
}

void MDIMain::makeCommands() {
    connect(command("mnu_file_new_selection", "newselection", QKeySequence::New), &QAction::triggered, this,
            &MDIMain::newForm);
    connect(command("mnu_file_close", nullptr, QKeySequence(Qt::CTRL | Qt::Key_F4)), &QAction::triggered,
            this, [this] {
                if (SelectionForm* form = ActiveForm()) form->Quit();
            });
    connect(command("mnu_file_closeall", nullptr), &QAction::triggered, this, &MDIMain::closeAll);
    connect(command("mnu_file_exit", nullptr, QKeySequence::Quit), &QAction::triggered, this,
            &QWidget::close);
    QAction* copy = command("mnu_tools_copytoclipboard", "copy", QKeySequence::Copy);
    // The key belongs to what has the focus: the list copies its rows, a field its text.
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, [this] {
        if (SelectionForm* form = ActiveForm()) form->MnuPopUp(QStringLiteral("copytoclipboard"));
    });
    connect(command("mnu_file_print", "print", QKeySequence::Print), &QAction::triggered, this, [this] {
        if (SelectionForm* form = ActiveForm()) form->MnuPopUp(QStringLiteral("print"));
    });
    connect(command("mnu_file_printpreview", "preview", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P)),
            &QAction::triggered, this, [this] {
                if (SelectionForm* form = ActiveForm()) form->MnuPopUp(QStringLiteral("printpreview"));
            });
    connect(command("mnu_tools_export_cps", nullptr, QKeySequence::Save), &QAction::triggered, this, [this] {
        if (SelectionForm* form = ActiveForm()) form->ExportCPS();
    });
    connect(command("mnu_tools_export_polynomials", nullptr, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)),
            &QAction::triggered, this, [this] {
                if (SelectionForm* form = ActiveForm()) form->ExportPolynomials();
            });
    QAction* panel = command("frameresize", "panel", QKeySequence(Qt::Key_F9));
    panel->setCheckable(true);
    connect(panel, &QAction::toggled, this, [this](bool collapse) {
        if (SelectionForm* form = ActiveForm()) form->CloseFrame(collapse);
    });
    connect(command("frecciaup", "up", QKeySequence(Qt::CTRL | Qt::Key_Up)), &QAction::triggered, this,
            [this] {
                if (SelectionForm* form = ActiveForm()) form->moveSelection(-1);
            });
    connect(command("frecciadown", "down", QKeySequence(Qt::CTRL | Qt::Key_Down)), &QAction::triggered, this,
            [this] {
                if (SelectionForm* form = ActiveForm()) form->moveSelection(1);
            });
    QAction* builds = command("mnu_help_Builds", nullptr);
    builds->setVisible(QFileInfo(buildsFile()).size() >= 1);
    connect(builds, &QAction::triggered, this, &MDIMain::showBuilds);
    connect(command("mnu_help_guide", nullptr), &QAction::triggered, this, &MDIMain::showGuide);
    connect(command("mnu_help_About", nullptr), &QAction::triggered, this,
            [this] { frmAbout(version_, this).exec(); });
    connect(command("mnu_Window_Cascade", "cascade"), &QAction::triggered, this,
            [this] { area_->cascadeSubWindows(); });
    connect(command("mnu_Window_TileHorizontal", "tileh"), &QAction::triggered, this,
            &MDIMain::tileHorizontal);
    connect(command("mnu_Window_TileVertical", "tilev"), &QAction::triggered, this, &MDIMain::tileVertical);
    connect(command("mnu_Window_ArrangeIcons", nullptr), &QAction::triggered, this, &MDIMain::arrangeIcons);
}

void MDIMain::makeMenus() {
    const auto menu = [this](const char* name) {
        QMenu* result = menuBar()->addMenu(QString());
        result->setObjectName(QLatin1String(name));
        return result;
    };
    mnu_file_ = menu("mnu_file");
    mnu_file_->addAction(commands_["mnu_file_new_selection"]);
    mnu_file_->addSeparator();
    mnu_file_->addAction(commands_["mnu_file_close"]);
    mnu_file_->addAction(commands_["mnu_file_closeall"]);
    mnu_file_->addSeparator();
    mnu_file_->addAction(commands_["mnu_file_printpreview"]);
    mnu_file_->addAction(commands_["mnu_file_print"]);
    mnu_file_->addSeparator();
    mnu_file_->addAction(commands_["mnu_file_exit"]);
    mnu_tools_ = menu("mnu_tools");
    // One menu, below the menu bar and below the button of the tool bar.
    QMenu* mnu_tools_export = mnu_tools_->addMenu(QString());
    mnu_tools_export->setObjectName(QStringLiteral("mnu_tools_export"));
    mnu_tools_export->addAction(commands_["mnu_tools_export_cps"]);
    mnu_tools_export->addAction(commands_["mnu_tools_export_polynomials"]);
    commands_["export"] = mnu_tools_export->menuAction();
    commands_["export"]->setObjectName(QStringLiteral("export"));
    commands_["export"]->setIcon(icon(QStringLiteral("export")));
    commands_["export"]->setIconVisibleInMenu(false);
    mnu_tools_->addAction(commands_["mnu_tools_copytoclipboard"]);
    mnu_tools_->addSeparator();
    mnu_tools_language_ = mnu_tools_->addMenu(QString());
    mnu_tools_language_->setObjectName(QStringLiteral("mnu_tools_language"));
    mnuWindow_ = menu("mnuWindow");
    for (const char* name : {"mnu_Window_Cascade", "mnu_Window_TileHorizontal", "mnu_Window_TileVertical",
                             "mnu_Window_ArrangeIcons"})
        mnuWindow_->addAction(commands_[name]);
    mnu_help_ = menu("mnu_help");
    mnu_help_->addAction(commands_["mnu_help_guide"]);
    mnu_help_->addAction(commands_["mnu_help_Builds"]);
    mnu_help_->addAction(commands_["mnu_help_About"]);
}

void MDIMain::makeToolBar() {
    CoolBar1_ = addToolBar(QString());
    CoolBar1_->setObjectName(QStringLiteral("CoolBar1"));
    CoolBar1_->setMovable(false);
    CoolBar1_->setContextMenuPolicy(Qt::PreventContextMenu);
    setContextMenuPolicy(Qt::NoContextMenu);
    const auto bar = [this](const char* name, const QList<QList<const char*>>& groups) {
        auto* result = new QWidget(CoolBar1_);
        result->setObjectName(QLatin1String(name));
        auto* row = new QHBoxLayout(result);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(2);
        for (const auto& group : groups) {
            if (&group != &groups.front()) row->addWidget(separator(result));
            for (const char* command : group) row->addWidget(toolButton(commands_[command], result));
        }
        return result;
    };
    CoolBar1_->addWidget(
        bar("ToolbarSelection", {{"mnu_file_new_selection"},
                                 {"mnu_file_print", "mnu_file_printpreview", "mnu_tools_copytoclipboard"},
                                 {"frameresize", "export"}}));
    CoolBar1_->addSeparator();
    CoolBar1_->addWidget(bar("ToolbarSelection", {{"frecciaup", "frecciadown"}}));
    CoolBar1_->addSeparator();
    CoolBar1_->addWidget(bar(
        "ToolbarWindows", {{"mnu_Window_Cascade", "mnu_Window_TileHorizontal", "mnu_Window_TileVertical"}}));
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
        SelectionForm* form = ActiveForm();
        if (form && form->MeasureUnit() != key.toInt()) form->MeasureUnits(key.toInt(), true);
    });
    connect(cmbGroupBy_, &AdvanceText::KeyChange, this, [this](const QString&, const QString& key) {
        // The other forms take it with their next list.
        for (SelectionForm* form : forms()) form->setGroupBy(key.toInt());
        if (SelectionForm* form = ActiveForm()) form->relistResults();
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

void MDIMain::translateCommand(const char* name, const char* key) {
    QAction* action = commands_[name];
    const QString text = dictionaryText(QLatin1String(key));
    const QString plain = withoutAccessKey(text);
    action->setText(text);
    const QString keys = action->shortcut().toString(QKeySequence::NativeText);
    action->setToolTip(keys.isEmpty() ? plain : QStringLiteral("%1 (%2)").arg(plain, keys));
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
    translateCommand("mnu_help_guide", "mdimain.menu.help.guide");
    translateCommand("mnu_help_Builds", "mdimain.menu.help.builds");
    translateCommand("mnu_help_About", "mdimain.menu.help.about");
    translateCommand("mnu_file_new_selection", "mdimain.menu.file.newselection");
    translateCommand("mnu_file_close", "mdimain.menu.file.close");
    translateCommand("mnu_file_closeall", "mdimain.menu.file.closeall");
    translateCommand("mnu_file_print", "mdimain.menu.file.print");
    translateCommand("mnu_file_printpreview", "mdimain.menu.file.printpreview");
    translateCommand("mnu_file_exit", "mdimain.menu.file.exit");
    translateCommand("export", "mdimain.menu.tools.export");
    translateCommand("mnu_tools_export_cps", "mdimain.menu.tools.export.cps");
    translateCommand("mnu_tools_export_polynomials", "mdimain.menu.tools.export.polynomials");
    translateCommand("mnu_tools_copytoclipboard", "mdimain.menu.tools.copytoclipboard");
    translateCommand("mnu_Window_Cascade", "mdimain.menu.window.cascade");
    translateCommand("mnu_Window_TileHorizontal", "mdimain.menu.window.tileHorinzontal");
    translateCommand("mnu_Window_TileVertical", "mdimain.menu.window.tilevertical");
    translateCommand("mnu_Window_ArrangeIcons", "mdimain.menu.window.arrangeicons");
    translateCommand("frameresize", "mdimain.toolbar.frameresize");
    translateCommand("frecciaup", "mdimain.toolbar.frecciaup");
    translateCommand("frecciadown", "mdimain.toolbar.frecciadown");
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

void MDIMain::tileHorizontal() {
    const QList<QMdiSubWindow*> windows = area_->subWindowList();
    const auto count = static_cast<int>(windows.size());
    for (int i = 0; i < count; ++i) {
        windows[i]->showNormal();
        const int top = area_->height() * i / count;
        windows[i]->setGeometry(0, top, area_->width(), area_->height() * (i + 1) / count - top);
    }
}

// Minimised forms stand side by side at the lower edge, in rows from the bottom.
void MDIMain::arrangeIcons() {
    QPoint next(0, area_->viewport()->height());
    for (QMdiSubWindow* window : area_->subWindowList()) {
        if (!window->isMinimized()) continue;
        if (next.x() > 0 && next.x() + window->width() > area_->viewport()->width())
            next = QPoint(0, next.y() - window->height());
        window->move(next.x(), next.y() - window->height());
        next.rx() += window->width();
    }
}

void MDIMain::tileVertical() {
    const QList<QMdiSubWindow*> windows = area_->subWindowList();
    const auto count = static_cast<int>(windows.size());
    for (int i = 0; i < count; ++i) {
        windows[i]->showNormal();
        const int left = area_->width() * i / count;
        windows[i]->setGeometry(left, 0, area_->width() * (i + 1) / count - left, area_->height());
    }
}

}  // namespace marvello
