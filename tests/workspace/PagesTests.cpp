// The pages of the selected compressor, its pop-up menu, and what is copied.

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QWheelEvent>

#include "controls/AdvanceText.h"
#include "controls/Link.h"
#include "controls/Marks.h"
#include "controls/MessagesView.h"
#include "controls/PageBar.h"
#include "controls/ReadOut.h"
#include "controls/Splitter.h"
#include "controls/TabStrip.h"
#include "controls/ctlBtn.h"
#include "controls/ctlGraph.h"
#include "data/Session.h"
#include "tests/workspace/WorkspaceFixture.h"
#include "workspace/ResultsPane.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmSelection.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

/// Results of TK-A at 2/40 degrees Celsius: the group in row 0, 100 in row 1, 120 (in error) in row 2 and 140
/// in row 3.
class PagesTest : public FormFixture<frmSelection> {
  protected:
    PagesTest() {
        open(1300);
        choose(*form, "lstSeries", "TK-A");
        form->lnkCalculate_Click();
        EXPECT_TRUE(form->hasResults());
        EXPECT_EQ(list()->rowCount(), 4);
    }

    ResultsView* polynomials() { return control<ResultsView>(*form, "lvPolynomials"); }
    MessagesView* messages() { return control<MessagesView>(*form, "lvMessages"); }
    TabStrip* tabs() { return control<TabStrip>(*form, "TabStrip"); }
    QAction* entry(const QString& page) {
        return control<QAction>(*form, ("mnu_cpspopup_" + page.toStdString()).c_str());
    }
    /// A place for the files of the application folder, which takes over from here on.
    QDir ownFolder() {
        const QDir dir(folder.path());
        EXPECT_TRUE(dir.mkpath("images/photos") && dir.mkpath("Images/Dimensions"));
        catalogue.session.applicationFolder = folder.path().toStdString();
        return dir;
    }
    static QString clipboard() { return QApplication::clipboard()->text(); }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(PagesTest, TheTabChoosesWhatIsShownOfTheSelectedRow) {
    const QStringList keys{"messages", "tecnic", "polynomials", "dimension", "limits",
                           "rating",   "cycle",  "calculation", "partload"};
    const QStringList pages{"lvMessages", "picTecnic", "lvPolynomials",    "picDimension", "limitgraph",
                            "ratingGrid", "picCycle",  "calculationSheet", "lvPartLoad"};
    ASSERT_EQ(tabs()->count(), keys.size());
    for (int tab = 0; tab < keys.size(); ++tab) {
        form->MnuPopUp(keys[tab]);
        EXPECT_EQ(tabs()->currentKey(), keys[tab]);
        for (int other = 0; other < keys.size(); ++other) {
            EXPECT_EQ(entry(keys[other])->isChecked(), other == tab) << keys[other].toStdString();
            EXPECT_EQ(control<QWidget>(*form, qPrintable(pages[other]))->isVisible(), other == tab);
        }
        EXPECT_EQ(control<QWidget>(*form, "picGraphLbl")->isVisible(), keys[tab] == "limits");
    }
    EXPECT_EQ(tabs()->tabText(1), "Technical data");
    EXPECT_EQ(polynomials()->rowCount(), 0) << "only the page that is shown has contents";

    form->MnuPopUp("polynomials");
    list()->selectRow(3);
    EXPECT_EQ(tabs()->currentKey(), "polynomials");
    EXPECT_EQ(polynomials()->rowCount(), 2);
    EXPECT_TRUE(form->results().canCopy());
    list()->selectRow(0);
    EXPECT_EQ(polynomials()->rowCount(), 0);
    EXPECT_EQ(tabs()->toolTip(), "R134A");
    EXPECT_FALSE(form->results().canCopy());
    list()->selectRow(1);
    EXPECT_EQ(tabs()->toolTip(), "");
    form->lnkCalculate_Click();
    EXPECT_EQ(tabs()->currentKey(), "messages");
}

// Oil is filtered above 1.03 degrees Celsius, which are 33.854 degrees Fahrenheit.
TEST_F(PagesTest, AnAdviceIsFollowedWhereItStands) {
    catalogue.limit("E", 7, "1.03,0;40,0;40,90;1.03,90;1.03,0");
    form->lnkCalculate_Click();
    list()->selectRow(3);
    const auto links = [this] { return messages()->viewport()->findChildren<Link*>(); };
    const auto isAdvised = [&](const QString& text) {
        return QTest::qWaitFor(
            [&] { return links().size() == 1 && links().front()->accessibleName() == text; });
    };
    ASSERT_TRUE(isAdvised(QString::fromUtf8("Use: Evaporating temperature 1.0 °C or lower")));
    form->MeasureUnits(1, true);
    ASSERT_TRUE(isAdvised(QString::fromUtf8("Use: Evaporating temperature 33.8 °F or lower")));
    const int warnings = messages()->count();
    activate();
    messages()->setFocus();
    QTest::keyClick(messages(), Qt::Key_Tab);
    EXPECT_TRUE(links().front()->hasFocus()) << "the tab key leads to it";
    QTest::keyClick(links().front(), Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&] { return field(*form, "txtTED")->number() == 33.8; }));
    EXPECT_EQ(list()->selectedRow(), 3);
    EXPECT_EQ(tabs()->currentKey(), "messages");
    EXPECT_EQ(form->focusWidget(), messages());
    EXPECT_LT(messages()->count(), warnings);
    EXPECT_TRUE(links().isEmpty());

    list()->selectRow(2);  // whose limits end at -20 degrees Celsius, far from the point
    EXPECT_TRUE(isAdvised(QString::fromUtf8("Use: Evaporating temperature -4.0 °F or lower")));
}

