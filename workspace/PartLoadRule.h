#pragma once

#include <QStringList>
#include <optional>

#include "engine/PartLoad.h"

namespace marvello {

/// By what the part load of a compressor is calculated.
struct PartLoadRule {
    std::optional<CondensingRule> condensing{};  ///< None for a fixed condensing temperature.
    Degradation degradation{};
    QStringList words{};  ///< What it says, in the user's language and units.

    PartLoadPlan planOf(const PreparedCompressor& compressor, const clsProjectConditions& conditions) const {
        return {.compressor = &compressor,
                .conditions = conditions,
                .condensing = condensing,
                .degradation = degradation};
    }
};

}  // namespace marvello
