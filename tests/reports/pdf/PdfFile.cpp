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
