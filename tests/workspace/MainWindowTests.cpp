#include "workspace/MDIMain.h"
#include "workspace/ResultsPane.h"
#include "workspace/Settings.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <stdexcept>

#include "controls/ResultsView.h"
#include "controls/Splitter.h"
#include "controls/TabStrip.h"
#include "data/Hooks.h"
#include "data/Session.h"
#include "tests/workspace/WorkspaceFixture.h"
#include "workspace/SelectionForm.h"
#include "workspace/frmMenu.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

class MainWindowTest : public WorkspaceFixture {
  protected:
    MainWindowTest() {
        Hooks& hooks = catalogue.session.hooks;
        hooks.writeSetting = [this](const std::string&, const std::string&, const std::string&,
                                    const std::string& value) { storedLanguage = value; };
        hooks.readSetting = [this](const std::string&, const std::string&, const std::string&) {
            return storedLanguage.empty() ? std::nullopt : std::optional(storedLanguage);
        };
        window = std::make_unique<MDIMain>("1.0.0");
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    QAction* action(const char* name) { return control<QAction>(*window, name); }
    TabStrip* tabs() {
        return window->centralWidget()->findChild<TabBand*>("", Qt::FindDirectChildrenOnly)->strip();
    }
    /// Lets a person act on the start menu that opens next.
    template <class Act>
    void answerMenu(Act act) {
        QTimer::singleShot(0, window.get(), [act] {
            auto* menu = qobject_cast<frmMenu*>(QApplication::activeModalWidget());
            ASSERT_NE(menu, nullptr);
            act(*menu);
            if (menu->isVisible()) menu->done(frmMenu::none);
        });
    }
    QString status() { return control<QLabel>(*window, "statusCounts")->text(); }
    /// Closing takes effect in the event loop.
    static void settle() {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }

    std::string storedLanguage;
    std::unique_ptr<MDIMain> window;
};

}  // namespace

TEST_F(MainWindowTest, IsQuietWithoutForms) {
    EXPECT_EQ(window->windowTitle(), "Marvello 1.0.0");
    EXPECT_EQ(tabs()->count(), 0);
    for (const char* name : {"frameresize", "frecciaup", "frecciadown", "mnu_Window_Cascade",
                             "mnu_Window_TileHorizontal", "mnu_file_close"})
        EXPECT_FALSE(action(name)->isEnabled()) << name;
    action("frecciaup")->trigger();
    action("mnu_file_closeall")->trigger();
}

TEST_F(MainWindowTest, TheNextFormStartsWithTheInputsOfTheLast) {
    SelectionForm* first = window->newSelection();
    first->MeasureUnits(1, true);
    choose(*first, "lstRefrigerants", "R290");
    choose(*first, "lstSeries", "TK-A");
    field(*first, "lstModels")->SetKey("90");
    choose(*first, "cmbEco", "1");
    type(*first, "txtEco", "12.5");
    type(*first, "txtTED", "23");  // -5 degrees Celsius
    first->lnkCalculate_Click();
    ASSERT_TRUE(first->hasResults());
    const auto header = [](const SelectionForm* form) {
        return control<ResultsView>(*form, "lvCps")->header();
    };
    header(first)->resizeSection(1, 200);
    first->Quit();
    settle();

    SelectionForm* next = window->newSelection();
    EXPECT_EQ(next->MeasureUnit(), 1);
    EXPECT_EQ(next->subject(), QString::fromUtf8("R290 · TK-A"));
    EXPECT_EQ(field(*next, "lstModels")->Key(), "90");
    EXPECT_EQ(field(*next, "txtTED")->number(), 23);
    EXPECT_NEAR(field(*next, "txtPE")->number(), 58.9, 0.1);  // propane at -5 degrees Celsius: 4.06 bar
    EXPECT_EQ(field(*next, "txtEco")->number(), 12.5);
    EXPECT_TRUE(field(*next, "txtEco")->isVisible());
    next->lnkCalculate_Click();
    EXPECT_EQ(header(next)->sectionSize(1), 200);
    next->results().relist();
    EXPECT_EQ(header(next)->sectionSize(1), 200) << "a list made anew keeps the widths";

    // Back to the first values, in the units of the form.
    QTest::mouseClick(control<QWidget>(*next, "lnkDefaults"), Qt::LeftButton);
    EXPECT_FALSE(next->hasResults());
    EXPECT_EQ(field(*next, "lstRefrigerants")->Key(), "R134A");
    EXPECT_EQ(field(*next, "lstModels")->Key(), "*");
    EXPECT_EQ(field(*next, "cmbEco")->Key(), "0");
    EXPECT_NEAR(field(*next, "txtTED")->number(), 35.6, 1e-9);  // 2 degrees Celsius
    EXPECT_NEAR(field(*next, "txtSH")->number(), 18, 1e-9);

    // What the catalogue does not offer, and what is no number, is left as it is.
    FormState foreign = next->state();
    foreign.inputs.keys["lstRefrigerants"] = "R999";
    foreign.inputs.keys["lstSeries"] = "XX";
    foreign.inputs.keys["lstModels"] = "100;no such model";
    foreign.inputs.values.erase("txtTCD");
    keepFormState(next->objectName(), foreign);
    const SelectionForm* third = window->newSelection();
    EXPECT_EQ(field(*third, "lstRefrigerants")->Key(), "R134A");
    EXPECT_EQ(field(*third, "lstModels")->Key(), "*");
    EXPECT_NEAR(field(*third, "txtTCD")->number(), 104, 1e-9);  // 40 degrees Celsius
}

