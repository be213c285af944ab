#include <gmock/gmock.h>

#include <QImage>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/Metafile.h"
#include "demo/pictures/Bodies.h"
#include "demo/pictures/Denoise.h"
#include "demo/pictures/Design.h"
#include "demo/pictures/DimensionDrawing.h"
#include "demo/pictures/Photo.h"
#include "demo/pictures/Scene.h"
#include "demo/pictures/Shapes.h"
#include "demo/pictures/WmfWriter.h"
#include "tests/support/TemporaryFolder.h"

namespace marvello::pictures {
namespace {

using testing::ElementsAre;

struct Ball {
    Vec3 centre;
    double radius;
};

/// Where a ray first meets one of the balls, by the quadratic equation.
std::optional<double> firstMeeting(const std::vector<Ball>& balls, const Ray& ray) {
    std::optional<double> first;
    for (const Ball& ball : balls) {
        const Vec3 way = ray.origin - ball.centre;
        const double b = dot(way, ray.direction), c = dot(way, way) - ball.radius * ball.radius;
        if (b * b < c || -b - std::sqrt(b * b - c) < 0) continue;
        const double t = -b - std::sqrt(b * b - c);
        if (!first || t < *first) first = t;
    }
    return first;
}

TEST(PictureScene, FindsTheSurfacesThatEquationsGive) {
    const std::vector<Ball> balls{
        {{0, 200, 0}, 150}, {{260, 120, 60}, 90}, {{-240, 420, -80}, 30}, {{700, 300, 0}, 6}};
    Scene scene;
    for (const Ball& ball : balls) {
        const Vec3 r = Vec3{1, 1, 1} * ball.radius;
        scene.add(paints::body, {ball.centre - r, ball.centre + r},
                  [ball](Vec3 p) { return shapes::sphere(p - ball.centre, ball.radius); });
    }
    scene.finish();
    std::minstd_rand random(5);
    std::uniform_real_distribution<double> place(-300, 750), height(0, 500);
    int met = 0;
    for (int i = 0; i < 4000; ++i) {
        const Vec3 from{place(random), height(random), 1500};
        const Ray ray{from, normalized(Vec3{place(random), height(random), place(random) / 3} - from)};
        const auto expected = firstMeeting(balls, ray);
        const Scene::Hit hit = scene.trace(ray);
        // Grazing rays may fall to either side.
        auto wider = balls, narrower = balls;
        for (auto& ball : wider) ball.radius += 0.1;
        for (auto& ball : narrower) ball.radius -= 0.1;
        if (firstMeeting(wider, ray).has_value() != firstMeeting(narrower, ray).has_value()) continue;
        ASSERT_EQ(hit.found, expected.has_value()) << i;
        ASSERT_EQ(scene.isBlocked(ray, 1e5), hit.found);
        if (!hit.found) continue;
        ++met;
        if (std::abs(hit.distance - *expected) > 1) {  // passing one ball within 0.1 mm
            EXPECT_NEAR(hit.distance, *firstMeeting(wider, ray), 1);
            continue;
        }
        const bool onBall = std::any_of(balls.begin(), balls.end(), [&](const Ball& ball) {
            const Vec3 out = (hit.place - ball.centre) * (1 / ball.radius);
            return std::abs(length(out) - 1) < 0.02 && dot(out, hit.normal) > 0.99;
        });
        EXPECT_TRUE(onBall) << i;
        EXPECT_FALSE(scene.isBlocked(ray, hit.distance - 1));
    }
    EXPECT_GT(met, 500);
}

/// A step by the distance, in any direction, must not end inside.
TEST(PictureShapes, NeverTellTooGreatADistance) {
    using namespace shapes;
    const std::vector<Scene::Distance> all{
        [](Vec3 p) { return box(p, {30, 20, 10}, 4); },
        [](Vec3 p) { return cylinderX(p, -30, 50, 20, 3); },
        [](Vec3 p) { return coneY(p, -20, 40, 30, 10, 2); },
        [](Vec3 p) { return tankX(p, -60, 60, 30, 15); },
        [](Vec3 p) { return tankX(p, -60, 60, 30, 45); },
        [](Vec3 p) { return hexagonY(p, 0, 10, 12, 1); },
        [](Vec3 p) { return blend(sphere(p, 20), box(p - Vec3{25, 0, 0}, {10, 10, 10}, 1), 12); },
        [](Vec3 p) { return cut(sphere(p, 40), cylinderY(p, -50, 50, 15, 0), 3); },
        [](Vec3 p) { return box(sectorX(p, 12, 0.2) - Vec3{0, 40, 0}, {10, 5, 3}, 1); }};
    std::minstd_rand random(3);
    std::uniform_real_distribution<double> place(-90, 90), way(-1, 1);
    for (std::size_t i = 0; i < all.size(); ++i)
        for (int k = 0; k < 20000; ++k) {
            const Vec3 p{place(random), place(random), place(random)};
            const Vec3 direction = normalized({way(random), way(random), way(random)});
            const double d = all[i](p);
            if (d <= 0) continue;
            EXPECT_GT(all[i](p + direction * (0.999 * d)), -1e-6) << i;
        }
}

TEST(PictureDenoise, SmoothsGrainAndKeepsEdges) {
    constexpr int side = 32;
    std::vector<PixelSum> pixels(side * side);
    std::minstd_rand random(1);
    std::normal_distribution<double> grain(0, 0.05);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const bool right = x >= side / 2;
            pixels[static_cast<std::size_t>(y * side + x)] = {
                Vec3{1, 1, 1} * ((right ? 0.8 : 0.2) + grain(random)),
                0.0025,
                {0.5, 0.5, 0.5},
                right ? Vec3{1, 0, 0} : Vec3{0, 0, 1}};
        }
    denoise(pixels, side, side);
    double squares = 0, left = 0, right = 0;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const double light = pixels[static_cast<std::size_t>(y * side + x)].light.x;
            squares += std::pow(light - (x >= side / 2 ? 0.8 : 0.2), 2) / (side * side);
            if (x == side / 2 - 1) left += light / side;
            if (x == side / 2) right += light / side;
        }
    EXPECT_LT(std::sqrt(squares), 0.02);  // of 0.05 before
    EXPECT_NEAR(left, 0.2, 0.02);
    EXPECT_NEAR(right, 0.8, 0.02);
}

TEST(PicturePhoto, IsTheSameEachTimeAndShadesTheFloor) {
    Scene scene;
    scene.add(paints::body, {{-100, 0, -100}, {100, 200, 100}},
              [](Vec3 p) { return shapes::box(p - Vec3{0, 100, 0}, {100, 100, 100}, 10); });
    scene.finish();
    const QImage photo = photoOf(scene, {33, 17, 0.4}, {87, 60}, 8);
    EXPECT_EQ(photo, photoOf(scene, {33, 17, 0.4}, {87, 60}, 8));
    EXPECT_LT(qGray(photo.pixel(43, 30)), 150);  // the box is darker than paper
    EXPECT_GT(qGray(photo.pixel(1, 1)), 215);
    // The shadow lies on the floor beside the box, away from the main light at the left.
    int darkest = 255;
    for (int x = 56; x < 80; ++x) darkest = std::min(darkest, qGray(photo.pixel(x, 40)));
    EXPECT_LT(darkest, qGray(photo.pixel(4, 40)) - 20);
}

TEST(PictureBodies, GoToTheModelsThatTheyAreLargeEnoughFor) {
    const auto folder = test::newTemporaryFolder("marvello-bodies");
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
    std::filesystem::remove_all(folder);
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
