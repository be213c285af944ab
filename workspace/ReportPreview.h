#pragma once

#include <QDialog>
#include <QPrinter>
#include <vector>

#include "reports/ReportContent.h"
#include "workspace/ReportSections.h"

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

    /// Offers sections behind the first page, each with a switch; those of the keys are on. What the user
    /// switches is remembered for the next report.
    void offerSections(const std::vector<OfferedSection>& offered, const QStringList& chosen);

    /// The name that a file of this report is offered under.
    QString suggestedName() const;

  private:
    QAction* command(const char* name, const char* key, const char* iconName, const QKeySequence& keys);
    void makeToolBar();
    void takeSections();
    void showAllPages();
    void print();
    void setUpPage();
    void save();

    ReportContent report_;
    std::vector<OfferedSection> offered_;
    QStringList chosen_;  ///< keys of sections
    QPrinter printer_;
    QToolBar* bar_;
    QPrintPreviewWidget* pages_;
};

}  // namespace marvello
