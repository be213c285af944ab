#pragma once

#include "controls/EnvelopeDrawing.h"
#include "inputs/SelectionInputs.h"
#include "reports/ReportContent.h"
#include "results/ResultTable.h"

class QWidget;

namespace marvello {

/// The limits of a compressor with the operating point of the inputs, in their units.
EnvelopeDrawing envelopeOf(const clsCompressor& compressor, const SelectionInputs& inputs);

/// The printed report of a compressor of a list.
ReportContent reportOf(const ResultTable& table, const ResultRow& row, const SelectionInputs& inputs);

/// Shows a report in its window, or lets the user choose a printer for it.
void previewReport(const ReportContent& report, QWidget* window);
void printReport(const ReportContent& report, QWidget* window);

}  // namespace marvello
