#pragma once

class QWidget;

namespace marvello {

class AdvanceText;

/// Places the fields of a panel of inputs in rows, from the top: all boxes begin on one edge and end on one
/// edge, and two inner edges serve the boxes of half the width. Measures are logical pixels.
class PanelRows {
  public:
    static constexpr int side = 16;
    static constexpr int pitch = 34;

    PanelRows() = default;
    /// For a panel of a width, with captions of a width.
    PanelRows(int width, int captionWidth);

    /// How wide the units of two fields in a row are.
    struct UnitWidths {
        int left = 20;
        int right = 48;
    };

    /// A row for one field; none if it is hidden.
    void single(AdvanceText* field);
    /// Two fields in a row, each with its caption.
    void pair(AdvanceText* left, AdvanceText* right, UnitWidths units);
    void pair(AdvanceText* left, AdvanceText* right) { pair(left, right, UnitWidths()); }
    /// A selector with the number that it says how to take; alone if that is hidden.
    void mode(AdvanceText* selector, AdvanceText* value);
    /// What has `halo` around it and finds its height by its width: all the room from caption to edge.
    void block(QWidget* block, int height, int halo);
    /// The gap between two groups.
    void gap();

    /// Where the next row begins.
    int top() const { return top_; }
    int width() const { return width_; }
    int captionWidth() const { return captionWidth_; }

  private:
    void place(AdvanceText* field, int left, int right, int captionWidth) const;

    int width_ = 0;
    int captionWidth_ = 0;
    int top_ = 0;
};

}  // namespace marvello
