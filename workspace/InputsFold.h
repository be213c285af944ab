#pragma once

#include <QObject>

class QWidget;

namespace marvello {

class InputSummary;
class Splitter;

/// How the inputs and the results of a form share its room. A form with room for both has the inputs at the
/// left of a splitter; they can be collapsed. In a narrow form the inputs fold into one line above the
/// results, from which they open over them until the user goes on elsewhere in the form.
class InputsFold : public QObject {
    Q_OBJECT

  public:
    /// Below this width of the form, in logical pixels, the inputs fold.
    static constexpr int narrowBelow = 880;
    /// The narrowest and the widest inputs at the left of a form; they begin narrow.
    static constexpr int minWidth = 400;
    static constexpr int maxWidth = 520;

    /// All three are children of `form`; `inputs` is the first half of the splitter.
    InputsFold(QWidget& form, Splitter& splitter, QWidget& inputs, InputSummary& summary);

    /// Places everything in the form; to be called when its size changes.
    void layOut();
    /// `has` is true if the form shows results, not only its inputs.
    void setHasResults(bool has);

    bool isNarrow() const { return isNarrow_; }
    /// True while the inputs take no room of their own: collapsed on the left, or folded into their line.
    bool isCollapsed() const { return isNarrow_ ? !isOpen_ : isCollapsed_; }
    void collapse(bool collapse);
    /// Makes sure that the inputs can be seen and get the focus.
    void show();

    /// The width of the inputs where they are on the left.
    int panelWidth() const;
    void setPanelWidth(int width);

  signals:
    /// The inputs were opened or folded.
    void changed();

  private:
    void fold();
    void unfold();
    void setOpen(bool open);
    void place();
    bool holdsFocus() const;

    QWidget& form_;
    Splitter& splitter_;
    QWidget& inputs_;
    InputSummary& summary_;
    int width_;    ///< of the inputs before they were collapsed or folded
    int barSize_;  ///< of the splitter while both halves are there
    bool hasResults_ = false;
    bool isNarrow_ = false;
    bool isOpen_ = false;
    bool isCollapsed_ = false;
};

}  // namespace marvello
