// The guesses that searches along isobars begin from: searches succeed without them as well, only later.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fluids/Flash.h"
#include "fluids/PropertyError.h"
#include "tests/fluids/Models.h"

namespace marvello::test {
namespace {

using fluids::Flash;
using fluids::FluidModel;
using fluids::FluidState;
using fluids::IsobarTable;
using fluids::Property;

class Isobars : public testing::TestWithParam<std::string> {
  protected:
    std::shared_ptr<const FluidModel> freshModel() const {
        const Model& known = modelOf(refrigerant(GetParam()));
        return std::make_shared<const FluidModel>(known.mixture, known.z);
    }
};

/// Against the states themselves.
TEST_P(Isobars, GuessesAreClose) {
    const auto fluid = freshModel();
    Flash flash(fluid);
    const double top = fluid->boundary().pressureMax();
    for (const double part : {0.01, 0.03, 0.1, 0.2, 0.4, 0.6}) {
        const double p = part * top;
        const auto isobar = fluid->isobars().at(p);
        ASSERT_TRUE(isobar) << p;
        const auto cut = fluid->boundary().cutAtPressure(p);
        EXPECT_NEAR(isobar->ends().vapourTemperature, cut.vapour.point.temperature, 1e-6);
        EXPECT_NEAR(isobar->ends().liquidTemperature, cut.liquid.point.temperature, 1e-6);
        for (const double away : {1.0, 8.0, 20.0, 24.9, 25.1, 40.0, 70.0}) {
            for (const bool isVapour : {true, false}) {
                if (!isVapour && away > 25 && part < 0.1) continue;  // colder than the equation goes
                const double t =
                    isVapour ? cut.vapour.point.temperature + away : cut.liquid.point.temperature - away;
                const FluidState state = flash.atTemperaturePressure(t, p);
                for (const auto& [property, value] : {std::pair{Property::temperature, t},
                                                      {Property::enthalpy, state.enthalpy},
                                                      {Property::entropy, state.entropy}}) {
                    const auto guess = isobar->onePhaseAt(property, value);
                    ASSERT_TRUE(guess) << t << " K, " << p << " kPa";
                    EXPECT_NEAR(guess->temperature, t, 1e-3) << p;
                    EXPECT_LT(deviation(guess->density, state.density), 1e-5) << t << " K, " << p << " kPa";
                }
            }
        }
        for (const double share : {0.03, 0.5, 0.97}) {
            if (!fluid->isBlend()) break;
            const auto value =
                cut.liquid.point.temperature * (1 - share) + cut.vapour.point.temperature * share;
            const FluidState state = flash.atTemperaturePressure(value, p);
            const auto guess = isobar->twoPhasesAt(Property::enthalpy, state.enthalpy);
            ASSERT_TRUE(guess);
            EXPECT_NEAR(guess->share, state.quality, 1e-5);
            EXPECT_NEAR(guess->temperature, value, 1e-4);
            EXPECT_NEAR(guess->logK[0], state.logK[0], 1e-5);
        }
    }
    EXPECT_FALSE(fluid->isobars().at(0.97 * top));
    EXPECT_FALSE(fluid->isobars().at(1.5 * top));
    EXPECT_FALSE(fluid->isobars().at(1e-9));
}

/// The table is made as states are asked for, and no state may tell which came before.
TEST_P(Isobars, StatesDoNotDependOnTheOrder) {
    Flash forwards(freshModel());
    Flash backwards(freshModel());
    const double top = modelOf(refrigerant(GetParam())).fluid.boundary().pressureMax();
    const auto bytesAt = [&](Flash& flash, int i) {
        const double h = -2000 + 350.0 * ((i * 37) % 100);
        std::array<std::uint64_t, 4> bytes{};
        try {
            const FluidState state = flash.atPressureEnthalpy(top * std::pow(0.93, i), h);
            bytes = {std::bit_cast<std::uint64_t>(state.temperature),
                     std::bit_cast<std::uint64_t>(state.density), std::bit_cast<std::uint64_t>(state.entropy),
                     std::bit_cast<std::uint64_t>(state.quality)};
        } catch (const fluids::PropertyError& error) {
            bytes[0] = static_cast<std::uint64_t>(error.fault());
        }
        return bytes;
    };
    constexpr int states = 100;
    std::vector<std::array<std::uint64_t, 4>> found;
    for (int i = 0; i < states; ++i) found.push_back(bytesAt(forwards, i));
    for (int i = states; i-- > 0;) EXPECT_EQ(bytesAt(backwards, i), found[static_cast<std::size_t>(i)]) << i;
}

INSTANTIATE_TEST_SUITE_P(Fluids, Isobars, testing::Values("R134a", "R404A", "R407C", "R448A", "R290"));

}  // namespace
}  // namespace marvello::test
