#include "workspace/SelectionExports.h"

#include <QDir>

#include "controls/MessageBox.h"
#include "results/ExportRecords.h"
#include "workspace/ExportFile.h"
#include "workspace/SelectionRun.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

QString exportTo(const ExportFile& file, const RowSet& records, int compressors, QWidget* parent) {
    const QString path = QDir::toNativeSeparators(file.path);
    const QString failure = writeExport(records, file);
    if (failure.isEmpty())
        return filled(dictionaryText(QStringLiteral("frmselection.export.done")),
                      {QString::number(compressors), path});
    sayNotWritten(path, failure, parent);
    return {};
}

}  // namespace

void sayNotWritten(const QString& path, QString failure, QWidget* parent) {
    if (failure.endsWith(u'.')) failure.chop(1);  // The sentence has its own.
    MessageBox::show(parent, MessageBox::Mark::critical,
                     filled(dictionaryText(QStringLiteral("frmselection.export.failed")), {path, failure}));
}

QString exportResults(const SelectionRun& run, QWidget* parent) {
    return exportRecords(resultsRecords(run.table()), parent);
}

QString exportRecords(const RowSet& records, QWidget* parent) {
    const auto file = chooseExportFile(parent);
    return file ? exportTo(*file, records, records.rowCount(), parent) : QString();
}

QString exportPolynomials(const SelectionRun& run, QWidget* parent) {
    const auto file = chooseExportFile(parent);
    return file ? exportTo(*file, polynomialsRecords(run.table()), run.count(), parent) : QString();
}

}  // namespace marvello
