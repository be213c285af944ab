#pragma once

#include <QByteArray>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

class QPainter;

namespace marvello {

/// A placeable Windows metafile (.wmf): lines, areas and texts as 16-bit records. Bitmaps, regions and raster
/// operations are passed over.
///
/// A file that is none, is cut short or holds a record that reaches past its end is no picture. A record
/// whose contents do not fit, such as a number of points that it has no room for, is passed over.
class Metafile {
  public:
    /// No picture.
    Metafile() = default;

    static Metafile fromBytes(QByteArray bytes);
    /// No picture as well when the file cannot be read.
    static Metafile load(const QString& file);

    bool isNull() const { return records_.empty(); }
    /// The size that the file gives itself, in mm.
    QSizeF size() const { return size_; }
    /// The texts in the order of drawing.
    QStringList texts() const;

    /// Draws the picture as large as fits into the middle of `within`, in the program's font. The background
    /// is left as it is. The work is limited: what a file asks for beyond any drawing is left out.
    void draw(QPainter& painter, const QRectF& within) const;

    /// One record: its parameters are words of the file from `first` on.
    struct Record {
        std::uint16_t function = 0;
        std::size_t first = 0;  ///< offset in bytes
        std::size_t words = 0;
    };
    const std::vector<Record>& records() const { return records_; }
    const QByteArray& bytes() const { return bytes_; }
    /// The bounding box, in the units of the first window.
    const QRectF& box() const { return box_; }

  private:
    QByteArray bytes_;
    std::vector<Record> records_;
    QRectF box_;
    QSizeF size_;
};

}  // namespace marvello
