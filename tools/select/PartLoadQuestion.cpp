#include "tools/select/PartLoadQuestion.h"

#include <algorithm>
#include <array>

#include "data/Numbers.h"
#include "data/Texts.h"
#include "tools/select/NumberList.h"
#include "tools/select/WordOf.h"

namespace marvello::select {

namespace {

void readCondensing(PartLoadCall& call, const std::string& text) {
    call.condensing = asRequest([&] { return condensingRuleOf(text); });
    if (!call.condensing->difference || !call.condensing->isScaled)
        throw BadRequest("\"" + text +
                         "\" does not fall with the load: that needs a scaled difference, as "
                         "outdoor+12,scaled,min 25");
}

/// Commas part a list too: these are whole numbers more often than not.
std::vector<double> listIn(std::string text, const Range& permitted) {
    std::ranges::replace(text, ',', ';');
    return numbersIn(text, permitted, "number");
}

void readShares(PartLoadCall& call, const std::string& text) {
    constexpr Range percents{0.1, 100, "%"};
    call.shares.clear();
    for (const double percent : listIn(text, percents)) call.shares.push_back(percent / 100);
}

void readFrequencies(PartLoadCall& call, const std::string& text) {
    constexpr Range hertz{20, 70, "Hz"};
    call.frequencies.clear();
    call.hasFrequencies = true;
    for (const double frequency : listIn(text, hertz))
        call.frequencies.push_back(static_cast<float>(frequency));
}

void readDegradation(PartLoadCall& call, const std::string& text) {
    call.degradation = asRequest([&] { return degradationOf(text); });
}

void readFormat(PartLoadCall& call, const std::string& text) {
    call.format = wordOf(
        text, std::array{std::pair{"table", PartLoadFormat::table}, std::pair{"csv", PartLoadFormat::csv},
                         std::pair{"json", PartLoadFormat::json}});
}

constexpr std::array options = {
    PartLoadOption{"condensing",
                   "how the condensing temperature falls with the load: outdoor+12,scaled,min 25 (fixed)",
                   readCondensing},
    PartLoadOption{"shares", "shares of the full capacity, percent: 100,75,50,25 or 10:100:10 (the four)",
                   readShares},
    PartLoadOption{"frequencies", "of a compressor on an inverter, Hz: 20:70:5 or 30,50 (20:70:10)",
                   readFrequencies},
    PartLoadOption{"degradation",
                   "what intermittent running costs: none, condensing-unit:0.25 or chiller:0.9 (none)",
                   readDegradation},
    PartLoadOption{"format", "table, csv or json (table)", readFormat},
};

}  // namespace

std::span<const PartLoadOption> partLoadOptions() { return options; }

bool isPartLoadOption(const RequestOption& option) {
    constexpr std::array<std::string_view, 3> others{"step", "frequency", "market"};
    return std::ranges::find(others, option.name) == others.end();
}

void readOption(PartLoadCall& call, const PartLoadOption& option, const std::string& text) {
    try {
        option.read(call, text);
    } catch (const BadRequest& fault) {
        throw BadRequest(std::string(option.name) + ": " + fault.what());
    }
}

}  // namespace marvello::select
