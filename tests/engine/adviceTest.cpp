#include "engine/Advice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

using testing::keys;
using Said = std::vector<MessageId>;

class AdviceTest : public testing::EngineFixture {
  protected:
    /// What is advised on the only compressor.
    std::vector<MessageAdvice> advise(UnitSystem units = UnitSystem::metric) {
        Calculator calculator;
        const auto prepared = preparedCatalogue(gDatabase());
        return adviseOn(calculator, prepared->compressors().front(), conditions, units,
                        [this] { return ++trials_ < allowedTrials; });
    }

    /// The advice on a message about one input; none without it.
    static std::optional<Advice> on(const std::vector<MessageAdvice>& all, const char* message,
                                    AdvisedInput input) {
        for (const MessageAdvice& about : all) {
            if (about.message.key != keys({message}).front()) continue;
            const auto found = std::ranges::find(about.advice, input, &Advice::input);
            if (found != about.advice.end()) return *found;
        }
        return std::nullopt;
    }

    static void expectAdvice(const std::optional<Advice>& advice, double value, double change) {
        ASSERT_TRUE(advice);
        EXPECT_NEAR(advice->value, value, 1e-9);
        EXPECT_NEAR(advice->change, change, 1e-9);
    }

    int allowedTrials = 100000;

  private:
    int trials_ = 0;
};

// The envelope of the fixture is -20 to 15 and 20 to 60 degC; oil is filtered above -3.04 degC at the point,
// below 41.27 degC, and between 47 and 48 degC not at all.
TEST_F(AdviceTest, IsTheNearestValueRoundedToTheSafeSide) {
    catalogue.compressor();
    catalogue.completeDefault();
    catalogue.limit("E", limitType::oilFilter, "-40,0;-3.04,0;-3.04,46;-40,46;-40,0");
    catalogue.limit("E", limitType::oilFilter, "-40,47;40,47;40,90;-40,90;-40,47");
    conditions.TCondensationDew = 45.03;
    const auto advice = advise();
    ASSERT_EQ(advice.size(), 1U);
    EXPECT_EQ(advice.front().message.severity, Severity::attention);
    expectAdvice(on(advice, "03", AdvisedInput::evaporating), -3.0, 2);
    // Upwards, though a region without filter begins further away downwards too.
    expectAdvice(on(advice, "03", AdvisedInput::condensing), 46.1, 46.1 - 45.03);
    EXPECT_EQ(on(advice, "03", AdvisedInput::subcooling), std::nullopt);
    EXPECT_EQ(advice.front().advice.front().input, AdvisedInput::condensing);  // the smaller step
    // 45.03 degC are 113.05 F, 46 degC 114.8 F; -5 degC are 23 F, -3.04 degC 26.528 F.
    const auto imperial = advise(UnitSystem::imperial);
    expectAdvice(on(imperial, "03", AdvisedInput::condensing), 114.9, 114.9 - 113.054);
    expectAdvice(on(imperial, "03", AdvisedInput::evaporating), 26.6, 3.6);
}

// A way out of a warning that leads into an error is none.
TEST_F(AdviceTest, RaisesNothingWorseAndSaysWhatElseChanges) {
    catalogue.compressor();
    catalogue.completeDefault();
    catalogue.limit("E", limitType::oilFilter, "-6,0;40,0;40,50;-6,50;-6,0");
    catalogue.limit("E", limitType::forbidden, "-40,50;40,50;40,55;-40,55;-40,50");
    catalogue.limit("E", limitType::injection, "-40,43;40,43;40,49;-40,49;-40,43");
    catalogue.limit("E", limitType::hOnly, "-40,0;-6,0;-6,90;-40,90;-40,0");
    conditions.OilCoolingCalculateMode = OilCoolingMode::none;
    const auto advice = advise();  // oil filter and injection
    ASSERT_EQ(advice.size(), 2U);
    const auto condensing = on(advice, "03", AdvisedInput::condensing);
    expectAdvice(condensing, 55.1, 10.1);
    EXPECT_EQ(condensing->ends, Said({{Severity::attention, keys({"07"}).front()}}));
    const auto evaporating = on(advice, "03", AdvisedInput::evaporating);
    expectAdvice(evaporating, -6.1, -1.1);
    EXPECT_TRUE(evaporating->ends.empty());
    EXPECT_EQ(evaporating->brings, Said({{Severity::information, keys({"08"}).front()}}));
    expectAdvice(on(advice, "07", AdvisedInput::condensing), 42.9, -2.1);
}

