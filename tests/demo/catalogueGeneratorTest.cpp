// The stored catalogue against the plans that it comes from, and against what physics demands of any
// compressor.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "catalogue/clsLimits.h"
#include "data/Csv.h"
#include "data/FileText.h"
#include "data/Numbers.h"
#include "demo/generate/Catalogue.h"
#include "demo/generate/EnvelopeRows.h"
#include "demo/generate/OperatingRange.h"
#include "demo/generate/Series.h"
#include "demo/generate/TechnicalData.h"
#include "tools/catalogue/Content.h"
#include "tools/catalogue/Index.h"
#include "tools/surface/Surface.h"

namespace marvello::generate {
namespace {

using testing::ElementsAre;

const std::string contentFolder = std::string(MARVELLO_SOURCE_FOLDER) + "/content";
const std::string plansFolder = std::string(MARVELLO_SOURCE_FOLDER) + "/demo/generate/plans";

const Content& stored() {
    static Faults faults;
    static const Content content = readContent(contentFolder, faults);
    return content;
}

const Index& storedIndex() {
    static const Index index(stored());
    return index;
}

/// The line of an envelope; no points where it has none of the type.
clsPoints limitOf(const std::string& id, int type) {
    const Index::Line* line = lineOfType(storedIndex().lines(id), type);
    return line == nullptr ? clsPoints{} : line->points;
}

bool inside(const clsPoints& line, double x, double y) {
    return polygonTest(line, x, y) == PolygonState::inside;
}

const std::vector<SeriesPlan>& plans() {
    static const std::vector<SeriesPlan> all = allSeries(plansFolder, contentFolder);
    return all;
}

/// Another compiler may round the last of eight digits otherwise.
bool isSame(const std::string& one, const std::string& other) {
    const auto first = storedNumber(one);
    const auto second = storedNumber(other);
    return one == other || (first && second && std::abs(*first - *second) < 1e-6 * std::abs(*first));
}

TEST(StoredCatalogue, IsWhatThePlansGive) {
    const GeneratedCatalogue made = generateCatalogue(plans(), readCompositions(contentFolder).at("R407C"));
    const TechnicalData technical = technicalData(plans(), plansFolder);
    for (const CsvTable* table : {&technical.heads, &technical.rows, &made.compressors, &made.polynomials,
                                  &made.conversions, &made.motors, &made.limits}) {
        Faults faults;
        const auto kept = readCsv(*fileText(contentFolder + "/" + table->name + ".csv"), table->name, faults);
        ASSERT_EQ(kept.size(), table->rows.size() + 1) << table->name;
        for (std::size_t row = 0; row < table->rows.size(); ++row)
            EXPECT_TRUE(std::ranges::equal(kept[row + 1].fields, table->rows[row], isSame))
                << table->name << ".csv:" << kept[row + 1].line << ": write it again with marvello-generate";
    }
    for (const Summary& summary : made.summaries) {
        EXPECT_TRUE(summary.isSound()) << summary.serie << " with " << summary.refrigerant;
        EXPECT_LT(summary.frequencyError, 0.03) << summary.serie << " with " << summary.refrigerant;
    }
    ASSERT_EQ(made.conversionFits.size(), 2U);
    for (const Conversion& conversion : made.conversionFits) EXPECT_LT(conversion.error.largest, 0.015);
}

/// Calls look(series, fluid) for every series with every refrigerant, each under its name.
template <class Look>
void forAllSeries(Look look) {
    for (const SeriesPlan& plan : plans()) {
        SCOPED_TRACE(plan.serie + " with " + plan.refrigerant);
        look(plan, Fluid(plan.fluid));
    }
}

/// The surfaces of one compressor.
struct Surfaces {
    std::string polynomial;

