// What a person does with one form or two, on the catalogue that is shipped.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QMenu>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <tuple>

#include "controls/Link.h"
#include "controls/MessagesView.h"
#include "controls/TabStrip.h"
#include "tests/gui/RealForm.h"
#include "workspace/ResultsPane.h"

using namespace marvello;

namespace {

constexpr const char* metric = "0";
constexpr const char* imperial = "1";

class FormTest : public ::testing::Test, public marvello::testing::RealForm {
  protected:
    FormTest() : RealForm("en-EN") {}

    QMap<QString, double> numbers() {
        QMap<QString, double> result;
        for (const auto* input : form->findChildren<AdvanceText*>())
            if (input->TextType() == 1) result[input->objectName()] = input->number();
        return result;
    }
    /// As the list in the tool bar chooses a system of units.
    void switchUnits(const char* system) {
        marvello::testing::field(*window, "cmbmeasureunits")->SetKey(QLatin1String(system));
    }
};

}  // namespace

TEST_F(FormTest, ARefrigerantStartsWithItsDewTemperatures) {
    choose("lstRefrigerants", "R407C");
    EXPECT_FALSE(field("txtTEM")->isHidden());
    type("txtTCM", "42");
    type("txtTEM", "-3");
    EXPECT_TRUE(field("txtTCD")->Derived());
    const double dew = field("txtTCD")->number();
    choose("lstRefrigerants", "R134A");
    EXPECT_TRUE(field("txtTEM")->isHidden()) << "there is no way back from a mid temperature of R134A";
    EXPECT_TRUE(field("txtTCM")->isHidden());
    EXPECT_FALSE(field("txtTCD")->Derived());
    EXPECT_EQ(field("txtTCD")->number(), dew);
    field("txtTED")->setFocus();
    QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(field("txtTCD")->hasFocus());

    // A pressure led; the new refrigerant has another one at the same dew temperature.
    type("txtPE", "3");
    const double evaporating = field("txtTED")->number();
    choose("lstRefrigerants", "R404A");
    EXPECT_EQ(field("txtTED")->number(), evaporating);
    EXPECT_FALSE(field("txtTED")->Derived());
    EXPECT_TRUE(field("txtPE")->Derived());
}

TEST_F(FormTest, AMessageThatACompressorHasTwiceIsShownOnce) {
    choose("lstSeries", "TK-A");
    choose("cmbEco", "2");
    type("txtEco", "100000");
    calculate();
    ASSERT_TRUE(form->hasResults());
    const auto* messages = form->findChild<MessagesView*>(QStringLiteral("lvMessages"));
    for (int row = 1; row < list()->rowCount(); ++row) {
        list()->selectRow(row);
        QSet<QString> texts;
        for (int i = 0; i < messages->count(); ++i) texts += messages->item(i)->text();
        EXPECT_EQ(texts.size(), messages->count()) << list()->key(row).toStdString();
    }
}

TEST_F(FormTest, ANewFormStartsWithTheInputsOfTheActiveOneAsFarAsTheyFit) {
    choose("lstRefrigerants", "R407C");
    type("txtTED", "-7.25");
    type("txtTCM", "44.4");
    type("txtPC", "17.123");
    type("txtSC", "3.5");
    switchUnits(imperial);
    type("txtSH", "12.3");
    const auto fixedSpeed = numbers();

    form = window->newSelection();
    EXPECT_EQ(field("lstRefrigerants")->Key(), "R407C");
    EXPECT_EQ(numbers(), fixedSpeed);
    EXPECT_FALSE(field("txtPC")->Derived());
    EXPECT_TRUE(field("txtTCD")->Derived());

    // R407C has no compressors on an inverter.
    form = window->newInverterSelection();
    EXPECT_EQ(field("lstRefrigerants")->Key(), "R134A");
    for (const char* name : {"txtTED", "txtTCD", "txtSC", "txtSH"})
        EXPECT_EQ(field(name)->number(), fixedSpeed[name]) << name;
    EXPECT_TRUE(field("txtPC")->Derived());
    EXPECT_FALSE(field("txtTCD")->Derived());
    type("txtFrequency", "35");
    type("txtTED", "30");
    choose("cmbEco", "1");

    form = window->newInverterSelection();
    EXPECT_EQ(field("txtFrequency")->number(), 35);
    EXPECT_EQ(field("cmbEco")->Key(), "1");
    form = window->newSelection();
    EXPECT_EQ(field("txtTED")->number(), 30) << "from the active form, not from the last of its kind";
    EXPECT_EQ(field("lstRefrigerants")->Key(), "R134A");
}

