#pragma once

#include "catalogue/clsProjectConditions.h"

namespace marvello {

/// What a new form asks for.
inline constexpr clsProjectConditions firstConditions = conditionsAt(2, 40);

}  // namespace marvello
