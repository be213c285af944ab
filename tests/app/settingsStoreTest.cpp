#include "app/SettingsStore.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <stdexcept>

#include <sys/stat.h>

using namespace marvello;

TEST(SettingsStore, KeepsTheLanguageUnderItsPath) {
    EXPECT_EQ(readSetting("Marvello", "Parameters", "Language"), std::nullopt);
    writeSetting("Marvello", "Parameters", "Language", "it-IT");
    EXPECT_EQ(readSetting("Marvello", "Parameters", "Language"), "it-IT");
    const QSettings settings(QStringLiteral("Kestrom"), QStringLiteral("Marvello"));
    EXPECT_EQ(settings.value(QStringLiteral("Parameters/Language")).toString(), QStringLiteral("it-IT"));
    EXPECT_EQ(readSetting("Other", "Parameters", "Language"), std::nullopt);
}

// A pipe without a writer would keep the program waiting for ever, a device would be replaced.
TEST(SettingsStore, LeavesAloneWhatIsNoRegularFile) {
    writeSetting("Piped", "Parameters", "Language", "en-EN");
    const QString file = QSettings(QStringLiteral("Kestrom"), QStringLiteral("Piped")).fileName();
    const QByteArray path = QFile::encodeName(file);
    ASSERT_TRUE(QFile::remove(file));
    ASSERT_EQ(mkfifo(path.constData(), 0600), 0);
    EXPECT_EQ(readSetting("Piped", "Parameters", "Language"), std::nullopt);
    writeSetting("Piped", "Parameters", "Language", "it-IT");
    EXPECT_EQ(readSetting("Piped", "Parameters", "Language"), "it-IT") << "kept until the program ends";
    struct stat now{};
    ASSERT_EQ(stat(path.constData(), &now), 0);
    EXPECT_TRUE(S_ISFIFO(now.st_mode));
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
