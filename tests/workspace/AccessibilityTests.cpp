// What a screen reader finds in the windows.

#include <QAccessible>
#include <QAction>
#include <QClipboard>
#include <QTableView>
#include <QTimer>
#include <functional>

#include "controls/TabStrip.h"
#include "controls/TagBox.h"
#include "controls/ctlBtn.h"
#include "data/Hooks.h"
#include "tests/workspace/WorkspaceFixture.h"
#include "workspace/MDIMain.h"
#include "workspace/RejectedCompressors.h"
#include "workspace/ReportPreview.h"
#include "workspace/SelectionForm.h"
#include "workspace/formBuilds.h"
#include "workspace/formGuide.h"
#include "workspace/frmAbout.h"
#include "workspace/frmComparison.h"
#include "workspace/frmFind.h"
#include "workspace/frmMenu.h"
#include "workspace/frmRefrigerant.h"
#include "workspace/frmYear.h"
#include "workspace/frmpG.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

QString name(QAccessibleInterface* node) { return node->text(QAccessible::Name).trimmed(); }

void walk(QAccessibleInterface* node, const std::function<void(QAccessibleInterface*)>& visit) {
    if (!node || !node->isValid()) return;
    visit(node);
    for (int i = 0; i < node->childCount(); ++i) walk(node->child(i), visit);
}

/// What can be focused, or is read cell by cell, and has no name.
QStringList unnamed(QWidget& window) {
    QStringList found;
    walk(QAccessible::queryAccessibleInterface(&window), [&](QAccessibleInterface* node) {
        const bool isRead = node->role() == QAccessible::Cell || node->role() == QAccessible::ListItem ||
                            node->role() == QAccessible::PushButton || node->role() == QAccessible::PageTab;
        const QAccessible::State state = node->state();
        if (state.invisible || !(state.focusable || isRead) || !name(node).isEmpty()) return;
        const QObject* object = node->object();
        found += object ? QStringLiteral("%1 %2 in %3")
                              .arg(QLatin1String(object->metaObject()->className()), object->objectName(),
                                   object->parent() ? object->parent()->objectName() : QString())
                        : QStringLiteral("role %1 in %2").arg(node->role()).arg(name(node->parent()));
    });
    return found;
}

class AccessibilityTest : public WorkspaceFixture {
  protected:
    AccessibilityTest() {
        gApplication().populateDictionary("en-EN", "");
        window.show();
    }
    static void expectNames(QWidget& shown, const char* what) {
        EXPECT_EQ(unnamed(shown).join("\n").toStdString(), "") << what;
    }
    /// What a screen reader is told of a control when it takes the focus.
    static QAccessibleInterface* heard(QWidget* control) {
        QWidget* focused = control->focusProxy() ? control->focusProxy() : control;
        return QAccessible::queryAccessibleInterface(focused);
    }

    MDIMain window{"1.0.0"};
};

}  // namespace

TEST_F(AccessibilityTest, EveryControlOfAFormHasANameOnEveryPage) {
    for (const bool isInverter : {false, true}) {
        SelectionForm* form = isInverter ? window.newInverterSelection() : window.newSelection();
        expectNames(window, "without results");
        if (isInverter) continue;
        choose(*form, "lstSeries", "TK-A");
        choose(*form, "cmbEco", "1");
        choose(*form, "cmbOilCooling", "2");
        form->lnkCalculate_Click();
        ASSERT_TRUE(form->hasResults());
        for (const char* page : {"messages", "tecnic", "polynomials", "dimension", "limits"}) {
            form->MnuPopUp(page);
            QApplication::processEvents();
            expectNames(window, page);
        }
        form->parentWidget()->showNormal();
        form->parentWidget()->resize(640, 480);
        QApplication::processEvents();
        expectNames(window, "a narrow form");
    }
}

