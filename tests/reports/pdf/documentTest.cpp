#include <gmock/gmock.h>

#include <cfloat>
#include <clocale>
#include <limits>
#include <locale>
#include <regex>

#include "reports/pdf/PdfNumber.h"
#include "tests/reports/pdf/PdfFile.h"

namespace marvello::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

/// Where the object begins in a file written by hand, counted from 1, as a line of the cross-reference.
std::string referenceTo(const std::string& file, int number, const char* rest = " 00000 n\r") {
    const std::string mark = std::to_string(number) + " 0 obj\r";
    std::size_t at = file.find("\n" + mark);
    if (at == std::string::npos) at = file.find("\r" + mark);
    std::string digits = std::to_string(at + 2);
    return std::string(10 - digits.size(), '0') + digits + rest;
}

TEST(PdfDocument, SmallestPageByteForByte) {
    std::string body =
        "%PDF-1.3\r"
        "1 0 obj\r<<\r/Title (\\\\(senza titolo\\\\))\r/Author (oNNiVVa)\r/Creator  (Applicazione di prova)\r"
        "/Producer (oNNiVVa)\r/CreationDate (D:20261105070809+01'00')\r>>\rendobj\r\n"
        "2 0 obj\r<<\r/Type /Catalog\r/Pages 4 0 R\r/PageLayout /OneColumn\r/PageMode /UseNone\r/Lang (it) \r"
        "/ViewerPreferences << /HideToolbar false /DisplayDocTitle true /HideWindowUI false "
        ">>\r>>\rendobj\r\n"
        "3 0 obj\r<<\r/Type /Encoding\r/BaseEncoding /WinAnsiEncoding\r>>\rendobj\r\n"
        "6 0 obj\r<<\r/Type /Page\r/Parent 4 0 R\r/Contents 7 0 R\r>>\rendobj\r\n"
        "7 0 obj\r<< /Length 8 0 R >>\rstream\r1 2 m\r3 4 l\rS\rendstream\rendobj\r\n"
        "8 0 obj\r14\rendobj\r\n"
        "9 0 obj\r<<\r/ProcSet [/PDF /Text ]\r>>\rendobj\r\n"
        "4 0 obj\r<<\r/Type /Pages\r/Count 1\r/MediaBox [0 0 595.2 842]\r/CropBox [0 0 595.2 842]\r"
        "/Kids [6 0 R  ]\r/Resources 9 0 R\r>>\rendobj\r\n";
    std::string tail = "xref\r0 9\r" + referenceTo(body, 1, " 65535 f\r");
    for (const int number : {2, 3, 4}) tail += referenceTo(body, number);
    tail += "\r";  // nothing has the number 5
    for (const int number : {6, 7, 8, 9}) tail += referenceTo(body, number);
    tail += "trailer\r<<\r/Size 9\r/Info 1 0 R\r/Root 2 0 R\r>>\rstartxref\r" +
            std::to_string(body.size() + 1) + "\r%%EOF\r";
    const PdfFile file = writtenBy([](clsPDFCreator& pdf) {
        pdf.MoveTo(1, 2);
        pdf.LineTo(3, 4, strokePath);
    });
    EXPECT_EQ(file.bytes(), body + tail);
}

TEST(PdfDocument, EveryReferenceAndStreamLengthIsRight) {
    const Folder folder;
    writeSample(folder / "sample.pdf");
    const PdfFile file(readFile(folder / "sample.pdf"));
    int streams = 0;
    for (int number = 1; number <= static_cast<int>(file.references().size()); ++number) {
        const std::string object = file.object(number);
        if (number == 5) continue;
        EXPECT_TRUE(object.starts_with(std::to_string(number) + " 0 obj\r")) << object.substr(0, 20);
        std::smatch length;
        if (!std::regex_search(object, length, std::regex("/Length (\\d+)( 0 R)?"))) continue;
        if (object.find("/ASCII85Decode") != std::string::npos) continue;  // told in imagesTest
        const int told = std::stoi(length[1]);
        const std::string bytes = file.stream(number);
        ++streams;
        if (length[2].matched) {  // a length that is known afterwards counts the end of the last line
            EXPECT_EQ(linesOf(file.object(told)).at(1), std::to_string(bytes.size() + 1)) << number;
        } else {
            EXPECT_EQ(static_cast<std::size_t>(told), bytes.size()) << number;
        }
    }
    EXPECT_EQ(streams, 2 + 1 + 1);  // pages, form and image
}

TEST(PdfDocument, PagesTakeThreeObjectsEach) {
    const Folder folder;
    clsPDFCreator pdf(fixedSurroundings());
    for (const int pages : {0, 3, 1}) {  // the same creator, one document after the other
        pdf.InitPDFFile(folder / "test.pdf");
        EXPECT_EQ(pdf.Pages(), 0);
        std::string kids = "/Kids [";
        for (int page = 1; page <= pages; ++page) {
            EXPECT_EQ(pdf.StartPage(), page);
            pdf.EndPage();
            kids += std::to_string(3 + 3 * page) + " 0 R ";
        }
        pdf.ClosePDFFile();
        const PdfFile file(readFile(folder / "test.pdf"));
        EXPECT_EQ(pdf.Pages(), pages);
        EXPECT_EQ(file.references().size(), 6U + 3U * static_cast<unsigned>(pages));
        EXPECT_THAT(file.object(4), HasSubstr("/Count " + std::to_string(pages) + "\r"));
        EXPECT_THAT(file.object(4), HasSubstr(kids + " ]\r"));
        EXPECT_TRUE(file.bytes().ends_with("%%EOF\r"));
    }
}

