#include "app/SettingsStore.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <stdexcept>

using namespace marvello;

TEST(SettingsStore, KeepsTheLanguageUnderItsPath) {
    EXPECT_EQ(readSetting("Marvello", "Parameters", "Language"), std::nullopt);
    writeSetting("Marvello", "Parameters", "Language", "it-IT");
    EXPECT_EQ(readSetting("Marvello", "Parameters", "Language"), "it-IT");
    const QSettings settings(QStringLiteral("Kestrom"), QStringLiteral("Marvello"));
    EXPECT_EQ(settings.value(QStringLiteral("Parameters/Language")).toString(), QStringLiteral("it-IT"));
    EXPECT_EQ(readSetting("Other", "Parameters", "Language"), std::nullopt);
}

TEST(SettingsStore, ReportsADamagedStore) {
    const QString file = QSettings(QStringLiteral("Kestrom"), QStringLiteral("Damaged")).fileName();
    writeSetting("Damaged", "Parameters", "Language", "en-EN");
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("[Parameters\nno value");
    damaged.close();
    EXPECT_THROW(readSetting("Damaged", "Parameters", "Language"), std::runtime_error);
}
