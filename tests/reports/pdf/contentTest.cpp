#include <gmock/gmock.h>

#include "tests/reports/pdf/PdfFile.h"

namespace marvello::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(PdfContent, StateOfTextAndGraphics) {
    EXPECT_THAT(contentOf([](clsPDFCreator& pdf) {
                    pdf.SetWordSpacing(1.5);
                    pdf.SetCharSpacing(-0.25);
                    pdf.SetTextHorizontalScaling(90);
                    pdf.SetTextRenderingMode(1);
                    pdf.SetDash(3, 1.5);
                    pdf.SetDash(0, 0);
                    pdf.SetLineWidth(0.5);
                    pdf.SetLineCap(2);
                    pdf.SetLineJoin(1);
                    pdf.SetMiterLimit(1);
                }),
                ElementsAre("1.5 Tw", "-0.25 Tc", "90 Tz", "1 Tr", "[3 1.5] 0 d", "[ ] 0 d", "0.5 w", "2 J",
                            "1 j", "1 M"));
    EXPECT_THAT(contentOf([](clsPDFCreator& pdf) {
                    for (const int value : {-1, 2}) pdf.SetTextRenderingMode(value);
                    for (const int value : {-1, 3}) pdf.SetLineCap(value);
                    for (const int value : {-1, 3}) pdf.SetLineJoin(value);
                    pdf.SetMiterLimit(0.99);
                }),
                IsEmpty());
}

TEST(PdfContent, ColoursAreGreyLevelsOrRedInTheLowByte) {
    EXPECT_THAT(
        contentOf([](clsPDFCreator& pdf) {
            for (const int colour : {0, -128, -255, 255, 0xFF8000, -256}) pdf.SetColorStroke(colour);
            for (const int colour : {-51, 0x3300}) pdf.SetColorFill(colour);
        }),
        // 128/255 = 0.50196; -256 is 0xFFFFFF00; 51/255 = 0.2.
        ElementsAre("0 G", "0.502 G", "1 G", "1 0 0 RG", "0 0.502 1 RG", "0 1 1 RG", "0.2 g", "0 0.2 0 rg"));
}

TEST(PdfContent, PathsEndAsTheirOptionsTell) {
    EXPECT_THAT(contentOf([](clsPDFCreator& pdf) {
                    for (const int options : {0, 1, 2, 3, 4, 7}) pdf.LineTo(1, 2, options);
                    pdf.SetScaleMode(1);
                    pdf.Curve(0, 0.5, 1, 1.5, 2, 2.5, strokePath);
                }),
                ElementsAre("1 2 l", "1 2 l", "S", "1 2 l", "h", "1 2 l", "h", "S", "1 2 l", "f", "1 2 l",
                            "f", "0 36 72 108 144 180 c", "S"));
}

TEST(PdfContent, Rectangles) {
    // Corner (10, 20), 40 by 30; a control point is 0.55 * 10 from the end of its curve, 4.5 from the corner.
    const auto outline = ElementsAre("n", "20 20 m", "40 20 l", "45.5 20 50 24.5 50 30 c", "50 40 l",
                                     "50 45.5 45.5 50 40 50 c", "20 50 l", "14.5 50 10 45.5 10 40 c",
                                     "10 30 l", "10 24.5 14.5 20 20 20 c", "f");
    EXPECT_THAT(contentOf([](clsPDFCreator& pdf) { pdf.Rectangle(10, 20, 40, 30, fillPath, 10); }), outline);
    // A radius of more than half the height gives round ends: no length is left of the upright sides.
    const auto wide = contentOf([](clsPDFCreator& pdf) { pdf.Rectangle(0, 0, 100, 20, strokePath, 60); });
    EXPECT_EQ(wide.at(3), "95.5 0 100 4.5 100 10 c");
    EXPECT_EQ(wide.at(4), "100 10 l");
    EXPECT_THAT(contentOf([](clsPDFCreator& pdf) { pdf.Rectangle(1, 2, 3, 4, closePath | strokePath); }),
                ElementsAre("n", "1 2 3 4 re", "h", "S"));
}

TEST(PdfContent, Circle) {
    EXPECT_THAT(contentOf([](clsPDFCreator& pdf) { pdf.DrawCircle(100, 50, 20, fillPath); }),
                ElementsAre("100 30 m", "111 30 120 39 120 50 c", "120 61 111 70 100 70 c",
                            "89 70 80 61 80 50 c", "80 39 89 30 100 30 c", "f"));
}

