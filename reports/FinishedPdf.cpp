#include "reports/FinishedPdf.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <set>
#include <string>

namespace marvello {

namespace {

using Handle = QPDFObjectHandle;

Handle textOf(const QString& text) { return Handle::newUnicodeString(text.toStdString()); }

/// As ISO 32000-1, 7.9.4 has it: "D:20261123054500+01'00'".
QString dateText(const QDateTime& date) {
    constexpr int minute = 60;
    constexpr int hour = 3600;
    const int offset = date.offsetFromUtc();
    const auto twoDigits = [](int number) {
        return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
    };
    return QStringLiteral("D:") + date.toString(QStringLiteral("yyyyMMddHHmmss")) +
           (offset < 0 ? u'-' : u'+') + twoDigits(std::abs(offset) / hour) + u'\'' +
           twoDigits(std::abs(offset) % hour / minute) + u'\'';
}

Handle information(const PdfFacts& facts) {
    Handle info = Handle::newDictionary();
    info.replaceKey("/Title", textOf(facts.title));
    info.replaceKey("/Creator", textOf(facts.creator));
    const Handle date = Handle::newString(dateText(facts.created).toStdString());
    info.replaceKey("/CreationDate", date);
    info.replaceKey("/ModDate", date);
    return info;
}

/// Chains the bookmarks to one another and to their pages.
Handle outlines(QPDF& pdf, const PdfFacts& facts) {
    const auto pages = QPDFPageDocumentHelper(pdf).getAllPages();
    Handle root = pdf.makeIndirectObject(Handle::newDictionary());
    std::vector<Handle> entries;
    for (const PdfFacts::Bookmark& bookmark : facts.bookmarks) {
        Handle entry = pdf.makeIndirectObject(Handle::newDictionary());
        const auto last = std::ssize(pages) - 1;
        const auto page = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(bookmark.page - 1, 0, last));
        entry.replaceKey("/Title", textOf(bookmark.title));
        entry.replaceKey("/Parent", root);
        entry.replaceKey("/Dest",
                         Handle::newArray({pages.at(page).getObjectHandle(), Handle::newName("/Fit")}));
        if (!entries.empty()) {
            entry.replaceKey("/Prev", entries.back());
            entries.back().replaceKey("/Next", entry);
        }
        entries.push_back(entry);
    }
    root.replaceKey("/Type", Handle::newName("/Outlines"));
    root.replaceKey("/First", entries.front());
    root.replaceKey("/Last", entries.back());
    root.replaceKey("/Count", Handle::newInteger(std::ssize(entries)));
    return root;
}

constexpr std::size_t tagLength = 6;

/// "AAAAAA", "AAAAAB", ...
std::string tagOf(std::size_t number) {
    constexpr std::size_t letters = 26;
    std::string tag(tagLength, 'A');
    for (auto letter = tag.rbegin(); letter != tag.rend() && number > 0; ++letter, number /= letters)
        *letter = static_cast<char>('A' + number % letters);
    return tag;
}

/// Names the parts of fonts anew, in the order of the pages: ISO 32000-1, 9.6.4 wants six letters and a "+"
/// before the name of the font, which Qt takes at random.
void nameFonts(QPDF& pdf) {
    std::set<QPDFObjGen> named;
    for (QPDFPageObjectHelper& page : QPDFPageDocumentHelper(pdf).getAllPages()) {
        Handle fonts = page.getAttribute("/Resources", false).getKey("/Font");
        if (!fonts.isDictionary()) continue;
        for (const std::string& key : fonts.getKeys()) {
            Handle descendants = fonts.getKey(key).getKey("/DescendantFonts");
            if (!descendants.isArray() || descendants.getArrayNItems() != 1) continue;
            Handle descriptor = descendants.getArrayItem(0).getKey("/FontDescriptor");
            if (!descriptor.isDictionary() || !descriptor.getKey("/FontName").isName()) continue;
            const std::string name = descriptor.getKey("/FontName").getName();
            if (name.find('+') == tagLength + 1 && named.insert(descriptor.getObjGen()).second)
                descriptor.replaceKey(
                    "/FontName", Handle::newName('/' + tagOf(named.size() - 1) + name.substr(tagLength + 1)));
        }
    }
}

}  // namespace

QByteArray finishedPdf(const QByteArray& file, const PdfFacts& facts) {
    QPDF pdf;
    pdf.setSuppressWarnings(true);
    pdf.processMemoryFile("report", file.constData(), static_cast<std::size_t>(file.size()));
    Handle trailer = pdf.getTrailer();
    trailer.replaceKey("/Info", pdf.makeIndirectObject(information(facts)));
    Handle root = pdf.getRoot();
    root.removeKey("/Metadata");  // says once more when the file was written
    root.replaceKey("/Lang", textOf(facts.language));
    Handle preferences = Handle::newDictionary();
    preferences.replaceKey("/DisplayDocTitle", Handle::newBool(true));
    root.replaceKey("/ViewerPreferences", preferences);
    nameFonts(pdf);
    if (facts.bookmarks.size() > 1) {
        root.replaceKey("/Outlines", outlines(pdf, facts));
        root.replaceKey("/PageMode", Handle::newName("/UseOutlines"));
    }
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setDeterministicID(true);
    writer.write();
    const std::shared_ptr<Buffer> written = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(written->getBuffer()), static_cast<qsizetype>(written->getSize())};
}

}  // namespace marvello
