#pragma once

namespace marvello {

/// Set by an abort button during a run; read between compressors and in long loops. Cleared at program start,
/// by whoever starts a run, and at the entry of each compressor's calculation.
bool& AbortRequested();

}  // namespace marvello
