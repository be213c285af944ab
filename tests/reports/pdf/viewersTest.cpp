// What common viewers make of the files: they warn, rebuild the cross-reference and draw every page.
#include <gmock/gmock.h>

#include <regex>
#include <sstream>

#include "tests/reports/pdf/PdfFile.h"
#include "tests/tools/CallProgram.h"

namespace marvello::test {
namespace {

using ::testing::HasSubstr;

testing::Answer call(const std::string& command) { return testing::callCommand(command + " 2>&1"); }

/// A picture in the plain binary form of PPM.
class Picture {
  public:
    explicit Picture(const std::string& file) : bytes_(readFile(file)) {
        std::istringstream header(bytes_);
        std::string kind;
        int most = 0;
        header >> kind >> width_ >> height_ >> most;
        first_ = static_cast<std::size_t>(header.tellg()) + 1;
    }
    /// The colour at a point of the page, from its lower left corner; one pixel is one point.
    std::string at(double x, double y) const {
        const auto pixel =
            static_cast<std::size_t>((height_ - 1 - static_cast<int>(y)) * width_ + static_cast<int>(x));
        std::string name;
        for (std::size_t i = 0; i < 3; ++i) {
            const auto part = static_cast<unsigned char>(bytes_.at(first_ + 3 * pixel + i));
            name += part > 240 ? '1' : part < 15 ? '0' : '?';
        }
        return name;
    }

  private:
    std::string bytes_;
    int width_ = 0;
    int height_ = 0;
    std::size_t first_ = 0;
};

TEST(PdfViewers, ShapesStandAtTheirPlaces) {
    const Folder folder;
    writeSample(folder / "shapes.pdf");
    ASSERT_EQ(call("pdftoppm -r 72 -singlefile " + folder / "shapes.pdf" + " " + folder / "poppler").status,
              0);
    ASSERT_EQ(
        call("mutool draw -r 72 -o " + folder / "mupdf.ppm" + " " + folder / "shapes.pdf" + " 1").status, 0);
    for (const char* viewer : {"poppler.ppm", "mupdf.ppm"}) {
        const Picture picture(folder / viewer);
        const struct {
            double x, y;
            const char* colour;
        } points[]{{22, 32, "100"},  {58, 48, "100"},  {17, 40, "111"},
                   {40, 53, "111"},  // rectangle
                   {100, 68, "001"}, {82, 50, "001"},  {100, 73, "111"},
                   {118, 68, "111"},                                      // circle
                   {60, 90, "010"},  {60, 94, "111"},  {112, 90, "111"},  // line
                   {145, 15, "001"}, {155, 15, "001"}, {145, 25, "001"},
                   {156, 26, "111"},  // pie without its first quarter
                   {150, 80, "001"}, {170, 80, "111"}, {150, 60, "100"},
                   {170, 60, "010"}};  // image
        for (const auto& [x, y, colour] : points)
            EXPECT_EQ(picture.at(x, y), colour) << viewer << " " << x << " " << y;
    }
}

TEST(PdfViewers, FilesAreRepairedAndDrawn) {
    const Folder folder;
    const std::string file = folder / "sample.pdf";
    writeSample(file);
    const testing::Answer check = call("qpdf --check " + file);
    EXPECT_EQ(check.status, 3) << check.out;  // warnings, no errors
    // Only the warnings that docs/pdf.md tells.
    std::istringstream lines(check.out);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("WARNING:")) continue;
        EXPECT_TRUE(std::regex_search(
            line,
            std::regex("file is damaged|xref not found|Attempting to reconstruct|stream keyword followed by "
                       "carriage return only|expected endstream|stream length")))
            << line;
    }
    EXPECT_THAT(call("pdfinfo " + file).out,
                AllOf(HasSubstr("Title:           What a page can hold\n"), HasSubstr("Pages:           2\n"),
                      HasSubstr("200 x 100 pts")));
    const std::string text = call("pdftotext -q -layout " + file + " -").out;
    EXPECT_THAT(text, HasSubstr("R134a at 2/40 °C: 69,9 kW, € 1.234"));
    const testing::Answer drawn = call("mutool draw -o " + folder / "page-%d.ppm" + " -r 72 " + file);
    EXPECT_EQ(drawn.status, 0) << drawn.out;
    for (const char* page : {"page-1.ppm", "page-2.ppm"})
        EXPECT_EQ(Picture(folder / page).at(5, 98), "001") << page;  // the header's blue
}

}  // namespace
}  // namespace marvello::test
