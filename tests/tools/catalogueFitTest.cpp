#include <gmock/gmock.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/CallProgram.h"
#include "tools/catalogue/Fit.h"

using namespace marvello;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

namespace fs = std::filesystem;

/// Written out, so that the order of the coefficients counts.
double capacity(double x, double y) {
    return 90 + 3.5 * x - 0.6 * y + 0.05 * x * x - 0.02 * x * y - 0.003 * y * y + 3e-4 * x * x * x -
           2e-4 * x * x * y - 5e-5 * x * y * y + 1e-5 * y * y * y;
}
double discharge(double x, double y) {
    return 40 - 0.8 * x + 0.01 * x * x + 0.9 * y + 0.002 * y * y - 0.004 * x * y + 1e-4 * x * x * y -
           2e-5 * x * y * y + 3e-7 * x * x * y * y;
}

RatingPoints pointsAt(const std::vector<double>& xs, const std::vector<double>& ys,
                      double (*of)(double, double)) {
    RatingPoints points;
    points.columns = {{"capacity", {}}};
    for (const double x : xs)
        for (const double y : ys) {
            points.evaporating.push_back(x);
            points.condensing.push_back(y);
            points.lines.push_back(static_cast<int>(points.lines.size()) + 2);
            points.columns[0].values.push_back(of(x, y));
        }
    return points;
}

FittedColumn fitted(const RatingPoints& points, const FitRequest& request = {}) {
    Faults faults;
    const auto columns = fitColumns(points, request, "points.csv", faults);
    EXPECT_THAT(faults.lines(), IsEmpty());
    return columns.at(0);
}

void expectNear(const Coefficients& found, const Coefficients& wanted) {
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_NEAR(found[i], wanted[i], 1e-5 * std::abs(wanted[i])) << "c" << i + 1;
}

TEST(CatalogueFit, GivesBackTheSurfacesThatThePointsAreOf) {
    const auto cold = fitted(pointsAt({-20, -10, 0, 10}, {30, 40, 50, 60}, capacity));
    EXPECT_EQ(cold.type, 0);
    EXPECT_THAT(cold.warnings, IsEmpty());
    expectNear(cold.coefficients, {90, 3.5, -0.6, 0.05, -0.02, -0.003, 3e-4, -2e-4, -5e-5, 1e-5});

    FitRequest request;
    request.isDischarge = true;
    const auto hot = fitted(pointsAt({-20, -10, 0, 10}, {30, 40, 50, 60}, discharge), request);
    EXPECT_EQ(hot.type, 3);
    expectNear(hot.coefficients, {40, -0.8, 0.01, 0.9, 0.002, -0.004, 1e-4, -2e-5, 3e-7, 0});
}

TEST(CatalogueFit, TellsResidualsOfAPointThatIsOff) {
    // A plane through all points but one, which lies 10 % above; the surface cannot follow it.
    auto points = pointsAt({-20, -15, -10, -5, 0, 5}, {30, 35, 40, 45, 50},
                           [](double x, double y) { return 100 + x - y / 2; });
    points.columns[0].values[12] *= 1.1;
    const auto found = fitted(points);
    double sum = 0;
    for (const double residual : found.residuals) sum += residual * residual;
    EXPECT_LT(found.residuals[12], -0.05 * points.columns[0].values[12]);
    const std::string report = fitReport(found, points, 0);
    EXPECT_THAT(report, HasSubstr("in line 14\n"));
    EXPECT_THAT(report, HasSubstr("covers -20 to 5 evaporating, 30 to 50 condensing"));
    std::array<char, 40> rms{};
    std::snprintf(rms.data(), rms.size(), "rms %.4g (", std::sqrt(sum / 30));
    EXPECT_THAT(report, HasSubstr(rms.data()));
}

