// Maps over the envelopes of the whole catalogue, compared with plain selections.
#include "engine/PerformanceMap.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <set>

#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "engine/clsSelections.h"

namespace marvello {
namespace {

class MapsOfTheCatalogue : public testing::Test {
  protected:
    MapsOfTheCatalogue() {
        openCatalogue();
        catalogue = preparedCatalogue(gDatabase());
    }

    const PreparedCompressor& oneOfAll() {
        return catalogue->compressors()[random() % catalogue->compressors().size()];
    }

    clsCompressor& select(const PreparedCompressor& compressor, const clsProjectConditions& conditions) {
        const CollectedBoxes boxes;
        selections.Selection(std::make_shared<clsProjectConditions>(conditions), compressor.Serie,
                             compressor.Model, compressor.Refrigerant,
                             static_cast<std::uint8_t>(compressor.Market));
        return selections.Item(1);
    }

    PerformanceMap mapOf(const PreparedCompressor& compressor, const clsProjectConditions& conditions,
                         int side) {
        const CollectedBoxes boxes;
        const auto grid = gridOver(compressor.envelopeFor(conditions.EcoCalculateMode)->limits, side, side);
        return *mapOver(calculator, compressor, conditions, *grid);
    }

    Session session{MARVELLO_APP_FOLDER};
    std::shared_ptr<const PreparedCatalogue> catalogue;
    Calculator calculator;
    clsSelections selections;
    std::mt19937 random{11};
};

TEST_F(MapsOfTheCatalogue, HaveTheValuesOfPlainSelections) {
    int checked = 0;
    int valued = 0;
    while (checked < 2000) {
        const PreparedCompressor& compressor = oneOfAll();
        clsProjectConditions conditions = conditionsAt(0, 0);
        conditions.SuperHeat = 5 + static_cast<double>(random() % 10);
        conditions.StepCapacity = random() % 4 == 0 ? 75 : 100;
        const bool hasPort = compressor.Economizer.hasPort() && compressor.envelopeEconomized;
        if (hasPort && random() % 4 == 0) {
            conditions.EcoCalculateMode = EconomizerMode::approach;
            conditions.Eco = 5;
        }
        const PerformanceMap map = mapOf(compressor, conditions, 7);
        for (int i = 0; i < 20; ++i, ++checked) {
            const auto point = static_cast<int>(random() % 49);
            conditions.TEvaporatingDew = map.grid.ted(point);
            conditions.TCondensationDew = map.grid.tcd(point);
            const Performance plain = performanceOf(select(compressor, conditions));
            const Performance& mapped = map.points[static_cast<std::size_t>(point)];
            EXPECT_EQ(mapped.state, plain.state);
            EXPECT_EQ(mapped.error, plain.error);
            for (const Figure figure : figures()) EXPECT_EQ(valueOf(mapped, figure), valueOf(plain, figure));
            if (plain.hasValues()) ++valued;
        }
    }
    EXPECT_GT(valued, 1000);
}

TEST_F(MapsOfTheCatalogue, HaveLinesThatAreTrue) {
    const CollectedBoxes boxes;
    for (int turn = 0; turn < 12; ++turn) {
        const PreparedCompressor& compressor = oneOfAll();
        const clsLimits& limits = compressor.envelope->limits;
        clsProjectConditions conditions = conditionsAt(0, 0);
        PerformanceMap map;
        int handedOut = 0;
        refineMap(calculator, compressor, conditions, {}, [&](const PerformanceMap& each, bool) {
            if (handedOut++ > 0) {
                EXPECT_EQ(each.grid, map.grid.finer());
            }
            map = each;
        });
        ASSERT_GE(handedOut, 2);
        const auto within = applicationPolygons(limits);
        for (const Figure figure : figures()) {
            const GridField field = map.fieldOf(figure);
            const ValueRange range = rangeWithin(field, within);
            const Contours contours = contoursOf(field, within, roundLevels(range));
            for (const Isoline& line : contours.lines)
                for (const auto& part : line.parts)
                    for (std::size_t i = 1; i < part.size(); ++i) {
                        conditions.TEvaporatingDew = (part[i].x + part[i - 1].x) / 2;
                        conditions.TCondensationDew = (part[i].y + part[i - 1].y) / 2;
                        const auto value =
                            mappedValueOf(performanceAt(calculator, compressor, conditions), figure);
                        if (!value) continue;  // on the edge of the limit, by the rounding of its angles
                        EXPECT_NEAR(*value, line.level, lineTolerance * range.width())
                            << compressor.Serie << " " << compressor.Model << " "
                            << conditions.TEvaporatingDew << "/" << conditions.TCondensationDew;
                    }
        }
    }
}

TEST_F(MapsOfTheCatalogue, EndWhereACapacityStepIsNotAllowed) {
    const PreparedCompressor* compressor = catalogue->find("R134A", "TK-A", "220");
    ASSERT_TRUE(compressor);
    clsProjectConditions conditions = conditionsAt(0, 0);
    conditions.StepCapacity = 50;
    const PerformanceMap map = mapOf(*compressor, conditions, 41);
    const clsLimits& limits = compressor->envelope->limits;
    const auto within = applicationPolygons(limits);
    const Contours contours = contoursOf(map.fieldOf(Figure::capacity), within, {});
    PlanePolygon step;
    for (const clsPoint& at : limits.GetLimitType(limitType::step50)->Points) step.push_back({at.x, at.Y});
    // Its corners are cut by less than a cell each.
    EXPECT_NEAR(contours.bands.front().area(), std::abs(areaOf(step)), 1);
}

TEST_F(MapsOfTheCatalogue, StopWhenTheyAreNoLongerWanted) {
    const PreparedCompressor& compressor = oneOfAll();
    int asked = 0;
    const auto grid = gridOver(compressor.envelope->limits, 11, 11);
    EXPECT_FALSE(
        mapOver(calculator, compressor, conditionsAt(0, 0), *grid, nullptr, [&] { return ++asked < 5; }));
    EXPECT_EQ(asked, 5);
    EXPECT_FALSE(gridOver(clsLimits(), 11, 11));
}

}  // namespace
}  // namespace marvello
