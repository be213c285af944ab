#include "workspace/FramePlace.h"

#include <gtest/gtest.h>

#include <QDataStream>
#include <QGuiApplication>
#include <QIODevice>
#include <QScreen>
#include <QTest>
#include <QWidget>
#include <climits>

using namespace marvello;

namespace {

/// The bytes of QWidget::saveGeometry for a window at a place.
QByteArray keptPlace(const QRect& place, bool maximized = false) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_0);
    stream << quint32(0x1D9D0CB) << quint16(3) << quint16(0) << place << place << qint32(0)
           << quint8(maximized) << quint8(0) << qint32(QGuiApplication::primaryScreen()->geometry().width())
           << place;
    return bytes;
}

}  // namespace

TEST(FramePlace, FitsARectangleWithTheSmallestMove) {
    const QRect room(100, 50, 1000, 600);
    EXPECT_EQ(fittedInto({200, 100, 300, 200}, room), QRect(200, 100, 300, 200));  // fits: stays
    EXPECT_EQ(fittedInto({0, 0, 300, 200}, room), QRect(100, 50, 300, 200));
    EXPECT_EQ(fittedInto({1000, 600, 300, 200}, room), QRect(800, 450, 300, 200));
    EXPECT_EQ(fittedInto({-50, 60, 5000, 200}, room), QRect(100, 60, 1000, 200));
}

TEST(FramePlace, LiesOnAScreenWhateverTheSettingsHold) {
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    const QList<QByteArray> kept{{},
                                 "damaged",
                                 keptPlace({0, 0, 600, 400}).left(30),
                                 keptPlace({0, 0, 100'000'000, 100'000'000}),
                                 keptPlace({INT_MIN, INT_MIN, INT_MAX, INT_MAX}),
                                 keptPlace(QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX))),
                                 keptPlace({90'000, 90'000, 600, 400}),
                                 keptPlace({-90'000, 10, 60'000, 400}, true),
                                 keptPlace({10, 10, -5, 0})};
    for (const QByteArray& bytes : kept) {
        SCOPED_TRACE(bytes.toHex().toStdString());
        QWidget window;
        window.setMinimumSize(300, 200);
        placeFrame(window, bytes);
        EXPECT_TRUE(available.contains(window.isMaximized() ? window.normalGeometry() : window.geometry()));
        EXPECT_GE(window.width(), 300);
    }
}

TEST(FramePlace, KeepsASoundPlaceAndThatItWasMaximized) {
    const QPoint corner = QGuiApplication::primaryScreen()->availableGeometry().topLeft() + QPoint(30, 60);
    for (const bool maximized : {false, true}) {
        QWidget window;
        placeFrame(window, keptPlace(QRect(corner, QSize(500, 400)), maximized));
        EXPECT_EQ(window.isMaximized(), maximized);
        if (!maximized) {
            EXPECT_EQ(window.geometry(), QRect(corner, QSize(500, 400)));
        }
    }
}
