#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

class QWidget;

namespace marvello {

class RowSet;

/// A file to be written, and its form.
struct ExportFile {
    enum class Form { xml, csv, svg };
    QString path;
    Form form = Form::xml;
};

/// The name with the extension of the form, unless its last four characters are that extension, in capitals
/// or not.
QString withExtension(const QString& name, ExportFile::Form form);

/// Lets the user choose a file in one of the forms, beginning in the folder of the last export. One that is
/// there already is only given when the user agrees to replace it. Nothing when the user cancels.
std::optional<ExportFile> chooseExportFile(QWidget* parent, const QList<ExportFile::Form>& forms);

/// Writes all records or leaves what was there before. Gives what the system says of a failure, and nothing
/// after success; then the folder is suggested the next time.
QString writeExport(const RowSet& records, const ExportFile& file);
/// The same with what is in the file.
QString writeExport(const QByteArray& bytes, const ExportFile& file);

}  // namespace marvello
