#include "app/ConnectionString.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace marvello;

TEST(ConnectionString, TurnsGroupsOfThreeDigitsIntoCharacters) {
    EXPECT_EQ(textOfDigits("065066032"), "AB ");
    EXPECT_EQ(textOfDigits(""), "");
    for (const auto* digits : {"06", "0650", "256", "-65", "6 5", "abc"})
        EXPECT_THROW(textOfDigits(digits), std::invalid_argument) << digits;
}

TEST(ConnectionString, NamesTheFilesOfTheFolder) {
    const std::string text = catalogueConnectionString("/opt/a;b");
    const auto part = [&](const std::string& from, const std::string& to) {
        const auto start = text.find(from) + from.size();
        return text.substr(start, text.find(to, start) - start);
    };
    EXPECT_TRUE(text.starts_with("Provider=Microsoft.Jet.OLEDB.4.0;Password="));
    EXPECT_EQ(part("Password=", ";").size(), 11U);
    EXPECT_EQ(part(";User ID=", ";").size(), 8U);
    EXPECT_EQ(part(";Data Source=", ";Persist"), "/opt/a;b\\db.mdb");
    EXPECT_TRUE(text.ends_with("\\db.mdb;Persist Security Info=True;Jet OLEDB:System database=/opt/a;b\\db"));
}
