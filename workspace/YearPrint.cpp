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
    constexpr int chartWidth = 640;  // of the document's pixels
    QString html = QStringLiteral("<h2>") + year.title.toHtmlEscaped() + QStringLiteral("</h2><p>") +
                   year.subject.toHtmlEscaped() + QStringLiteral("   \u00B7   ") + year.best.toHtmlEscaped() +
                   QStringLiteral("</p>") + tableOf(year.figures, true) + lines(year.differences) +
                   lines(year.warnings);
    html += QStringLiteral("<p><b>") + year.chartTitle.toHtmlEscaped() +
            QStringLiteral("</b></p><p><img src=\"%1\" width=\"%2\"></p>").arg(chartName).arg(chartWidth);
    html += QStringLiteral("<h3>") + year.assumptionsTitle.toHtmlEscaped() + QStringLiteral("</h3>") +
            lines(year.assumptions) + tableOf(year.bins, false);
    printHtml(year.title, html, {{chartName, year.chart}}, preview, window);
}

}  // namespace marvello
