// What a person does with a year, on the catalogue that is shipped.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTextStream>

#include "controls/CoreText.h"
#include "controls/FieldNote.h"
#include "controls/Link.h"
#include "controls/MessagesView.h"
#include "controls/ResultsView.h"
#include "controls/TabStrip.h"
#include "data/Csv.h"
#include "tests/gui/RealWindow.h"
#include "tests/support/Controls.h"
#include "tests/support/Person.h"
#include "workspace/ChartPane.h"
#include "workspace/ComparisonFigures.h"
#include "workspace/SelectionForm.h"
#include "workspace/YearBins.h"
#include "workspace/frmYear.h"

using namespace marvello;
using marvello::testing::choose;
using marvello::testing::control;
using marvello::testing::field;

namespace {

class YearFormTest : public ::testing::Test, public marvello::testing::RealWindow {
  protected:
    YearFormTest() : RealWindow("en-EN"), form(window->newYear()) { activate(); }
    ~YearFormTest() override { EXPECT_TRUE(boxes.isEmpty()) << boxes.join('\n').toStdString(); }

    void activate() {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    void settle() const {
        constexpr int most = 60000;  // milliseconds; under a sanitizer on a busy machine
        EXPECT_TRUE(QTest::qWaitFor([this] { return !form->isCalculating(); }, most));
        QApplication::processEvents();
    }
    void type(const char* name, const QString& text) {
        marvello::testing::type(*form, name, text);
        settle();
    }
    QString texts(std::string_view name) const {
        for (const ComparedGroup& group : form->table().figures.groups)
            for (const ComparedRow& row : group.rows)
                if (row.name == name) {
                    QStringList all;
                    for (const ComparedCell& cell : row.cells) all += fromCore(cell.text);
                    return all.join(u'|');
                }
        return QStringLiteral("no row");
    }
    QWidget* emptyPage() const { return control<QWidget>(*form, "yearEmpty"); }
    QTableView* bins() const { return control<QTableView>(*form, "binTable"); }
    QString bin(int row, int column) const { return bins()->model()->index(row, column).data().toString(); }
    /// Types into the cell in use, which begins to be edited by that, and ends with a key.
    void enterBin(const QString& text, Qt::Key end = Qt::Key_Return) {
        activate();
        bins()->setFocus();
        QTest::keyClicks(bins(), text.left(1));
        const auto editors = bins()->findChildren<QLineEdit*>();  // an older one may be on its way out
        QLineEdit* const editor = editors.isEmpty() ? nullptr : editors.last();
        ASSERT_TRUE(editor);
        QTest::keyClicks(editor, text.mid(1));
        QTest::keyClick(editor, end);
        QApplication::processEvents();
    }

    frmYear* form;
};

}  // namespace

TEST_F(YearFormTest, BeginsEmptyAndFollowsWhatIsTyped) {
    EXPECT_FALSE(form->hasResults());
    EXPECT_TRUE(emptyPage()->isVisible());
    EXPECT_FALSE(control<QAction>(*window, "mnu_tools_copytoclipboard")->isEnabled());
    EXPECT_TRUE(field(*form, "txtPlant2")->isHidden());
    type("txtPlant1", "TK-A-120x2; TK-D-140 R134A");
    ASSERT_TRUE(form->hasResults());
    EXPECT_FALSE(emptyPage()->isVisible());
    EXPECT_TRUE(field(*form, "txtPlant2")->isVisible());
    const QString before = texts("energy");
    type("txtDesignLoad", "150");
    EXPECT_NE(texts("energy"), before);
    EXPECT_EQ(control<QLabel>(*window, "statusCounts")->text(), "58 bins, 8760 h");
    type("txtDesignLoad", "-");
    EXPECT_FALSE(form->hasResults());
    EXPECT_TRUE(emptyPage()->isVisible());
    EXPECT_TRUE(emptyPage()->accessibleName().contains("Cooling, full"))
        << emptyPage()->accessibleName().toStdString();
    type("txtDesignLoad", "100");
    EXPECT_EQ(texts("energy"), before);
}

TEST_F(YearFormTest, ABadPlantIsMarkedAndTheOthersGoOn) {
    type("txtPlant1", "TK-A-120 R134A");
    const QString alone = texts("energy");
    type("txtPlant2", "TK-A-999");
    EXPECT_EQ(texts("energy"), alone);
    EXPECT_EQ(field(*form, "txtPlant2")->Refusal(), "The catalogue has no compressor TK-A-999.");
    type("txtPlant2", "TK-D-140x2");
    EXPECT_EQ(field(*form, "txtPlant2")->Refusal(), "At most one machine of a plant may be on an inverter.");
    type("txtPlant2", "TK-D-140");
    EXPECT_EQ(field(*form, "txtPlant2")->Refusal(), "");
    EXPECT_EQ(texts("energy").count(u'|'), 1);
    EXPECT_EQ(form->subject(), QString::fromUtf8("R134A · TK-A-120, TK-D-140")) << "of the one before";
    type("txtPlant1", "TK-A-120");
    EXPECT_TRUE(field(*form, "txtPlant1")->Refusal().startsWith("Name the refrigerant behind a dot"));
}

/// The figures are those of the command.
TEST_F(YearFormTest, CompressorsOfAListComeWithTheirOptions) {
    SelectionForm* selection = window->newSelection();
    activate();
    choose(*selection, "lstSeries", "TK-A");
    marvello::testing::type(*selection, "txtSH", "18");
    selection->lnkCalculate_Click();
    activate();
    auto* list = control<ResultsView>(*selection, "lvCps");
    list->selectRow(1);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window->ActiveForm(), selection);
    EXPECT_EQ(window->statusBar()->currentMessage(), "TK-A-120 is in the year, as compressor 1 of 4");
    settle();
    EXPECT_EQ(field(*form, "txtPlant1")->TextText(), QString::fromUtf8("TK-A-120 · R134A"));
    const QString hot = texts("cooling");
    control<QAction>(*window, "mnu_tools_year")->trigger();
    EXPECT_EQ(window->statusBar()->currentMessage(), "TK-A-120 is in the year already");
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(0);
    type("txtPlant2", "TK-A-120");
    ASSERT_EQ(texts("energy").count(u'|'), 1);
    EXPECT_EQ(texts("cooling").section(u'|', 0, 0), hot);
    EXPECT_NE(texts("cooling").section(u'|', 1), hot) << "10 K as in a new form";
    type("txtPlant1", "TK-A-140 R134A");
    type("txtPlant2", "TK-A-140");
    EXPECT_EQ(texts("cooling").section(u'|', 0, 0), texts("cooling").section(u'|', 1))
        << "another machine has options of its own";
    list->selectAll();
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(1);
    control<QAction>(*window, "mnu_tools_year")->trigger();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes.takeFirst().startsWith("The year holds four compressors, so TK-A-"));
    settle();
    EXPECT_EQ(texts("energy").count(u'|'), 3);
}

