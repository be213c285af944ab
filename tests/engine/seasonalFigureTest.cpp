#include "engine/SeasonalFigure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>

#include "engine/ShippedProfiles.h"

namespace marvello {
namespace {

constexpr const char* contentFolder = MARVELLO_SOURCE_FOLDER "/content";

const ShippedProfile& shipped(const std::string& name) {
    static const std::vector<ShippedProfile> profiles = shippedProfiles(contentFolder);
    for (const ShippedProfile& profile : profiles)
        if (profile.name == name) return profile;
    throw std::out_of_range(name);
}

/// The sums of the 58 bins, added up by hand from the published hours: 8760.00 h, and the demand of a year
/// over the full load.
TEST(ShippedProfiles, HaveTheHoursOfAYear) {
    const std::map<std::string, double> demands{
        {"eu-mt", 6147.494}, {"eu-lt", 7453.747}, {"eu-chiller", 7409.362}, {"flat", 8760}};
    const auto profiles = shippedProfiles(contentFolder);
    EXPECT_EQ(profiles.size(), demands.size());
    for (const auto& [name, demand] : demands) {
        EXPECT_EQ(shipped(name).profile.bins.size(), 58U);
        EXPECT_NEAR(shipped(name).profile.hours(), 8760.00, 1e-9);
        EXPECT_NEAR(shipped(name).profile.fullLoadHours(), demand, 5e-4);
        EXPECT_FALSE(shipped(name).source.empty());
    }
    EXPECT_EQ(shipped("eu-mt").rule->evaporating, -10);
    EXPECT_EQ(shipped("eu-lt").rule->evaporating, -35);
    EXPECT_FALSE(shipped("eu-chiller").rule->evaporating);
    EXPECT_FALSE(shipped("flat").rule);
}

TEST(ShippedProfiles, SayWhatElectricityEmits) {
    const auto grids = gridIntensities(contentFolder);
    EXPECT_EQ(grids.front().region, "WORLD");
    EXPECT_NEAR(grids.front().intensity, 0.481, 1e-12);
    for (const GridIntensity& grid : grids) {
        EXPECT_GT(grid.intensity, 0.02) << grid.region;
        EXPECT_LT(grid.intensity, 0.8) << grid.region;
        EXPECT_GE(grid.year, 2022);
        EXPECT_EQ(grid.basis, "life cycle");  // others are not to be compared with it
    }
}

TEST(SeasonalRule, TheLoadFallsFromAToD) {
    const SeasonalRule& rule = *shipped("eu-mt").rule;
    EXPECT_EQ(rule.loadAt(40), 1);
    EXPECT_EQ(rule.loadAt(32), 1);
    EXPECT_NEAR(rule.loadAt(25), 0.6 + 0.4 * 20 / 27, 1e-15);
    EXPECT_NEAR(rule.loadAt(15), 0.74815, 5e-6);
    EXPECT_EQ(rule.loadAt(5), 0.6);
    EXPECT_EQ(rule.loadAt(-19), 0.6);
}

/// A condensing unit of 7 kW at medium temperature as the calculation tool of the rule lists it: what it has
/// at the four points, its rows of 6 to 9 degrees, and with all bins 43032.46 kWh over 14298.53 kWh.
TEST(SeasonalFigure, IsThatOfThePublishedExample) {
    const ShippedProfile& mt = shipped("eu-mt");
    const SeasonalRule& rule = *mt.rule;
    const std::array<DeclaredPoint, 4> declared{{{7.00, 2.10}, {7.76, 2.57}, {8.74, 3.27}, {9.61, 4.00}}};
    const std::array demands{7.000, 6.274, 5.237, 4.200};
    const std::array expected{2.10, 2.447, 2.942, 3.437};
    std::array<double, 4> cops{};
    for (std::size_t i = 0; i < cops.size(); ++i) {
        const double demand = 7 * rule.loadAt(rule.points[i]);
        EXPECT_NEAR(demand, demands[i], 5e-4);
        cops[i] = partLoadCop(declared[i], demand, rule.degradation);
        EXPECT_NEAR(cops[i], expected[i], 5e-4);
    }
    const CopByOutdoor cop(rule.points, cops);
    struct Row {
        double outdoor, demand, cop, energy;
    };
    for (const Row& row : {Row{6, 4.30, 3.39, 1508}, Row{7, 4.41, 3.34, 1602}, Row{8, 4.51, 3.29, 1664},
                           Row{9, 4.61, 3.24, 1715}}) {
        const LoadBin bin = *std::ranges::find(mt.profile.bins, row.outdoor, &LoadBin::outdoor);
        EXPECT_NEAR(7 * bin.load, row.demand, 0.005);
        EXPECT_NEAR(cop.at(row.outdoor), row.cop, 0.005);
        EXPECT_NEAR(7 * bin.load * bin.hours, row.energy, 0.5);
    }
    EXPECT_NEAR(7 * mt.profile.fullLoadHours(), 43032.46, 0.005);
    EXPECT_NEAR(seasonalFigure(mt.profile, cop), 43032.46 / 14298.53, 1e-6);
    EXPECT_NEAR(seasonalFigure(mt.profile, cop), 3.0096, 5e-5);
}

TEST(CopByOutdoor, IsConstantOutsideOfThePoints) {
    const CopByOutdoor cop({35, 25, 15, 5}, {2, 3, 4, 6});
    EXPECT_EQ(cop.at(50), 2);
    EXPECT_EQ(cop.at(35), 2);
    EXPECT_EQ(cop.at(30), 2.5);
    EXPECT_EQ(cop.at(10), 5);
    EXPECT_EQ(cop.at(-10), 6);
}

}  // namespace
}  // namespace marvello