TEST_F(FormTest, SwitchingTheSystemOfUnitsThereAndBackChangesNoField) {
    for (const bool isGiven : {false, true}) {
        choose("lstRefrigerants", "R407C");
        type("txtTCM", "42.37");
        type("txtTEM", "-3.333");
        if (isGiven) {
            type("txtPC", "17.123");  // the mid temperature goes on leading
            type("txtPE", "4.777");
            choose("cmbSh", "1");
        }
        const auto before = numbers();
        for (int turn = 0; turn < 3; ++turn) {
            switchUnits(imperial);
            EXPECT_NEAR(field("txtTCD")->number(), before["txtTCD"] * 1.8 + 32, 1e-6);
            EXPECT_NEAR(field("txtPC")->number(), before["txtPC"] / 0.0689475729, 1e-3);
            switchUnits(metric);
            EXPECT_EQ(numbers(), before);
        }
        // What is typed in between is what was entered.
        switchUnits(imperial);
        type("txtSC", "7.77");
        const auto entered = numbers();
        switchUnits(metric);
        switchUnits(imperial);
        EXPECT_EQ(numbers(), entered);
        switchUnits(metric);
        form->findChild<Link*>(QStringLiteral("lnkDefaults"))->click();
        EXPECT_EQ(field("txtTCD")->number(), 40);
        EXPECT_TRUE(field("txtTCM")->isHidden());
    }
}

TEST_F(FormTest, TheEntryThatIsChosenAlreadyDiscardsNothing) {
    choose("lstSeries", "TK-A");
    calculate();
    ASSERT_TRUE(form->hasResults());
    for (const char* name : {"lstRefrigerants", "lstSeries", "lstModels", "cmbSh", "cmbEco", "cmbOilCooling",
                             "cmbMotorVoltage", "cmbMotorSize", "cmbStepCapacity"}) {
        const QString text = field(name)->TextText();
        choose(name, field(name)->Key());
        EXPECT_TRUE(form->hasResults()) << name;
        EXPECT_EQ(field(name)->TextText(), text);
    }
    // Any other entry does: the list never shows what does not belong to the inputs.
    for (const auto& [name, key] : {std::pair{"lstModels", "TK-A-120"},
                                    {"cmbMotorVoltage", "460_60"},
                                    {"cmbMotorSize", "1"},
                                    {"cmbStepCapacity", "75"}}) {
        const QString choices = field(name)->Tag1();
        choose(name,
               name == std::string_view("lstModels") ? choices.section(';', 1, 1).section('|', 0, 0) : key);
        EXPECT_FALSE(form->hasResults()) << name;
        calculate();
        ASSERT_TRUE(form->hasResults());
    }
}

TEST_F(FormTest, TypingANameChoosesExactlyThatEntry) {
    const auto typed = [this](const char* name, const QString& text) {
        QTest::keyClicks(field(name)->findChild<QLineEdit*>(), text.left(1));
        auto* rows = QApplication::activePopupWidget()->findChild<QListWidget*>();
        QTest::keyClicks(rows, text.mid(1));
        QTest::keyClick(rows, Qt::Key_Return);
        return field(name)->Key();
    };
    ASSERT_TRUE(field("lstSeries")->Tag1().contains("TK-A(P)|"));
    EXPECT_EQ(typed("lstSeries", "tk-a(p)"), "TK-A(P)");
    EXPECT_EQ(typed("lstSeries", "tk-a"), "TK-A");
    EXPECT_EQ(typed("lstSeries", "TK-A(Q)"), "TK-A(Q)");
    EXPECT_EQ(typed("lstSeries", "TK-A"), "TK-A");
    EXPECT_EQ(typed("cmbMotorVoltage", "380 V / 60 Hz"), "380_60") << "a blank is part of a name";
}

