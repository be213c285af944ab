// The map of the graph, and how its point is moved.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QXmlStreamReader>
#include <cmath>

#include "controls/MapPainting.h"
#include "controls/MapRamp.h"
#include "controls/ctlGraph.h"

using namespace marvello;

namespace {

/// A graph of 600 x 600 pixels, whose scale of -30 to 30 by 70 to 10 has ten pixels for each degree; the
/// point is at 0/40.
class MovedPointTest : public testing::Test {
  protected:
    MovedPointTest() {
        auto over = std::make_shared<clsLimit>();
        over->setType(limitType::over);
        over->Points = parsePoints("-20,20;20,20;20,60;-20,60;-20,20");
        clsLimits limits;
        limits.add(over);
        graph.resize(600, 600);
        graph.SetLimits(limits);
        graph.SetPoint(clsPoint{0, 40});
        graph.setMovable(true);
        graph.show();
        graph.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&graph));
    }

    static QPoint pixel(double x, double y) {
        return {static_cast<int>(std::lround((x + 30) * 10)), static_cast<int>(std::lround((70 - y) * 10))};
    }
    void press(const QPoint& at) { QTest::mousePress(&graph, Qt::LeftButton, {}, at); }
    void move(const QPoint& at) {
        QMouseEvent event(QEvent::MouseMove, at, graph.mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&graph, &event);
    }
    void release(const QPoint& at) { QTest::mouseRelease(&graph, Qt::LeftButton, {}, at); }
    void key(Qt::Key pressed, Qt::KeyboardModifiers with = {}) { QTest::keyClick(&graph, pressed, with); }
    static QVariantList at(double x, double y) { return {x, y}; }
    QLabel* label() { return graph.findChild<QLabel*>("lblXY"); }

    ctlGraph graph;
    QSignalSpy moved{&graph, &ctlGraph::pointMoved};
    QSignalSpy taken{&graph, &ctlGraph::pointTaken};
    QSignalSpy back{&graph, &ctlGraph::pointPutBack};
};

EnvelopeMap someMap() {
    EnvelopeMap map{"Capacity", "kW", {}, {}};
    for (const double y : {30.0, 35.0, 40.0})
        map.lines.push_back({QString::number(y * 10), {QPolygonF{{-10, y}, {10, y}}}});
    for (double y = 25; y < 45; y += 5) {
        QPainterPath band;
        band.addRect(-10, y, 20, 5);
        map.bands.push_back(band);
    }
    return map;
}

}  // namespace

TEST_F(MovedPointTest, FollowsTheMouseInTenthsAndIsTakenByTheRelease) {
    press(pixel(0, 40) + QPoint(4, -3));
    move(pixel(5, 45) + QPoint(5, -3));  // a tenth further
    EXPECT_EQ(moved.back(), at(5.1, 45));
    EXPECT_TRUE(graph.isMoved());
    EXPECT_DOUBLE_EQ(graph.drawing().origin->Y, 40) << "the old place stays in sight";
    graph.setMovedText("5.1 / 45.0");
    EXPECT_TRUE(label()->isVisible());
    EXPECT_TRUE(graph.rect().contains(label()->geometry()));
    move({590, -400});
    EXPECT_EQ(moved.back(), at(28.6, 70)) << "it stays in the picture";
    move(pixel(6, 44));
    release(pixel(6, 44));
    ASSERT_EQ(taken.count(), 1);
    EXPECT_EQ(taken.back(), moved.back());
    EXPECT_EQ(back.count(), 0);
}

TEST_F(MovedPointTest, AClickIsNoMoveNorIsAPressElsewhere) {
    press(pixel(0, 40));
    move(pixel(0, 40) + QPoint(1, 1));
    release(pixel(0, 40) + QPoint(1, 1));
    press(pixel(10, 50));
    move(pixel(0, 40));
    release(pixel(0, 40));
    press(pixel(0, 40));
    move(pixel(5, 45));
    move(pixel(0, 40));
    release(pixel(0, 40));
    EXPECT_EQ(taken.count(), 0);
    EXPECT_FALSE(graph.isMoved());
    graph.setMovable(false);
    press(pixel(0, 40));
    move(pixel(5, 45));
    EXPECT_FALSE(graph.isMoved());
}

TEST_F(MovedPointTest, EscapePutsItBack) {
    press(pixel(0, 40));
    move(pixel(5, 45));
    key(Qt::Key_Escape);
    EXPECT_DOUBLE_EQ(graph.Point()->x, 0);
    EXPECT_EQ(back.count(), 1);
    move(pixel(7, 45));
    release(pixel(7, 45));
    EXPECT_EQ(taken.count(), 0) << "the mouse lost it";
    EXPECT_EQ(label()->text().contains("7"), label()->isVisible());
}

