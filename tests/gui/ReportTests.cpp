// The printed report of compressors of the shipped catalogue.

#include <gtest/gtest.h>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QToolButton>
#include <algorithm>
#include <map>

#include "controls/AdvanceText.h"
#include "controls/Marks.h"
#include "controls/ResultsView.h"
#include "reports/ReportOutput.h"
#include "reports/ReportPage.h"
#include "tests/gui/RealForm.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/Person.h"
#include "workspace/ReportPreview.h"
#include "workspace/ResultsPane.h"
#include "workspace/SelectionForm.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"

using namespace marvello;
using marvello::testing::Person;
using marvello::testing::press;

namespace {

/// A text without its blanks and with one form of each sign: a Chinese sign that is a radical as well may be
/// copied as that.
QString plain(QString text) {
    static const QRegularExpression blanks(QStringLiteral("\\s"));
    return text.remove(blanks).normalized(QString::NormalizationForm_KC);
}

class ReportTest : public ::testing::TestWithParam<const char*>, public marvello::testing::RealForm {
  protected:
    ReportTest() : RealForm(GetParam()) {}

    void calculate(const char* refrigerant, const char* series) {
        field("lstRefrigerants")->SetKey(refrigerant);
        field("lstSeries")->SetKey(series);
        form->lnkCalculate_Click();
        ASSERT_TRUE(form->hasResults());
    }
    /// Selects the first compressor with a mark.
    void select(const QString& mark) {
        for (int row = 0; row < list()->rowCount(); ++row)
            if (list()->mark(row) == mark) return list()->selectRow(row);
        FAIL() << "no " << mark.toStdString();
    }
    /// The text of the report as a reader copies it from the file, without its blanks: where a narrow one
    /// stands, readers differ.
    static QString wordsIn(const QString& file) {
        QProcess reader;
        reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), file, QStringLiteral("-")});
        EXPECT_TRUE(reader.waitForFinished());
        return plain(QString::fromUtf8(reader.readAllStandardOutput()));
    }
    QString wordsOf(const ReportContent& report) {
        const QString file = folder.filePath(QStringLiteral("report.pdf"));
        EXPECT_EQ(saveReport(file, reportLayout(), report), QString());
        return wordsIn(file);
    }

    QTemporaryDir folder;
};

std::vector<QString> valuesOf(const ReportContent& report) {
    std::vector<QString> values;
    for (const ReportLine& line : report.lines) values.push_back(fromCore(line.value));
    return values;
}

/// How many points of a page are not white, in a part of it that is told in millimetres.
int inkIn(const ReportContent& report, const QRectF& part) {
    constexpr double dots = 10;  // in a millimetre: 254 in an inch
    QImage page(static_cast<int>(210 * dots), static_cast<int>(297 * dots), QImage::Format_RGB32);
    page.setDotsPerMeterX(static_cast<int>(dots * 1000));
    page.setDotsPerMeterY(static_cast<int>(dots * 1000));
    page.fill(Qt::white);
    QPainter painter(&page);
    paintReport(painter, QSizeF(210, 297), report);
    painter.end();
    const QRect area = QRectF(part.topLeft() * dots, part.size() * dots).toRect();
    int ink = 0;
    for (int y = area.top(); y < area.bottom(); ++y)
        for (int x = area.left(); x < area.right(); ++x) ink += page.pixel(x, y) != qRgb(255, 255, 255);
    return ink;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Languages, ReportTest,
                         ::testing::Values("en-EN", "it-IT", "de-DE", "fr-FR", "es-ES", "cn-CN"),
                         [](const auto& info) { return std::string(info.param, 2); });

