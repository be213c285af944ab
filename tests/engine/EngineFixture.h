#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "data/Session.h"
#include "engine/clsSelections.h"
#include "tests/support/SmallCatalogue.h"

namespace marvello::testing {

/// Runs selections on a small catalogue.
class EngineFixture : public ::testing::Test {
  protected:
    EngineFixture() {
        conditions.SuperHeat = 15;
        conditions.SubCooling = 8;
        conditions.MotorVoltage = 380;
        conditions.Eco = 0;
        conditions.OilCooling = 80;
        conditions.InverterFrequency = 0;
    }

    /// Runs the series and gives its first compressor.
    clsCompressor& select(const std::string& refrigerant = "R134A", const std::string& serie = "TK-A") {
        selections.Selection(std::make_shared<clsProjectConditions>(conditions), serie, "*", refrigerant, 0);
        return selections.Item(1);
    }

    static std::vector<std::string> names(const clsMessages& messages) {
        std::vector<std::string> result;
        for (const clsMessage& message : messages) result.push_back(message.Name);
        return result;
    }

    SmallCatalogue catalogue;
    clsProjectConditions conditions = conditionsAt(-5, 45);
    clsSelections selections;
};

/// Keys of messages by number.
inline std::vector<std::string> keys(const std::vector<const char*>& numbers) {
    std::vector<std::string> result;
    for (const char* number : numbers) result.push_back(std::string("messages.message") + number);
    return result;
}

}  // namespace marvello::testing
