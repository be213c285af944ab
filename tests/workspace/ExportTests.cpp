// Exports and copies of a form, with the dialogs answered as a person would.

#include <sys/stat.h>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMimeData>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextTable>
#include <cerrno>
#include <cstring>
#include <functional>

#include "controls/DialogFrame.h"
#include "controls/Marks.h"
#include "controls/ResultsView.h"
#include "controls/ctlBtn.h"
#include "data/Session.h"
#include "results/RowSet.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/Person.h"
#include "tests/support/ReadExport.h"
#include "tests/workspace/WorkspaceFixture.h"
#include "workspace/CopiedTable.h"
#include "workspace/ExportFile.h"
#include "workspace/Settings.h"
#include "workspace/frmSelection.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

const QString xmlFilter = "XML (*.xml)";
const QString csvFilter = "CSV (*.csv)";

void cancel(QWidget& dialog) { press(dialog, QDialogButtonBox::Cancel); }

/// Answers the question whether a file is to be replaced.
auto answer(bool yes) {
    return [yes](QWidget& dialog) {
        ASSERT_NE(qobject_cast<DialogFrame*>(&dialog), nullptr);
        EXPECT_TRUE(dialog.accessibleDescription().contains("is there already"));
        for (auto* button : dialog.findChildren<ctlBtn*>())
            if (button->text() == (yes ? "Replace" : "Cancel")) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        FAIL() << "there is no such answer";
    };
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// Results of TK-A at 2/40 degrees Celsius: the group in row 0, then 100, 120 (in error), 140, and 160, whose
/// motor has no second starting current.
class ExportTest : public WorkspaceFixture {
  protected:
    ExportTest() {
        catalogue.motor(2, {2, 1.8, 0.01, 0, 0}, 300, 0);
        catalogue.compressor({{"fModelID", "'160'"}, {"fSequence", "'040'"}, {"fMotorFullID", "2"}});
        gApplication().populateDictionary("en-EN", "");
        form = std::make_unique<frmSelection>();
        form->resize(1300, 800);
        form->show();
        QObject::connect(form.get(), &SelectionForm::exported,
                         [this](const QString& note) { notes += note; });
        calculate();
        EXPECT_EQ(list()->rowCount(), 5);
    }
    ~ExportTest() override {
        form.reset();
        QLocale::setDefault(QLocale::c());
    }

    void calculate() {
        choose(*form, "lstSeries", "TK-A");
        form->lnkCalculate_Click();
        EXPECT_TRUE(form->hasResults());
    }
    ResultsView* list() { return control<ResultsView>(*form, "lvCps"); }
    QString path(const QString& name) const { return QDir(folder.path()).filePath(name); }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QString exportList(const QString& name, const QString& filter) {
        const Person person({saveAs(path(name), filter)});
        form->ExportCPS();
        return path(name);
    }
    QString exportPolynomials(const QString& name, const QString& filter) {
        const Person person({saveAs(path(name), filter)});
        form->ExportPolynomials();
        return path(name);
    }
    /// The records that the list asks for; `number` reads a cell, in a way of its own for each locale.
    QJsonArray expectedRows(const std::function<QJsonValue(QString)>& number) {
        QJsonArray rows;
        for (const int row : {1, 3, 4}) {
            QJsonArray values{"R134A", "TK-A", row == 1 ? "100" : row == 3 ? "140" : "160"};
            for (const QString& text : list()->rowTexts(row).mid(1))
                values.append(text == "-" ? QJsonValue() : number(text));
            rows.append(values);
        }
        return rows;
    }

    QTemporaryDir folder;
    QStringList notes;
    std::unique_ptr<frmSelection> form;
};

const QJsonArray nameFields{QJsonArray{"Refrigerant", "string", 10}, QJsonArray{"Serie", "string", 10},
                            QJsonArray{"Model", "string", 10}};

}  // namespace

TEST_F(ExportTest, TheListIsWrittenAsItIsShown) {
    const QJsonObject file = readExport(exportList("list.xml", xmlFilter));
    QJsonArray fields = nameFields;
    for (const QString& key : list()->columnKeys().mid(1)) fields.append(QJsonArray{key, "float", 8});
    EXPECT_EQ(shown(fieldsOf(file)), shown(fields));
    const auto number = [](const QString& text) { return QJsonValue(text.toDouble()); };
    EXPECT_EQ(shown(rowsOf(file)), shown(expectedRows(number)));
    EXPECT_EQ(rowsOf(file)[0][3].toDouble(), 59.2) << "the capacity of the reference surface, as shown";
    EXPECT_TRUE(list()->rowTexts(4).contains("-")) << "a cell that has to be null";
    EXPECT_EQ(notes,
              QStringList("Compressors exported: 3, to " + QDir::toNativeSeparators(path("list.xml"))));

    const QJsonObject csv = readExport(exportList("list.csv", csvFilter));
    QStringList names{"Refrigerant", "Serie", "Model"};
    names += list()->columnKeys().mid(1);
    EXPECT_EQ(shown(fieldsOf(csv)), shown(QJsonArray::fromStringList(names)));
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < names.size(); ++column) {
            const QJsonValue value = rowsOf(file)[row][column];
            const QString text = rowsOf(csv)[row][column].toString();
            EXPECT_EQ(value.isDouble() ? QJsonValue(text.toDouble()) : QJsonValue(text),
                      value.isNull() ? QJsonValue("") : value);
        }
    EXPECT_TRUE(boxes.isEmpty());
}

