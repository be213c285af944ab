#pragma once

#include <QPageLayout>
#include <QString>

#include "reports/ReportContent.h"

class QPrinter;

namespace marvello {

/// The paper of the user's country: Letter in North America, A4 elsewhere; upright, the report has margins of
/// its own.
QPageLayout reportLayout();

/// Draws the report on a printer, on its paper. False when the printer takes none.
bool printReport(QPrinter& printer, const ReportContent& content);

/// Writes the report as a PDF file. The old file stays until the new one is whole. Empty when it is done,
/// otherwise the reason why not, of the system.
QString saveReport(const QString& file, const QPageLayout& layout, const ReportContent& content);

}  // namespace marvello
