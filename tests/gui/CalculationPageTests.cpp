// The calculation of a compressor laid open, as a person reads it.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>

#include "controls/PageBar.h"
#include "controls/SearchField.h"
#include "tests/gui/RealForm.h"
#include "workspace/CalculationPage.h"

using namespace marvello;

namespace {

class CalculationPageTest : public ::testing::Test, public marvello::testing::RealForm {
  protected:
    CalculationPageTest() : RealForm("en-EN") {
        choose("lstSeries", "TK-A");
        calculate();
        form->MnuPopUp("calculation");
    }
    QTextBrowser* sheet() { return marvello::testing::control<QTextBrowser>(*form, "calculationSheet"); }
    QString shown() { return sheet()->toPlainText(); }
    SearchField* field() { return form->findChild<SearchField*>(); }
    PageBar* bar() { return form->findChild<CalculationPage*>()->findChild<PageBar*>(); }
    /// The result that stands behind a symbol and its meaning.
    double resultOf(const QString& symbol, const QString& meaning) {
        const QRegularExpression line(u'\n' + QRegularExpression::escape(symbol) + u'\n' +
                                      QRegularExpression::escape(meaning) +
                                      QStringLiteral("\n[^\n]*\n(= [^\n]*\n)?"));
        const auto found = line.match(shown());
        EXPECT_TRUE(found.hasMatch()) << symbol.toStdString();
        return shown().mid(found.capturedEnd()).section(QRegularExpression("\\s"), 0, 0).toDouble();
    }
};

}  // namespace

TEST_F(CalculationPageTest, HasTheNumbersOfTheList) {
    list()->selectRow(3);
    const auto listed = [this](const char* key) {
        return list()->text(3, static_cast<int>(list()->columnKeys().indexOf(QLatin1String(key)))).toDouble();
    };
    EXPECT_NEAR(resultOf("Q0", "Cooling capacity"), listed("Q0"), 0.05);
    EXPECT_NEAR(resultOf("Pta", "Power input"), listed("Pta"), 0.05);
    EXPECT_NEAR(resultOf("Qc", "Condenser capacity"), listed("Qc"), 0.05);
    EXPECT_TRUE(shown().contains("Rule 11"));
}

TEST_F(CalculationPageTest, FindsWordsAndGoesFromOneToTheNext) {
    activate();
    QTest::keyClick(form->focusWidget(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(field()->hasFocus()) << form->focusWidget()->objectName().toStdString();
    QTest::keyClicks(field(), "M010");
    EXPECT_EQ(bar()->sentence(), "1 of 2") << "where it is calculated, and in V010";
    const int first = sheet()->textCursor().position();
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(bar()->sentence(), "2 of 2");
    EXPECT_GT(sheet()->textCursor().position(), first);
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(sheet()->textCursor().position(), first) << "around the end";
    QTest::keyClick(field(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(bar()->sentence(), "2 of 2");
    QTest::keyClicks(field(), "x");
    EXPECT_EQ(bar()->sentence(), "not found");
    QTest::keyClick(field(), Qt::Key_Escape);
    EXPECT_TRUE(field()->text().isEmpty());
    EXPECT_TRUE(bar()->sentence().contains("R134A"));
}

TEST_F(CalculationPageTest, StaysWhereItIsForTheNextCompressor) {
    list()->selectRow(2);
    QScrollBar* const scroll = sheet()->verticalScrollBar();
    ASSERT_GT(scroll->maximum(), 500);
    scroll->setValue(500);
    list()->selectRow(4);
    EXPECT_EQ(scroll->value(), 500);
}

TEST_F(CalculationPageTest, SaysWhyACompressorIsNotPossible) {
    type("txtTED", "-30");
    type("txtTCD", "65");
    calculate();
    form->MnuPopUp("calculation");
    EXPECT_TRUE(shown().contains("inside(any limit)"));
    EXPECT_TRUE(shown().contains("outside the application limits"));
    EXPECT_FALSE(shown().contains("Cooling capacity\n")) << "nothing was calculated after that";
}

TEST_F(CalculationPageTest, IsCopiedAndSpeaksEveryLanguage) {
    marvello::testing::control<QAbstractButton>(*form, "calculationCopy")->click();
    EXPECT_TRUE(QApplication::clipboard()->text().contains(QStringLiteral("Tga = Ted + Sh")));
    for (const char* language : {"de-DE", "fr-FR", "it-IT", "es-ES", "cn-CN", "en-EN"}) {
        window->chooseLanguage(language);
        EXPECT_FALSE(shown().contains(QStringLiteral("variables."))) << language;
        EXPECT_TRUE(shown().contains(QStringLiteral("V010"))) << language;
    }
}