TEST(CatalogueFit, NamesTermsThatThePointsDoNotDetermine) {
    // At two evaporating temperatures a square is a line: x^2 goes, and with it all that is a multiple of it.
    const auto two = fitted(pointsAt({-10, 0}, {30, 35, 40, 45, 50, 55, 60}, capacity));
    EXPECT_THAT(two.warnings,
                ElementsAre(HasSubstr("c4 (x^2), c7 (x^3), c8 (x^2 y), left at 0: they stand at 2 "
                                      "evaporating and 7 condensing temperatures")));
    for (const std::size_t left : {3U, 6U, 7U}) EXPECT_EQ(two.coefficients[left], 0);
    for (const double residual : two.residuals) EXPECT_NEAR(residual, 0, 1e-4);

    // Three by three points carry nine terms of the ten, and are fewer than ten; x^3 and y^3 repeat x and y.
    const auto nine = fitted(pointsAt({-10, 0, 10}, {30, 40, 50}, capacity));
    EXPECT_THAT(nine.warnings, ElementsAre(StartsWith("9 points are fewer than the 10 coefficients"),
                                           HasSubstr("c7 (x^3), c10 (y^3), left at 0")));

    RatingPoints one = pointsAt({-10}, {40}, capacity);
    EXPECT_DOUBLE_EQ(fitted(one).coefficients[0], std::nearbyint(capacity(-10, 40) * 1e6) / 1e6);
}

TEST(CatalogueFit, WarnsWhereAnEnvelopeLeavesThePoints) {
    FitRequest request;
    const auto points = pointsAt({-20, -10, 0, 10}, {30, 40, 50, 60}, capacity);
    request.limit = {{-20, 30}, {10, 30}, {10.4, 60}, {-20, 60}};
    EXPECT_THAT(fitted(points, request).warnings, IsEmpty());
    // 3 K to the right and 4 K above the corner 10,60 of the points: 5 K.
    request.limit = {{-20, 30}, {5, 31}, {13, 64}, {-22, 60}};
    EXPECT_THAT(
        fitted(points, request).warnings,
        ElementsAre(HasSubstr("up to 5 K beyond the points, where the surface is extrapolated: at 13,64, "
                              "-22,60")));
    // From the only point, 3 K to the right and 4 K above.
    request.limit = {{-10, 40}, {-7, 44}};
    EXPECT_THAT(fitted(pointsAt({-10}, {40}, capacity), request).warnings,
                Contains(HasSubstr("up to 5 K beyond the points")));
}

// The error of so small a value, over the value, is beyond any number.
TEST(CatalogueFit, RefusesValuesWithoutASurface) {
    RatingPoints points = pointsAt({-20, -10, 0, 10}, {30, 40, 50, 60}, capacity);
    points.columns[0].values[3] = 1e-320;
    Faults faults;
    EXPECT_THAT(fitColumns(points, {}, "p.csv", faults), IsEmpty());
    EXPECT_THAT(faults.lines(), ElementsAre(HasSubstr("too small or too large to be fitted")));
}

TEST(RatingPoints, AreReadWithTheirLines) {
    Faults faults;
    const std::string text =
        "# measured in May\nCondensing, evaporating ,Capacity,power\n\n40,-10,55.5,20\n  # and "
        "again\n50,-10,48,24\n";
    const auto points = readRatingPoints(text, "p.csv", {}, faults);
    EXPECT_THAT(faults.lines(), IsEmpty());
    EXPECT_THAT(points.lines, ElementsAre(4, 6));
    EXPECT_THAT(points.evaporating, ElementsAre(-10, -10));
    EXPECT_THAT(points.condensing, ElementsAre(40, 50));
    ASSERT_EQ(points.columns.size(), 2U);
    EXPECT_THAT(points.columns[1].values, ElementsAre(20, 24));
    EXPECT_EQ(readRatingPoints(text, "p.csv", {.values = {"POWER"}}, faults).columns.size(), 1U);
}

