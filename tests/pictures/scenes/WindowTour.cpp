#include "tests/pictures/scenes/WindowTour.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QTimer>
#include <cstdio>
#include <utility>

#include "controls/AdvanceText.h"
#include "controls/Marks.h"
#include "controls/MessageBox.h"
#include "controls/ResultsView.h"
#include "controls/ctlGraph.h"
#include "data/Texts.h"
#include "workspace/AdviceSearch.h"
#include "workspace/ComparisonBar.h"
#include "workspace/Frmsplash.h"
#include "workspace/MDIMain.h"
#include "workspace/MapSearch.h"
#include "workspace/PartLoadPage.h"
#include "workspace/RatingPage.h"
#include "workspace/ReportPreview.h"
#include "workspace/ResultsPane.h"
#include "workspace/SelectionForm.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmComparison.h"
#include "workspace/frmFind.h"
#include "workspace/frmRefrigerant.h"
#include "workspace/frmYear.h"

namespace marvello::scenes {

namespace {

constexpr const char* inputs = "Frame1";
constexpr const char* empty = "frame2";
constexpr const char* list = "frame3";
constexpr const char* pages = "Frame4";
constexpr const char* results = "Splitter2";

void press(QWidget& widget, int key, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &event);
}

/// Types over the text of a field.
void typeOver(const QWidget& form, const char* name, const QString& text) {
    auto* edit = form.findChild<AdvanceText*>(QLatin1String(name))->findChild<QLineEdit*>();
    edit->setFocus();
    edit->selectAll();
    for (const QChar sign : text) press(*edit, 0, sign);
}

void choose(const SelectionForm& form, const char* name, const QString& key) {
    auto* list = form.findChild<AdvanceText*>(QLatin1String(name));
    if (list->Key() == key) return;
    list->SetTextValue(key);
    list->SetKey(key);
}

}  // namespace

WindowTour::WindowTour(MDIMain& window, QString refrigerant, QString series, Picture picture, Report report)
    : window_(window),
      refrigerant_(std::move(refrigerant)),
      series_(std::move(series)),
      picture_(std::move(picture)),
      report_(std::move(report)) {}

void WindowTour::run() {
    show("empty-frame");
    showDialogs();
    showInputs();
    showPages();
    showWarnings();
    showOtherInputs();
    showForms();
    showFind();
    showComparison();
    showYear();
}

void WindowTour::show(const char* name) const { show(name, window_); }

void WindowTour::show(const char* name, QWidget& window) const {
    QApplication::processEvents();
    picture_(QLatin1String(name), window, window);
}

void WindowTour::show(const char* name, const QWidget& form, const char* part) const {
    const auto* const advice = form.findChild<AdviceSearch*>();
    do QApplication::processEvents();
    while (advice && advice->isSearching());
    picture_(QLatin1String(name), window_, *form.findChild<QWidget*>(QLatin1String(part)));
}

/// Opens a dialog through its command; `tab` is the page or the choice that it stands at.
void WindowTour::showDialog(const char* command, const char* name, int tab) const {
    constexpr int shown = 250;  // milliseconds; what fades in is there by then
    QTimer::singleShot(shown, &window_, [this, name, tab] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) return;
        if (auto* tabs = dialog->findChild<QTabBar*>())
            tabs->setCurrentIndex(tab);
        else if (tab > 0)
            press(*dialog, Qt::Key_Right);
        show(name, *dialog);
        dialog->close();
    });
    window_.findChild<QAction*>(QLatin1String(command))->trigger();
}

/// The report of the selected compressor, of a certain day, and its window.
void WindowTour::showReport(SelectionForm& form, const char* name) const {
    auto report = form.results().report();
    if (!report) return;
    report->date = userLocale().toString(QDate(2026, 5, 4), QLocale::LongFormat);
    report_(QLatin1String(name), *report);
    ReportPreview preview(*report, &window_);
    preview.show();
    show(qPrintable(QLatin1String(name) + QStringLiteral("-preview")), preview);
}

void WindowTour::showDialogs() const {
    Frmsplash splash;
    splash.show();
    show("splash", splash);
    splash.hide();
    showDialog("mnu_file_new_selection", "start-menu");
    showDialog("mnu_file_new_selection", "start-menu-inverter", 1);
    showDialog("mnu_help_About", "about");
    showDialog("mnu_help_About", "terms", 1);
    showDialog("mnu_help_Builds", "builds");
    window_.findChild<QAction*>(QStringLiteral("mnu_help_guide"))->trigger();
    for (QWidget* guide : QApplication::topLevelWidgets())
        if (guide->objectName() == u"formGuide") {
            show("guide", *guide);
            guide->close();
        }
    frmRefrigerant refrigerants(&window_);
    QTimer::singleShot(0, &refrigerants, [&] {
        show("refrigerants", refrigerants);
        refrigerants.reject();
    });
    clsParametersForm choice;
    choice.Parameter = "R134A;R290";
    refrigerants.OpenForm(choice);
}

