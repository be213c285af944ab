#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>

#include "controls/GraphLegend.h"
#include "controls/ctlGraph.h"

using namespace marvello;

namespace {

std::shared_ptr<clsLimit> limit(int type, const std::string& points) {
    auto made = std::make_shared<clsLimit>();
    made->setType(type);
    made->Points = parsePoints(points);
    return made;
}

clsLimits limitsOf(const std::vector<std::shared_ptr<clsLimit>>& all) {
    clsLimits limits;
    for (const auto& each : all) limits.add(each);
    return limits;
}

/// A graph of 600 x 600 pixels, whose scale of -30 to 30 by 70 to 10 has ten pixels for each degree.
class GraphTest : public testing::Test {
  protected:
    GraphTest() { graph.resize(600, 600); }

    void show(const std::vector<std::shared_ptr<clsLimit>>& all) { graph.SetLimits(limitsOf(all)); }
    QImage picture() { return graph.grab().toImage(); }
    static QPoint pixel(double x, double y) {
        return {static_cast<int>((x + 30) * 10), static_cast<int>((70 - y) * 10)};
    }
    QString hover(const QPoint& at) {
        QMouseEvent move(QEvent::MouseMove, at, graph.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(&graph, &move);
        const auto* label = graph.findChild<QLabel*>("lblXY");
        return label->isVisibleTo(&graph) ? label->text() : QString();
    }

    const std::shared_ptr<clsLimit> over = limit(-1, "-20,20;20,20;20,60;-20,60;-20,20");
    const std::shared_ptr<clsLimit> application = limit(0, "-10,30;10,30;10,50;-10,50;-10,30");
    ctlGraph graph;
};

TEST_F(GraphTest, CornersAreRoundedToTens) {
    const auto cornersOf = [&](const std::vector<std::shared_ptr<clsLimit>>& all) {
        show(all);
        const GraphScale& found = graph.drawing().corners();
        return std::vector{found.left, found.top, found.right, found.bottom};
    };
    // The last digit is taken away: -35 - 5, 68 - 8, 18 - 8, 21 - 1.
    EXPECT_EQ(cornersOf({limit(0, "0,30;1,31;1,32;0,30"), limit(-1, "-35,21;18,21;18,68;-35,21")}),
              (std::vector<double>{-40, 60, 10, 20}));
    // A fraction takes its last printed digit: -12.5 - 5, 49.4 - 4, 7.2 - 2, 0.1 + 0.2 shown as 0.3.
    EXPECT_EQ(cornersOf({limit(0, "-12.5,0.30000000000000004;7.2,1;7.2,49.4;-12.5,1")}),
              (std::vector<double>{-17.5, 49.4 - 4, 7.2 - 2, 0.30000000000000004 - 3}));
    // Without an over or application limit the default stands.
    EXPECT_EQ(cornersOf({limit(3, "-35,21;18,21;18,68;-35,21")}), (std::vector<double>{-20, 30, -10, 20}));
    EXPECT_EQ(cornersOf({}), (std::vector<double>{-20, 30, -10, 20}));
    show({over});
    EXPECT_EQ(graph.ScaleLeft(), -30);
    EXPECT_EQ(graph.ScaleTop(), 70);
    EXPECT_EQ(graph.ScaleWidth(), 60);
    EXPECT_EQ(graph.ScaleHeight(), -60);
    graph.ScaleGraph(-5, 50, 5, 20);
    EXPECT_EQ(graph.property("ScaleHeight").toDouble(), -30);
}

TEST_F(GraphTest, TheWorkingEnvelopeEndsOnTop) {
    // All four share the edge at 40 degrees; what is drawn last is seen.
    const std::string line = "-10,40;10,40;10,45;-10,45;-10,40";
    const auto colourOfEdge = [&](const std::vector<int>& types) {
        std::vector<std::shared_ptr<clsLimit>> all{over};
        for (const int type : types) all.push_back(limit(type, line));
        show(all);
        return picture().pixelColor(pixel(-3, 40));
    };
    EXPECT_EQ(colourOfEdge({0, 3, 2}), QColor(0, 0, 0));
    EXPECT_EQ(colourOfEdge({3, 2}), QColor(255, 0, 255));
    EXPECT_EQ(colourOfEdge({2, 7}), QColor(0, 192, 0));
    EXPECT_EQ(colourOfEdge({7, 8}), QColor(0, 192, 0));  // "H only" is not shown
}

TEST_F(GraphTest, TheGridFollowsItsProperties) {
    show({over});
    EXPECT_EQ(picture().pixelColor(pixel(-5, 37)), QColor("#E0E0E0"));
    graph.setProperty("GridVisible", false);
    graph.setProperty("BackColor", QColor("#FFFFEE"));
    EXPECT_EQ(picture().pixelColor(pixel(-5, 37)), QColor("#FFFFEE"));
    graph.setProperty("GridVisible", true);
    graph.setProperty("GridGap", 1e-12);  // too fine to be drawn, and no hang
    picture();
}

TEST_F(GraphTest, TheLabelTellsWhatLiesUnderTheMouse) {
    graph.SetPoint(clsPoint{10, 40});
    graph.SetPointText("Point Ted/Tcd");
    show({limit(6, "-15,45;15,45;15,25;-15,25;-15,45"), over, application});
    EXPECT_EQ(hover(pixel(-10, 40)), "Application limit: (-10.00,40.00)");
    EXPECT_EQ(hover(pixel(5, 60)), "Over limit: (5.00,60.00)");
    // On the point and a limit at once it is the point; a line without a description has its caption.
    EXPECT_EQ(hover(pixel(10, 40)), "Point Ted/Tcd: (10.00,40.00)");
    EXPECT_EQ(hover(pixel(0, 45)), "75%: (0.00,45.00)");
    EXPECT_EQ(hover(pixel(5, 33)), "(5.00,33.00)");
    // It stays within the graph at the edges, and goes when the mouse leaves.
    hover({599, 599});
    EXPECT_TRUE(graph.rect().contains(graph.findChild<QLabel*>("lblXY")->geometry()));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&graph, &leave);
    EXPECT_FALSE(graph.findChild<QLabel*>("lblXY")->isVisibleTo(&graph));
    graph.Clear();
    EXPECT_EQ(graph.Count(), 0);
    EXPECT_FALSE(graph.Point());
    EXPECT_FALSE(hover(pixel(0, 45)).contains('%'));
}

TEST_F(GraphTest, ThePictureIsForPaper) {
    graph.setProperty("BackColor", QColor("#123456"));
    show({over, application});
    const QImage image = graph.PictureImage();
    EXPECT_EQ(image.size(), QSize(1875, 1875));  // 600 pixels are 6.25 inches, 300 to an inch
    EXPECT_EQ(image.pixelColor(image.rect().center() + QPoint(20, 20)), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor((pixel(-10, 33) * 3.125)), QColor(Qt::black));
    graph.resize(0, 0);
    EXPECT_TRUE(graph.PictureImage().isNull());
}

TEST_F(GraphTest, TheLegendNamesWhatIsSeen) {
    std::vector<std::string> names;
    const clsLimits limits =
        limitsOf({limit(7, "0,0;1,0;1,1;0,0"), limit(4, "0,0;1,0;1,1;0,0"), limit(8, "0,0;1,0;1,1;0,0"),
                  limit(1, "0,0;1,0;1,1;0,0"), over, application});
    for (const clsLimit* entry : GraphLegend::entries(limits)) names.push_back(entry->Description);
    EXPECT_EQ(names,
              (std::vector<std::string>{"Application limit", "Over limit", "Iniection limit", "Oil Filter"}));
}

}  // namespace

TEST_F(GraphTest, NoCaptionIsOnTopOfAnother) {
    // Steps of capacity that share their upper line, in large and in small pictures.
    for (const int side : {600, 260, 140}) {
        EnvelopeDrawing drawing;
        for (const int type : {4, 5, 6}) drawing.limits.add(limit(type, "-20,20;20,20;20,60;-20,60;-20,20"));
        drawing.limits.add(over);
        drawing.fitScale();
        const auto captions = drawing.captions(QRectF(0, 0, side, side));
        ASSERT_EQ(captions.size(), 3U);
        for (std::size_t i = 0; i < captions.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(captions[i].room.intersects(captions[j].room)) << side;
    }
}
