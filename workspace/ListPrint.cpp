#include "workspace/ListPrint.h"

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextCursor>
#include <QTextDocument>
#include <memory>

#include "controls/Look.h"
#include "controls/TwoLineHeader.h"
#include "workspace/DrawingObject.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

QString cell(const char* tag, const QString& html, bool isWords) {
    return QStringLiteral("<%1 align=\"%2\">%3</%1>")
        .arg(QLatin1String(tag), isWords ? QStringLiteral("left") : QStringLiteral("right"), html);
}

/// The name of a column above its unit.
QString heading(const QString& column) {
    const auto [name, unit] = TwoLineHeader::lines(column);
    return name.toHtmlEscaped() + QStringLiteral("<br><span style=\"font-weight:400\">") +
           unit.toHtmlEscaped() + QStringLiteral("</span>");
}

}  // namespace

QString tableHtml(const PrintedList& list) {
    const auto line = [&list](const char* tag, const QStringList& texts) {
        QString cells;
        const bool isHead = &texts == &list.columns;
        if (!isHead && list.columns.size() > 1 && texts.sliced(1).join(QString()).isEmpty())
            return QStringLiteral("<tr><td colspan=\"%1\"><b>%2</b></td></tr>")
                .arg(list.columns.size())
                .arg(texts.front().toHtmlEscaped());
        for (int column = 0; column < texts.size(); ++column)
            cells += cell(tag, isHead ? heading(texts[column]) : texts[column].toHtmlEscaped(),
                          list.wordColumns.contains(column));
        return QStringLiteral("<tr>") + cells + QStringLiteral("</tr>");
    };
    QString html = QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"3\"><thead>") +
                   line("th", list.columns) + QStringLiteral("</thead>");
    for (const QStringList& row : list.rows) html += line("td", row);
    return html + QStringLiteral("</table>");
}

void addCharts(QTextDocument& document, const std::vector<PrintedCharts>& lines) {
    auto* objects = std::make_unique<DrawingObject>(document).release();  // the document owns it
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::End);
    for (const PrintedCharts& line : lines) {
        QTextBlockFormat block;
        if (&line == &lines.front()) block.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCharFormat heading;
        heading.setFontWeight(QFont::Medium);
        cursor.insertBlock(block, heading);
        cursor.insertText(line.heading);
        cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
        for (const Drawing& chart : line.charts) objects->insert(cursor, chart);
    }
}

namespace {

void fillWith(const PrintedList& list, QTextDocument& document) {
    document.setHtml(QStringLiteral("<h2>") + list.title.toHtmlEscaped() + QStringLiteral("</h2><p>") +
                     list.conditions.join(QStringLiteral("   \u00B7   ")).toHtmlEscaped() +
                     QStringLiteral("</p>") + tableHtml(list));
    if (!list.charts.empty()) addCharts(document, list.charts);
}

void paint(const std::function<void(QTextDocument&)>& fill, QPagedPaintDevice& paper) {
    QTextDocument document;
    QFont font = lookFont();
    font.setPointSizeF(8.5);
    document.setDefaultFont(font);
    fill(document);
    document.print(&paper);
}

}  // namespace

void paintList(const PrintedList& list, QPagedPaintDevice& paper) {
    paint([&list](QTextDocument& document) { fillWith(list, document); }, paper);
}

void printList(const PrintedList& list, bool preview, QWidget* window) {
    printDocument(
        list.title, [&list](QTextDocument& document) { fillWith(list, document); }, preview, window);
}

void printDocument(const QString& title, const std::function<void(QTextDocument&)>& fill, bool preview,
                   QWidget* window) {
    QPrinter printer(QPrinter::HighResolution);
    // The document has margins of its own.
    printer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF()});
    printer.setDocName(title);
    const auto paintOn = [&fill](QPrinter* to) { paint(fill, *to); };
    if (preview) {
        QPrintPreviewDialog dialog(&printer, window);
        dialog.setWindowTitle(title);
        QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, paintOn);
        dialog.exec();
        return;
    }
    QPrintDialog dialog(&printer, window);
    if (dialog.exec() == QDialog::Accepted) paintOn(&printer);
}

}  // namespace marvello
