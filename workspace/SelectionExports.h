#pragma once

#include <QString>

class QWidget;

namespace marvello {

class RowSet;
class SelectionRun;

/// Ask for a file and write the compressors of the list with their values, or their performance polynomials.
/// Return a note that says what the file holds and where it is; empty if none was written, which a box has
/// said unless the user gave up.
QString exportResults(const SelectionRun& run, QWidget* parent);
QString exportPolynomials(const SelectionRun& run, QWidget* parent);
/// The same with records that are at hand, one for each compressor.
QString exportRecords(const RowSet& records, QWidget* parent);
/// Says in a box that a file could not be written, and why.
void sayNotWritten(const QString& path, QString failure, QWidget* parent);

}  // namespace marvello