TEST_F(MainWindowTest, TheStartMenuOpensTheFormChosen) {
    const auto answer = [&](auto act) {
        answerMenu(act);
        action("mnu_file_new_selection")->trigger();
    };
    answer([](frmMenu& menu) {
        EXPECT_EQ(menu.size(), menu.parentWidget()->size());
        QTest::keyClick(&menu, Qt::Key_Escape);
    });
    answer([](frmMenu& menu) { QTest::mouseClick(&menu, Qt::LeftButton, {}, QPoint(5, 5)); });
    EXPECT_EQ(tabs()->count(), 0);
    answer([](frmMenu& menu) {
        for (const auto key :
             {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Tab,
              Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Left, Qt::Key_Space})
            QTest::keyClick(&menu, key);
    });
    ASSERT_EQ(tabs()->count(), 1);
    EXPECT_EQ(tabs()->tabText(0), "1 inverter");
    EXPECT_EQ(qobject_cast<InputForm*>(window->ActiveForm())->TypeForm(), 1);
    answer([](frmMenu& menu) {
        const QPoint at = menu.placeOf(frmMenu::selection).center().toPoint();
        QTest::mouseMove(&menu, menu.placeOf(frmMenu::inverter).center().toPoint());
        QTest::mouseClick(&menu, Qt::LeftButton, {}, at);
    });
    EXPECT_EQ(tabs()->tabText(1), "2 Selection");
    EXPECT_EQ(qobject_cast<InputForm*>(window->ActiveForm())->TypeForm(), 0);
    answer([](frmMenu& menu) {
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.placeOf(frmMenu::find).center().toPoint());
    });
    EXPECT_EQ(tabs()->tabText(2), "3 Find");
    EXPECT_EQ(qobject_cast<InputForm*>(window->ActiveForm())->TypeForm(), 2);
    answer([](frmMenu& menu) {
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.placeOf(frmMenu::year).center().toPoint());
    });
    EXPECT_EQ(tabs()->tabText(3), "4 A year");
    // Kept: all but the inverter's form.
    action("mnu_file_closeall")->trigger();
    settle();
    ASSERT_EQ(tabs()->count(), 1);
    EXPECT_EQ(tabs()->tabText(0), "1 inverter");
}

TEST_F(MainWindowTest, TheStartMenuFitsIntoALowWindow) {
    window->resize(900, window->minimumHeight());
    settle();
    answerMenu([](frmMenu& menu) {
        const double shown = menu.placeOf(frmMenu::selection).width();
        menu.resize(900, menu.height() / 2);
        EXPECT_LT(menu.placeOf(frmMenu::selection).width(), shown);
        EXPECT_LT(menu.placeOf(frmMenu::selection).bottom(), menu.height());
    });
    action("mnu_file_new_selection")->trigger();
}

