#include "engine/Margins.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "data/TextTable.h"
#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

constexpr std::array directions{Direction::tedUp, Direction::tedDown, Direction::tcdUp, Direction::tcdDown};

clsPoint moved(clsPoint point, Direction direction, double kelvin) {
    const bool isUp = direction == Direction::tedUp || direction == Direction::tcdUp;
    const bool isTed = direction == Direction::tedUp || direction == Direction::tedDown;
    (isTed ? point.x : point.Y) += isUp ? kelvin : -kelvin;
    return point;
}

void add(clsLimits& limits, int type, const std::string& points) {
    auto limit = std::make_shared<clsLimit>();
    limit->setType(type);
    limit->Points = parsePoints(points);
    limits.add(std::move(limit));
}

bool isInApplication(const clsLimits& limits, clsPoint point) {
    return limits.holding(point.x, point.Y).FindLimitType(limitType::application);
}

/// What a margin says, against what the lines hold: it is crossed there, and nothing is crossed nearer.
/// `tolerance` in K is for the single-precision angles of that test.
void expectExact(const clsLimits& limits, clsPoint point, double tolerance) {
    constexpr double step = 0.37;  // K, of the look around
    SCOPED_TRACE(::testing::Message() << point.x << " " << point.Y);
    const bool isInside = isInApplication(limits, point);
    const auto margin = applicationMargin(limits, point.x, point.Y);
    const auto differs = [&](Direction direction, double kelvin) {
        return isInApplication(limits, moved(point, direction, kelvin)) != isInside;
    };
    const double kelvin = margin ? std::abs(margin->kelvin) : 130;
    if (margin) {
        EXPECT_TRUE(kelvin == 0 || (margin->kelvin > 0) == isInside);
        EXPECT_TRUE(differs(margin->direction, kelvin + tolerance));
    } else {
        EXPECT_FALSE(isInside);
    }
    for (const Direction direction : directions) {
        for (double nearer = step; nearer < kelvin - tolerance; nearer += step)
            ASSERT_FALSE(differs(direction, nearer)) << nameOf(direction) << " " << nearer;
        if (margin && kelvin > tolerance) {
            ASSERT_FALSE(differs(direction, kelvin - tolerance)) << nameOf(direction);
        }
    }
}

/// The application limits of the demonstration catalogue, each in a set of its own.
std::vector<clsLimits> catalogueEnvelopes() {
    std::vector<clsLimits> envelopes;
    const TextTable table(MARVELLO_SOURCE_FOLDER "/content/tLimits.csv");
    for (const TextTable::Row& row : table.rows()) {
        if (row.number("fType") != limitType::application) continue;
        add(envelopes.emplace_back(), limitType::application, row.text("fPoints"));
    }
    return envelopes;
}

