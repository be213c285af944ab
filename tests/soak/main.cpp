// marvello-soak: acts on the program's windows as a person without a plan, for as long as one likes. All that
// is random comes from the seed and is told before it is done. Exit status 1 at the first thing that does not
// hold: a box that no one expects, a list that does not belong to its inputs, a damaged file, forms too many
// or too few.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QXmlStreamReader>
#include <csignal>
#include <fstream>
#include <iostream>
#include <numeric>
#include <random>

#include "app/Application.h"
#include "app/InstallHooks.h"
#include "controls/AdvanceText.h"
#include "controls/FilterChip.h"
#include "controls/Link.h"
#include "controls/ResultsView.h"
#include "controls/TabStrip.h"
#include "controls/ctlBtn.h"
#include "controls/ctlCombo.h"
#include "controls/ctlGraph.h"
#include "data/Session.h"
#include "reports/ReportOutput.h"
#include "tests/gui/RealWindow.h"
#include "workspace/ResultsPane.h"
#include "workspace/SelectionForm.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmFind.h"
#include "workspace/frmYear.h"

namespace marvello {

namespace {

void demand(bool holds, const QString& otherwise) {
    if (!holds) throw std::runtime_error(otherwise.toStdString());
}

/// The compressors of a list with all that is shown of them, in an order that no grouping changes.
QStringList compressorsOf(const ResultsView& list) {
    QStringList rows;
    for (int row = 0; row < list.rowCount(); ++row)
        if (!list.isGroup(row)) rows += list.key(row) + list.mark(row) + list.rowTexts(row).mid(1).join(u';');
    rows.sort();
    return rows;
}

class Soak {
  public:
    explicit Soak(unsigned seed) : real_("en-EN"), random_(seed) {
        installHooks(real_.session.hooks);
        QObject::connect(&person_, &QTimer::timeout, [this] { answerDialogs(); });
        person_.start(0);
        openForm();
    }

    /// One random action, and what has to hold after it.
    void step() {
        int at = random(std::accumulate(std::begin(actions), std::end(actions), 0,
                                        [](int sum, const Action& each) { return sum + each.weight; }));
        const Action* action = actions;
        for (; at >= action->weight; ++action) at -= action->weight;
        if (!form()) action = &actions[0];
        real_.boxes.clear();
        say(action->name);
        if (!real_.window->isActiveWindow())
            real_.window->activateWindow();  // no window manager does it here
        (this->*action->act)();
        while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        check(*action);
    }

  private:
    struct Action {
        const char* name;
        int weight;
        bool isRun;  ///< starts a calculation
        void (Soak::*act)();
    };
    static constexpr int most = 6;  ///< forms
    static const Action actions[23];