void WindowTour::showInputs() {
    form_ = window_.newSelection();
    QApplication::processEvents();
    choose(*form_, "lstRefrigerants", refrigerant_);
    choose(*form_, "lstSeries", series_);
    show("inputs-only");
    emit form_->findChild<AdvanceText*>(QStringLiteral("lstModels"))->ButtonClick();
    if (QWidget* popup = QApplication::activePopupWidget()) {
        show("drop-list", *popup);
        popup->hide();
    }
    auto* menu = window_.findChild<QMenu*>(QStringLiteral("mnu_file"));
    menu->popup(window_.mapToGlobal(QPoint(0, 28)));
    show("menu", *menu);
    menu->hide();
}

/// Every page of the selected compressor, and the menu of its row.
void WindowTour::showPages() const {
    // The picture of the dialog is taken while the run waits for its first event.
    QTimer::singleShot(0, &window_, [this] {
        if (QWidget* dialog = QApplication::activeModalWidget()) show("progress", *dialog);
    });
    calculate(*form_);
    show("results", *form_, results);
    showReport(*form_, "report");
    for (const char* page :
         {"tecnic", "polynomials", "dimension", "limits", "rating", "cycle", "partload", "messages"}) {
        form_->MnuPopUp(QLatin1String(page));
        const auto* const rating = form_->findChild<RatingPage*>();
        const auto* const partLoad = form_->findChild<PartLoadPage*>();
        while (rating->isCalculating() || partLoad->isCalculating())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        show(qPrintable(QStringLiteral("page-") + QLatin1String(page)), *form_, pages);
        if (QLatin1String(page) == QLatin1String("limits")) showMap();
    }
    auto* menu = form_->findChild<QMenu*>(QStringLiteral("mnu_cpspopup"));
    menu->popup(window_.mapToGlobal(QPoint(500, 300)));
    show("page-menu", *menu);
    menu->hide();
}

/// A map of the limits, with the point and while it is moved by keys.
void WindowTour::showMap() const {
    auto* const graph = form_->findChild<ctlGraph*>();
    form_->results().setMapQuantity(QStringLiteral("cop"));
    while (!graph->drawing().map || form_->findChild<MapSearch*>()->isSearching())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    show("page-limits-map", *form_, pages);
    graph->setFocus();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Up, Qt::Key_Up}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::ShiftModifier);
        QApplication::sendEvent(graph, &press);
    }
    show("page-limits-moved", *form_, pages);
    graph->putBack();
    form_->results().setMapQuantity(QString());
}

void WindowTour::showWarnings() const {
    selectWarning();
    show("warnings", *form_, pages);
    showReport(*form_, "report-warnings");
}

void WindowTour::showOtherInputs() const {
    // The report with warnings at another superheat has no envelope.
    typeOver(*form_, "txtSH", QStringLiteral("8"));
    calculate(*form_);
    selectWarning();
    showReport(*form_, "report-superheat");
    typeOver(*form_, "txtSH", QStringLiteral("10"));
    auto* const economizer = form_->findChild<AdvanceText*>(QStringLiteral("cmbEco"));
    if (economizer->isEnabled()) {
        economizer->SetTextValue(fromCore(ListLookup("1", toCore(economizer->Tag1()))));
        economizer->SetKey(QStringLiteral("1"));
        calculate(*form_);
        show("economizer", *form_, inputs);
        showReport(*form_, "report-economizer");
        form_->MnuPopUp(QStringLiteral("cycle"));
        show("page-cycle-economizer", *form_, pages);
        form_->MnuPopUp(QStringLiteral("messages"));
    }
    typeOver(*form_, "txtSH", QStringLiteral("25"));
    show("discarded", *form_, empty);
    typeOver(*form_, "txtSH", QStringLiteral("10"));
    calculate(*form_);
    form_->MeasureUnits(1, true);
    show("imperial", *form_, list);
    showReport(*form_, "report-imperial");
    form_->MnuPopUp(QStringLiteral("limits"));
    show("page-limits-imperial", *form_, pages);
    form_->MnuPopUp(QStringLiteral("cycle"));
    show("page-cycle-imperial", *form_, pages);
    form_->MnuPopUp(QStringLiteral("limits"));
    const QSize size = window_.size();
    window_.resize(560, 640);
    show("narrow");
    form_->CloseFrame(false);
    show("narrow-open");
    window_.resize(size);
}

void WindowTour::showForms() const {
    window_.newSelection();
    window_.findChild<QAction*>(QStringLiteral("mnu_Window_Cascade"))->trigger();
    show("cascade");
    SelectionForm* inverter = window_.newInverterSelection();
    show("inverter-inputs", *inverter, inputs);
    calculate(*inverter);
    show("inverter", *inverter, list);
    showReport(*inverter, "report-inverter");
    window_.findChild<QAction*>(QStringLiteral("mnu_Window_TileVertical"))->trigger();
    show("tiled");
    QTimer::singleShot(0, &window_, [this] {
        if (QWidget* box = QApplication::activeModalWidget()) {
            show("box", *box);
            box->close();
        }
    });
    MessageBox::show(&window_, MessageBox::Mark::critical,
                     QStringLiteral("SuperHeat value out of range. The default value has been set instead."));
}

