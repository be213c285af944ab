#include <gtest/gtest.h>

#include "controls/ContainerOld.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/ctlRoundRectangle.h"

#include <QApplication>
#include <QMenu>
#include <QTest>

using namespace marvello;

TEST(RoundRectangle, PaintsItsGradientWithinTheRoundedPanel) {
    ctlRoundRectangle panel;
    panel.resize(101, 60);
    panel.setProperty("CornerSize", 30);
    panel.setProperty("RectInteriorColor", QColor(0, 0, 255));
    panel.setProperty("RectBorderColor", QColor(255, 255, 0));
    const auto at = [&](int x, int y) { return panel.Image().pixelColor(x, y); };
    EXPECT_EQ(at(0, 0).alpha(), 0);
    EXPECT_EQ(at(50, 0), QColor(255, 255, 0));
    EXPECT_EQ(at(50, 30), QColor(0, 0, 255));

    panel.setProperty("Gradient", true);
    panel.setProperty("GradientColorStart", QColor(0, 0, 0));
    panel.setProperty("GradientColorStop", QColor(200, 0, 0));
    panel.setProperty("GradientSizeMode", 1);
    panel.setProperty("GradientSizeValue", 50);
    // Half of the height, closed by a line; from black at the top to red at the line.
    EXPECT_NEAR(at(50, 15).red(), 100, 5);
    EXPECT_EQ(at(50, 30), QColor(255, 255, 0));
    EXPECT_EQ(at(50, 45), QColor(0, 0, 255));
    panel.setProperty("GradientFillRect", 0);
    EXPECT_NEAR(at(25, 10).red(), 50, 5);
    EXPECT_NEAR(at(75, 20).red(), 150, 5);
    // A length at the left.
    panel.setProperty("GradientSizeMode", 0);
    panel.setProperty("GradientSizeValue", 20);
    panel.setProperty("GradientPosition", 1);
    EXPECT_NEAR(at(10, 40).red(), 100, 8);
    EXPECT_EQ(at(20, 40), QColor(255, 255, 0));
    EXPECT_EQ(at(30, 40), QColor(0, 0, 255));
    panel.resize(0, 0);
    EXPECT_TRUE(panel.Image().isNull());
}

TEST(ContainerOld, IsThePanelUnderItsOlderNames) {
    ContainerOld panel;
    panel.resize(200, 100);
    panel.setProperty("BorderColor", QColor(1, 2, 3));
    panel.setProperty("ForeColor", QColor(4, 5, 6));
    panel.setProperty("BorderVisible", true);
    EXPECT_EQ(panel.property("BorderTopColor").value<QColor>(), QColor(1, 2, 3));
    EXPECT_EQ(panel.CaptionForeColor(), QColor(4, 5, 6));
    EXPECT_EQ(panel.property("InternalWidth").toInt(), 198);
    EXPECT_EQ(panel.property("InternalTop").toInt(), 1 + Container::titleHeight);
}

TEST(LinkTest, PassesClicksAndEnterOn) {
    Link link("www.kestrom.example");
    int clicks = 0;
    QObject::connect(&link, &Link::clicked, [&] { ++clicks; });
    QTest::mouseClick(&link, Qt::LeftButton);
    QTest::keyClick(&link, Qt::Key_Return);
    QTest::keyClick(&link, Qt::Key_Space);
    EXPECT_EQ(clicks, 3);
    link.setEnabled(false);
    QTest::mouseClick(&link, Qt::LeftButton);
    EXPECT_EQ(clicks, 3);
}

TEST(Look, GivesItsFontToWhatTheDesktopHasFontsForToo) {
    // As a theme of the desktop does.
    QApplication::setFont(QFont("Courier", 20), "QMenu");
    Look::install(*qApp, Look::light());
    QMenu menu;
    menu.addAction("New");
    menu.ensurePolished();
    EXPECT_EQ(menu.font().families().front(), lookFont().families().front());
    EXPECT_EQ(menu.font().pixelSize(), lookFont().pixelSize());
}