    int random(qsizetype below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
    template <class List>
    auto oneOf(const List& list) {
        return list[static_cast<decltype(std::size(list))>(random(static_cast<int>(std::size(list))))];
    }
    static void say(const QString& text) { std::cout << ' ' << text.toStdString() << std::flush; }
    InputForm* form() const { return qobject_cast<InputForm*>(real_.window->ActiveForm()); }
    frmFind* search() const { return qobject_cast<frmFind*>(form()); }
    /// Lets a search end, which goes on in a thread of its own.
    void settle() const {
        while (search() && search()->isSearching())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    static ResultsView& listOf(const InputForm& form) { return *form.findChild<ResultsView*>("lvCps"); }
    void trigger(const char* command) {
        say(command);
        real_.window->findChild<QAction*>(QLatin1String(command))->trigger();
    }

    void check(const Action& action) {
        for (const QString& box : real_.boxes) {
            // A field that is left says what is wrong with it, whatever the action that left it.
            const QStringList ofFields{
                "Error. Only Numeric value",
                "SuperHeat value out of range. The default value has been set instead."};
            const QStringList ofRuns{dictionaryText("messages.message22"), "Undefined"};
            // Behind this beginning is the range of the refrigerant.
            const bool isRefused =
                box.startsWith(dictionaryText("frmselection.nosaturation").section(u'{', 0, 0));
            // The fields of a year have limits.
            const bool isLimit = box.startsWith("Error...\nValue (Min=") && action.act == &Soak::workYear;
            demand(ofFields.contains(box) || isLimit ||
                       (action.isRun && (isRefused || ofRuns.contains(box))) || action.act == &Soak::dialogs,
                   "An unexpected box: " + box);
        }
        demand(!QApplication::activeModalWidget(), "A dialog was left open.");
        const auto forms = real_.window->forms();
        demand(forms.size() == forms_,
               QString("There are %1 forms and not %2.").arg(forms.size()).arg(forms_));
        for (const Form* open : forms) {
            const auto* each = qobject_cast<const InputForm*>(open);
            const bool isShown = each->hasResults();
            if (const auto* search = qobject_cast<const frmFind*>(each)) {
                demand(!isShown || !search->isSearching(), "Solutions of other inputs look valid.");
                continue;
            }
            demand(isShown == (listOf(*each).rowCount() > 0),
                   "An empty list is shown, or one is kept where none is shown.");
            demand(isShown != each->findChild<QWidget*>("frame2")->isVisibleTo(each),
                   "List and invitation do not take turns.");
            demand(each->results().canCopy() || !each->results().canPrint(),
                   "What can be printed cannot be copied.");
        }
        if (!form() || !form()->hasResults() || search()) return;
        const auto rows = QString::number(compressorsOf(listOf(*form())).size());
        demand(real_.window->findChild<QLabel*>("statusCounts")->text().contains(rows),
               "The status line miscounts.");
    }

    // Whatever dialog stands open is answered as the action wants it, or closed.
    void answerDialogs() {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) return;
        auto* const files = qobject_cast<QFileDialog*>(dialog);
        if (dialog->objectName() == "frmpG") {
            if (turnsToAbort_ >= 0 && turnsToAbort_-- == 0)
                QTest::mouseClick(dialog->findChild<ctlBtn*>(), Qt::LeftButton);
        } else if (files && !file_.isEmpty()) {
            files->selectNameFilter(files->nameFilters().at(file_.endsWith("csv") ? 1 : 0));
            files->findChild<QLineEdit*>("fileNameEdit")->setText(file_);
            file_.clear();
            files->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
        } else {
            QTest::keyClick(dialog, Qt::Key_Escape);
        }
    }

    AdvanceText* randomField(bool locked) { return randomField(locked, *form()); }
    AdvanceText* randomField(bool locked, const Form& of) {
        QList<AdvanceText*> fields = of.findChildren<AdvanceText*>();
        fields.removeIf([&](const AdvanceText* field) {
            return field->Locked() != locked || !field->isVisible() || !field->isEnabled();
        });
        if (fields.isEmpty()) return nullptr;
        AdvanceText* field = oneOf(fields);
        say(field->objectName());
        return field;
    }

    void type() { typeIn(randomField(false)); }
    void typeIn(AdvanceText* field) {
        static const QStringList texts =
            QString(
                "|-|1e300|-1e300|0|-273.15|1,5|1.5|1.2.3|\u22125|123456|abc|nan|1e-320|+3|  7 |"
                "\u516D\u5341|\u0661\u0662")
                .split('|');
        static constexpr Qt::Key ends[]{Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Escape};
        if (!field) return;
        const QString text =
            random(8) == 0 ? oneOf(texts)
                           : QString::number(field->number() + (random(81) - 40) / 10.0, 'f', random(3));
        const Qt::Key end = oneOf(ends);
        say('"' + text + "\" " + QString::number(end, 16));
        auto* edit = field->findChild<QLineEdit*>();
        edit->setFocus(Qt::TabFocusReason);
        for (const QChar sign : text)
            QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString(sign), {});
        if (text.isEmpty()) QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClick(edit, end);
    }

    // Opens the list with a key and chooses a row, or several, or none.
    void chooseIn(AdvanceText* field) {
        if (!field || !field->isEnabled()) return;
        QTest::keyClick(field->findChild<QLineEdit*>(), Qt::Key_Down);
        auto* combo = qobject_cast<ctlCombo*>(QApplication::activePopupWidget());
        auto* rows = combo ? combo->findChild<QListWidget*>() : nullptr;
        if (!rows || rows->count() == 0) return;
        for (int i = random(3); i >= 0; --i) {
            rows->setCurrentRow(random(rows->count()));
            say(QString::number(rows->currentRow()));
            if (i > 0) QTest::keyClick(rows, Qt::Key_Space);
            if (QApplication::activePopupWidget() != combo) return;
        }
        QTest::keyClick(rows, random(6) == 0 ? Qt::Key_Escape : Qt::Key_Return);
    }

    // A list that is shown belongs to the inputs next to it: calculated once more, it is the same.
    void calculate() {
        settle();
        const bool wasShown = form()->hasResults();
        const QStringList before = compressorsOf(listOf(*form()));
        QTest::keyClick(form(), Qt::Key_F5);
        settle();
        if (!form()->hasResults() && random(3) != 0) {  // inputs that nothing comes of
            form()->findChild<Link*>("lnkDefaults")->click();
            QTest::keyClick(form(), Qt::Key_F5);
            settle();
        }
        const QStringList after = compressorsOf(listOf(*form()));
        say(QString::number(after.size()));
        if (!wasShown || !real_.boxes.isEmpty()) return;
        demand(before.size() == after.size(), QString("The list was stale: it had %1 compressors, now %2.")
                                                  .arg(before.size())
                                                  .arg(after.size()));
        for (qsizetype row = 0; row < before.size(); ++row)
            demand(before[row] == after[row], "The list was stale: " + before[row] + " is now " + after[row]);
    }

