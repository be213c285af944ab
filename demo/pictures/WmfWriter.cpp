#include "demo/pictures/WmfWriter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <utility>

namespace marvello::pictures {

namespace {

constexpr double unitsPerMm = 50;
constexpr std::uint16_t unitsPerInch = 1270;

std::uint16_t lowWord(std::size_t value) { return static_cast<std::uint16_t>(value & 0xFFFF); }
std::uint16_t highWord(std::size_t value) { return static_cast<std::uint16_t>(value >> 16 & 0xFFFF); }

/// Red lies lowest in a record.
std::uint16_t colourLow(std::uint32_t rgb) {
    return static_cast<std::uint16_t>((rgb & 0xFF00) | (rgb >> 16 & 0xFF));
}
std::uint16_t colourHigh(std::uint32_t rgb) { return static_cast<std::uint16_t>(rgb & 0xFF); }

}  // namespace

std::uint16_t WmfWriter::units(double mm) {
    const double value = std::round(mm * unitsPerMm);
    if (std::abs(value) > 32767)
        throw std::invalid_argument("A place lies outside of what a metafile can tell.");
    return static_cast<std::uint16_t>(static_cast<std::int16_t>(value));
}

WmfWriter::WmfWriter(double width, double height) : width_(width), height_(height) {
    record(0x0103, {8});                            // lengths in any unit, both ways on their own
    record(0x020B, {0, 0});                         // the window's origin
    record(0x020C, {units(height), units(width)});  // and extent
    record(0x0102, {1});                            // nothing behind texts
    record(0x0106, {1});                            // areas by odd and even
    record(0x0209, {0, 0});                         // black texts
}

void WmfWriter::record(std::uint16_t function, const Words& parameters) {
    const std::size_t size = parameters.size() + 3;
    words_.insert(words_.end(), {lowWord(size), highWord(size), function});
    words_.insert(words_.end(), parameters.begin(), parameters.end());
    longest_ = std::max(longest_, size);
}

/// Makes the object, takes it and deletes the one before, whose number is then free. So each kind needs two
/// numbers.
void WmfWriter::use(Tool& tool, std::uint16_t function, Words parameters) {
    if (tool.made == parameters) return;
    record(function, parameters);
    const int before = std::exchange(tool.index, -1);
    std::vector<bool> taken(objects_ + 1U, false);
    for (const Tool* other : {&pen_, &brush_, &font_})
        if (other->index >= 0) taken[static_cast<std::size_t>(other->index)] = true;
    if (before >= 0) taken[static_cast<std::size_t>(before)] = true;
    int free = 0;
    while (taken[static_cast<std::size_t>(free)]) ++free;
    objects_ = std::max(objects_, static_cast<std::uint16_t>(free + 1));
    record(0x012D, {static_cast<std::uint16_t>(free)});
    if (before >= 0) record(0x01F0, {static_cast<std::uint16_t>(before)});
    tool.index = free;
    tool.made = std::move(parameters);
}

void WmfWriter::setLine(Line style, double width, std::uint32_t colour) {
    use(pen_, 0x02FA,
        {static_cast<std::uint16_t>(style), units(width), 0, colourLow(colour), colourHigh(colour)});
}

void WmfWriter::setFill(std::uint32_t colour) {
    use(brush_, 0x02FC, {0, colourLow(colour), colourHigh(colour), 0});
}

void WmfWriter::setNoFill() { use(brush_, 0x02FC, {1, 0, 0, 0}); }

void WmfWriter::setText(double size, bool bold, int turned) {
    const auto angle = static_cast<std::uint16_t>(turned * 10);
    Words font{units(-size), 0, angle, angle, static_cast<std::uint16_t>(bold ? 700 : 400), 0, 0, 0, 0};
    const std::string face = "Arial";
    for (std::size_t i = 0; i <= face.size(); i += 2) {
        const auto low = static_cast<unsigned char>(i < face.size() ? face[i] : 0);
        const auto high = static_cast<unsigned char>(i + 1 < face.size() ? face[i + 1] : 0);
        font.push_back(static_cast<std::uint16_t>(low | high << 8));
    }
    use(font_, 0x02FB, std::move(font));
}

void WmfWriter::polyline(const std::vector<Spot>& spots) {
    Words parameters{lowWord(spots.size())};
    for (const Spot& spot : spots) parameters.insert(parameters.end(), {units(spot.x), units(spot.y)});
    record(0x0325, parameters);
}

void WmfWriter::polygon(const std::vector<Spot>& spots) {
    Words parameters{lowWord(spots.size())};
    for (const Spot& spot : spots) parameters.insert(parameters.end(), {units(spot.x), units(spot.y)});
    record(0x0324, parameters);
}

void WmfWriter::polygons(const std::vector<std::vector<Spot>>& all) {
    Words parameters{lowWord(all.size())};
    for (const auto& spots : all) parameters.push_back(lowWord(spots.size()));
    for (const auto& spots : all)
        for (const Spot& spot : spots) parameters.insert(parameters.end(), {units(spot.x), units(spot.y)});
    record(0x0538, parameters);
}

void WmfWriter::line(Spot from, Spot to) {
    record(0x0214, {units(from.y), units(from.x)});
    record(0x0213, {units(to.y), units(to.x)});
}

void WmfWriter::rectangle(Spot corner, Spot opposite) {
    record(0x041B, {units(opposite.y), units(opposite.x), units(corner.y), units(corner.x)});
}

void WmfWriter::ellipse(Spot centre, double radiusX, double radiusY) {
    record(0x0418, {units(centre.y + radiusY), units(centre.x + radiusX), units(centre.y - radiusY),
                    units(centre.x - radiusX)});
}

void WmfWriter::text(Spot at, Align align, const std::string& text) {
    constexpr std::uint16_t baseLine = 24;
    if (text.size() > 255) throw std::invalid_argument("The text is too long for a metafile: " + text);
    const int wanted = static_cast<int>(align) | baseLine;
    if (align_ != wanted) record(0x012E, {static_cast<std::uint16_t>(wanted)});
    align_ = wanted;
    Words parameters{static_cast<std::uint16_t>(text.size())};
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const auto low = static_cast<unsigned char>(text[i]);
        const auto high = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
        parameters.push_back(static_cast<std::uint16_t>(low | high << 8));
    }
    parameters.insert(parameters.end(), {units(at.y), units(at.x)});
    record(0x0521, parameters);
}

std::vector<std::uint8_t> WmfWriter::finish() {
    record(0, {});
    Words placeable{0xCDD7, 0x9AC6, 0, 0, 0, units(width_), units(height_), unitsPerInch, 0, 0};
    std::uint16_t sum = 0;
    for (const std::uint16_t word : placeable) sum = static_cast<std::uint16_t>(sum ^ word);
    placeable.push_back(sum);
    constexpr std::size_t headerWords = 9;
    const std::size_t size = words_.size() + headerWords;
    const Words header{1,
                       headerWords,
                       0x0300,
                       lowWord(size),
                       highWord(size),
                       objects_,
                       lowWord(longest_),
                       highWord(longest_),
                       0};
    std::vector<std::uint8_t> bytes;
    const auto append = [&bytes](const Words& words) {
        for (const std::uint16_t word : words) {
            bytes.push_back(static_cast<std::uint8_t>(word & 0xFF));
            bytes.push_back(static_cast<std::uint8_t>(word >> 8));
        }
    };
    append(placeable);
    append(header);
    append(words_);
    return bytes;
}

}  // namespace marvello::pictures