TEST_F(MainWindowTest, EveryFormHasItsTabAndItsKeys) {
    for (int i = 0; i < 2; ++i) {
        answerMenu([](frmMenu& menu) { QTest::keyClick(&menu, Qt::Key_Return); });
        QTest::keyClick(window.get(), Qt::Key_N, Qt::ControlModifier);
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    EXPECT_EQ(tabs()->tabText(0), "1 Selection");
    EXPECT_EQ(tabs()->currentKey(), "2Selection");
    const Form* second = window->ActiveForm();
    tabs()->setCurrentIndex(0);
    ASSERT_NE(window->ActiveForm(), second);
    const auto* splitter = control<Splitter>(*window->ActiveForm(), "Splitter1");
    const int before = splitter->CurrSplitterPos();
    QTest::keyClick(window.get(), Qt::Key_F9);
    EXPECT_EQ(splitter->CurrSplitterPos(), 0);
    QTest::keyClick(window.get(), Qt::Key_F9);
    EXPECT_EQ(splitter->CurrSplitterPos(), before);
    action("mnu_file_close")->trigger();
    settle();
    EXPECT_EQ(tabs()->count(), 1);
    EXPECT_EQ(window->ActiveForm(), second);
    QTest::keyClick(second->focusWidget(), Qt::Key_F4, Qt::ControlModifier);
    settle();
    EXPECT_EQ(tabs()->count(), 0);
    EXPECT_FALSE(action("mnu_Window_Cascade")->isEnabled());
}

TEST_F(MainWindowTest, CommandsFollowTheStateOfTheActiveForm) {
    SelectionForm* form = window->newSelection();
    EXPECT_FALSE(action("frecciadown")->isEnabled());
    EXPECT_FALSE(field(*window, "cmbGroupBy")->isEnabled());
    choose(*form, "lstSeries", "TK-A");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
    EXPECT_TRUE(action("frecciadown")->isEnabled());
    EXPECT_TRUE(status().contains("3")) << status().toStdString();
    auto* list = control<ResultsView>(*form, "lvCps");
    EXPECT_TRUE(action("mnu_tools_copytoclipboard")->isEnabled());
    action("mnu_tools_copytoclipboard")->trigger();
    EXPECT_TRUE(QApplication::clipboard()->text().contains("\r\nR134A\tTK-A\t100\t"));
    action("frecciaup")->trigger();
    EXPECT_EQ(list->selectedRow(), 0);
    EXPECT_FALSE(action("mnu_tools_copytoclipboard")->isEnabled()) << "a group is no compressor";
    action("frecciaup")->trigger();
    EXPECT_EQ(list->selectedRow(), 0);
    list->selectRow(1);
    action("frecciadown")->trigger();
    const QString selected = list->key(list->selectedRow());
    choose(*window, "cmbGroupBy", "1");
    EXPECT_EQ(list->key(list->selectedRow()), selected);
    EXPECT_EQ(list->rowCount(), 6);
    SelectionForm* second = window->newSelection();
    choose(*second, "lstSeries", "TK-A");
    second->lnkCalculate_Click();
    EXPECT_EQ(control<ResultsView>(*second, "lvCps")->rowCount(), 6);
    choose(*window, "cmbGroupBy", "0");
    EXPECT_EQ(list->rowCount(), 6);
    window->ActiveForm()->Quit();
    settle();
    form->lnkCalculate_Click();
    EXPECT_EQ(list->rowCount(), 4) << "one refrigerant and three models";
    window->newSelection();
    EXPECT_FALSE(action("frecciadown")->isEnabled());
    EXPECT_FALSE(action("mnu_tools_copytoclipboard")->isEnabled());
}

TEST_F(MainWindowTest, ResultsAreExportedFromMenuToolBarAndKeys) {
    const auto areEnabled = [this] {
        return QList<bool>{action("export")->isEnabled(), action("mnu_tools_export_cps")->isEnabled(),
                           action("mnu_tools_export_polynomials")->isEnabled()};
    };
    EXPECT_EQ(areEnabled(), (QList<bool>{false, false, false}));
    SelectionForm* form = window->newSelection();
    EXPECT_EQ(areEnabled(), (QList<bool>{false, false, false})) << "there is nothing to export yet";
    choose(*form, "lstSeries", "TK-A");
    form->lnkCalculate_Click();
    EXPECT_EQ(areEnabled(), (QList<bool>{true, true, true}));

    const QTemporaryDir folder;
    const auto save = [&](const QString& name) {
        QTimer::singleShot(0, window.get(), [&folder, name] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(folder.filePath(name));
            QTest::keyClick(dialog, Qt::Key_Return);
        });
    };
    const auto size = [&](const QString& name) { return QFileInfo(folder.filePath(name)).size(); };
    QToolButton* button = nullptr;
    for (auto* each : control<QToolBar>(*window, "CoolBar1")->findChildren<QToolButton*>())
        if (each->defaultAction() == action("export")) button = each;
    ASSERT_NE(button, nullptr);
    ASSERT_EQ(button->popupMode(), QToolButton::InstantPopup);
    auto* menu = control<QMenu>(*window, "mnu_tools_export");
    EXPECT_EQ(menu->menuAction(), action("export"));
    EXPECT_EQ(menu->actions(),
              (QList<QAction*>{action("mnu_tools_export_cps"), action("mnu_tools_export_polynomials")}));
    save("list");
    menu->actions()[0]->trigger();
    EXPECT_GT(size("list.xml"), 0);
    EXPECT_TRUE(window->statusBar()->currentMessage().startsWith("Compressors exported: 2, to "));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    save("polynomials");
    QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_GT(size("polynomials.xml"), size("list.xml"));
    EXPECT_TRUE(boxes.isEmpty()) << boxes.join("|").toStdString();
}

