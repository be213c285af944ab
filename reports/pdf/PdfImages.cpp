#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "reports/pdf/Ascii85.h"
#include "reports/pdf/Bitmap.h"
#include "reports/pdf/clsPDFCreator.h"

namespace marvello {

namespace {

/// The head of an image buffer, five bytes.
struct ImageSize {
    static constexpr std::size_t bytes = 5;

    explicit ImageSize(std::string_view buffer) {
        if (buffer.size() < bytes) throw std::invalid_argument("An image's buffer is shorter than its head.");
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(buffer[i]); };
        width = byte(0) + 256U * byte(1);
        height = byte(2) + 256U * byte(3);
        bits = byte(4);
    }
    bool isKnown() const { return bits == 1 || bits == 4 || bits == 8 || bits == 24; }
    bool hasPalette() const { return bits < 24; }
    /// Length of the pixels.
    std::uint64_t length() const {
        const std::uint64_t perByte = hasPalette() ? 8 / bits : 1;
        return (hasPalette() ? (width + perByte - 1) / perByte : 3 * width) * height;
    }

    std::uint64_t width, height, bits;
};

/// Each three bytes as one grey level. Kept: the weights add up to 1.03 and the first byte has the largest,
/// whether the bytes begin with red, as a palette does, or with blue, as pixels do: images look as they
/// always did.
std::string greyOf(std::string_view triples) {
    std::string grey;
    grey.reserve(triples.size() / 3);
    for (; triples.size() >= 3; triples.remove_prefix(3)) {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(triples[i]); };
        const double level = 0.59 * byte(0) + 0.33 * byte(1) + 0.11 * byte(2);
        grey += static_cast<char>(static_cast<unsigned char>(std::nearbyint(std::min(255.0, level))));
    }
    return grey;
}

}  // namespace

bool clsPDFCreator::LoadImgFromBMPFile(const std::string& name, const std::string& path, bool gray) {
    const auto bitmap = LeggeBMP(path);
    if (!bitmap) return false;
    LoadImgFromBuffer(name, bitmap->buffer, bitmap->palette, gray);
    return true;
}

void clsPDFCreator::LoadImgFromBuffer(const std::string& name, std::string_view buffer,
                                      std::string_view palette, bool gray) {
    const ImageSize size(buffer);
    if (!size.isKnown()) return;
    if (buffer.size() - ImageSize::bytes < size.length()) {
        throw std::invalid_argument("The image \"" + name + "\" has fewer bytes than its size tells.");
    }
    // Kept: pixels of three bytes stay blue, green, red, though viewers take the first for red: callers
    // allow for it.
    std::string_view pixels = buffer.substr(ImageSize::bytes, size.length());
    std::string grey;
    if (gray && !size.hasPalette()) pixels = grey = greyOf(pixels);

    const std::string space = gray ? "DeviceGray" : "DeviceRGB";
    const std::string bits = std::to_string(size.hasPalette() ? size.bits : 8);
    const int image = NewObject();
    writeLines({"<<", "/Type /XObject", "/Subtype /Image", "/Name /" + name,
                "/Width " + std::to_string(size.width), "/Height " + std::to_string(size.height),
                "/BitsPerComponent " + bits});
    if (size.hasPalette()) {
        Writeline("/ColorSpace [/Indexed /" + space + " " + std::to_string((1U << size.bits) - 1) + " " +
                  std::to_string(nextObject()) + " 0 R]");
    } else {
        Writeline("/ColorSpace /" + space);
    }
    writeLines({"/Length " + std::to_string(pixels.size()), ">>", "stream", pixels, "endstream"});
    writeEndobj();
    document_.imageList += "/" + name + " " + std::to_string(image) + " 0 R \r";
    if (size.hasPalette()) writePalette(gray ? greyOf(palette) : std::string(palette));
}

void clsPDFCreator::writePalette(std::string_view palette) {
    NewObject();
    // Kept: the length is that of the bytes before they are encoded, and a bare ">" ends them; readers of
    // earlier files count on both.
    writeLines({"<<", "/Filter /ASCII85Decode", "/Length " + std::to_string(palette.size()), ">>", "stream",
                ascii85(palette) + ">", "endstream"});
    writeEndobj();
}

void clsPDFCreator::DrawImg(std::string_view name, double x, double y, double w, double h) {
    Writeline("q");
    // The negative height turns rows that begin at the bottom the right way up.
    writeNumbers({points(w), 0, 0, -points(h), points(x), points(y)}, " cm");
    DrawObject(name);
    Writeline("Q");
}

}  // namespace marvello
