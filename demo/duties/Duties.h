#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/clsCompressor.h"
#include "catalogue/clsProjectConditions.h"
#include "demo/generate/Series.h"

namespace marvello::duties {

/// Runs a series with its refrigerant on the catalogue that is open, DZ in both markets, and calls
/// look(compressor) for each result.
void runSeries(const generate::SeriesPlan& plan, const clsProjectConditions& conditions,
               const std::function<void(const clsCompressor&)>& look);

/// A series with a refrigerant at its usual duty.
struct UsualRun {
    std::string serie;
    std::string refrigerant;
    std::size_t compressors = 0;
    std::size_t withoutError = 0;
    std::vector<std::string> errors;  ///< keys of messages, each once
};

/// Runs every series of the plans; with economizer where that is asked for, then only those that have one.
std::vector<UsualRun> usualRuns(const std::vector<generate::SeriesPlan>& plans, bool economized);

/// Which message came first where.
struct Provocation {
    std::string serie;
    std::string refrigerant;
    std::string model;
    std::string duty;
};

/// The messages that some compressor gives at some duty, by key and list ("error", "attention",
/// "information"): a walk over every envelope and beyond, with all settings of the selection form.
std::map<std::pair<std::string, std::string>, Provocation> provocations(
    const std::vector<generate::SeriesPlan>& plans);

/// All messages that the rules of the selection can raise, by key and list.
const std::vector<std::pair<std::string, std::string>>& messagesOfTheRules();

}  // namespace marvello::duties
