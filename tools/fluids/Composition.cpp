#include "tools/fluids/Composition.h"

#include <cmath>
#include <optional>

#include "data/Numbers.h"
#include "data/TextTable.h"
#include "data/Texts.h"
#include "tools/fluids/Refusal.h"

namespace marvello::properties {
namespace {

/// Of "R32=0.5"; an argument without a fraction is a fluid alone.
Composition::Part partOf(const std::string& argument, bool alone) {
    const std::size_t mark = argument.find('=');
    std::string file = argument.substr(0, mark);
    if (file.empty()) throw Refusal("\"" + argument + "\" names no fluid file.");
    if (lowered(std::filesystem::path(file).extension().string()) != ".fld") file += ".FLD";
    if (mark == std::string::npos) {
        if (!alone)
            throw Refusal("\"" + argument + "\" lacks its mass fraction, such as " + argument + "=0.5.");
        return {file, 1};
    }
    const std::optional<double> fraction = storedNumber(argument.substr(mark + 1));
    if (!fraction || !(*fraction > 0 && *fraction <= 1))
        throw Refusal("The mass fraction in \"" + argument + "\" is no number above 0 and up to 1.");
    return {file, *fraction};
}

}  // namespace

std::vector<Composition> readCompositions(const std::filesystem::path& folder) {
    const TextTable table(folder / "blends.csv");
    std::vector<Composition> found;
    for (const TextTable::Row& row : table.rows()) {
        if (found.empty() || found.back().name != row.text("fluid")) found.push_back({row.text("fluid"), {}});
        found.back().parts.push_back({row.text("file"), row.number("mass_fraction")});
    }
    return found;
}

Composition compositionOf(const std::vector<std::string>& arguments, const std::filesystem::path& folder) {
    const bool alone = arguments.size() == 1;
    if (alone && !folder.empty()) {
        for (const Composition& known : readCompositions(folder))
            if (lowered(known.name) == lowered(arguments.front())) return known;
    }
    Composition made;
    double sum = 0;
    for (const std::string& argument : arguments) {
        made.parts.push_back(partOf(argument, alone));
        made.name += (made.name.empty() ? "" : "/") + argument.substr(0, argument.find('='));
        sum += made.parts.back().massFraction;
    }
    if (std::abs(sum - 1) > 1e-6)
        throw Refusal("The mass fractions add up to " + storedText(sum) + ", not to 1.");
    return made;
}

}  // namespace marvello::properties
