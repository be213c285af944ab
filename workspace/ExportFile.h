#pragma once

#include <QList>
#include <QString>
#include <optional>
#include <string>

class QWidget;

namespace marvello {

class RowSet;

/// A file to be written, and its form.
struct ExportFile {
    enum class Form { xml, csv, json, idf, svg };
    QString path;
    Form form = Form::xml;
};

/// The name with the extension of the form, unless it ends with that extension, in capitals or not.
QString withExtension(const QString& name, ExportFile::Form form);

/// Lets the user choose a file of one of the forms, beginning in the folder of the last export and with a
/// name. One that is there already is only given when the user agrees to replace it. Nothing when the user
/// cancels.
std::optional<ExportFile> chooseExportFile(QWidget* parent,
                                           const QList<ExportFile::Form>& forms = {ExportFile::Form::xml,
                                                                                   ExportFile::Form::csv},
                                           const QString& name = {});

/// Writes all records or leaves what was there before. Gives what the system says of a failure, and nothing
/// after success; then the folder is suggested the next time.
QString writeExport(const RowSet& records, const ExportFile& file);
/// The same with a text, whose lines end with a line feed in the file of every platform.
QString writeExport(const std::string& text, const ExportFile& file);

}  // namespace marvello
