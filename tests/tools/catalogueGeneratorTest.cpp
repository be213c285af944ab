// The stored catalogue against the compressors that it stands for, and against what physics demands of any of
// them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <numbers>
#include <ostream>
#include <string>
#include <vector>

#include "tools/catalogue/Content.h"
#include "tools/generate/Envelope.h"
#include "tools/generate/Series.h"
#include "tools/generate/Surface.h"

namespace marvello::generate {

/// How the test framework names a series.
void PrintTo(const SeriesPlan& series, std::ostream* stream) {
    *stream << series.serie << ' ' << series.refrigerant;
}

namespace {

using testing::ElementsAre;

/// The stored tables of the tree.
const Content& stored() {
    static const Content content = [] {
        Faults faults;
        return readContent(std::string(MARVELLO_SOURCE_FOLDER) + "/content", faults);
    }();
    return content;
}

Coefficients surfaceOf(const std::string& id, int type, double field) {
    const TableContent& table = stored().table("tPolynomials");
    for (const Record& record : table.records) {
        if (table.text(record, "fPolynomialID") != id || table.integer(record, "fType") != type ||
            table.real(record, "fField") != field) {
            continue;
        }
        Coefficients found{};
        for (std::size_t i = 0; i < found.size(); ++i) {
            found[i] = table.real(record, "fC" + std::to_string(i + 1));
        }
        return found;
    }
    ADD_FAILURE() << id << " has no surface of type " << type << " at " << field;
    return {};
}

std::vector<Point> limitOf(const std::string& id, int type) {
    const TableContent& table = stored().table("tLimits");
    for (const Record& record : table.records) {
        if (table.text(record, "fLimitID") != id || table.integer(record, "fType") != type) continue;
        std::vector<Point> points;
        const std::string& text = table.text(record, "fPoints");
        for (const char *at = text.data(), *end = at + text.size(); at < end;) {
            Point point{};
            at = std::from_chars(at, end, point.x).ptr + 1;
            at = std::from_chars(at, end, point.y).ptr + 1;
            points.push_back(point);
        }
        return points;
    }
    return {};
}

/// Counts the edges to the right of the point.
bool inside(const std::vector<Point>& line, double x, double y) {
    bool within = false;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Point& a = line[i - 1];
        const Point& b = line[i];
        if ((a.y > y) != (b.y > y) && x < a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y)) within = !within;
    }
    return within;
}

/// One stored compressor with the plan it was made from.
struct Stored {
    const SeriesPlan* series;
    const ModelPlan* model;
    const Record* record;

    const std::string& text(const char* column) const {
        return stored().table("tCompressors").text(*record, column);
    }
    double real(const char* column) const { return stored().table("tCompressors").real(*record, column); }
    int integer(const char* column) const { return stored().table("tCompressors").integer(*record, column); }
    double value(int type, double field, double x, double y) const {
        return evaluate(type == 3 ? SurfaceForm::biquadratic : SurfaceForm::cubic,
                        surfaceOf(text("fPolynomialQ0ID"), type, field), x, y);
    }
};

std::vector<Stored> compressorsOf(const SeriesPlan& series) {
    const TableContent& table = stored().table("tCompressors");
    std::vector<Stored> found;
    for (const ModelPlan& model : series.models) {
        for (const Record& record : table.records) {
            if (table.text(record, "fRefrigerantID") == series.refrigerant &&
                table.text(record, "fSerieID") == series.serie &&
                table.text(record, "fModelID") == model.code) {
                found.push_back({&series, &model, &record});
            }
        }
    }
    return found;
}

class StoredSeries : public testing::TestWithParam<SeriesPlan> {
  protected:
    void SetUp() override {
        compressors = compressorsOf(GetParam());
        ASSERT_EQ(compressors.size(), GetParam().models.size());
        ASSERT_GE(compressors.size(), 10U);
    }

