#include "workspace/YearPrint.h"

#include "workspace/ListPrint.h"

namespace marvello {

namespace {

const QString chartName = QStringLiteral("chart");

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
    constexpr int chartWidth = 1000;  // of the document's pixels
    const auto heading = [](const QString& text, const char* style) {
        return QStringLiteral("<h3 style=\"%1\">%2</h3>").arg(QLatin1String(style), text.toHtmlEscaped());
    };
    constexpr const char* onNewSheet = "page-break-before:always";
    QString html = QStringLiteral("<h2>") + year.title.toHtmlEscaped() + QStringLiteral("</h2><p>") +
                   year.subject.toHtmlEscaped() + QStringLiteral("   \u00B7   ") + year.best.toHtmlEscaped() +
                   QStringLiteral("</p>") + tableOf(year.figures, true);
    if (!year.differences.isEmpty()) html += heading(year.differencesTitle, "") + lines(year.differences);
    html += lines(year.warnings);
    html += heading(year.assumptionsTitle, "") + lines(year.assumptions);
    html += heading(year.chartTitle, onNewSheet) +
            QStringLiteral("<p><img src=\"%1\" width=\"%2\"></p>").arg(chartName).arg(chartWidth);
    html += heading(year.binsTitle, onNewSheet) + tableOf(year.bins, false);
    printHtml(year.title, html, {{chartName, year.chart}}, preview, window);
}

}  // namespace marvello
