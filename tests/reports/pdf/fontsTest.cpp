#include <ft2build.h>
#include <gmock/gmock.h>
#include <iconv.h>

#include <array>
#include <cmath>
#include <memory>
#include FT_FREETYPE_H

#include "reports/pdf/FontMetrics.h"
#include "tests/reports/pdf/PdfFile.h"

namespace marvello::test {
namespace {

using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

/// The letter of a byte in Windows-1252; 0 for a byte without one.
char32_t letterOf(int code) {
    const iconv_t conversion = iconv_open("UTF-32LE", "WINDOWS-1252");
    char byte = static_cast<char>(code);
    char* from = &byte;
    std::size_t left = 1;
    char32_t letter = 0;
    auto* to = reinterpret_cast<char*>(&letter);
    std::size_t room = sizeof letter;
    const bool converted = iconv(conversion, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
    iconv_close(conversion);
    return converted ? letter : 0;
}

/// The advance widths of a font file for the codes 32 to 255, and `empty` for a code without a letter.
std::vector<int> widthsIn(const std::string& file, int empty) {
    FT_Library library = nullptr;
    FT_Init_FreeType(&library);
    FT_Face face = nullptr;
    std::vector<int> widths;
    if (FT_New_Face(library, file.c_str(), 0, &face) == 0) {
        for (int code = 32; code < 256; ++code) {
            const FT_UInt glyph = FT_Get_Char_Index(face, letterOf(code));
            FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE);
            const auto units = static_cast<double>(face->glyph->metrics.horiAdvance);
            widths.push_back(glyph == 0 ? empty
                                        : static_cast<int>(std::lround(1000 * units / face->units_per_EM)));
        }
    }
    FT_Done_FreeType(library);
    return widths;
}

// Liberation's fonts have the widths of the named ones, letter by letter; only their empty box is narrower.
// That of the named fonts is 1593 of 2048 units in Times New Roman, 1536 in Arial.
TEST(PdfFonts, WidthsAreThoseOfTheCompatibleFonts) {
    const struct {
        const char* file;
        int empty;
    } families[]{{"Mono", 600}, {"Serif", 778}, {"Sans", 750}};
    const char* const styles[]{"Regular", "Bold", "Italic", "BoldItalic"};
    for (int family = 1; family <= 3; ++family) {
        for (int style = 1; style <= 4; ++style) {
            const auto& [name, empty] = families[family - 1];
            const std::string file = std::string("/usr/share/fonts/truetype/liberation/Liberation") + name +
                                     "-" + styles[style - 1] + ".ttf";
            const std::vector<int> expected = widthsIn(file, empty);
            ASSERT_EQ(expected.size(), 224U) << file;
            EXPECT_THAT(fontMetrics(family, style).widths, ElementsAreArray(expected)) << file;
        }
    }
}

TEST(PdfFonts, RecordOfEachFamilyAndStyle) {
    EXPECT_EQ(fontMetrics(2, 4).baseFont, "TimesNewRoman,BoldItalic");
    EXPECT_EQ(fontMetrics(3, 1).baseFont, "Arial");
    // Adobe's metrics of Symbol: space 250, alpha 631, "sum" 713 at 229; the first code is 30.
    const FontMetrics& symbol = fontMetrics(4, 3);
    EXPECT_EQ(symbol.widths.size(), 226U);
    EXPECT_EQ(symbol.width(32), 250);
    EXPECT_EQ(symbol.width('a'), 631);
    EXPECT_EQ(symbol.width(229), 713);
    for (const auto& [family, style] : {std::pair(0, 1), {5, 1}, {1, 0}, {1, 5}})
        EXPECT_THROW(fontMetrics(family, style), std::out_of_range);
}

TEST(PdfFonts, LoadFontWritesFontAndDescriptor) {
    const PdfFile file = writtenBy([](clsPDFCreator&) {},
                                   [](clsPDFCreator& pdf) {
                                       pdf.LoadFont("Skipped", "Arial", 0);
                                       pdf.LoadFont("Skipped", "Arial", 5);
                                       pdf.LoadFont("A", "times New roman", 3);  // 6, 7
                                       pdf.LoadFont("B", "Verdana", 2);          // 8, 9
                                       pdf.LoadFontStandard("C", "Times Roman", 4);
                                   });
    const auto font = linesOf(file.object(6));
    ASSERT_EQ(font.size(), 10U + 14U + 1U);
    EXPECT_EQ(file.object(6).substr(0, file.object(6).find("250")),
              "6 0 obj\r<< /Type /Font \r/Subtype /TrueType\r/Name /A\r/BaseFont /TimesNewRoman,Italic\r"
              "/FirstChar 32\r/LastChar 255\r/FontDescriptor 7 0 R\r/Encoding 3 0 R\r/Widths [\r");
    EXPECT_EQ(font.at(10), "250 333 420 500 500 833 778 214 333 333 500 675 250 333 250 278");
    EXPECT_EQ(font.back(), "] >>");
    EXPECT_EQ(file.object(7),
              "7 0 obj\r<<\r/Type /FontDescriptor\r/FontName /TimesNewRoman,Italic\r/Flags 98\r"
              "/FontBBox [-250 -216 1200 1000]\r/MissingWidth 389\r/StemV 73\r/StemH 73\r/ItalicAngle -11\r"
              "/CapHeight 891\r/XHeight 446\r/Ascent 891\r/Descent -216\r/Leading 149\r/MaxWidth 1000\r"
              "/AvgWidth 402\r>>\r");
    EXPECT_THAT(file.object(8), HasSubstr("/Name /B\r/BaseFont /CourierNew,Bold\r"));
    EXPECT_EQ(file.object(10),
              "10 0 obj\r<< /Type /Font /Subtype /Type1 /Name /C /BaseFont /TimesRoman,BoldItalic /Encoding "
              "3 0 R >>\r");
    EXPECT_THAT(file.object(14), HasSubstr("/A 6 0 R \r/B 8 0 R \r/C 10 0 R \r>>\r"));
}

TEST(PdfFonts, Length) {
    const Folder folder;
    clsPDFCreator pdf;
    pdf.InitPDFFile(folder / "test.pdf");
    pdf.LoadFont("C", "Courier New", 1);
    pdf.LoadFont("A", "ARIAL", 1);
    pdf.LoadFontStandard("S", "Helvetica", 1);
    EXPECT_EQ(pdf.Length("", "C", 10), 0);
    EXPECT_FLOAT_EQ(pdf.Length("12345", "C", 10), 30);
    EXPECT_FLOAT_EQ(pdf.Length(" ", "A", 10), 2.78F);
    EXPECT_FLOAT_EQ(pdf.Length("\x1F", "A", 10), 2.72F);          // the missing width
    EXPECT_FLOAT_EQ(pdf.Length("\x80\xFF", "A", 10), 5.56F + 5);  // Euro and y with diaeresis
    EXPECT_EQ(pdf.Length("12345", "S", 10), 0);
    EXPECT_EQ(pdf.Length("12345", "unknown", 10), 0);
    pdf.StartPage();
    pdf.SetWordSpacing(4);
    pdf.SetCharSpacing(0.5);
    pdf.SetTextHorizontalScaling(50);
    EXPECT_FLOAT_EQ(pdf.Length("a b c", "C", 10), (30 + 2 * 4 + 5 * 0.5F) / 2);
    pdf.EndPage();
    pdf.StartPage();  // begins with the usual spacing
    pdf.SetScaleMode(1);
    EXPECT_FLOAT_EQ(pdf.Length("a b c", "C", 10), 30 / 72.0F);
    pdf.SetCharSpacing(1);  // an inch as well
    EXPECT_FLOAT_EQ(pdf.Length("a b c", "C", 10), 30 / 72.0F + 5);
}

}  // namespace
}  // namespace marvello::test
