#include "results/Svg.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "data/Numbers.h"

namespace marvello {

namespace {

std::string lengthText(double value) {
    const std::string text = formatNumber(value, "0.##");
    return text == "-0" ? "0" : text;
}

std::string hexOf(const DrawnColour& colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", colour.red, colour.green, colour.blue);
    return text.data();
}

std::string attribute(std::string_view name, std::string_view value) {
    return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

std::string attribute(std::string_view name, double value) { return attribute(name, lengthText(value)); }

/// A colour as the attributes of "fill" or "stroke".
std::string paintOf(const std::string& kind, const DrawnColour& colour) {
    std::string text = attribute(kind, hexOf(colour));
    if (colour.opacity < 1) text += attribute(kind + "-opacity", colour.opacity);
    return text;
}

std::string strokeOf(const DrawnStroke& stroke) {
    std::string text = paintOf("stroke", stroke.colour) + attribute("stroke-width", stroke.width);
    std::string dashes;
    for (const double dash : stroke.dashes) dashes += (dashes.empty() ? "" : " ") + lengthText(dash);
    if (!dashes.empty()) text += attribute("stroke-dasharray", dashes);
    return text;
}

std::string pointsOf(const std::vector<DrawnPoint>& points) {
    std::string text;
    for (const DrawnPoint& point : points)
        text += (text.empty() ? "" : " ") + lengthText(point.x) + "," + lengthText(point.y);
    return attribute("points", text);
}

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '&') {
            result += "&amp;";
        } else if (c == '<') {
            result += "&lt;";
        } else if (c == '>') {
            result += "&gt;";
        } else if (static_cast<unsigned char>(c) >= ' ' || c == '\t') {
            result += c;
        }
    }
    return result;
}

std::string elementOf(const DrawnArea& area) {
    return "<polygon" + pointsOf(area.points) + paintOf("fill", area.fill) + "/>";
}

std::string elementOf(const DrawnLine& line) {
    return "<polyline" + pointsOf(line.points) + attribute("fill", "none") + strokeOf(line.stroke) +
           attribute("stroke-linejoin", "round") + "/>";
}

std::string elementOf(const DrawnRing& ring) {
    return "<circle" + attribute("cx", ring.centre.x) + attribute("cy", ring.centre.y) +
           attribute("r", ring.radius) + paintOf("fill", ring.fill) + strokeOf(ring.stroke) + "/>";
}

std::string elementOf(const DrawnText& text) {
    constexpr std::array<std::string_view, 3> anchors{"start", "middle", "end"};
    std::string element =
        "<text" + attribute("x", text.at.x) + attribute("y", text.at.y) + attribute("font-size", text.size);
    if (text.isMedium) element += attribute("font-weight", "500");
    if (text.anchor != DrawnText::Anchor::start)
        element += attribute("text-anchor", anchors.at(static_cast<std::size_t>(text.anchor)));
    if (text.angle != 0)
        element += attribute("transform", "rotate(" + lengthText(text.angle) + " " + lengthText(text.at.x) +
                                              " " + lengthText(text.at.y) + ")");
    if (text.halo.opacity > 0)
        element += paintOf("stroke", text.halo) + attribute("stroke-width", haloWidth) +
                   attribute("stroke-linejoin", "round") + attribute("paint-order", "stroke");
    return element + paintOf("fill", text.colour) + ">" + escaped(text.text) + "</text>";
}

}  // namespace

std::string svgOf(const Drawing& drawing) {
    const std::string width = lengthText(drawing.width);
    const std::string height = lengthText(drawing.height);
    std::string file = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg" +
                       attribute("xmlns", "http://www.w3.org/2000/svg") + attribute("width", width) +
                       attribute("height", height) + attribute("viewBox", "0 0 " + width + " " + height) +
                       attribute("font-family", "Roboto, 'Noto Sans CJK SC', sans-serif") + ">\n";
    if (!drawing.title.empty()) file += "<title>" + escaped(drawing.title) + "</title>\n";
    file += "<rect" + attribute("width", width) + attribute("height", height) +
            paintOf("fill", drawing.ground) + "/>\n";
    for (const Drawing::Shape& shape : drawing.shapes)
        file += std::visit([](const auto& each) { return elementOf(each); }, shape) + "\n";
    return file + "</svg>\n";
}

}  // namespace marvello
