#include "workspace/ListPrint.h"

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>
#include <QUrl>

#include "controls/Look.h"
#include "controls/TwoLineHeader.h"
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

void printList(const PrintedList& list, bool preview, QWidget* window) {
    const QString html = QStringLiteral("<h2>") + list.title.toHtmlEscaped() + QStringLiteral("</h2><p>") +
                         list.conditions.join(QStringLiteral("   \u00B7   ")).toHtmlEscaped() +
                         QStringLiteral("</p>") + tableHtml(list);
    printHtml(list.title, html, {}, preview, window);
}

void printHtml(const QString& title, const QString& html, const QHash<QString, QImage>& pictures,
               bool preview, QWidget* window) {
    QPrinter printer(QPrinter::HighResolution);
    // The document has margins of its own.
    printer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF()});
    printer.setDocName(title);
    const auto paint = [&html, &pictures](QPrinter* to) {
        QTextDocument document;
        for (auto picture = pictures.begin(); picture != pictures.end(); ++picture)
            document.addResource(QTextDocument::ImageResource, QUrl(picture.key()), *picture);
        QFont font = lookFont();
        font.setPointSizeF(8.5);
        document.setDefaultFont(font);
        document.setHtml(html);
        document.print(to);
    };
    if (preview) {
        QPrintPreviewDialog dialog(&printer, window);
        dialog.setWindowTitle(title);
        QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, paint);
        dialog.exec();
        return;
    }
    QPrintDialog dialog(&printer, window);
    if (dialog.exec() == QDialog::Accepted) paint(&printer);
}

}  // namespace marvello