// A power input of 0.04 kW shows as 0.0: COP divides by it, and EER has no COP.
TEST_F(PagesTest, AFailedStepHasItsCauseBelowIt) {
    catalogue.exec(
        "update tPolynomials set fC1=0.04, fC2=0, fC3=0, fC4=0, fC5=0, fC6=0, fC7=0, fC8=0, fC9=0, "
        "fC10=0 where fType=1");
    const QString text = dictionaryText(QStringLiteral("messages.failedstep"));
    messages()->addMessage(mark::error, "Error", text, "x");
    const int plain = messages()->sizeHintForRow(0);
    form->lnkCalculate_Click();
    list()->selectRow(1);
    ASSERT_EQ(messages()->count(), 1) << "both failures are one message";
    EXPECT_EQ(messages()->item(0)->text(), text);
    EXPECT_EQ(messages()->item(0)->toolTip(),
              "COP is no finite number: a division by zero or a result out of range.\n"
              "EER: There is no variable COP.");
    EXPECT_GT(messages()->sizeHintForRow(0), plain) << "with room for the cause";
}

TEST_F(PagesTest, TechnicalDataFollowTheCatalogueAndTheMotor) {
    catalogue.exec(
        "insert into tParametersHead "
        "values('catalog','TK-A-100','eng',9001),('catalog','TK-A-120','eng',9001);"
        "insert into tParametersRows values(9001,'picTecnic','PictureBox',"
        "'Tag={technicaldata.supply.caption}|@Motor.VoltageDescription V;LRA 1|@Motor.Lra1 A;a <b>|1 & 2')");
    auto* text = control<QLabel>(*form, "picTecnic");
    form->MnuPopUp("tecnic");
    // The locked-rotor current of the motor is that of 400 V, which is the supply.
    EXPECT_EQ(text->accessibleName(), "TK-A-100, Supply 400/3/50 V, LRA 1 300 A, a <b> 1 & 2");
    EXPECT_TRUE(text->text().contains("a &lt;b&gt;"));
    list()->selectRow(2);
    EXPECT_TRUE(text->accessibleName().endsWith("LRA 1 , a <b> 1 & 2")) << "no unit without a value";
    list()->selectRow(3);
    EXPECT_EQ(text->accessibleName(), "TK-A-140") << "nothing of another model stays";
}

