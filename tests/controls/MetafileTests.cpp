// Hand-made metafiles: their texts and sizes, and what is broken. What they draw is among the pictures.
#include "controls/Metafile.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <random>
#include <vector>

#include "tests/support/MetafileBytes.h"

using marvello::Metafile;

namespace {

using File = marvello::testing::MetafileBytes;  // 200 x 100 units, 50.8 x 25.4 mm
using Words = File::Words;

constexpr auto createPen = File::createPen, createFont = File::createFont, selectObject = File::selectObject;
constexpr std::uint16_t deleteObject = 0x01F0, rectangle = 0x041B, polygon = 0x0324, polyPolygon = 0x0538,
                        windowExtent = 0x020C, lineTo = 0x0213, moveTo = 0x0214, textOut = 0x0521,
                        extTextOut = 0x0A32, restoreState = 0x0127, arc = 0x0817;

constexpr QRgb red = 0xFFFF0000, white = 0xFFFFFFFF;

std::uint16_t minus(int value) { return static_cast<std::uint16_t>(-value); }

QImage drawn(const QByteArray& bytes, QSize size = {200, 100}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    Metafile::fromBytes(bytes).draw(painter, image.rect());
    return image;
}

}  // namespace

TEST(Metafile, FillsShapesAndKeepsItsAspect) {
    const File file = File().brush(0x00FF, 1).add(rectangle, {80, 150, 20, 50});  // bottom, right, top, left
    const QImage image = drawn(file.bytes(), {400, 400});                         // 400 x 200 in its middle
    EXPECT_EQ(image.pixel(200, 200), red);
    EXPECT_EQ(image.pixel(110, 150), red);  // the corner lies at 100, 140
    EXPECT_EQ(image.pixel(90, 150), white);
    EXPECT_EQ(image.pixel(110, 130), white);
    EXPECT_EQ(Metafile::fromBytes(file.bytes()).size(), QSizeF(50.8, 25.4));
}

TEST(Metafile, ReadsAndDrawsTexts) {
    File file;
    file.add(createFont, {0xFFE2, 0, 0, 0, 400, 0, 0, 0, 0, 'A'}).add(selectObject, {1});
    file.add(0x012E, {6 | 24})
        .add(textOut, {3, 'H' | 'H' << 8, 0x80, 60, 100});               // "HH€" around 100 on line 60
    file.add(extTextOut, {90, 10, 2, 4, 0, 0, 50, 50, 'o' | 'k' << 8});  // clipped: a rectangle first
    const auto picture = Metafile::fromBytes(file.bytes());
    EXPECT_EQ(picture.texts(), QStringList({QString::fromUtf8("HH€"), "ok"}));
}

TEST(Metafile, IsNoPictureWhenCutOrWrong) {
    const QByteArray whole = File().brush(0x00FF, 1).add(rectangle, {80, 150, 20, 50}).bytes();
    EXPECT_FALSE(Metafile::fromBytes(whole).isNull());
    EXPECT_FALSE(Metafile::fromBytes(whole + "rest").isNull());
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_TRUE(Metafile::fromBytes(whole.left(length)).isNull()) << length;
    QByteArray other = whole;
    other[12] = 1;  // the checksum no longer fits
    EXPECT_TRUE(Metafile::fromBytes(other).isNull());
    // Records of no size, one that ends in itself, one beyond the end.
    for (const auto size : std::initializer_list<std::uint32_t>{0, 2, 1000, 0x7FFFFFFF, 0xFFFFFFFF}) {
        QByteArray record = File().unended();
        for (int i = 0; i < 4; ++i) record.append(static_cast<char>(size >> 8 * i & 0xFF));
        record.append(QByteArray(10, 0));
        EXPECT_TRUE(Metafile::fromBytes(record).isNull()) << size;
    }
    EXPECT_TRUE(Metafile::load("/no/such/file.wmf").isNull());
}

