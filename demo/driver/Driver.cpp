#include "demo/driver/Driver.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <iomanip>
#include <iostream>
#include <optional>
#include <utility>
#include <vector>

#include "controls/AdvanceText.h"
#include "controls/Marks.h"
#include "controls/ResultsView.h"
#include "data/Texts.h"
#include "reports/ReportOutput.h"
#include "workspace/MDIMain.h"
#include "workspace/ResultMarks.h"
#include "workspace/ResultsPane.h"
#include "workspace/SelectionForm.h"

namespace marvello {

namespace {

constexpr int interval = 100;          // ms between two looks at the program
constexpr qint64 longestRun = 120000;  // ms

/// Replaces what stands in a field, key by key.
void type(const QWidget& form, const char* field, const QString& text) {
    auto* const input = form.findChild<AdvanceText*>(QLatin1String(field));
    auto* const box = input ? input->findChild<QLineEdit*>() : nullptr;
    if (!box) return;
    box->setFocus(Qt::TabFocusReason);  // selects the whole text
    QTest::keyClicks(box, text);
    QTest::keyClick(box, Qt::Key_Return);
}

/// The list as a table of text: a mark, the label and the values, a group on a line of its own.
void print(const ResultsView& list) {
    const QStringList headers = list.columnTexts().replaceInStrings(QStringLiteral("()"), QString());
    std::vector<std::size_t> widths;
    for (int column = 0; column < headers.size(); ++column) {
        widths.push_back(letterCount(headers[column].toStdString()));
        for (int row = 0; row < list.rowCount(); ++row)
            widths.back() = std::max(widths.back(), letterCount(list.text(row, column).toStdString()));
    }
    std::size_t markWidth = 0;
    for (const QString& mark : mark::withText)
        markWidth = std::max(markWidth, letterCount(markText(mark).toStdString()));
    const auto printLine = [&](const std::string& mark, const auto& textOf) {
        std::cout << padded(mark, markWidth, false);
        for (int column = 0; column < headers.size(); ++column)
            std::cout << "  " << padded(textOf(column), widths[static_cast<std::size_t>(column)], column > 0);
        std::cout << '\n';
    };
    printLine("", [&](int column) { return headers[column].toStdString(); });
    for (int row = 0; row < list.rowCount(); ++row)
        printLine(list.isGroup(row) ? "" : markText(list.mark(row)).toStdString(),
                  [&](int column) { return list.text(row, column).toStdString(); });
}

}  // namespace

Driver::Driver(QString pictureFile, QString reportFile)
    : pictureFile_(std::move(pictureFile)), reportFile_(std::move(reportFile)) {
    elapsed_.start();
    connect(&timer_, &QTimer::timeout, this, &Driver::step);
    timer_.start(interval);
}

void Driver::step() {
    if (elapsed_.elapsed() > longestRun) {
        fail(QStringLiteral("The demonstration did not come to its end in time."));
        return;
    }
    switch (stage_) {
        case Stage::awaitWindow:
            if (findForm()) stage_ = Stage::typeConditions;
            return;
        case Stage::typeConditions:
            stage_ = Stage::calculating;  // before the keys: the run gives this timer turns
            typeConditions();
            stage_ = Stage::finish;
            return;
        case Stage::calculating:
            return;
        case Stage::finish:
            finish();
            return;
    }
}

bool Driver::findForm() {
    for (auto* const widget : QApplication::topLevelWidgets())
        if (auto* const window = qobject_cast<MDIMain*>(widget); window && window->isVisible())
            window_ = window;
    // The start menu: its first choice is a form of fixed-speed compressors.
    if (QWidget* menu = QApplication::activeModalWidget(); menu && menu->objectName() == u"frmMenu")
        QTest::keyClick(menu, Qt::Key_Return);
    form_ = window_ ? qobject_cast<SelectionForm*>(window_->ActiveForm()) : nullptr;
    if (!form_) return false;
    // Only an active window takes keys; a screen without a window manager activates none by itself.
    if (!window_->isActiveWindow()) window_->activateWindow();
    return window_->isActiveWindow();
}

void Driver::typeConditions() {
    type(*form_, "txtTED", QStringLiteral("0"));
    type(*form_, "txtTCD", QStringLiteral("45"));
    type(*form_, "txtSH", QStringLiteral("8"));
    QTest::keyClick(form_, Qt::Key_F5);
}

void Driver::finish() {
    timer_.stop();
    const auto* const list = form_->findChild<ResultsView*>(QStringLiteral("lvCps"));
    if (!list || list->rowCount() == 0) {
        fail(QStringLiteral("The results list is empty."));
        return;
    }
    for (int row = 0; row < list->rowCount() && !form_->results().canPrint(); ++row)
        form_->results().moveSelection(1);
    QApplication::processEvents();
    print(*list);
    if (!window_->grab().save(pictureFile_)) {
        fail(QStringLiteral("The picture %1 cannot be written.").arg(pictureFile_));
        return;
    }
    std::cout << "Picture of the window: " << pictureFile_.toStdString() << '\n';
    const std::optional<ReportContent> report = form_->results().report();
    if (!report) {
        fail(QStringLiteral("There is no report to print."));
        return;
    }
    if (const QString fault = saveReport(reportFile_, reportLayout(), *report); !fault.isEmpty()) {
        fail(QStringLiteral("The report %1 cannot be written: %2").arg(reportFile_, fault));
        return;
    }
    std::cout << "Printed report: " << reportFile_.toStdString() << '\n';
    done_ = true;
    window_->close();
}

void Driver::fail(const QString& reason) {
    timer_.stop();
    std::cerr << reason.toStdString() << '\n';
    QCoreApplication::exit(1);
}

}  // namespace marvello
