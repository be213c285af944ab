#pragma once

#include <string>

#include "tools/select/PartLoadQuestion.h"

namespace marvello::select {

/// A machine over its load that was calculated.
struct PartLoadAnswer {
    const PartLoadCall& call;
    const PreparedCompressor& compressor;
    const PartLoadTable& table;
};

/// Returns the answer in the format of its call.
std::string partLoadText(const PartLoadAnswer& answer);

/// Returns the first sentence of a state that is not possible.
std::string errorText(const SteadyLoad& load);

}  // namespace marvello::select
