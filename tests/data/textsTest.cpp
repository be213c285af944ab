#include "data/Numbers.h"
#include "data/Texts.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

using namespace marvello;

namespace {

TEST(Texts, TrimAndFoldAsciiOnly) {
    EXPECT_EQ(trimmed(" \t a b\r\n"), "a b");
    EXPECT_EQ(trimmed("   "), "");
    EXPECT_EQ(lowered("TK-Aÿ"), "tk-aÿ");
    EXPECT_EQ(uppered("è1k"), "è1K");
    EXPECT_TRUE(equalIgnoringCase("R134a", "r134A"));
    EXPECT_FALSE(equalIgnoringCase("R134", "R134A"));
}

TEST(Texts, SplitKeepsEmptyPieces) {
    EXPECT_EQ(splitText("a;;b;", ';'), (std::vector<std::string>{"a", "", "b", ""}));
    EXPECT_EQ(splitText("", ';'), std::vector<std::string>{""});
}

TEST(Texts, ListLookupFindsTheFirstCaption) {
    EXPECT_EQ(ListLookup("*", "*|ALL"), "ALL");
    EXPECT_EQ(ListLookup(" B ", ";;a|One; b |Two;B|Three;"), "Two");
    EXPECT_EQ(ListLookup("400_50", "400_50|400 V|50 Hz"), "400 V|50 Hz");  // after the first bar
    EXPECT_EQ(ListLookup("c", "a|One"), "");
    EXPECT_EQ(ListLookup("a", "a"), "");
    EXPECT_EQ(ListLookup("a", ""), "");
}

TEST(Texts, StoredNumbersAreWholeAndFinite) {
    EXPECT_EQ(storedNumber("1e5"), 100000.0);
    EXPECT_EQ(storedNumber(" 2.5 "), 2.5);
    EXPECT_EQ(storedNumber("+3"), 3.0);
    EXPECT_EQ(storedNumber("-.5"), -0.5);
    for (const auto* text :
         {"", " ", "nan", "inf", "-inf", "1e999", "1,5", "1.5.", "1 2", "0x10", "+-1", "--1", "."})
        EXPECT_EQ(storedNumber(text), std::nullopt) << text;
}

TEST(Texts, StoredTextReadsBackExactly) {
    for (const double value : {0.1, 1.0 / 3, -273.15, 5e-324, std::numeric_limits<double>::max()})
        EXPECT_EQ(storedNumber(storedText(value)), value);
    EXPECT_EQ(storedText(0.1), "0.1");
}

TEST(Texts, PeopleWriteEitherMark) {
    EXPECT_EQ(localNumber("1,5"), 1.5);
    EXPECT_EQ(localNumber(" 1.5"), 1.5);
    EXPECT_EQ(localNumber("\u22123,25"), -3.25);
    for (const auto* text : {"1.000,5", "1,000,5", "1 5", "nan", ""})
        EXPECT_EQ(localNumber(text), std::nullopt) << text;
}

TEST(Texts, LocalTextHasFifteenDigits) {
    EXPECT_EQ(localText(0.1 + 0.2), "0.3");
    EXPECT_EQ(localText(-0.0), "0");
    EXPECT_EQ(localText(-12.5), "-12.5");
    EXPECT_EQ(localText(1234567.0), "1234567");
}

TEST(Texts, FollowALocaleWithAComma) {
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    EXPECT_EQ(ToLocalDecimal("1.5|2.5"), "1,5|2,5");
    EXPECT_EQ(localText(2.5), "2,5");
    EXPECT_EQ(localNumber("2,5"), 2.5);
    EXPECT_EQ(storedText(2.5), "2.5");
    EXPECT_EQ(storedNumber("2.5"), 2.5);
    EXPECT_EQ(storedNumber("2,5"), std::nullopt);
    std::setlocale(LC_ALL, "C");
}

}  // namespace
