#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace marvello::pictures {

/// A place on the sheet in mm from its upper left corner.
struct Spot {
    double x = 0;
    double y = 0;
};

/// Writes a placeable metafile of 16-bit records. Lengths are in mm.
class WmfWriter {
  public:
    enum class Line { solid = 0, dashDotted = 3, none = 5 };
    enum class Align { left = 0, right = 2, centre = 6 };

    /// A sheet of this size.
    WmfWriter(double width, double height);

    /// What follows is drawn with this line; black unless another colour, 0xRRGGBB, is given.
    void setLine(Line style, double width, std::uint32_t colour = 0);
    void setFill(std::uint32_t colour);
    void setNoFill();
    /// Texts of this height of the letters' body, turned against the clock by 0 or 90 degrees.
    void setText(double size, bool bold = false, int turned = 0);

    void polyline(const std::vector<Spot>& spots);
    void polygon(const std::vector<Spot>& spots);
    void polygons(const std::vector<std::vector<Spot>>& all);
    void line(Spot from, Spot to);
    void rectangle(Spot corner, Spot opposite);
    void ellipse(Spot centre, double radiusX, double radiusY);
    void circle(Spot centre, double radius) { ellipse(centre, radius, radius); }
    /// Windows-1252; `at` is on the base line. Throws std::invalid_argument for a text that does not fit a
    /// record.
    void text(Spot at, Align align, const std::string& text);

    /// The file; nothing may follow.
    std::vector<std::uint8_t> finish();

  private:
    using Words = std::vector<std::uint16_t>;
    /// One of the objects drawn with; the same one is not made twice in a row.
    struct Tool {
        Words made;
        int index = -1;
    };

    void record(std::uint16_t function, const Words& parameters);
    void use(Tool& tool, std::uint16_t function, Words parameters);
    static std::uint16_t units(double mm);

    Words words_;
    double width_, height_;
    Tool pen_, brush_, font_;
    std::uint16_t objects_ = 0;
    std::size_t longest_ = 0;
    int align_ = -1;
};

}  // namespace marvello::pictures