TEST(PdfDocument, ResourcesNameFontsImagesAndForms) {
    const PdfFile file = writtenBy([](clsPDFCreator&) {},
                                   [](clsPDFCreator& pdf) {
                                       pdf.LoadFontStandard("F", "Times Roman", 1);                   // 6
                                       pdf.LoadImgFromBuffer("I", {"\1\0\1\0\30abc", 8}, "", false);  // 7
                                       pdf.StartObject("O", 0);                                       // 8, 9
                                       pdf.EndObject();
                                   });
    EXPECT_EQ(file.object(13),
              "13 0 obj\r<<\r/Font <<\r/F 6 0 R \r>>\r"
              "/ProcSet [/PDF /Text /ImageB /ImageC /ImageI ]\r"
              "/XObject <<\r/I 7 0 R \r\r/O 8 0 R \r>>\r>>\r");
}

TEST(PdfDocument, PaperUnitsMarginAndOrientation) {
    const Folder folder;
    clsPDFCreator pdf(fixedSurroundings());
    pdf.SetTitle("a\\(b)");
    const auto tree = [&] {
        pdf.InitPDFFile(folder / "test.pdf");
        pdf.ClosePDFFile();
        return PdfFile(readFile(folder / "test.pdf")).object(4);
    };
    pdf.SetPaperSize(1);
    pdf.SetMargin(10);
    EXPECT_THAT(tree(), HasSubstr("/MediaBox [0 0 842 1190.5]\r/CropBox [10 10 832 1180.5]\r/Kids"));
    pdf.SetPaperSize(4);  // there is none
    EXPECT_THAT(tree(), HasSubstr("/MediaBox [0 0 842 1190.5]\r"));
    EXPECT_EQ(pdf.PaperSize(), 4);
    pdf.SetPaperSize(3);
    pdf.SetOrientation(2);
    EXPECT_THAT(tree(), HasSubstr("/MediaBox [0 0 612 864]\r/CropBox [10 10 602 854]\r/Rotate 90\r"));
    pdf.SetScaleMode(1);
    EXPECT_FLOAT_EQ(pdf.PaperHeight(), 12);
    pdf.SetPaperWidth(2);
    EXPECT_THAT(tree(), HasSubstr("/MediaBox [0 0 144 864]\r"));
    pdf.SetScaleMode(2);
    pdf.SetPaperWidth(254);
    pdf.SetScaleMode(3);
    pdf.SetPaperHeight(2.54);
    EXPECT_THAT(tree(), HasSubstr("/MediaBox [0 0 720 72]\r"));
    pdf.SetScaleMode(7);
    pdf.SetMargin(10);
    EXPECT_THAT(tree(), HasSubstr("/CropBox [0 0 720 72]\r"));
    // "(" gains a backslash, then each of the three backslashes is doubled.
    EXPECT_THAT(readFile(folder / "test.pdf"), HasSubstr("/Title (a\\\\\\\\(b\\\\))\r"));
}

TEST(PdfDocument, TemporaryName) {
    const Folder folder;
    clsPDFCreator pdf(fixedSurroundings(folder.path()));
    const std::string name = pdf.InitPDFFile("");
    // Day 5, 07:08:09 and the digit 3: 50708093 = 0x305BE7D.
    EXPECT_EQ(name, folder / "~305BE7D.pdf");
    pdf.ClosePDFFile();
    EXPECT_FALSE(readFile(name).empty());
    EXPECT_EQ(clsPDFCreator(fixedSurroundings(folder.path() + "/")).InitPDFFile(""), name);
    const int digit = PdfSurroundings::system().randomDigit();
    EXPECT_TRUE(digit >= 0 && digit <= 9);
}

TEST(PdfNumber, ThreeDecimalsHalfToEven) {
    // clang-format off
    const std::pair<double, const char*> cases[]{
        {0, "0"}, {-0.0, "0"}, {1, "1"}, {0.50196, "0.502"}, {-0.25, "-0.25"}, {0.0625, "0.062"}, {0.1875, "0.188"},
        {-0.0625, "-0.062"}, {0.0004, "0"}, {-0.0004, "0"}, {0.9996, "1"}, {-19.9999, "-20"}, {10.01, "10.01"},
        {10.001, "10.001"}, {1e6, "1000000"}, {123456789.125, "123456789.125"}, {2e12 + 0.25, "2000000000000.25"},
        {1e15, "1000000000000000"}, {-1e20, "-100000000000000000000"}};
    // clang-format on
    for (const auto& [value, text] : cases) EXPECT_EQ(numberText(value), text);
    EXPECT_EQ(numberText(DBL_MAX).size(), 309U);
}

/// For streams; the C functions get theirs by setlocale.
class DecimalComma : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(PdfDocument, IsTheSameInALocaleWithADecimalComma) {
    const Folder folder;
    const auto written = [&] {
        writeSample(folder / "sample.pdf", fixedSurroundings());
        return readFile(folder / "sample.pdf");
    };
    const std::string plain = written();
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    const std::string german = written();
    std::locale::global(std::locale::classic());
    std::setlocale(LC_ALL, "C");
    EXPECT_THAT(plain, HasSubstr("12.5 20 Td"));
    EXPECT_TRUE(plain == german);
}

}  // namespace
}  // namespace marvello::test
