#pragma once

#include <QString>
#include <optional>

class QWidget;

namespace marvello {

class RowSet;

/// A file to be written, and its form.
struct ExportFile {
    enum class Form { xml, csv };
    QString path;
    Form form = Form::xml;
};

/// The name with the extension of the form, unless its last four characters are that extension, in capitals
/// or not.
QString withExtension(const QString& name, ExportFile::Form form);

/// Lets the user choose a file, beginning in the folder of the last export. One that is there already is only
/// given when the user agrees to replace it. Nothing when the user cancels.
std::optional<ExportFile> chooseExportFile(QWidget* parent);

/// Writes all records or leaves what was there before. Gives what the system says of a failure, and nothing
/// after success; then the folder is suggested the next time.
QString writeExport(const RowSet& records, const ExportFile& file);

}  // namespace marvello
