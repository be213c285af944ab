// What a person does with the comparison, on the catalogue that is shipped.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

#include "controls/CoreText.h"
#include "controls/FilterChip.h"
#include "controls/ResultsView.h"
#include "controls/TabStrip.h"
#include "tests/gui/RealWindow.h"
#include "tests/support/Controls.h"
#include "tests/support/Person.h"
#include "workspace/ChartPane.h"
#include "workspace/ComparisonFigures.h"
#include "workspace/SelectionForm.h"
#include "workspace/frmComparison.h"
#include "workspace/frmFind.h"

using namespace marvello;
using marvello::testing::choose;
using marvello::testing::control;
using marvello::testing::Person;
using marvello::testing::press;

namespace {

class ComparisonFormTest : public ::testing::Test, public marvello::testing::RealWindow {
  protected:
    ComparisonFormTest() : RealWindow("en-EN"), selection(window->newSelection()) {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        choose(*selection, "lstSeries", "TK-A");
        selection->lnkCalculate_Click();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    static ResultsView* list(const QWidget& form) { return control<ResultsView>(form, "lvCps"); }
    frmComparison* form() const {
        for (Form* each : window->forms())
            if (auto* found = qobject_cast<frmComparison*>(each)) return found;
        return nullptr;
    }
    /// Adds the row of a list by its key.
    void add(const QWidget& of, int row) {
        window->activateWindow();  // a calculation shows its progress in another one
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        list(of)->selectRow(row);
        list(of)->setFocus();
        QTest::keyClick(list(of), Qt::Key_Return, Qt::ControlModifier);
        settle();
    }
    void settle() const {
        constexpr int most = 60000;  // milliseconds; under a sanitizer on a busy machine
        QApplication::processEvents();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !form() || !form()->isCalculating(); }, most));
        QApplication::processEvents();
    }
    QStringList names() const {
        QStringList names;
        for (const ComparedHead& head : form()->table().heads) names += fromCore(head.name);
        return names;
    }
    QString texts(const char* name) const {
        for (const ComparedGroup& group : form()->table().groups)
            for (const ComparedRow& row : group.rows)
                if (row.name == name) {
                    QStringList all;
                    for (const ComparedCell& cell : row.cells) all += fromCore(cell.text);
                    return all.join(u'|');
                }
        return QStringLiteral("no row");
    }
    QWidget* head(int place) const {
        return control<QWidget>(*form(), QStringLiteral("head%1").arg(place).toLatin1());
    }

    SelectionForm* selection;
};

}  // namespace

TEST_F(ComparisonFormTest, TakesCompressorsOfEachKindOfFormAndOutlivesIt) {
    add(*selection, 1);
    ASSERT_TRUE(form());
    EXPECT_EQ(window->ActiveForm(), selection) << "more may be chosen";
    EXPECT_TRUE(list(*selection)->hasFocus());
    EXPECT_EQ(window->statusBar()->currentMessage(),
              "TK-A-120 is in the comparison, with 1 of 4 compressors");
    add(*selection, 1);
    EXPECT_EQ(form()->choices().size(), 1U) << "it is there already";

    SelectionForm* inverter = window->newInverterSelection();
    inverter->lnkCalculate_Click();
    add(*inverter, 1);
    ASSERT_EQ(form()->choices().size(), 2U);
    EXPECT_EQ(form()->choices()[1].conditions.InverterFrequency,
              inverter->results().selected()->compressor->Variables[var::InverterFrequency]);

    frmFind* find = window->newFind();
    ASSERT_TRUE(QTest::qWaitFor([find] { return !find->isSearching(); }, 60000));
    add(*find, 0);
    ASSERT_EQ(form()->choices().size(), 3U);
    const Candidate* const candidate = find->results().selected();
    EXPECT_EQ(form()->choices()[2].machines, candidate->machines);
    EXPECT_EQ(form()->choices()[2].conditions, candidate->conditions);
    const QString capacities = texts("capacity");
    EXPECT_EQ(capacities.section(u'|', 2), QString::number(candidate->capacity, 'f', 1));
    for (Form* each : window->forms())
        if (each != form()) each->Quit();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    form()->recalculate();
    settle();
    EXPECT_EQ(texts("capacity"), capacities);
}

TEST_F(ComparisonFormTest, AFifthIsRefusedWithASentence) {
    list(*selection)->selectAll();
    control<QAction>(*window, "mnu_tools_compare")->trigger();
    settle();
    EXPECT_EQ(form()->choices().size(), 4U);
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.takeFirst(),
              "The comparison holds four compressors, so TK-A-220 was not added. Take one out first.");
}

