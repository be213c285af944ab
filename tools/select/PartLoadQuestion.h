#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/PartLoad.h"
#include "tools/select/Request.h"

namespace marvello::select {

/// How the answer is written.
enum class PartLoadFormat : std::uint8_t { table, csv, json };

/// A machine over its load, as the command line states it.
struct PartLoadCall {
    Request request;  ///< At full load.
    std::optional<CondensingRule> condensing{};
    Degradation degradation{};
    std::vector<double> shares{1, 0.75, 0.5, 0.25};
    std::vector<float> frequencies{20, 30, 40, 50, 60, 70};
    bool hasFrequencies = false;  ///< Stated.
    PartLoadFormat format = PartLoadFormat::table;
};

/// An option of this command under the name that the command line uses.
struct PartLoadOption {
    std::string_view name;
    std::string_view help;
    void (*read)(PartLoadCall&, const std::string& text);
};

/// Those besides the options of a selection.
std::span<const PartLoadOption> partLoadOptions();

/// Whether an option of a selection is one of this command too: all but step, frequency and market.
bool isPartLoadOption(const RequestOption& option);

/// Reads one option. Throws BadRequest with its name, the value and what is allowed.
void readOption(PartLoadCall& call, const PartLoadOption& option, const std::string& text);

}  // namespace marvello::select
