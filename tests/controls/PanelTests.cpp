#include <gtest/gtest.h>

#include "controls/ContainerOld.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/Zoom.h"
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
    // A length on the left.
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

TEST(Zoom, KeepsThePointUnderTheMouseAndTheRoomCovered) {
    const QRectF room(10, 20, 400, 300);
    const QPointF mouse(110, 95);  // a quarter from the left and the top
    Zoom zoom;
    EXPECT_EQ(zoom.placeIn(room), room);
    zoom.zoom(3, mouse, room);
    const QRectF place = zoom.placeIn(room);
    EXPECT_NEAR(place.width(), 400 * 1.25 * 1.25 * 1.25, 1e-9);
    EXPECT_NEAR((mouse.x() - place.left()) / place.width(), 0.25, 1e-12);
    EXPECT_NEAR((mouse.y() - place.top()) / place.height(), 0.25, 1e-12);
    zoom.moveBy({1e6, -1e6}, room);
    EXPECT_NEAR(zoom.placeIn(room).left(), room.left(), 1e-9);
    EXPECT_NEAR(zoom.placeIn(room).bottom(), room.bottom(), 1e-9);
    zoom.zoom(100, mouse, room);
    EXPECT_EQ(zoom.factor(), Zoom::maxFactor);
    zoom.zoom(-100, mouse, room);
    EXPECT_TRUE(zoom.isFitted());
    EXPECT_EQ(zoom.placeIn(room), room);
}
