#pragma once

#include <span>
#include <string>
#include <string_view>

#include "engine/Cycle.h"
#include "thermo/UnitSystem.h"
#include "tools/select/Run.h"

namespace marvello::select {

/// The cycle of the one compressor of a run.
struct CycleAnswer {
    const Run& run;
    const clsCompressor& compressor;
    Cycle cycle;
};

/// Returns the cycle of a run of one compressor. Throws NothingMatches if there is none, and with its error
/// for one without values.
CycleAnswer calculatedCycle(const Run& run);

struct CycleFormat {
    std::string_view name;
    std::string (*text)(const CycleAnswer& answer, UnitSystem units);
};

/// json: an object in metric units; numbers read back exactly.
/// svg: the diagram of pressure over enthalpy, in the units asked for.
std::span<const CycleFormat> cycleFormats();
/// Returns the format of a name. Throws BadRequest with those that there are.
const CycleFormat& cycleFormatOf(const std::string& name);
/// Returns the units of "si" or "ip". Throws BadRequest.
UnitSystem unitSystemOf(const std::string& name);

}  // namespace marvello::select
