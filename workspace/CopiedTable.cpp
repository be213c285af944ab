#include "workspace/CopiedTable.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

namespace marvello {

namespace {

QString cells(const char* element, const QStringList& texts, int textColumns) {
    QString row = QStringLiteral("<tr>");
    for (qsizetype i = 0; i < texts.size(); ++i) {
        // A spreadsheet would take a model such as "2-12" for a date.
        const QLatin1String style(i < textColumns ? " style=\"mso-number-format:'\\@'\""
                                                  : " align=\"right\"");
        row += QStringLiteral("<%1%2>%3</%1>")
                   .arg(QLatin1String(element), style, texts[i].trimmed().toHtmlEscaped());
    }
    return row + QStringLiteral("</tr>\n");
}

}  // namespace

QString htmlOf(const CopiedTable& table) {
    QString html = QStringLiteral("<html><head><meta charset=\"utf-8\"></head><body><table>\n") +
                   cells("th", table.columns, table.textColumns);
    for (const QStringList& row : table.rows) html += cells("td", row, table.textColumns);
    return html + QStringLiteral("</table></body></html>");
}

void copyTable(const QString& text, const CopiedTable& table) {
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    data->setHtml(htmlOf(table));
    QGuiApplication::clipboard()->setMimeData(data.release());  // the clipboard takes ownership
}

}  // namespace marvello
