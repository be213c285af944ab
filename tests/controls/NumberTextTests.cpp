#include "controls/NumberText.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <cmath>

using marvello::formatNumber;
using marvello::typedNumber;

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
        }
        // What the locale itself writes, as on the clipboard of another program.
        QLocale own(locale);
        own.setNumberOptions(QLocale::OmitGroupSeparator);
        EXPECT_EQ(typedNumber(own.toString(-12.25, 'f', 2)), -12.25) << locale.name().toStdString();
    }
}