TEST_F(MainWindowTest, ALanguageIsTakenByAllFormsAndKept) {
    SelectionForm* form = window->newSelection();
    auto* menu = control<QMenu>(*window, "mnu_tools_language");
    const auto language = [menu](const QString& name) {
        for (QAction* entry : menu->actions())
            if (entry->text() == name) return entry;
        throw std::runtime_error("There is no language " + name.toStdString());
    };
    EXPECT_TRUE(language("English")->isChecked());
    language("Italiano")->trigger();
    EXPECT_EQ(storedLanguage, "it-IT");
    EXPECT_TRUE(language("Italiano")->isChecked());
    EXPECT_FALSE(language("English")->isChecked());
    EXPECT_EQ(field(*form, "lstRefrigerants")->CaptionText(), "Refrigerante");
    EXPECT_EQ(gApplication().User().language, "it-IT");
}

TEST_F(MainWindowTest, EachFormKeepsItsMeasureSystem) {
    EXPECT_FALSE(field(*window, "cmbmeasureunits")->isEnabled());
    SelectionForm* first = window->newSelection();
    SelectionForm* second = window->newSelection();
    choose(*window, "cmbmeasureunits", "1");
    EXPECT_EQ(second->MeasureUnit(), 1);
    EXPECT_EQ(first->MeasureUnit(), 0);
    tabs()->setCurrentIndex(0);
    EXPECT_EQ(field(*window, "cmbmeasureunits")->TextText(), "Metric");
    EXPECT_EQ(field(*first, "txtTED")->TextText(), "2.00");
    tabs()->setCurrentIndex(1);
    EXPECT_EQ(field(*window, "cmbmeasureunits")->Key(), "1");
    EXPECT_EQ(field(*second, "txtTED")->TextText(), "35.60");
    EXPECT_EQ(window->newSelection()->MeasureUnit(), 1);
}

TEST_F(MainWindowTest, SplittersStandWhereTheyWereLeft) {
    SelectionForm* form = window->newSelection();
    form->setSizes({450, form->sizes().listHeights});
    emit form->sizesChanged();
    EXPECT_EQ(window->newSelection()->sizes().panelWidth, 450);
}

TEST_F(MainWindowTest, OnlyAnotherControlOfTheFormEndsTheUseOfAField) {
    SelectionForm* form = window->newSelection();
    SelectionForm* other = window->newSelection();
    window->findChild<QMdiArea*>()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(form->parentWidget()));
    const auto wait = [] { QTest::qWait(30); };  // a check waits for the mouse to be up
    wait();
    type(*form, "txtSH", "25");

    QTest::mouseClick(window->menuBar(), Qt::LeftButton, Qt::NoModifier,
                      window->menuBar()->actionGeometry(window->menuBar()->actions().front()).center());
    wait();
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QTest::keyClick(control<QWidget>(*window, "cmbmeasureunits")->findChild<QLineEdit*>(), Qt::Key_Down);
    wait();
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    field(*other, "txtTED")->setFocus();
    wait();
    QWidget stranger;
    stranger.show();
    stranger.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&stranger));
    wait();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_TRUE(boxes.isEmpty()) << boxes.join("|").toStdString();
    EXPECT_EQ(field(*form, "txtSH")->TextText(), "25");

    field(*form, "txtSH")->setFocus();  // comes back to the form
    wait();
    type(*form, "txtSH", "25");
    field(*form, "txtSC")->setFocus();
    wait();
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_EQ(field(*form, "txtSH")->TextText(), "10.00");

    for (const char* text : {"25", "abc"}) {
        type(*form, "txtSH", text);
        form->Quit();
        settle();
        wait();
        form = other;
    }
    EXPECT_EQ(window->forms().size(), 0);
    type(*window->newSelection(), "txtSH", "25");
    window->close();
    wait();
    EXPECT_EQ(boxes.size(), 1) << boxes.join("|").toStdString();
}