void WindowTour::showFind() const {
    for (Form* open : window_.forms()) open->parentWidget()->close();
    frmFind* form = window_.newFind();
    form->MeasureUnits(0, true);
    const auto search = [this, form] {
        while (form->isSearching()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        // A search on a busy machine shows its progress, which leaves another window active.
        window_.activateWindow();
        while (!window_.isActiveWindow()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QApplication::processEvents();
    };
    search();
    show("find");
    show("find-inputs", *form, inputs);
    form->results().selectPage(QStringLiteral("limits"));
    show("find-page-limits", *form, pages);
    form->MeasureUnits(1, true);
    show("find-imperial", *form, list);
    form->MeasureUnits(0, true);
    typeOver(*form, "txtCapacity", QStringLiteral("90000"));
    show("find-outdated", *form, results);
    search();
    show("find-nothing", *form, empty);
    typeOver(*form, "txtCapacity", QStringLiteral("-5"));
    search();
    show("find-unusable");
}

/// Three compressors of a list next to each other, as they are added and with differences from the first.
void WindowTour::showComparison() const {
    for (Form* open : window_.forms()) open->parentWidget()->close();
    SelectionForm* selection = window_.newSelection();
    choose(*selection, "lstRefrigerants", refrigerant_);
    choose(*selection, "lstSeries", series_);
    calculate(*selection);
    auto* list = selection->findChild<ResultsView*>(QStringLiteral("lvCps"));
    for (const int row : {1, 2, 3}) {
        list->selectRow(row);
        window_.findChild<QAction*>(QStringLiteral("mnu_tools_compare"))->trigger();
    }
    auto* form = window_.findChild<frmComparison*>();
    while (form->isCalculating()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    selection->parentWidget()->close();
    QApplication::processEvents();
    window_.statusBar()->clearMessage();
    show("comparison");
    form->MeasureUnits(1, true);
    emit form->findChild<ComparisonBar*>()->referenceChosen(0);
    show("comparison-imperial");
}

/// Two plants over nine bins of a year, one of which is chosen; and in the other system of units the table.
void WindowTour::showYear() const {
    for (Form* open : window_.forms()) open->parentWidget()->close();
    frmYear* const form = window_.newYear();
    form->MeasureUnits(0, true);
    const auto settle = [form] {
        while (form->isCalculating()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    show("year-empty");
    auto* const bins = form->findChild<QTableView*>(QStringLiteral("binTable"));
    bins->selectAll();
    press(*bins, Qt::Key_Delete);
    bins->setCurrentIndex(bins->model()->index(0, 0));
    QApplication::clipboard()->setText(
        QStringLiteral("-7.5\t120\t35\n-2.5\t520\t35\n2.5\t1390\t35\n7.5\t1730\t46\n12.5\t1790\t57\n"
                       "17.5\t1640\t68\n22.5\t1010\t78\n27.5\t430\t89\n32.5\t130\t100"));
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    QApplication::sendEvent(bins, &paste);
    for (const auto& [name, text] :
         {std::pair{"txtCurrency", "\u20AC"}, std::pair{"txtPrice", "0.22"}, std::pair{"txtCharge", "48"},
          std::pair{"txtDesignLoad", "150"}, std::pair{"txtEvaporating", "2"}, std::pair{"txtMinimum", "28"}})
        typeOver(*form, name, QString::fromUtf8(text));
    typeOver(*form, "txtPlant1", series_ + QStringLiteral("-255 ") + refrigerant_);
    typeOver(*form, "txtPlant2", QStringLiteral("TK-D-255"));
    settle();
    bins->setCurrentIndex(bins->model()->index(8, 0));
    bins->setFocus();
    show("year");
    form->MeasureUnits(1, true);
    form->findChild<QTabBar*>(QStringLiteral("yearTabs"))->setCurrentIndex(3);
    show("year-imperial");
}

/// Calculates; what the program has to say is printed, since no one is there to read a box.
void WindowTour::calculate(SelectionForm& form) const {
    const auto before = MessageBox::setHandler(
        [](MessageBox::Mark, const QString& text) { std::fprintf(stderr, "%s\n", qPrintable(text)); });
    form.lnkCalculate_Click();
    MessageBox::setHandler(before);
}

/// Selects the last compressor with warnings.
void WindowTour::selectWarning() const {
    auto* view = form_->findChild<ResultsView*>(QStringLiteral("lvCps"));
    for (int row = 0; row < view->rowCount(); ++row)
        if (view->mark(row) == mark::withWarnings) view->selectRow(row);
}

}  // namespace marvello::scenes