TEST_F(PagesTest, ThePhotoIsTheNearestThereIs) {
    const QDir dir = ownFolder();
    const auto photo = [&](const char* name, Qt::GlobalColor colour) {
        QImage image(120, 80, QImage::Format_RGB32);
        image.fill(colour);
        EXPECT_TRUE(image.save(dir.filePath(QString("images/photos/%1.jpg").arg(name))));
    };
    auto* label = control<QLabel>(*form, "ImageCPS");
    const auto shown = [&](int row) {
        list()->selectRow(row);
        const QImage image = label->grab().toImage();
        return image.pixelColor(image.rect().center());
    };
    form->MnuPopUp("tecnic");
    const QColor none = shown(1);
    photo("Kestrom", Qt::green);
    EXPECT_GT(shown(3).green(), 200);
    EXPECT_NE(shown(3), none);
    photo("TK-A", Qt::blue);
    EXPECT_GT(shown(1).blue(), 200);
    EXPECT_LT(shown(1).red(), 60);
    photo("TK-A-140", Qt::red);
    EXPECT_GT(shown(3).red(), 200);
    EXPECT_LT(shown(3).blue(), 60);
    // No other reader is asked, whatever the file holds.
    QFile disguised(dir.filePath("images/photos/TK-A-140.jpg"));
    ASSERT_TRUE(disguised.open(QIODevice::WriteOnly));
    disguised.write(
        "<svg xmlns='http://www.w3.org/2000/svg' width='120' height='80'>"
        "<rect width='120' height='80' fill='red'/></svg>");
    disguised.close();
    shown(1);
    EXPECT_EQ(shown(3), none);
    QFile broken(dir.filePath("images/photos/TK-A.jpg"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no picture");
    broken.close();
    EXPECT_EQ(shown(1), none);
}

TEST_F(PagesTest, TheDrawingIsThatOfTheModelOrItsSeries) {
    const QDir dir = ownFolder();
    const QString real = MARVELLO_SOURCE_FOLDER "/content/pictures/dimensions/TK-A.wmf";
    auto* page = control<QWidget>(*form, "picDimension");
    const auto said = [&](int row) {
        list()->selectRow(row);
        return page->accessibleDescription();
    };
    form->MnuPopUp("dimension");
    EXPECT_EQ(said(3), "No drawing for this model");
    QFile broken(dir.filePath("Images/Dimensions/TK-A.wmf"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no drawing");
    broken.close();
    ASSERT_TRUE(QFile::copy(real, dir.filePath("Images/Dimensions/TK-A-140.wmf")));
    EXPECT_EQ(said(1), "No drawing for this model") << "a file that is no metafile";
    EXPECT_TRUE(said(3).contains("TK-A"));
    ASSERT_TRUE(broken.remove() && QFile::copy(real, broken.fileName()));
    EXPECT_TRUE(said(1).contains("TK-A"));

    // Larger at the mouse, moved with it, and fitted in again.
    page->setFocus();
    const QImage fitted = page->grab().toImage();
    const auto wheel = [page](int turns) {
        const QPointF at(page->width() / 3.0, page->height() / 3.0);
        QWheelEvent event(at, page->mapToGlobal(at), {}, {0, 120 * turns}, Qt::NoButton, Qt::ControlModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(page, &event);
    };
    wheel(4);
    const QImage zoomed = page->grab().toImage();
    EXPECT_NE(zoomed, fitted);
    QTest::mousePress(page, Qt::LeftButton, {}, {100, 100});
    QMouseEvent drag(QEvent::MouseMove, QPointF(60, 90), page->mapToGlobal(QPointF(60, 90)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(page, &drag);
    QTest::mouseRelease(page, Qt::LeftButton, {}, {60, 90});
    const QImage moved = page->grab().toImage();
    EXPECT_EQ(moved.copy(20, 20, 40, 40), zoomed.copy(60, 30, 40, 40));
    QTest::mouseDClick(page, Qt::LeftButton);
    EXPECT_EQ(page->grab().toImage(), fitted);
    QTest::keyClick(page, Qt::Key_Plus);
    EXPECT_NE(page->grab().toImage(), fitted);
    QTest::keyClick(page, Qt::Key_0);
    EXPECT_EQ(page->grab().toImage(), fitted);
    wheel(2);
    EXPECT_EQ(said(3).isEmpty(), false);
    list()->selectRow(1);
    EXPECT_EQ(page->grab().toImage(), fitted) << "another drawing is fitted in";
    EXPECT_EQ(said(0), "");
}

TEST_F(PagesTest, PolynomialsAreCopiedWithAllTheirDigits) {
    form->MnuPopUp("polynomials");
    auto* button = control<ctlBtn>(*form, "ctlCopyPolynomials");
    QTest::mouseClick(button, Qt::LeftButton);
    const QString expected =
        "\tc1\tc2\tc3\tc4\tc5\tc6\tc7\tc8\tc9\tc10\t\r\n"
        "Pta\t5E+00\t1E-01\t2.5E-01\t0E+00\t0E+00\t0E+00\t0E+00\t0E+00\t0E+00\t0E+00\r\n"
        "Q0\t1E+02\t3E+00\t-1.2E+00\t3E-02\t-2E-02\t2E-03\t2E-04\t-1E-04\t5E-05\t-1E-05\r\n";
    EXPECT_EQ(clipboard().toStdString(), expected.toStdString());
    QApplication::clipboard()->clear();
    polynomials()->setFocus();
    QTest::keyClick(polynomials(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), expected);
    list()->selectRow(0);
    EXPECT_FALSE(button->isEnabled());
}

TEST_F(PagesTest, LimitsAndPointAreInTheMeasureSystemOfTheForm) {
    const auto* graph = control<ctlGraph>(*form, "limitgraph");
    const auto expectEnvelope = [&](double left, double right, double bottom, double top) {
        ASSERT_EQ(graph->Count(), 1);
        const clsLimit& limit = graph->limits().Item(1);
        EXPECT_NEAR(limit.LeftPoint()->x, left, 1e-9);
        EXPECT_NEAR(limit.RightPoint()->x, right, 1e-9);
        EXPECT_NEAR(limit.RightPoint()->Y, bottom, 1e-9);
        EXPECT_NEAR(limit.LeftPoint()->Y, top, 1e-9);
    };
    form->MnuPopUp("limits");
    expectEnvelope(-20, 15, 20, 60);
    const clsLimit metric = graph->limits().Item(1);
    EXPECT_NEAR(graph->Point()->x, 2, 1e-9);
    EXPECT_NEAR(graph->Point()->Y, 40, 1e-9);
    EXPECT_EQ(graph->TextX(), QString::fromUtf8("Evaporating temperature (dew) °C"));
    EXPECT_EQ(graph->TextY(), QString::fromUtf8("Condensing temperature (dew) °C"));

    form->MeasureUnits(1, true);  // 1.8 t + 32
    expectEnvelope(-4, 59, 68, 140);
    EXPECT_NEAR(graph->Point()->x, 35.6, 1e-9);
    EXPECT_NEAR(graph->Point()->Y, 104, 1e-9);
    EXPECT_EQ(graph->TextX(), QString::fromUtf8("Evaporating temperature (dew) °F"));
    const clsLimit& imperial = graph->limits().Item(1);
    EXPECT_EQ(imperial.Description, metric.Description);
    EXPECT_EQ(imperial.Color, metric.Color);
    EXPECT_EQ(imperial.DrawWidth, metric.DrawWidth);
    EXPECT_EQ(imperial.LimitType, metric.LimitType);

    form->MeasureUnits(0, true);
    expectEnvelope(-20, 15, 20, 60);  // the compressor's own stayed as they were
    list()->selectRow(0);
    EXPECT_EQ(graph->Count(), 0);
    EXPECT_FALSE(graph->Point().has_value());
}

TEST_F(PagesTest, AMapIsDrawnInTheUnitsOfTheForm) {
    const auto* graph = control<ctlGraph>(*form, "limitgraph");
    const auto hasMap = [&] { return graph->drawing().map != nullptr; };
    form->MnuPopUp("limits");
    EXPECT_FALSE(hasMap()) << "the limits alone come first";
    EXPECT_EQ(form->results().mapQuantity(), QString());
    control<QAbstractButton>(*control<QWidget>(*form, "mapQuantity"), "segment_capacity")->click();
    ASSERT_TRUE(QTest::qWaitFor(hasMap));
    EXPECT_EQ(form->state().mapQuantity, "capacity");
    EXPECT_EQ(graph->drawing().map->unit, "kW");
    form->MeasureUnits(1, true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return hasMap() && graph->drawing().map->unit != "kW"; }));
    // The application limit is -20 to 15 by 20 to 60 degrees Celsius.
    QRectF all;
    for (const QPainterPath& band : graph->drawing().map->bands) all |= band.boundingRect();
    EXPECT_NEAR(all.left(), -4, 1e-6);
    EXPECT_NEAR(all.right(), 59, 1e-6);
    EXPECT_NEAR(all.bottom(), 140, 1e-6);
    list()->selectRow(2);  // in error
    EXPECT_FALSE(hasMap());
    EXPECT_TRUE(control<PageBar>(*form, "mapBar")->sentence().startsWith("No map"));
    list()->selectRow(0);
    EXPECT_FALSE(hasMap());
}

TEST_F(PagesTest, APointThatIsMovedIsCalculatedWhereItStands) {
    auto* graph = control<ctlGraph>(*form, "limitgraph");
    const auto* readOut = control<ReadOut>(*form, "picReadOut");
    list()->selectRow(3);
    form->MnuPopUp("limits");
    activate();
    const QString before = readOut->rows().at(2).value;
    EXPECT_EQ(before, list()->text(3, 1) + " kW");
    graph->setFocus();
    QTest::keyClick(graph, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(graph, Qt::Key_Right);
    EXPECT_EQ(readOut->rows().at(0).value, QString::fromUtf8("3.1 °C"));
    const QString moved = readOut->rows().at(2).value;
    EXPECT_NE(moved, before);
    EXPECT_EQ(field(*form, "txtTED")->number(), 2) << "the form waits";
    QTest::keyClick(graph, Qt::Key_Escape);
    EXPECT_EQ(readOut->rows().at(2).value, before);
    for (int i = 0; i < 20; ++i) QTest::keyClick(graph, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(readOut->rows().at(2).value, "-");
    EXPECT_FALSE(readOut->note().isEmpty()) << "outside, with the sentence of the error";
    QTest::keyClick(graph, Qt::Key_Escape);

    QTest::keyClick(graph, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(graph, Qt::Key_Right);
    QTest::keyClick(graph, Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return field(*form, "txtTED")->number() == 3.1; }));
    EXPECT_EQ(field(*form, "txtTCD")->number(), 40);
    EXPECT_EQ(list()->selectedRow(), 3);
    EXPECT_EQ(tabs()->currentKey(), "limits");
    EXPECT_EQ(form->focusWidget(), graph);
    EXPECT_FALSE(graph->isMoved());
    EXPECT_EQ(list()->text(3, 1) + " kW", moved) << "what was read out is what was calculated";
    EXPECT_EQ(readOut->rows().at(2).value, moved);
}

TEST_F(PagesTest, EachPageKeepsTheHeightOfItsList) {
    auto* splitter = control<Splitter>(*form, "Splitter2");
    list()->selectRow(3);
    EXPECT_EQ(splitter->SplitterPos(), 338);
    form->MnuPopUp("limits");
    EXPECT_EQ(splitter->SplitterPos(), 196) << "the graph needs height";
    EXPECT_TRUE(list()->viewport()->rect().contains(list()->visualRect(list()->currentIndex())));
    const auto bar = [&] { return QPoint(200, splitter->SplitterPos() + 2); };
    QTest::mouseDClick(splitter, Qt::LeftButton, {}, bar());
    EXPECT_EQ(splitter->SplitterPos(), 338);
    QTest::mouseDClick(splitter, Qt::LeftButton, {}, bar());
    EXPECT_EQ(splitter->SplitterPos(), 196);
    QTest::mousePress(splitter, Qt::LeftButton, {}, bar());
    QTest::mouseMove(splitter, bar() + QPoint(0, 30));
    QTest::mouseRelease(splitter, Qt::LeftButton, {}, bar());
    const int dragged = splitter->SplitterPos();
    EXPECT_GT(dragged, 196);
    form->MnuPopUp("messages");
    EXPECT_EQ(splitter->SplitterPos(), 338);
    form->MnuPopUp("limits");
    EXPECT_EQ(splitter->SplitterPos(), dragged);
    EXPECT_EQ(form->sizes().listHeights, (QHash<QString, int>{{"limits", dragged}}));
}

TEST_F(PagesTest, TheMenuOfARowOpensOnCompressorsAlone) {
    auto* menu = control<QMenu>(*form, "mnu_cpspopup");
    const auto asked = [&](int row, QContextMenuEvent::Reason reason) {
        list()->selectRow(row);
        const QPoint place(40, 13 + 26 * row);
        QContextMenuEvent event(reason, place, list()->viewport()->mapToGlobal(place));
        QApplication::sendEvent(list()->viewport(), &event);
        const bool isOpen = menu->isVisible();
        menu->hide();
        return isOpen;
    };
    EXPECT_FALSE(asked(0, QContextMenuEvent::Mouse));
    EXPECT_FALSE(asked(0, QContextMenuEvent::Keyboard));
    EXPECT_TRUE(asked(2, QContextMenuEvent::Mouse));
    EXPECT_TRUE(asked(1, QContextMenuEvent::Keyboard));
    entry("limits")->trigger();
    EXPECT_EQ(tabs()->currentKey(), "limits");
    entry("limits")->trigger();
    EXPECT_TRUE(entry("limits")->isChecked());
    QApplication::clipboard()->clear();
    entry("copyclipboard")->trigger();
    EXPECT_TRUE(clipboard().contains("\r\nR134A\tTK-A\t100\t59.2\t"));
}

TEST_F(PagesTest, CopiesAllSelectedCompressorsEvenThoseInError) {
    list()->setFocus();
    list()->selectRow(2);
    QTest::keyClick(list(), Qt::Key_C, Qt::ControlModifier);
    const QStringList keys = list()->columnKeys();
    QString blanks;
    for (qsizetype i = 1; i < keys.size(); ++i) blanks += "\t  ";
    const QString head = clipboard().section("\r\n", 0, 0);
    EXPECT_TRUE(head.startsWith("Refrigerant\tSerie\tModel\t" + list()->columnTexts()[1] + '\t'));
    EXPECT_EQ(head.count('\t'), 2 + keys.size() - 1);
    EXPECT_EQ(clipboard(), head + "\r\nR134A\tTK-A\t120" + blanks + "\r\n");

    QTest::keyClick(list(), Qt::Key_A, Qt::ControlModifier);  // the group row is selected too
    form->CopyToClipBoard();
    const QStringList lines = clipboard().split("\r\n");
    ASSERT_EQ(lines.size(), 5);
    EXPECT_TRUE(lines[1].startsWith("R134A\tTK-A\t100\t59.2\t"));
    EXPECT_TRUE(lines[3].startsWith("R134A\tTK-A\t140\t59.2\t"));
    EXPECT_EQ(lines[4], "");

    // The row chosen last is the one that the pages show.
    list()->selectRow(1);
    EXPECT_EQ(messages()->count(), 0);
    QTest::keyClick(list(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(list()->selectedRows(), (QList<int>{1, 2}));
    EXPECT_EQ(list()->selectedRow(), 2);
    EXPECT_GT(messages()->count(), 0);
}

TEST_F(PagesTest, FollowTheLanguage) {
    form->MnuPopUp("polynomials");
    gApplication().populateDictionary("en-EN", "it-IT");
    form->Traduci();
    EXPECT_EQ(tabs()->currentKey(), "polynomials");
    EXPECT_EQ(polynomials()->rowCount(), 2);
    EXPECT_EQ(control<ctlBtn>(*form, "ctlCopyPolynomials")->text(), "Copia");
    EXPECT_EQ(tabs()->tabText(3), "Dimensioni");
    EXPECT_EQ(entry("dimension")->text(), "&Dimensioni");
    form->MnuPopUp("dimension");
    ownFolder();
    form->PopulateFrame4();
    EXPECT_EQ(control<QWidget>(*form, "picDimension")->accessibleDescription(),
              "Nessun disegno per questo modello");
}