TEST(PdfContent, Arcs) {
    const auto arc = [](double start, double end, double ratio, bool pie, double rotation, double step,
                        int options) {
        return contentOf([=](clsPDFCreator& pdf) {
            pdf.Arc(100, 50, 10, start, end, ratio, pie, rotation, step, options);
        });
    };
    EXPECT_THAT(arc(0, 180, 1, false, 0, 90, strokePath),
                ElementsAre("n", "100 50 m", "110 50 m", "110 50 l", "100 60 l", "90 50 l", "S"));
    EXPECT_THAT(arc(0, 100, 0.5, true, 0, 90, closePath),  // stops short of the end
                ElementsAre("n", "100 50 m", "110 50 l", "100 55 l", "100 50 l", "h"));
    EXPECT_THAT(arc(90, 0, 0.5, false, 90, -90, fillPath),  // backwards, a pie, turned to the left
                ElementsAre("n", "100 50 m", "95 50 l", "100 60 l", "100 50 l", "f"));
    EXPECT_EQ(arc(0, 1, 1, true, 0, 0.1, 0).size(), 2U + 11U + 1U);  // ten tenths reach the end
    EXPECT_THAT(arc(10, 0, 1, false, 0, 1, strokePath), ElementsAre("n", "100 50 m", "S"));
}

TEST(PdfContent, TextStandsAtItsPlace) {
    const auto lines = [](int align, double angle, const char* font = "F") {
        return linesOf(
            writtenBy([=](clsPDFCreator& pdf) { pdf.DrawText(72, 36, "ab\\) c", font, 10, align, angle); },
                      [](clsPDFCreator& pdf) {
                          pdf.SetScaleMode(0);
                          pdf.LoadFont("F", "Courier New", 1);
                      })
                .stream(9));
    };
    EXPECT_THAT(lines(1, 0), ElementsAre("BT", "/F 10 Tf", "72 36 Td", "(ab\\) c) Tj", "ET"));
    EXPECT_EQ(lines(2, 0).at(2), "36 36 Td");  // six characters of 6 points
    EXPECT_EQ(lines(3, 0).at(2), "54 36 Td");
    EXPECT_EQ(lines(9, 0).at(2), "72 36 Td");
    EXPECT_EQ(lines(2, 0, "G").at(2), "72 36 Td");  // a font that cannot be measured
    EXPECT_EQ(lines(1, 30).at(2), "0.866 0.5 -0.5 0.866 72 36 Tm");
    EXPECT_EQ(lines(1, -90).at(2), "0 -1 1 0 72 36 Tm");
}

TEST(PdfContent, FormsShowOnTheirPages) {
    const Folder folder;
    clsPDFCreator pdf(fixedSurroundings());
    pdf.SetMargin(5);
    pdf.InitPDFFile(folder / "test.pdf");
    // Each name is its options in hexadecimal, so the expected names below are told by the meaning of the
    // bits.
    for (int options = 0; options < 16; ++options) {
        pdf.StartObject(std::string(1, "0123456789ABCDEF"[options]), options);
        pdf.EndObject();
    }
    for (int page = 1; page <= 3; ++page) {
        pdf.StartPage();
        pdf.DrawObject("own");
        pdf.EndPage();
    }
    pdf.ClosePDFFile();
    const PdfFile file(readFile(folder / "test.pdf"));
    EXPECT_EQ(file.object(6),
              "6 0 obj\r<<\r/Type /XObject\r/Subtype /Form\r/FormType 1\r/Name /0\r"
              "/BBox [5 5 590.2 837]\r/Matrix [1 0 0 1 0 0]\r/Length 7 0 R >>\rstream\rendstream\r");
    const auto shown = [&](int page) {
        std::string names;
        for (const std::string& line : linesOf(file.stream(39 + 3 * (page - 1))))
            names += line.substr(1, line.find(' ') - 1);
        return names;
    };
    // Page 1: bit 1 or bit 4; with bit 8 only what has bit 1, but not on every page.
    EXPECT_EQ(shown(1), "1345679BDown");
    EXPECT_EQ(shown(2), "2367ABEFown");
    EXPECT_EQ(shown(3), "4567CDEFown");
}

}  // namespace
}  // namespace marvello::test
