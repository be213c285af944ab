#include "workspace/ListPrint.h"

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>

#include "controls/Look.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr double margin = 15;  // mm

QString cell(const char* tag, const QString& text, bool isWords) {
    return QStringLiteral("<%1 align=\"%2\">%3</%1>")
        .arg(QLatin1String(tag), isWords ? QStringLiteral("left") : QStringLiteral("right"),
             text.toHtmlEscaped());
}

QString htmlOf(const PrintedList& list) {
    const auto line = [&list](const char* tag, const QStringList& texts) {
        QString cells;
        for (int column = 0; column < texts.size(); ++column)
            cells += cell(tag, texts[column], list.wordColumns.contains(column));
        return QStringLiteral("<tr>") + cells + QStringLiteral("</tr>");
    };
    QString html = QStringLiteral("<h2>") + list.title.toHtmlEscaped() + QStringLiteral("</h2><p>") +
                   list.conditions.join(QStringLiteral("   \u00B7   ")).toHtmlEscaped() +
                   QStringLiteral("</p><table width=\"100%\" cellspacing=\"0\" cellpadding=\"3\"><thead>") +
                   line("th", list.columns) + QStringLiteral("</thead>");
    for (const QStringList& row : list.rows) html += line("td", row);
    return html + QStringLiteral("</table>");
}

}  // namespace

void printList(const PrintedList& list, bool preview, QWidget* window) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout({QPageSize(QPageSize::A4),
                           QPageLayout::Landscape,
                           {margin, margin, margin, margin},
                           QPageLayout::Millimeter});
    printer.setDocName(list.title);
    const auto paint = [&list](QPrinter* to) {
        QTextDocument document;
        QFont font = lookFont();
        font.setPointSizeF(8.5);
        document.setDefaultFont(font);
        document.setHtml(htmlOf(list));
        document.print(to);
    };
    if (preview) {
        QPrintPreviewDialog dialog(&printer, window);
        dialog.setWindowTitle(list.title);
        QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, paint);
        dialog.exec();
        return;
    }
    QPrintDialog dialog(&printer, window);
    if (dialog.exec() == QDialog::Accepted) paint(&printer);
}

}  // namespace marvello
