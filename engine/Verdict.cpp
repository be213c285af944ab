#include "engine/Verdict.h"

#include "catalogue/clsCompressor.h"

namespace marvello {

namespace {

bool isStoppedByEconomizer(const clsCompressor& compressor) {
    constexpr double noSolution = -1;
    return compressor.Variables.isSet(var::EcoOK) && compressor.Variables[var::EcoOK] == noSolution;
}

}  // namespace

Verdict verdictOf(const clsCompressor& compressor) {
    if (compressor.Messages.Error.Count() > 0 || isStoppedByEconomizer(compressor))
        return Verdict::notPossible;
    return compressor.Messages.Attention.Count() > 0 ? Verdict::possibleWithWarnings : Verdict::possible;
}

}  // namespace marvello
