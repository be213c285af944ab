#pragma once

#include <QWidget>

#include "inputs/SelectionInputs.h"
#include "workspace/FormState.h"

namespace marvello {

class EmptyPage;
class InputFields;
class InputPanel;
class InputSummary;
class InputsFold;
class ListPane;
class Splitter;

/// A form of the work area: inputs on the left, and next to them what to do next or a list with the pages of
/// the selected compressor. Its kind says what it asks; what it does with the inputs is up to the class
/// below.
class InputForm : public QWidget {
    Q_OBJECT

  public:
    ~InputForm() override;

    QString Key() const { return key_; }
    /// Also sets the window's title.
    void setKey(const QString& key);
    QString Description() const { return description_; }
    void setDescription(const QString& description);
    const SelectionKind& kind() const { return kind_; }
    /// 0 for a form of fixed-speed compressors, 1 for one of inverter compressors, 2 for a search.
    int TypeForm() const { return kind_.typeForm; }

    // What the main window asks of a form, by these names.
    virtual void Traduci();
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
    /// Asks for a file and writes the compressors of the list with their values.
    virtual void ExportCPS() = 0;
    /// Prints what the list is about, or shows it in its window.
    void PrintReport(bool preview);
    void Quit();

    /// Starts a calculation, as the button and F5 do.
    void lnkCalculate_Click();
    /// Turns of the mouse wheel over the field in use. False when the pointer is elsewhere.
    bool WheelMoved(int step);

    /// What the next form of this kind starts with.
    virtual FormState state() const;
    /// Takes over what a form of this kind left.
    virtual void takeOver(const FormState& state);
    /// Takes over the inputs of another form of any kind, in its own system of units, as far as the catalogue
    /// offers them.
    virtual void takeOverInputs(const InputState& inputs);

    /// True with a list that belongs to the inputs.
    virtual bool hasResults() const;
    /// The list with its pages.
    virtual ListPane& results() const = 0;
    /// The choice of the inputs in a few words.
    virtual QString subject() const = 0;
    /// What the results come to, for the status bar; asked with counts only.
    virtual QString counts() const = 0;
    /// Whether there is something to count; nothing found is something too.
    virtual bool hasCounts() const { return hasResults(); }
    bool isCollapsed() const;
    /// To be kept between starts.
    struct Sizes {
        int panelWidth;                   ///< of the inputs
        QHash<QString, int> listHeights;  ///< by the pages below the list, those that the user chose
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
    InputForm(const SelectionKind& kind, QWidget* parent);

    /// To be called once by the constructor of the form, with its list.
    void setUp(ListPane& results);
    /// True during a calculation that cannot begin anew.
    virtual bool isBusy() const { return false; }
    /// Calculates with inputs that were checked.
    virtual void calculate() = 0;
    /// An input was changed in the field of this caption.
    virtual void edited(const QString& caption) = 0;
    /// Puts the list, or what to do next, in its place next to the inputs.
    void showResults(bool show);
    /// Applies a parameter set to the form.
    void applySet(const char* key);

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    const SelectionKind& kind_;
    SelectionInputs inputs_;
    FormState defaults_;

    Splitter* Splitter1_;
    InputPanel* panel_;
    InputFields* fields_;
    InputSummary* summary_;
    InputsFold* fold_;
    EmptyPage* frame2_;

  private:
    void makePanes();
    void connectPanes();
    void goRound();

    QString key_;
    QString description_;
};

}  // namespace marvello
