// Drives the real windows through a demonstration selection and saves what they show.
//   marvello-windows [--dark] [--language it-IT] [--series TK-A] [--refrigerant R134A] FOLDER
// QT_SCALE_FACTOR chooses the scaling. Run from anywhere: the catalogue is that of the program's own folder.

#include <QAction>
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSettings>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <memory>

#include "catalogue/Globals.h"
#include "controls/AdvanceText.h"
#include "controls/Look.h"
#include "controls/MessageBox.h"
#include "controls/ResultsView.h"
#include "data/ApplicationFolder.h"
#include "data/Globals.h"
#include "data/Texts.h"
#include "reports/ReportOutput.h"
#include "workspace/MDIMain.h"
#include "workspace/SelectionForm.h"
#include "workspace/WindowTexts.h"

using namespace marvello;

namespace {

struct Demonstration {
    QString folder;
    QString refrigerant;
    QString series;

    void save(QWidget& window, const char* name) const {
        QApplication::processEvents();
        const QString file = QDir(folder).filePath(QLatin1String(name) + QStringLiteral(".png"));
        std::puts(window.grab().save(file) ? qPrintable(file) : "not saved");
    }

    /// Calculates; what the program has to say is printed, since no one is there to read a box.
    static void calculate(SelectionForm& form) {
        const auto before = MessageBox::setHandler(
            [](MessageBox::Mark, const QString& text) { std::fprintf(stderr, "%s\n", qPrintable(text)); });
        form.lnkCalculate_Click();
        MessageBox::setHandler(before);
    }

    /// Opens a dialog through its command and saves what it shows.
    void saveDialog(MDIMain& window, const char* command, const char* name, int tab = 0) const {
        constexpr int shown = 250;  // milliseconds; what fades in is there by then
        QTimer::singleShot(shown, &window, [this, name, tab] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (!dialog) return;
            if (auto* tabs = dialog->findChild<QTabBar*>()) tabs->setCurrentIndex(tab);
            save(*dialog, name);
            dialog->close();
        });
        window.findChild<QAction*>(QLatin1String(command))->trigger();
    }

    /// Saves every page of the selected compressor, and the menu of its row.
    void savePages(MDIMain& window, SelectionForm& form) const {
        for (const char* page : {"tecnic", "polynomials", "dimension", "limits", "messages"}) {
            form.MnuPopUp(QLatin1String(page));
            save(window, qPrintable(QStringLiteral("page-") + QLatin1String(page)));
        }
        auto* menu = form.findChild<QMenu*>(QStringLiteral("mnu_cpspopup"));
        menu->popup(window.mapToGlobal(QPoint(500, 300)));
        save(*menu, "page-menu");
        menu->hide();
    }

