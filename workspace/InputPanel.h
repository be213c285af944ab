#pragma once

#include <QSize>
#include <QString>
#include <array>

#include "controls/Container.h"
#include "inputs/SelectionInputs.h"
#include "workspace/PanelRows.h"

class QLabel;
class QScrollArea;

namespace marvello {

class AdvanceText;
class Link;
class TagBox;
class ctlBtn;

/// The inputs of a form, laid out in rows, with the button that starts the calculation and the help
/// of the field in use. Knows what stands where, and nothing of what the fields mean to one another.
class InputPanel : public Container {
    Q_OBJECT

  public:
    static constexpr int usualCaptionWidth = 112;

    /// Makes a field for each input that `inputs` have.
    InputPanel(const SelectionInputs& inputs, QWidget* parent);

    ctlBtn* lnkCalculate;
    Link* lnkDefaults;  ///< gives all inputs their first values again

    /// The refrigerants of a search; null in the other forms.
    TagBox* refrigerants() const { return refrigerants_; }
    /// The field of an input; null for one that the form does not have, and for the refrigerants of a search.
    AdvanceText* operator[](Input input) const { return fields_[static_cast<std::size_t>(input)]; }
    /// What a field is called; the name of its selector for one that has no caption of its own.
    QString captionOf(Input input) const;

    /// Sets the width of the captions and lays out.
    void ResizeControls(int captionWidth);
    /// Lays the rows out; to be called when a field was shown or hidden.
    void layOut();

    /// Shows the help of a field; an empty text shows nothing.
    void VisualizzaHelp(const QString& title, const QString& text);

  private:
    AdvanceText* newField(const InputDefinition& definition);
    void single(Input input);
    void pair(Input first, Input second);
    void mode(Input kind, Input number);
    void coupled(Input dew, Input mid, Input pressure);
    void layOutRows(int width);
    void layOutSubject();
    void layOutDrive();
    void tags();
    void layOutHelp(const QRect& room);
    void makeTabOrder();

    QScrollArea* scroll_;
    QWidget* PicInput_;
    QLabel* rtfHelp_;
    QString helpTitle_;
    QString helpText_;
    /// To fit a text into its room is slow: it is done again when one of them is another.
    struct Help {
        QString title, text;
        QSize room;
        bool operator==(const Help&) const = default;
    };
    Help fittedHelp_;
    int helpHeight_ = 0;
    std::array<AdvanceText*, inputCount> fields_{};
    TagBox* refrigerants_ = nullptr;
    int captionWidth_;
    PanelRows rows_;
};

}  // namespace marvello