TEST_P(ReportTest, SaysWhatTheListShows) {
    for (const bool isImperial : {false, true}) {
        SCOPED_TRACE(isImperial);
        form->MeasureUnits(isImperial ? 1 : 0, true);
        calculate("R407C", "MV-A");
        const ReportContent report = *form->results().report();
        const std::vector<QString> values = valuesOf(report);
        const QString words = wordsOf(report);
        const QStringList cells = list()->rowTexts(list()->selectedRow());
        for (qsizetype column = 1; column < cells.size(); ++column) {
            const QString cell = cells[column].trimmed();
            EXPECT_TRUE(std::any_of(values.begin(), values.end(), [&](const QString& value) {
                return value.split(u' ').contains(cell);
            })) << cell.toStdString();
        }
        // Every value of the table is found in the file, and so is the model.
        for (const ReportLine& line : report.lines) {
            if (line.isHeading) continue;
            EXPECT_TRUE(words.contains(plain(fromCore(line.value)))) << line.value;
            EXPECT_TRUE(words.contains(plain(fromCore(line.name)))) << line.name;
        }
        EXPECT_TRUE(words.contains(report.model));
        // Dew and mean of a blend with glide stand on one line.
        const QString dewAndMean =
            field("txtTED")->TextText() + QStringLiteral(" / ") + field("txtTEM")->TextText();
        EXPECT_TRUE(values[2].startsWith(dewAndMean)) << values[2].toStdString();
        // Tons and Btu/h share a line.
        const bool sharesLine = std::any_of(values.begin(), values.end(), [](const QString& value) {
            return value.contains(QStringLiteral(" Tons / ")) && value.endsWith(QStringLiteral(" Btu/h"));
        });
        EXPECT_EQ(sharesLine, isImperial);
    }
}

TEST_P(ReportTest, TheTableKeepsClearOfTheFoot) {
    // The longest: economized, imperial, with warnings.
    form->MeasureUnits(1, true);
    field("lstSeries")->SetKey(QStringLiteral("TK-A"));
    field("cmbEco")->SetKey(QStringLiteral("1"));
    calculate("R134A", "TK-A");
    ReportContent report = *form->results().report();
    ASSERT_GT(report.lines.size(), 45U);
    report.hasWarnings = true;
    EXPECT_GT(inkIn(report, {105, 200, 90, 30}), 0);
    EXPECT_EQ(inkIn(report, {15, 236.5, 180, 3}), 0) << "above the warnings";
    EXPECT_EQ(inkIn(report, {15, 256, 180, 17}), 0) << "between warnings and foot";
    EXPECT_EQ(inkIn(report, {99.5, 36, 5, 200}), 0) << "between the columns";
    EXPECT_EQ(inkIn(report, {0, 0, 14.5, 297}), 0) << "left margin";
    EXPECT_EQ(inkIn(report, {195.5, 0, 14.5, 297}), 0) << "right margin";
}

TEST_P(ReportTest, TheEnvelopeIsLeftOutWithWarningsAtAnotherSuperheat) {
    const QRectF envelope(20, 100, 74, 90);
    calculate("R134A", "TK-A");
    select(mark::withWarnings);
    ReportContent report = *form->results().report();
    EXPECT_TRUE(report.hasWarnings);
    EXPECT_TRUE(report.showsEnvelope);
    EXPECT_GT(inkIn(report, envelope), 1000);
    EXPECT_GT(inkIn(report, {15, 240, 180, 15}), 1000);
    report.hasWarnings = false;
    EXPECT_EQ(inkIn(report, {15, 238, 84, 34}), 0);  // next to the table, which may end below it

    type("txtSH", "8");
    RealForm::calculate();
    select(mark::possible);
    EXPECT_TRUE(form->results().report()->showsEnvelope) << "no warnings";
    select(mark::withWarnings);
    report = *form->results().report();
    EXPECT_FALSE(report.showsEnvelope);
    EXPECT_EQ(inkIn(report, envelope), 0);
}

TEST_P(ReportTest, CanBePrintedForACompressorWithoutError) {
    EXPECT_FALSE(form->results().canPrint());
    EXPECT_FALSE(form->results().report());
    form->PrintReport(true);  // opens nothing
    calculate("R134A", "TK-A");
    auto* print = window->findChild<QAction*>(QStringLiteral("mnu_file_print"));
    auto* preview = window->findChild<QAction*>(QStringLiteral("mnu_file_printpreview"));
    EXPECT_TRUE(print->isEnabled());
    list()->selectRow(0);  // a group
    EXPECT_FALSE(print->isEnabled());
    EXPECT_FALSE(preview->isEnabled());
    select(mark::possible);
    EXPECT_TRUE(preview->isEnabled());
}

