#include "reports/ReportOutput.h"

#include <QBuffer>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>

#include "controls/WholeFile.h"
#include "reports/ReportPage.h"

namespace marvello {

namespace {

constexpr int dotsPerInch = 1200;

QSizeF paperOf(const QPageLayout& layout) { return layout.fullRect(QPageLayout::Millimeter).size(); }

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
    QBuffer made;
    made.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&made);
        writer.setResolution(dotsPerInch);
        writer.setPageLayout(layout);
        writer.setTitle(content.model);
        writer.setCreator(content.version);
        QPainter painter(&writer);
        for (int page = 1; page <= pageCount(content); ++page) {
            if (page > 1) writer.newPage();
            paintReport(painter, paperOf(layout), content, page);
        }
    }
    return writeWholeFile(file, made.data());
}

}  // namespace marvello
