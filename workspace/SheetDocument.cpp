#include "workspace/SheetDocument.h"

#include "controls/CoreText.h"

namespace marvello {

namespace {

using Kind = SheetLine::Kind;

QString coloured(const QString& html, const QColor& colour) {
    return QStringLiteral("<span style=\"color:%1\">%2</span>").arg(colour.name(), html);
}

QString escaped(const std::string& text) { return fromCore(text).toHtmlEscaped(); }

QColor colourOf(Severity severity, const Look& look) {
    switch (severity) {
        case Severity::error:
            return look.red;
        case Severity::attention:
            return look.orange;
        case Severity::information:
            break;
    }
    return look.text;
}

QString formulaCell(const SheetLine& line, const Look& look) {
    if (line.kind == Kind::message) return coloured(escaped(line.result), colourOf(line.severity, look));
    QString cell = escaped(line.formula);
    if (!line.numbers.empty())
        cell += QStringLiteral("<br>") + coloured(QStringLiteral("= ") + escaped(line.numbers), look.muted);
    return cell;
}

QString resultCell(const SheetLine& line, const Look& look) {
    if (line.kind == Kind::message) return {};
    QString cell = escaped(line.result);
    if (!line.unit.empty()) cell += u' ' + coloured(escaped(line.unit), look.muted);
    return cell;
}

}  // namespace

QString sheetHtml(const std::vector<SheetSection>& sections, const Look& look) {
    QString html;
    for (const SheetSection& section : sections) {
        html += QStringLiteral("<h4>") + escaped(section.title) + QStringLiteral("</h4>");
        html += QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\">");
        for (const SheetLine& line : section.lines)
            html += QStringLiteral(
                        "<tr><td width=\"14%\"><b>%1</b></td><td width=\"28%\">%2</td>"
                        "<td width=\"43%\">%3</td><td width=\"15%\" align=\"right\">%4</td></tr>")
                        .arg(escaped(line.symbol), coloured(escaped(line.meaning), look.muted),
                             formulaCell(line, look), resultCell(line, look));
        html += QStringLiteral("</table>");
    }
    return html;
}

}  // namespace marvello
