#pragma once

#include <map>
#include <string>
#include <vector>

namespace marvello::select {

/// Returns a sentence for each input that is not permitted, with the series for which it was put back. By
/// series a mask of `Selector`.
std::vector<std::string> putBackRemarks(const std::map<std::string, unsigned>& bySeries);

}  // namespace marvello::select