TEST_F(FormTest, CheckedModelsAreAppliedByTheLastRowAndByNoClickElsewhere) {
    choose("lstSeries", "TK-A");
    calculate();
    const auto open = [this] {
        QTest::mouseClick(field("lstModels")->findChild<QLineEdit*>(), Qt::LeftButton);
        return QApplication::activePopupWidget();
    };
    const auto click = [](QWidget* popup, int row) {
        auto* rows = popup->findChild<QListWidget*>();
        QTest::mouseClick(rows->viewport(), Qt::LeftButton, {},
                          rows->visualItemRect(rows->item(row)).center());
    };
    QWidget* popup = open();
    click(popup, 1);
    click(popup, 2);
    popup->hide();
    EXPECT_EQ(field("lstModels")->Key(), "*");
    EXPECT_EQ(field("lstModels")->TextText(), "ALL");
    EXPECT_TRUE(form->hasResults());
    popup = open();
    EXPECT_EQ(popup->findChild<QListWidget*>()->item(0)->checkState(), Qt::Checked);
    EXPECT_EQ(popup->findChild<QListWidget*>()->item(1)->checkState(), Qt::Unchecked);
    click(popup, 1);
    click(popup, 2);
    auto* apply = popup->findChild<QAbstractButton*>(QStringLiteral("applyRow"));
    ASSERT_TRUE(apply->isVisible());
    EXPECT_EQ(apply->text(), "Apply");
    QTest::mouseClick(apply, Qt::LeftButton);
    EXPECT_FALSE(popup->isVisible());
    EXPECT_EQ(field("lstModels")->Key().count(';'), 1);
    EXPECT_FALSE(form->hasResults());
    // Without a tick all models are meant, and said so as in the list.
    popup = open();
    click(popup, 1);
    click(popup, 2);
    QTest::mouseClick(apply, Qt::LeftButton);
    EXPECT_EQ(field("lstModels")->Key(), "*");
    EXPECT_EQ(field("lstModels")->TextText(), "ALL");
    QTest::mouseClick(field("cmbSh")->findChild<QLineEdit*>(), Qt::LeftButton);
    EXPECT_FALSE(apply->isVisible()) << "one choice applies itself";
    QApplication::activePopupWidget()->hide();
}

TEST_F(FormTest, ANewCalculationKeepsTheSelectedCompressor) {
    choose("lstSeries", "TK-A");
    calculate();
    list()->selectRow(4);
    const QString selected = list()->key(4);
    form->MnuPopUp("limits");
    type("txtTED", "3");
    calculate();
    EXPECT_EQ(list()->key(list()->selectedRow()), selected);
    EXPECT_TRUE(form->findChild<MessagesView*>(QStringLiteral("lvMessages"))->isVisible())
        << "the first page";
    calculate();
    EXPECT_EQ(list()->key(list()->selectedRow()), selected);
    // Another model alone: the one selected is no longer listed.
    choose("lstModels", field("lstModels")->Tag1().section(';', 1, 1).section('|', 0, 0));
    calculate();
    EXPECT_EQ(list()->selectedRow(), 1);
}

namespace {

/// A list of which the headings are clicked.
class SortedListTest : public FormTest {
  protected:
    SortedListTest() {
        choose("lstSeries", "TK-A");
        calculate();
    }
    QStringList order(int column) {
        QStringList texts;
        for (int row = 1; row < list()->rowCount(); ++row) texts += list()->text(row, column).trimmed();
        return texts;
    }
    void click(const char* key) {
        auto* headings = list()->header();
        const int section = static_cast<int>(list()->columnKeys().indexOf(QLatin1String(key)));
        QTest::mouseClick(headings->viewport(), Qt::LeftButton, {},
                          {headings->sectionViewportPosition(section) + 20, 20});
    }
    void expectSorted(bool descending) {
        double before = descending ? 1e9 : -1e9;
        bool blank = false;
        for (const QString& text : order(1)) {
            if (text.isEmpty()) {
                blank = true;
                continue;
            }
            EXPECT_FALSE(blank) << "what has no value comes last";
            EXPECT_TRUE(descending ? text.toDouble() <= before : text.toDouble() >= before)
                << text.toStdString();
            before = text.toDouble();
        }
    }
};

}  // namespace

TEST_F(SortedListTest, AHeadingSortsWithinTheGroupsAndBack) {
    const QStringList asListed = order(0);
    list()->selectRow(3);
    const QString selected = list()->key(3);
    click("Q0");
    expectSorted(false);
    EXPECT_TRUE(list()->isGroup(0));
    EXPECT_EQ(list()->key(list()->selectedRow()), selected);
    click("Q0");
    expectSorted(true);
    EXPECT_NE(order(0), asListed);
    // It stays through a new calculation and another system of units, and what is copied follows.
    calculate();
    expectSorted(true);
    switchUnits(imperial);
    expectSorted(true);
    const QStringList sorted = order(0);
    list()->selectAll();
    form->MnuPopUp("copytoclipboard");
    const QStringList lines = QGuiApplication::clipboard()->text().split("\r\n", Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), sorted.size() + 1);
    for (qsizetype i = 0; i < sorted.size(); ++i)
        EXPECT_EQ(lines[i + 1].section('\t', 1, 2).replace('\t', '-'), sorted[i]);
    click("Q0");
    EXPECT_EQ(order(0), asListed);
}