TEST_F(ComparisonFormTest, HeadsAreMovedAndTakenOutByKeysAndMouse) {
    for (const int row : {1, 2, 3}) add(*selection, row);
    const QString capacities = texts("capacity");
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(1);
    settle();
    EXPECT_EQ(names(), (QStringList{"TK-A-120", "TK-A-140", "TK-A-165"}));
    head(0)->setFocus();
    QTest::keyClick(head(0), Qt::Key_Right, Qt::AltModifier);
    settle();
    EXPECT_EQ(names(), (QStringList{"TK-A-140", "TK-A-120", "TK-A-165"}));
    EXPECT_TRUE(head(1)->hasFocus()) << "the focus goes with it";
    // From the third column into the first one.
    QTest::mousePress(head(2), Qt::LeftButton, {}, {60, 60});
    QTest::mouseMove(head(2), {20, 60});
    QTest::mouseMove(head(2), {60 - head(2)->x() + head(0)->x(), 60});
    QTest::mouseRelease(head(2), Qt::LeftButton, {}, {60, 60});
    settle();
    EXPECT_EQ(names(), (QStringList{"TK-A-165", "TK-A-140", "TK-A-120"}));
    EXPECT_EQ(texts("capacity").split(u'|').last(), capacities.split(u'|').first());
    QTest::keyClick(head(1), Qt::Key_Delete);
    settle();
    EXPECT_EQ(names(), (QStringList{"TK-A-165", "TK-A-120"}));
    for (int i = 0; i < 2; ++i) {
        QTest::keyClick(head(0), Qt::Key_Delete);
        settle();
    }
    EXPECT_FALSE(form()->hasResults());
    EXPECT_EQ(control<QWidget>(*form(), "empty")->isVisible(), true);
}

TEST_F(ComparisonFormTest, AllAreAtThePointThatIsTyped) {
    add(*selection, 1);
    marvello::testing::type(*selection, "txtTCD", "45");
    selection->lnkCalculate_Click();
    add(*selection, 6);
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(1);
    settle();
    EXPECT_EQ(texts("point"), QString::fromUtf8("2.0 / 40.0 °C|2.0 / 45.0 °C"));
    QTest::mouseClick(control<FilterChip>(*form(), "samePoint"), Qt::LeftButton);
    settle();
    EXPECT_EQ(texts("point"), "no row");
    marvello::testing::type(*form(), "txtTED", "-5");
    settle();
    EXPECT_EQ(fromCore(form()->table().groups.front().caption), QString::fromUtf8("At -5.0 / 40.0 °C"));
    SelectionForm* plain = window->newSelection();
    choose(*plain, "lstSeries", "TK-A");
    marvello::testing::type(*plain, "txtTED", "-5");
    marvello::testing::type(*plain, "txtTCD", "40");
    plain->lnkCalculate_Click();
    const QStringList capacities = texts("capacity").split(u'|');
    EXPECT_EQ(capacities[0], list(*plain)->text(1, 1));
    EXPECT_EQ(capacities[1], list(*plain)->text(6, 1));
    plain->Quit();
    QTest::mouseClick(control<FilterChip>(*form(), "samePoint"), Qt::LeftButton);
    settle();
    EXPECT_EQ(texts("point"), QString::fromUtf8("2.0 / 40.0 °C|2.0 / 45.0 °C")) << "each at its own again";
}

TEST_F(ComparisonFormTest, CopiesTheWholeTableWithTheErrorOfACompressor) {
    add(*selection, 1);
    marvello::testing::type(*selection, "txtTED", "35");
    selection->lnkCalculate_Click();
    add(*selection, 2);
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(1);
    settle();
    QGuiApplication::clipboard()->clear();
    control<QAction>(*window, "mnu_tools_copytoclipboard")->trigger();
    const QStringList lines = QGuiApplication::clipboard()->text().split("\r\n");
    EXPECT_EQ(lines[0].count(u'\t'), 2);
    EXPECT_TRUE(lines[0].contains("TK-A-120 (1 "));
    EXPECT_TRUE(lines[2].endsWith(QString::fromUtf8("35.0 / 40.0 °C"))) << qPrintable(lines[2]);
    EXPECT_TRUE(lines[4].contains("The operating point lies outside the application limits"))
        << qPrintable(lines[4]);
    const auto power = lines.filter("Power kW");
    ASSERT_EQ(power.size(), 1);
    EXPECT_TRUE(power[0].endsWith("\t-"));
    const auto* figures = control<ComparisonFigures>(*form(), "comparisonFigures");
    EXPECT_EQ(figures->rowSpan(1, 2), 1) << "its operating point stays in sight";
    EXPECT_GT(figures->rowSpan(3, 2), 5) << "in the place of the values";
}