TEST_F(MovedPointTest, ArrowsMoveItAndEnterTakesIt) {
    graph.SetPoint(clsPoint{0.04, 40});
    graph.setFocus();
    key(Qt::Key_Return);
    EXPECT_EQ(taken.count(), 0) << "without a move";
    key(Qt::Key_Right);
    EXPECT_EQ(moved.back(), at(0.1, 40)) << "onto whole tenths";
    key(Qt::Key_Right);
    key(Qt::Key_Up, Qt::ShiftModifier);
    key(Qt::Key_Down);
    EXPECT_EQ(moved.back(), at(0.2, 40.9));
    key(Qt::Key_Enter);
    EXPECT_EQ(taken.back(), at(0.2, 40.9));
}

TEST_F(MovedPointTest, GoesBackWithTheFocus) {
    QWidget other(&graph);
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    graph.setFocus();
    key(Qt::Key_Left);
    ASSERT_TRUE(graph.isMoved());
    other.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(graph.isMoved());
    EXPECT_EQ(back.count(), 1);
}

TEST_F(MovedPointTest, AnIsolineIsNamedUnderTheMouseBelowLimitsAndPoint) {
    graph.setMap(std::make_shared<const EnvelopeMap>(someMap()));
    const auto hover = [this](const QPoint& place) {
        QMouseEvent event(QEvent::MouseMove, place, graph.mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(&graph, &event);
        return label()->text();
    };
    EXPECT_EQ(hover(pixel(5, 35)), "Capacity 350 kW: (5.00,35.00)");
    EXPECT_EQ(hover(pixel(5, 37)), "(5.00,37.00)");
    graph.SetPointText("Point");
    EXPECT_EQ(hover(pixel(0, 40)), "Point: (0.00,40.00)");
}

TEST_F(MovedPointTest, BandsAreUnderTheLimits) {
    auto map = someMap();
    graph.setMap(std::make_shared<const EnvelopeMap>(map));
    const QImage picture = graph.grab().toImage();
    for (int band = 0; band < 4; ++band)
        EXPECT_EQ(picture.pixel(pixel(-5, 27.5 + 5 * band)), mapColour(band, 4, false).rgb());
    graph.setMap(nullptr);
    EXPECT_EQ(graph.grab().toImage().pixelColor(pixel(-7, 27)), QColor(Qt::white));
    QXmlStreamReader svg(graph.pictureSvg());
    while (!svg.atEnd()) svg.readNext();
    EXPECT_FALSE(svg.hasError());
}

// CIE 15 and IEC 61966-2-1: from sRGB to lightness.
TEST(MapRamp, HasEvenStepsOfLightness) {
    const auto lightness = [](const QColor& colour) {
        const auto linear = [](double channel) {
            return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
        };
        const double y = 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
                         0.0722 * linear(colour.blueF());
        return y > 0.008856 ? 116 * std::cbrt(y) - 16 : 903.3 * y;
    };
    for (const int bands : {6, 7, 8, 9})
        for (int band = 0; band < bands; ++band) {
            const double part = static_cast<double>(band) / (bands - 1);
            EXPECT_NEAR(lightness(mapColour(band, bands, false)), 96 - 34 * part, 0.7);
            EXPECT_NEAR(lightness(mapColour(band, bands, true)), 16 + 36 * part, 0.7);
        }
}

TEST(LevelLabels, StandApartAndOnlyOnLinesThatHaveRoom) {
    EnvelopeMap map;
    for (int line = 0; line < 8; ++line)
        map.lines.push_back({"100", {QPolygonF{{0, line * 1.0}, {100, line * 1.0 + 20}}}});
    map.lines.push_back({"100", {QPolygonF{{0, 90}, {10, 90}}}});
    const auto labels = levelLabels(map, QTransform(), std::vector<QSizeF>(9, QSizeF(16, 8)));
    EXPECT_GE(labels.size(), 3U);
    for (const LevelLabel& label : labels) {
        EXPECT_LT(label.line, 8U) << "no room";
        EXPECT_NEAR(label.angle, std::atan2(20, 100) * 180 / 3.14159265, 0.1);
        for (const LevelLabel& other : labels)
            EXPECT_TRUE(&label == &other || !label.room.intersects(other.room));
    }
}
