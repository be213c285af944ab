#include "workspace/YearPrint.h"

#include <QTextCursor>
#include <QTextDocument>

namespace marvello {

namespace {

QString tableOf(QList<QStringList> rows, bool firstIsWords) {
    PrintedList list{
        .title = {}, .conditions = {}, .columns = rows.takeFirst(), .rows = rows, .wordColumns = {}};
    if (firstIsWords) list.wordColumns = {0};
    return tableHtml(list);
}

QString lines(const QStringList& texts) {
    QString html;
    for (const QString& text : texts)
        html += QStringLiteral("<li>") + text.toHtmlEscaped() + QStringLiteral("</li>");
    return html.isEmpty() ? QString() : QStringLiteral("<ul>") + html + QStringLiteral("</ul>");
}

}  // namespace

void printYear(const PrintedYear& year, bool preview, QWidget* window) {
    const auto heading = [](const QString& text) {
        return QStringLiteral("<h3>") + text.toHtmlEscaped() + QStringLiteral("</h3>");
    };
    QString html = QStringLiteral("<h2>") + year.title.toHtmlEscaped() + QStringLiteral("</h2><p>") +
                   year.subject.toHtmlEscaped() + QStringLiteral("   \u00B7   ") + year.best.toHtmlEscaped() +
                   QStringLiteral("</p>") + tableOf(year.figures, true);
    if (!year.differences.isEmpty()) html += heading(year.differencesTitle) + lines(year.differences);
    html += lines(year.warnings) + heading(year.assumptionsTitle) + lines(year.assumptions);
    const auto fill = [&](QTextDocument& document) {
        document.setHtml(html);
        addCharts(document, year.charts);
        QTextBlockFormat newSheet;
        newSheet.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCharFormat title;
        title.setFontWeight(QFont::Medium);
        QTextCursor cursor(&document);
        cursor.movePosition(QTextCursor::End);
        cursor.insertBlock(newSheet, title);
        cursor.insertText(year.binsTitle);
        cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
        cursor.insertHtml(tableOf(year.bins, false));
    };
    printDocument(year.title, fill, preview, window);
}

}  // namespace marvello
