// What is drawn: state of text and graphics, paths, text and forms.
#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

#include "reports/pdf/PdfNumber.h"
#include "reports/pdf/clsPDFCreator.h"

namespace marvello {

namespace {

/// From the end of a quarter circle to its control point, over the radius. Kept: 0.5523 would be rounder, and
/// circles would no longer be those of earlier files.
constexpr double quarterCircle = 0.55;

/// Degrees to radians. Kept: short of digits and in single precision, which the last digits in the files
/// come from.
constexpr auto radians = static_cast<float>(3.141592 / 180);

}  // namespace

void clsPDFCreator::SetWordSpacing(double value) {
    writeNumbers({points(value)}, " Tw");
    document_.wordSpacing = points(value);
}

void clsPDFCreator::SetCharSpacing(double value) {
    writeNumbers({points(value)}, " Tc");
    document_.charSpacing = points(value);
}

void clsPDFCreator::SetTextHorizontalScaling(double value) {
    writeNumbers({value}, " Tz");
    document_.horizontalScaling = value;
}

void clsPDFCreator::SetTextRenderingMode(int value) {
    if (value >= 0 && value < 2) writeNumbers({static_cast<double>(value)}, " Tr");
}

void clsPDFCreator::SetColorStroke(std::int32_t colour) { writeColour(colour, " G", " RG"); }

void clsPDFCreator::SetColorFill(std::int32_t colour) { writeColour(colour, " g", " rg"); }

void clsPDFCreator::writeColour(std::int32_t colour, std::string_view grey, std::string_view rgb) {
    if (colour >= -255 && colour <= 0) return writeNumbers({-colour / 255.0}, grey);
    const auto bits = static_cast<std::uint32_t>(colour);
    const auto part = [bits](int shift) { return (bits >> shift & 0xFFU) / 255.0; };
    writeNumbers({part(0), part(8), part(16)}, rgb);
}

void clsPDFCreator::SetDash(double on, double off) {
    if (on == 0 && off == 0) return Writeline("[ ] 0 d");
    Writeline("[" + numberText(points(on)) + " " + numberText(points(off)) + "] 0 d");
}

void clsPDFCreator::SetLineWidth(double value) { writeNumbers({points(value)}, " w"); }

void clsPDFCreator::SetLineCap(int value) {
    if (value >= 0 && value <= 2) writeNumbers({static_cast<double>(value)}, " J");
}

void clsPDFCreator::SetLineJoin(int value) {
    if (value >= 0 && value <= 2) writeNumbers({static_cast<double>(value)}, " j");
}

void clsPDFCreator::SetMiterLimit(double value) {
    if (value >= 1) writeNumbers({value}, " M");
}

void clsPDFCreator::Paint(int options) {
    if ((options & fillPath) != 0) return Writeline("f");
    if ((options & closePath) != 0) Writeline("h");
    if ((options & strokePath) != 0) Writeline("S");
}

void clsPDFCreator::MoveTo(double x, double y) { writeNumbers({points(x), points(y)}, " m"); }

void clsPDFCreator::LineTo(double x, double y, int options) {
    writeNumbers({points(x), points(y)}, " l");
    Paint(options);
}

void clsPDFCreator::Curve(double x1, double y1, double x2, double y2, double x3, double y3, int options) {
    writeNumbers({points(x1), points(y1), points(x2), points(y2), points(x3), points(y3)}, " c");
    Paint(options);
}

void clsPDFCreator::Rectangle(double x, double y, double w, double h, int options, double radius) {
    Writeline("n");  // drops a path in progress
    if (radius > 0) {
        roundedRectangle(x, y, w, h, std::min({radius, w / 2, h / 2}));
    } else {
        writeNumbers({points(x), points(y), points(w), points(h)}, " re");
    }
    Paint(options);
}

/// Counter-clockwise from the left end of the lower side.
void clsPDFCreator::roundedRectangle(double x, double y, double w, double h, double radius) {
    const double right = x + w;
    const double top = y + h;
    const double rest = radius * (1 - quarterCircle);  // from the corner of the frame to a control point
    MoveTo(x + radius, y);
    LineTo(right - radius, y, 0);
    Curve(right - rest, y, right, y + rest, right, y + radius, 0);
    LineTo(right, top - radius, 0);
    Curve(right, top - rest, right - rest, top, right - radius, top, 0);
    LineTo(x + radius, top, 0);
    Curve(x + rest, top, x, top - rest, x, top - radius, 0);
    LineTo(x, y + radius, 0);
    Curve(x, y + rest, x + rest, y, x + radius, y, 0);
}

void clsPDFCreator::DrawCircle(double x, double y, double r, int options) {
    const double control = quarterCircle * r;
    MoveTo(x, y - r);
    Curve(x + control, y - r, x + r, y - control, x + r, y, 0);
    Curve(x + r, y + control, x + control, y + r, x, y + r, 0);
    Curve(x - control, y + r, x - r, y + control, x - r, y, 0);
    Curve(x - r, y - control, x - control, y - r, x, y - r, 0);
    Paint(options);
}

void clsPDFCreator::Arc(double x, double y, double r, double start, double end, double ratio, bool pie,
                        double rotation, double step, int options) {
    const double steps = (end - start) / step;
    if (!std::isfinite(steps) || start + step == start || end + step == end) {
        throw std::invalid_argument("An arc cannot be drawn in such steps.");
    }
    if ((options & fillPath) != 0) pie = true;
    Writeline("n");  // drops a path in progress
    MoveTo(x, y);
    const double sr = std::sin(-radians * rotation);
    const double cr = std::cos(-radians * rotation);
    const double slack = 1e-9;  // of a step, so that rounding does not lose the end
    for (double i = 0; i <= steps + slack; ++i) {
        const double a = start + i * step;
        const double px = r * std::cos(radians * a);
        const double py = ratio * r * std::sin(radians * a);
        const double toX = x + cr * px + sr * py;
        const double toY = y + cr * py - px * sr;
        if (!pie && i == 0) MoveTo(toX, toY);
        LineTo(toX, toY, 0);
    }
    if (pie) LineTo(x, y, 0);
    Paint(options);
}

void clsPDFCreator::DrawText(double x, double y, std::string_view text, std::string_view fontName, float size,
                             int align, double angle) {
    if (align == alignRight) x -= Length(text, fontName, size);
    if (align == alignCentre) x -= Length(text, fontName, size) / 2;
    const std::string sizeText = numberText(size);
    Writeline("BT");
    Writeline("/" + std::string(fontName) + " " + sizeText + " Tf");
    if (angle == 0) {
        writeNumbers({points(x), points(y)}, " Td");
    } else {
        const double cosine = std::cos(radians * angle);
        const double sine = std::sin(radians * angle);
        writeNumbers({cosine, sine, -sine, cosine, points(x), points(y)}, " Tm");
    }
    line_.assign("(").append(text).append(") Tj");
    Writeline(line_);
    Writeline("ET");
}

void clsPDFCreator::StartObject(const std::string& name, int options) {
    const int form = NewObject();
    writeLines({"<<", "/Type /XObject", "/Subtype /Form", "/FormType 1", "/Name /" + name,
                "/BBox " + cropBox(), "/Matrix [1 0 0 1 0 0]",
                "/Length " + std::to_string(nextObject()) + " 0 R >>"});
    startStream();
    document_.formList += "/" + name + " " + std::to_string(form) + " 0 R \r";
    document_.repeating.push_back({name, options});
}

void clsPDFCreator::DrawObject(std::string_view name) { Writeline("/" + std::string(name) + " Do"); }

void clsPDFCreator::drawRepeatingObjects() {
    const bool first = document_.pages == 1;
    const bool even = document_.pages % 2 == 0;
    constexpr int everyPage = onFirstPage | onEvenPages | onOddPages;
    for (const auto& [name, options] : document_.repeating) {
        const bool kept = !(first && (options & notOnFirstPage) != 0);
        const bool every = (options & everyPage) == everyPage;
        const bool byNumber = (options & (even ? onEvenPages : onOddPages)) != 0;
        // Kept: what is asked for the first page by its own bit shows there against notOnFirstPage:
        // documents that set both rely on it.
        const bool onlyFirst = !every && first && (options & onFirstPage) != 0;
        if ((kept && byNumber) || onlyFirst) DrawObject(name);
    }
}

}  // namespace marvello
