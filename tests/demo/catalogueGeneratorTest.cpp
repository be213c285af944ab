// The stored catalogue against the compressors that it stands for, and against what physics demands of any of
// them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <string>
#include <tuple>
#include <vector>

#include "catalogue/clsLimits.h"
#include "demo/generate/Envelope.h"
#include "demo/generate/EnvelopeRows.h"
#include "demo/generate/FrequencyLaw.h"
#include "demo/generate/OperatingRange.h"
#include "demo/generate/Series.h"
#include "tools/catalogue/Content.h"
#include "tools/catalogue/Index.h"
#include "tools/surface/Surface.h"

namespace marvello::generate {
namespace {

using testing::ElementsAre;

const std::string contentFolder = std::string(MARVELLO_SOURCE_FOLDER) + "/content";
const std::string plansFolder = std::string(MARVELLO_SOURCE_FOLDER) + "/demo/generate/plans";

/// The stored tables of the tree, by what their rows are found by.
struct StoredTables {
    Faults faults;
    const Content content = readContent(contentFolder, faults);
    const Index index{content};
    std::map<int, const Record*> motors;
    std::map<std::tuple<std::string, std::string, std::string>, const Record*> compressors;

    StoredTables() {
        const TableContent& rated = content.table("tMotors");
        for (const Record& record : rated.records) motors[rated.integer(record, "fMotorID")] = &record;
        const TableContent& table = content.table("tCompressors");
        for (const Record& record : table.records) {
            compressors[{table.text(record, "fRefrigerantID"), table.text(record, "fSerieID"),
                         table.text(record, "fModelID")}] = &record;
        }
    }
};

const StoredTables& stored() {
    static const StoredTables tables;
    return tables;
}

/// The line of an envelope; no points where it has none of the type.
clsPoints limitOf(const std::string& id, int type) {
    const Index::Line* line = lineOfType(stored().index.lines(id), type);
    return line == nullptr ? clsPoints{} : line->points;
}

bool inside(const clsPoints& line, double x, double y) {
    return polygonTest(line, x, y) == PolygonState::inside;
}

/// One stored compressor with the plan it was made from.
struct Stored {
    const SeriesPlan* series;
    const ModelPlan* model;
    const Record* record;

    const std::string& text(const char* column) const {
        return stored().content.table("tCompressors").text(*record, column);
    }
    double real(const char* column) const {
        return stored().content.table("tCompressors").real(*record, column);
    }
    int integer(const char* column) const {
        return stored().content.table("tCompressors").integer(*record, column);
    }
    double value(int type, double field, double x, double y) const {
        return evaluate(type == 3 ? SurfaceForm::biquadratic : SurfaceForm::cubic,
                        stored().index.surfaces(text("fPolynomialQ0ID"), type).at(field).surface.c, x, y);
    }
    /// The field of a row that stands for full load: 100 %, 1450 rpm or a ratio in the middle.
    double fullField() const {
        if (series->rowsBy == SeriesPlan::RowsBy::ratio) return 10 * series->rows[series->rows.size() / 2];
        return series->rowsBy == SeriesPlan::RowsBy::speed ? 1450 : 100;
    }
    double motorPower() const {
        const auto found = stored().motors.find(integer("fMotorFullID"));
        if (found == stored().motors.end()) return 0;
        // "50 hp (37 kW)": the rating by the maker's rule, 15 % above the nominal power absorbed.
        const std::string& name = stored().content.table("tMotors").text(*found->second, "FNominalPower");
        return std::stod(name) * 0.7457 / 0.93 * 1.15;
    }
};

/// A series with its compressors and regions.
struct StoredSeries {
    const SeriesPlan& series;
    Fluid fluid;
    OperatingRange range;
    std::vector<Stored> compressors;

    explicit StoredSeries(const SeriesPlan& plan)
        : series(plan), fluid(plan.fluid), range(operatingRange(plan, fluid)) {
        for (const ModelPlan& model : plan.models) {
            const auto found = stored().compressors.find({plan.refrigerant, plan.serie, model.code});
            if (found != stored().compressors.end()) compressors.push_back({&plan, &model, found->second});
        }
    }

