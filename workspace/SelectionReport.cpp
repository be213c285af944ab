// The printed report of the selected compressor.

#include <QCoreApplication>
#include <QDate>
#include <QPrintDialog>
#include <QPrinter>

#include "controls/AdvanceText.h"
#include "controls/ResultsView.h"
#include "data/Session.h"
#include "reports/ReportOutput.h"
#include "workspace/CompressorFiles.h"
#include "workspace/InputPanel.h"
#include "workspace/ReportPreview.h"
#include "workspace/SelectionForm.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

ReportConditions::Quantity shown(const AdvanceText* field) {
    if (!field || field->isHidden()) return {};
    return {toCore(field->TextText()), toCore(field->UnitCaptiontext())};
}

}  // namespace

ReportConditions SelectionForm::shownConditions(const clsCompressor& compressor) const {
    return {.refrigerant = compressor.Refrigerant,
            .evaporatingDew = shown(panel_->txtTED),
            .evaporatingMid = shown(panel_->txtTEM),
            .evaporatingPressure = shown(panel_->txtPE),
            .condensingDew = shown(panel_->txtTCD),
            .condensingMid = shown(panel_->txtTCM),
            .condensingPressure = shown(panel_->txtPC),
            .superheatType = toCore(panel_->cmbSh->TextText()),
            .superheat = shown(panel_->txtSH),
            .subcooling = shown(panel_->txtSC),
            .motorSize = toCore(panel_->cmbMotorSize->TextText()),
            .capacityStep = toCore(panel_->cmbStepCapacity->TextText()),
            .inverterFrequency = shown(panel_->txtFrequency)};
}

ReportContent SelectionForm::reportOf(const ResultRow& row) const {
    const clsCompressor& compressor = *row.compressor;
    const auto text = [](const char* key) { return dictionaryText(QLatin1String(key)); };
    ReportContent report;
    report.title = text("report.title.caption");
    report.model = fromCore(nameOf(compressor));
    report.version = QStringLiteral("Marvello v. ") + QCoreApplication::applicationVersion();
    report.address = text("report.lbladdress.caption");
    report.warning = text("report.lblwarning.caption");
    report.warning2 = text("report.lblwarning2.caption");
    report.page = filled(text("report.page.caption"), {QStringLiteral("1"), QStringLiteral("1")});
    report.date = userLocale().toString(QDate::currentDate(), QLocale::LongFormat);
    report.photo = readPhoto(fromCore(compressor.Serie), fromCore(compressor.Model));
    report.envelope = envelopeOf(compressor);
    for (const auto& lines : {conditionLines(shownConditions(compressor)), resultLines(table_, row),
                              technicalLines(technicalEntries(compressor))})
        report.lines.insert(report.lines.end(), lines.begin(), lines.end());
    report.hasWarnings = compressor.Messages.Attention.Count() > 0;
    // The limits hold for the superheat and subcooling that they were measured at; the numbers are those of
    // the fields, in the imperial system as well.
    const bool isUsual = panel_->txtSC->number() == 5 && panel_->txtSH->number() == 10;
    report.showsEnvelope = !report.hasWarnings || isUsual;
    return report;
}

bool SelectionForm::canPrint() const {
    const clsCompressor* const compressor = hasResults() ? compressorOf(lvCps_->selectedRow()) : nullptr;
    return compressor && compressor->Messages.Error.Count() == 0;
}

std::optional<ReportContent> SelectionForm::selectedReport() const {
    const ResultRow* const row = resultOf(lvCps_->selectedRow());
    return row ? std::optional(reportOf(*row)) : std::nullopt;
}

void SelectionForm::PrintReport(bool preview) {
    const std::optional<ReportContent> report = selectedReport();
    if (!report) return;
    if (preview) {
        ReportPreview(*report, window()).exec();
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(reportLayout());
    printer.setDocName(report->model);
    QPrintDialog dialog(&printer, window());
    if (dialog.exec() == QDialog::Accepted) printOrSay(printer, *report, window());
}

}  // namespace marvello
