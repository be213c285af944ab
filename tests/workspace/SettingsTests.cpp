// What the windows start from whatever the store of the settings holds.
#include "workspace/Settings.h"

#include "tests/workspace/WorkspaceFixture.h"

using namespace marvello;

using SettingsTest = marvello::testing::WorkspaceFixture;

TEST_F(SettingsTest, WhatIsDamagedOrOutOfRangeIsTheDefault) {
    for (const QVariant& stored : {QVariant("wide"), QVariant(""), QVariant(QStringList{"400", "410"}),
                                   QVariant("-5"), QVariant("1e9"), QVariant("nan"), QVariant("521")}) {
        userSettings().setValue(settings::panelWidth.key, stored);
        EXPECT_EQ(settings::panelWidth.value(), 400) << stored.toString().toStdString();
    }
    userSettings().setValue(settings::panelWidth.key, "520");
    EXPECT_EQ(settings::panelWidth.value(), 520);
}

TEST_F(SettingsTest, AFormGoesOnWithoutItsDamagedEntries) {
    const settings::OfForm form("frmSelection");
    userSettings().setValue(form.values.key,
                            QStringList{"txtTED=-12.5", "txtTCD=1e7", "txtSH=warm", "=3", "txtSC"});
    userSettings().setValue(form.columnWidths.key, QStringList{"q0=60", "cop=0", "model=1000000"});
    userSettings().setValue(form.keys.key, QStringList{"lstModels=a=b;c"});
    const FormState state = keptFormState("frmSelection");
    EXPECT_EQ(state.inputs.values, (std::map<std::string, double>{{"txtTED", -12.5}}));
    EXPECT_EQ(state.columnWidths, (QHash<QString, int>{{"q0", 60}}));
    EXPECT_EQ(state.inputs.keys, (std::map<std::string, std::string>{{"lstModels", "a=b;c"}}));
}

// What 1.0.0 of the first day stored: flags in place of the names of the leaders.
TEST_F(SettingsTest, FlagsOfMidTemperaturesBecomeLeaders) {
    const settings::OfForm form("frmSelection");
    const QString flag = form.group + "MidLeadsCondensation";
    userSettings().setValue(flag, true);
    userSettings().setValue(form.group + "MidLeadsEvaporation", false);
    migrateSettings();
    EXPECT_EQ(keptFormState("frmSelection").inputs.leaders.condensing(), Input::condensingMid);
    EXPECT_EQ(keptFormState("frmSelection").inputs.leaders.evaporating(), Input::evaporatingDew);
    EXPECT_FALSE(userSettings().contains(flag));
    // Once, and never over what a later version stored.
    userSettings().setValue(flag, true);
    form.leaders.keep({"ted", "tcd"});
    for (const int version : {0, 1, 2, 3, 4}) {
        settings::version.keep(version);
        migrateSettings();
        EXPECT_EQ(form.leaders.value(), QStringList({"ted", "tcd"}));
        EXPECT_EQ(settings::version.value(), version == 4 ? 4 : 3);
    }
}

TEST_F(SettingsTest, TheHeightOfTheListIsThatOfThePagesThatNeedNone) {
    const QString old = QStringLiteral("Windows/ListHeight");
    userSettings().setValue(old, 250);
    settings::version.keep(1);
    migrateSettings();
    const auto heights = settings::listHeights.value();
    EXPECT_EQ(heights.value("messages"), 250);
    EXPECT_EQ(heights.value("dimension"), 250);
    EXPECT_FALSE(heights.contains("limits"));
    EXPECT_FALSE(userSettings().contains(old));
    // Never what a form does not take.
    userSettings().remove(settings::listHeights.key);
    userSettings().setValue(old, 20);
    settings::version.keep(1);
    migrateSettings();
    EXPECT_TRUE(settings::listHeights.value().isEmpty());
}

TEST_F(SettingsTest, TheRatingTablesOfTheReportAreOneOfItsSections) {
    const QString old = QStringLiteral("Report/RatingTables");
    const auto migrated = [&old](int tables) {
        userSettings().setValue(old, tables);
        settings::version.keep(2);
        migrateSettings();
        EXPECT_FALSE(userSettings().contains(old));
        return settings::reportSections.value();
    };
    EXPECT_EQ(migrated(0), QStringList());
    EXPECT_EQ(migrated(1), QStringList("rating"));
    // Who chose sections since then keeps them.
    settings::reportSections.keep({"cycle"});
    EXPECT_EQ(migrated(1), QStringList("cycle"));
}