    void abortRun() {
        turnsToAbort_ = random(60);
        QTest::keyClick(form(), Qt::Key_F5);
        turnsToAbort_ = -1;
        say(QString::number(compressorsOf(listOf(*form())).size()));
    }

    void switchLanguage() {
        QAction* item = oneOf(real_.window->findChildren<QAction*>("mnu_tools_language_items"));
        say(item->data().toString());
        item->trigger();
    }
    void choose() { chooseIn(randomField(true)); }
    void switchUnits() { chooseIn(real_.window->findChild<AdvanceText*>("cmbmeasureunits")); }
    void group() { chooseIn(real_.window->findChild<AdvanceText*>("cmbGroupBy")); }

    void copy() {
        QApplication::clipboard()->setText("before");
        bool can = form()->results().canCopy();
        auto* const polynomials = form()->findChild<ctlBtn*>("ctlCopyPolynomials");
        if (random(2) == 0) {
            trigger("mnu_tools_copytoclipboard");
        } else {
            // In a frame that is very low there is no room for it.
            can = !polynomials->visibleRegion().isEmpty() && polynomials->isEnabled();
            if (can) QTest::mouseClick(polynomials, Qt::LeftButton);
        }
        demand(can == QApplication::clipboard()->mimeData()->hasHtml(),
               "The copy is not there, or of nothing.");
    }

    void exportList() {
        if (!form()->hasResults()) return;
        // A name that is there already leads to a question, which is answered with no.
        const QString name =
            folder_.filePath(QString("export %1.").arg(random(500))) + (random(2) == 0 ? "csv" : "xml");
        file_ = name;
        trigger(search() || random(2) == 0 ? "mnu_tools_export_cps" : "mnu_tools_export_polynomials");
        demandWhole(name);
    }

    void saveReportFile() {
        const auto* selection = qobject_cast<SelectionForm*>(form());
        if (!selection || !selection->results().canPrint()) return;
        const QString file = folder_.filePath("report.pdf");
        demand(saveReport(file, reportLayout(), *selection->results().report()).isEmpty(),
               "The report cannot be saved.");
        demandWhole(file);
    }

    static void demandWhole(const QString& path) {
        QFile file(path);
        demand(file.open(QIODevice::ReadOnly) && file.size() > 0, "There is no " + path);
        QXmlStreamReader reader(&file);
        while (path.endsWith("xml") && !reader.atEnd()) reader.readNext();
        demand(!reader.hasError(), path + " is damaged: " + reader.errorString());
    }

    void printDialogs() { trigger(random(2) == 0 ? "mnu_file_printpreview" : "mnu_file_print"); }

    void dialogs() {
        static constexpr const char* commands[]{"mnu_help_About", "mnu_help_Builds",
                                                "mnu_file_new_selection"};
        if (random(4) != 0) return trigger(oneOf(commands));
        QTest::keyClick(form(), Qt::Key_F1);
    }

    void resize() { real_.window->resize(400 + random(2200), 300 + random(1300)); }

    void arrange() {
        static constexpr const char* commands[]{"mnu_Window_Cascade", "mnu_Window_TileHorizontal",
                                                "mnu_Window_TileVertical", "mnu_Window_ArrangeIcons",
                                                "frameresize"};
        if (random(3) != 0) return trigger(oneOf(commands));
        static constexpr void (QWidget::* ways[])(){&QWidget::showMinimized, &QWidget::showMaximized,
                                                    &QWidget::showNormal};
        (form()->parentWidget()->*oneOf(ways))();
    }

    void openForm() {
        if (forms_ == most) return changeForm();
        ++forms_;
        switch (random(4)) {
            case 0:
                real_.window->newInverterSelection();
                break;
            case 1:
                real_.window->newFind();
                break;
            default:
                real_.window->newSelection();
        }
    }

    void closeForm() {
        const bool isAll = random(8) == 0;
        for (const Form* open : real_.window->forms()) {
            const auto* each = qobject_cast<const InputForm*>(open);
            // Closing all leaves the forms of inverters.
            forms_ -= isAll ? !each->kind().hasInverter : each == form();
        }
        trigger(isAll ? "mnu_file_closeall" : "mnu_file_close");
    }

