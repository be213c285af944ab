#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/RefrigerantFacts.h"
#include "data/Numbers.h"
#include "results/TechnicalData.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// What stands for a fact that is not known.
inline constexpr const char* unknownFact = "-";

/// How the numbers are shown, none with grouping.
inline constexpr const char* gwpPattern = "#0.###";
inline constexpr const char* odpPattern = "#0.###";
inline constexpr const char* degreesPattern = "#0.0";

/// Returns a text, or a number by its pattern; unknownFact for none.
std::string factText(const std::string& fact);
std::string factText(const std::optional<double>& fact, std::string_view pattern,
                     const NumberMarks& marks = {});

/// Returns safety class and GWP by AR4 in a few letters, "A1 · GWP 1430"; unknownFact alone if neither is
/// known.
std::string shortFacts(const RefrigerantFacts& facts, const NumberMarks& marks = {});

/// Returns all facts with their captions, in the order of the technical data. Temperatures are in °C or °F,
/// the glide in K or °F.
std::vector<TechnicalEntry> factEntries(const RefrigerantFacts& facts, UnitSystem units,
                                        const NumberMarks& marks = {});

}  // namespace marvello