TEST_F(AccessibilityTest, EveryControlOfTheComparisonHasANameAndABestValueIsSaid) {
    SelectionForm* selection = window.newSelection();
    choose(*selection, "lstSeries", "TK-A");
    selection->lnkCalculate_Click();
    control<ResultsView>(*selection, "lvCps")->selectAll();
    control<QAction>(window, "mnu_tools_compare")->trigger();
    auto* form = window.findChild<frmComparison*>();
    ASSERT_NE(form, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([form] { return form->hasResults() && !form->isCalculating(); }));
    selection->Quit();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::mouseClick(control<QWidget>(*form, "samePoint"), Qt::LeftButton);
    QApplication::processEvents();
    expectNames(window, "a comparison");
    QStringList cells;
    walk(QAccessible::queryAccessibleInterface(control<QWidget>(*form, "comparisonFigures")),
         [&](QAccessibleInterface* node) { cells += name(node); });
    EXPECT_TRUE(cells.contains("Refrigerant"));
    EXPECT_FALSE(cells.filter("TK-A-100 Capacity kW, ").isEmpty());
}

TEST_F(AccessibilityTest, EveryControlOfAYearHasANameAndTablesSayWhatTheChartsShow) {
    frmYear* form = window.newYear();
    expectNames(window, "a year without plants");
    auto* bins = control<QTableView>(*form, "binTable");
    bins->setCurrentIndex(bins->model()->index(0, 0));
    QGuiApplication::clipboard()->setText("10\t1000\t50\n30\t100\t100\n");
    QTest::keyClick(bins, Qt::Key_V, Qt::ControlModifier);
    type(*form, "txtPlant1", "TK-A-100 R134A");
    ASSERT_TRUE(QTest::qWaitFor([form] { return form->hasResults() && !form->isCalculating(); }));
    for (int page = 0; page < control<TabStrip>(*form, "yearTabs")->count(); ++page) {
        control<TabStrip>(*form, "yearTabs")->setCurrentIndex(page);
        QApplication::processEvents();
        expectNames(window, "a page of a year");
    }
    QStringList cells;
    walk(QAccessible::queryAccessibleInterface(control<QWidget>(*form, "binTable")),
         [&](QAccessibleInterface* node) { cells += name(node); });
    EXPECT_FALSE(cells.filter("Outdoor").isEmpty());
}

TEST_F(AccessibilityTest, FieldsAreComboBoxesAndValuesThatSayWhatTheyAre) {
    SelectionForm* form = window.newSelection();
    choose(*form, "lstSeries", "TK-A");
    QAccessibleInterface* series = heard(field(*form, "lstSeries"));
    EXPECT_EQ(series->role(), QAccessible::ComboBox);
    EXPECT_EQ(name(series), "Series");
    EXPECT_EQ(series->text(QAccessible::Value), "TK-A");
    EXPECT_TRUE(series->state().expandable);
    EXPECT_FALSE(series->state().expanded);
    QStringList entries;
    for (int i = 0; i < series->childCount(); ++i) {
        entries += name(series->child(i));
        EXPECT_EQ(series->child(i)->state().selected, entries.back() == "TK-A");
        EXPECT_EQ(series->indexOfChild(series->child(i)), i);
    }
    EXPECT_EQ(entries.join(";"), "DZ European market;DZ Far East market;MV-H;TK-A");
    series->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(series->state().expanded);
    QWidget* list = QApplication::activePopupWidget();
    ASSERT_NE(list, nullptr);
    expectNames(*list, "open list");
    list->close();
    choose(*form, "lstRefrigerants", "R290");
    EXPECT_EQ(series->childCount(), 2) << "the entries follow the choices";

    EXPECT_EQ(name(heard(field(*form, "txtSH"))), "Suction gas: Superheat, K");
    choose(*form, "cmbSh", "1");
    EXPECT_EQ(name(heard(field(*form, "txtSH"))),
              QString::fromUtf8("Suction gas: %1, °C").arg(field(*form, "cmbSh")->TextText()));
    type(*form, "txtSH", "99");
    EXPECT_EQ(heard(field(*form, "txtSH"))->text(QAccessible::Description),
              QString::fromUtf8("Permitted: 2 to 42 °C"));
}