TEST(Margins, AreWhereTheEnvelopesOfTheCatalogueChange) {
    const std::vector<clsLimits> envelopes = catalogueEnvelopes();
    ASSERT_GT(envelopes.size(), 300U);
    std::mt19937 random(3);
    std::uniform_real_distribution<double> ted(-65, 30);
    std::uniform_real_distribution<double> tcd(-10, 90);
    for (const clsLimits& limits : envelopes) {
        for (int i = 0; i < 15; ++i) {
            const clsPoint point{ted(random), tcd(random)};
            expectExact(limits, point, 1e-6);
            expectExact(limits, {std::round(point.x), std::round(point.Y)}, 1e-6);  // level with corners
        }
        for (const clsPoint& corner : limits.Item(1).Points)
            EXPECT_LT(std::abs(applicationMargin(limits, corner.x, corner.Y)->kelvin), 2e-6);
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(Margins, OfConcaveOpenAndSeveralLines) {
    clsLimits limits;
    EXPECT_EQ(applicationMargin(limits, 0, 0), std::nullopt);
    add(limits, limitType::over, "-50,0;50,0;50,90;-50,90;-50,0");
    EXPECT_EQ(applicationMargin(limits, 0, 0), std::nullopt);
    // A notch from above, and a second line, not closed, that covers its left half.
    add(limits, limitType::application, "0,0;40,0;40,40;24,40;20,10;16,40;0,40;0,0");
    const auto expectMargin = [&](double ted, double tcd, double kelvin, Direction direction) {
        const auto margin = applicationMargin(limits, ted, tcd);
        ASSERT_TRUE(margin) << ted << " " << tcd;
        EXPECT_NEAR(margin->kelvin, kelvin, 1e-12) << ted << " " << tcd;
        EXPECT_EQ(margin->direction, direction) << ted << " " << tcd;
    };
    expectMargin(12, 25, 6, Direction::tedUp);  // the notch is at 18
    expectMargin(20, 25, -2, Direction::tedUp);
    expectMargin(20, 7, 3, Direction::tcdUp);  // its tip
    expectMargin(60, 25, -20, Direction::tedDown);
    add(limits, limitType::application, "14,20;20,20;20,44;14,44");
    expectMargin(12, 25, 8, Direction::tedUp);  // through both lines, to the edge of the second one
    expectMargin(20.5, 25, -0.5, Direction::tedDown);
    expectMargin(15, 43.5, 0.5, Direction::tcdUp);
    EXPECT_EQ(applicationMargin(limits, 60, 60), std::nullopt);
    std::mt19937 random(5);
    std::uniform_real_distribution<double> at(-10, 50);
    for (int i = 0; i < 500; ++i) expectExact(limits, {at(random), at(random)}, 1e-5);  // at steep edges
}

class LimitMargins : public testing::EngineFixture {
  protected:
    /// By the names of the limits.
    std::map<std::string, Margin> margins(const std::string& serie) {
        const clsCompressor& calculated = select("R134A", serie);
        const std::vector<Margin> found = limitMargins(calculated, conditions);
        EXPECT_TRUE(
            std::ranges::is_sorted(found, {}, [](const Margin& margin) { return std::abs(margin.kelvin); }));
        std::map<std::string, Margin> named;
        for (const Margin& margin : found) named.emplace(limitName(margin.limitType), margin);
        return named;
    }

    static void expectMargin(const std::map<std::string, Margin>& margins, const char* limit, double kelvin,
                             Direction direction) {
        ASSERT_TRUE(margins.contains(limit)) << limit;
        EXPECT_NEAR(margins.at(limit).kelvin, kelvin, 1e-9) << limit;
        EXPECT_EQ(margins.at(limit).direction, direction) << limit;
    }
};

// At -5/45 degC, in the default envelope.
TEST_F(LimitMargins, AreOfTheLimitsThatSpeakAtTheConditions) {
    catalogue.compressor();
    catalogue.compressor({{"fSerieID", "'TK-D'"}, {"fhasInverter", "1"}});
    catalogue.compressor({{"fSerieID", "'MV-A'"}, {"fhasFullSmallMotor", "1"}, {"fMotorSmallID", "1"}});
    catalogue.completeDefault();
    catalogue.surfaces(26, {50}, {10});
    catalogue.surfaces(75, {50}, {10});
    catalogue.limit("E", limitType::oilFilter, "-40,0;-7,0;-7,90;-40,90;-40,0");
    catalogue.limit("E", limitType::oilCooling, "-40,41;40,41;40,90;-40,90;-40,41");
    catalogue.limit("E", limitType::step75, "-6,30;4,30;4,48;-6,48;-6,30");
    catalogue.limit("E", limitType::step50, "0,30;4,30;4,48;0,48;0,30");
    catalogue.limit("E", limitType::smallMotor, "-40,0;40,0;40,45.5;-40,45.5;-40,0");
    catalogue.limit("E", limitType::hertz60, "-40,0;40,0;40,52;-40,52;-40,0");
    catalogue.limit("E", limitType::hertz70, "-40,0;40,0;40,42;-40,42;-40,0");

    auto found = margins("TK-A");
    EXPECT_EQ(found.size(), 2U);
    expectMargin(found, "oilFilter", 2, Direction::tedDown);
    expectMargin(found, "oilCooling", -4, Direction::tcdDown);  // its message is raised

    conditions.StepCapacity = 75;
    expectMargin(margins("TK-A"), "step75", 1, Direction::tedDown);
    conditions.StepCapacity = 50;
    expectMargin(margins("TK-A"), "step50", -5, Direction::tedUp);
    conditions.StepCapacity = 100;

    conditions.MotorSize = MotorChoice::small;  // not sufficient above
    expectMargin(margins("MV-A"), "smallMotor", 0.5, Direction::tcdUp);
    conditions.MotorSize = MotorChoice::full;  // the small one is sufficient: a note
    expectMargin(margins("MV-A"), "smallMotor", -0.5, Direction::tcdUp);

    conditions.InverterFrequency = 50;
    EXPECT_EQ(margins("TK-D").size(), 2U);
    conditions.InverterFrequency = 60;
    expectMargin(margins("TK-D"), "hertz60", 7, Direction::tcdUp);
    conditions.InverterFrequency = 65;
    expectMargin(margins("TK-D"), "hertz70", -3, Direction::tcdDown);
}

}  // namespace
}  // namespace marvello
