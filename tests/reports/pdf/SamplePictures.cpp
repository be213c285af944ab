#include "tests/reports/pdf/SamplePictures.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace marvello {

namespace {

constexpr int width = 96;
constexpr int height = 64;
constexpr int corner = 16;
using Colour = std::array<int, 3>;  // red, green, blue, 0 to 255

/// From blue over green to red as `ramp` goes from 0 to 1.
Colour rampColour(double ramp, double light) {
    const auto part = [&](double middle) {
        const double distance = std::min(1.0, 2 * std::max(ramp - middle, middle - ramp));
        return static_cast<int>(255 * light * (1 - distance * distance));
    };
    return {part(1), part(0.5), part(0)};
}

double rampAt(int x) { return x / (width - 1.0); }
double lightAt(int y) { return 1 - 0.6 * y / (height - 1.0); }  // y from the upper edge
bool isCorner(int x, int y) { return x < corner && y < corner; }

/// Palettes of 16 and 256 colours: the last is white, the others are the ramp, in 1 or 5 lights.
struct Palette {
    explicit Palette(int bits) : lights(bits == 8 ? 5 : 1), steps(((1 << bits) - 1) / lights) {}
    int lights;
    int steps;

    int indexAt(int x, int y, int white) const {
        if (isCorner(x, y)) return white;
        return y * lights / height * steps + static_cast<int>(rampAt(x) * (steps - 1));
    }
    Colour colour(int index, int white) const {
        if (index == white) return {255, 255, 255};
        const int light = std::min(index / steps, lights - 1);
        return rampColour(index % steps / (steps - 1.0), lightAt(light * (height - 1) / lights));
    }
};

void put(std::string& bytes, std::uint32_t value, int length) {
    for (int i = 0; i < length; ++i) bytes += static_cast<char>(value >> 8 * i & 0xFFU);
}

void putColour(std::string& bytes, const Colour& colour) {
    for (std::size_t i = 3; i-- > 0;) bytes += static_cast<char>(colour[i]);
}

/// Two colours: stripes that grow denser to the right, and the corner.
int bitAt(int x, int y) { return isCorner(x, y) || (x * x / 192) % 2 == 0 ? 1 : 0; }

std::string indexedRow(int bits, int y) {
    const int white = (1 << bits) - 1;
    const Palette palette(bits);
    const int perByte = 8 / bits;
    std::string row;
    for (int x = 0; x < width; x += perByte) {
        int byte = 0;
        for (int i = x; i < x + perByte; ++i) {
            byte = byte << bits | (bits == 1 ? bitAt(i, y) : palette.indexAt(i, y, white));
        }
        row += static_cast<char>(byte);
    }
    return row;
}

std::string colourRow(int y) {
    std::string row;
    for (int x = 0; x < width; ++x) {
        putColour(row, isCorner(x, y) ? Colour{255, 255, 255} : rampColour(rampAt(x), lightAt(y)));
    }
    return row;
}

}  // namespace

std::string sampleBitmap(int bits) {
    std::string palette;
    const int colours = bits == 24 ? 0 : 1 << bits;
    for (int i = 0; i < colours; ++i) {
        putColour(palette, bits == 1 ? (i == 0 ? Colour{0, 60, 120} : Colour{255, 255, 255})
                                     : Palette(bits).colour(i, colours - 1));
        palette += '\0';
    }
    std::string rows;
    for (int y = height; y-- > 0;)
        rows += bits == 24 ? colourRow(y) : indexedRow(bits, y);  // rows need no padding

    const auto headers = static_cast<std::uint32_t>(54 + palette.size());
    std::string bytes = "BM";
    put(bytes, headers + static_cast<std::uint32_t>(rows.size()), 4);
    put(bytes, 0, 4);
    put(bytes, headers, 4);
    for (const int value : {40, width, height}) put(bytes, static_cast<std::uint32_t>(value), 4);
    put(bytes, 1, 2);
    put(bytes, static_cast<std::uint32_t>(bits), 2);
    for (int i = 0; i < 6; ++i) put(bytes, 0, 4);
    return bytes + palette + rows;
}

}  // namespace marvello
