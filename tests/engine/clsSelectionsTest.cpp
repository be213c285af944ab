#include "engine/clsSelections.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "data/Arithmetic.h"
#include "data/Session.h"
#include "engine/formTimeout.h"
#include "tests/engine/EngineFixture.h"
#include "thermo/clsRefprop.h"

namespace marvello {
namespace {

class clsSelectionsTest : public testing::EngineFixture {
  protected:
    clsSelectionsTest() {
        catalogue.compressor({{"fModelID", "'B'"}, {"fSequence", "'010'"}});
        catalogue.compressor({{"fModelID", "'A'"}, {"fSequence", "'020'"}});
        catalogue.compressor({{"fModelID", "'C'"}, {"fSequence", "'020'"}, {"fMarket", "1"}});
        catalogue.compressor({{"fModelID", "'D'"}, {"fSequence", "'030'"}, {"fMarket", "3"}});
        catalogue.completeDefault();
    }

    std::string run(const std::string& models, int market = 0, const std::string& serie = "TK-A") {
        selections.Selection(std::make_shared<clsProjectConditions>(conditions), serie, models, "R134A",
                             static_cast<std::uint8_t>(market));
        std::string listed;
        for (const auto& compressor : selections) listed += compressor->Model;
        return listed;
    }
};

TEST_F(clsSelectionsTest, FilterAndOrder) {
    EXPECT_EQ(run("*"), "BACD");
    EXPECT_EQ(run(""), "BACD");
    EXPECT_EQ(run("A;B"), "BA");
    EXPECT_EQ(run("A; B"), "A");  // pieces are not trimmed
    EXPECT_EQ(run("*", 1), "BAC");
    EXPECT_EQ(run("*", 2), "BA");
    EXPECT_EQ(run("*", 3), "BACD");
    EXPECT_EQ(run("*", 0, "tk-a"), "BACD");
    EXPECT_EQ(run("*", 0, "tk-d"), "");
}

TEST_F(clsSelectionsTest, InverterSeriesAreThreeByName) {
    for (const char* serie : {"TK-B", "TK-C", "TK-D"}) {
        catalogue.exec(std::string("update tCompressors set fhasInverter=1, fSerieID='") + serie + "'");
        EXPECT_EQ(run("B", 0, serie), "B") << serie;
    }
    EXPECT_EQ(run("B", 0, "tk-d"), "");
}

TEST_F(clsSelectionsTest, ConditionsReachTheLoader) {
    conditions.MotorVoltage = 380.5;
    conditions.EcoCalculateMode = EconomizerMode::capacity;
    catalogue.exec("update tCompressors set fLimitEconomizedID='X'");
    catalogue.limit("X", 11, "-20,20;15,20;15,60;-20,60;-20,20");
    run("B");
    EXPECT_EQ(selections.Item(1).Motor.Voltage, 380);  // half to even
    EXPECT_TRUE(selections.Item(1).limits.FindLimitType(11));
    conditions.StepCapacity = 300;
    EXPECT_THROW(run("B"), ArithmeticFault);
}

TEST_F(clsSelectionsTest, WithoutConditionsThoseOfBeforeServeOrNone) {
    const auto runWithout = [this] { selections.Selection(nullptr, "TK-A", "B", "R134A", 0); };
    runWithout();
    for (const char* input : {"Ted", "Tcd", "Sh", "Sc", "Eco", "OC", "Fm", "Vm", "MotorType", "ShType"}) {
        EXPECT_EQ(selections.Item(1).Variables(input), 0) << input;
    }
    run("B");
    runWithout();
    EXPECT_EQ(selections.Item(1).Variables("Tcd"), 45);
}

TEST_F(clsSelectionsTest, PropertiesKeepWhatWasGiven) {
    run(" A;B ");
    run("   ");
    EXPECT_EQ(selections.Models, "A;B");
    EXPECT_EQ(selections.Count(), 0);  // the blanks were asked for as a model
    EXPECT_EQ(selections.Series, "TK-A");
}

TEST_F(clsSelectionsTest, CursorAndKeys) {
    run("*");
    EXPECT_EQ(selections.AbsolutePosition(), 0);
    EXPECT_TRUE(selections.BOC());
    std::string walked;
    for (selections.MoveFirst(); !selections.EOC(); selections.MoveNext()) walked += selections.Item().Model;
    EXPECT_EQ(walked, "BACD");
    EXPECT_EQ(selections.Item("r134a-TK-A-020-a").Model, "A");
    EXPECT_THROW(selections.Item("nobody"), std::out_of_range);
    EXPECT_THROW(selections.Item(), std::out_of_range);
    selections.Clear();
    selections.MoveFirst();
    EXPECT_TRUE(selections.EOC());
    EXPECT_FALSE(selections.BOC());
    auto compressor = std::make_shared<clsCompressor>();
    selections.add(compressor);
    EXPECT_FALSE(selections.EOC());  // at the first of one
    EXPECT_THROW(selections.add(compressor), std::invalid_argument);
}

TEST_F(clsSelectionsTest, ProgressAndAbort) {
    std::vector<int> percents;
    selections.SelectionPercent = [&](int percent, int) { percents.push_back(percent); };
    run("A;B;C");
    EXPECT_EQ(percents, (std::vector<int>{33, 67, 100}));

    selections.SelectionPercent = [](int, int index) {
        if (index == 2) AbortRequested() = true;
    };
    selections.MoveFirst();
    EXPECT_EQ(run("*"), "");
    EXPECT_TRUE(selections.isAborted());
    EXPECT_FALSE(AbortRequested());
    EXPECT_TRUE(selections.EOC());
    EXPECT_FALSE(selections.BOC());  // the cursor stays

    // After the last compressor there is nothing left to abort; stopselection never aborts.
    selections.SelectionPercent = [this](int percent, int) {
        selections.stopselection();
        AbortRequested() = percent == 100;
    };
    EXPECT_EQ(run("*"), "BACD");
    AbortRequested() = false;

    // A click while the rows are loaded.
    selections.SelectionPercent = nullptr;
    int turns = 0;
    catalogue.session.hooks.giveTurn = [&turns] { AbortRequested() = ++turns == 2; };
    EXPECT_EQ(run("*"), "");
    EXPECT_TRUE(selections.isAborted());
    EXPECT_EQ(turns, 2);
    EXPECT_EQ(run("*"), "BACD");
    EXPECT_FALSE(selections.isAborted());
}

TEST_F(clsSelectionsTest, StatesOfARunAreAskedOnce) {
    run("B");
    const long long one = GetRefprop("R134A").libraryCalls();
    InitRefprop("R134A");
    run("*");
    // The four models share suction, liquid and discharge states, so they ask no more than one does.
    EXPECT_EQ(GetRefprop("R134A").libraryCalls(), one);
}

TEST_F(clsSelectionsTest, FailuresReachTheCaller) {
    catalogue.limit("E", 1, "nonsense");
    EXPECT_THROW(run("*"), std::invalid_argument);
    EXPECT_THROW(run("A'B"), DatabaseError);
}

TEST(formTimeoutTest, StartsAndStops) {
    formTimeout timeout;
    int ticks = 0;
    timeout.Timeout = [&ticks] { ++ticks; };
    EXPECT_TRUE(timeout.isStopped());
    timeout.StartTimeout();
    timeout.poll();
    EXPECT_FALSE(timeout.isStopped());
    timeout.StopTimeout();
    EXPECT_TRUE(timeout.isStopped());
    EXPECT_EQ(ticks, 0);
}

TEST(formTimeoutTest, TicksOnceAndGivesATurnBeforeAndAfter) {
    std::string order;
    Session session;
    session.hooks.giveTurn = [&order] { order += "turn "; };
    formTimeout timeout{std::chrono::milliseconds(0)};
    timeout.Timeout = [&order] { order += "tick "; };
    timeout.poll();  // not started
    timeout.StartTimeout();
    timeout.poll();
    timeout.poll();
    EXPECT_EQ(order, "turn tick turn ");
    EXPECT_TRUE(timeout.isStopped());
}

}  // namespace
}  // namespace marvello