TEST(Metafile, PassesOverWhatDoesNotFitAndDrawsTheRest) {
    File file;
    file.brush(0x00FF, 1);
    file.add(selectObject, {999})
        .add(deleteObject, {0xFFFF})
        .add(restoreState, {0x8000})
        .add(restoreState, {7});
    file.add(polygon, {60000, 1, 1, 2, 2}).add(polygon, {0}).add(polygon, {}).add(polyPolygon, {65535, 3, 1});
    file.add(polyPolygon, {1, 30000, 5, 5}).add(textOut, {65535, 'A'}).add(extTextOut, {1, 1, 9, 6, 0});
    file.add(windowExtent, {0, 0}).add(arc, {1, 2}).add(arc, {0, 0, 0, 0, 5, 5, 5, 5}).add(createPen, {});
    file.add(rectangle, {80, 150, 20, 50});
    EXPECT_EQ(drawn(file.bytes()).pixel(100, 50), red);
}

TEST(Metafile, IsDrawnInShortTimeWhateverItSays) {
    // A window of one unit blows all coordinates up; thousands of long dashed lines and of huge letters.
    File file;
    file.add(windowExtent, {1, 1}).add(createPen, {3, 1, 0, 0, 0}).add(selectObject, {1});
    file.add(createFont, {0x8000, 0, 450, 0, 900, 0, 0, 0, 0, 'A'}).add(selectObject, {2});
    Words zigzag{2000};
    for (int i = 0; i < 2000; ++i)
        zigzag.insert(zigzag.end(), {static_cast<std::uint16_t>(i % 2 == 0 ? 0x8000 : 0x7FFF),
                                     static_cast<std::uint16_t>(i)});
    for (int i = 0; i < 100; ++i) file.add(polygon, zigzag).add(lineTo, {0x7FFF, 0x8000}).add(moveTo, {0, 0});
    for (int i = 0; i < 2000; ++i) file.add(textOut, {4, 'W' | 'W' << 8, 'W' | 'W' << 8, 0, 0});
    drawn(file.bytes());
}

TEST(Metafile, LeavesOutTheTextsThatTakeLongerThanADrawingMay) {
    // Twenty times its height for each letter counts against 20,000 diagonals of 223.6: 4.472 million. A
    // thousand letters of 100 take 2 million, so that the third text has no room.
    File file;
    file.add(createFont, {minus(100), 0, 0, 0, 400, 0, 0, 0, 0, 'A'}).add(selectObject, {1});
    Words longest{1000};
    longest.insert(longest.end(), 500, 'I' | 'I' << 8);
    const auto text = [&](int count) {
        File texts = file;
        for (int i = 0; i < count; ++i) {
            Words placed = longest;
            placed.insert(placed.end(), {0, static_cast<std::uint16_t>(60 * i)});
            texts.add(0x0209, {static_cast<std::uint16_t>(i == 2 ? 0xFF : 0), 0}).add(textOut, placed);
        }
        return drawn(texts.bytes());
    };
    EXPECT_NE(text(2), text(1));
    EXPECT_EQ(text(3), text(2));
}

TEST(Metafile, SurvivesAnyChangedByte) {
    const Metafile real = Metafile::load(MARVELLO_SOURCE_FOLDER "/content/pictures/dimensions/TK-A.wmf");
    ASSERT_FALSE(real.isNull());
    std::minstd_rand random(7);
    int pictures = 0;
    for (int i = 0; i < 300; ++i) {
        QByteArray changed = real.bytes();
        // The header stays: with it most files would be refused at once.
        for (int k = 0; k < 6; ++k)
            changed[40 + static_cast<qsizetype>(random() % static_cast<unsigned>(changed.size() - 40))] =
                static_cast<char>(random());
        drawn(changed, {60, 40});
        pictures += Metafile::fromBytes(changed).isNull() ? 0 : 1;
    }
    EXPECT_GT(pictures, 30);
}
