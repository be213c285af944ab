#include "workspace/RatingExports.h"

#include <QApplication>
#include <QDir>
#include <exception>

#include "controls/MessageBox.h"
#include "data/CollectedBoxes.h"
#include "results/CoefficientFiles.h"
#include "results/PerformanceRows.h"
#include "workspace/ExportFile.h"
#include "workspace/SelectionExports.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

using Form = ExportFile::Form;

QList<Form> formsOf(RatingFile file) {
    if (file == RatingFile::table) return {Form::csv};
    return file == RatingFile::energyPlus ? QList<Form>{Form::idf} : QList<Form>{Form::csv, Form::json};
}

/// Throws NoCoefficients.
std::string coefficientsText(RatingFile file, Form form, const RatingSheet& sheet) {
    const bool isEn12900 = file == RatingFile::en12900;
    const clsProjectConditions& conditions = sheet.plan.conditions;
    Calculator calculator;
    const CollectedBoxes said;  // what a point failed at leaves it out
    const RatedCoefficients rated =
        coefficientsOf({.compressor = sheet.plan.compressor,
                        .conditions = conditions,
                        .rating = isEn12900 ? RatingConditions::en12900 : ratingOf(conditions)},
                       loopWith(calculator));
    if (file == RatingFile::energyPlus) return coefficientsIdf(rated);
    const auto order = isEn12900 ? CoefficientForm::en12900 : CoefficientForm::ahri540;
    const bool isIp = !isEn12900 && sheet.style.units == UnitSystem::imperial;
    const auto units = isIp ? CoefficientUnits::ip : CoefficientUnits::si;
    return form == Form::json ? coefficientsJson(rated, order, units) : coefficientsCsv(rated, order, units);
}

std::string textOf(RatingFile file, Form form, const RatingSheet& sheet, std::span<const Performance> cells) {
    if (file != RatingFile::table) return coefficientsText(file, form, sheet);
    const bool hasEconomizer = sheet.plan.conditions.EcoCalculateMode != EconomizerMode::none;
    return performanceCsv(ratingRows(sheet, cells), hasEconomizer);
}

/// What to say of a failure; the sentence of the engine is for scripts.
QString reasonOf(const std::exception& failure) {
    const auto* const none = dynamic_cast<const NoCoefficients*>(&failure);
    return none ? dictionaryText(QStringLiteral("frmselection.rating.nocoefficients"))
                : fromCore(failure.what());
}

}  // namespace

QString exportRating(RatingFile file, const RatingSheet& sheet, std::span<const Performance> cells,
                     QWidget* parent) {
    const QString model = fromCore(sheet.plan.compressor->Serie + '-' + sheet.plan.compressor->Model + ' ' +
                                   sheet.plan.compressor->Refrigerant);
    const auto chosen = chooseExportFile(parent, formsOf(file), model);
    if (!chosen) return {};
    const QString path = QDir::toNativeSeparators(chosen->path);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QString failure;
    QString reason;
    try {
        failure = writeExport(textOf(file, chosen->form, sheet, cells), *chosen);
    } catch (const std::exception& error) {
        reason = reasonOf(error);
    }
    QApplication::restoreOverrideCursor();
    if (!reason.isEmpty()) MessageBox::show(parent, MessageBox::Mark::information, reason);
    if (!failure.isEmpty()) sayNotWritten(path, failure, parent);
    if (!reason.isEmpty() || !failure.isEmpty()) return {};
    return filled(dictionaryText(QStringLiteral("frmselection.rating.export.done")), {path});
}

}  // namespace marvello