TEST_F(AccessibilityTest, TheListReadsItsGroupsMarksAndFigures) {
    SelectionForm* form = window.newSelection();
    choose(*form, "lstSeries", "TK-A");
    form->lnkCalculate_Click();
    auto* table = QAccessible::queryAccessibleInterface(control<QWidget>(*form, "lvCps"))->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(name(table->cellAt(0, 0)), "Group R134A");
    EXPECT_EQ(name(table->cellAt(2, 0)), "TK-A-120, not possible");
    EXPECT_TRUE(name(table->cellAt(1, 1)).startsWith("Capacity 59."))
        << name(table->cellAt(1, 1)).toStdString();
    EXPECT_TRUE(name(table->cellAt(1, 1)).endsWith(" kW"));
    control<ResultsView>(*form, "lvCps")->selectRow(2);
    QStringList messages;
    walk(QAccessible::queryAccessibleInterface(control<QWidget>(*form, "lvMessages")),
         [&](QAccessibleInterface* node) {
             if (node->role() == QAccessible::ListItem) messages += name(node);
         });
    ASSERT_FALSE(messages.isEmpty());
    EXPECT_TRUE(messages[0].startsWith("error: The operating point")) << messages[0].toStdString();
}

TEST_F(AccessibilityTest, EveryControlOfASearchHasANameInEveryState) {
    frmFind* form = window.newFind();
    const auto search = [form](const char* capacity) {
        type(*form, "txtCapacity", QLatin1String(capacity));
        return QTest::qWaitFor([form] { return !form->isSearching(); });
    };
    ASSERT_TRUE(search("90000"));
    ASSERT_FALSE(form->hasResults());
    expectNames(window, "without a solution");
    ASSERT_TRUE(search("150"));
    ASSERT_TRUE(form->hasResults());
    expectNames(window, "with solutions");
    QAccessibleInterface* tags = QAccessible::queryAccessibleInterface(form->findChild<TagBox*>());
    EXPECT_EQ(tags->role(), QAccessible::ComboBox);
    EXPECT_EQ(tags->text(QAccessible::Value), "R134A, R290");
    RejectedCompressors rejected(rejectedGroups(*form->results().result()), &window);
    rejected.show();
    expectNames(rejected, "not possible");
}

TEST_F(AccessibilityTest, EveryControlOfTheOtherWindowsHasAName) {
    frmMenu menu(&window);
    frmAbout about("1.0.0", &window);
    formBuilds builds(QString(), &window);
    auto* guide = new formGuide(QStringLiteral(MARVELLO_SOURCE_FOLDER "/docs/guide.md"), &window);
    frmpG progress(&window);
    frmRefrigerant refrigerants(&window);
    ReportContent report;
    report.model = "TK-A-100";
    ReportPreview preview(report, &window);
    const std::vector<std::pair<const char*, QDialog*>> dialogs{
        {"start menu", &menu}, {"about", &about},       {"builds", &builds},
        {"guide", guide},      {"progress", &progress}, {"refrigerants", &refrigerants},
        {"preview", &preview}};
    for (const auto& [what, dialog] : dialogs) {
        dialog->show();
        QApplication::processEvents();
        EXPECT_NE(name(QAccessible::queryAccessibleInterface(dialog)), "") << what;
        expectNames(*dialog, what);
        dialog->hide();
    }
    QStringList choices;
    walk(QAccessible::queryAccessibleInterface(&menu), [&](QAccessibleInterface* node) {
        if (node->role() == QAccessible::Button) choices += name(node);
    });
    EXPECT_EQ(choices.size(), 4) << "the choices are painted, and named all the same";

    progress.setPercent(62);
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(control<QWidget>(progress, "pg"));
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    EXPECT_NE(name(bar), "");
    EXPECT_EQ(bar->valueInterface()->currentValue().toInt(), 62);
    progress.setPercent(100);
    EXPECT_EQ(bar->valueInterface()->currentValue().toInt(), 100) << "the end is shown at once";
    EXPECT_LT(progress.windowOpacity(), 1) << "the list behind it is seen";

    const auto handler = MessageBox::setHandler(nullptr);
    for (const bool isQuestion : {false, true}) {
        QTimer::singleShot(0, &window, [] {
            auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            expectNames(*box, "box");
            box->reject();
        });
        if (isQuestion)
            MessageBox::ask(&window, "Shall it?", "Yes", "No");
        else
            MessageBox::show(&window, MessageBox::Mark::critical, "It cannot.");
    }
    MessageBox::setHandler(handler);
}
