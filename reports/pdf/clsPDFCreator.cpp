#include "reports/pdf/clsPDFCreator.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <random>
#include <stdexcept>

#include "platform/LocalTime.h"
#include "reports/pdf/PdfNumber.h"

namespace marvello {

namespace {

/// Kept: lines end in a lone carriage return, but for "endobj", as readers of earlier files expect.
constexpr std::string_view carriageReturn = "\r";
constexpr int catalogueObject = 2;
constexpr int pageTreeObject = 4;
constexpr int lastReservedObject = 5;

struct Paper {
    float width;
    float height;
};
constexpr std::array<Paper, 4> papers{{{595.2F, 842}, {842, 1190.5F}, {612, 792}, {612, 864}}};

/// Points of one unit of a scale mode; 0 for a mode that there is not.
double unitOf(int mode) {
    switch (mode) {
        case 0:
            return 1;
        case 1:
            return 72;
        case 2:
            return 72 / 25.4;
        case 3:
            return 72 / 2.54;
        default:
            return 0;
    }
}

float singlePrecision(double value) {
    if (!(std::fabs(value) <= std::numeric_limits<float>::max())) {
        throw std::domain_error("A length on a PDF page is too large or not a number.");
    }
    return static_cast<float>(value);
}

std::string reference(int object) { return std::to_string(object) + " 0 R"; }

void replaceAll(std::string& text, std::string_view what, std::string_view by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
        text.replace(at, what.size(), by);
    }
}

/// Kept: the backslashes set before brackets are doubled as well, so a viewer shows them, as in earlier
/// files.
std::string escapedTitle(std::string title) {
    replaceAll(title, "(", "\\(");
    replaceAll(title, ")", "\\)");
    replaceAll(title, "\\", "\\\\");
    return title;
}

/// A number with zeros in front of it.
std::string padded(std::int64_t number, std::size_t digits) {
    std::string text = std::to_string(number);
    if (text.size() < digits) text.insert(0, digits - text.size(), '0');
    return text;
}

}  // namespace

PdfSurroundings PdfSurroundings::system() {
    return {localTime,
            [] {
                std::random_device seed;
                std::minstd_rand random(seed());
                return std::uniform_int_distribution<int>(0, 9)(random);
            },
            [] { return std::filesystem::temp_directory_path().string(); }};
}

clsPDFCreator::clsPDFCreator(PdfSurroundings surroundings) : surroundings_(std::move(surroundings)) {
    SetPaperSize(paperSize_);
}

void clsPDFCreator::SetPaperSize(int size) {
    paperSize_ = size;
    if (size < 0 || size >= static_cast<int>(papers.size())) return;
    paperWidth_ = papers[static_cast<std::size_t>(size)].width;
    paperHeight_ = papers[static_cast<std::size_t>(size)].height;
}

double clsPDFCreator::points(double length) const { return length * unitOf(scaleMode_); }

float clsPDFCreator::storedPoints(double length) const { return singlePrecision(points(length)); }

float clsPDFCreator::userLength(double points) const {
    const double unit = unitOf(scaleMode_);
    return unit == 0 ? 0 : singlePrecision(points / unit);
}

void clsPDFCreator::Writeline(std::string_view text) {
    stream_.write(text);
    stream_.write(carriageReturn);
}

void clsPDFCreator::writeLines(std::initializer_list<std::string_view> lines) {
    for (const std::string_view line : lines) Writeline(line);
}

void clsPDFCreator::writeNumbers(std::initializer_list<double> values, std::string_view rest) {
    line_.clear();
    for (const double value : values) {
        if (!line_.empty()) line_ += ' ';
        appendNumber(line_, value);
    }
    line_ += rest;
    line_ += carriageReturn;
    stream_.write(line_);
}

void clsPDFCreator::writeEndobj() { stream_.write("endobj\r\n"); }

int clsPDFCreator::NewObject(int number) {
    if (number == 0) number = nextObject();
    const auto index = static_cast<std::size_t>(number);
    if (number > document_.highestObject) document_.highestObject = number;
    if (document_.offsets.size() <= index) document_.offsets.resize(index + 1);
    document_.offsets[index] = stream_.position();
    Writeline(std::to_string(number) + " 0 obj");
    return number;
}

void clsPDFCreator::startStream() {
    Writeline("stream");
    document_.streamStart = stream_.position();
}

void clsPDFCreator::endStream() {
    const std::int64_t length = stream_.position() - document_.streamStart;
    Writeline("endstream");
    writeEndobj();
    NewObject();
    Writeline(std::to_string(length));
    writeEndobj();
}

std::string clsPDFCreator::InitPDFFile(const std::string& fileName) {
    stream_.abandon();
    document_ = {};
    const std::tm now = surroundings_.now();
    std::string name = fileName.empty() ? temporaryName(now) : fileName;
    stream_.open(name);
    Writeline("%PDF-1.3");
    writeFixedObjects(now);
    // Kept: 4 is held for the page tree and 5 for nothing, so the first page is always object 6, where
    // readers of earlier files look for it.
    document_.highestObject = lastReservedObject;
    return name;
}

