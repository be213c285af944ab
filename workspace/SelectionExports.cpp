// What leaves the form for other programs.

#include <QDir>
#include <QStringList>
#include <vector>

#include "controls/MessageBox.h"
#include "controls/ResultsView.h"
#include "workspace/CopiedTable.h"
#include "workspace/ExportFile.h"
#include "workspace/ExportRecords.h"
#include "workspace/SelectionForm.h"
#include "workspace/WindowTexts.h"

namespace marvello {

void SelectionForm::ExportCPS() {
    const auto file = chooseExportFile(this);
    if (!file) return;
    const RowSet records = resultsRecords(*lvCps_);
    exportTo(*file, records, records.rowCount());
}

void SelectionForm::ExportPolynomials() {
    const auto file = chooseExportFile(this);
    if (!file) return;
    std::vector<const clsCompressor*> compressors;
    for (int row = 0; row < lvCps_->rowCount(); ++row) {
        // Kept: no row bears this mark; models that are not possible are exported, as their surfaces are
        // valid.
        if (lvCps_->tag(row).isEmpty() || lvCps_->mark(row) == u"redled") continue;
        if (const clsCompressor* compressor = compressorOf(row)) compressors.push_back(compressor);
    }
    exportTo(*file, polynomialsRecords(compressors), static_cast<int>(compressors.size()));
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
    const QStringList name{QStringLiteral("Refrigerant"), QStringLiteral("Serie"), QStringLiteral("Model")};
    CopiedTable table{name + lvCps_->columnTexts().mid(1), {}, static_cast<int>(name.size())};
    QString text = table.columns.join(u'\t') + lineEnd;
    for (const int row : lvCps_->selectedRows()) {
        // Kept: no row bears this mark, so models that are not possible are copied as well.
        if (lvCps_->tag(row).isEmpty() || lvCps_->mark(row) == u"redled" || !compressorOf(row)) continue;
        table.rows += lvCps_->tag(row).split(u';') + lvCps_->rowTexts(row).mid(1);
        text += table.rows.back().join(u'\t') + lineEnd;
    }
    copyTable(text, table);
}

}  // namespace marvello
