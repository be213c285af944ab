#pragma once

namespace marvello {

class clsCompressor;

/// What a calculation says of a compressor as a whole.
enum class Verdict { possible, possibleWithWarnings, notPossible };

/// Returns the verdict on a calculated compressor. Not possible are those with an error message and those
/// whose economizer cycle has no solution; these have no values to show.
Verdict verdictOf(const clsCompressor& compressor);

}  // namespace marvello
