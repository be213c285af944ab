#include "tests/reports/pdf/Showcase.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <stdexcept>
#include <utility>

#include "tests/reports/pdf/SamplePictures.h"

namespace marvello {

namespace {

// Texts are bytes in Windows-1252; lengths are millimetres on A4.
constexpr double left = 20;
constexpr double right = 190;
constexpr double pageMiddle = 105;
constexpr int black = 0;
constexpr int white = -255;
constexpr int lightGrey = -217;

constexpr int rgb(int red, int green, int blue) { return red | green << 8 | blue << 16; }
constexpr int blue = rgb(20, 80, 150);
constexpr int red = rgb(190, 40, 40);
constexpr int green = rgb(40, 130, 80);
constexpr int amber = rgb(225, 150, 20);

constexpr std::array<const char*, 3> families{"Courier New", "Times New Roman", "Arial"};
constexpr std::array<const char*, 4> styles{"regular", "bold", "italic", "bold italic"};

/// The name under which a family and style are loaded.
std::string fontName(std::size_t family, std::size_t style) {
    return "F" + std::to_string(family) + std::to_string(style);
}

class Showcase {
  public:
    Showcase(std::string folder, PdfSurroundings surroundings)
        : pdf_(std::move(surroundings)), folder_(std::move(folder)) {}
    void write(const std::string& fileName);

  private:
    void loadFonts();
    void loadImages();
    void makeForms();
    void startPage(const std::string& title);
    void label(double x, double y, const std::string& text, int align = alignLeft) {
        pdf_.DrawText(x, y, text, "Small", 8, align);
    }

    void fontsPage();
    void textPage();
    void rosette(double x, double y);
    void measuredBox(double y);
    void pathsPage();
    void lines(double y);
    void outlines(double y);
    void arcs(double y);
    void imagesPage();
    void image(const std::string& name, const std::string& text, double x, double y);