    /// Calls look(x, y) for points of the application limit, between those that the surfaces were fitted
    /// through.
    template <class Look>
    void overApplication(Look look) const {
        const Region& region = GetParam().envelope.application;
        for (double x = region.left() + 0.7; x < region.right(); x += 3.1) {
            for (double y = 21.3; y < 68; y += 3.7) {
                if (region.contains(x, y)) look(x, y);
            }
        }
    }

    std::vector<Stored> compressors;
};

TEST_P(StoredSeries, SurfacesReproduceTheCompressors) {
    const SeriesPlan& series = GetParam();
    const Fluid fluid(series.fluidFile);
    for (const Stored& one : compressors) {
        const ScrewMachine machine = machineOf(series, *one.model);
        overApplication([&](double x, double y) {
            SCOPED_TRACE(testing::Message() << one.text("fPolynomialQ0ID") << " at " << x << '/' << y);
            const Performance full = fullLoad(machine, fluid, x, y);
            EXPECT_NEAR(one.value(0, 100, x, y) / full.capacity, 1, 0.006);
            EXPECT_NEAR(one.value(1, 100, x, y) / full.power, 1, 0.006);
            EXPECT_NEAR(one.value(3, 10, x, y), full.dischargeTemperature, 2);
            for (const int step : {75, 50, 25}) {
                if (!series.hasSteps) continue;
                const Performance part = partLoad(full, step / 100.0);
                EXPECT_NEAR(one.value(0, step, x, y) / part.capacity, 1, 0.006);
                EXPECT_NEAR(one.value(1, step, x, y) / part.power, 1, 0.006);
            }
        });
    }
}

TEST_P(StoredSeries, CapacityAndPowerBehaveAsTheyMust) {
    for (const Stored& one : compressors) {
        overApplication([&](double x, double y) {
            SCOPED_TRACE(testing::Message() << one.text("fPolynomialQ0ID") << " at " << x << '/' << y);
            const double capacity = one.value(0, 100, x, y);
            const double power = one.value(1, 100, x, y);
            EXPECT_GT(one.value(0, 100, x + 1, y), capacity);
            EXPECT_LT(one.value(0, 100, x, y + 1), capacity);
            EXPECT_GT(one.value(1, 100, x, y + 1), power);
            EXPECT_GT(capacity / power, 1.5);
            EXPECT_LT(capacity / power, 8);
            // No machine beats the ideal cycle between the same temperatures.
            EXPECT_LT(capacity / power, (x + 273.15) / (y - x));
            EXPECT_GT(one.value(3, 10, x, y), y);
            if (!GetParam().hasSteps) return;
            double lastCapacity = capacity;
            double lastPower = power;
            for (const int step : {75, 50, 25}) {
                const double partCapacity = one.value(0, step, x, y);
                const double partPower = one.value(1, step, x, y);
                EXPECT_LT(partCapacity, lastCapacity);
                EXPECT_LT(partPower, lastPower);
                EXPECT_GT(partPower / power, partCapacity / capacity);
                lastCapacity = partCapacity;
                lastPower = partPower;
            }
        });
    }
}

