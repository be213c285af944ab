#include "engine/ShippedProfiles.h"

#include "data/FileText.h"
#include "data/TextTable.h"

namespace marvello {

namespace {

std::filesystem::path folderIn(const std::filesystem::path& applicationFolder) {
    return applicationFolder / "year";
}

Degradation degradationOf(const TextTable::Row& row) {
    using enum Degradation::Form;
    constexpr std::array forms{none, condensingUnit, chiller};
    const std::size_t form = row.choice("degradation", {"", "condensingUnit", "chiller"});
    return {.form = forms.at(form), .coefficient = row.number("coefficient", 0)};
}

/// None without a point A.
std::optional<SeasonalRule> ruleOf(const TextTable::Row& row) {
    if (row.text("A").empty()) return std::nullopt;
    return SeasonalRule{.points = {row.number("A"), row.number("B"), row.number("C"), row.number("D")},
                        .lowestLoad = row.number("lowest"),
                        .degradation = degradationOf(row),
                        .evaporating = row.numberIfAny("evaporating")};
}

LoadProfile profileOf(const TextTable::Row& row, const std::filesystem::path& folder,
                      const std::optional<SeasonalRule>& rule) {
    const std::filesystem::path file = folder / row.text("hours");
    const std::optional<std::string> text = fileText(file);
    if (!text) throw std::runtime_error(file.string() + " cannot be read.");
    LoadProfile profile = loadProfileIn(*text, file.string(), false);
    if (rule)
        for (LoadBin& bin : profile.bins) bin.load = rule->loadAt(bin.outdoor);
    return profile;
}

}  // namespace

std::vector<ShippedProfile> shippedProfiles(const std::filesystem::path& applicationFolder) {
    const std::filesystem::path folder = folderIn(applicationFolder);
    const TextTable table(folder / "profiles.csv");
    std::vector<ShippedProfile> profiles;
    for (const TextTable::Row& row : table.rows()) {
        const auto rule = ruleOf(row);
        profiles.push_back({.name = row.text("name"),
                            .title = row.text("title"),
                            .source = row.text("source"),
                            .profile = profileOf(row, folder, rule),
                            .rule = rule});
    }
    return profiles;
}

std::vector<GridIntensity> gridIntensities(const std::filesystem::path& applicationFolder) {
    const TextTable table(folderIn(applicationFolder) / "grid.csv");
    std::vector<GridIntensity> intensities;
    for (const TextTable::Row& row : table.rows())
        intensities.push_back({.region = row.text("region"),
                               .year = static_cast<int>(row.number("year")),
                               .intensity = row.number("gramsPerKilowattHour") / 1000,
                               .basis = row.text("basis"),
                               .source = row.text("source")});
    return intensities;
}

}  // namespace marvello
