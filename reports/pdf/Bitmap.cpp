#include "reports/pdf/Bitmap.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace marvello {

namespace {

constexpr std::uint64_t fileHeader = 14;
constexpr std::uint64_t shortestInfoHeader = 40;
constexpr std::uint64_t paletteRecord = 4;

/// An unsigned number of `length` bytes, low byte first.
std::uint32_t numberAt(std::string_view bytes, std::size_t at, std::size_t length) {
    std::uint32_t value = 0;
    for (std::size_t i = length; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

/// What the two headers tell, as far as it is used. Wide numbers, so that no product overflows.
struct Headers {
    std::uint64_t width = 0;
    std::uint64_t height = 0;
    std::uint64_t bits = 0;
    std::uint64_t palette = 0;  ///< Where the palette begins.
    std::uint64_t colours = 0;
    std::uint64_t pixels = 0;  ///< Where the bottom row begins.

    std::uint64_t packedRow() const { return (bits * width + 7) / 8; }
    std::uint64_t paddedRow() const { return (packedRow() + 3) & ~std::uint64_t{3}; }
};

std::uint64_t side(std::uint32_t value, const char* name) {
    if (value == 0 || value > 0xFFFF) {
        throw BitmapError("The bitmap's " + std::string(name) + " of " +
                          std::to_string(static_cast<std::int32_t>(value)) +
                          " pixels is not from 1 to 65535.");
    }
    return value;
}

Headers headersOf(std::string_view bytes) {
    if (bytes.size() < fileHeader + shortestInfoHeader) throw BitmapError("The bitmap ends in its headers.");
    const std::uint64_t infoHeader = numberAt(bytes, 14, 4);
    if (infoHeader < shortestInfoHeader)
        throw BitmapError("The bitmap's information header is of no known kind.");
    if (numberAt(bytes, 30, 4) != 0) throw BitmapError("The bitmap is compressed.");
    Headers headers;
    headers.width = side(numberAt(bytes, 18, 4), "width");
    headers.height = side(numberAt(bytes, 22, 4), "height");
    headers.bits = numberAt(bytes, 28, 2);
    if (headers.bits == 0 || headers.bits > 32) {
        throw BitmapError("A bitmap cannot have " + std::to_string(headers.bits) + " bits per pixel.");
    }
    headers.palette = fileHeader + infoHeader;
    headers.colours = headers.bits < 9 ? std::uint64_t{1} << headers.bits : 0;
    const std::uint64_t told = numberAt(bytes, 10, 4);
    headers.pixels = told >= headers.palette ? told : headers.palette + paletteRecord * headers.colours;
    if (headers.pixels + headers.paddedRow() * headers.height > bytes.size()) {
        throw BitmapError("The bitmap ends before its last row.");
    }
    return headers;
}

std::string paletteOf(std::string_view bytes, const Headers& headers) {
    const std::uint64_t there = (headers.pixels - headers.palette) / paletteRecord;
    std::string palette(3 * headers.colours, '\0');
    for (std::uint64_t i = 0; i < std::min(there, headers.colours); ++i) {
        const std::string_view record = bytes.substr(headers.palette + paletteRecord * i, paletteRecord);
        std::copy_n(record.rbegin() + 1, 3, palette.begin() + static_cast<std::ptrdiff_t>(3 * i));
    }
    return palette;
}

std::string bufferOf(std::string_view bytes, const Headers& headers) {
    std::string buffer;
    buffer.reserve(5 + headers.packedRow() * headers.height);
    for (const std::uint64_t side : {headers.width, headers.height}) {
        buffer += static_cast<char>(side & 0xFF);
        buffer += static_cast<char>(side >> 8);
    }
    buffer += static_cast<char>(headers.bits);
    for (std::uint64_t row = 0; row < headers.height; ++row) {
        buffer += bytes.substr(headers.pixels + row * headers.paddedRow(), headers.packedRow());
    }
    return buffer;
}

}  // namespace

std::optional<Bitmap> readBitmap(std::string_view bytes) {
    if (!bytes.starts_with("BM")) return std::nullopt;
    const Headers headers = headersOf(bytes);
    return Bitmap{bufferOf(bytes, headers), paletteOf(bytes, headers)};
}

std::optional<Bitmap> LeggeBMP(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    return readBitmap(std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace marvello
