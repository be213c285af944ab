#include "workspace/ExportFile.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>

#include "controls/MessageBox.h"
#include "controls/WholeFile.h"
#include "results/RowSet.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

struct FileKind {
    QString name;
    QString extension;

    QString filter() const { return QStringLiteral("%1 (*%2)").arg(name, extension); }
};

FileKind kindOf(ExportFile::Form form) {
    switch (form) {
        case ExportFile::Form::csv:
            return {QStringLiteral("CSV"), QStringLiteral(".csv")};
        case ExportFile::Form::json:
            return {QStringLiteral("JSON"), QStringLiteral(".json")};
        case ExportFile::Form::idf:
            return {QStringLiteral("EnergyPlus"), QStringLiteral(".idf")};
        case ExportFile::Form::svg:
            return {QStringLiteral("SVG"), QStringLiteral(".svg")};
        case ExportFile::Form::xml:
            break;
    }
    return {QStringLiteral("XML"), QStringLiteral(".xml")};
}

QString write(const QByteArray& bytes, const ExportFile& file, QIODevice::OpenMode mode) {
    if (const QString fault = writeWholeFile(file.path, bytes, mode); !fault.isEmpty())
        return reasonText(fault);
    settings::exportFolder.keep(QFileInfo(file.path).absolutePath());
    return {};
}

bool mayReplace(QWidget* parent, const QString& path) {
    if (!QFileInfo(path).isFile()) return true;
    return MessageBox::ask(parent,
                           filled(dictionaryText(QStringLiteral("frmselection.export.replace")),
                                  {QDir::toNativeSeparators(path)}),
                           dictionaryText(QStringLiteral("frmselection.export.replace.yes")),
                           dictionaryText(QStringLiteral("frmselection.export.replace.no")));
}

}  // namespace

QString withExtension(const QString& name, ExportFile::Form form) {
    const QString extension = kindOf(form).extension;
    return name.endsWith(extension, Qt::CaseInsensitive) ? name : name + extension;
}

std::optional<ExportFile> chooseExportFile(QWidget* parent, const QList<ExportFile::Form>& forms,
                                           const QString& name) {
    QStringList filters;
    for (const ExportFile::Form form : forms) filters += kindOf(form).filter();
    QFileDialog dialog(parent, QStringLiteral("Export to..."), keptFolder(settings::exportFolder));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    if (!name.isEmpty()) dialog.selectFile(withExtension(name, forms.front()));
    // The dialog knows the name before it gets its extension: what would be replaced is asked for here.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const auto chosen = filters.indexOf(dialog.selectedNameFilter());
        const ExportFile::Form form = forms.value(chosen, forms.front());
        const QString path = withExtension(dialog.selectedFiles().front(), form);
        if (mayReplace(parent, path)) return ExportFile{path, form};
    }
    return std::nullopt;
}

QString writeExport(const RowSet& records, const ExportFile& file) {
    const bool isCsv = file.form == ExportFile::Form::csv;
    const std::string point = QLocale().decimalPoint().toStdString();
    const QByteArray bytes = QByteArray::fromStdString(isCsv ? records.toCsv(point) : records.toXml());
    // Lines of CSV end as those of the platform's text files do; XML knows but one line end.
    const QIODevice::OpenMode mode = isCsv ? QIODevice::WriteOnly | QIODevice::Text : QIODevice::WriteOnly;
    return write(bytes, file, mode);
}

QString writeExport(const std::string& text, const ExportFile& file) {
    return write(QByteArray::fromStdString(text), file, QIODevice::WriteOnly);
}

}  // namespace marvello
