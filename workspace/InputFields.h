#pragma once

#include <QObject>
#include <QString>
#include <optional>

#include "inputs/SelectionInputs.h"
#include "workspace/DropList.h"

class QWidget;

namespace marvello {

class AdvanceText;
class InputPanel;

/// Shows the inputs of a form in the fields of its panel, and tells the inputs what is typed and chosen
/// there.
class InputFields : public QObject {
    Q_OBJECT

  public:
    /// All three belong to `form`. `hasHelp` shows the help of the field in use.
    InputFields(SelectionInputs& inputs, InputPanel& panel, QWidget& form, bool hasHelp);

    /// Shows the inputs as they are.
    void show();
    /// Takes over what a parameter set wrote into the fields.
    void read();
    /// Takes the lists of choices over that a parameter set wrote in the user's language, and says all texts
    /// in it.
    void translate();
    /// Puts values in the place of texts that say them in other words, such as sums.
    void commit();
    /// Checks all fields, with the boxes of leaving them. False for a value that cannot be used; its field
    /// has the focus.
    bool check();
    /// Puts right what a run would not take, and says so.
    void prepareRun();
    void setUnits(UnitSystem units);

    /// Turns of the mouse wheel over the field in use. False when the pointer is elsewhere.
    bool turnWheel(int step);
    /// Shows the whole help of the field in use in a box, also where the panel has no room for it. False for
    /// a field without help.
    bool showHelp();

  signals:
    /// An input was changed in the field of this caption.
    void edited(const QString& caption);
    /// Another refrigerant or series was chosen.
    void subjectChanged();
    /// A field wants to be seen.
    void wantsRoom();

  private:
    void connectField(Input input);
    void connectRefrigerants();
    void showRefrigerants();
    /// What the rows of the input's list say besides their names; none where they do not.
    DropList::Details detailsOf(Input input) const;
    void chosen(Input input);
    void typed(Input input);
    void left(Input input);
    /// Shows what was put right, and says that it was the superheat.
    void sayReplaced(bool isSuperheat);
    bool refuseRun(QWidget& field);

    void showChoice(Input input);
    void showNumber(Input input);
    /// Tells a value that was typed from one that follows it.
    void showCouple(Input input);
    QString refusalText(Input input) const;
    QString remarkOn(Input input) const;
    QString unitOf(Input input) const;
    void walkPair(Input input);
    void showFieldHelp();

    SelectionInputs& inputs_;
    InputPanel& panel_;
    QWidget& form_;
    bool hasHelp_;
    DropList* dropList_;
    std::optional<Input> helped_;  ///< whose help is shown
};

}  // namespace marvello