    double value(int type, double field, double x, double y) const {
        return evaluate(type == 3 ? SurfaceForm::biquadratic : SurfaceForm::cubic,
                        storedIndex().surfaces(polynomial, type).at(field).surface.c, x, y);
    }
};

/// The field of the row of full load: 100 %, 1450 rpm or a ratio in the middle.
double fullField(const SeriesPlan& series) {
    if (series.rowsBy == SeriesPlan::RowsBy::ratio) return 10 * series.rows[series.rows.size() / 2];
    return series.rowsBy == SeriesPlan::RowsBy::speed ? 1450 : 100;
}

/// Calls look(series, fluid, surfaces, x, y) for the smallest, the middle and the largest compressor of each
/// series, at points of the application limit between those that the surfaces were fitted through.
template <class Look>
void overSomeCompressors(Look look) {
    forAllSeries([&](const SeriesPlan& series, const Fluid& fluid) {
        const Region region = operatingRange(series, fluid).application;
        for (const ModelPlan& model : {series.models.front(), middleModel(series), series.models.back()}) {
            const Surfaces surfaces{series.serie + "-" + series.refrigerant + "-" + model.code};
            for (double x = region.left() + 0.7; x < region.right(); x += 5.1) {
                for (double y = region.lower().points().front().y + 0.6; y < 90; y += 4.7) {
                    if (!region.contains(x, y)) continue;
                    SCOPED_TRACE(testing::Message() << surfaces.polynomial << " at " << x << '/' << y);
                    look(series, fluid, surfaces, x, y);
                }
            }
        }
    });
}

TEST(StoredCatalogue, CapacityAndPowerBehaveAsTheyMust) {
    overSomeCompressors(
        [](const SeriesPlan& series, const Fluid& fluid, const Surfaces& one, double x, double y) {
            const double field = fullField(series);
            const double capacity = one.value(0, field, x, y);
            const double power = one.value(1, field, x, y);
            EXPECT_GT(one.value(0, field, x + 1, y), capacity);
            EXPECT_LT(one.value(0, field, x, y + 1), capacity);
            EXPECT_GT(one.value(1, field, x, y + 1), power);
            EXPECT_GT(capacity / power, 0.9);
            // No machine beats the ideal cycle between the same temperatures.
            EXPECT_LT(capacity / power, (x + 273.15) / (y - x));
            const CyclePoint cycle = cycleAt(fluid, x, y);
            if (series.rowsBy != SeriesPlan::RowsBy::ratio) {
                // Isentropic power by the property library, from the stored capacity alone.
                const double flow = capacity / (cycle.gas - cycle.liquid);
                const double efficiency = flow * (cycle.isentropicEnd - cycle.gas) / power;
                EXPECT_GT(efficiency, 0.44);
                EXPECT_LT(efficiency, 0.78);
            }
            const double discharge = one.value(3, 10, x, y);
            EXPECT_GT(discharge, y);
            EXPECT_LT(discharge, 140);
            if (!series.hasSteps()) return;
            // Part load costs more than its share.
            double lastCapacity = one.value(0, 100, x, y);
            double lastPower = one.value(1, 100, x, y);
            for (const int step : {75, 50, 25}) {
                const double less = one.value(0, step, x, y);
                const double lessPower = one.value(1, step, x, y);
                EXPECT_LT(less, lastCapacity);
                EXPECT_LT(lessPower, lastPower);
                EXPECT_GT(lessPower / lastPower, less / lastCapacity);
                lastCapacity = less;
                lastPower = lessPower;
            }
        });
}

/// The gas takes on no more enthalpy than the power input, at any permitted superheat, even with the 5 % that
/// the economized cycle counts more.
TEST(StoredCatalogue, DischargeHoldsNoMoreThanThePower) {
    overSomeCompressors(
        [](const SeriesPlan& series, const Fluid& fluid, const Surfaces& one, double x, double y) {
            if (series.rowsBy == SeriesPlan::RowsBy::ratio) return;
            const double field = fullField(series);
            const CyclePoint cycle = cycleAt(fluid, x, y);
            const double volume = one.value(0, field, x, y) / (cycle.gas - cycle.liquid) / cycle.density;
            for (const double superheat : {0.5, 10.0, 20.0}) {
                const double flow = volume * fluid.density(x + superheat, cycle.low);
                const double discharge = one.value(3, 10, x, y) + superheat - 10;
                const double gained =
                    fluid.enthalpy(discharge, cycle.high) - fluid.enthalpy(x + superheat, cycle.low);
                const double efficiency = flow * gained / one.value(1, field, x, y);
                EXPECT_LT(1.05 * efficiency, 1);
                EXPECT_GT(efficiency, 0.8);
            }
        });
}

/// The surfaces for the mid temperatures of R407C, at states between those that they were fitted through.
TEST(StoredCatalogue, MidTemperaturesOfR407CLeadBackToTheDewTemperature) {
    const Fluid fluid(readCompositions(contentFolder).at("R407C"));
    const auto surface = [](const char* id) { return storedIndex().surfaces(id, 4).at(0).surface.c; };
    for (double dew = 21.2; dew < 70; dew += 7.3) {
        const double pressure = fluid.dewPressure(dew);
        const double bubble = fluid.bubbleTemperature(pressure);
        EXPECT_NEAR(evaluate(SurfaceForm::cubic, surface("R407CTCM"), (bubble + dew) / 2, 0), dew, 0.015);
        const double liquid = fluid.enthalpy(bubble - 4, pressure);  // 4 K of subcooling
        for (double low = -44.3; low < std::min(18.0, dew - 15); low += 6.1) {
            const double inlet = fluid.temperature(fluid.dewPressure(low), liquid);
            EXPECT_NEAR(evaluate(SurfaceForm::cubic, surface("R407CTEM"), (inlet + low) / 2, liquid), low,
                        0.01);
        }
    }
}

Point middleOf(const clsPoints& line) {
    Point sum{};
    for (const clsPoint& point : line) {
        sum.x += point.x / line.Count();
        sum.y += point.Y / line.Count();
    }
    return sum;
}

TEST(StoredCatalogue, EnvelopesAreNested) {
    const TableContent& compressors = stored().table("tCompressors");
    forAllSeries([&](const SeriesPlan& series, const Fluid&) {
        const Point& duty = series.range.typical;
        for (const Record& record : compressors.records) {
            if (compressors.text(record, "fSerieID") != series.serie ||
                compressors.text(record, "fRefrigerantID") != series.refrigerant)
                continue;
            for (const char* column : {"fLimitID", "fLimitEconomizedID"}) {
                const std::string& id = compressors.text(record, column);
                SCOPED_TRACE(id);
                const clsPoints over = limitOf(id, limitType::over);
                const clsPoints application = limitOf(id, limitType::application);
                const Point middle = middleOf(application);
                for (int type = limitType::over; type <= limitType::last; ++type) {
                    const clsPoints line = limitOf(id, type);
                    for (const clsPoint& point : line) {
                        // A point on the edge may fall to either side, so it is moved a little towards the
                        // middle.
                        const double x = 0.96 * point.x + 0.04 * middle.x;
                        const double y = 0.96 * point.Y + 0.04 * middle.y;
                        // A narrow limit ends below the line of injection, which is that of the usual limit.
                        const bool isAbove =
                            type == limitType::injection && id.find("-N") != std::string::npos;
                        const bool inOver =
                            type <= limitType::application || type == limitType::forbidden || isAbove;
                        EXPECT_TRUE(inside(inOver ? over : application, x, y)) << type;
                    }
                }
                EXPECT_TRUE(inside(application, duty.x, duty.y));
                EXPECT_FALSE(inside(limitOf(id, limitType::forbidden), duty.x, duty.y));
            }
        }
    });
}

/// At the pressure ratio that the built-in volume ratio fits, the work is that of the isentropic compression;
/// off it, more.
TEST(ScrewModel, BuiltInRatioCostsOffItsPoint) {
    const Fluid fluid({{"R134A.FLD"}});
    ScrewMachine machine{.displacement = 100, .internalEfficiency = 1};
    const double low = fluid.dewPressure(0);
    const double high = fluid.dewPressure(45);
    const double density = fluid.density(10, low);
    const Fluid::Isentropic end = fluid.atEntropy(high, fluid.entropy(10, low));
    const double isentropic = 100.0 / 3600 * density * (end.enthalpy - fluid.enthalpy(10, low));
    machine.motorPower = isentropic;
    const double atRating = (1 + 0.022 + 0.045) * isentropic;  // with the motor's losses
    const auto power = [&](double ratio) {
        machine.lowestRatio = machine.highestRatio = ratio;
        return fullLoad(machine, fluid, 0, 45).power;
    };
    const double fitting = end.density / density;
    EXPECT_NEAR(power(fitting) / atRating, 1, 1e-4);
    EXPECT_GT(power(0.7 * fitting), 1.005 * atRating);
    EXPECT_GT(power(1.3 * fitting), 1.005 * atRating);
    machine.lowestRatio = 0.7 * fitting;
    machine.highestRatio = 1.3 * fitting;
    EXPECT_NEAR(fullLoad(machine, fluid, 0, 45).power / atRating, 1, 1e-9);  // a slide finds the ratio
}

/// What leaks at half the speed weighs twice, and half of it is compressed once more.
TEST(ScrewModel, GapsLeakTheSameAtAnySpeed) {
    const Fluid fluid({{"R134A.FLD"}});
    const ScrewMachine machine{.displacement = 100,
                               .lowestRatio = 3,
                               .highestRatio = 3,
                               .ratioLeakage = 0.02,
                               .internalEfficiency = 1};
    const Performance fast = fullLoad(machine, fluid, 0, 45);
    const Performance slow = fullLoad(machine, fluid, 0, 45, 0.5);
    const double leak = 0.02 * (fast.pressureRatio - 1);
    EXPECT_NEAR(fast.capacity / slow.capacity, (1 - leak) / (0.5 * (1 - 2 * leak)), 1e-9);
    EXPECT_NEAR(fast.power / slow.power, (1 - leak / 2) / (0.5 * (1 - leak)), 1e-9);
}

TEST(Envelope, RegionsAreCutByLines) {
    const Region box(BrokenLine({{0, 0}, {10, 0}}), BrokenLine({{0, 10}, {10, 10}}));
    const BrokenLine rising({{0, 5}, {10, 15}});
    // Above a line from (0,5) that leaves the box at (5,10), a triangle is left.
    EXPECT_THAT(box.cut(rising, box.upper(), 0, 10),
                ElementsAre(Point{0, 5}, Point{5, 10}, Point{0, 10}, Point{0, 5}));
    EXPECT_THAT(box.cut(box.lower(), rising, 2, 8),
                ElementsAre(Point{2, 0}, Point{8, 0}, Point{8, 10}, Point{5, 10}, Point{2, 7}, Point{2, 0}));
    EXPECT_TRUE(box.cut(rising.raised(6), box.upper(), 0, 10).empty());
    EXPECT_EQ(pointsText(box.outline()), "0,0;10,0;10,10;0,10;0,0");
}

TEST(Envelope, ARightHandBorderHoldsItsOwnPoints) {
    // A border straight up at 10, and one that comes back to 4 above it: only these move.
    const std::vector<Point> line{{-5, 14}, {10, 14}, {10, 34.5}, {4, 40}, {4, 57.3}, {-5, 40}, {-5, 14}};
    const std::vector<Point> wide = holdingItsBorders(line);
    EXPECT_EQ(
        pointsText(wide),
        "-5,14;10,14;10.000001,14;10.000001,34.5;10,34.5;4,40;4.000001,40;4.000001,57.3;4,57.3;-5,40;-5,14");
    const auto isInside = [](const std::vector<Point>& corners, double x, double y) {
        return polygonTest(parsePoints(pointsText(corners)), x, y) > PolygonState::outside;
    };
    EXPECT_FALSE(isInside(line, 10, 24.25));
    for (const Point& point :
         {Point{10, 14}, {10, 24.25}, {10, 20.1}, {10, 34.5}, {4, 48.65}, {4, 57.3}, {-5, 27}})
        EXPECT_TRUE(isInside(wide, point.x, point.y)) << point.x << ' ' << point.y;
    for (const Point& point : {Point{10.01, 24.25}, {4.01, 48.65}, {10, 13.9}, {10, 34.6}, {-5.01, 27}})
        EXPECT_FALSE(isInside(wide, point.x, point.y)) << point.x << ' ' << point.y;
}

}  // namespace
}  // namespace marvello::generate