TEST_F(YearFormTest, BinsAreEditedWithTheKeys) {
    type("txtPlant1", "TK-A-255 R134A");
    bins()->setFocus();
    bins()->setCurrentIndex(bins()->model()->index(0, 0));
    QTest::keyClick(bins(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(bins(), Qt::Key_Delete);
    EXPECT_EQ(bins()->model()->rowCount(), 1) << "that of a new one";
    settle();
    EXPECT_FALSE(form->hasResults());
    bins()->setCurrentIndex(bins()->model()->index(0, 0));
    enterBin("30", Qt::Key_Tab);
    ASSERT_TRUE(qobject_cast<QLineEdit*>(QApplication::focusWidget())) << "on to the next value";
    QTest::keyClicks(QApplication::focusWidget(), "500");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(bins()->currentIndex().row(), 1) << "Enter goes down";
    bins()->setCurrentIndex(bins()->model()->index(1, 0));
    enterBin("-5,5");
    EXPECT_EQ(bin(0, 0), "-5.5") << "the coldest first";
    EXPECT_EQ(bin(1, 1), "500");
    EXPECT_EQ(bin(0, 3), "25.0") << "at least";
    EXPECT_EQ(bin(1, 3), "42.0") << "30 and 12";
    bins()->setCurrentIndex(bins()->model()->index(1, 2));
    enterBin("120");
    EXPECT_EQ(bin(1, 2), "100");
    const auto* note = window->findChild<FieldNote*>();
    ASSERT_TRUE(note);
    bool isSaid = false;
    for (const FieldNote* each : window->findChildren<FieldNote*>())
        isSaid = isSaid || (each->isVisible() && each->text().contains("above full load"));
    EXPECT_TRUE(isSaid) << "next to the value, which keeps the focus";
    EXPECT_EQ(bins()->currentIndex().row(), 1);
    settle();
    EXPECT_EQ(form->inputs().load.bins.size(), 2U);
    EXPECT_EQ(field(*form, "cmbProfile")->TextText(), "Own profile");
    EXPECT_EQ(control<QLabel>(*window, "statusCounts")->text().section("   ", 0, 0),
              "2 bins, 500 h instead of 8760");
    QGuiApplication::clipboard()->setText("0\t100\t50\n10\t200\t70\n");
    bins()->setCurrentIndex(bins()->model()->index(0, 0));
    QTest::keyClick(bins(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(bin(0, 0), "0.0");
    EXPECT_EQ(bin(1, 2), "70");
    settle();
    EXPECT_TRUE(form->hasResults());
}

TEST_F(YearFormTest, AChosenBinIsMarkedEverywhere) {
    type("txtPlant1", "TK-A-120 R134A");
    auto* chart = control<ChartPane>(*form, "yearChart0");
    ASSERT_TRUE(chart->isVisible());
    QTest::mouseClick(chart, Qt::LeftButton, {}, QPoint(chart->width() - 20, chart->height() / 2));
    EXPECT_EQ(bins()->currentIndex().row(), 57) << "the last one";
    EXPECT_TRUE(control<QLabel>(*window, "statusCounts")->text().contains("Bin 38.0"));
    EXPECT_TRUE(control<QLabel>(*window, "statusCounts")->text().contains("TK-A-120 covers"));
    EXPECT_EQ(control<ResultsView>(*form, "yearTable")->selectedRow(), 57);
    control<TabStrip>(*form, "yearTabs")->setCurrentIndex(4);
    control<ResultsView>(*form, "yearTable")->selectRow(3);
    EXPECT_EQ(bins()->currentIndex().row(), 3);
    EXPECT_FALSE(control<MessagesView>(*form, "yearWarnings")->isHidden());
}

TEST_F(YearFormTest, AProfileBringsItsRuleAndOwnHoursKeepIt) {
    type("txtPlant1", "TK-A-120 R134A");
    EXPECT_NE(texts("fourPoints"), "no row");
    choose(*form, "cmbProfile", "eu-lt");
    settle();
    EXPECT_EQ(field(*form, "txtEvaporating")->TextText(), "-35.00");
    EXPECT_EQ(form->inputs().usedDegradation(), usualDegradation(Degradation::Form::condensingUnit));
    bins()->setCurrentIndex(bins()->model()->index(0, 1));
    bins()->setFocus();
    enterBin("7");
    settle();
    EXPECT_EQ(texts("fourPoints"), "no row") << "it is of the hours of the profile";
    EXPECT_FALSE(form->inputs().degradation) << "still that of the rule";
    bins()->setCurrentIndex(bins()->model()->index(0, 2));
    enterBin("50");
    settle();
    EXPECT_EQ(form->inputs().usedDegradation(), usualDegradation(Degradation::Form::condensingUnit));
    EXPECT_EQ(field(*form, "cmbDegradation")->TextText(), "Condensing unit") << "stated by now";
    choose(*form, "cmbProfile", "eu-chiller");
    settle();
    EXPECT_EQ(field(*form, "txtEvaporating")->TextText(), "-35.00") << "it says none";
}

TEST_F(YearFormTest, AFileIsReadOrRefusedWithItsLine) {
    const QTemporaryDir folder;
    const QString good = folder.filePath("ours.csv");
    const QString bad = folder.filePath("bad.csv");
    const auto write = [](const QString& path, const char* text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(text);
    };
    write(good, "outdoor F;hours;load %\n50;1000;50\n95;100;100\n");
    write(bad, "outdoor;hours;load\n10;1000;0,5\n20;-3;1\n");
    const auto open = [](const QString& path) {
        return [path](QWidget& dialog) {
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
            marvello::testing::press(dialog, QDialogButtonBox::Open);
        };
    };
    type("txtPlant1", "TK-A-120 R134A");
    {
        const marvello::testing::Person person({open(bad)});
        choose(*form, "cmbProfile", "file");
        EXPECT_TRUE(QTest::qWaitFor([this] { return !boxes.isEmpty(); }, 5000));
    }
    EXPECT_TRUE(boxes.takeFirst().endsWith(QString::fromUtf8("Line 3: The hours “-3” are negative.")));
    EXPECT_EQ(field(*form, "cmbProfile")->Key(), "eu-mt") << "as it was";
    {
        const marvello::testing::Person person({open(good)});
        choose(*form, "cmbProfile", "file");
        EXPECT_TRUE(QTest::qWaitFor([this] { return form->inputs().load.bins.size() == 2; }, 5000));
    }
    settle();
    EXPECT_EQ(field(*form, "cmbProfile")->TextText(), "ours");
    EXPECT_EQ(bin(1, 0), "35.0");
}

TEST_F(YearFormTest, UnitsChangeFiguresAndNotTheYear) {
    type("txtPlant1", "TK-A-120 R134A");
    type("txtEvaporating", "-10:-8;30:-12");
    type("txtCharge", "48");
    const QString energy = texts("energy");
    const EvaporatingRule rule = form->inputs().evaporating;
    form->MeasureUnits(1, true);
    EXPECT_EQ(field(*form, "txtEvaporating")->TextText(), "14:17.6;86:10.4");
    EXPECT_NEAR(field(*form, "txtCharge")->number(), 105.8, 0.05) << "pounds";
    EXPECT_NEAR(field(*form, "txtDesignLoad")->number(), 28.43, 0.005) << "100 kW over 3.517";
    EXPECT_NEAR(field(*form, "txtDifference")->number(), 21.6, 1e-9) << "12 K times 1.8";
    EXPECT_EQ(bin(0, 0), "-2.2") << "-19 degrees Celsius";
    EXPECT_EQ(texts("energy"), energy);
    type("txtEvaporating", "14");
    EXPECT_NEAR(form->inputs().evaporating.points.front().evaporating, -10, 1e-9);
    form->MeasureUnits(0, true);
    EXPECT_EQ(field(*form, "txtEvaporating")->TextText(), "-10.00");
    EXPECT_EQ(field(*form, "txtCharge")->number(), 48);
    type("txtEvaporating", "-10:x");
    EXPECT_TRUE(field(*form, "txtEvaporating")->isInvalid());
    EXPECT_FALSE(form->hasResults());
    EXPECT_EQ(rule.points.size(), 2U);
}

TEST_F(YearFormTest, TheNextFormGoesOnWithTheInputs) {
    type("txtPlant1", "TK-A-120 R134A");
    type("txtDesignLoad", "75");
    type("txtEvaporating", "-10:-8;30:-12");
    type("txtGrid", "0.123");
    choose(*form, "cmbStaging", "1");
    choose(*form, "cmbDegradation", "3");
    choose(*form, "cmbCondensing", "1");
    bins()->setCurrentIndex(bins()->model()->index(3, 1));
    bins()->setFocus();
    enterBin("33");
    settle();
    const YearInputs before = form->inputs();
    form->Quit();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    form = window->newYear();
    EXPECT_EQ(form->inputs().designLoad, 75);
    EXPECT_EQ(form->inputs().grid, 0.123);
    EXPECT_EQ(form->inputs().region, "");
    EXPECT_EQ(form->inputs().load, before.load);
    EXPECT_EQ(form->inputs().evaporating, before.evaporating);
    EXPECT_EQ(form->inputs().usedDegradation(), usualDegradation(Degradation::Form::chiller));
    EXPECT_EQ(form->inputs().staging, Staging::sequence);
    EXPECT_TRUE(form->inputs().terms().condensing.isScaled);
    EXPECT_EQ(field(*form, "txtPlant1")->TextText(), "") << "plants are named anew";
    control<Link>(*form, "lnkDefaults")->click();
    settle();
    EXPECT_EQ(form->inputs().designLoad, 100);
    EXPECT_EQ(form->inputs().profile, "eu-mt");
}

TEST_F(YearFormTest, OtherHoursKeepTheirRuleInTheNextForm) {
    type("txtPlant1", "TK-A-120 R134A");
    bins()->setCurrentIndex(bins()->model()->index(3, 1));
    enterBin("33");
    settle();
    ASSERT_EQ(form->inputs().usedDegradation(), usualDegradation(Degradation::Form::condensingUnit));
    form->Quit();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    form = window->newYear();
    EXPECT_EQ(form->inputs().load.bins.at(3).hours, 33);
    EXPECT_EQ(form->inputs().usedDegradation(), usualDegradation(Degradation::Form::condensingUnit));
}

TEST_F(YearFormTest, APasteOfNothingLeavesTheProfile) {
    type("txtPlant1", "TK-A-120 R134A");
    QGuiApplication::clipboard()->setText("\n");
    bins()->setCurrentIndex(bins()->model()->index(0, 0));
    QTest::keyClick(bins(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form->inputs().profile, "eu-mt");
}

TEST_F(YearFormTest, WhatCannotBeReadYetStaysWhileOthersAreChosen) {
    type("txtPlant1", "TK-A-120 R134A");
    type("txtEvaporating", "-10:x");
    choose(*form, "cmbStaging", "1");
    EXPECT_EQ(field(*form, "txtEvaporating")->TextText(), "-10:x");
    EXPECT_FALSE(form->hasResults());
    choose(*form, "cmbProfile", "eu-lt");
    EXPECT_EQ(field(*form, "txtEvaporating")->TextText(), "-35.00") << "that of the profile";
}

TEST_F(YearFormTest, EscapeEndsACalculation) {
    marvello::testing::type(*form, "txtPlant1", "TK-A-120 R134A");
    ASSERT_TRUE(form->isCalculating());
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_FALSE(form->isCalculating());
    EXPECT_TRUE(emptyPage()->accessibleName().contains("stopped"))
        << emptyPage()->accessibleName().toStdString();
    QTest::keyClick(form, Qt::Key_F5);
    settle();
    EXPECT_TRUE(form->hasResults());
}

TEST_F(YearFormTest, CopyAndFileHoldFiguresAssumptionsAndBins) {
    type("txtPlant1", "TK-A-120 R134A");
    type("txtPlant2", "TK-D-140");
    QGuiApplication::clipboard()->clear();
    control<QAction>(*window, "mnu_tools_copytoclipboard")->trigger();
    const QStringList lines = QGuiApplication::clipboard()->text().split("\r\n");
    EXPECT_TRUE(lines[0].contains("TK-A-120 (steps 100, 75, 50, 25 %)\tTK-D-140 (inverter 20 to 70 Hz)"));
    EXPECT_EQ(lines.filter("no declared seasonal figures").size(), 1);
    EXPECT_EQ(lines.filter(QStringLiteral("Energy MWh")).first().section('\t', 1),
              texts("energy").replace(u'|', u'\t'));
    EXPECT_GT(lines.size(), 58 + 10);
    const QTemporaryDir folder;
    const QString path = folder.filePath("year.csv");
    const marvello::testing::Person person({marvello::testing::saveAs(path, "CSV (*.csv)")});
    control<QAction>(*window, "mnu_tools_export_cps")->trigger();
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QStringList written = QString::fromUtf8(file.readAll()).split('\n');
    EXPECT_EQ(written.filter(QRegularExpression("^-?\\d+;")).size(), 58);
    EXPECT_TRUE(written.front().startsWith("row;caption;unit;"));
}

TEST_F(YearFormTest, EveryLanguageHasItsTexts) {
    type("txtPlant1", "TK-A-120 R134A");
    type("txtPlant2", "TK-D-140");
    for (const char* language : {"de-DE", "fr-FR", "it-IT", "es-ES", "cn-CN", "en-EN"}) {
        window->chooseLanguage(language);
        QStringList said{form->counts()};
        for (const QLabel* label : form->findChildren<QLabel*>()) said += label->text();
        for (const AdvanceText* each : form->findChildren<AdvanceText*>())
            said += {each->CaptionText(), each->TextText(), each->Tag1()};
        for (const ResultsView* list : form->findChildren<ResultsView*>()) said += list->columnTexts();
        for (const ComparedRow& row : form->table().figures.groups.front().rows)
            said += fromCore(row.caption);
        for (const QString& text : said) {
            EXPECT_FALSE(text.contains("frmyear")) << language << ": " << text.toStdString();
            EXPECT_FALSE(text.contains("{0}")) << language << ": " << text.toStdString();
        }
    }
}

TEST_F(YearFormTest, InputsAreHiddenAndShownAgain) {
    type("txtPlant1", "TK-A-120 R134A");
    const auto width = [this] { return control<QWidget>(*form, "yearResults")->width(); };
    const int before = width();
    QAction* const hide = control<QAction>(*window, "frameresize");
    ASSERT_TRUE(hide->isEnabled());
    QTest::keyClick(form->window()->focusWidget(), Qt::Key_F9);
    QApplication::processEvents();
    EXPECT_TRUE(hide->isChecked());
    EXPECT_GT(width(), before + 350);
    EXPECT_EQ(window->focusWidget(), control<QWidget>(*form, "yearFigures"));
    hide->trigger();
    QApplication::processEvents();
    EXPECT_EQ(width(), before);
}

TEST_F(YearFormTest, KeysGoRoundTheParts) {
    type("txtPlant1", "TK-A-120 R134A");
    const auto part = [this]() -> QString {
        for (const char* name : {"yearPanel", "yearFigures", "yearTabs"})
            if (auto* part = control<QWidget>(*form, name);
                part == QApplication::focusWidget() || part->isAncestorOf(QApplication::focusWidget()))
                return QLatin1String(name);
        return QStringLiteral("other");
    };
    QStringList parts;
    for (int i = 0; i < 3; ++i) {
        parts += part();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
    }
    EXPECT_EQ(parts.first(), "yearPanel");
    EXPECT_EQ(parts[1], "yearFigures");
    auto* tabs = control<TabStrip>(*form, "yearTabs");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(tabs->currentIndex(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(tabs->currentIndex(), tabs->count() - 1);
}
