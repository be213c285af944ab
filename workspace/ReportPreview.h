#pragma once

#include <QDialog>
#include <QPrinter>
#include <functional>
#include <vector>

#include "reports/ReportContent.h"

class QPrintPreviewWidget;
class QToolBar;

namespace marvello {

/// Prints a report; a box says that a printer takes none.
void printOrSay(QPrinter& printer, const ReportContent& report, QWidget* parent);

/// Shows a report as it will be on paper, and prints it or saves it as a PDF file from there.
class ReportPreview : public QDialog {
    Q_OBJECT

  public:
    ReportPreview(const ReportContent& report, QWidget* parent);

    /// Offers the sections behind the first page under a name; they are made when they are first asked for.
    void offerSections(const QString& name, const std::function<std::vector<ReportSection>()>& make);

    /// The name that a file of this report is offered under.
    QString suggestedName() const;

  private:
    QAction* command(const char* name, const char* key, const char* iconName, const QKeySequence& keys);
    void makeToolBar();
    void showAllPages();
    void print();
    void setUpPage();
    void save();

    ReportContent report_;
    QPrinter printer_;
    QToolBar* bar_;
    QPrintPreviewWidget* pages_;
};

}  // namespace marvello