TEST_F(ExportTest, GroupedNumbersAndDecimalCommasAreReadBack) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    form->MeasureUnits(1, true);
    const auto column = list()->columnKeys().indexOf("Q0Btu");
    ASSERT_GT(column, 0);
    const QString btu = list()->text(1, static_cast<int>(column));
    ASSERT_TRUE(btu.contains('.')) << btu.toStdString();
    const auto number = [](QString text) {
        return QJsonValue(text.remove('.').replace(',', '.').toDouble());
    };
    EXPECT_EQ(shown(rowsOf(readExport(exportList("list.xml", xmlFilter)))), shown(expectedRows(number)));
    const QJsonArray csv = rowsOf(readExport(exportList("list.csv", csvFilter)));
    EXPECT_EQ(csv[0][static_cast<int>(column) + 2].toString(), QString(btu).remove('.'));
    EXPECT_EQ(csv[0][3].toString(), list()->text(1, 1)) << "the decimal mark of the locale";
}

// By LibreOffice where it is installed, with the locale that the user of the file has.
TEST_F(ExportTest, ASpreadsheetOpensTheSameCells) {
    const QString soffice = QStandardPaths::findExecutable("soffice");
    if (soffice.isEmpty()) GTEST_SKIP() << "LibreOffice is not installed: libreoffice-calc-nogui";
    struct Country {
        QLocale locale;
        const char* language;  // as LibreOffice numbers it
    };
    for (const auto& country : {Country{QLocale(QLocale::German, QLocale::Germany), "1031"},
                                Country{QLocale(QLocale::English, QLocale::UnitedKingdom), "2057"}}) {
        QLocale::setDefault(country.locale);
        form->MeasureUnits(0, true);
        form->MeasureUnits(1, true);
        const QJsonObject xml = readExport(exportList(country.language + QString(".xml"), xmlFilter));
        const QString csv = exportList(country.language + QString(".csv"), csvFilter);
        QProcess office;
        // In: ";", quotes, UTF-8, from line 1, the language, quoted fields are texts. Out: unformatted.
        office.start(soffice, {"-env:UserInstallation=file://" + path("profile"), "--headless",
                               QString("--infilter=CSV:59,34,76,1,,%1,true,false").arg(country.language),
                               "--convert-to", "csv:Text - txt - csv (StarCalc):59,34,76,1,,1033,false,false",
                               "--outdir", path("opened"), csv});
        ASSERT_TRUE(office.waitForFinished(120000));
        const QJsonObject opened = readExport(path("opened/") + QFileInfo(csv).fileName());
        ASSERT_EQ(rowsOf(opened).size(), 3);
        EXPECT_EQ(fieldsOf(opened).size(), fieldsOf(xml).size());
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < fieldsOf(opened).size(); ++column) {
                const QString text = rowsOf(opened)[row][column].toString();
                const QJsonValue value = rowsOf(xml)[row][column];
                EXPECT_EQ(fieldsOf(opened)[column].toString(), fieldsOf(xml)[column][0].toString());
                EXPECT_EQ(value.isDouble() ? QJsonValue(text.toDouble()) : QJsonValue(text),
                          value.isNull() ? QJsonValue("") : value);
            }
    }
}

