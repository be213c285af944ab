#pragma once

#include <map>
#include <string>
#include <vector>

#include "catalogue/PreparedCompressor.h"
#include "tools/catalogue/CatalogueDiff.h"

namespace marvello {

/// Whether calculations read rows of the table, as they do of compressors and not of texts.
bool isReadByCalculations(const RowChange& change);

/// The changed rows of two catalogues by the compressors whose calculations read them. Refers to the diff.
class ChangeReasons {
  public:
    explicit ChangeReasons(const CatalogueDiff& diff);

    /// Returns the positions, in CatalogueDiff::rows, of the changed rows that a calculation of the
    /// compressor with first conditions reads: its own row, surfaces, motor, envelope and refrigerant.
    std::vector<std::size_t> of(const PreparedCompressor& compressor, bool economized) const;

  private:
    bool isRead(std::size_t row, bool economized) const;

    const CatalogueDiff& diff_;
    std::multimap<std::string, std::size_t> rows_;  ///< By what a calculation looks them up with.
};

}  // namespace marvello