    void changeTab(QWidget* of) { changeTabOf(*of->findChild<TabStrip*>("TabStrip")); }
    void changeTabOf(TabStrip& tabs) { tabs.setCurrentIndex(random(tabs.count())); }
    void changeForm() { changeTab(real_.window.get()); }
    void changePage() { changeTab(form()); }

    void selectRows() {
        static constexpr Qt::Key keys[]{Qt::Key_Up,  Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Home,
                                        Qt::Key_End, Qt::Key_A,    Qt::Key_Left,     Qt::Key_Menu};
        if (!form()->hasResults()) return;
        ResultsView& list = listOf(*form());
        if (list.rowCount() == 0) return;  // all filtered
        if (random(3) == 0) list.selectRow(random(list.rowCount()));
        QTest::keyClick(&list, oneOf(keys), random(4) == 0 ? Qt::ShiftModifier : Qt::ControlModifier);
        if (random(4) == 0) emit list.customContextMenuRequested(QPoint(20, 40));
        if (random(4) == 0) trigger(random(2) == 0 ? "frecciaup" : "frecciadown");
    }

    // Filters, another order, and a solution that is opened; some while the search goes on.
    void workSolutions() {
        if (!search()) return;
        if (random(2) == 0) settle();
        oneOf(form()->findChildren<FilterChip*>())->click();
        ResultsView& list = listOf(*form());
        if (!list.columnKeys().isEmpty()) emit list.headingClicked(oneOf(list.columnKeys()));
        if (random(3) != 0 || forms_ >= most || !form()->hasResults() || list.rowCount() == 0) return;
        list.selectRow(random(list.rowCount()));
        QTest::keyClick(&list, Qt::Key_Return);
        ++forms_;
    }

    // A year is opened, worked with and closed; what it shows belongs to its inputs.
    void workYear() {
        static const QStringList plants{
            "TK-A-120 R134A", "TK-A-120x2; TK-D-140", "TK-D-255 \u00B7 R513A", "TK-A-999", ";x2",
            "TK-A-120x9"};
        frmYear* const year = real_.window->newYear();
        auto* const bins = year->findChild<QTableView*>("binTable");
        for (int i = 10 + random(20); i > 0; --i) {
            switch (random(8)) {
                case 0: {
                    auto* edit = year->findChild<AdvanceText*>(QString("txtPlant%1").arg(1 + random(2)))
                                     ->findChild<QLineEdit*>();
                    edit->selectAll();
                    QTest::keyClicks(edit, oneOf(plants));
                    break;
                }
                case 1:
                    chooseIn(randomField(true, *year));
                    break;
                case 2:
                    workBins(*bins);
                    break;
                case 3:
                    year->MeasureUnits(random(2), true);
                    break;
                case 4:
                    oneOf(real_.window->findChildren<QAction*>("mnu_tools_language_items"))->trigger();
                    break;
                case 5:
                    changeTabOf(*year->findChild<TabStrip*>("yearTabs"));
                    year->CopyToClipBoard();
                    break;
                default:
                    typeIn(randomField(false, *year));
            }
            while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
            if (random(2) == 0) settleYear(*year);
        }
        settleYear(*year);
        demand(year->hasResults() != year->findChild<QWidget*>("yearEmpty")->isVisibleTo(year),
               "Figures and invitation do not take turns.");
        const ComparisonTable before = year->table().figures;
        year->recalculate();
        settleYear(*year);
        demand(!year->hasResults() ||
                   before.groups.front().rows.size() == year->table().figures.groups.front().rows.size(),
               "The figures were stale.");
        year->Quit();
    }

