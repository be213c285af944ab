#pragma once

#include <memory>
#include <string>

#include "catalogue/PreparedCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/formTimeout.h"
#include "thermo/clsRefprop.h"

namespace marvello {

/// Returns what a calculation at these conditions asks of a compressor. Throws ArithmeticFault for a capacity
/// step that is no byte.
CompressorChoice choiceOf(const clsProjectConditions& conditions);

/// Calculates prepared compressors one after the other, each at conditions of its own, without SQL. It holds
/// all that a calculation changes and uses it again, so that one more costs its states and hardly an
/// allocation. Belongs to one thread and its session.
class Calculator {
  public:
    /// Calculates a compressor as a selection does. What is returned stays until the next call. Throws what
    /// PreparedCompressor::load throws, DatabaseError and FluidLibraryError.
    const clsCompressor& calculate(const PreparedCompressor& compressor,
                                   const clsProjectConditions& conditions);
    /// The same in a compressor of the caller's.
    void calculate(const PreparedCompressor& compressor, const clsProjectConditions& conditions,
                   clsCompressor& result);

    /// The property service of a refrigerant, as the calculations use it. Throws DatabaseError and
    /// FluidLibraryError.
    clsRefprop& refprop(const std::string& refrigerant);

  private:
    clsCompressor compressor_;
    formTimeout timeout_;
    std::shared_ptr<clsRefprop> refprop_;
};

}  // namespace marvello
