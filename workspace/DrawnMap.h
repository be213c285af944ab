#pragma once

#include <memory>

#include "controls/EnvelopeMap.h"
#include "results/ShownMap.h"

namespace marvello {

/// The map as an envelope draws it.
std::shared_ptr<const EnvelopeMap> drawnMap(const ShownMap& shown);

}  // namespace marvello
