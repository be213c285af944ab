// Pictures of the controls, the windows and the report, compared with references.
//   pictures_tests            compares
//   pictures_tests --update   renews the references that differ

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QPainter>
#include <QPainterPath>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>

#include "catalogue/Globals.h"
#include "controls/Look.h"
#include "data/Session.h"
#include "reports/ReportPage.h"
#include "tests/pictures/Comparison.h"
#include "tests/pictures/scenes/Scenes.h"
#include "tests/pictures/scenes/WindowTour.h"
#include "thermo/clsRefprop.h"
#include "workspace/MDIMain.h"

namespace marvello {

namespace {

using scenes::Scene;
using testing::expectPicture;

QImage pictureOf(QWidget& widget, double scale) {
    QImage image(widget.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    widget.render(&image);
    return image;
}

void install(const Look& look) { Look::install(*qApp, look); }

// The comparison itself.

QImage sample(const QPointF& text, double line, const QColor& ground = "#F6F8F9") {
    QImage image(120, 40, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    painter.setPen(QColor(0xD9, 0xDF, 0xE3));
    painter.drawLine(QPointF(0, line), QPointF(120, line));
    QPainterPath letters;
    letters.addText(text, lookFont(15), "Capacity kW");
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(letters, Qt::black);
    return image;
}

TEST(Comparison, ForgivesTheShadesOfLettersAndNothingElse) {
    using testing::difference;
    const QImage reference = sample({10, 20}, 30);
    EXPECT_FALSE(difference(sample({10, 20}, 30), reference));
    EXPECT_FALSE(difference(sample({10.05, 20.05}, 30), reference)) << "a shade of the letters";
    EXPECT_TRUE(difference(sample({10.5, 20}, 30), reference)) << "letters half a pixel further";
    EXPECT_TRUE(difference(sample({10, 20}, 31), reference)) << "a line in another place";
    EXPECT_TRUE(difference(sample({10, 20}, 30, "#FFFFFF"), reference)) << "another ground";
    const auto size = difference(reference.copy(0, 0, 119, 40), reference);
    ASSERT_TRUE(size);
    EXPECT_EQ(size->pixels, 0);
}

TEST(Fonts, AreThoseOfTheProgram) {
    for (const char* family : {"Roboto", "Noto Sans CJK SC"})
        EXPECT_TRUE(QFontDatabase::hasFamily(QLatin1String(family))) << "tools/setup.sh installs " << family;
}

// Controls and drawings.

struct Variant {
    Scene scene;
    bool isDark;
    double scale;
};

QString nameOf(const Variant& variant) {
    return QLatin1String(variant.scene.name) + QLatin1String(variant.isDark ? "-dark" : "") +
           QLatin1String(variant.scale == 2 ? "-200" : "");
}

void PrintTo(const Variant& variant, std::ostream* out) { *out << nameOf(variant).toStdString(); }

class ScenePicture : public ::testing::TestWithParam<Variant> {};

TEST_P(ScenePicture, IsThatOfTheReference) {
    const auto& [scene, isDark, scale] = GetParam();
    install(isDark ? Look::dark() : Look::light());
    const auto widget = scene.make();
    widget->show();
    widget->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(widget.get()));
    scene.bringUp(*widget);
    QApplication::processEvents();
    expectPicture(nameOf(GetParam()), pictureOf(*widget, scale));
}

// Drawings on paper, which look the same everywhere, are compared large.
INSTANTIATE_TEST_SUITE_P(
    All, ScenePicture,
    ::testing::Values(Variant{scenes::controlScene(), false, 1}, Variant{scenes::controlScene(), true, 1},
                      Variant{scenes::listScene(), false, 2}, Variant{scenes::filterScene(), false, 1},
                      Variant{scenes::filterScene(), true, 1}, Variant{scenes::pageBarScene(), false, 1},
                      Variant{scenes::pageBarScene(), true, 1}, Variant{scenes::graphScene(), true, 1},
                      Variant{scenes::envelopeScene(), false, 2}, Variant{scenes::metafileScene(), false, 2},
                      Variant{scenes::adviceScene(), false, 1}, Variant{scenes::adviceScene(), true, 1},
                      Variant{scenes::pageScene(), false, 1}, Variant{scenes::reportScene(), false, 1},
                      Variant{scenes::fieldScene(), false, 2}, Variant{scenes::richTextScene(), false, 1},
                      Variant{scenes::richTextScene(), true, 1}),
    [](const auto& tested) { return nameOf(tested.param).remove(u'-').toStdString(); });

// Windows and the report.

/// The built application folder, with a photo, a guide and a list of builds that stay as they are.
class Folder {
  public:
    Folder() {
        const QDir folder(folder_.path());
        for (const char* kept : {"db.mdb", "libRefprop.so", "Fluids", "year"})
            QFile::link(QStringLiteral(MARVELLO_APP_FOLDER "/") + kept, folder.filePath(kept));
        for (const char* made : {"images/photos", "Images", "guide"}) folder.mkpath(made);
        QFile::link(QStringLiteral(MARVELLO_SOURCE_FOLDER "/content/pictures/dimensions"),
                    folder.filePath("Images/Dimensions"));
        QImage photo(300, 200, QImage::Format_RGB32);
        photo.fill(QColor(0x7F, 0x9F, 0xAF));
        photo.save(folder.filePath("images/photos/Kestrom.jpg"), "jpeg", 100);
        write(folder.filePath("guide/guide.md"),
              "# A selection\n\nWhat to do **first**:\n\n1. State the refrigerant.\n2. Press F5.\n\n"
              "| Key | What it does |\n|---|---|\n| F5 | calculates |\n");
        write(folder.filePath("builds.rtf"),
              "{\\rtf1{\\fonttbl{\\f0 Roboto;}}\\b Build 1\\b0\\par\\li360 First.\\par}");
    }

    std::string path() const { return folder_.path().toStdString(); }

  private:
    static void write(const QString& name, const char* text) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir folder_;
};

void compareReport(const QString& name, const ReportContent& report) {
    constexpr double dotsPerInch = 90, a4Width = 210, a4Height = 297;
    QImage page(static_cast<int>(a4Width / 25.4 * dotsPerInch),
                static_cast<int>(a4Height / 25.4 * dotsPerInch), QImage::Format_RGB32);
    page.setDotsPerMeterX(static_cast<int>(std::lround(dotsPerInch / 0.0254)));
    page.setDotsPerMeterY(page.dotsPerMeterX());
    QPainter painter(&page);
    paintReport(painter, {a4Width, a4Height}, report);
    painter.end();
    expectPicture(name, page);
}

struct Tour {
    const char* name;
    const Look& (*look)();
    const char* language;
    double scale;
    bool (*isCompared)(const QString& step);
};

void PrintTo(const Tour& tour, std::ostream* out) { *out << tour.name; }

class WindowPictures : public ::testing::TestWithParam<Tour> {
  protected:
    WindowPictures() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
        openCatalogue();
        gApplication().User().language = GetParam().language;
        install(GetParam().look());
    }

  private:
    QTemporaryDir settings_;
    Folder folder_;
    Session session_{folder_.path()};
};

TEST_P(WindowPictures, AreThoseOfTheReferences) {
    const Tour& tour = GetParam();
    const auto named = [&](const QString& step) { return QLatin1String(tour.name) + u'-' + step; };
    MDIMain window(QStringLiteral("1.0.0"));
    window.showNormal();
    window.resize(1160, 740);
    QApplication::processEvents();
    scenes::WindowTour(
        window, "R134A", "TK-A",
        [&](const QString& step, QWidget&, QWidget& part) {
            if (tour.isCompared(step)) expectPicture(named(step), pictureOf(part, tour.scale));
        },
        [&](const QString& step, const ReportContent& report) {
            if (tour.isCompared(step)) compareReport(named(step), report);
        })
        .run();
}

// Steps that show the same parts as others, and large, are left out.
bool isOwn(const QString& step) {
    return !QStringList{"tiled",
                        "report",
                        "report-superheat",
                        "report-inverter",
                        "start-menu-inverter",
                        "report-economizer",
                        "report-imperial",
                        "find-outdated",
                        "find-page-limits"}
                .contains(step) &&
           (!step.endsWith(u"-preview") || step == u"report-warnings-preview");
}

INSTANTIATE_TEST_SUITE_P(All, WindowPictures,
                         ::testing::Values(Tour{"window", Look::light, "en-EN", 1, isOwn},
                                           Tour{"window-dark", Look::dark, "en-EN", 1,
                                                [](const QString& step) {
                                                    return QStringList{"start-menu-inverter",
                                                                       "about",
                                                                       "page-messages",
                                                                       "page-limits-moved",
                                                                       "find",
                                                                       "comparison",
                                                                       "year"}
                                                        .contains(step);
                                                }},
                                           Tour{"window-200", Look::light, "de-DE", 2,
                                                [](const QString& step) {
                                                    return QStringList{"drop-list", "page-menu",   "box",
                                                                       "progress",  "find-inputs", "year"}
                                                        .contains(step);
                                                }}),
                         [](const auto& tour) {
                             return QString(tour.param.name).remove(u'-').toStdString();
                         });

}  // namespace

}  // namespace marvello

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const bool isUpdate = argc > 1 && QLatin1String(argv[1]) == QLatin1String("--update");
    if (isUpdate) marvello::testing::renewReferences();
    // The same on every machine: no screen, no desktop, no printer, its own fonts.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "96");
    qputenv("FONTCONFIG_FILE", MARVELLO_SOURCE_FOLDER "/tests/pictures/fonts.conf");
    qputenv("CUPS_SERVER", "/nowhere");
    for (const char* other : {"QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME"})
        qunsetenv(other);
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale::c());
    QApplication::setApplicationVersion(QStringLiteral("1.0.0"));
    QApplication::setApplicationDisplayName(QStringLiteral("Marvello"));
    QApplication::setCursorFlashTime(0);
    for (const auto effect :
         {Qt::UI_AnimateMenu, Qt::UI_FadeMenu, Qt::UI_AnimateCombo, Qt::UI_AnimateTooltip})
        QApplication::setEffectEnabled(effect, false);
    const int status = RUN_ALL_TESTS();
    if (isUpdate && ::testing::GTEST_FLAG(filter) == "*") marvello::testing::removeUnpainted();
    return status;
}
