#include "workspace/PanelRows.h"

#include "controls/AdvanceText.h"

namespace marvello {

namespace {

constexpr int firstRow = 12;
constexpr int groupGap = 8;
constexpr int firstCaption = 112;
constexpr int secondCaption = 70;
constexpr int narrowBox = 80;
constexpr int valueBox = 106;
constexpr int modeGap = 8;
constexpr int wideUnit = 48;

}  // namespace

PanelRows::PanelRows(int width, int captionWidth)
    : width_(width), captionWidth_(captionWidth), top_(firstRow) {}

void PanelRows::place(AdvanceText* field, int left, int right, int captionWidth) const {
    const int halo = AdvanceText::halo;
    field->setProperty("CaptionWidth", captionWidth);
    field->setGeometry(left - halo, top_ - halo, right - left + 2 * halo, AdvanceText::boxHeight + 2 * halo);
}

void PanelRows::single(AdvanceText* field) {
    if (!field || field->isHidden()) return;
    field->setProperty("UnitCaptionWidth", wideUnit);
    place(field, side, width_ - side, captionWidth_);
    top_ += pitch;
}

void PanelRows::pair(AdvanceText* left, AdvanceText* right, UnitWidths units) {
    if (!left || !right) return;
    const int edge = side + captionWidth_ + narrowBox;
    left->setProperty("UnitCaptionWidth", units.left);
    place(left, side, edge, captionWidth_);
    right->setProperty("UnitCaptionWidth", units.right);
    // The second caption stands 12 off the box before it.
    constexpr int indent = 12;
    const int rightCaption = secondCaption - (captionWidth_ - firstCaption);
    place(right, edge + indent, width_ - side, rightCaption - indent);
    top_ += pitch;
}

void PanelRows::mode(AdvanceText* selector, AdvanceText* value) {
    if (!selector) return;
    const int right = width_ - side;
    if (value->isHidden()) {
        place(selector, side, right, captionWidth_);
    } else {
        place(selector, side, right - valueBox - modeGap, captionWidth_);
        value->setProperty("UnitCaptionWidth", wideUnit);
        place(value, right - valueBox, right, 0);
    }
    top_ += pitch;
}

void PanelRows::block(QWidget* block, int height, int halo) {
    block->setGeometry(side - halo, top_ - halo, width_ - 2 * side + 2 * halo, height);
    top_ += height - 2 * halo + pitch - AdvanceText::boxHeight;
}

void PanelRows::gap() { top_ += groupGap; }

}  // namespace marvello
