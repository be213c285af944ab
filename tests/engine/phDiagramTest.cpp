#include "engine/PhDiagram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>

#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

using Kind = PhLine::Kind;

class PhDiagramTest : public testing::EngineFixture {
  protected:
    PhDiagramTest() {
        catalogue.exec(
            "insert into tRefrigeranti values('R404A'),('R717'),('R744');"
            "insert into tFluidi values('R404A','R125.FLD',0.44),('R404A','R143A.FLD',0.52),"
            "('R404A','R134A.FLD',0.04),('R717','AMMONIA.FLD',1),('R744','CO2.FLD',1)");
        catalogue.blendR407C();
    }

    double between(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }

    /// What is constant along a line, at a place on it and by another call than the one that made it.
    static double valueAt(clsRefprop& refprop, Kind kind, const PhPoint& point, UnitSystem units) {
        const FluidState state = *refprop.StateAtEnthalpy(point.p, point.h);
        const auto shown = [units](UnitRule rule, double value) {
            return rule(value, UnitSystem::metric, units);
        };
        if (kind == Kind::temperature) return shown(convertedTemperature, state.t);
        if (kind == Kind::entropy) return shown(convertedEntropy, state.s);
        const FluidState again = *refprop.StateAtEntropy(point.p, state.s);
        return kind == Kind::density ? shown(convertedDensity, again.density) : *again.quality;
    }

    static constexpr const char* refrigerants[] = {"R134A", "R290", "R404A", "R407C", "R717", "R744"};

  private:
    std::mt19937 random_{3};
};

TEST_F(PhDiagramTest, LinesAreThoseOfThePropertyLibrary) {
    for (const char* refrigerant : refrigerants) {
        for (const auto units : {UnitSystem::metric, UnitSystem::imperial}) {
            SCOPED_TRACE(refrigerant);
            clsRefprop& refprop = GetRefprop(refrigerant);
            const PhDiagram diagram = phDiagramOf(refprop, phRangeOf(refprop), units);
            std::map<Kind, int> count;
            for (const PhLine& line : diagram.lines) {
                ++count[line.kind];
                if (line.kind == Kind::bubble || line.kind == Kind::dew) continue;
                for (const PhPoint& point : line.points) {
                    // Beside the line of saturation a state may be on its other side.
                    const double scale = line.kind == Kind::temperature ? 1000 : std::max(line.value, 1.0);
                    ASSERT_NEAR(valueAt(refprop, line.kind, point, units), line.value, 2e-6 * scale)
                        << static_cast<int>(line.kind) << " " << point.h << " " << point.p;
                }
            }
            EXPECT_EQ(count[Kind::bubble], 1);
            EXPECT_EQ(count[Kind::dew], 1);
            EXPECT_GE(count[Kind::quality], 4);
            EXPECT_GE(count[Kind::temperature], 6);
            EXPECT_GE(count[Kind::entropy], 4);
            EXPECT_GE(count[Kind::density], 4);
        }
    }
}