TEST_P(ReportTest, ThePreviewShowsThePageAndSavesIt) {
    calculate("R134A", "TK-A");
    select(mark::possible);
    const Person person(
        {[](QWidget& preview) {
             QTest::qWait(50);
             EXPECT_TRUE(preview.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))->isHidden())
                 << "a button has no room";
             auto* const pages = preview.findChild<QPrintPreviewWidget*>();
             EXPECT_EQ(pages->pageCount(), 1);
             const double whole = pages->zoomFactor();
             const auto trigger = [&](const char* name) {
                 preview.findChild<QAction*>(QLatin1String(name))->trigger();
             };
             trigger("zoomin");
             EXPECT_GT(pages->zoomFactor(), whole);
             trigger("fitpage");
             EXPECT_NEAR(pages->zoomFactor(), whole, 0.01);
             QTimer::singleShot(0, preview.findChild<QAction*>(QStringLiteral("savepdf")), &QAction::trigger);
         },
         [this](QWidget& dialog) {
             auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
             EXPECT_EQ(name->text(), list()->text(list()->selectedRow(), 0) + QStringLiteral(" R134A.pdf"));
             name->setText(folder.filePath(QString::fromUtf8("Angebot Ü 1")));
             // The platform's dialog speaks the user's language.
             const std::map<std::string, QString> cancels{
                 {"en-EN", QStringLiteral("Cancel")},    {"it-IT", QStringLiteral("Annulla")},
                 {"de-DE", QStringLiteral("Abbrechen")}, {"fr-FR", QStringLiteral("Annuler")},
                 {"es-ES", QStringLiteral("Cancelar")},  {"cn-CN", QString::fromUtf8("取消")}};
             const auto* const cancel =
                 dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel);
             EXPECT_EQ(withoutAccessKey(cancel->text()), cancels.at(GetParam()));
             press(dialog, QDialogButtonBox::Save);
         },
         [](QWidget& preview) { preview.close(); }});
    form->PrintReport(true);
    EXPECT_GT(QFileInfo(folder.filePath(QString::fromUtf8("Angebot Ü 1.pdf"))).size(), 10000);
    EXPECT_EQ(boxes, QStringList());
}

TEST_P(ReportTest, PrintsOntoTheSamePaper) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "paper would come out of a printer";
    calculate("R134A", "TK-A");
    select(mark::possible);
    const QString file = folder.filePath(QStringLiteral("printed.pdf"));
    const Person person({[&](QWidget& dialog) {
        auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
        ASSERT_NE(name, nullptr);
        name->setText(file);
        press(dialog, QDialogButtonBox::Ok);
    }});
    form->PrintReport(false);
    EXPECT_EQ(wordsIn(file), wordsOf(*form->results().report()));
}

TEST_P(ReportTest, GoesOnWithRatingTablesIfTheUserWantsThem) {
    calculate("R134A", "TK-A");
    select(mark::withWarnings);
    const ReportContent alone = *form->results().report();
    ASSERT_TRUE(alone.sections.empty()) << "not before somebody asks for them";
    settings::reportSections.keep({QStringLiteral("rating")});
    const ReportContent report = *form->results().report();
    ASSERT_EQ(report.sections.size(), 1U);
    EXPECT_EQ(report.pages.size(), 2);
    const auto& section = std::get<ReportTables>(report.sections.front().content);
    ASSERT_EQ(section.tables.size(), 6U);
    const QStringList columns{"Q0", "Pta", "COP", "CA", "mBase", "Tsca"};
    for (int i = 0; i < columns.size(); ++i) {
        const ReportTable& table = section.tables.at(static_cast<std::size_t>(i));
        const auto at = table.currentRow * table.columns.size() + table.currentColumn;
        const auto column = static_cast<int>(list()->columnKeys().indexOf(columns[i]));
        EXPECT_EQ(table.cells.at(static_cast<std::size_t>(at)).text,
                  list()->text(list()->selectedRow(), column));
    }
    const QString words = wordsOf(report);
    // A font of Chinese may have the radical for the sign of "page".
    EXPECT_TRUE(QString(words).replace(QChar(0x2EDA), QChar(0x9875)).contains(plain(report.pages[1])));
    EXPECT_TRUE(words.contains(plain(section.tables.back().heading)));
    for (const ReportTable::Cell& cell : section.tables.front().cells)
        EXPECT_TRUE(words.contains(plain(cell.text))) << cell.text.toStdString();
    // The first page is the same but for the number of its pages.
    ReportContent first = report;
    first.sections.clear();
    first.pages = alone.pages;
    EXPECT_EQ(wordsOf(first), wordsOf(alone));
}

