#pragma once

#include <string>
#include <vector>

#include "data/Numbers.h"
#include "engine/YearComparison.h"
#include "results/ComparisonTable.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// How a year is shown, with the names that its terms do not have.
struct YearStyle {
    UnitSystem units = UnitSystem::metric;
    NumberMarks marks{};
    std::string currency{};       ///< Of the price, such as "€"; may be empty.
    std::string profile{};        ///< What the profile is called.
    std::string profileSource{};  ///< Its literature; may be empty.
    std::string gridSource{};     ///< Where the emissions of electricity come from; empty for a typed number.
};

/// Returns what a plant is called: "2 × TK-A-120 + TK-D-140".
std::string plantName(const Plant& plant);

/// Returns the heads of plants, with names that tell them apart. One that runs in no bin has the reason.
std::vector<ComparedHead> yearHeads(const YearComparison& comparison);

/// Returns how a plant runs in a bin: "2 × TK-A-120 75 %, TK-D-140 43.2 Hz"; "-" if it does not.
std::string runningText(const YearOfPlant& plant, const YearBin& bin, const NumberMarks& marks);

/// Returns a temperature with its unit, such as "-7.5 °C".
std::string temperatureText(double celsius, const YearStyle& style);
/// Returns a cooling capacity with its unit, such as "150.0 kW".
std::string capacityText(double kilowatts, const YearStyle& style);

/// Returns what all figures rest on, a sentence each; the last one says what they are not.
std::vector<std::string> yearAssumptions(const YearComparison& comparison, const YearStyle& style);

/// Returns why a text names no plant, as a sentence in the user's language.
std::string sentenceOf(const PlantTextFault& fault);
/// Returns the sentence of a value or of a file that is refused; of a file with its line.
std::string sentenceOf(LoadProfileFault::Reason reason, const std::string& text);
std::string sentenceOf(const LoadProfileFault& fault);

}  // namespace marvello
