// What leaves the form for other programs.

#include <QDir>
#include <QStringList>

#include "controls/MessageBox.h"
#include "controls/ResultsView.h"
#include "results/ExportRecords.h"
#include "workspace/CopiedTable.h"
#include "workspace/ExportFile.h"
#include "workspace/SelectionForm.h"
#include "workspace/WindowTexts.h"

namespace marvello {

void SelectionForm::ExportCPS() {
    const auto file = chooseExportFile(this);
    if (!file) return;
    const RowSet records = resultsRecords(table_);
    exportTo(*file, records, records.rowCount());
}

void SelectionForm::ExportPolynomials() {
    const auto file = chooseExportFile(this);
    if (!file) return;
    exportTo(*file, polynomialsRecords(table_), Selection_->Count());
}

void SelectionForm::exportTo(const ExportFile& file, const RowSet& records, int compressors) {
    const QString path = QDir::toNativeSeparators(file.path);
    QString failure = writeExport(records, file);
    if (failure.isEmpty()) {
        emit exported(filled(dictionaryText(QStringLiteral("frmselection.export.done")),
                             {QString::number(compressors), path}));
        return;
    }
    if (failure.endsWith(u'.')) failure.chop(1);  // The sentence has its own.
    MessageBox::show(this, MessageBox::Mark::critical,
                     filled(dictionaryText(QStringLiteral("frmselection.export.failed")), {path, failure}));
}

void SelectionForm::CopyToClipBoard() {
    const QString lineEnd = QStringLiteral("\r\n");
    CopiedTable table{
        {QStringLiteral("Refrigerant"), QStringLiteral("Serie"), QStringLiteral("Model")}, {}, 3};
    for (const ResultColumn& column : table_.columns) table.columns += fromCore(column.caption());
    QString text = table.columns.join(u'\t') + lineEnd;
    for (const int row : lvCps_->selectedRows()) {
        // Kept: models that are not possible are copied as well.
        const ResultRow* const result = resultOf(row);
        if (!result) continue;
        const clsCompressor& compressor = *result->compressor;
        QStringList cells{fromCore(compressor.Refrigerant), fromCore(compressor.Serie),
                          fromCore(compressor.Model)};
        for (const ShownValue& value : result->values) cells += fromCore(value.text);
        text += cells.join(u'\t') + lineEnd;
        table.rows += cells;
    }
    copyTable(text, table);
}

}  // namespace marvello
