#include "workspace/SelectionExports.h"

#include <QDir>

#include "controls/MessageBox.h"
#include "results/ExportRecords.h"
#include "workspace/ExportFile.h"
#include "workspace/SelectionRun.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

const QList<ExportFile::Form> recordForms{ExportFile::Form::xml, ExportFile::Form::csv};

QString exportTo(const ExportFile& file, const RowSet& records, int compressors, QWidget* parent) {
    const QString path = QDir::toNativeSeparators(file.path);
    QString failure = writeExport(records, file);
    if (failure.isEmpty())
        return filled(dictionaryText(QStringLiteral("frmselection.export.done")),
                      {QString::number(compressors), path});
    if (failure.endsWith(u'.')) failure.chop(1);  // The sentence has its own.
    MessageBox::show(parent, MessageBox::Mark::critical,
                     filled(dictionaryText(QStringLiteral("frmselection.export.failed")), {path, failure}));
    return {};
}

}  // namespace

QString exportResults(const SelectionRun& run, QWidget* parent) {
    return exportRecords(resultsRecords(run.table()), parent);
}

QString exportRecords(const RowSet& records, QWidget* parent) {
    const auto file = chooseExportFile(parent, recordForms);
    return file ? exportTo(*file, records, records.rowCount(), parent) : QString();
}

QString exportPolynomials(const SelectionRun& run, QWidget* parent) {
    const auto file = chooseExportFile(parent, recordForms);
    return file ? exportTo(*file, polynomialsRecords(run.table()), run.count(), parent) : QString();
}

}  // namespace marvello
