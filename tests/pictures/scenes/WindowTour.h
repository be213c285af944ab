#pragma once

#include <QString>
#include <functional>

#include "reports/ReportContent.h"

class QWidget;

namespace marvello {
class MDIMain;
class SelectionForm;
}  // namespace marvello

namespace marvello::scenes {

/// Leads the real windows through a demonstration selection and hands on what there is to see. The
/// application folder, its catalogue, the language and the look are those of the program.
class WindowTour {
  public:
    /// Takes a window by its name; `part` is what this step is about, the window itself or something in it.
    using Picture = std::function<void(const QString& name, QWidget& window, QWidget& part)>;
    using Report = std::function<void(const QString& name, const ReportContent& report)>;

    WindowTour(MDIMain& window, QString refrigerant, QString series, Picture picture, Report report);

    void run();

  private:
    void show(const char* name) const;
    void show(const char* name, QWidget& window) const;
    void show(const char* name, const QWidget& form, const char* part) const;
    void showDialog(const char* command, const char* name, int tab = 0) const;
    void showReport(SelectionForm& form, const char* name) const;

    void showDialogs() const;
    void showInputs();
    void showPages() const;
    void showMap() const;
    void showWarnings() const;
    void showOtherInputs() const;
    void showForms() const;
    void showFind() const;
    void showComparison() const;
    void showYear() const;

    void calculate(SelectionForm& form) const;
    void selectWarning() const;

    MDIMain& window_;
    QString refrigerant_;
    QString series_;
    Picture picture_;
    Report report_;
    SelectionForm* form_ = nullptr;
};

}  // namespace marvello::scenes
