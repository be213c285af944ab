#include "workspace/UnitTexts.h"

#include <gtest/gtest.h>

#include "data/Session.h"

using namespace marvello;

TEST(UnitTexts, FillsTemperaturesAndDifferencesInBothSystems) {
    const Session session;
    const QString space(QChar(0xA0));
    const auto filled = [&](const char* text, UnitSystem system) {
        return inUnits(text, system, QLocale(QLocale::English))
            .replace(space, " ")
            .replace("general.variable03", "");
    };
    EXPECT_EQ(filled("from {T:-50} to {T:+15}, {D:2.5}", UnitSystem::metric), "from -50 C to +15 C, 2.5 K");
    // -50 * 1.8 + 32, 15 * 1.8 + 32, 2.5 * 1.8
    EXPECT_EQ(filled("from {T:-50} to {T:+15}, {D:2.5}", UnitSystem::imperial), "from -58 F to +59 F, 4.5 F");
    EXPECT_EQ(filled("{X:1} {T:} {0}", UnitSystem::imperial), "{X:1} {T:} {0}");
}
