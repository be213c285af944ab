// The printed report of the selected compressor.

#include <QCoreApplication>
#include <QDate>
#include <QPrintDialog>
#include <QPrinter>

#include "controls/AdvanceText.h"
#include "controls/ResultsView.h"
#include "data/Globals.h"
#include "reports/ReportOutput.h"
#include "workspace/CompressorFiles.h"
#include "workspace/InputPanel.h"
#include "workspace/ReportPreview.h"
#include "workspace/ResultsList.h"
#include "workspace/SelectionForm.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

const QString between = QStringLiteral(" / ");

/// A dew temperature, with its mean beside it where that is shown.
ReportLine temperatureLine(const QString& name, const AdvanceText* dew, const AdvanceText* mid) {
    if (mid->isHidden()) return {name, withUnit(*dew)};
    return {name + u' ' + dictionaryText(QStringLiteral("report.dew.caption")) + between +
                dictionaryText(QStringLiteral("report.mid.caption")),
            withUnit(dew->TextText() + between + mid->TextText(), dew->UnitCaptiontext())};
}

}  // namespace

std::vector<ReportLine> SelectionForm::conditionLines(const clsCompressor& compressor) const {
    const auto text = [](const char* key) { return dictionaryText(QLatin1String(key)); };
    std::vector<ReportLine> lines{ReportLine::heading(text("report.projectcondition.caption")),
                                  {text("report.refrigerant.caption"), fromCore(compressor.Refrigerant)},
                                  temperatureLine(text("report.ted.caption"), panel_->txtTED, panel_->txtTEM),
                                  {text("report.pe.caption"), withUnit(*panel_->txtPE)},
                                  temperatureLine(text("report.tcd.caption"), panel_->txtTCD, panel_->txtTCM),
                                  {text("report.pc.caption"), withUnit(*panel_->txtPC)},
                                  {panel_->cmbSh->TextText(), withUnit(*panel_->txtSH)},
                                  {text("report.liquidsubcooling.caption"), withUnit(*panel_->txtSC)},
                                  {text("report.motorsize.caption"), panel_->cmbMotorSize->TextText()},
                                  {text("report.stepcapacity.caption"), panel_->cmbStepCapacity->TextText()}};
    if (panel_->txtFrequency)
        lines.push_back({text("frmselection.txtfrequency.captiontext"), withUnit(*panel_->txtFrequency)});
    return lines;
}

// One line for each column, but for those in Btu: they stand on the line of their tons.
std::vector<ReportLine> SelectionForm::resultLines(int row) {
    std::vector<ReportLine> lines{
        ReportLine::heading(dictionaryText(QStringLiteral("report.outputdata.caption")))};
    const QStringList keys = lvCps_->columnKeys();
    const auto cell = [&](const QString& key, qsizetype column) {
        const clsOutput& output = outputs_.Item(toCore(key));
        return withUnit(lvCps_->text(row, static_cast<int>(column)).trimmed(), unitOf(output));
    };
    const auto columnOf = [&keys](const QString& key) {
        for (qsizetype column = 1; column < keys.size(); ++column)
            if (keys[column].compare(key, Qt::CaseInsensitive) == 0) return column;
        return qsizetype{-1};
    };
    for (qsizetype column = 1; column < keys.size(); ++column) {
        const QString key = keys[column].toLower();
        if (key == u"q0btu" || key == u"qecobtu") continue;
        ReportLine line{fromCore(outputs_.Item(toCore(key)).Description), cell(key, column)};
        if (const qsizetype btu = columnOf(key + QStringLiteral("btu")); btu > 0)
            line.value += between + cell(keys[btu], btu);
        lines.push_back(line);
    }
    return lines;
}

ReportContent SelectionForm::reportOf(const clsCompressor& compressor) {
    const auto text = [](const char* key) { return dictionaryText(QLatin1String(key)); };
    ReportContent report;
    report.title = text("report.title.caption");
    report.model = nameOf(compressor);
    report.version = QStringLiteral("Marvello v. ") + QCoreApplication::applicationVersion();
    report.address = text("report.lbladdress.caption");
    report.warning = text("report.lblwarning.caption");
    report.warning2 = text("report.lblwarning2.caption");
    report.page = filled(text("report.page.caption"), {QStringLiteral("1"), QStringLiteral("1")});
    report.date = userLocale().toString(QDate::currentDate(), QLocale::LongFormat);
    report.photo = readPhoto(fromCore(compressor.Serie), fromCore(compressor.Model));
    report.envelope = envelopeOf(compressor);
    report.lines = conditionLines(compressor);
    const std::vector<ReportLine> results = resultLines(lvCps_->selectedRow());
    report.lines.insert(report.lines.end(), results.begin(), results.end());
    report.lines.push_back(ReportLine::heading(text("report.technicaldata.caption")));
    for (const auto& [caption, value] : technicalEntries(compressor))
        report.lines.push_back({caption, value});
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

std::optional<ReportContent> SelectionForm::selectedReport() {
    const clsCompressor* const compressor = compressorOf(lvCps_->selectedRow());
    return compressor ? std::optional(reportOf(*compressor)) : std::nullopt;
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
