#include "workspace/ReportPreview.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QRegularExpression>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/MessageBox.h"
#include "reports/ReportOutput.h"
#include "workspace/SelectionReport.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"

namespace marvello {

void printOrSay(QPrinter& printer, const ReportContent& report, QWidget* parent) {
    if (!printReport(printer, report))
        MessageBox::show(parent, MessageBox::Mark::critical,
                         dictionaryText(QStringLiteral("report.notprinted")));
}

ReportPreview::ReportPreview(const ReportContent& report, QWidget* parent)
    : QDialog(parent),
      report_(report),
      printer_(QPrinter::HighResolution),
      bar_(new QToolBar(this)),
      pages_(new QPrintPreviewWidget(&printer_, this)) {
    setObjectName(QStringLiteral("ReportPreview"));
    setWindowTitle(withoutAccessKey(dictionaryText(QStringLiteral("mdimain.menu.file.printpreview"))) +
                   QStringLiteral(" \u2013 ") + report.model);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    printer_.setPageLayout(reportLayout());
    printer_.setFullPage(true);
    printer_.setDocName(report.model);
    connect(pages_, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { printReport(*printer, report_); });
    if (const auto* view = pages_->findChild<QGraphicsView*>(); view && view->scene())
        view->scene()->setBackgroundBrush(Look::current().window);
    makeToolBar();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar_);
    column->addWidget(pages_, 1);
    const QSize room = parent ? parent->size() : QSize(1000, 860);
    resize(std::min(1080, room.width() - 40), room.height() - 40);
    pages_->fitInView();
    pages_->setFocus();
    for (QWidget* part : pages_->findChildren<QWidget*>())
        if (part->focusPolicy() != Qt::NoFocus) part->setAccessibleName(windowTitle());
}

QAction* ReportPreview::command(const char* name, const char* key, const char* iconName,
                                const QKeySequence& keys) {
    auto* action = new QAction(this);
    action->setObjectName(QLatin1String(name));
    const QString text = withoutAccessKey(dictionaryText(QLatin1String(key)));
    action->setText(text);
    action->setShortcut(keys);
    if (iconName) action->setIcon(icon(QLatin1String(iconName)));
    const QString shown = keys.toString(QKeySequence::NativeText);
    action->setToolTip(shown.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, shown));
    bar_->addAction(action);
    return action;
}

void ReportPreview::makeToolBar() {
    bar_->setIconSize(QSize(20, 20));
    bar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(command("print", "mdimain.menu.file.print", "print", QKeySequence::Print), &QAction::triggered,
            this, &ReportPreview::print);
    connect(command("savepdf", "report.savepdf.caption", "export", QKeySequence::Save), &QAction::triggered,
            this, &ReportPreview::save);
    connect(command("pagesetup", "report.pagesetup.caption", nullptr, {}), &QAction::triggered, this,
            &ReportPreview::setUpPage);
    bar_->addSeparator();
    connect(command("fitpage", "report.fitpage.caption", nullptr, QKeySequence(Qt::CTRL | Qt::Key_0)),
            &QAction::triggered, pages_, &QPrintPreviewWidget::fitInView);
    connect(command("fitwidth", "report.fitwidth.caption", nullptr, QKeySequence(Qt::CTRL | Qt::Key_1)),
            &QAction::triggered, pages_, &QPrintPreviewWidget::fitToWidth);
    connect(command("zoomin", "report.zoomin.caption", nullptr, QKeySequence::ZoomIn), &QAction::triggered,
            pages_, [this] { pages_->zoomIn(); });
    connect(command("zoomout", "report.zoomout.caption", nullptr, QKeySequence::ZoomOut), &QAction::triggered,
            pages_, [this] { pages_->zoomOut(); });
}

void ReportPreview::offerSections(const std::vector<OfferedSection>& offered, const QStringList& chosen) {
    offered_ = offered;
    chosen_ = chosen;
    QAction* const before = bar_->actions().value(3);  // behind what concerns the paper
    if (!offered_.empty()) bar_->insertSeparator(before);
    for (const OfferedSection& section : offered_) {
        auto* action = new QAction(section.name, this);
        action->setObjectName(section.key);
        action->setCheckable(true);
        action->setChecked(chosen_.contains(section.key));
        bar_->insertAction(before, action);
        connect(action, &QAction::toggled, this, [this, key = section.key](bool isOn) {
            chosen_.removeAll(key);
            if (isOn) chosen_ += key;
            settings::reportSections.keep(chosen_);
            takeSections();
        });
    }
    takeSections();
}

void ReportPreview::takeSections() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    setSections(report_, madeSections(offered_, chosen_));
    QApplication::restoreOverrideCursor();
    pages_->updatePreview();
    showAllPages();
}

// Next to each other; a page alone has the whole room.
void ReportPreview::showAllPages() {
    pages_->setViewMode(report_.sections.empty() ? QPrintPreviewWidget::SinglePageView
                                                 : QPrintPreviewWidget::AllPagesView);
    pages_->fitInView();
}

void ReportPreview::print() {
    QPrintDialog dialog(&printer_, this);
    if (dialog.exec() == QDialog::Accepted) printOrSay(printer_, report_, this);
}

void ReportPreview::setUpPage() {
    if (QPageSetupDialog(&printer_, this).exec() == QDialog::Accepted) pages_->updatePreview();
}

// A name that any file system takes: "MV-A 25-105 R134A.pdf".
QString ReportPreview::suggestedName() const {
    QString name = report_.model;
    for (const ReportLine& line : report_.lines)
        if (!line.isHeading) {  // the first is the refrigerant
            name += u' ' + fromCore(line.value);
            break;
        }
    static const QRegularExpression forbidden(QStringLiteral("[\\\\/:*?\"<>|]"));
    return name.replace(forbidden, QStringLiteral("-")) + QStringLiteral(".pdf");
}

void ReportPreview::save() {
    const QString ending = QStringLiteral(".pdf");
    QFileDialog dialog(this, withoutAccessKey(dictionaryText(QStringLiteral("report.savepdf.caption"))),
                       keptFolder(settings::reportFolder), QStringLiteral("PDF (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(ending.mid(1));
    dialog.selectFile(suggestedName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    const QString file = dialog.selectedFiles().front();
    settings::reportFolder.keep(QFileInfo(file).absolutePath());
    if (const QString fault = saveReport(file, printer_.pageLayout(), report_); !fault.isEmpty())
        MessageBox::show(this, MessageBox::Mark::critical,
                         filled(dictionaryText(QStringLiteral("report.notsaved")),
                                {QDir::toNativeSeparators(file), reasonText(fault)}));
}

}  // namespace marvello
