#pragma once

#include <string>
#include <vector>

#include "results/CalculationSheet.h"

namespace marvello {

/// A calculation sheet under its title, such as "TK-A-255, R134A", in a form of text. UTF-8.
std::string sheetAsText(const std::string& title, const std::vector<SheetSection>& sections);
std::string sheetAsMarkdown(const std::string& title, const std::vector<SheetSection>& sections);
/// A page of its own, to be shown and printed by any browser.
std::string sheetAsHtml(const std::string& title, const std::vector<SheetSection>& sections);

}  // namespace marvello