    clsPDFCreator pdf_;
    std::string folder_;
};

void Showcase::write(const std::string& fileName) {
    pdf_.SetTitle("Marvello: what a page can hold");
    pdf_.SetScaleMode(2);
    pdf_.InitPDFFile(fileName);
    loadFonts();
    loadImages();
    makeForms();
    fontsPage();
    textPage();
    pathsPage();
    imagesPage();
    pdf_.ClosePDFFile();
}

void Showcase::loadFonts() {
    for (std::size_t family = 0; family < families.size(); ++family) {
        for (std::size_t style = 0; style < styles.size(); ++style) {
            pdf_.LoadFont(fontName(family, style), families[family], static_cast<int>(style) + 1);
        }
    }
    pdf_.LoadFont("Small", "Arial", 1);
    pdf_.LoadFontStandard("Helvetica", "Helvetica", 1);
    pdf_.LoadFontStandard("HelveticaBold", "Helvetica", 2);
}

void Showcase::loadImages() {
    for (const int bits : {1, 4, 8, 24}) {
        const std::string name = "Bits" + std::to_string(bits);
        const std::string path = (std::filesystem::path(folder_) / (name + ".bmp")).string();
        std::ofstream(path, std::ios::binary) << sampleBitmap(bits);
        if (!pdf_.LoadImgFromBMPFile(name, path, false) ||
            !pdf_.LoadImgFromBMPFile(name + "Grey", path, true)) {
            throw std::runtime_error("The bitmap \"" + path + "\" cannot be read.");
        }
    }
}

void Showcase::makeForms() {
    pdf_.StartObject("Header", onFirstPage | onEvenPages | onOddPages);
    pdf_.SetColorFill(blue);
    pdf_.Rectangle(0, 282, 210, 15, fillPath);
    pdf_.SetColorFill(white);
    pdf_.DrawText(left, 287, "Marvello", fontName(2, 1), 14);
    pdf_.DrawText(right, 287, "a header on every page", "Small", 9, alignRight);
    pdf_.EndObject();

    const auto footer = [&](const std::string& name, int options, double x, int align,
                            const std::string& text) {
        pdf_.StartObject(name, options);
        pdf_.SetColorFill(black);
        pdf_.DrawText(x, 10, text, "Small", 8, align);
        pdf_.EndObject();
    };
    footer("Odd", onOddPages | notOnFirstPage, right, alignRight, "odd pages, not on the first");
    footer("Even", onEvenPages, left, alignLeft, "even pages");
    footer("First", onFirstPage, pageMiddle, alignCentre, "first page");

    pdf_.StartObject("Star", 0);
    pdf_.SetColorFill(amber);
    pdf_.Arc(15, 272, 3.5, 90, 810, 1, false, 0, 144, fillPath);
    pdf_.EndObject();
}

void Showcase::startPage(const std::string& title) {
    const int page = pdf_.StartPage();
    pdf_.SetColorFill(black);
    pdf_.DrawText(left, 270, title, fontName(2, 1), 16);
    label(right, 270, "page " + std::to_string(page), alignRight);
    pdf_.DrawObject("Star");
}

void Showcase::fontsPage() {
    startPage("Fonts");
    double y = 258;
    for (std::size_t family = 0; family < families.size(); ++family) {
        for (std::size_t style = 0; style < styles.size(); ++style) {
            pdf_.DrawText(left, y, std::string(families[family]) + " " + styles[style],
                          fontName(family, style), 12);
            pdf_.DrawText(right, y,
                          "R134a at 2/40 \xB0"
                          "C: 69,9 kW, \x80 1.234",
                          fontName(family, style), 12, alignRight);
            y -= 8;
        }
    }
    pdf_.DrawText(left, y, "Helvetica of the viewer", "Helvetica", 12);
    pdf_.DrawText(pageMiddle, y, "and its bold", "HelveticaBold", 12);
    y -= 14;
    label(left, y, "The codes 32 to 255 of Arial, 16 to a line:");
    for (int row = 2; row < 16; ++row) {
        y -= 6.5;
        for (int column = 0; column < 16; ++column) {
            std::string sign(1, static_cast<char>(16 * row + column));
            if (sign == "(" || sign == ")" || sign == "\\") sign.insert(0, "\\");
            pdf_.DrawText(left + 5 + 10.5 * column, y, sign, fontName(2, 0), 11, alignCentre);
        }
    }
    pdf_.EndPage();
}

void Showcase::rosette(double x, double y) {
    for (int angle = 0; angle < 360; angle += 30) {
        pdf_.SetColorFill(angle % 60 == 0 ? blue : green);
        pdf_.DrawText(x, y, "       turned by " + std::to_string(angle), fontName(1, 0), 12, alignLeft,
                      angle);
    }
    pdf_.SetColorFill(black);
}

/// A frame of the width that Length tells.
void Showcase::measuredBox(double y) {
    const std::string text = "as wide as Length tells";
    pdf_.SetWordSpacing(1.5);
    pdf_.SetCharSpacing(0.3);
    pdf_.SetTextHorizontalScaling(120);
    const float width = pdf_.Length(text, fontName(1, 2), 16);
    pdf_.DrawText(pageMiddle, y, text, fontName(1, 2), 16, alignCentre);
    pdf_.SetWordSpacing(0);
    pdf_.SetCharSpacing(0);
    pdf_.SetTextHorizontalScaling(100);
    pdf_.SetLineWidth(0.2);
    pdf_.SetColorStroke(red);
    pdf_.Rectangle(pageMiddle - width / 2.0, y - 2, width, 8, strokePath);
}

void Showcase::textPage() {
    startPage("Text");
    pdf_.SetLineWidth(0.2);
    pdf_.SetColorStroke(lightGrey);
    pdf_.MoveTo(pageMiddle, 262);
    pdf_.LineTo(pageMiddle, 236, strokePath);
    pdf_.DrawText(pageMiddle, 256, "begins at the line", fontName(2, 0), 12, alignLeft);
    pdf_.DrawText(pageMiddle, 248, "ends at the line", fontName(2, 0), 12, alignRight);
    pdf_.DrawText(pageMiddle, 240, "stands on its middle", fontName(2, 0), 12, alignCentre);
    rosette(pageMiddle, 175);
    measuredBox(110);
    pdf_.SetColorStroke(blue);
    pdf_.SetTextRenderingMode(1);
    pdf_.DrawText(pageMiddle, 85, "outlined", fontName(2, 1), 40, alignCentre);
    pdf_.SetTextRenderingMode(0);
    pdf_.EndPage();
}

void Showcase::lines(double y) {
    for (int i = 0; i < 3; ++i) {
        const double x = left + 58 * i;
        pdf_.SetLineWidth(4);
        pdf_.SetLineCap(i);
        pdf_.SetLineJoin(i);
        pdf_.SetMiterLimit(8);
        pdf_.SetColorStroke(blue);
        pdf_.MoveTo(x + 4, y);
        pdf_.LineTo(x + 22, y + 18, 0);
        pdf_.LineTo(x + 40, y, strokePath);
        pdf_.SetColorFill(black);
        label(x + 22, y - 8, "cap and join " + std::to_string(i), alignCentre);
    }
    pdf_.SetLineCap(0);
    pdf_.SetLineJoin(0);
    pdf_.SetLineWidth(0.7);
    pdf_.SetColorStroke(red);
    for (int i = 0; i < 4; ++i) {
        pdf_.SetDash(i, i == 0 ? 0 : 1);
        pdf_.MoveTo(left, y - 14.0 - 3 * i);
        pdf_.LineTo(right, y - 14.0 - 3 * i, strokePath);
    }
    pdf_.SetDash(0, 0);
}

void Showcase::outlines(double y) {
    pdf_.SetLineWidth(0.5);
    pdf_.SetColorStroke(black);
    pdf_.SetColorFill(amber);
    pdf_.Rectangle(left, y, 30, 20, strokePath);
    pdf_.Rectangle(left + 36, y, 30, 20, strokePath, 4);
    pdf_.Rectangle(left + 72, y, 30, 20, fillPath, 40);
    pdf_.DrawCircle(left + 120, y + 10, 10, strokePath);
    pdf_.SetColorFill(green);
    pdf_.DrawCircle(left + 145, y + 10, 10, fillPath);
    pdf_.SetColorFill(black);
    label(left + 15, y - 6, "Rectangle", alignCentre);
    label(left + 51, y - 6, "radius 4 mm", alignCentre);
    label(left + 87, y - 6, "the largest radius", alignCentre);
    label(left + 132, y - 6, "DrawCircle", alignCentre);
}

void Showcase::arcs(double y) {
    pdf_.SetColorStroke(blue);
    pdf_.SetColorFill(blue);
    pdf_.Arc(left + 15, y, 15, 0, 270, 1, false, 0, 2, strokePath);
    pdf_.Arc(left + 55, y, 15, 30, 150, 1, true, 0, 2, strokePath | closePath);
    pdf_.Arc(left + 95, y, 15, 0, 300, 1, true, 0, 2, fillPath);
    pdf_.Arc(left + 140, y, 20, 0, 360, 0.4, false, 30, 2, strokePath);
    pdf_.SetColorFill(black);
    label(left + 15, y - 22, "Arc", alignCentre);
    label(left + 55, y - 22, "pie", alignCentre);
    label(left + 95, y - 22, "filled", alignCentre);
    label(left + 140, y - 22, "ratio 0.4, turned", alignCentre);

    pdf_.SetColorStroke(red);
    pdf_.MoveTo(left, y - 50);
    pdf_.Curve(left + 60, y - 10, left + 110, y - 90, right, y - 50, strokePath);
    label(left, y - 60, "Curve");
}

void Showcase::pathsPage() {
    startPage("Paths");
    lines(235);
    outlines(175);
    arcs(140);
    pdf_.EndPage();
}

void Showcase::image(const std::string& name, const std::string& text, double x, double y) {
    pdf_.DrawImg(name, x, y, 75, 50);
    label(x, y - 54, text);
}

void Showcase::imagesPage() {
    startPage("Images");
    double y = 260;
    for (const int bits : {1, 4, 8, 24}) {
        const std::string name = std::to_string(bits) + (bits == 1 ? " bit" : " bits");
        image("Bits" + std::to_string(bits), name, left, y);
        image("Bits" + std::to_string(bits) + "Grey", name + ", grey", pageMiddle, y);
        y -= 60;
    }
    pdf_.EndPage();
}

}  // namespace

void writeShowcase(const std::string& fileName, const std::string& folder, PdfSurroundings surroundings) {
    Showcase(folder, std::move(surroundings)).write(fileName);
}

}  // namespace marvello
