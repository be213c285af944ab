#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "tools/catalogue/Content.h"

namespace marvello {

/// Checks a content that was read without a fault: what the program could not find, would misread or could
/// only calculate nonsense from is a fault, and what is merely odd or still missing a warning.
///
/// `fluids` is the folder of the fluid files, if they are to be there; `pictures` the folder of the pictures,
/// which need not exist.
void checkContent(const Content& content, const std::optional<std::filesystem::path>& fluids,
                  const std::filesystem::path& pictures, Faults& faults);

/// How much a content holds, as "1136 compressors in 18 series, ...".
std::string contentSummary(const Content& content);

// The parts of it.

/// What one table says about another.
void checkReferences(const Content& content, const std::optional<std::filesystem::path>& fluids,
                     Faults& faults);
/// The rows of the polynomials: each one that the program can ask for, and no two that it cannot tell apart.
void checkSurfaces(const Content& content, Faults& faults);
void checkEnvelopes(const Content& content, Faults& faults);
/// Capacity, power, COP, discharge temperature, current and economizer of each compressor over its envelope.
void checkPerformance(const Content& content, Faults& faults);
/// The facts of the refrigerants: sources, blends against their components, temperatures against the property
/// library.
void checkRefrigerantFacts(const Content& content, Faults& faults);
void checkTexts(const Content& content, Faults& faults);
void checkParameterSets(const Content& content, Faults& faults);
void checkPictures(const Content& content, const std::filesystem::path& pictures, Faults& faults);

}  // namespace marvello
