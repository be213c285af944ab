#include <gmock/gmock.h>

#include <QImage>
#include <QRect>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/Metafile.h"
#include "demo/pictures/Bodies.h"
#include "demo/pictures/Design.h"
#include "demo/pictures/DimensionDrawing.h"
#include "demo/pictures/Photo.h"
#include "demo/pictures/WmfWriter.h"
#include "tests/support/TemporaryFolder.h"

namespace marvello::pictures {
namespace {

using testing::ElementsAre;

/// The part of the picture with pixels that are darker than the floor: paint and rails.
QRect darkPart(const QImage& photo) {
    QRect part;
    for (int y = 0; y < photo.height(); ++y)
        for (int x = 0; x < photo.width(); ++x)
            if (qGray(photo.pixel(x, y)) < 120) part |= QRect(x, y, 1, 1);
    return part;
}

/// One of each way of building: feet and rails, ribs along and around, a lying and an upright separator, a
/// motor, a converter and an open drive.
TEST(PicturePhoto, ShowsTheMachineInTheMiddleOfALightFloor) {
    const test::TemporaryFolder folder("marvello-photos");
    const auto taken = [&](const Motif& motif) {
        takePhoto(motif, folder / "photo.jpg", {87, 60}, true);
        return QImage(QString::fromStdString((folder / "photo.jpg").string()));
    };
    for (const auto& series : readBodies(MARVELLO_SOURCE_FOLDER "/demo/generate/plans")) {
        if (!std::set<std::string>{"TK-D", "MV-A", "GH", "DZ", "NL-H"}.contains(series.serie)) continue;
        const Motif motif{series.serie, designOf(series.serie, series.typical())};
        const QImage photo = taken(motif);
        ASSERT_EQ(photo.size(), QSize(87, 60)) << motif.name;
        const QRect machine = darkPart(photo);
        EXPECT_NEAR(std::max(machine.width() / 87.0, machine.height() / 60.0), 0.84, 0.06) << motif.name;
        EXPECT_NEAR(machine.center().x(), 43, 3) << motif.name;
        EXPECT_NEAR(machine.center().y(), 30, 6) << motif.name;
        // The floor is light all around, and in the shade below the machine still no hole.
        for (const QPoint& corner : {QPoint(0, 0), QPoint(86, 0), QPoint(0, 59), QPoint(86, 59)})
            EXPECT_GT(qGray(photo.pixel(corner)), 200) << motif.name;
        int shade = 255;
        for (int x = 30; x < 60; ++x) shade = std::min(shade, qGray(photo.pixel(x, machine.bottom() - 3)));
        EXPECT_LT(shade, qGray(photo.pixel(0, 59)) - 15) << motif.name;
        if (motif.name == "NL-H") {
            EXPECT_EQ(photo, taken(motif));
        }
    }
}

TEST(PicturePhoto, OfAStandInHasNoColourButTheEmblem) {
    const test::TemporaryFolder folder("marvello-photos");
    const auto series = readBodies(MARVELLO_SOURCE_FOLDER "/demo/generate/plans").front();
    takePhoto({"Kestrom", designOf("TK-A", series.typical()), true}, folder / "photo.jpg", {87, 60}, true);
    const QImage photo(QString::fromStdString((folder / "photo.jpg").string()));
    QRect coloured;
    for (int y = 0; y < photo.height(); ++y)
        for (int x = 0; x < photo.width(); ++x)
            if (photo.pixelColor(x, y).hsvSaturation() > 120) coloured |= QRect(x, y, 1, 1);
    EXPECT_TRUE(QRect(12, 28, 30, 28).contains(coloured)) << coloured.x() << ' ' << coloured.right();
    EXPECT_GT(coloured.width(), 8);
}

TEST(PictureBodies, GoToTheModelsThatTheyAreLargeEnoughFor) {
    const test::TemporaryFolder folder("marvello-bodies");
    const auto write = [&](const char* name, const std::string& text) {
        std::ofstream(folder / name) << text;
    };
    const std::string head =
        "serie,body,displacement_to,length,width,height,feet_length,feet_width,suction,discharge,"
        "economizer\n";
    write("series.csv", "serie\nTK-A\n");
    write("bodies.csv", head +
                            "TK-A,L,300,1200,500,600,800,400,DN 100,\"1 "
                            "5/8\"\"\",\nTK-A,S,190,1000,450,550,700,350,\"2 1/8\"\"\",\"1 3/8\"\"\",\n");
    write("models.csv", "serie,model,displacement\nTK-A,a,120\nTK-A,b,190\nTK-A,c,190.5\n");
    const auto series = readBodies(folder);
    ASSERT_EQ(series.size(), 1U);
    ASSERT_EQ(series[0].bodies.size(), 2U);
    EXPECT_THAT(series[0].bodies[0].models, ElementsAre("a", "b"));
    EXPECT_THAT(series[0].bodies[1].models, ElementsAre("c"));
    write("models.csv", "serie,model,displacement\nTK-A,d,301\n");
    EXPECT_THROW(readBodies(folder), std::runtime_error);
    write("models.csv", "serie,model,displacement\nTK-Z,d,100\n");
    EXPECT_THROW(readBodies(folder), std::runtime_error);
}

TEST(PictureDesign, KnowsTheSizesOfConnections) {
    EXPECT_DOUBLE_EQ(connectionDiameter("2 1/8\""), 53.975);
    EXPECT_DOUBLE_EQ(connectionDiameter("7/8\""), 22.225);
    EXPECT_DOUBLE_EQ(connectionDiameter("DN 125"), 139.7);
    EXPECT_EQ(connectionDiameter(""), 0);
    for (const char* text : {"2 1/8", "1/0\"", "DN 90", "big", "-1/8\""})
        EXPECT_THROW(connectionDiameter(text), std::runtime_error) << text;
}

TEST(PictureMetafile, IsWrittenByTheFormat) {
    WmfWriter writer(100, 50);
    writer.setLine(WmfWriter::Line::dashDotted, 0.5, 0x123456);
    writer.line({1, 2}, {3, 4});
    const auto bytes = writer.finish();
    const auto word = [&](std::size_t at) { return bytes.at(at) | bytes.at(at + 1) << 8; };
    EXPECT_EQ(word(0), 0xCDD7);
    EXPECT_EQ(word(10), 5000);  // 50 units a mm
    EXPECT_EQ(word(12), 2500);
    EXPECT_EQ(word(14), 1270);
    EXPECT_EQ(word(20), 0xCDD7 ^ 0x9AC6 ^ 5000 ^ 2500 ^ 1270);
    EXPECT_EQ(static_cast<std::size_t>(word(28)), (bytes.size() - 22) / 2);
    EXPECT_EQ(word(32), 1);  // objects
    EXPECT_EQ(word(34), 8);  // the pen is the longest record
    // Pen, selection, two places: the last four records before the end.
    std::vector<int> last;
    for (std::size_t at = bytes.size() - 2 * (8 + 4 + 5 + 5 + 3); at < bytes.size(); at += 2)
        last.push_back(word(at));
    EXPECT_THAT(last, ElementsAre(8, 0, 0x02FA, 3, 25, 0, 0x3412, 0x56, 4, 0, 0x012D, 0, 5, 0, 0x0214, 100,
                                  50, 5, 0, 0x0213, 200, 150, 3, 0, 0));
    EXPECT_THROW(writer.line({0, 0}, {1000, 0}), std::invalid_argument);
}

TEST(PictureDrawing, OfOneBodyHasItsLengthsAtTheLines) {
    const Body body{"B", 200, 1085, 500, 590, 740, 380, "2 1/8\"", "1 3/8\"", "", {"120", "140"}};
    const auto bytes = dimensionDrawing({"TK-A", {body}});
    const auto picture = Metafile::fromBytes(
        QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())));
    for (const char* length : {"1085", "500", "590", "740", "380"})
        EXPECT_EQ(picture.texts().count(length), 2) << length;  // at its line and in the table
}

}  // namespace
}  // namespace marvello::pictures
