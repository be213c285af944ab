#include "controls/Splitter.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QListWidget>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

using namespace marvello;

namespace {

/// A splitter of 405 by 300 with a bar of 5 and two named halves, so that positions go from 0 to 400.
class SplitterTest : public testing::Test {
  protected:
    void SetUp() override {
        splitter.SetMinSize1(20);
        splitter.SetMinSize2(30);
        splitter.SetChild1("FRAME1");
        splitter.SetChild2("frame2");
        splitter.resize(405, 300);
        splitter.SetSplitterPos(100);
        splitter.show();
    }
    QWidget* half(const char* name) {
        auto* made = new QWidget(&splitter);
        made->setObjectName(name);
        return made;
    }
    void drag(int from, int to) {
        QTest::mousePress(&splitter, Qt::LeftButton, {}, {from, 50});
        QTest::mouseMove(&splitter, {to, 50});
        QMouseEvent move(QEvent::MouseMove, QPointF(to, 50), splitter.mapToGlobal(QPointF(to, 50)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&splitter, &move);
    }

    Splitter splitter;
    QWidget* first = half("Frame1");
    QWidget* second = half("Frame2");
};

}  // namespace

TEST_F(SplitterTest, PlacesTheNamedHalves) {
    EXPECT_EQ(first->geometry(), QRect(0, 0, 100, 300));
    EXPECT_EQ(second->geometry(), QRect(105, 0, 300, 300));
    splitter.SetChild2("nobody");
    EXPECT_EQ(first->width(), 100);
}

TEST_F(SplitterTest, BringsAPositionIntoItsBounds) {
    splitter.SetSplitterPos(5);
    EXPECT_EQ(splitter.CurrSplitterPos(), 20);
    splitter.SetSplitterPos(399);
    EXPECT_EQ(splitter.CurrSplitterPos(), 370);
    splitter.SetMaxSize(200);
    EXPECT_EQ(splitter.CurrSplitterPos(), 200);
    splitter.setProperty("MaxSizeAppliesTo", 1);
    splitter.SetSplitterPos(50);
    EXPECT_EQ(splitter.CurrSplitterPos(), 200);  // 400 - 200
}

TEST_F(SplitterTest, TheFirstHalfWinsWhereBothCannotHold) {
    splitter.SetMinSize1(100);
    splitter.resize(110, 300);
    EXPECT_EQ(splitter.CurrSplitterPos(), 100);
}

TEST_F(SplitterTest, KeepsPositionOrRatioAcrossAResize) {
    splitter.resize(805, 300);
    EXPECT_EQ(splitter.CurrSplitterPos(), 100);
    splitter.setProperty("Maintain", 1);
    splitter.SetRatioFromTop(0.5F);
    splitter.resize(600, 300);
    EXPECT_EQ(splitter.CurrSplitterPos(), 300);
}

TEST_F(SplitterTest, ADragMovesTheBarAndEscapeTakesItBack) {
    drag(102, 152);
    EXPECT_EQ(first->width(), 150);
    QTest::mouseRelease(&splitter, Qt::LeftButton, {}, {152, 50});
    EXPECT_EQ(splitter.SplitterPos(), 150);
    drag(152, 252);
    QTest::keyClick(&splitter, Qt::Key_Escape);
    EXPECT_EQ(splitter.CurrSplitterPos(), 150);
    splitter.setProperty("AllowResize", false);
    drag(152, 252);
    EXPECT_EQ(splitter.CurrSplitterPos(), 150);
}

TEST_F(SplitterTest, OnlyTheBarFollowsADragThatIsNotLive) {
    splitter.setProperty("LiveUpdate", false);
    splitter.setProperty("SplitterDragColor", QColor(200, 0, 100));
    first->setAutoFillBackground(true);
    second->setAutoFillBackground(true);
    drag(102, 252);
    EXPECT_EQ(first->width(), 100);
    EXPECT_EQ(splitter.grab().toImage().pixelColor(252, 150), QColor(200, 0, 100));
    QTest::mouseRelease(&splitter, Qt::LeftButton, {}, {252, 50});
    EXPECT_EQ(first->width(), 250);
    EXPECT_NE(splitter.grab().toImage().pixelColor(252, 150), QColor(200, 0, 100));
}

TEST_F(SplitterTest, ADragEndsWhereTheMouseLeavesTheWindow) {
    QSignalSpy moved(&splitter, &Splitter::moved);
    QCursor::setPos(splitter.mapToGlobal(QPoint(152, 50)));
    drag(102, 152);
    QTest::qWait(250);
    EXPECT_EQ(moved.count(), 0);
    QCursor::setPos(splitter.mapToGlobal(QPoint(900, 50)));
    ASSERT_TRUE(moved.wait(1000));
    EXPECT_EQ(splitter.SplitterPos(), 150);

    splitter.setProperty("ClipCursor", true);
    drag(152, 600);
    EXPECT_EQ(QCursor::pos(), splitter.mapToGlobal(QPoint(404, 50))) << "kept inside";
    QTest::mouseRelease(&splitter, Qt::LeftButton, {}, {404, 50});
    EXPECT_EQ(splitter.SplitterPos(), 370);
}

TEST_F(SplitterTest, AListHidesItsBorderUnderTheBar) {
    auto* list = new QListWidget(&splitter);
    list->setObjectName("list");
    splitter.SetChild2("list");
    EXPECT_EQ(list->geometry(), QRect(104, -1, 302, 302));
}