TEST_P(ReportTest, HasThePartLoadAsASection) {
    calculate("R134A", "TK-A");
    select(mark::possible);
    settings::reportSections.keep({QStringLiteral("partload")});
    const ReportContent report = *form->results().report();
    ASSERT_EQ(report.sections.size(), 1U);
    const auto& load = std::get<ReportPartLoad>(report.sections[0].content);
    ASSERT_EQ(load.tables.size(), 2U);
    // At the full step a machine is what the list shows.
    const ReportPartLoad::Row& full = load.tables[0].rows.at(0);
    EXPECT_TRUE(full.label.contains(u"100"));
    EXPECT_EQ(full.mark, mark::possible);
    const QStringList columns{"Q0", "Pta", "COP", "CA", "mBase", "Tsca"};
    for (int i = 0; i < columns.size(); ++i)
        EXPECT_EQ(
            full.values.at(i + 2),
            list()->text(list()->selectedRow(), static_cast<int>(list()->columnKeys().indexOf(columns[i]))));
    const QString words = wordsOf(report);
    EXPECT_TRUE(words.contains(plain(load.heading)));
    for (const ReportPartLoad::Table& table : load.tables) {
        EXPECT_EQ(table.rows.size(), 4U);
        for (const ReportPartLoad::Row& row : table.rows) {
            EXPECT_TRUE(words.contains(plain(row.sentence))) << row.sentence.toStdString();
            for (const QString& value : row.values)
                EXPECT_TRUE(words.contains(plain(value))) << value.toStdString();
        }
    }
}
TEST_P(ReportTest, HasTheMapOfTheLimitsAndTheCycleAsSections) {
    calculate("R134A", "TK-A");
    select(mark::withWarnings);
    form->results().setMapQuantity(QStringLiteral("capacity"));
    settings::reportSections.keep({QStringLiteral("cycle"), QStringLiteral("limits")});
    const ReportContent report = *form->results().report();
    ASSERT_EQ(report.sections.size(), 2U);
    const auto& map = std::get<ReportMap>(report.sections[0].content);
    const auto& cycle = std::get<ReportCycle>(report.sections[1].content);
    ASSERT_TRUE(map.envelope.map);
    const QString words = wordsOf(report);
    EXPECT_TRUE(words.contains(plain(map.heading)));
    for (const EnvelopeMap::Line& line : map.envelope.map->lines)
        EXPECT_TRUE(words.contains(plain(line.level))) << line.level.toStdString();
    ASSERT_GE(cycle.states.size(), 5U);
    for (const QStringList& state : cycle.states) {
        ASSERT_EQ(state.size(), cycle.columns.size());
        for (const QString& value : state) EXPECT_TRUE(words.contains(plain(value))) << value.toStdString();
    }
    for (const CaptionedValue& figure : cycle.figures)
        EXPECT_TRUE(words.contains(plain(fromCore(figure.value)))) << figure.value;
}

// An economizer gives turns while it is calculated: a key press in one of them would take the list away.
TEST(ReportSectionsTest, AreMadeWithoutATurnOfTheWindow) {
    marvello::testing::RealForm real("en-EN");
    real.choose("lstSeries", "TK-A");
    real.choose("cmbEco", "1");
    real.calculate();
    ASSERT_TRUE(real.form->hasResults());
    real.list()->selectRow(1);
    settings::reportSections.keep({"limits", "rating", "cycle", "partload"});
    int turns = 0;
    real.session.hooks.giveTurn = [&turns] { ++turns; };
    const auto report = real.form->results().report();
    ASSERT_TRUE(report);
    EXPECT_EQ(report->sections.size(), 4U);
    EXPECT_EQ(turns, 0);
    giveTurn();
    EXPECT_EQ(turns, 1) << "afterwards there are turns again";
}

TEST_P(ReportTest, AFileThatCannotBeWrittenIsSaidAndLosesNothing) {
    calculate("R134A", "TK-A");
    const ReportContent report = *form->results().report();
    const QString odd = folder.filePath(QString::fromUtf8("Angebot Ü 压缩机 1.pdf"));
    EXPECT_EQ(saveReport(odd, reportLayout(), report), QString());
    EXPECT_GT(QFileInfo(odd).size(), 10000);
    EXPECT_NE(saveReport(folder.filePath(QStringLiteral("missing/report.pdf")), reportLayout(), report),
              QString());
    QPrinter printer;
    printer.setOutputFileName(folder.filePath(QStringLiteral("missing/printed.pdf")));
    printOrSay(printer, report, nullptr);
    EXPECT_EQ(boxes.size(), 1);
    const qint64 size = QFileInfo(odd).size();
    {
        const test::FileSizeLimit full(20000);
        EXPECT_NE(saveReport(odd, reportLayout(), report), QString());
    }
    EXPECT_EQ(QFileInfo(odd).size(), size) << "the old file stays";
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << "no half file is left";
}
