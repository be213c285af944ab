#include "tests/reports/pdf/PdfFile.h"

#include <fstream>
#include <iterator>

namespace marvello::test {

PdfSurroundings fixedSurroundings(const std::string& folder) {
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = 10;
    time.tm_mday = 5;
    time.tm_hour = 7;
    time.tm_min = 8;
    time.tm_sec = 9;
    return {[time] { return time; }, [] { return 3; }, [folder] { return folder; }};
}

std::string readFile(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\r', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

PdfFile::PdfFile(std::string bytes) : bytes_(std::move(bytes)) {
    const std::size_t begin = bytes_.rfind("\nxref\r") + 6;
    const std::size_t end = bytes_.find("trailer\r", begin);
    references_ = linesOf(bytes_.substr(begin, end - begin));
    references_.erase(references_.begin());
}

std::string PdfFile::object(int number) const {
    const std::string line = references_.at(static_cast<std::size_t>(number - 1));
    if (line.empty()) return "";
    const std::size_t begin = std::stoull(line) - 1;
    return bytes_.substr(begin, bytes_.find("endobj\r\n", begin) - begin);
}

std::string PdfFile::stream(int number) const {
    const std::string whole = object(number);
    const std::size_t begin = whole.find("\rstream\r") + 8;
    const std::size_t end = whole.rfind("\rendstream\r");
    return end < begin ? "" : whole.substr(begin, end - begin);  // an empty one has no line end of its own
}

void writeSample(const std::string& file, PdfSurroundings surroundings) {
    clsPDFCreator pdf(std::move(surroundings));
    pdf.SetTitle("What a page can hold");
    pdf.SetPaperWidth(200);
    pdf.SetPaperHeight(100);
    pdf.InitPDFFile(file);
    // Rows from the bottom: red and green, blue and white.
    pdf.LoadImgFromBuffer("I", {"\2\0\2\0\30\xFF\0\0\0\xFF\0\0\0\xFF\xFF\xFF\xFF", 17}, "", false);
    const std::vector<std::pair<std::string, std::string>> fonts{
        {"A", "Arial"}, {"C", "Courier New"}, {"T", "Times New Roman"}};
    for (const auto& [name, family] : fonts) pdf.LoadFont(name, family, 1);
    pdf.StartObject("Header", onFirstPage | onEvenPages | onOddPages);
    pdf.SetColorFill(0xFF0000);
    pdf.Rectangle(0, 96, 200, 4, fillPath);
    pdf.EndObject();
    pdf.StartPage();
    pdf.SetColorFill(0x0000FF);
    pdf.Rectangle(20, 30, 40, 20, fillPath);
    pdf.SetColorFill(0xFF0000);
    pdf.DrawCircle(100, 50, 20, fillPath);
    pdf.SetColorStroke(0x00FF00);
    pdf.SetLineWidth(4);
    pdf.MoveTo(10, 90);
    pdf.LineTo(110, 90, strokePath);
    pdf.Arc(150, 20, 15, 90, 360, 1, true, 0, 2, fillPath);
    pdf.DrawImg("I", 140, 90, 40, 40);
    pdf.EndPage();
    pdf.StartPage();
    double y = 0;
    for (const auto& [name, family] : fonts)
        pdf.DrawText(12.5, y += 20,
                     "R134a at 2/40 \xB0"
                     "C: 69,9 kW, \x80 1.234",
                     name, 8);
    pdf.EndPage();
    pdf.ClosePDFFile();
}

PdfFile writtenBy(const std::function<void(clsPDFCreator&)>& draw,
                  const std::function<void(clsPDFCreator&)>& before) {
    const Folder folder;
    clsPDFCreator pdf(fixedSurroundings());
    pdf.InitPDFFile(folder / "test.pdf");
    if (before) before(pdf);
    pdf.StartPage();
    draw(pdf);
    pdf.EndPage();
    pdf.ClosePDFFile();
    return PdfFile(readFile(folder / "test.pdf"));
}

std::vector<std::string> contentOf(const std::function<void(clsPDFCreator&)>& draw) {
    return linesOf(writtenBy(draw).stream(7));
}

}  // namespace marvello::test
