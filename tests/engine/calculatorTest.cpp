#include "engine/Calculator.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "data/Hooks.h"
#include "data/Numbers.h"
#include "engine/CalculatorPool.h"
#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

/// All that a calculation found, and what it was loaded with.
std::string resultOf(const clsCompressor& c) {
    std::string text = c.Key() + " " + c.VI + " " + c.InverterInfo.ViSelected + " " + storedText(c.Fla) +
                       " " + c.Motor.NominalPower + std::to_string(c.Motor.ID) + " " +
                       storedText(c.OilCoolingLimit) + " " + std::to_string(c.limits.Count()) + "\n";
    for (const double value : c.PolynomialQ0.c) text += storedText(value) + " ";
    for (const auto* variable : c.Variables) {
        const bool isNumber = variable->isNumber();
        text +=
            variable->Name() + "=" + (isNumber ? storedText(variable->number()) : variable->text()) + "\n";
    }
    for (const clsMessages* messages : {&c.Messages.Error, &c.Messages.Attention, &c.Messages.Information})
        for (const clsMessage& message : *messages) text += message.Name + message.Cause + "\n";
    return text;
}

class CalculatorTest : public testing::EngineFixture {
  protected:
    CalculatorTest() {
        catalogue.compressor({{"fKForo", "1.6"}, {"fKPerdita", "0.2"}, {"fSez", "300"}});
        catalogue.compressor({{"fModelID", "'pair'"},
                              {"fhasFullSmallMotor", "1"},
                              {"fFla2", "30"},
                              {"fMotorSmallID", "2"},
                              {"fLimitEconomizedID", "'N'"}});
        catalogue.compressor({{"fSerieID", "'TK-D'"}, {"fModelID", "'inverter'"}, {"fhasInverter", "1"}});
        catalogue.compressor({{"fSerieID", "'NL-H'"}, {"fModelID", "'open'"}});
        catalogue.compressor({{"fRefrigerantID", "'R290'"}, {"fModelID", "'bare'"}, {"fMotorFullID", "9"}});
        catalogue.completeDefault();
        catalogue.surfaces(26, {110, 2, -1}, {6, 0.1, 0.2});
        catalogue.surfaces(1450, {70, 2, -1}, {4, 0.1, 0.2});
        catalogue.surfaces(75, {70, 2, -1}, {4, 0.1, 0.2});
        catalogue.motor(2, {1, 1.5, 0.02, 0, 0});
        catalogue.limit("N", 0, "-10,20;5,20;5,45;-10,45;-10,20");
    }

    template <class Value>
    Value oneOf(const std::vector<Value>& values) {
        return values[random_() % values.size()];
    }

    clsProjectConditions randomConditions() {
        clsProjectConditions c =
            conditionsAt(oneOf<double>({-40, -9, 0, 4.5, 6}), oneOf<double>({30, 40, 47}));
        c.SuperHeat = oneOf<double>({0, 10, 30});
        c.StepCapacity = oneOf<int>({100, 75, 50});
        c.MotorHz = oneOf<int>({50, 60});
        c.MotorSize = oneOf<MotorChoice>({MotorChoice::standard, MotorChoice::small, MotorChoice::full});
        c.EcoCalculateMode = oneOf<EconomizerMode>({EconomizerMode::none, EconomizerMode::approach});
        c.OilCoolingCalculateMode =
            oneOf<OilCoolingMode>({OilCoolingMode::none, OilCoolingMode::catalogueLimit});
        c.InverterFrequency = oneOf<float>({25, 50, 70});
        return c;
    }

    std::mt19937 random_{7};
};

// Whatever was calculated before, and with no look at the file.
TEST_F(CalculatorTest, GivesWhatASelectionGives) {
    const auto prepared = preparedCatalogue(gDatabase());
    ASSERT_EQ(prepared->compressors().size(), 5U);
    Calculator calculator;
    for (const char* refrigerant : {"R134A", "R290"}) calculator.refprop(refrigerant);
    for (int i = 0; i < 300; ++i) {
        const PreparedCompressor& compressor = prepared->compressors()[random_() % 5];
        conditions = randomConditions();
        const long long statements = gDatabase().executedStatements();
        const std::string found = resultOf(calculator.calculate(compressor, conditions));
        ASSERT_EQ(gDatabase().executedStatements(), statements);
        selections.Selection(std::make_shared<clsProjectConditions>(conditions), compressor.Serie,
                             compressor.Model, compressor.Refrigerant, 0);
        ASSERT_EQ(selections.Count(), 1);
        ASSERT_EQ(found, resultOf(selections.Item(1)));
    }
}

TEST_F(CalculatorTest, ThreadsGiveWhatOneGives) {
    const auto prepared = preparedCatalogue(gDatabase());
    std::vector<clsProjectConditions> points;
    for (int i = 0; i < 400; ++i) points.push_back(randomConditions());
    const auto modelAt = [&](std::size_t i) -> const PreparedCompressor& {
        return prepared->compressors()[i % 5];
    };
    std::vector<std::string> alone;
    Calculator calculator;
    for (std::size_t i = 0; i < points.size(); ++i)
        alone.push_back(resultOf(calculator.calculate(modelAt(i), points[i])));

    CalculatorPool pool(4);
    for (int run = 0; run < 2; ++run) {
        std::vector<std::string> together(points.size());
        EXPECT_TRUE(pool.run(points.size(), [&](Calculator& own, std::size_t i) {
            together[i] = resultOf(own.calculate(modelAt(i), points[i]));
        }));
        EXPECT_EQ(together, alone);
    }
}

TEST_F(CalculatorTest, APoolPassesOnFailuresBoxesAndAborts) {
    CalculatorPool pool(3);
    try {
        pool.run(100, [](Calculator&, std::size_t i) {
            if (i >= 40) throw std::runtime_error(std::to_string(i));
        });
        FAIL();
    } catch (const std::runtime_error& failure) {
        EXPECT_GE(std::stoi(failure.what()), 40);
    }
    EXPECT_TRUE(pool.run(100, [](Calculator&, std::size_t) { showBox(BoxKind::plain, "once"); }));
    EXPECT_EQ(catalogue.boxes, std::vector<std::string>{"once"});

    std::atomic<int> done = 0;
    catalogue.session.hooks.giveTurn = [] { AbortRequested() = true; };
    EXPECT_FALSE(pool.run(1000000, [&](Calculator&, std::size_t) {
        ++done;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }));
    EXPECT_LT(done, 100000);
    EXPECT_TRUE(pool.run(0, [](Calculator&, std::size_t) {}));
}

// The threads that did start end with it.
TEST_F(CalculatorTest, APoolThatTheSystemHasNoThreadsForIsRefused) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "A sanitizer needs more addresses than the test leaves.";
#endif
    rlimit before{};
    getrlimit(RLIMIT_AS, &before);
    rlimit few = before;
    few.rlim_cur = 2'000'000'000;  // bytes: not the stacks of so many threads
    setrlimit(RLIMIT_AS, &few);
    EXPECT_THROW(CalculatorPool(1000), std::system_error);
    setrlimit(RLIMIT_AS, &before);
}

}  // namespace
}  // namespace marvello
