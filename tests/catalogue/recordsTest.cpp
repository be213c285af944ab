#include <gtest/gtest.h>

#include <cmath>

#include "catalogue/ClsSelectionMessages.h"
#include "catalogue/clsMotor.h"
#include "catalogue/clsPolynomial.h"
#include "catalogue/clsPolynomialSh.h"
#include "catalogue/clsVariables.h"
#include "data/Arithmetic.h"
#include "data/Session.h"
#include "tests/support/SmallCatalogue.h"

namespace marvello {
namespace {

TEST(clsPolynomial, TermsStandInTheirOrder) {
    // At x = 2 and y = 3 each term has a value of its own: 1 2 3 4 6 9 8 12 18 27.
    constexpr double terms[] = {1, 2, 3, 4, 6, 9, 8, 12, 18, 27};
    for (std::size_t i = 0; i < 10; ++i) {
        clsPolynomial surface;
        surface.c[i] = 1;
        EXPECT_EQ(surface.Calculate(2, 3), terms[i]) << "c" << i + 1;
    }
    // The discharge surface has another order: 1 x x^2 y y^2 xy x^2y xy^2 x^2y^2.
    constexpr double dischargeTerms[] = {1, 2, 4, 3, 9, 6, 12, 18, 36};
    for (std::size_t i = 0; i < 9; ++i) {
        clsPolynomialSh surface;
        surface.c[i] = 1;
        EXPECT_EQ(surface.at(2, 3), dischargeTerms[i]) << "c" << i + 1;
    }
}

TEST(clsPolynomial, SinglePrecisionAndSoundness) {
    clsPolynomial surface;
    EXPECT_FALSE(surface.isOK());
    surface.c[1] = 1;
    EXPECT_TRUE(surface.isOK());
    EXPECT_EQ(surface.Calculate(0.1F, 0), static_cast<double>(0.1F));
    EXPECT_NE(surface.Calculate(0.1F, 0), 0.1);
    surface.c[2] = -1;  // adds up to nothing: counts as missing
    EXPECT_FALSE(surface.isOK());
}

TEST(clsMotor, ValidityAndCurrent) {
    clsMotor motor;
    EXPECT_FALSE(motor.isValid());
    EXPECT_FALSE(motor.isVirtual());
    motor.ID = 0;
    EXPECT_TRUE(motor.isValid() && motor.isVirtual());
    motor.c = {1, 10, 100, 1000, 10000};
    EXPECT_EQ(motor.current(2), 1 + 20 + 400 + 8000 + 160000);
}

TEST(clsVariables, NamesIgnoreCaseAndTheOrderIsThatOfAdding) {
    clsVariables v;
    v.add("Q0", 5.0);
    v.add("Pe", 3.0, "pressure", "bar", "P");
    v.add("q0", 6.0);
    ASSERT_EQ(v.Count(), 2);
    EXPECT_EQ(v.Item(2).Name(), "q0");
    EXPECT_EQ(v("Q0"), 6.0);
    EXPECT_TRUE(v.Exist("PE"));
    EXPECT_EQ(v.getFromTag("p"), &v.Item("pe"));
    EXPECT_EQ(v.getFromTag("x"), nullptr);
    v.Remove("pE");
    EXPECT_FALSE(v.Exist("Pe"));
    EXPECT_THROW(v("Pe"), VariableError);
    EXPECT_THROW(v.Item(2), VariableError);
    v.add(v.Item(1).Name(), 7.0);  // under the very name of the entry that goes
    EXPECT_EQ(v("Q0"), 7.0);
    v.add("Pc", 1.0);
    v.Remove(1);
    EXPECT_EQ(v.Item(1).Name(), "Pc");
    EXPECT_THROW(v.Remove(2), VariableError);
}

TEST(clsVariables, NumericTextsAreNumbersAndFaultsStayOut) {
    clsVariables v;
    v.add("a", std::string("12.5"));
    EXPECT_EQ(v("a"), 12.5);
    v.add("Tsca", std::string("-"));
    EXPECT_EQ(v.Item("Tsca").text(), "-");
    EXPECT_THROW(v("Tsca"), VariableError);
    v.add("b", 1.0);
    EXPECT_THROW(v.add("b", std::nan("")), ArithmeticFault);
    EXPECT_THROW(v.Item("b").setValue(INFINITY), ArithmeticFault);
    EXPECT_EQ(v("b"), 1.0);
}

TEST(clsMessages, TextsAreMadeWhenTheyAreRead) {
    testing::SmallCatalogue catalogue;
    catalogue.text("Messages.Message12", "Subcooling too high");
    catalogue.text("messages.message12", "Sottoraffreddamento eccessivo", "it-IT");
    catalogue.text("messages.message35", "Anything");
    gApplication().populateDictionary("en-EN", "en-EN");

    clsMessages messages;
    messages.add("Messages.Message12", "Messages.message12 ({0} K MAX)", {7.5});
    messages.add("messages.message12", "messages.message12");
    messages.add("messages.message35", "<= 70 Hz");
    messages.add("Error...", "", {0.0});
    ASSERT_EQ(messages.Count(), 4);
    EXPECT_EQ(messages.Item(1).Description(), "Subcooling too high (7.5 k max)");
    EXPECT_EQ(messages.Item(2).Description(), "Subcooling too high");
    EXPECT_EQ(messages.Item(3).Description(), "<= 70 hz");
    EXPECT_EQ(messages.Item(4).Description(), "");
    EXPECT_THROW(messages.Item(5), std::out_of_range);

    gApplication().populateDictionary("en-EN", "it-IT");
    EXPECT_EQ(messages.Item(2).Description(), "Sottoraffreddamento eccessivo");
}

}  // namespace
}  // namespace marvello
