#pragma once

#include <vector>

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

/// Gives a report other sections, and numbers its pages.
void setSections(ReportContent& report, std::vector<ReportSection> sections);

/// Prints a report on a printer that the user chooses.
void printReport(const ReportContent& report, QWidget* window);

}  // namespace marvello
