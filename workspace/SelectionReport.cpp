#include "workspace/SelectionReport.h"

#include <QCoreApplication>
#include <QDate>
#include <QPrintDialog>
#include <QPrinter>
#include <utility>

#include "controls/NumberText.h"
#include "inputs/InputTexts.h"
#include "reports/ReportOutput.h"
#include "reports/ReportPage.h"
#include "results/EnvelopeTexts.h"
#include "results/MarginTexts.h"
#include "workspace/CompressorFiles.h"
#include "workspace/ReportPreview.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

ReportConditions conditionsOf(const SelectionInputs& inputs, const clsCompressor& compressor) {
    const NumberMarks marks = marksOf(QLocale());
    const auto shown = [&](Input input) {
        if (!inputs.isShown(input)) return ReportConditions::Quantity{};
        return ReportConditions::Quantity{inputText(inputs, input, marks), unitText(inputs, input)};
    };
    return {.refrigerant = compressor.Refrigerant,
            .evaporatingDew = shown(Input::evaporatingDew),
            .evaporatingMid = shown(Input::evaporatingMid),
            .evaporatingPressure = shown(Input::evaporatingPressure),
            .condensingDew = shown(Input::condensingDew),
            .condensingMid = shown(Input::condensingMid),
            .condensingPressure = shown(Input::condensingPressure),
            .superheatType = inputs.caption(Input::superheatKind),
            .superheat = shown(Input::superheat),
            .subcooling = shown(Input::subcooling),
            .motorSize = inputs.caption(Input::motorSize),
            .capacityStep = inputs.caption(Input::capacityStep),
            .inverterFrequency = shown(Input::frequency)};
}

}  // namespace

EnvelopeDrawing envelopeOf(const clsCompressor& compressor, const SelectionInputs& inputs) {
    const auto title = [&inputs](const char* key, Input input) {
        return dictionaryText(QLatin1String(key)) + u' ' + fromCore(unitText(inputs, input));
    };
    EnvelopeDrawing drawing;
    drawing.textX = title("frmselection.limitreport.xaxis.caption", Input::evaporatingDew);
    drawing.textY = title("frmselection.limitreport.yaxis.caption", Input::condensingDew);
    drawing.limits = namedLimits(inputs.units() == UnitSystem::imperial ? inFahrenheit(compressor.limits)
                                                                        : compressor.limits);
    drawing.point = clsPoint{inputs.number(Input::evaporatingDew), inputs.number(Input::condensingDew)};
    drawing.fitScale();
    return drawing;
}

void setSections(ReportContent& report, std::vector<ReportSection> sections) {
    report.sections = std::move(sections);
    report.pages.clear();
    const int count = pageCount(report);
    for (int page = 1; page <= count; ++page)
        report.pages += filled(dictionaryText(QStringLiteral("report.page.caption")),
                               {QString::number(page), QString::number(count)});
}

ReportContent reportOf(const ResultTable& table, const ResultRow& row, const SelectionInputs& inputs) {
    const clsCompressor& compressor = *row.compressor;
    const auto text = [](const char* key) { return dictionaryText(QLatin1String(key)); };
    ReportContent report;
    report.title = text("report.title.caption");
    report.model = fromCore(nameOf(compressor));
    report.version = QStringLiteral("Marvello v. ") + QCoreApplication::applicationVersion();
    report.address = text("report.lbladdress.caption");
    report.warning = text("report.lblwarning.caption");
    report.warning2 = text("report.lblwarning2.caption");
    setSections(report, {});
    report.date = userLocale().toString(QDate::currentDate(), QLocale::LongFormat);
    report.created = QDateTime::currentDateTime();
    report.language = userLocale().bcp47Name();
    report.photo = readPhoto(fromCore(compressor.Serie), fromCore(compressor.Model));
    report.envelope = envelopeOf(compressor, inputs);
    report.margin = fromCore(marginLine(compressor, inputs.units(), marksOf(QLocale())));
    for (const auto& lines : {conditionLines(conditionsOf(inputs, compressor)), resultLines(table, row),
                              technicalLines(technicalData(compressor, inputs.units(), marksOf(QLocale())))})
        report.lines.insert(report.lines.end(), lines.begin(), lines.end());
    report.hasWarnings = compressor.Messages.Attention.Count() > 0;
    // The limits hold for the superheat and subcooling that they were measured at; the numbers are those of
    // the fields, in the imperial system as well.
    const bool isUsual = inputs.number(Input::subcooling) == 5 && inputs.number(Input::superheat) == 10;
    report.showsEnvelope = !report.hasWarnings || isUsual;
    return report;
}

void printReport(const ReportContent& report, QWidget* window) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(reportLayout());
    printer.setDocName(report.model);
    QPrintDialog dialog(&printer, window);
    if (dialog.exec() == QDialog::Accepted) printOrSay(printer, report, window);
}

}  // namespace marvello