TEST_F(ExportTest, PolynomialsAreWrittenEvenOfModelsInError) {
    const QJsonObject file = readExport(exportPolynomials("polynomials.xml", xmlFilter));
    QJsonArray fields = nameFields;
    fields.append(QJsonArray{"Type", "string", 10});
    for (int i = 1; i <= 10; ++i) fields.append(QJsonArray{QStringLiteral("C%1").arg(i), "float", 8});
    EXPECT_EQ(shown(fieldsOf(file)), shown(fields));
    // The surfaces of the catalogue.
    const QJsonArray power{5.0, 0.1, 0.25, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    const QJsonArray capacity{100.0, 3.0, -1.2, 0.03, -0.02, 0.002, 0.0002, -0.0001, 0.00005, -0.00001};
    QJsonArray rows;
    for (const char* model : {"100", "120", "140", "160"})
        for (const bool isPower : {true, false}) {
            QJsonArray row{"R134A", "TK-A", model, isPower ? "Pta" : "Q0"};
            for (const auto& value : isPower ? power : capacity) row.append(value);
            rows.append(row);
        }
    EXPECT_EQ(shown(rowsOf(file)), shown(rows));
    EXPECT_TRUE(notes.last().contains("4,"));
}

TEST_F(ExportTest, AListWithOnlyModelsInErrorGivesTheHeaderAlone) {
    field(*form, "lstModels")->SetKey("120");
    form->lnkCalculate_Click();
    ASSERT_EQ(list()->rowCount(), 2);
    ASSERT_EQ(list()->mark(1), mark::notPossible);
    const QByteArray csv = contentOf(exportList("list.csv", csvFilter));
    EXPECT_TRUE(csv.startsWith("Refrigerant;Serie;Model;Q0;"));
    EXPECT_EQ(csv.count('\n'), 1);
    const QJsonObject xml = readExport(exportList("list.xml", xmlFilter));
    EXPECT_EQ(rowsOf(xml).size(), 0);
    EXPECT_EQ(fieldsOf(xml).size(), 3 + list()->columnKeys().size() - 1);
    EXPECT_EQ(rowsOf(readExport(exportPolynomials("p.xml", xmlFilter))).size(), 2);
}

TEST(ExportName, HasTheExtensionOfItsForm) {
    using enum ExportFile::Form;
    EXPECT_EQ(withExtension("a", xml), "a.xml");
    EXPECT_EQ(withExtension("a.XmL", xml), "a.XmL");
    EXPECT_EQ(withExtension("a.txt", xml), "a.txt.xml");
    EXPECT_EQ(withExtension("a.csv", xml), "a.csv.xml");
    EXPECT_EQ(withExtension("a.CSV", csv), "a.CSV");
    EXPECT_EQ(withExtension("axml", xml), "axml.xml");
    EXPECT_EQ(withExtension("xml", xml), "xml.xml");
}

TEST_F(ExportTest, TheFilterChoosesTheFormAndTheExtension) {
    {
        const Person person({cancel});
        form->ExportCPS();
    }
    EXPECT_TRUE(files().isEmpty());
    exportList("results.txt", xmlFilter);
    exportList("results", csvFilter);
    const QString odd = QString::fromUtf8("Auswahl für Köln 压缩机 1");
    exportPolynomials(odd, xmlFilter);
    QStringList expected{"results.txt.xml", "results.csv", odd + ".xml"};
    expected.sort();
    EXPECT_EQ(files(), expected);
    EXPECT_EQ(rowsOf(readExport(path(odd + ".xml"))).size(), 8);
    EXPECT_TRUE(boxes.isEmpty()) << boxes.join("|").toStdString();
    // The folder of the last export is suggested for the next.
    const Person person({[this](QWidget& dialog) {
        EXPECT_EQ(qobject_cast<QFileDialog*>(&dialog)->directory(), QDir(folder.path()));
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "");
        cancel(dialog);
    }});
    form->ExportPolynomials();
}

TEST_F(ExportTest, AFileThatIsThereIsReplacedOnlyWhenTheUserAgrees) {
    write(path("old.xml"), "old");
    {
        // The question is for the name with its extension; after a no the dialog is there again.
        const Person person({saveAs(path("old"), xmlFilter), answer(false), cancel});
        form->ExportCPS();
    }
    EXPECT_EQ(contentOf(path("old.xml")), "old");
    EXPECT_TRUE(notes.isEmpty());
    {
        const Person person({saveAs(path("old"), xmlFilter), answer(false),
                             saveAs(path("old.xml"), xmlFilter), answer(true)});
        form->ExportCPS();
    }
    EXPECT_EQ(rowsOf(readExport(path("old.xml"))).size(), 3);
    EXPECT_EQ(notes.size(), 1);
    EXPECT_EQ(files(), QStringList("old.xml"));
}

TEST_F(ExportTest, AFailureIsOneSentenceAndKeepsNothing) {
    write(path("file"), "no folder");
    ASSERT_TRUE(QDir(folder.path()).mkdir("folder.csv"));
    for (const char* name : {"no folder/list.csv", "file/list.csv", "folder.csv/../folder"}) {
        boxes.clear();
        exportList(name, csvFilter);
        ASSERT_EQ(boxes.size(), 1) << name;
        EXPECT_TRUE(boxes[0].contains(QString(name).section('/', -1)));
        EXPECT_TRUE(boxes[0].contains(" could not be written: "));
        EXPECT_TRUE(boxes[0].endsWith('.') && !boxes[0].endsWith(".."));
    }
    EXPECT_TRUE(notes.isEmpty());
    EXPECT_FALSE(settings::exportFolder.stored());
    EXPECT_EQ(files(), QStringList("file"));
}

