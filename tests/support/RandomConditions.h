#pragma once

#include <array>
#include <cstddef>
#include <random>

#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "catalogue/SeriesTraits.h"

namespace marvello::testing {

/// Compressors of a catalogue, and conditions for them, at random.
class RandomConditions {
  public:
    explicit RandomConditions(unsigned seed) : random_(seed) {}

    unsigned number() { return static_cast<unsigned>(random_()); }
    const PreparedCompressor& compressorOf(const PreparedCatalogue& catalogue) {
        return catalogue.compressors()[random_() % catalogue.compressors().size()];
    }
    template <class Value, std::size_t N>
    Value oneOf(const std::array<Value, N>& values) {
        return values[random_() % N];
    }
    double between(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }

    /// An operating point in the box around the limits or just outside of it, with the options that the form
    /// of the series offers.
    clsProjectConditions conditionsFor(const PreparedCompressor& compressor) {
        const clsLimits& limits = compressor.envelope->limits;
        const clsPoint left = *limits.getLeftPoint();
        const clsPoint right = *limits.getRightPoint();
        clsProjectConditions c =
            conditionsAt(between(left.x - 2, right.x + 2), between(right.Y - 2, left.Y + 2));
        c.SuperHeat = between(0, random_() % 10 == 0 ? 50 : 20);
        c.SubCooling = between(0, 10);
        if (random_() % 5 == 0) {
            c.SuperHeatType = SuperheatKind::temperature;
            c.SuperHeat += c.TEvaporatingDew;
        }
        c.MotorHz = oneOf(std::array{50, 60});
        c.InverterFrequency = static_cast<float>(between(20, 70));
        const unsigned mask =
            permittedSelectors(*compressor.traits, refrigerantTraits(compressor.Refrigerant));
        if (allows(mask, Selector::stepCapacity)) c.StepCapacity = oneOf(capacitySteps);
        if (allows(mask, Selector::motorSize))
            c.MotorSize = oneOf(std::array{MotorChoice::standard, MotorChoice::small, MotorChoice::full});
        if (allows(mask, Selector::oilCooling)) {
            c.OilCoolingCalculateMode = oneOf(
                std::array{OilCoolingMode::none, OilCoolingMode::catalogueLimit, OilCoolingMode::givenLimit});
            c.OilCooling = between(60, 120);
        }
        if (allows(mask, Selector::economizer) || compressor.hasInvert) {
            c.EcoCalculateMode =
                oneOf(std::array{EconomizerMode::none, EconomizerMode::approach, EconomizerMode::capacity});
            c.Eco = c.EcoCalculateMode == EconomizerMode::approach ? between(0.2, 20) : between(20, 400);
        }
        return c;
    }

  private:
    std::mt19937 random_;
};

}  // namespace marvello::testing