TEST_F(AdviceTest, ErrorsStandAloneAndNoSingleInputMayHelp) {
    catalogue.compressor();
    catalogue.completeDefault();
    catalogue.limit("E", limitType::oilFilter, "-40,0;40,0;40,90;-40,90;-40,0");
    conditions.SuperHeat = 23.04;
    auto advice = advise();
    ASSERT_EQ(advice.size(), 1U);  // the oil filter is not asked about
    expectAdvice(on(advice, "13", AdvisedInput::superheat), 20, -3.04);
    EXPECT_EQ(advice.front().advice.size(), 1U);

    conditions.SuperHeat = 10;
    advice = advise();
    ASSERT_EQ(advice.size(), 1U);
    EXPECT_EQ(advice.front().message.key, "messages.message03");
    EXPECT_TRUE(advice.front().advice.empty());

    conditions.TEvaporatingDew = 16;  // outside in both temperatures
    conditions.TCondensationDew = 61;
    advice = advise();
    ASSERT_EQ(advice.size(), 1U);
    EXPECT_TRUE(advice.front().advice.empty());
}

TEST_F(AdviceTest, ChoosesAmongWhatTheFormPermits) {
    catalogue.compressor({{"fhasFullSmallMotor", "1"}});
    catalogue.completeDefault();
    catalogue.limit("E", limitType::smallMotor, "-20,20;15,20;15,44;-20,44;-20,20");
    catalogue.limit("E", limitType::step75, "-40,0;40,0;40,90;-40,90;-40,0");
    catalogue.surfaces(75, {50}, {10});
    catalogue.surfaces(50, {50}, {10});
    conditions.MotorSize = MotorChoice::small;
    auto advice = advise();
    expectAdvice(on(advice, "05", AdvisedInput::motorSize), codeOf(MotorChoice::full), 0);
    EXPECT_EQ(advice.front().advice.front().input, AdvisedInput::motorSize);
    EXPECT_TRUE(isChoice(AdvisedInput::motorSize));
    expectAdvice(on(advice, "05", AdvisedInput::condensing), 44, -1);

    conditions.MotorSize = MotorChoice::full;
    conditions.StepCapacity = 50;
    expectAdvice(on(advise(), "29", AdvisedInput::capacityStep), 75, 0);
    catalogue.exec("update tCompressors set fSerieID='MV-A'");  // without steps
    EXPECT_EQ(on(advise(), "29", AdvisedInput::capacityStep), std::nullopt);
}

// Each K of superheat less makes the discharge 1 K colder.
TEST_F(AdviceTest, LowersTheDischargeAndDoesNotSwitchOffWhatWarnsOfIt) {
    catalogue.compressor({{"fOilCoolingLimit", "180"}});
    catalogue.completeDefault();
    catalogue.limit("E", limitType::injection, "-20,59;15,59;15,60;-20,60;-20,59");
    conditions.OilCoolingCalculateMode = OilCoolingMode::givenLimit;
    const double discharge = select().Variables[var::T21];
    conditions.OilCooling = discharge - 4.95;
    conditions.SuperHeat = 15;
    auto advice = advise();
    expectAdvice(on(advice, "07", AdvisedInput::superheat), 10, -5);
    expectAdvice(on(advice, "07", AdvisedInput::oilCoolingMode), codeOf(OilCoolingMode::catalogueLimit), 0);
    catalogue.exec("update tCompressors set fOilCoolingLimit=" + std::to_string(discharge - 4.95));
    conditions.OilCoolingCalculateMode = OilCoolingMode::catalogueLimit;
    advice = advise();
    expectAdvice(on(advice, "07", AdvisedInput::superheat), 10, -5);
    EXPECT_EQ(on(advice, "07", AdvisedInput::oilCoolingMode), std::nullopt);
}

TEST_F(AdviceTest, OfAnInverterIsAFrequencyTooAndStopsWhenItIsNotWanted) {
    catalogue.compressor({{"fSerieID", "'TK-D'"}, {"fhasInverter", "1"}});
    catalogue.completeDefault();
    catalogue.surfaces(26, {50}, {10});
    catalogue.limit("E", limitType::hertz50, "-40,0;40,0;40,90;-40,90;-40,0");
    conditions.InverterFrequency = 57.3F;
    const auto frequency = on(advise(), "35", AdvisedInput::frequency);
    ASSERT_TRUE(frequency);
    EXPECT_EQ(frequency->value, 50);
    allowedTrials = 3;
    EXPECT_TRUE(advise().empty());
}

}  // namespace
}  // namespace marvello