TEST_F(SortedListTest, TheMenuOfTheHeadingsShowsAndHidesColumns) {
    const auto switchInMenu = [this](const QString& text) {
        bool isThere = false;
        QTimer::singleShot(0, [&] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            for (QAction* entry : menu->actions()) {
                if (entry->text() != text) continue;
                isThere = true;
                entry->trigger();
            }
            menu->close();
        });
        list()->columnMenuRequested(list()->mapToGlobal(QPoint(200, 20)));
        return isThere;
    };
    const auto keys = [](const SelectionForm& of) {
        return marvello::testing::control<ResultsView>(of, "lvCps")->columnKeys();
    };
    ASSERT_FALSE(keys(*form).contains(QStringLiteral("@Margin"))) << "only on demand";
    list()->selectRow(3);
    const QString selected = list()->key(3);
    EXPECT_TRUE(switchInMenu(QStringLiteral("Margin")));
    EXPECT_TRUE(switchInMenu(QStringLiteral("Current")));
    EXPECT_FALSE(switchInMenu(QStringLiteral("COP eco"))) << "no economizer is chosen";
    EXPECT_EQ(keys(*form).back(), QStringLiteral("@Margin"));
    EXPECT_FALSE(keys(*form).contains(QStringLiteral("CA")));
    EXPECT_EQ(list()->key(list()->selectedRow()), selected);

    form->MnuPopUp("copytoclipboard");
    const QString copied = QApplication::clipboard()->text();
    EXPECT_TRUE(copied.contains(QStringLiteral("Margin(K)")) &&
                !copied.contains(QStringLiteral("Current(A)")))
        << copied.toStdString();
    form = window->newSelection();
    choose("lstSeries", "TK-A");
    calculate();
    EXPECT_TRUE(keys(*form).contains(QStringLiteral("@Margin"))) << "the next form goes on with them";
    EXPECT_TRUE(switchInMenu(QStringLiteral("Margin")));
    EXPECT_FALSE(keys(*form).contains(QStringLiteral("@Margin")));
}

TEST_F(SortedListTest, TheKeysOfTheHeadingsSortToo) {
    // The headings are a stop behind the list.
    activate();
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Tab);
    ASSERT_TRUE(list()->header()->hasFocus());
    QTest::keyClick(list()->header(), Qt::Key_Right);
    QTest::keyClick(list()->header(), Qt::Key_Space);
    expectSorted(false);
    QTest::keyClick(list()->header(), Qt::Key_Space);
    expectSorted(true);
}

TEST_F(FormTest, HelpTechnicalDataAndColumnsFollowTheSystemOfUnits) {
    choose("lstSeries", "TK-A");
    calculate();
    window->resize(1440, 1100);
    activate();
    field("txtTED")->setFocus();
    const auto* help = form->findChild<QLabel*>(QStringLiteral("rtfHelp"));
    const auto* data = form->findChild<QLabel*>(QStringLiteral("picTecnic"));
    EXPECT_TRUE(help->text().contains(QString::fromUtf8("-50\u00A0°C"))) << help->text().toStdString();
    form->MnuPopUp("tecnic");
    EXPECT_TRUE(data->accessibleName().contains(QString::fromUtf8("120 m³/h")))
        << data->accessibleName().toStdString();
    switchUnits(imperial);
    EXPECT_TRUE(help->text().contains(QString::fromUtf8("-58\u00A0°F"))) << help->text().toStdString();
    EXPECT_FALSE(help->text().contains(QString::fromUtf8("°C")));
    EXPECT_TRUE(data->accessibleName().contains("70.6 cfm")) << data->accessibleName().toStdString();
    EXPECT_TRUE(list()->columnTexts().contains(QString::fromUtf8("Uncooled(°F)")));
    EXPECT_TRUE(list()->columnTexts().contains("Condenser(Tons)"));
    EXPECT_TRUE(list()->columnTexts().contains("Capacity(Btu/h)"));
}