TEST_F(ComparisonFormTest, TheColumnInUseIsMovedAndTakenOutByKeys) {
    for (const int row : {1, 2, 3}) add(*selection, row);
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(1);
    settle();
    auto* figures = control<ComparisonFigures>(*form(), "comparisonFigures");
    figures->setFocus();
    figures->setCurrentMachine(0);
    QTest::keyClick(figures, Qt::Key_Right, Qt::AltModifier);
    settle();
    EXPECT_EQ(names(), (QStringList{"TK-A-140", "TK-A-120", "TK-A-165"}));
    EXPECT_EQ(figures->currentMachine(), 1) << "the cell in use goes with it";
    EXPECT_TRUE(figures->hasFocus());
    QTest::keyClick(figures, Qt::Key_Right, Qt::AltModifier);
    QTest::keyClick(figures, Qt::Key_Right, Qt::AltModifier);  // there is no place more
    settle();
    EXPECT_EQ(names(), (QStringList{"TK-A-140", "TK-A-165", "TK-A-120"}));
    QTest::keyClick(figures, Qt::Key_Left, Qt::AltModifier);
    settle();
    EXPECT_EQ(names(), (QStringList{"TK-A-140", "TK-A-120", "TK-A-165"}));
    // A keyboard sends a text with this key, which a list would look for.
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, "\x7f");
    QApplication::sendEvent(figures, &press);
    settle();
    EXPECT_EQ(names(), (QStringList{"TK-A-140", "TK-A-165"}));
    EXPECT_TRUE(figures->hasFocus());
}

// Two presses of a key may come before what the first does is shown.
TEST_F(ComparisonFormTest, WhatIsMeantForAMachineThatIsGoneMeetsNoOther) {
    for (const int row : {1, 2, 3}) add(*selection, row);
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(1);
    settle();
    head(1)->setFocus();
    QTest::keyClick(head(1), Qt::Key_Delete);
    QTest::keyClick(head(1), Qt::Key_Delete);
    QTest::keyClick(head(1), Qt::Key_Left, Qt::AltModifier);
    settle();
    EXPECT_EQ(names(), (QStringList{"TK-A-120", "TK-A-165"}));
    EXPECT_TRUE(head(1)->hasFocus()) << "on the one in its place";

    // The menu of the second one is open when the first one goes.
    QContextMenuEvent wanted(QContextMenuEvent::Keyboard, QPoint(), head(1)->mapToGlobal(QPoint()));
    QApplication::sendEvent(head(1), &wanted);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(head(0), Qt::Key_Delete);
    settle();
    EXPECT_EQ(names(), QStringList("TK-A-165"));
    menu->actions().back()->trigger();
    menu->close();
    settle();
    EXPECT_TRUE(form()->choices().empty()) << "it is the one that was meant";
}

TEST_F(ComparisonFormTest, DifferencesStayThoseFromTheMachineThatWasChosen) {
    for (const int row : {1, 2, 3}) add(*selection, row);
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(1);
    settle();
    control<FilterChip>(*form(), "reference")->click();
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 4);
    head(0)->setFocus();
    QTest::keyClick(head(0), Qt::Key_Right, Qt::AltModifier);
    settle();
    menu->actions()[1]->trigger();  // TK-A-120, which was the first one
    menu->close();
    EXPECT_EQ(control<FilterChip>(*form(), "reference")->text(), "Differences from TK-A-120");
    QTest::keyClick(head(1), Qt::Key_Right, Qt::AltModifier);
    settle();
    EXPECT_EQ(control<FilterChip>(*form(), "reference")->text(), "Differences from TK-A-120");
    QTest::keyClick(head(2), Qt::Key_Delete);
    settle();
    EXPECT_EQ(control<FilterChip>(*form(), "reference")->text(), "Without differences");
}

