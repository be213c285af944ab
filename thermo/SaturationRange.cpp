#include "thermo/SaturationRange.h"

#include <cmath>
#include <stdexcept>

#include "thermo/clsRefprop.h"

namespace marvello {

SaturationRange inTenths(const SaturationRange& range) {
    return {std::ceil(range.minimum * 10) / 10, std::floor(range.maximum * 10) / 10};
}

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
