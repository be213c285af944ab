#pragma once

#include <QLocale>
#include <vector>

#include "catalogue/clsCompressor.h"
#include "workspace/RowSet.h"

namespace marvello {

class ResultsView;

/// The compressors of a results list that have values, one record each: refrigerant, series and model, then
/// the columns of the list by their keys. Numbers are as the list shows them in `locale`; a cell without a
/// number is null.
RowSet resultsRecords(const ResultsView& list, const QLocale& locale = QLocale());

/// The coefficients c1 to c10 of the performance polynomials, two records a compressor: "Pta", the absorbed
/// power, and "Q0", the capacity, both in kW.
RowSet polynomialsRecords(const std::vector<const clsCompressor*>& compressors);

}  // namespace marvello
