#include <algorithm>
#include <string>

#include "reports/pdf/FontMetrics.h"
#include "reports/pdf/clsPDFCreator.h"

namespace marvello {

namespace {

std::string withoutBlanks(std::string text) {
    std::erase(text, ' ');
    return text;
}

/// Plain letters only: those of the locale have no part in the names of fonts.
std::string upperCase(std::string text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
}

/// Kept: whatever is not known is Courier New, Symbol too, so that every text of a caller has a font.
int familyIndex(const std::string& family) {
    const std::string name = upperCase(withoutBlanks(family));
    if (name == "TIMESNEWROMAN") return 2;
    if (name == "ARIAL") return 3;
    return 1;
}

std::string styledName(std::string name, int style) {
    switch (style) {
        case 2:
            return name + ",Bold";
        case 3:
            return name + ",Italic";
        case 4:
            return name + ",BoldItalic";
        default:
            return name;
    }
}

std::string resource(const std::string& name, int object) {
    return "/" + name + " " + std::to_string(object) + " 0 R \r";
}

std::string joined(std::span<const std::int16_t> widths) {
    std::string line;
    for (const std::int16_t width : widths) {
        if (!line.empty()) line += ' ';
        line += std::to_string(width);
    }
    return line;
}

}  // namespace

void clsPDFCreator::LoadFont(const std::string& name, const std::string& family, int style) {
    if (style < 1 || style > fontStyles) return;
    const int index = familyIndex(family);
    const FontMetrics& metrics = fontMetrics(index, style);
    const int font = NewObject();
    writeLines({"<< /Type /Font ", "/Subtype /" + std::string(FontMetrics::subtype), "/Name /" + name,
                "/BaseFont /" + std::string(metrics.baseFont),
                "/FirstChar " + std::to_string(metrics.firstChar()),
                "/LastChar " + std::to_string(FontMetrics::lastChar),
                "/FontDescriptor " + std::to_string(nextObject()) + " 0 R",
                "/Encoding " + std::to_string(document_.encodingObject) + " 0 R", "/Widths ["});
    constexpr std::size_t widthsOfLine = 16;
    for (auto rest = metrics.widths; !rest.empty();
         rest = rest.subspan(std::min(rest.size(), widthsOfLine))) {
        Writeline(joined(rest.first(std::min(rest.size(), widthsOfLine))));
    }
    Writeline("] >>");
    writeEndobj();
    document_.fontList += resource(name, font);
    document_.fonts.push_back({name, index, style});
    writeFontDescriptor(metrics);
}

void clsPDFCreator::writeFontDescriptor(const FontMetrics& metrics) {
    NewObject();
    writeLines(
        {"<<", "/Type /FontDescriptor", "/FontName /" + std::string(metrics.baseFont),
         "/Flags " + std::to_string(metrics.flags), "/FontBBox " + std::string(metrics.box),
         "/MissingWidth " + std::to_string(metrics.missingWidth), "/StemV " + std::to_string(metrics.stem),
         "/StemH " + std::to_string(metrics.stem), "/ItalicAngle " + std::to_string(metrics.italicAngle),
         "/CapHeight " + std::to_string(metrics.capHeight), "/XHeight " + std::to_string(metrics.xHeight),
         "/Ascent " + std::to_string(metrics.ascent), "/Descent " + std::to_string(metrics.descent),
         "/Leading " + std::to_string(metrics.leading), "/MaxWidth " + std::to_string(metrics.maxWidth),
         "/AvgWidth " + std::to_string(metrics.avgWidth), ">>"});
    writeEndobj();
}

void clsPDFCreator::LoadFontStandard(const std::string& name, const std::string& baseFont, int style) {
    const std::string base = styledName(withoutBlanks(baseFont), style);
    const int font = NewObject();
    Writeline("<< /Type /Font /Subtype /Type1 /Name /" + name + " /BaseFont /" + base + " /Encoding " +
              std::to_string(document_.encodingObject) + " 0 R >>");
    writeEndobj();
    document_.fontList += resource(name, font);
}

float clsPDFCreator::Length(std::string_view text, std::string_view fontName, float size) const {
    const auto font = std::ranges::find(document_.fonts, fontName, &MeasuredFont::name);
    if (font == document_.fonts.end()) return 0;
    const FontMetrics& metrics = fontMetrics(font->family, font->style);
    double sum = 0;
    for (const char c : text) sum += metrics.width(static_cast<unsigned char>(c));
    const auto blanks = static_cast<double>(std::ranges::count(text, ' '));
    const auto characters = static_cast<double>(text.size());
    const double width =
        sum * size / 1000 + blanks * document_.wordSpacing + characters * document_.charSpacing;
    return userLength(width * document_.horizontalScaling / 100);
}

}  // namespace marvello
