#pragma once

#include <vector>

#include "catalogue/clsCompressor.h"
#include "results/ResultTable.h"
#include "results/RowSet.h"

namespace marvello {

/// Returns the possible compressors of a list, one record each: refrigerant, series and model, then the
/// columns by their keys. Numbers are as the list shows them; a value without a number is null.
RowSet resultsRecords(const ResultTable& table);

/// Returns the coefficients c1 to c10 of the performance polynomials, two records a compressor: "Pta", the
/// power input, and "Q0", the cooling capacity, both in kW.
RowSet polynomialsRecords(const ResultTable& table);

}  // namespace marvello
