#include "workspace/ExportFile.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <algorithm>

#include "controls/MessageBox.h"
#include "controls/WholeFile.h"
#include "results/RowSet.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

bool mayReplace(QWidget* parent, const QString& path) {
    if (!QFileInfo(path).isFile()) return true;
    return MessageBox::ask(parent,
                           filled(dictionaryText(QStringLiteral("frmselection.export.replace")),
                                  {QDir::toNativeSeparators(path)}),
                           dictionaryText(QStringLiteral("frmselection.export.replace.yes")),
                           dictionaryText(QStringLiteral("frmselection.export.replace.no")));
}

QString nameOf(ExportFile::Form form) {
    switch (form) {
        case ExportFile::Form::csv:
            return QStringLiteral("csv");
        case ExportFile::Form::svg:
            return QStringLiteral("svg");
        case ExportFile::Form::xml:
            break;
    }
    return QStringLiteral("xml");
}

QString filterOf(ExportFile::Form form) {
    return nameOf(form).toUpper() + QStringLiteral(" (*.%1)").arg(nameOf(form));
}

}  // namespace

QString withExtension(const QString& name, ExportFile::Form form) {
    const QString extension = u'.' + nameOf(form);
    return name.right(4).toLower() == extension ? name : name + extension;
}

std::optional<ExportFile> chooseExportFile(QWidget* parent, const QList<ExportFile::Form>& forms) {
    QStringList filters;
    for (const ExportFile::Form form : forms) filters += filterOf(form);
    QFileDialog dialog(parent, QStringLiteral("Export to..."), keptFolder(settings::exportFolder));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    // The dialog knows the name before it gets its extension: what would be replaced is asked for here.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const auto form = forms.at(std::max<qsizetype>(filters.indexOf(dialog.selectedNameFilter()), 0));
        const QString path = withExtension(dialog.selectedFiles().front(), form);
        if (mayReplace(parent, path)) return ExportFile{path, form};
    }
    return std::nullopt;
}

QString writeExport(const RowSet& records, const ExportFile& file) {
    const bool isCsv = file.form == ExportFile::Form::csv;
    const std::string point = QLocale().decimalPoint().toStdString();
    const QByteArray bytes = QByteArray::fromStdString(isCsv ? records.toCsv(point) : records.toXml());
    return writeExport(bytes, file);
}

QString writeExport(const QByteArray& bytes, const ExportFile& file) {
    // Lines of CSV end as those of the platform's text files do; the others know but one line end.
    const bool isCsv = file.form == ExportFile::Form::csv;
    const QIODevice::OpenMode mode = isCsv ? QIODevice::WriteOnly | QIODevice::Text : QIODevice::WriteOnly;
    if (const QString fault = writeWholeFile(file.path, bytes, mode); !fault.isEmpty())
        return reasonText(fault);
    settings::exportFolder.keep(QFileInfo(file.path).absolutePath());
    return {};
}

}  // namespace marvello
