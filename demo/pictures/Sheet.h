#pragma once

#include <string>
#include <vector>

#include "demo/pictures/WmfWriter.h"

namespace marvello::pictures {

/// A machine's view on a sheet: mm of the machine, y upwards, become mm of the sheet.
struct Placing {
    Spot origin;  ///< of the machine's coordinates on the sheet
    double scale = 1;

    Spot operator()(double x, double y) const { return {origin.x + x * scale, origin.y - y * scale}; }
};

/// The lines of a technical drawing (ISO 128 and ISO 129-1): wide outlines, narrow lines for all else, closed
/// arrows. Outlines cover what lies behind them.
class Sheet {
  public:
    Sheet(double width, double height) : wmf_(width, height) {}

    WmfWriter& wmf() { return wmf_; }

    void outline();    ///< wide, white inside
    void narrow();     ///< thin, clear inside
    void centre();     ///< thin, long dashes and dots
    void dimension();  ///< thin and grey, arrows filled

    /// A rectangle between two corners, rounded on the left, on the right or on both by `left` and `right`.
    void box(const Placing& view, Spot low, Spot high, double left = 0, double right = 0);
    void circle(const Placing& view, double x, double y, double radius);
    /// A cross of centre lines that reach `over` mm of the sheet beyond the radius.
    void centreCross(const Placing& view, double x, double y, double radius, double over = 2);

    /// A horizontal dimension between `from` and `to` at the height `at`; the lines to it begin at the two
    /// spots.
    void across(Spot from, Spot to, double at, const std::string& text);
    /// A vertical one at the place `at`.
    void upright(Spot from, Spot to, double at, const std::string& text);
    /// A letter in a circle with a line to what it means.
    void balloon(Spot at, Spot meant, const std::string& letter);
    void balloonAlone(Spot at, const std::string& letter);

    void emblem(Spot corner, double size);

  private:
    void arrow(Spot tip, double dx, double dy);

    WmfWriter wmf_;
};

}  // namespace marvello::pictures
