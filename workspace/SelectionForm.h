#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "inputs/SelectionInputs.h"
#include "reports/ReportContent.h"
#include "workspace/FormState.h"
#include "workspace/SelectionRun.h"

namespace marvello {

class EmptyPage;
class InputFields;
class InputPanel;
class InputSummary;
class InputsFold;
class ResultsPane;
class Splitter;
class frmpG;

/// A selection form: the inputs on the left, and next to them what to do next or the results of the last
/// calculation. Its kind tells the fixed-speed form from that of inverter compressors.
class SelectionForm : public QWidget {
    Q_OBJECT

  public:
    ~SelectionForm() override;

    QString Key() const { return key_; }
    /// Also sets the window's title.
    void setKey(const QString& key);
    QString Description() const { return description_; }
    void setDescription(const QString& description);
    /// 0 for a form of fixed-speed compressors, 1 for one of inverter compressors.
    int TypeForm() const { return kind_.typeForm; }

    // What the main window asks of a form, by these names.
    void Traduci();
    void populateLVCPS(int groupBy);
    void PopulateFrame4();
    /// Shows the form in a system of units, 0 metric and 1 imperial: inputs are converted for display and
    /// keep the value that was entered. With `refresh` the results are listed anew.
    void MeasureUnits(int unit, bool refresh);
    int MeasureUnit() const { return static_cast<int>(inputs_.units()); }
    void CloseFrame(bool collapse);
    /// Carries out a command by its key: "messages" selects the page of that name, "copytoclipboard" copies.
    void MnuPopUp(const QString& name);
    /// Copies the selected compressors of the list with their values, separated by tabs.
    void CopyToClipBoard();
    /// Ask for a file and write the compressors of the list with their values, or their performance
    /// polynomials.
    void ExportCPS();
    void ExportPolynomials();
    /// Prints the report of the selected compressor, or shows it in its window.
    void PrintReport(bool preview);
    void Quit();

    /// Starts a calculation, as the button and F5 do.
    void lnkCalculate_Click();
    /// Turns of the mouse wheel over the field in use. False when the pointer is elsewhere.
    bool WheelMoved(int step);

    /// What the next form of this kind starts with.
    FormState state() const;
    /// Takes over the inputs of another form, in its own system of units, as far as the catalogue offers
    /// them.
    void takeOver(const FormState& state);

    bool hasResults() const;
    ResultsPane& results() const { return *results_; }
    /// The choice of the inputs, as "R134A · TK-A", with the frequency of an inverter behind it.
    QString subject() const;
    bool isCollapsed() const;
    /// To be kept between starts.
    struct Sizes {
        int panelWidth;  ///< of the inputs
        int listHeight;
    };
    Sizes sizes() const;
    void setSizes(const Sizes& sizes);

  signals:
    /// What the main window shows of the form has changed.
    void stateChanged();
    /// The user moved a splitter.
    void sizesChanged();
    /// Help was asked for where no field has any.
    void guideRequested();
    /// A file was written; `note` says what it holds and where it is.
    void exported(const QString& note);

  protected:
    SelectionForm(const SelectionKind& kind, QWidget* parent);

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void makePanes();
    void connectPanes();
    void Calculate();
    void closesplitter34(const QString& editedField = QString());

    const SelectionKind& kind_;
    QString key_;
    QString description_;
    SelectionInputs inputs_;
    SelectionRun run_;
    FormState defaults_;

    Splitter* Splitter1_;
    InputPanel* panel_;
    InputFields* fields_;
    InputSummary* summary_;
    InputsFold* fold_;
    EmptyPage* frame2_;
    ResultsPane* results_;
    std::unique_ptr<frmpG> progress_;
};

}  // namespace marvello