/// The catalogue's current limit stands just above the worst current of the envelope, and the power factor is
/// a motor's.
TEST_P(StoredSeries, MotorsCarryTheirCompressors) {
    const TableContent& motors = stored().table("tMotors");
    for (const Stored& one : compressors) {
        const auto current = [&](int id, double power) {
            for (const Record& record : motors.records) {
                if (motors.integer(record, "fMotorID") != id) continue;
                double sum = 0;
                for (int i = 5; i >= 1; --i)
                    sum = sum * power + motors.real(record, "fC" + std::to_string(i));
                EXPECT_GT(motors.real(record, "fLra1"), 1.5 * sum);
                EXPECT_GT(motors.real(record, "fLra2"), motors.real(record, "fLra1"));
                return sum;
            }
            ADD_FAILURE() << "no motor " << id;
            return 0.0;
        };
        const BrokenLine& smallLimit = GetParam().envelope.smallMotor;
        double worst = 0;
        double worstOfSmall = 0;
        overApplication([&](double x, double y) {
            const double power = one.value(1, 100, x, y);
            const double drawn = current(one.integer("fMotorFullID"), power);
            const double factor = power * 1000 / (std::numbers::sqrt3 * 400 * drawn);
            EXPECT_TRUE(factor > 0.6 && factor < 0.9) << factor;
            worst = std::max(worst, drawn);
            if (y <= smallLimit.at(x)) {
                worstOfSmall = std::max(worstOfSmall, current(one.integer("fMotorSmallID"), power));
            }
        });
        EXPECT_GT(one.real("fFla"), worst);
        EXPECT_LT(one.real("fFla"), 1.2 * worst);
        EXPECT_GE(one.real("fFla2"), worstOfSmall);
        const bool pair = one.integer("fhasFullSmallMotor") != 0;
        EXPECT_EQ(pair, one.real("fFla2") < one.real("fFla"));
        EXPECT_EQ(pair, !limitOf(one.text("fLimitID"), 3).empty());
    }
}

TEST_P(StoredSeries, EnvelopesAreClosedAndNested) {
    for (const Stored& one : compressors) {
        for (const char* column : {"fLimitID", "fLimitEconomizedID"}) {
            const std::string& id = one.text(column);
            SCOPED_TRACE(id);
            const std::vector<Point> over = limitOf(id, -1);
            const std::vector<Point> application = limitOf(id, 0);
            for (int type = -1; type <= 7; ++type) {
                const std::vector<Point> line = limitOf(id, type);
                if (line.empty()) continue;
                ASSERT_GE(line.size(), 4U) << type;
                EXPECT_EQ(line.front(), line.back()) << type;
                for (const Point& point : line) {
                    // A point on the edge may fall to either side, so it is moved a little towards the
                    // middle.
                    const double x = 0.97 * point.x + 0.03 * -2;
                    const double y = 0.97 * point.y + 0.03 * 40;
                    EXPECT_TRUE(inside(type <= 0 ? over : application, x, y))
                        << type << " at " << point.x << ',' << point.y;
                }
            }
            EXPECT_TRUE(inside(application, 2, 40));
            EXPECT_FALSE(inside(limitOf(id, 2), 2, 40));
            EXPECT_EQ(inside(limitOf(id, 7), 2, 40), one.model->needsOilFilterEarly);
            EXPECT_EQ(limitOf(id, 4).empty(), !GetParam().hasSteps);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, StoredSeries, testing::ValuesIn(allSeries()), [](const auto& instance) {
    std::string name = instance.param.serie + instance.param.refrigerant;
    name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
    return name;
});

/// At the pressure ratio that the built-in volume ratio fits, the work is that of the isentropic compression;
/// off it, more.
TEST(ScrewModel, BuiltInRatioCostsOffItsPoint) {
    const Fluid fluid("Fluids\\R134A.FLD");
    ScrewMachine machine{.displacement = 100, .internalEfficiency = 1};
    const double low = fluid.saturationPressure(0);
    const double high = fluid.saturationPressure(45);
    const double density = fluid.density(10, low);
    const Fluid::Isentropic end = fluid.atEntropy(high, fluid.entropy(10, low));
    const double isentropic = 100.0 / 3600 * density * (end.enthalpy - fluid.enthalpy(10, low));
    machine.motorPower = isentropic;
    const double atRating = (1 + 0.022 + 0.045) * isentropic;  // with the motor's losses
    const auto power = [&](double ratio) {
        machine.builtInRatio = ratio;
        return fullLoad(machine, fluid, 0, 45).power;
    };
    const double fitting = end.density / density;
    EXPECT_NEAR(power(fitting) / atRating, 1, 1e-4);
    EXPECT_GT(power(0.7 * fitting), 1.005 * atRating);
    EXPECT_GT(power(1.3 * fitting), 1.005 * atRating);
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

}  // namespace
}  // namespace marvello::generate