    /// The smallest, the middle and the largest.
    std::vector<Stored> some() const {
        return {compressors.front(), compressors[compressors.size() / 2], compressors.back()};
    }

    /// Calls look(x, y) for points of the application limit, between those that the surfaces were fitted
    /// through.
    template <class Look>
    void overApplication(Look look) const {
        const Region& region = range.application;
        for (double x = region.left() + 0.7; x < region.right(); x += 5.1) {
            for (double y = region.lower().points().front().y + 0.6; y < 90; y += 4.7) {
                if (region.contains(x, y)) look(x, y);
            }
        }
    }
};

const std::vector<SeriesPlan>& plans() {
    static const std::vector<SeriesPlan> all = allSeries(plansFolder, contentFolder);
    return all;
}

/// Calls look(series) for every series with every refrigerant, each under its name.
template <class Look>
void forAllSeries(Look look) {
    for (const SeriesPlan& plan : plans()) {
        SCOPED_TRACE(plan.serie + " with " + plan.refrigerant);
        const StoredSeries series(plan);
        ASSERT_EQ(series.compressors.size(), plan.models.size());
        look(series);
    }
}

TEST(StoredCatalogue, HasAllSeriesAndRefrigerants) {
    EXPECT_GE(stored().compressors.size(), 800U);
    std::map<std::string, int> series;
    std::size_t rows = 0;
    for (const SeriesPlan& plan : plans()) {
        ++series[plan.refrigerant];
        rows += plan.models.size();
    }
    EXPECT_EQ(stored().compressors.size(), rows);
    EXPECT_EQ(series.size(), 15U);
    for (const auto& [refrigerant, count] : series) EXPECT_GE(count, 2) << refrigerant;
    EXPECT_EQ(series["R134A"], 18);  // every series of the maker
}

/// Calls look(series, compressor, x, y) at points of the application limit for some compressors of each
/// series.
template <class Look>
void overSomeCompressors(Look look) {
    forAllSeries([&](const StoredSeries& at) {
        for (const Stored& one : at.some()) {
            at.overApplication([&](double x, double y) {
                SCOPED_TRACE(testing::Message() << one.text("fPolynomialQ0ID") << " at " << x << '/' << y);
                look(at, one, x, y);
            });
        }
    });
}

TEST(StoredCatalogue, SurfacesReproduceTheCompressors) {
    overSomeCompressors([](const StoredSeries& at, const Stored& one, double x, double y) {
        const SeriesPlan& series = at.series;
        ScrewMachine machine = machineOf(series, *one.model, one.motorPower());
        const auto compare = [&](double field, const Performance& model) {
            EXPECT_NEAR(one.value(0, field, x, y) / model.capacity, 1, 0.04);
            EXPECT_NEAR(one.value(1, field, x, y) / model.power, 1, 0.04);
        };
        if (series.rowsBy == SeriesPlan::RowsBy::load) {
            const Performance full = fullLoad(machine, at.fluid, x, y);
            EXPECT_NEAR(one.value(3, 10, x, y), full.dischargeTemperature, 3.5);
            for (const double step : series.rows)
                compare(step, step == 100 ? full : partLoad(full, step / 100));
        } else if (series.rowsBy == SeriesPlan::RowsBy::speed) {
            for (const double rpm : series.rows) compare(rpm, fullLoad(machine, at.fluid, x, y, rpm / 2900));
        } else {
            for (const double ratio : series.rows) {
                machine.lowestRatio = machine.highestRatio = ratio;
                compare(10 * ratio, fullLoad(machine, at.fluid, x, y));
            }
        }
    });
}

TEST(StoredCatalogue, CapacityAndPowerBehaveAsTheyMust) {
    overSomeCompressors([](const StoredSeries& at, const Stored& one, double x, double y) {
        const double field = one.fullField();
        const double capacity = one.value(0, field, x, y);
        const double power = one.value(1, field, x, y);
        EXPECT_GT(one.value(0, field, x + 1, y), capacity);
        EXPECT_LT(one.value(0, field, x, y + 1), capacity);
        EXPECT_GT(one.value(1, field, x, y + 1), power);
        EXPECT_GT(capacity / power, 0.9);
        // No machine beats the ideal cycle between the same temperatures.
        EXPECT_LT(capacity / power, (x + 273.15) / (y - x));
        const CyclePoint cycle = cycleAt(at.fluid, x, y);
        if (at.series.rowsBy != SeriesPlan::RowsBy::ratio) {
            // Isentropic power by the property library, from the stored capacity alone.
            const double flow = capacity / (cycle.gas - cycle.liquid);
            const double efficiency = flow * (cycle.isentropicEnd - cycle.gas) / power;
            EXPECT_GT(efficiency, 0.44);
            EXPECT_LT(efficiency, 0.78);
        }
        const double discharge = one.value(3, 10, x, y);
        EXPECT_GT(discharge, y);
        EXPECT_LT(discharge, 140);
        if (!at.series.hasSteps()) return;
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

/// The compression efficiency of the economized cycle is the enthalpy that the gas takes on over the power,
/// and is used 5 % raised. More than the power cannot be in the gas, at any superheat allowed.
TEST(StoredCatalogue, DischargeHoldsNoMoreThanThePower) {
    overSomeCompressors([](const StoredSeries& at, const Stored& one, double x, double y) {
        if (at.series.rowsBy == SeriesPlan::RowsBy::ratio) return;
        const double field = one.fullField();
        const CyclePoint cycle = cycleAt(at.fluid, x, y);
        const double volume = one.value(0, field, x, y) / (cycle.gas - cycle.liquid) / cycle.density;
        for (const double superheat : {0.5, 10.0, 20.0}) {
            const double flow = volume * at.fluid.density(x + superheat, cycle.low);
            const double discharge = one.value(3, 10, x, y) + superheat - 10;
            const double gained =
                at.fluid.enthalpy(discharge, cycle.high) - at.fluid.enthalpy(x + superheat, cycle.low);
            const double efficiency = flow * gained / one.value(1, field, x, y);
            EXPECT_LT(1.05 * efficiency, 1);
            EXPECT_GT(efficiency, 0.8);
        }
    });
}

double currentOf(int id, double power) {
    const TableContent& table = stored().content.table("tMotors");
    const Record& record = *stored().motors.at(id);
    const double current = stored().index.motor(id)->current(power);
    EXPECT_GT(table.real(record, "fLra1"), 1.5 * current);
    EXPECT_GT(table.real(record, "fLra2"), table.real(record, "fLra1"));
    return current;
}

/// The catalogue's current limit stands just above the worst current of the envelope, to which an economizer
/// may add a quarter, and the power factor is a motor's.
TEST(StoredCatalogue, MotorsCarryTheirCompressors) {
    forAllSeries([](const StoredSeries& at) {
        const bool isInverter = at.series.drive == SeriesPlan::Drive::inverter;
        for (const Stored& one : at.compressors) {
            if (!at.series.hasMotor()) {
                EXPECT_LE(one.integer("fMotorFullID"), 0);
                continue;
            }
            double worst = 0;
            double worstOfSmall = 0;
            at.overApplication([&](double x, double y) {
                const double power = one.value(1, one.fullField(), x, y);
                const double drawn = currentOf(one.integer("fMotorFullID"), power);
                const double factor = power * 1000 / (std::numbers::sqrt3 * 400 * drawn);
                EXPECT_TRUE(factor > 0.5 && factor < 0.9) << factor;
                worst = std::max(worst, drawn);
                if (y <= at.range.smallMotor.at(x)) {
                    worstOfSmall = std::max(worstOfSmall, currentOf(one.integer("fMotorSmallID"), power));
                }
            });
            const bool pair = one.integer("fhasFullSmallMotor") != 0;
            EXPECT_EQ(pair, limitOf(one.text("fLimitID"), 3).Count() > 0);
            if (isInverter) continue;
            EXPECT_GT(one.real("fFla"), worst) << one.text("fPolynomialQ0ID");
            const double economizer = at.series.hasEconomizer() ? 1.25 : 1;
            EXPECT_LT(one.real("fFla"), economizer * 1.2 * worst) << one.text("fPolynomialQ0ID");
            EXPECT_GE(one.real("fFla2"), worstOfSmall) << one.text("fPolynomialQ0ID");
            EXPECT_EQ(pair, one.real("fFla2") < one.real("fFla")) << one.text("fPolynomialQ0ID");
            if (!pair) continue;
            // A small motor is there to be smaller.
            EXPECT_LT(one.integer("fMotorSmallID"), one.integer("fMotorFullID"))
                << one.text("fPolynomialQ0ID");
        }
    });
}

TEST(StoredCatalogue, InvertersFollowTheirFrequency) {
    forAllSeries([](const StoredSeries& at) {
        if (at.series.drive != SeriesPlan::Drive::inverter) return;
        const Point& duty = at.series.range.typical;
        for (const Stored& one : at.some()) {
            const ScrewMachine machine = machineOf(at.series, *one.model, one.motorPower());
            const Performance nominal = fullLoad(machine, at.fluid, duty.x, duty.y);
            const auto law = [&](const std::string& name, double r) {
                const auto c = [&](int i) { return one.real((name + std::to_string(i)).c_str()); };
                return (r * r * c(1) + r * c(2) + c(3) + 1) * r;
            };
            EXPECT_NEAR(law("fInverterQ0C", 1), 1, 1e-9);
            EXPECT_NEAR(law("fInverterPtaC", 1), 1, 1e-9);
            for (const double hertz : {30.0, 40.0, 60.0, 70.0}) {
                const double r = hertz / 50;
                const Performance here = fullLoad(machine, at.fluid, duty.x, duty.y, r);
                EXPECT_NEAR(law("fInverterQ0C", r) / (here.capacity / nominal.capacity), 1, 0.03) << hertz;
                EXPECT_NEAR(law("fInverterPtaC", r) / (here.power / nominal.power), 1, 0.03) << hertz;
            }
            // The power factor over the rising power of a motor rises.
            const double power = nominal.power;
            const auto factor = [&](double p) {
                return one.real("fInverterCaC1") * p * p + one.real("fInverterCaC2") * p +
                       one.real("fInverterCaC3");
            };
            EXPECT_GT(factor(power), factor(0.5 * power));
            EXPECT_LT(factor(power), 0.95);
            EXPECT_GT(factor(0.5 * power), 0.5);
        }
    });
}

Point middleOf(const clsPoints& line) {
    Point sum{};
    for (int i = 1; i <= line.Count(); ++i) {
        sum.x += line.Item(i).x / line.Count();
        sum.y += line.Item(i).Y / line.Count();
    }
    return sum;
}

/// With as much gas injected as evaporated, which is more than any economizer asks for, the port loses less
/// than a bar; and the port lies between suction and discharge.
TEST(StoredCatalogue, EconomizerPortsFitTheirCompressors) {
    overSomeCompressors([](const StoredSeries& at, const Stored& one, double x, double y) {
        const double ratio = one.real("fKForo");
        EXPECT_EQ(ratio > 0, at.series.hasEconomizer());
        if (ratio == 0) return;
        EXPECT_GT(ratio, 1.3);
        EXPECT_LT(ratio, 2);
        if (!at.range.economized.contains(x, y)) return;
        const CyclePoint cycle = cycleAt(at.fluid, x, y);
        EXPECT_LT(ratio * cycle.low, cycle.high);
        const double flow = 3600 * one.value(0, one.fullField(), x, y) / (cycle.gas - cycle.liquid);
        const double port = ratio * cycle.low;
        const double loss = one.real("fKPerdita") / one.real("fSez") * flow;
        const double injected =
            at.fluid.density(at.fluid.dewTemperature(port + 100 * loss) + 10, port + 100 * loss);
        const double dew = at.fluid.density(at.fluid.dewTemperature(port) + 0.01, port);
        EXPECT_LT(loss * injected / dew, 1);
    });
}

TEST(StoredCatalogue, EnvelopesAreNested) {
    constexpr int forbidden = 11;
    forAllSeries([](const StoredSeries& at) {
        const Point& duty = at.series.range.typical;
        for (const Stored& one : at.compressors) {
            for (const char* column : {"fLimitID", "fLimitEconomizedID"}) {
                const std::string& id = one.text(column);
                SCOPED_TRACE(id);
                const clsPoints over = limitOf(id, -1);
                const clsPoints application = limitOf(id, 0);
                const Point middle = middleOf(application);
                for (int type = -1; type <= 14; ++type) {
                    const clsPoints line = limitOf(id, type);
                    if (line.Count() == 0) continue;
                    for (int i = 1; i <= line.Count(); ++i) {
                        // A point on the edge may fall to either side, so it is moved a little towards the
                        // middle.
                        const double x = 0.96 * line.Item(i).x + 0.04 * middle.x;
                        const double y = 0.96 * line.Item(i).Y + 0.04 * middle.y;
                        // A narrow limit ends below the line of injection, which is that of the usual limit.
                        const bool isAbove =
                            type == limitType::injection && id.find("-N") != std::string::npos;
                        const bool inOver = type <= 0 || type == forbidden || isAbove;
                        EXPECT_TRUE(inside(inOver ? over : application, x, y)) << type << ", point " << i;
                    }
                }
                EXPECT_TRUE(inside(application, duty.x, duty.y));
                EXPECT_FALSE(inside(limitOf(id, forbidden), duty.x, duty.y));
                EXPECT_EQ(limitOf(id, 4).Count() == 0, !at.series.hasSteps());
                EXPECT_EQ(limitOf(id, 10).Count() == 0, !at.series.hasVersions);
                EXPECT_EQ(limitOf(id, 14).Count() == 0, at.series.drive != SeriesPlan::Drive::inverter);
            }
        }
    });
}

/// The catalogue's conversions against states of R407C between those that they were fitted through.
TEST(StoredCatalogue, MeanTemperaturesOfR407CAreConverted) {
    const Fluid fluid(readCompositions(contentFolder).at("R407C"));
    const Coefficients condensing = stored().index.surfaces("R407CTCM", 4).at(0).surface.c;
    const Coefficients evaporating = stored().index.surfaces("R407CTEM", 4).at(0).surface.c;
    for (double dew = 21.2; dew < 70; dew += 7.3) {
        const double pressure = fluid.dewPressure(dew);
        const double bubble = fluid.bubbleTemperature(pressure);
        EXPECT_NEAR(evaluate(SurfaceForm::cubic, condensing, (bubble + dew) / 2, 0), dew, 0.015);
        for (double low = -44.3; low < std::min(18.0, dew - 15); low += 6.1) {
            const double liquid = fluid.enthalpy(bubble - 4, pressure);  // 4 K of subcooling
            const double inlet = fluid.temperature(fluid.dewPressure(low), liquid);
            EXPECT_NEAR(evaluate(SurfaceForm::cubic, evaporating, (inlet + low) / 2, liquid), low, 0.01)
                << low << '/' << dew;
        }
    }
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

TEST(Surface, FitGivesBackASurfaceOfItsForm) {
    const Coefficients wanted{90, 3.5, -0.6, 0.05, -0.02, -0.003, 3e-4, -3e-4, -5e-5, 1e-5};
    std::vector<Sample> samples;
    for (double x = -20; x <= 20; x += 5) {
        for (double y = 20; y <= 70; y += 5) {
            // Written out, so that the order of the terms is checked too.
            samples.push_back({x, y,
                               90 + 3.5 * x - 0.6 * y + 0.05 * x * x - 0.02 * x * y - 0.003 * y * y +
                                   3e-4 * x * x * x - 3e-4 * y * x * x - 5e-5 * x * y * y +
                                   1e-5 * y * y * y});
        }
    }
    const Coefficients found = fit(SurfaceForm::cubic, samples);
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_NEAR(found[i], wanted[i], 1e-6 * std::abs(wanted[i]));
    EXPECT_LT(errorOf(SurfaceForm::cubic, found, samples).largest, 1e-8);
    // 1 + 2x + 3x^2 + 4y + 5y^2 + 6xy + 7x^2 y + 8x y^2 + 9x^2 y^2 at x = 2, y = 3
    EXPECT_EQ(evaluate(SurfaceForm::biquadratic, {1, 2, 3, 4, 5, 6, 7, 8, 9}, 2, 3),
              1 + 4 + 12 + 12 + 45 + 36 + 84 + 144 + 324);
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
