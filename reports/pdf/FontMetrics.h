#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace marvello {

/// What a PDF file says of a TrueType font that it does not embed. Lengths are in thousandths of the font's
/// size.
struct FontMetrics {
    std::string_view baseFont;
    int flags;
    std::string_view box;
    int missingWidth;
    int stem;  ///< StemV as well as StemH.
    int italicAngle;
    int capHeight;
    int xHeight;
    int ascent;
    int descent;
    int leading;
    int maxWidth;
    int avgWidth;
    std::span<const std::int16_t> widths;  ///< From firstChar() to lastChar.

    static constexpr std::string_view subtype = "TrueType";
    static constexpr int lastChar = 255;
    int firstChar() const { return lastChar + 1 - static_cast<int>(widths.size()); }
    /// The advance width of a byte in Windows-1252.
    int width(unsigned char code) const;
};

constexpr int fontFamilies = 4;
constexpr int fontStyles = 4;

/// The record of a family (1 Courier New, 2 Times New Roman, 3 Arial, 4 Symbol) and a style (1 regular, 2
/// bold, 3 italic, 4 bold italic). Throws std::out_of_range for another index.
const FontMetrics& fontMetrics(int family, int style);

}  // namespace marvello
