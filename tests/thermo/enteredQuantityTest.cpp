#include "thermo/EnteredQuantity.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace marvello;

namespace {

struct Case {
    const char* text;
    Quantity quantity;
    const char* unit;
    double expected;
};

}  // namespace

TEST(EnteredQuantity, ReadsAValueInAnotherUnitOfItsQuantity) {
    for (const auto& [text, quantity, unit, expected] :
         std::vector<Case>{{"45 F", Quantity::temperature, "C", 13 / 1.8},
                           {"45\u00B0F", Quantity::temperature, "C", 13 / 1.8},
                           {"45 deg f", Quantity::temperature, "C", 13 / 1.8},
                           {"40C", Quantity::temperature, "F", 104},
                           {"313.15 K", Quantity::temperature, "C", 40},
                           {"-4 F", Quantity::temperature, "C", -20},
                           {"2,5 \u00B0C", Quantity::temperature, "C", 2.5},
                           {"9 F", Quantity::temperatureDifference, "K", 5},
                           {"5 K", Quantity::temperatureDifference, "F", 9},
                           {"5 C", Quantity::temperatureDifference, "K", 5},
                           {"3.2 bar", Quantity::pressure, "bar", 3.2},
                           {"3.2 bar abs", Quantity::pressure, "bar", 3.2},
                           {"3.2 bar g", Quantity::pressure, "bar", 4.21325},
                           {"3.2 Bar(g)", Quantity::pressure, "bar", 4.21325},
                           {"3,2 bar\u00FC", Quantity::pressure, "bar", 4.21325},
                           {"0.4 MPa g", Quantity::pressure, "bar", 5.01325},
                           {"320 kPa", Quantity::pressure, "bar", 3.2},
                           {"1500 mbar", Quantity::pressure, "bar", 1.5},
                           {"1 at", Quantity::pressure, "bar", 0.980665},
                           {"0 barg", Quantity::pressure, "psi", 14.695948775},  // one atmosphere
                           {"0 psig", Quantity::pressure, "psi", 14.695948775},  // in its own unit, but gauge
                           {"50 psia", Quantity::pressure, "bar", 3.447378647},  // 50 * 0.0689475729317
                           {"12 TR", Quantity::power, "kW", 42.204},             // 12 * 3.517
                           {"24000 Btu/h", Quantity::power, "kW", 7.034},        // two tons
                           {"35.17 kW", Quantity::power, "tons", 10},
                           {"45 Hz", Quantity::frequency, "Hz", 45}}) {
        const EnteredQuantity read = readQuantity(text, quantity, unit);
        ASSERT_TRUE(read.value) << text;
        EXPECT_NEAR(*read.value, expected, 2e-9) << text;
        EXPECT_FALSE(read.isPlain) << text;
    }
}

TEST(EnteredQuantity, AddsUpSimpleSums) {
    EXPECT_EQ(readQuantity("35+8", Quantity::temperature, "C").value, 43);
    EXPECT_EQ(readQuantity(" 35 + 8 - 3,5 ", Quantity::number, "").value, 39.5);
    EXPECT_EQ(readQuantity("-5-5", Quantity::temperature, "C").value, -10);
    EXPECT_EQ(readQuantity("0.1+0.2", Quantity::number, "").value, 0.3);
    EXPECT_EQ(readQuantity("32+18 F", Quantity::temperature, "C").value, 10);
    EXPECT_FALSE(readQuantity("35 + 8 K", Quantity::temperature, "C").value) << "43 or -230 degrees Celsius";
    EXPECT_EQ(readQuantity("3 + 2 K", Quantity::temperatureDifference, "K").value, 5);
}

TEST(EnteredQuantity, ABareNumberMeansTheUnitOfItsField) {
    for (const char* text : {"12.5", "12,5", "+12.5", "1.25e1"}) {
        const EnteredQuantity read = readQuantity(text, Quantity::pressure, "psi");
        EXPECT_EQ(read.value, 12.5) << text;
        EXPECT_TRUE(read.isPlain) << text;
    }
}

TEST(EnteredQuantity, SaysWhatMayStillBecomeANumber) {
    for (const char* text :
         {"", "-", ".", "35+", "35 +  ", "3.2 b", "3.2 ba", "3.2 mb", "3.2 bar ga", "1e", "3 kgf/"}) {
        const EnteredQuantity read = readQuantity(text, Quantity::pressure, "bar");
        EXPECT_FALSE(read.value) << text;
        EXPECT_TRUE(read.isUnfinished) << text;
    }
    for (const char* text : {"4o", "45 F", "3.2 barx", "1.2.3", "1,234.5", "--1", "5+-8", "a", "bar", "12 TR",
                             "1e999", "3.2 bar 4", "\u00B0"}) {
        const EnteredQuantity read = readQuantity(text, Quantity::pressure, "bar");
        EXPECT_FALSE(read.value) << text;
        EXPECT_FALSE(read.isUnfinished) << text;
    }
    EXPECT_FALSE(readQuantity("10 K", Quantity::number, "").value) << "takes no unit";
    EXPECT_THROW(readQuantity("10", Quantity::pressure, "F"), std::invalid_argument);
}
