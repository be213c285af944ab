#include "thermo/SaturationRange.h"

#include <stdexcept>

#include "thermo/clsRefprop.h"

namespace marvello {

SaturationRange saturationRange(const std::string& refrigerant) {
    clsRefprop& service = GetRefprop(refrigerant);
    if (!service.SetupFault().empty())
        throw std::runtime_error("The fluid library cannot set up " + refrigerant + ": " +
                                 service.SetupFault());
    return service.DewRange();
}

TemperatureFault judgeTemperatures(const SaturationRange& range, double evaporating, double condensing) {
    if (!range.contains(evaporating)) return TemperatureFault::evaporatingOutside;
    if (!range.contains(condensing)) return TemperatureFault::condensingOutside;
    return evaporating > condensing ? TemperatureFault::evaporatingAboveCondensing : TemperatureFault::none;
}

}  // namespace marvello
