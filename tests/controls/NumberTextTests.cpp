#include "controls/NumberText.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <cmath>

using marvello::formatNumber;
using marvello::shownNumber;
using marvello::typedNumber;

namespace {

const QLocale english(QLocale::English, QLocale::UnitedKingdom);
const QLocale german(QLocale::German, QLocale::Germany);

}  // namespace

TEST(TypedNumber, TakesBothMarksAndBothMinusSigns) {
    EXPECT_EQ(typedNumber(u"1.5"), 1.5);
    EXPECT_EQ(typedNumber(u"1,5"), 1.5);
    EXPECT_EQ(typedNumber(u" -12,25 "), -12.25);
    EXPECT_EQ(typedNumber(u"\u221212"), -12.0);
    EXPECT_EQ(typedNumber(u"+3"), 3.0);
    EXPECT_EQ(typedNumber(u".5"), 0.5);
}

TEST(TypedNumber, RefusesEverythingElse) {
    for (const auto* text : {u"", u"  ", u"-", u".", u"1.5x", u"1.234,5", u"1,2,3", u"1 5", u"0x10", u"nan",
                             u"inf", u"1e999", u"--1", u"+-1", u"1-"})
        EXPECT_FALSE(typedNumber(text)) << QString::fromUtf16(text).toStdString();
}

TEST(FormatNumber, RoundsHalfAwayFromZeroOnTheDigitsThatOneSees) {
    EXPECT_EQ(formatNumber(2.675, u"#0.00", english), "2.68");  // stored just below 2.675
    EXPECT_EQ(formatNumber(-0.125, u"#0.00", english), "-0.13");
    EXPECT_EQ(formatNumber(0.5, u"#0", english), "1");
    EXPECT_EQ(formatNumber(9.996, u"#0.00", english), "10.00");
    EXPECT_EQ(formatNumber(0.04, u"#0.0", english), "0.0");
    EXPECT_EQ(formatNumber(-0.001, u"#0.00", english), "0.00");
    EXPECT_EQ(formatNumber(1e17, u"#0.0", english), "100000000000000000.0");
}

TEST(FormatNumber, FollowsThePatternAndTheLocale) {
    EXPECT_EQ(formatNumber(1234.5, u"#0.00", german), "1234,50");
    EXPECT_EQ(formatNumber(1048800, u"#,#", english), "1,048,800");
    EXPECT_EQ(formatNumber(392400.4, u"#,#", german), "392.400");
    EXPECT_EQ(formatNumber(0.25, u"#.#", english), ".3");
    EXPECT_EQ(formatNumber(53.0, u"#", english), "53");
    EXPECT_EQ(formatNumber(12.5, u"", german), "12,5");
    EXPECT_EQ(formatNumber(1234567.25, u"", english), "1234567.25");
}

TEST(ShownNumber, ReadsBackWhatFormatNumberWrites) {
    const QLocale swedish(QLocale::Swedish, QLocale::Sweden);  // U+2212 as minus, a blank that does not break
    const QLocale french(QLocale::French, QLocale::France);
    for (const QLocale& locale : {english, german, swedish, french})
        for (const double value : {0.0, 7.0, 59.2, -12.3, 999.0, 1048800.0, -232800.0, 1e9})
            for (const auto* pattern : {u"#0.0", u"#,#0.0"})
                EXPECT_EQ(shownNumber(formatNumber(value, pattern, locale), locale), value)
                    << locale.name().toStdString() << " " << value;
    EXPECT_EQ(shownNumber(u"232.800", german), 232800.0);
    EXPECT_EQ(shownNumber(u"232.800", english), 232.8);
    EXPECT_EQ(shownNumber(u".3", english), 0.3);
}

TEST(ExponentText, HasOneFormForAllSizesAndTheMarksOfTheLocale) {
    using marvello::exponentText;
    EXPECT_EQ(exponentText(100, english), "1E+02");
    EXPECT_EQ(exponentText(-0.00012, QLocale(QLocale::German)), "-1,2E-04");
    EXPECT_EQ(exponentText(-2.5e-7, QLocale(QLocale::Swedish)), u"\u22122,5E-07");
}

TEST(NumberText, ReadsBackWhatItWritesInEveryLocale) {
    const auto locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    ASSERT_GT(locales.size(), 500);
    for (const QLocale& locale : locales) {
        for (const double value : {0.0, 7.0, -12.25, 1048800.5, -0.00005, 1.5e20}) {
            EXPECT_EQ(typedNumber(formatNumber(value, u"", locale)), value) << locale.name().toStdString();
            EXPECT_EQ(typedNumber(marvello::exponentText(value, locale)), value)
                << locale.name().toStdString();
            if (std::abs(value) < 1e-3) continue;
            EXPECT_EQ(typedNumber(formatNumber(value, u"#0.00", locale)), value)
                << locale.name().toStdString();
            EXPECT_EQ(shownNumber(formatNumber(value, u"#,#0.00", locale), locale), value)
                << locale.name().toStdString();
        }
        // What the locale itself writes, as on the clipboard of another program.
        QLocale own(locale);
        own.setNumberOptions(QLocale::OmitGroupSeparator);
        EXPECT_EQ(typedNumber(own.toString(-12.25, 'f', 2)), -12.25) << locale.name().toStdString();
    }
}

TEST(ShownNumber, RefusesWhatIsNoNumberInTheLocale) {
    for (const auto* text : {u"", u"  ", u"-", u".", u"1,5", u"1,2345", u",500", u"1234,567", u"1.5.2",
                             u"1e5", u"1.-5", u"12 kW", u"nan"})
        EXPECT_FALSE(shownNumber(text, english)) << QString::fromUtf16(text).toStdString();
    EXPECT_FALSE(shownNumber(u"59.2", german));
}
