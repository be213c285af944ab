#include "tests/reports/pdf/Showcase.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace marvello {

namespace {

// Texts are bytes in Windows-1252; lengths are millimetres on A4.
constexpr double left = 20;
constexpr double right = 190;
constexpr double pageMiddle = 105;
constexpr int white = -255;
constexpr int black = 0;
constexpr int blue = 0x965014;
constexpr int amber = 0x1496E1;

constexpr std::array families{"Courier New", "Times New Roman", "Arial"};
constexpr std::array styles{"regular", "bold", "italic", "bold italic"};

void put(std::string& bytes, std::uint32_t value, int length) {
    for (int i = 0; i < length; ++i) bytes += static_cast<char>(value >> 8 * i & 0xFFU);
}

/// A Windows bitmap of 64 by 32 pixels with 1, 4, 8 or 24 bits each: a ramp from black to amber.
std::string rampBitmap(int bits) {
    constexpr int width = 64, height = 32;
    const int colours = bits == 24 ? 0 : 1 << bits;
    const auto colour = [](int step, int most) {
        const auto part = [&](int full) { return static_cast<std::uint32_t>(full * step / most); };
        return part(0x14) | part(0x96) << 8 | part(0xE1) << 16;
    };
    std::string palette;
    for (int i = 0; i < colours; ++i) put(palette, colour(i, colours - 1), 4);
    std::string row;
    for (int x = 0; x < width && bits == 24; ++x) put(row, colour(x, width - 1), 3);
    for (int x = 0; x < width && bits < 24; x += 8 / bits) {
        int byte = 0;
        for (int i = x; i < x + 8 / bits; ++i) byte = byte << bits | i * colours / width;
        row += static_cast<char>(byte);
    }
    const auto pixels = static_cast<std::uint32_t>(54 + palette.size());
    std::string bytes = "BM";
    for (const std::uint32_t value :
         {pixels + static_cast<std::uint32_t>(height * row.size()), 0U, pixels, 40U, 64U, 32U})
        put(bytes, value, 4);
    put(bytes, 1, 2);
    put(bytes, static_cast<std::uint32_t>(bits), 2);
    bytes += std::string(24, '\0') + palette;
    for (int y = 0; y < height; ++y) bytes += row;  // rows need no padding
    return bytes;
}

/// The name under which a family and style are loaded.
std::string fontName(std::size_t family, std::size_t style) {
    return "F" + std::to_string(family) + std::to_string(style);
}

void loadAll(clsPDFCreator& pdf, const std::filesystem::path& folder) {
    for (std::size_t family = 0; family < families.size(); ++family)
        for (std::size_t style = 0; style < styles.size(); ++style)
            pdf.LoadFont(fontName(family, style), families[family], static_cast<int>(style) + 1);
    pdf.LoadFontStandard("Helvetica", "Helvetica", 2);
    for (const int bits : {1, 4, 8, 24}) {
        const std::string name = "Bits" + std::to_string(bits);
        const std::string file = (folder / (name + ".bmp")).string();
        std::ofstream(file, std::ios::binary) << rampBitmap(bits);
        if (!pdf.LoadImgFromBMPFile(name, file, false) || !pdf.LoadImgFromBMPFile(name + "Grey", file, true))
            throw std::runtime_error("The bitmap \"" + file + "\" cannot be read.");
    }
}

void makeForms(clsPDFCreator& pdf) {
    pdf.StartObject("Header", onFirstPage | onEvenPages | onOddPages);
    pdf.SetColorFill(blue);
    pdf.Rectangle(0, 282, 210, 15, fillPath);
    pdf.SetColorFill(white);
    pdf.DrawText(left, 287, "Marvello", fontName(2, 1), 14);
    pdf.EndObject();
    pdf.StartObject("Star", 0);
    pdf.SetColorFill(amber);
    pdf.Arc(15, 272, 3.5, 90, 810, 1, false, 0, 144, fillPath);
    pdf.EndObject();
}

void textPage(clsPDFCreator& pdf) {
    double y = 265;
    for (std::size_t family = 0; family < families.size(); ++family) {
        for (std::size_t style = 0; style < styles.size(); ++style, y -= 8) {
            pdf.DrawText(left, y, std::string(families[family]) + " " + styles[style],
                         fontName(family, style), 12);
            pdf.DrawText(right, y,
                         "R134a at 2/40 \xB0"
                         "C: 69,9 kW, \x80 1.234",
                         fontName(family, style), 12, alignRight);
        }
    }
    pdf.DrawText(left, y, "Helvetica of the viewer", "Helvetica", 12);
    for (int angle = 0; angle < 360; angle += 30)
        pdf.DrawText(pageMiddle, 105, "       turned by " + std::to_string(angle), fontName(1, 0), 12,
                     alignLeft, angle);
    const std::string text = "as wide as Length tells";
    pdf.SetWordSpacing(1.5);
    pdf.SetCharSpacing(0.3);
    pdf.SetTextHorizontalScaling(120);
    const float width = pdf.Length(text, fontName(1, 2), 16);
    pdf.DrawText(pageMiddle, 40, text, fontName(1, 2), 16, alignCentre);
    pdf.SetColorStroke(amber);
    pdf.Rectangle(pageMiddle - width / 2.0, 38, width, 8, strokePath);
    pdf.SetTextRenderingMode(1);
    pdf.DrawText(pageMiddle, 20, "outlined", fontName(2, 1), 40, alignCentre);
    pdf.SetTextRenderingMode(0);
}

void pathsPage(clsPDFCreator& pdf) {
    pdf.SetColorStroke(blue);
    pdf.SetLineWidth(4);
    for (int i = 0; i < 3; ++i) {
        const double x = left + 58 * i;
        pdf.SetLineCap(i);
        pdf.SetLineJoin(i);
        pdf.SetMiterLimit(8);
        pdf.MoveTo(x + 4, 235);
        pdf.LineTo(x + 22, 253, 0);
        pdf.LineTo(x + 40, 235, strokePath);
    }
    pdf.SetLineWidth(0.7);
    for (int i = 0; i < 4; ++i) {
        pdf.SetDash(i, i == 0 ? 0 : 1);
        pdf.MoveTo(left, 226.0 - 3 * i);
        pdf.LineTo(right, 226.0 - 3 * i, strokePath);
    }
    pdf.SetDash(0, 0);
    pdf.SetColorFill(amber);
    pdf.Rectangle(left, 185, 30, 20, strokePath);
    pdf.Rectangle(left + 36, 185, 30, 20, strokePath, 4);
    pdf.Rectangle(left + 72, 185, 30, 20, fillPath, 40);
    pdf.DrawCircle(left + 120, 195, 10, strokePath);
    pdf.DrawCircle(left + 145, 195, 10, fillPath);
    pdf.Arc(left + 15, 155, 15, 0, 270, 1, false, 0, 2, strokePath);
    pdf.Arc(left + 55, 155, 15, 30, 150, 1, true, 0, 2, strokePath | closePath);
    pdf.Arc(left + 95, 155, 15, 0, 300, 1, true, 0, 2, fillPath);
    pdf.Arc(left + 140, 155, 20, 0, 360, 0.4, false, 30, 2, strokePath);
    pdf.MoveTo(left, 125);
    pdf.Curve(left + 60, 145, left + 110, 105, right, 125, strokePath);
    double y = 112;
    for (const char* name : {"Bits1", "Bits4", "Bits8", "Bits24"}) {
        pdf.DrawImg(name, left, y, 75, 22);
        pdf.DrawImg(std::string(name) + "Grey", pageMiddle, y, 75, 22);
        y -= 26;
    }
}

}  // namespace

void writeShowcase(const std::string& fileName, const std::string& folder, PdfSurroundings surroundings) {
    clsPDFCreator pdf(std::move(surroundings));
    pdf.SetTitle("Marvello: what a page can hold");
    pdf.SetScaleMode(2);
    pdf.InitPDFFile(fileName);
    loadAll(pdf, folder);
    makeForms(pdf);
    for (const auto page : {textPage, pathsPage}) {
        pdf.StartPage();
        pdf.DrawObject("Star");
        pdf.SetColorFill(black);
        page(pdf);
        pdf.EndPage();
    }
    pdf.ClosePDFFile();
}

}  // namespace marvello