std::string clsPDFCreator::temporaryName(const std::tm& now) const {
    const std::int64_t moment = ((now.tm_mday * 100 + now.tm_hour) * 100 + now.tm_min) * 100 + now.tm_sec;
    char digits[20];
    std::snprintf(digits, sizeof digits, "%llX",
                  static_cast<unsigned long long>(moment * 10 + surroundings_.randomDigit()));
    return (std::filesystem::path(surroundings_.folder()) / ("~" + std::string(digits) + ".pdf")).string();
}

void clsPDFCreator::writeFixedObjects(const std::tm& now) {
    std::string date = padded(now.tm_year + 1900, 4);
    for (const int part : {now.tm_mon + 1, now.tm_mday, now.tm_hour, now.tm_min, now.tm_sec}) {
        date += padded(part, 2);
    }
    NewObject();
    writeLines({"<<", "/Title (" + escapedTitle(title_) + ")", "/Author (oNNiVVa)",
                "/Creator  (Applicazione di prova)", "/Producer (oNNiVVa)",
                // Kept: the zone is that of the maker in winter, wherever and whenever the program runs.
                "/CreationDate (D:" + date + "+01'00')", ">>"});
    writeEndobj();
    NewObject();
    writeLines({"<<", "/Type /Catalog", "/Pages " + reference(pageTreeObject), "/PageLayout /OneColumn",
                "/PageMode /UseNone", "/Lang (it) ",
                "/ViewerPreferences << /HideToolbar false /DisplayDocTitle true /HideWindowUI false >>",
                ">>"});
    writeEndobj();
    document_.encodingObject = NewObject();
    writeLines({"<<", "/Type /Encoding", "/BaseEncoding /WinAnsiEncoding", ">>"});
    writeEndobj();
}

std::int16_t clsPDFCreator::StartPage() {
    if (document_.pages == std::numeric_limits<std::int16_t>::max()) {
        throw std::length_error("A PDF document has at most 32767 pages.");
    }
    ++document_.pages;
    const int page = NewObject();
    writeLines({"<<", "/Type /Page", "/Parent " + reference(pageTreeObject),
                "/Contents " + reference(nextObject()), ">>"});
    writeEndobj();
    document_.pageList += reference(page) + " ";
    NewObject();
    Writeline("<< /Length " + reference(nextObject()) + " >>");
    startStream();
    drawRepeatingObjects();
    document_.wordSpacing = 0;
    document_.charSpacing = 0;
    document_.horizontalScaling = 100;
    return document_.pages;
}

void clsPDFCreator::ClosePDFFile() {
    writePageTree(writeResources());
    writeCrossReferences();
    stream_.close();
}

int clsPDFCreator::writeResources() {
    const bool images = !document_.imageList.empty();
    const int number = NewObject();
    Writeline("<<");
    if (!document_.fontList.empty()) writeLines({"/Font <<", document_.fontList + ">>"});
    Writeline(std::string("/ProcSet [/PDF /Text") + (images ? " /ImageB /ImageC /ImageI" : "") + " ]");
    if (images || !document_.formList.empty()) {
        writeLines({"/XObject <<", document_.imageList, document_.formList + ">>"});
    }
    Writeline(">>");
    writeEndobj();
    return number;
}

/// The margin on all sides of the paper, in points.
std::string clsPDFCreator::cropBox() const {
    const std::string margin = numberText(margin_);
    return "[" + margin + " " + margin + " " + numberText(paperWidth_ - margin_) + " " +
           numberText(paperHeight_ - margin_) + "]";
}

void clsPDFCreator::writePageTree(int resources) {
    NewObject(pageTreeObject);
    writeLines({"<<", "/Type /Pages", "/Count " + std::to_string(document_.pages),
                "/MediaBox [0 0 " + numberText(paperWidth_) + " " + numberText(paperHeight_) + "]",
                "/CropBox " + cropBox()});
    if (orientation_ == 2) Writeline("/Rotate 90");
    writeLines({"/Kids [" + document_.pageList + " ]", "/Resources " + reference(resources), ">>"});
    writeEndobj();
}

void clsPDFCreator::writeCrossReferences() {
    const std::int64_t start = stream_.position();
    const std::string highest = std::to_string(document_.highestObject);
    writeLines({"xref", "0 " + highest});
    // Kept: there is no entry for object 0, object 1 is marked as free and the line of an unused number is
    // empty, as readers of earlier files expect.
    for (std::size_t number = 1; number < document_.offsets.size(); ++number) {
        const std::int64_t offset = document_.offsets[number];
        Writeline(offset == 0 ? ""
                              : padded(offset, 10) + (number < catalogueObject ? " 65535 f" : " 00000 n"));
    }
    writeLines({"trailer", "<<", "/Size " + highest, "/Info 1 0 R", "/Root " + reference(catalogueObject),
                ">>", "startxref", std::to_string(start), "%%EOF"});
}

}  // namespace marvello