TEST_F(ExportTest, WhatIsNoRegularFileIsLeftAlone) {
    RowSet records;
    records.addText("Model", 10);
    const QByteArray pipe = QFile::encodeName(path("pipe.csv"));
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(path("pipe.csv"), path("link.xml")));
    QDir().mkpath(path("folder.csv"));
    for (const char* const name : {"pipe.csv", "link.xml", "folder.csv"}) {
        const QString failure = writeExport(records, {path(name), ExportFile::Form::csv});
        EXPECT_TRUE(failure.contains("not a file")) << name << ": " << failure.toStdString();
    }
    struct stat now{};
    ASSERT_EQ(stat(pipe.constData(), &now), 0);
    EXPECT_TRUE(S_ISFIFO(now.st_mode));
    EXPECT_TRUE(QFileInfo(path("link.xml")).isSymLink());
    EXPECT_TRUE(QFileInfo(path("folder.csv")).isDir());
}

TEST_F(ExportTest, AFullDiskKeepsTheOldFileAndLeavesNoOther) {
    RowSet records;
    records.addText("Model", 10);
    for (int i = 0; i < 5000; ++i) records.addRow({std::to_string(i)});
    write(path("old.xml"), "old");
    QStringList failures;
    for (const rlim_t size : {0, 100, 20000, 30000}) {
        const test::FileSizeLimit full(size);
        failures += {writeExport(records, {path("old.xml"), ExportFile::Form::xml}),
                     writeExport(records, {path("new.csv"), ExportFile::Form::csv})};
    }
    for (const QString& failure : failures) EXPECT_EQ(failure, QString::fromLocal8Bit(std::strerror(EFBIG)));
    EXPECT_EQ(contentOf(path("old.xml")), "old");
    EXPECT_EQ(files(), QStringList("old.xml"));
    EXPECT_EQ(writeExport(records, {path("old.xml"), ExportFile::Form::xml}), "");
    EXPECT_EQ(rowsOf(readExport(path("old.xml"))).size(), 5000);
}

namespace {

/// The cells of the one table of an HTML text.
QList<QStringList> cellsOf(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    QList<QStringList> cells;
    for (QTextFrame* frame : document.rootFrame()->childFrames())
        if (const auto* table = qobject_cast<QTextTable*>(frame))
            for (int row = 0; row < table->rows(); ++row) {
                cells += QStringList();
                for (int column = 0; column < table->columns(); ++column)
                    cells.back() += table->cellAt(row, column).firstCursorPosition().block().text();
            }
    return cells;
}

}  // namespace

TEST_F(ExportTest, ACopyHoldsTheSameCellsAsTextAndAsTable) {
    form->MeasureUnits(1, true);
    list()->selectAll();
    form->CopyToClipBoard();
    const QMimeData* data = QApplication::clipboard()->mimeData();
    const QList<QStringList> cells = cellsOf(data->html());
    const QStringList lines = data->text().split("\r\n");
    ASSERT_EQ(lines.size(), 6);
    ASSERT_EQ(cells.size(), 5);
    QStringList head{"Refrigerant", "Serie", "Model"};
    EXPECT_EQ(lines[0].split('\t'), head + list()->columnTexts().mid(1));
    for (int row = 1; row < 5; ++row) EXPECT_EQ(lines[row].split('\t').mid(3), list()->rowTexts(row).mid(1));
    for (int row = 0; row < 5; ++row) {
        QStringList trimmed;
        for (const QString& text : lines[row].split('\t')) trimmed += text.trimmed();
        EXPECT_EQ(cells[row], trimmed);
    }
    EXPECT_TRUE(cells[4].contains("-") && cells[4][4].contains(',')) << "no value, and a grouped number";

    form->MnuPopUp("polynomials");
    list()->selectRow(1);
    QTest::mouseClick(control<ctlBtn>(*form, "ctlCopyPolynomials"), Qt::LeftButton);
    const QMimeData* polynomials = QApplication::clipboard()->mimeData();
    const QList<QStringList> table = cellsOf(polynomials->html());
    ASSERT_EQ(table.size(), 3);
    EXPECT_EQ(table[0].join('\t') + '\t', polynomials->text().section("\r\n", 0, 0));
    EXPECT_EQ(table[2].join('\t'), polynomials->text().section("\r\n", 2, 2));
}

TEST(CopiedTable, TextsAreNoMarkup) {
    const QList<QStringList> cells =
        cellsOf(htmlOf({{"A & B", "<b>Q0</b>"}, {{"\"1\" &amp; <td>", "1.5"}}, 1}));
    EXPECT_EQ(cells, (QList<QStringList>{{"A & B", "<b>Q0</b>"}, {"\"1\" &amp; <td>", "1.5"}}));
}
