#include "engine/Performance.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"
#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

class PerformanceTest : public testing::EngineFixture {
  protected:
    PerformanceTest() {
        catalogue.compressor({{"fKForo", "1.7"}, {"fKPerdita", "0.9"}, {"fSez", "280"}, {"fValue1", "1.05"}});
        catalogue.completeDefault();
    }

    Performance performance() {
        const auto prepared = preparedCatalogue(gDatabase());
        return performanceAt(calculator_, prepared->compressors().front(), conditions);
    }
    static double number(const clsCompressor& compressor, const char* name) {
        return compressor.Variables.Item(name).number();
    }

    Calculator calculator_;
};

TEST_F(PerformanceTest, HasTheFiguresOfASelection) {
    const Performance found = performance();
    const clsCompressor& selected = select();
    ASSERT_TRUE(found.hasValues());
    EXPECT_EQ(found.state, selected.Messages.Attention.Count() > 0 ? PointState::warning : PointState::ok);
    EXPECT_EQ(valueOf(found, Figure::capacity), number(selected, "Q0"));
    EXPECT_EQ(valueOf(found, Figure::power), number(selected, "Pta"));
    EXPECT_EQ(valueOf(found, Figure::cop), number(selected, "COP"));
    EXPECT_EQ(valueOf(found, Figure::current), number(selected, "CA"));
    EXPECT_EQ(valueOf(found, Figure::massFlow), number(selected, "Mbase"));
    EXPECT_EQ(valueOf(found, Figure::dischargeTemperature), number(selected, "Tsca"));
    EXPECT_FALSE(found.economized);
}

// Without oil cooling Tsca is no number.
TEST_F(PerformanceTest, TheDischargeTemperatureIsTheUncooledOneWithoutOilCooling) {
    conditions.OilCoolingCalculateMode = OilCoolingMode::none;
    const Performance found = performance();
    EXPECT_EQ(valueOf(found, Figure::dischargeTemperature), number(select(), "T21"));
}

TEST_F(PerformanceTest, WithAnEconomizerTheFiguresAreTotals) {
    conditions.EcoCalculateMode = EconomizerMode::approach;
    conditions.Eco = 8;
    const Performance found = performance();
    const clsCompressor& selected = select();
    ASSERT_TRUE(found.economized);
    EXPECT_EQ(found.plain.capacity, number(selected, "Q0"));
    EXPECT_EQ(valueOf(found, Figure::capacity), number(selected, "Q0") + number(selected, "Qeco"));
    EXPECT_EQ(valueOf(found, Figure::power), number(selected, "PtaEco"));
    EXPECT_EQ(valueOf(found, Figure::cop), number(selected, "CopEco"));
    EXPECT_EQ(valueOf(found, Figure::current), number(selected, "CAECO"));
    EXPECT_EQ(valueOf(found, Figure::dischargeTemperature), number(selected, "Tsca"));
}

TEST_F(PerformanceTest, TellsApartWhyThereAreNoValues) {
    const auto expectNone = [this](PointState state, const std::string& error) {
        const Performance found = performance();
        EXPECT_EQ(found.state, state);
        EXPECT_EQ(found.error, error);
        for (const Figure figure : figures()) EXPECT_FALSE(valueOf(found, figure));
    };
    conditions.TEvaporatingDew = 40;
    expectNone(PointState::outside, "messages.message01");
    conditions.TEvaporatingDew = -5;
    conditions.SuperHeat = 60;
    const std::string rule = select().Messages.Error.Item(1).Name;
    ASSERT_NE(rule, "messages.message01");
    expectNone(PointState::error, rule);
    conditions.SuperHeat = 15;
    conditions.StepCapacity = 1000;  // no byte: the calculation fails
    expectNone(PointState::error, "Error...");
}

}  // namespace
}  // namespace marvello