TEST_F(MainWindowTest, WindowsAreArranged) {
    window->resize(1200, 800);
    for (int i = 0; i < 2; ++i) window->newSelection();
    action("mnu_Window_TileHorizontal")->trigger();
    const auto* area = window->findChild<QMdiArea*>();
    const QRect first = window->forms()[0]->parentWidget()->geometry();
    const QRect second = window->forms()[1]->parentWidget()->geometry();
    EXPECT_EQ(first.width(), area->width());
    EXPECT_FALSE(first.intersects(second) && second.top() == first.top());
    action("mnu_Window_TileVertical")->trigger();
    EXPECT_NE(window->forms()[0]->parentWidget()->x(), window->forms()[1]->parentWidget()->x());
}

TEST_F(MainWindowTest, KeysOfTheFormWorkFromTheToolBarAndTheTabsToo) {
    SelectionForm* form = window->newSelection();
    choose(*form, "lstSeries", "TK-A");
    for (QWidget* place : std::initializer_list<QWidget*>{field(*window, "cmbmeasureunits"), tabs()}) {
        type(*form, "txtTED", "3");  // discards what was listed
        ASSERT_FALSE(form->hasResults());
        window->activateWindow();  // a list that was open leaves it to the window system
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        place->setFocus();
        QTest::keyClick(window->focusWidget(), Qt::Key_F5);
        EXPECT_TRUE(form->hasResults()) << place->objectName().toStdString();
    }
}

TEST_F(MainWindowTest, AFormComesBackWithItsFocus) {
    const auto focused = [this](const SelectionForm& form, const char* name) {
        const auto* wanted = control<QWidget>(form, name);
        return QTest::qWaitFor(
            [&] {
                const QWidget* now = window->focusWidget();
                return now && (now == wanted || wanted->isAncestorOf(now));
            },
            500);
    };
    const auto clickTab = [this](int tab) {
        QTest::mouseClick(tabs(), Qt::LeftButton, {}, tabs()->tabRect(tab).center());
    };
    SelectionForm* first = window->newSelection();
    EXPECT_TRUE(focused(*first, "txtTED"));
    field(*first, "txtSC")->setFocus();
    SelectionForm* second = window->newSelection();
    EXPECT_TRUE(focused(*second, "txtTED"));
    second->lnkCalculate_Click();
    EXPECT_TRUE(focused(*second, "lvCps"));
    for (int turn = 0; turn < 2; ++turn) {
        clickTab(0);
        EXPECT_TRUE(focused(*first, "txtSC"));
        clickTab(1);
        EXPECT_TRUE(focused(*second, "lvCps"));
    }
    action("mnu_Window_TileVertical")->trigger();
    EXPECT_TRUE(focused(*second, "lvCps"));
}

TEST_F(MainWindowTest, OneSetOfWindowButtonsIsShown) {
    window->newSelection();
    QApplication::processEvents();
    for (const Qt::Corner corner : {Qt::TopLeftCorner, Qt::TopRightCorner})
        if (const QWidget* controls = window->menuBar()->cornerWidget(corner)) {
            EXPECT_FALSE(controls->isVisible());
        }
}

TEST_F(MainWindowTest, FormsComeAndGoWithoutATrace) {
    // What is not freed is found by the sanitizers.
    window->newSelection()->Quit();
    settle();
    const auto widgets = QApplication::allWidgets().size();
    const auto objects = window->findChildren<QObject*>().size();
    for (int i = 0; i < 50; ++i) {
        window->newSelection();
        window->newInverterSelection()->Quit();
        settle();
        window->ActiveForm()->Quit();
        settle();
    }
    EXPECT_EQ(tabs()->count(), 0);
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_EQ(window->findChildren<QObject*>().size(), objects);
}