// At random places on the drawn lines, between their points: the enthalpies that the saturation temperature
// of the pressure has, without the call for whole states.
TEST_F(PhDiagramTest, DomeIsThatOfThePropertyLibrary) {
    for (const char* refrigerant : refrigerants) {
        SCOPED_TRACE(refrigerant);
        clsRefprop& refprop = GetRefprop(refrigerant);
        const PhRange range = phRangeOf(refprop);
        const PhDiagram diagram = phDiagramOf(refprop, range, UnitSystem::metric);
        const bool isPure = refprop.DewRange().maximum > 0 && std::string(refrigerant) != "R407C" &&
                            std::string(refrigerant) != "R404A";
        for (const PhLine& line : {diagram.lines[0], diagram.lines[1]}) {
            const bool isBubble = line.kind == Kind::bubble;
            EXPECT_NEAR(line.points.front().p / range.lowP, 1, 1e-9);
            for (int i = 0; i < 200; ++i) {
                const std::size_t piece =
                    static_cast<std::size_t>(between(0, static_cast<double>(line.points.size()) - 2.001));
                const double share = between(0, 1);
                const PhPoint& a = line.points[piece];
                const PhPoint& b = line.points[piece + 1];
                const double p = std::exp(std::log(a.p) + share * std::log(b.p / a.p));
                const double h = a.h + share * (b.h - a.h);
                // Nearer to the critical point a hair of temperature is a step of enthalpy.
                if (p > 0.95 * line.points.back().p) continue;
                const double t =
                    refprop.Temperature(p, property::pressure,
                                        isBubble ? saturation::bubble : saturation::dew, 0, property::none);
                // A hair beside the line, where a pure refrigerant has one phase.
                const double beside = isBubble ? -1e-4 : 1e-4;
                const double there =
                    refprop.Enthalpy(t + (isPure ? beside : 0), property::temperature, p, property::pressure);
                EXPECT_NEAR(h, there, 6e-4 * (range.highH - range.lowH)) << p;
            }
        }
        // Both sides meet at the critical point.
        const PhPoint& left = diagram.lines[0].points.back();
        const PhPoint& right = diagram.lines[1].points.back();
        EXPECT_EQ(left.h, right.h);
        EXPECT_NEAR(left.p / right.p, 1, 1e-9);
    }
}

// The bubble point of a pressure is colder than its dew point: a line of constant temperature falls from
// left to right. That of a pure refrigerant is level.
TEST_F(PhDiagramTest, IsothermsOfABlendSlopeInTheDome) {
    const auto slope = [](const char* refrigerant, double value) {
        clsRefprop& refprop = GetRefprop(refrigerant);
        const PhDiagram diagram = phDiagramOf(refprop, phRangeOf(refprop), UnitSystem::metric);
        const auto line = std::ranges::find_if(diagram.lines, [value](const PhLine& each) {
            return each.kind == Kind::temperature && each.value == value;
        });
        double highest = 0;
        double lowest = 1e9;
        for (const PhPoint& point : line->points) {
            const FluidState state = *refprop.StateAtEnthalpy(point.p, point.h);
            if (!state.quality) continue;
            highest = std::max(highest, point.p);
            lowest = std::min(lowest, point.p);
        }
        return highest / lowest;
    };
    EXPECT_NEAR(slope("R134A", 0), 1, 1e-6);
    // From 5.6787 to 4.6071 bar at 0 degrees Celsius, from 4.0468 to 3.1978 at -10.
    EXPECT_NEAR(slope("R407C", 0), 5.6787 / 4.6071, 2e-3);
}

TEST_F(PhDiagramTest, RangeBelongsToTheRefrigerantAndWidensInSteps) {
    clsRefprop& refprop = GetRefprop("R134A");
    const PhRange range = phRangeOf(refprop);
    // Dew pressure 0.512 bar at -40 degrees Celsius, h' = 148.1 kJ/kg; critical pressure 40.6 bar.
    EXPECT_EQ(range.lowP, 0.5);
    EXPECT_EQ(range.highP, 50);
    EXPECT_LE(range.lowH, 148);
    EXPECT_GE(range.highH, 490);
    Cycle cycle;
    cycle.states.push_back({.state = {.p = 2, .h = 400}});
    EXPECT_EQ(widened(range, cycle), range);
    cycle.states.push_back({.state = {.p = 0.3, .h = 530}});
    const PhRange wide = widened(range, cycle);
    EXPECT_EQ(wide.lowH, range.lowH);
    EXPECT_EQ(wide.highP, range.highP);
    EXPECT_EQ(wide.lowP, 0.25);
    EXPECT_GT(wide.highH, 530);
    EXPECT_EQ(std::fmod(wide.highH, 25), 0);
    const auto first = phDiagramAround(cycle, "R134A", UnitSystem::metric);
    EXPECT_EQ(first->range, wide);
    EXPECT_EQ(phDiagramAround(cycle, "r134a", UnitSystem::metric), first);
    EXPECT_NE(phDiagramAround(cycle, "R134A", UnitSystem::imperial), first);
}

}  // namespace
}  // namespace marvello