    static void settleYear(const frmYear& year) {
        while (year.isCalculating()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QApplication::processEvents();
    }

    void workBins(QTableView& bins) {
        static constexpr Qt::Key keys[]{Qt::Key_Delete, Qt::Key_Insert,   Qt::Key_F2,
                                        Qt::Key_Down,   Qt::Key_PageDown, Qt::Key_Home};
        static const QStringList clips{"1\t2\t3\n4\t5\t6\n", "x", "-5;100;50", "\t\t\t"};
        const int row = random(bins.model()->rowCount());
        bins.setCurrentIndex(bins.model()->index(row, random(bins.model()->columnCount())));
        if (random(3) == 0) {
            QApplication::clipboard()->setText(oneOf(clips));
            QTest::keyClick(&bins, Qt::Key_V, Qt::ControlModifier);
        }
        QTest::keyClick(&bins, oneOf(keys));
        if (random(2) != 0) return;
        QTest::keyClicks(&bins, QString::number(random(200) - 50));
        if (auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
            QTest::keyClick(editor, random(2) == 0 ? Qt::Key_Tab : Qt::Key_Return);
    }

    void hoverGraph() {
        if (!form()->hasResults()) return;
        form()->MnuPopUp("limits");
        auto* graph = form()->findChild<ctlGraph*>();
        for (int i = 0; i < 10 && !graph->size().isEmpty(); ++i)
            QTest::mouseMove(graph, QPoint(random(graph->width()), random(graph->height())));
    }

    void wheelAndDefaults() {
        if (random(4) == 0) return form()->findChild<Link*>("lnkDefaults")->click();
        AdvanceText* field = randomField(false);
        if (!field) return;
        auto* edit = field->findChild<QLineEdit*>();
        edit->setFocus(Qt::OtherFocusReason);
        field->setAttribute(Qt::WA_UnderMouse);
        QWheelEvent wheel({5, 5}, edit->mapToGlobal(QPoint(5, 5)), {}, QPoint(0, (random(11) - 5) * 60),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(edit, &wheel);
    }

    testing::RealWindow real_;
    QTemporaryDir folder_;
    std::mt19937 random_;
    QTimer person_;
    int forms_ = 0;
    int turnsToAbort_ = -1;
    QString file_;  ///< what the next file dialog is answered with; it is cancelled when blank
};

const Soak::Action Soak::actions[23]{
    {"open form", 4, false, &Soak::openForm},
    {"type", 24, false, &Soak::type},
    {"choose", 22, false, &Soak::choose},
    {"calculate", 16, true, &Soak::calculate},
    {"abort", 4, true, &Soak::abortRun},
    {"language", 4, false, &Soak::switchLanguage},
    {"units", 6, false, &Soak::switchUnits},
    {"group", 4, false, &Soak::group},
    {"copy", 5, false, &Soak::copy},
    {"export", 5, false, &Soak::exportList},
    {"save report", 3, false, &Soak::saveReportFile},
    {"print dialogs", 2, false, &Soak::printDialogs},
    {"dialogs", 4, false, &Soak::dialogs},
    {"resize", 5, false, &Soak::resize},
    {"arrange", 6, false, &Soak::arrange},
    {"close form", 3, false, &Soak::closeForm},
    {"change form", 5, false, &Soak::changeForm},
    {"change page", 10, false, &Soak::changePage},
    {"select rows", 10, false, &Soak::selectRows},
    {"work solutions", 10, true, &Soak::workSolutions},
    {"work a year", 3, false, &Soak::workYear},
    {"hover graph", 5, false, &Soak::hoverGraph},
    {"wheel, defaults", 8, false, &Soak::wheelAndDefaults},
};

/// A line of the process's state, such as "VmRSS", in MB.
int megabytes(const std::string& name) {
    std::ifstream state("/proc/self/status");
    for (std::string line; std::getline(state, line);)
        if (line.starts_with(name + ":")) return std::stoi(line.substr(name.size() + 1)) / 1024;
    return 0;
}

extern "C" void tooLong(int) {
    constexpr char message[] = "\nThe window does not answer any more.\n";
    (void)!write(STDERR_FILENO, message, sizeof message - 1);
    std::abort();  // leaves the stack
}

int soak(unsigned seed, int actions) {
    constexpr unsigned limit = 60;  // seconds; a run under the sanitizers on a busy machine takes a tenth
    int done = 0;
    try {
        Soak soak(seed);
        for (; done < actions; ++done) {
            std::cout << '\n' << done << ':';
            alarm(limit);
            soak.step();
            if ((done + 1) % 500 == 0)
                std::cout << "\n" << done + 1 << " actions: " << megabytes("VmRSS") << " MB";
        }
        alarm(0);
    } catch (const std::exception& finding) {
        std::cerr << "\nSeed " << seed << ", action " << done << ": " << finding.what() << '\n';
        return 1;
    }
    std::cout << done << " actions with seed " << seed << ", " << megabytes("VmHWM") << " MB at most\n";
    return 0;
}

}  // namespace

}  // namespace marvello

int main(int argc, char** argv) {
    unsigned seed = 1;
    int actions = 2000;
    CLI::App options("Acts at random on the windows of Marvello.", "marvello-soak");
    options.add_option("--seed", seed, "What the actions follow from (1)");
    options.add_option("--actions", actions, "How many (2000)");
    CLI11_PARSE(options, argc, argv);

    qputenv("QT_QPA_PLATFORM", "offscreen");
    marvello::Application application(argc, argv);
    std::signal(SIGALRM, marvello::tooLong);
    return marvello::soak(seed, actions);
}