TEST(RatingPoints, SayWhatIsWrongWithThem) {
    const auto faultOf = [](const std::string& text, const RatingNames& names = {}) {
        Faults faults;
        readRatingPoints(text, "p.csv", names, faults);
        return faults.lines();
    };
    EXPECT_THAT(faultOf(""), ElementsAre(HasSubstr("p.csv: there are no points")));
    EXPECT_THAT(faultOf("evaporating,condensing,q\n"), ElementsAre(HasSubstr("no points below the columns")));
    EXPECT_THAT(faultOf("evaporating,condensing\n1,2\n"),
                ElementsAre(HasSubstr("p.csv:1: there is no column of values")));
    EXPECT_THAT(faultOf("te,tc,q\n1,2,3\n"),
                Contains("p.csv:1: there is no column \"evaporating\" among te, tc, q"));
    EXPECT_THAT(faultOf("te,tc,q\n1,2,3\n", {.evaporating = "te", .condensing = "tc"}), IsEmpty());
    EXPECT_THAT(faultOf("evaporating,condensing,q\n#\n1,40,1;5\n"),
                ElementsAre("p.csv:3: q: \"1;5\" is not a number; the decimal mark is \".\""));
    EXPECT_THAT(faultOf("evaporating,condensing,q\n1,40,1,5\n"),
                ElementsAre("p.csv:2: the line has 4 fields and not 3"));
    EXPECT_THAT(faultOf("evaporating,condensing,q\nnan,40,5\n"),
                ElementsAre(HasSubstr("\"nan\" is not a number")));
    EXPECT_THAT(faultOf("evaporating,condensing,q\n1e200,40,5\n-5,450,5\n-300,45,5\n"),
                ElementsAre("p.csv:2: evaporating: 1e200 is no temperature in degrees Celsius",
                            "p.csv:4: evaporating: -300 is no temperature in degrees Celsius"));
}

TEST(CatalogueFit, PrintsRowsForTheTable) {
    const test::TemporaryFolder folder("marvello-fit");
    std::ofstream file(folder / "points.csv");
    file << "evaporating,condensing,capacity,power\n";
    for (double x = -20; x <= 10; x += 5)
        for (double y = 30; y <= 60; y += 10)
            file << x << ',' << y << ',' << 60 + x << ',' << 10 + y / 4 << '\n';
    file.close();
    const std::string points = " " + (folder / "points.csv").string();
    const auto run = [&](const std::string& arguments, auto listen) {
        return ::marvello::testing::callProgram("marvello-catalogue", "fit " + arguments + points, listen);
    };
    using ::marvello::testing::Listen;
    const auto rows = run("--id TK-A-X --field 75 --value capacity", Listen::output);
    EXPECT_EQ(rows.status, 0);
    EXPECT_THAT(rows.out, StartsWith("TK-A-X,0,75,60,1,"));
    EXPECT_EQ(std::count(rows.out.begin(), rows.out.end(), ','), 12);
    EXPECT_THAT(run("--id TK-A-X", Listen::output).out, HasSubstr("\nTK-A-X,1,100,10,"));
    EXPECT_THAT(run("--discharge --value power", Listen::output).out, StartsWith("NAME,3,10,"));

    const std::string content = "--content \"" MARVELLO_SOURCE_FOLDER "/content\" ";
    EXPECT_THAT(run(content + "--limit-id TK-A-R134A-S", Listen::errors).out,
                HasSubstr("warning: the envelope reaches"));
    EXPECT_THAT(run(content + "--limit-id NONE", Listen::errors).out,
                HasSubstr("\"NONE\" has no application limit"));
    EXPECT_EQ(run("--limit '1,2;3'", Listen::errors).status, 2);
    EXPECT_EQ(run("--value nothing", Listen::errors).status, 2);
    EXPECT_EQ(run("--field nan", Listen::errors).status, 2);
    EXPECT_EQ(run("--id \"a,b\"", Listen::errors).status, 2);
    std::ofstream(folder / "points.csv", std::ios::app) << "0,40,-3,20\n";
    EXPECT_THAT(run("", Listen::errors).out, StartsWith("points.csv:30: capacity: -3 kW is not positive"));
}

}  // namespace
