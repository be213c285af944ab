#include <gmock/gmock.h>

#include <limits>

#include "tests/reports/pdf/PdfFile.h"
#include "tests/support/FileSizeLimit.h"

namespace marvello::test {
namespace {

using namespace std::string_literals;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

TEST(PdfFailures, AFileThatCannotBeWrittenIsNamed) {
    const Folder folder;
    clsPDFCreator pdf;
    EXPECT_THAT([&] { pdf.InitPDFFile(folder / "none/test.pdf"); },
                ThrowsMessage<PdfFileError>(
                    AllOf(HasSubstr("none/test.pdf\" cannot be opened"), HasSubstr("No such file"))));
    EXPECT_THROW(pdf.InitPDFFile(folder.path()), PdfFileError);

    const auto noSpace = ThrowsMessage<PdfFileError>(HasSubstr("full.pdf\" cannot be written"));
    {
        const FileSizeLimit full(0);
        pdf.InitPDFFile(folder / "full.pdf");
        EXPECT_THAT([&] { pdf.ClosePDFFile(); }, noSpace);  // all of it is in the buffer until then
        pdf.InitPDFFile(folder / "full.pdf");
        pdf.StartPage();
        EXPECT_THAT([&] { pdf.DrawText(0, 0, std::string(1 << 20, 'x'), "F", 10); }, noSpace);
    }
    // The creator goes on with another file.
    pdf.InitPDFFile(folder / "test.pdf");
    pdf.ClosePDFFile();
    EXPECT_TRUE(readFile(folder / "test.pdf").ends_with("%%EOF\r"));
}

TEST(PdfFailures, CallsOutOfOrder) {
    const Folder folder;
    clsPDFCreator pdf;
    const auto draw = [&] {
        pdf.EndPage();
        pdf.EndObject();
        pdf.StartPage();
        pdf.StartObject("O", 7);
        pdf.StartPage();
        pdf.LoadFont("F", "Arial", 1);
        pdf.DrawText(0, 0, "x", "F", 10, alignRight);
        pdf.DrawImg("none", 0, 0, 1, 1);
        pdf.ClosePDFFile();
    };
    EXPECT_THROW(draw(), PdfFileError);
    EXPECT_THROW(pdf.ClosePDFFile(), PdfFileError);
    EXPECT_THROW(pdf.StartPage(), PdfFileError);
    EXPECT_EQ(pdf.Length("x", "F", 10), 0);
    for (int i = 0; i < 2; ++i) {
        pdf.InitPDFFile(folder / "left.pdf");  // the second time over one left open
        pdf.StartPage();
        pdf.InitPDFFile(folder / "test.pdf");
        EXPECT_NO_THROW(draw());
        EXPECT_THROW(pdf.EndPage(), PdfFileError);
    }
}

TEST(PdfFailures, NumbersThatAreNone) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    const auto content = contentOf([&](clsPDFCreator& pdf) {
        for (const double value : {infinity, -infinity, none}) {
            EXPECT_THROW(pdf.MoveTo(1, value), std::domain_error);
            EXPECT_THROW(pdf.SetDash(1, value), std::domain_error);
            EXPECT_THROW(pdf.SetMargin(value), std::domain_error);
            EXPECT_THROW(pdf.DrawText(0, 0, "x", "F", static_cast<float>(value)), std::domain_error);
        }
        EXPECT_THROW(pdf.SetPaperWidth(1e39), std::domain_error);
        for (const double step : {0.0, 1e-20, none})
            EXPECT_THROW(pdf.Arc(0, 0, 1, 10, 20, 1, false, 0, step, 1), std::invalid_argument) << step;
        EXPECT_THROW(pdf.Arc(0, 0, 1, 10, infinity, 1, false, 0, 1, 1), std::invalid_argument);
    });
    EXPECT_TRUE(content.empty());  // nothing is written by halves
}

TEST(PdfFailures, ImageBuffersThatAreTooShort) {
    const PdfFile file = writtenBy(
        [](clsPDFCreator&) {},
        [](clsPDFCreator& pdf) {
            for (const std::string& buffer :
                 {""s, "\1\0\1\0"s, "\1\0\1\0\30ab"s, "\xFF\xFF\xFF\xFF\30abc"s, "\x09\0\1\0\1a"s}) {
                for (const bool gray : {false, true})
                    EXPECT_THROW(pdf.LoadImgFromBuffer("I", buffer, "", gray), std::invalid_argument);
            }
            for (const char bits : {'\0', '\2', '\20', '\40'})
                pdf.LoadImgFromBuffer("I", "\1\0\1\0"s + bits, "", false);
            pdf.LoadImgFromBuffer("I", "\1\0\1\0\10abc"s, "pp", true);  // a palette of no colour
        });
    EXPECT_EQ(file.stream(6), "a");  // what stands behind the pixels is left out
    EXPECT_THAT(file.object(7), HasSubstr("/Length 0\r>>\rstream\r>\rendstream\r"));
}

TEST(PdfFailures, PagesAreCountedIn16Bits) {
    const Folder folder;
    clsPDFCreator pdf;
    pdf.InitPDFFile(folder / "test.pdf");
    for (int page = 1; page <= 32767; ++page) {
        pdf.StartPage();
        pdf.EndPage();
    }
    EXPECT_THROW(pdf.StartPage(), std::length_error);
    EXPECT_EQ(pdf.Pages(), 32767);
    EXPECT_NO_THROW(pdf.ClosePDFFile());
}

}  // namespace
}  // namespace marvello::test
