#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace marvello {

/// A colour that is drawn with, 0 to 255 each, and how much it covers, 0 to 1.
struct DrawnColour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    double opacity = 1;
    bool operator==(const DrawnColour&) const = default;
};

/// A place in a drawing, in pixels from its upper left corner; y grows downwards.
struct DrawnPoint {
    double x = 0;
    double y = 0;
};

/// How a line is drawn. Joins are round, ends flat.
struct DrawnStroke {
    DrawnColour colour{};
    double width = 1;
    std::vector<double>
        dashes{};  ///< Lengths of dashes and gaps by turns, in pixels; empty for a solid line.
};

/// A line through points, from the first to the last.
struct DrawnLine {
    std::vector<DrawnPoint> points;
    DrawnStroke stroke;
};

/// The inside of a closed line.
struct DrawnArea {
    std::vector<DrawnPoint> points;
    DrawnColour fill;
};

/// A ring, filled.
struct DrawnRing {
    DrawnPoint centre;
    double radius = 0;
    DrawnStroke stroke;
    DrawnColour fill;
};

/// A text of one line.
struct DrawnText {
    enum class Anchor : std::uint8_t { start, middle, end };  ///< What of the text is at its place.

    DrawnPoint at{};  ///< On the base line.
    std::string text{};
    DrawnColour colour{};
    double size = 11;  ///< Height of the font in pixels.
    Anchor anchor = Anchor::start;
    bool isMedium = false;
    double angle = 0;                ///< Degrees, clockwise about the place.
    DrawnColour halo{.opacity = 0};  ///< Around the letters, so that no line strikes through them.
};

/// A picture as a list of shapes, the lowest first, which windows, paper and files paint alike.
struct Drawing {
    using Shape = std::variant<DrawnArea, DrawnLine, DrawnRing, DrawnText>;

    double width = 0;
    double height = 0;
    DrawnColour ground{};
    std::string title{};  ///< What it shows, for those who cannot see it.
    std::vector<Shape> shapes{};
};

/// Returns about how wide a text is, in pixels, by the mean width of letters and digits and that of Chinese
/// signs.
double drawnWidth(const DrawnText& text);

/// The width of the halo around letters, in pixels.
inline constexpr double haloWidth = 4;

}  // namespace marvello
