#pragma once

#include <QPoint>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "controls/Metafile.h"

namespace marvello {

/// The functions of records that are drawn.
enum class MetafileFunction : std::uint16_t {
    saveState = 0x001E,
    createPalette = 0x00F7,
    setBackgroundMode = 0x0102,
    setFillMode = 0x0106,
    restoreState = 0x0127,
    selectObject = 0x012D,
    setTextAlign = 0x012E,
    createDibPatternBrush = 0x0142,
    deleteObject = 0x01F0,
    createPatternBrush = 0x01F9,
    setBackgroundColour = 0x0201,
    setTextColour = 0x0209,
    setWindowOrigin = 0x020B,
    setWindowExtent = 0x020C,
    lineTo = 0x0213,
    moveTo = 0x0214,
    createPen = 0x02FA,
    createFont = 0x02FB,
    createBrush = 0x02FC,
    polygon = 0x0324,
    polyline = 0x0325,
    ellipse = 0x0418,
    rectangle = 0x041B,
    textOut = 0x0521,
    polyPolygon = 0x0538,
    roundRectangle = 0x061C,
    createRegion = 0x06FF,
    arc = 0x0817,
    pie = 0x081A,
    chord = 0x0830,
    extTextOut = 0x0A32,
};

/// Reads the parameters of a record. A parameter beyond its end is 0: a reader asks `has` first.
class MetafileParameters {
  public:
    MetafileParameters(const Metafile& file, const Metafile::Record& record);

    MetafileFunction function() const { return function_; }
    bool has(std::size_t words) const { return words <= words_; }
    int word(std::size_t index) const;              ///< with sign
    int number(std::size_t index) const;            ///< without
    std::uint32_t colour(std::size_t index) const;  ///< 0xRRGGBB of two words
    /// A point whose y comes first, as in most records.
    QPoint pointYx(std::size_t index) const { return {word(index + 1), word(index)}; }
    QPoint pointXy(std::size_t index) const { return {word(index), word(index + 1)}; }
    /// Windows-1252, to the end of the record at most.
    QString text(std::size_t index, int length) const;

    struct Text {
        QPoint place;
        QString text;
    };
    /// That of a record that draws text.
    std::optional<Text> drawnText() const;

  private:
    const char* data_;
    MetafileFunction function_;
    std::size_t words_;
};

}  // namespace marvello
