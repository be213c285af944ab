#pragma once

#include "inputs/SelectionInputs.h"
#include "workspace/Form.h"
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
class InputForm : public Form {
    Q_OBJECT

  public:
    ~InputForm() override;

    Face face() const override;
    const SelectionKind& kind() const { return kind_; }
    /// 0 for a form of fixed-speed compressors, 1 for one of inverter compressors, 2 for a search.
    int TypeForm() const { return kind_.typeForm; }

    void Traduci() override;
    void PopulateFrame4();
    /// Inputs are converted for display and keep the value that was entered.
    void MeasureUnits(int unit, bool refresh) override;
    int MeasureUnit() const override { return static_cast<int>(inputs_.units()); }
    bool canCollapse() const override { return true; }
    bool isCollapsed() const override;
    void CloseFrame(bool collapse) override;
    /// Carries out a command by its key: "messages" selects the page of that name, "copytoclipboard" copies.
    void MnuPopUp(const QString& name);
    /// Copies the selected compressors of the list with their values, separated by tabs.
    void CopyToClipBoard() override;
    void PrintReport(bool preview) override;

    /// Starts a calculation, as the button and F5 do.
    void lnkCalculate_Click();
    void recalculate() override { lnkCalculate_Click(); }
    bool WheelMoved(int step) override;
    void keep() const override;

    /// What the next form of this kind starts with.
    virtual FormState state() const;
    /// Takes over what a form of this kind left.
    virtual void takeOver(const FormState& state);
    /// Takes over the inputs of another form of any kind, in its own system of units, as far as the catalogue
    /// offers them.
    virtual void takeOverInputs(const InputState& inputs);

    /// True with a list that belongs to the inputs.
    bool hasResults() const override;
    bool canCopy() const override;
    bool canPrint() const override;
    /// The list with its pages.
    virtual ListPane& results() const = 0;
    /// To be kept between starts.
    struct Sizes {
        int panelWidth;                   ///< of the inputs
        QHash<QString, int> listHeights;  ///< by the pages below the list, those that the user chose
    };
    Sizes sizes() const;
    void setSizes(const Sizes& sizes);

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
};

}  // namespace marvello
