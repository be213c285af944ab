// What a person does with the comparison, on the catalogue that is shipped.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
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
    EXPECT_TRUE(lines[2].contains("The operating point lies outside the application limits"))
        << qPrintable(lines[2]);
    const auto power = lines.filter("Power kW");
    ASSERT_EQ(power.size(), 1);
    EXPECT_TRUE(power[0].endsWith("\t-"));
    const auto* figures = control<ComparisonFigures>(*form(), "comparisonFigures");
    EXPECT_GT(figures->rowSpan(1, 2), 5) << "in the place of the values";
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