    /// Types over the text of a field.
    static void typeOver(const SelectionForm& form, const char* name, const QString& text) {
        auto* edit = form.findChild<AdvanceText*>(QLatin1String(name))->findChild<QLineEdit*>();
        edit->setFocus();
        edit->selectAll();
        for (const QChar sign : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, sign);
            QApplication::sendEvent(edit, &press);
        }
    }

    /// Saves the report of the selected compressor, and its window.
    void saveReportOf(MDIMain& window, SelectionForm& form, const char* name) const {
        if (const auto report = form.selectedReport())
            saveReport(QStringLiteral("%1/%2.pdf").arg(folder, QLatin1String(name)), reportLayout(), *report);
        saveDialog(window, "mnu_file_printpreview",
                   qPrintable(QLatin1String(name) + QStringLiteral("-preview")));
    }

    void run(MDIMain& window) const {
        save(window, "empty-frame");
        saveDialog(window, "mnu_file_new_selection", "start-menu");
        saveDialog(window, "mnu_help_About", "about");
        saveDialog(window, "mnu_help_About", "terms", 1);
        saveDialog(window, "mnu_help_Builds", "builds");
        SelectionForm* form = window.newSelection();
        QApplication::processEvents();
        auto* refrigerants = form->findChild<AdvanceText*>(QStringLiteral("lstRefrigerants"));
        if (refrigerants->Key() != refrigerant) {
            refrigerants->SetTextValue(refrigerant);
            refrigerants->SetKey(refrigerant);
        }
        auto* list = form->findChild<AdvanceText*>(QStringLiteral("lstSeries"));
        list->SetTextValue(series);
        list->SetKey(series);
        save(window, "inputs-only");
        emit form->findChild<AdvanceText*>(QStringLiteral("lstModels"))->ButtonClick();
        if (QWidget* popup = QApplication::activePopupWidget()) {
            save(*popup, "drop-list");
            popup->hide();
        }
        auto* menu = window.findChild<QMenu*>(QStringLiteral("mnu_file"));
        menu->popup(window.mapToGlobal(QPoint(0, 28)));
        save(*menu, "menu");
        menu->hide();

        // The picture of the dialog is taken while the run waits for its first event.
        QTimer::singleShot(0, &window, [this] {
            if (QWidget* dialog = QApplication::activeModalWidget()) save(*dialog, "progress");
        });
        calculate(*form);
        save(window, "results");
        saveReportOf(window, *form, "report");
        savePages(window, *form);
        auto* results = form->findChild<ResultsView*>(QStringLiteral("lvCps"));
        const auto select = [results](const QString& mark) {
            for (int row = 0; row < results->rowCount(); ++row)
                if (results->mark(row) == mark) results->selectRow(row);
        };
        select(QStringLiteral("ledorange"));
        save(window, "warnings");
        saveReportOf(window, *form, "report-warnings");
        select(QStringLiteral("ledred"));
        save(window, "error");
        // The report with warnings at another superheat has no envelope.
        auto* const superheat = form->findChild<AdvanceText*>(QStringLiteral("txtSH"));
        superheat->SetTextValue(8.0);
        calculate(*form);
        select(QStringLiteral("ledorange"));
        saveReportOf(window, *form, "report-superheat");
        superheat->SetTextValue(10.0);
        auto* const economiser = form->findChild<AdvanceText*>(QStringLiteral("cmbEco"));
        if (economiser->isEnabled()) {
            economiser->SetTextValue(fromCore(ListLookup("1", toCore(economiser->Tag1()))));
            economiser->SetKey(QStringLiteral("1"));
            calculate(*form);
            save(window, "economiser");
            saveReportOf(window, *form, "report-economiser");
        }
        typeOver(*form, "txtSH", QStringLiteral("25"));
        save(window, "discarded");
        superheat->SetTextValue(10.0);
        calculate(*form);
        form->MeasureUnits(1, true);
        save(window, "imperial");
        saveReportOf(window, *form, "report-imperial");
        form->MnuPopUp(QStringLiteral("limits"));
        save(window, "page-limits-imperial");
        window.newSelection();
        window.findChild<QAction*>(QStringLiteral("mnu_Window_Cascade"))->trigger();
        save(window, "cascade");
        SelectionForm* inverter = window.newInverterSelection();
        save(window, "inverter-inputs");
        calculate(*inverter);
        save(window, "inverter");
        saveReportOf(window, *inverter, "report-inverter");
        window.findChild<QAction*>(QStringLiteral("mnu_Window_TileVertical"))->trigger();
        save(window, "tiled");
        QTimer::singleShot(0, &window, [this] {
            if (QWidget* box = QApplication::activeModalWidget()) {
                save(*box, "box");
                box->close();
            }
        });
        MessageBox::show(
            &window, MessageBox::Mark::critical,
            QStringLiteral("SuperHeat value out of range. The default value has been set instead."));
    }
};

}  // namespace

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
        setApplicationFolder(parser.value(folder).toStdString());
        gDatabase().Connect("Data Source=" + applicationFolder() + "/db.mdb");
        loadSharedPolynomials();
        gApplication().User().language = parser.value(language).toStdString();
        Look::install(application, parser.isSet(dark) ? Look::dark() : Look::light());
        MDIMain window(QStringLiteral("1.0.0"));
        // The screen that no one sees is smaller than the pictures.
        window.showNormal();
        window.resize(1440, 870);
        QApplication::processEvents();
        Demonstration{parser.positionalArguments().front(), parser.value(refrigerant), parser.value(series)}
            .run(window);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