TEST_F(FormTest, AChangeOfLanguageReachesAllThatIsShown) {
    choose("lstSeries", "TK-A");
    SelectionForm* fixedSpeed = form;
    form = window->newInverterSelection();
    form = fixedSpeed;
    auto* tabs = window->centralWidget()->findChild<TabStrip*>(QStringLiteral("TabStrip"));
    tabs->setCurrentIndex(0);
    window->resize(1440, 1100);
    calculate();
    form->MnuPopUp("limits");
    activate();
    field("txtTED")->setFocus();
    const auto* help = form->findChild<QLabel*>(QStringLiteral("rtfHelp"));
    const auto* graph = form->findChild<QWidget*>(QStringLiteral("limitgraph"));
    const auto* link = form->findChild<Link*>(QStringLiteral("lnkDefaults"));
    EXPECT_EQ(tabs->tabText(1), "2 inverter");
    EXPECT_TRUE(graph->accessibleDescription().contains("Iniection limit"));
    for (const char* language : {"de-DE", "it-IT", "fr-FR", "es-ES", "cn-CN", "en-EN"}) {
        SCOPED_TRACE(language);
        const QString before = help->text();
        window->chooseLanguage(QLatin1String(language));
        EXPECT_NE(help->text(), before);
        EXPECT_GE(link->width(), link->sizeHint().width()) << "nothing is cut";
        EXPECT_LT(link->geometry().right(), form->findChild<QWidget*>(QStringLiteral("lnkCalculate"))->x());
        EXPECT_EQ(tabs->tabText(0), form->windowTitle());
    }
    window->chooseLanguage("de-DE");
    EXPECT_EQ(tabs->tabText(0), "1 Auswahl");
    EXPECT_EQ(tabs->tabText(1), "2 Umrichter");
    EXPECT_EQ(field("lstModels")->TextText(), "ALLE");
    EXPECT_TRUE(graph->accessibleDescription().contains("Einsatzgrenze"))
        << graph->accessibleDescription().toStdString();
    EXPECT_FALSE(graph->accessibleDescription().contains("limit"));
    const auto report = form->results().report();
    ASSERT_TRUE(report);
    for (const auto& limit : report->envelope.limits)
        EXPECT_EQ(limit->Description.find("limit"), std::string::npos);
    choose("lstModels", "120");
    choose("lstModels", "*");
    EXPECT_EQ(field("lstModels")->TextText(), "ALLE");
}

TEST_F(FormTest, ARefusedTemperatureNamesTheRangeOfTheRefrigerant) {
    // R134a has its triple point at -103.3 degrees Celsius and its critical point at 101.06.
    for (const auto& [unit, low, high, scale] : {std::tuple{QString::fromUtf8("°C"), -103.3, 101.06, 1.0},
                                                 {QString::fromUtf8("°F"), -153.94, 213.91, 1.8}}) {
        type("txtTCD", "500");
        const QRegularExpression range(QStringLiteral("are (-?[0-9.]+) to ([0-9.]+) ") + unit);
        const auto named = range.match(field("txtTCD")->complaint());
        ASSERT_TRUE(named.hasMatch()) << field("txtTCD")->complaint().toStdString();
        EXPECT_NEAR(named.captured(1).toDouble(), low, 0.15 * scale);
        EXPECT_NEAR(named.captured(2).toDouble(), high, 0.15 * scale);
        type("txtTCD", named.captured(2));
        EXPECT_TRUE(field("txtTCD")->Refusal().isEmpty()) << "both ends are permitted";
        type("txtTED", named.captured(1));
        EXPECT_TRUE(field("txtTED")->Refusal().isEmpty());
        type("txtTCD", "500");
        switchUnits(imperial);  // while it is refused
    }
    switchUnits(metric);
    type("txtTED", "2");
    type("txtTCD", "40");
    type("txtTED", "41");
    EXPECT_TRUE(field("txtTED")->complaint().contains("above the condensing temperature"));
    type("txtTCD", "39");
    EXPECT_TRUE(field("txtTCD")->complaint().contains("above the condensing temperature"));
    type("txtTCD", "50");
    EXPECT_TRUE(field("txtTCD")->complaint().isEmpty());
    EXPECT_TRUE(field("txtTED")->complaint().isEmpty());
    type("txtPE", "30");  // above the condensing pressure of 13.2 bar
    EXPECT_TRUE(field("txtPE")->complaint().contains("above the condensing temperature"));
    EXPECT_TRUE(field("txtTED")->complaint().isEmpty()) << "it was not typed";
}

TEST_F(FormTest, AGroupRowEmptiesTheLimits) {
    choose("lstSeries", "TK-A");
    calculate();
    form->MnuPopUp("limits");
    const auto* graph = form->findChild<QWidget*>(QStringLiteral("limitgraph"));
    EXPECT_TRUE(graph->isVisible());
    list()->selectRow(0);
    EXPECT_FALSE(graph->isVisible());
    list()->selectRow(1);
    EXPECT_TRUE(graph->isVisible());
    QStringList entries;
    for (const QAction* entry : form->findChild<QMenu*>(QStringLiteral("mnu_cpspopup"))->actions())
        if (!entry->isSeparator()) entries += entry->objectName().mid(13);
    EXPECT_EQ(entries, QStringList({"messages", "tecnic", "polynomials", "dimension", "limits", "rating",
                                    "cycle", "calculation", "partload", "compare", "year", "copyclipboard",
                                    "printpreview", "print"}));
}