TEST_F(ComparisonFormTest, TheSuctionGasMayBeColderThanZeroDegrees) {
    choose(*selection, "cmbSh", "1");
    marvello::testing::type(*selection, "txtTED", "-10");
    marvello::testing::type(*selection, "txtSH", "-5");
    selection->lnkCalculate_Click();
    add(*selection, 1);
    add(*selection, 2);
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(1);
    settle();
    QTest::mouseClick(control<FilterChip>(*form(), "samePoint"), Qt::LeftButton);
    settle();
    AdvanceText* const gas = marvello::testing::field(*form(), "txtSH");
    EXPECT_EQ(gas->TextText(), "-5.0");
    marvello::testing::type(*form(), "txtTED", "-12");
    settle();
    EXPECT_EQ(form()->table().groups.front().caption.substr(0, 8), "At -12.0");
    marvello::testing::type(*form(), "txtSH", "-8");
    settle();
    EXPECT_FALSE(gas->isInvalid());
    const QString colder = texts("capacity");
    marvello::testing::type(*form(), "txtSH", "-5");
    settle();
    EXPECT_FALSE(colder.contains(u'-'));
    EXPECT_NE(texts("capacity"), colder);
}

TEST_F(ComparisonFormTest, OneOutsideItsLimitsAloneStillHasItsFirstGroup) {
    marvello::testing::type(*selection, "txtTED", "35");
    selection->lnkCalculate_Click();
    add(*selection, 1);
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(1);
    settle();
    EXPECT_EQ(texts("capacity"), "-");
    const auto* figures = control<ComparisonFigures>(*form(), "comparisonFigures");
    const QString said = figures->model()->index(1, 1).data().toString();
    EXPECT_TRUE(said.startsWith("The operating point lies outside")) << qPrintable(said);
    EXPECT_GT(figures->rowSpan(1, 1), 5);
    EXPECT_NE(texts("weight"), "-") << "which it has at every operating point";
}

TEST_F(ComparisonFormTest, TheChartsAreReadByMouseAndKeys) {
    add(*selection, 1);
    add(*selection, 2);
    window->findChild<TabStrip*>("TabStrip")->setCurrentIndex(1);
    settle();
    auto* capacities = control<ChartPane>(*form(), "comparisonCapacity");
    capacities->setFocus();
    EXPECT_EQ(capacities->reading(), QString());
    QTest::keyClick(capacities, Qt::Key_Right);
    const QStringList shown = texts("capacity").split(u'|');
    EXPECT_EQ(capacities->reading(),
              QString::fromUtf8("T. E. Dew 2.0 °C; TK-A-120 %1 kW; TK-A-140 %2 kW").arg(shown[0], shown[1]))
        << "begins at the operating point, with the values of the table";
    QTest::keyClick(capacities, Qt::Key_Left);
    EXPECT_TRUE(capacities->reading().startsWith(QString::fromUtf8("T. E. Dew 1.0 °C; ")));
    form()->MeasureUnits(1, true);
    EXPECT_TRUE(capacities->reading().startsWith(QString::fromUtf8("T. E. Dew 33.8 °F; TK-A-120 ")))
        << "the same place";
    EXPECT_TRUE(capacities->reading().endsWith(" Tons"));
    form()->MeasureUnits(0, true);
    QTest::keyClick(capacities, Qt::Key_Escape);
    EXPECT_EQ(capacities->reading(), QString());

    // The application limit of TK-A at -15 goes from 25 to 45.
    auto* limits = control<ChartPane>(*form(), "comparisonLimits");
    limits->setFocus();
    QTest::keyClick(limits, Qt::Key_Home);
    EXPECT_EQ(limits->reading(),
              QString::fromUtf8("T. E. Dew -15.0 °C; TK-A-120 25.0 – 45.0 °C; TK-A-140 25.0 – 45.0 °C"));
    auto* cop = control<ChartPane>(*form(), "comparisonCop");
    QTest::mouseMove(cop, cop->rect().center());
    EXPECT_TRUE(cop->reading().startsWith("T. E. Dew ")) << qPrintable(cop->reading());
    QTest::mouseMove(cop, {2, 2});
    EXPECT_EQ(cop->reading(), QString()) << "next to the axis there is nothing to read";
}

TEST_F(ComparisonFormTest, IsPrintedWithItsChartsAsLines) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "paper would come out of a printer";
    add(*selection, 1);
    add(*selection, 2);
    window->activateWindow();
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("printed.pdf"));
    const Person person({[&](QWidget& dialog) {
        auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
        ASSERT_NE(name, nullptr);
        name->setText(file);
        press(dialog, QDialogButtonBox::Ok);
    }});
    form()->PrintReport(false);
    const auto said = [&](const char* program, const QStringList& arguments) {
        QProcess reader;
        reader.start(QLatin1String(program), arguments);
        EXPECT_TRUE(reader.waitForFinished());
        return QString::fromUtf8(reader.readAllStandardOutput());
    };
    const QRegularExpression pages(QStringLiteral("Pages: *(\\d+)"));
    const QString count = pages.match(said("pdfinfo", {file})).captured(1);
    ASSERT_GE(count.toInt(), 2);
    const QString charts = said("pdftotext", {QStringLiteral("-f"), count, file, QStringLiteral("-")});
    QStringList words = names();
    words += QStringLiteral("Application limits");
    for (const QString& each : words) EXPECT_TRUE(charts.contains(each)) << charts.toStdString();
    EXPECT_EQ(said("pdfimages", {QStringLiteral("-list"), file}).count(u'\n'), 2)
        << "there is more than the heading";
}

