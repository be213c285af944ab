#include "reports/ReportOutput.h"

#include <QBuffer>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <exception>

#include "controls/WholeFile.h"
#include "reports/FinishedPdf.h"
#include "reports/ReportPage.h"

namespace marvello {

namespace {

constexpr int dotsPerInch = 1200;

PdfFacts factsOf(const ReportContent& content) {
    PdfFacts facts{.title = content.model,
                   .creator = content.version,
                   .language = content.language,
                   .created = content.created,
                   .bookmarks = {{content.title, 1}}};
    int page = 1;
    for (const ReportSection& section : content.sections) facts.bookmarks.push_back({section.name, ++page});
    return facts;
}

QSizeF paperOf(const QPageLayout& layout) { return layout.fullRect(QPageLayout::Millimeter).size(); }

QByteArray writtenPages(const QPageLayout& layout, const ReportContent& content) {
    QBuffer made;
    made.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&made);
        writer.setResolution(dotsPerInch);
        writer.setPageLayout(layout);
        QPainter painter(&writer);
        for (int page = 1; page <= pageCount(content); ++page) {
            if (page > 1) writer.newPage();
            paintReport(painter, paperOf(layout), content, page);
        }
    }
    return made.data();
}

}  // namespace

QPageLayout reportLayout() {
    const bool isLetter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return {QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait, QMarginsF()};
}

bool printReport(QPrinter& printer, const ReportContent& content) {
    // A pipe without a reader would keep the program waiting, and a printer has an empty name here.
    if (!mayBeWritten(printer.outputFileName())) return false;
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    for (int page = 1; page <= pageCount(content); ++page) {
        if (page > 1 && !printer.newPage()) return false;
        paintReport(painter, paperOf(printer.pageLayout()), content, page);
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

QString saveReport(const QString& file, const QPageLayout& layout, const ReportContent& content) {
    // The outlines of letters change in their last digits once all of them were painted.
    writtenPages(layout, content);
    try {
        return writeWholeFile(file, finishedPdf(writtenPages(layout, content), factsOf(content)));
    } catch (const std::exception& fault) {
        return QString::fromUtf8(fault.what());
    }
}

}  // namespace marvello
