#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace marvello {

/// A table on its way to the clipboard.
struct CopiedTable {
    QStringList columns;  ///< the headers, with units
    QList<QStringList> rows;
    int textColumns = 0;  ///< how many of the first columns hold names; the others hold numbers
};

/// The table as HTML, of which a spreadsheet makes cells.
QString htmlOf(const CopiedTable& table);

/// Puts a table on the clipboard: `text` for programs that take plain text, and the table for those that know
/// one.
void copyTable(const QString& text, const CopiedTable& table);

}  // namespace marvello
