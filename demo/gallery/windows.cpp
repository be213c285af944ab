// Drives the real windows through a demonstration selection and saves what they show.
//   marvello-windows [--dark] [--language it-IT] [--series TK-A] [--refrigerant R134A] FOLDER
// QT_SCALE_FACTOR chooses the scaling. Run from anywhere: the catalogue is that of the program's own folder.

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>

#include "catalogue/Globals.h"
#include "controls/Look.h"
#include "data/Session.h"
#include "reports/ReportOutput.h"
#include "tests/pictures/scenes/WindowTour.h"
#include "workspace/MDIMain.h"

using namespace marvello;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationVersion(QStringLiteral("1.0.0"));
    QApplication::setApplicationDisplayName(QStringLiteral("Marvello"));
    QCommandLineParser parser;
    const QCommandLineOption dark("dark", "The dark look.");
    const QCommandLineOption language("language", "The language.", "KEY", "en-EN");
    const QCommandLineOption refrigerant("refrigerant", "The refrigerant.", "KEY", "R134A");
    const QCommandLineOption series("series", "The series.", "KEY", "TK-A");
    const QCommandLineOption folder("app-folder", "The application folder.", "DIR");
    parser.addOptions({dark, language, refrigerant, series, folder});
    parser.addPositionalArgument("folder", "Where the pictures go.");
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 1) parser.showHelp(2);

    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    try {
        const Session session(parser.value(folder).toStdString());
        openCatalogue();
        gApplication().User().language = parser.value(language).toStdString();
        Look::install(application, parser.isSet(dark) ? Look::dark() : Look::light());
        MDIMain window(QStringLiteral("1.0.0"));
        // The screen that no one sees is smaller than the pictures.
        window.showNormal();
        window.resize(1440, 870);
        QApplication::processEvents();
        const QDir pictures(parser.positionalArguments().front());
        scenes::WindowTour(
            window, parser.value(refrigerant), parser.value(series),
            [&](const QString& name, QWidget& shown, QWidget&) {
                const QString file = pictures.filePath(name + QStringLiteral(".png"));
                std::puts(shown.grab().save(file) ? qPrintable(file) : "not saved");
            },
            [&](const QString& name, const ReportContent& report) {
                saveReport(pictures.filePath(name + QStringLiteral(".pdf")), reportLayout(), report);
            })
            .run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