TEST_F(ComparisonFormTest, APinInTheListAddsARowAndTakesItOut) {
    ResultsView* rows = list(*selection);
    const auto pinOf = [rows](int row) {
        const QRect cell = rows->visualRect(rows->model()->index(row, 0));
        return QPoint(12, cell.center().y());
    };
    const auto spoken = [rows](int row) {
        return rows->model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
    };
    const int selected = rows->selectedRow();
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, pinOf(3));
    settle();
    ASSERT_TRUE(form());
    ASSERT_EQ(form()->choices().size(), 1U);
    EXPECT_EQ(form()->choices().front().model, "165");
    EXPECT_EQ(rows->selectedRow(), selected) << "nothing else is selected";
    EXPECT_TRUE(spoken(3).endsWith(", in the comparison")) << qPrintable(spoken(3));
    EXPECT_FALSE(spoken(2).endsWith(", in the comparison"));
    EXPECT_EQ(window->ActiveForm(), selection);
    // The same compressor of another form, at the same point, is pinned there too; at another one it is not.
    SelectionForm* other = window->newSelection();
    choose(*other, "lstSeries", "TK-A");
    other->lnkCalculate_Click();
    EXPECT_TRUE(
        list(*other)->model()->index(3, 0).data(Qt::AccessibleTextRole).toString().endsWith("comparison"));
    marvello::testing::type(*other, "txtTCD", "45");
    other->lnkCalculate_Click();
    EXPECT_FALSE(
        list(*other)->model()->index(3, 0).data(Qt::AccessibleTextRole).toString().endsWith("comparison"));
    other->Quit();
    // Where it goes away, its pin goes.
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, pinOf(3));
    settle();
    EXPECT_TRUE(form()->choices().empty());
    EXPECT_FALSE(spoken(3).endsWith("comparison"));
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, pinOf(1));
    settle();
    EXPECT_TRUE(spoken(1).endsWith("comparison"));
    form()->Quit();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(spoken(1).endsWith("comparison")) << "with the whole comparison";
    // The heading of a group has none, and a drag away from a pin is no click.
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, pinOf(0));
    QTest::mousePress(rows->viewport(), Qt::LeftButton, {}, pinOf(1));
    QTest::mouseRelease(rows->viewport(), Qt::LeftButton, {}, pinOf(2));
    settle();
    EXPECT_FALSE(form());
}

TEST_F(ComparisonFormTest, WithAnEconomizerFiguresCurvesAndPartLoadAreThoseOfTheList) {
    choose(*selection, "cmbEco", "1");
    selection->lnkCalculate_Click();
    const int row = 1;
    add(*selection, row);
    const auto listed = [this](const char* column) {
        return list(*selection)
            ->text(row, static_cast<int>(list(*selection)->columnKeys().indexOf(QLatin1String(column))));
    };
    EXPECT_EQ(texts("capacity"), listed("Qeco"));
    EXPECT_EQ(texts("power"), listed("PtaEco"));
    EXPECT_EQ(texts("cop"), listed("CopEco"));
    auto* capacities = control<ChartPane>(*form(), "comparisonCapacity");
    QTest::keyClick(capacities, Qt::Key_Right);
    EXPECT_TRUE(capacities->reading().endsWith(u' ' + listed("Qeco") + " kW"))
        << qPrintable(capacities->reading());
    // The page Part load of the same compressor.
    list(*selection)->selectRow(row);
    selection->MnuPopUp("partload");
    auto* partLoad = control<ResultsView>(*selection, "lvPartLoad");
    ASSERT_TRUE(QTest::qWaitFor([partLoad] { return partLoad->rowCount() > 0; }, 60000));
    const auto cop = static_cast<int>(partLoad->columnKeys().indexOf("cop"));
    QMap<QString, QString> cops;
    for (int each = 0; each < partLoad->rowCount(); ++each)
        cops[partLoad->text(each, 0)] = partLoad->text(each, cop);
    EXPECT_EQ(texts("cop75"), cops.value("75 %"));
    EXPECT_EQ(texts("cop50"), cops.value("50 %"));
}
