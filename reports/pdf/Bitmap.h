#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace marvello {

/// A bitmap that is cut off, compressed or of a size that cannot be.
class BitmapError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// An image as clsPDFCreator::LoadImgFromBuffer takes it.
struct Bitmap {
    /// Width and height in pixels (low byte first, two bytes each) and the bits per pixel, then the rows from
    /// the bottom upwards, each filled up to a whole byte; three bytes a pixel are blue, green, red.
    std::string buffer;
    std::string palette;  ///< Red, green, blue of each colour; empty with more than 8 bits per pixel.
};

/// Reads an uncompressed Windows bitmap of up to 32 bits per pixel and 65535 pixels a side; its rows are
/// padded to a multiple of four bytes. Nothing without the mark "BM"; BitmapError when what the headers tell
/// cannot be. Colours that the file leaves out are black.
std::optional<Bitmap> readBitmap(std::string_view bytes);

/// Reads a bitmap file; nothing for a file that cannot be read.
std::optional<Bitmap> LeggeBMP(const std::string& path);

}  // namespace marvello
