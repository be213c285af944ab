#include "engine/Coefficients.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"
#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

/// Term by term, written down once more.
double evaluated(const CubicTerms& c, double s, double d) {
    return c[0] + c[1] * s + c[2] * d + c[3] * s * s + c[4] * s * d + c[5] * d * d + c[6] * s * s * s +
           c[7] * d * s * s + c[8] * s * d * d + c[9] * d * d * d;
}

CubicTerms randomTerms(std::mt19937& random) {
    std::normal_distribution<double> normal;
    CubicTerms terms{};
    constexpr CubicTerms sizes{100, 3, 1, 0.03, 0.02, 0.01, 2e-4, 1e-4, 1e-4, 5e-5};
    for (std::size_t i = 0; i < terms.size(); ++i) terms[i] = sizes[i] * normal(random);
    return terms;
}

TEST(CubicSurface, AFitGivesASurfaceBack) {
    std::mt19937 random(3);
    for (int i = 0; i < 50; ++i) {
        const CubicTerms terms = randomTerms(random);
        std::vector<SurfacePoint> points;
        std::uniform_real_distribution<double> ted(-45, 15);
        std::uniform_real_distribution<double> tcd(20, 65);
        for (int p = 0; p < 40; ++p) {
            const double x = ted(random);
            const double y = tcd(random);
            points.push_back({x, y, evaluated(terms, x, y)});
        }
        const auto fitted = fittedSurface(points);
        ASSERT_TRUE(fitted);
        double largest = 0;
        for (const SurfacePoint& point : points) largest = std::max(largest, std::abs(point.value));
        for (const SurfacePoint& point : points)
            EXPECT_NEAR(evaluated(*fitted, point.x, point.y), point.value, 1e-9 * largest);
        for (std::size_t c = 0; c < terms.size(); ++c)
            EXPECT_NEAR((*fitted)[c], terms[c], 1e-7 * std::abs(terms[c]) + 1e-10) << c;
    }
}

TEST(CubicSurface, PointsOnTooFewLinesDetermineNothing) {
    std::vector<SurfacePoint> points;
    for (double x : {-10.0, -5.0, 0.0})
        for (double y = 20; y < 60; y += 5) points.push_back({x, y, x + y});
    EXPECT_FALSE(fittedSurface(points)) << "three evaporating temperatures leave the cube of it open";
    EXPECT_FALSE(fittedSurface(std::span(points).first(9)));
    points.push_back({5, 40, 45});
    EXPECT_TRUE(fittedSurface(points));
}

TEST(CubicSurface, ASubstitutionIsTheSameSurface) {
    std::mt19937 random(4);
    const CubicTerms terms = randomTerms(random);
    const CubicTerms inFahrenheit = substituted(terms, 5.0 / 9, -160.0 / 9, 5.0 / 9, -160.0 / 9);
    for (double s = -40; s <= 15; s += 7.3)
        for (double d = 20; d <= 70; d += 9.1)
            EXPECT_NEAR(evaluated(inFahrenheit, s * 1.8 + 32, d * 1.8 + 32), evaluated(terms, s, d), 1e-9);
}

class CoefficientsTest : public ::testing::Test {
  protected:
    CoefficientsTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        catalogue_ = preparedCatalogue(gDatabase());
    }

    RatedCoefficients coefficients(const CoefficientsRequest& request) {
        return coefficientsOf(request, loopWith(calculator_));
    }

    static const RatedQuantity* quantityOf(const RatedCoefficients& of, Figure figure) {
        const auto found = std::ranges::find(of.quantities, figure, &RatedQuantity::figure);
        return found == of.quantities.end() ? nullptr : &*found;
    }

    /// At random points inside the application limit; the errors are those of a grid.
    void expectWithinErrors(const RatedCoefficients& of) {
        constexpr double betweenPoints = 1.05;
        std::uniform_real_distribution<double> ted(of.range.tedLow, of.range.tedHigh);
        std::uniform_real_distribution<double> tcd(of.range.tcdLow, of.range.tcdHigh);
        const clsLimits& limits = of.compressor->envelopeFor(of.conditions.EcoCalculateMode)->limits;
        int compared = 0;
        for (int i = 0; i < 150; ++i) {
            clsProjectConditions conditions = of.conditions;
            conditions.TEvaporatingDew = ted(random_);
            conditions.TCondensationDew = tcd(random_);
            if (!limits.holding(conditions.TEvaporatingDew, conditions.TCondensationDew)
                     .FindLimitType(limitType::application))
                continue;
            const Performance calculated = performanceAt(calculator_, *of.compressor, conditions);
            if (!calculated.hasValues()) continue;
            ++compared;
            for (const RatedQuantity& quantity : of.quantities) {
                const double value =
                    evaluated(quantity.terms, conditions.TEvaporatingDew, conditions.TCondensationDew);
                EXPECT_NEAR(value, *valueOf(calculated, quantity.figure),
                            quantity.deviation.max * betweenPoints + 1e-9)
                    << nameOf(of.rating) << ' ' << static_cast<int>(quantity.figure) << ' '
                    << conditions.TEvaporatingDew << '/' << conditions.TCondensationDew;
            }
        }
        EXPECT_GT(compared, 20);
    }

    Session session_;
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    Calculator calculator_;
    std::mt19937 random_{5};
};

class CoefficientsAt : public CoefficientsTest, public ::testing::WithParamInterface<RatingConditions> {};

TEST_P(CoefficientsAt, KeepTheErrorsThatTheyState) {
    int sets = 0;
    for (int i = 0; i < 25; ++i) {
        const auto& compressor = catalogue_->compressors()[random_() % catalogue_->compressors().size()];
        clsProjectConditions conditions = conditionsAt(-5, 40);
        conditions.SuperHeat = 14;
        conditions.SubCooling = 3;
        SCOPED_TRACE(compressor.Refrigerant + ' ' + compressor.Serie + ' ' + compressor.Model);
        try {
            expectWithinErrors(coefficients({&compressor, conditions, GetParam()}));
            ++sets;
        } catch (const NoCoefficients& none) {
            EXPECT_EQ(none.reason, NoCoefficients::Reason::tooFewPoints);
        }
    }
    EXPECT_GT(sets, 20);
}

INSTANTIATE_TEST_SUITE_P(Ratings, CoefficientsAt,
                         ::testing::Values(RatingConditions::own, RatingConditions::en12900,
                                           RatingConditions::form));

// The catalogue rates at 10 K of superheat and 5 K of subcooling. Without subcooling less is left of the same
// flow.
TEST_F(CoefficientsTest, OnlyAtTheirOwnConditionsSurfacesGoOutUnchanged) {
    const PreparedCompressor* const compressor = catalogue_->find("R134A", "TK-A", "220");
    ASSERT_NE(compressor, nullptr);
    const auto own = coefficients({compressor, conditionsAt(2, 40), RatingConditions::own});
    const auto row = [](std::span<const SurfaceRow> rows) {
        return std::ranges::find(rows, 100.0, &SurfaceRow::field)->c;
    };
    EXPECT_EQ(quantityOf(own, Figure::capacity)->terms, row(compressor->capacityRows));
    EXPECT_EQ(quantityOf(own, Figure::power)->terms, row(compressor->powerRows));
    EXPECT_TRUE(quantityOf(own, Figure::capacity)->isOfCatalogue);
    EXPECT_FALSE(quantityOf(own, Figure::massFlow)->isOfCatalogue);
    EXPECT_LT(quantityOf(own, Figure::capacity)->deviation.maxPercent, 0.01);

    const auto standard = coefficients({compressor, conditionsAt(2, 40), RatingConditions::en12900});
    EXPECT_FALSE(quantityOf(standard, Figure::capacity)->isOfCatalogue);
    const auto at = [](const RatedCoefficients& of, Figure figure) {
        return evaluated(quantityOf(of, figure)->terms, -10, 45);
    };
    EXPECT_NEAR(at(standard, Figure::massFlow), at(own, Figure::massFlow), 0.1) << "has no subcooling";
    EXPECT_NEAR(at(standard, Figure::capacity) / at(own, Figure::capacity), 1 - 0.052, 0.001);
    EXPECT_NEAR(at(standard, Figure::power), at(own, Figure::power), 0.01);
}

TEST_F(CoefficientsTest, AVolumeRatioThatFollowsThePointIsFitted) {
    const auto compressors = catalogue_->compressors();
    const auto found = std::ranges::find_if(compressors, [](const PreparedCompressor& each) {
        return each.hasInvert && each.traits->rows == SurfaceRows::volumeRatio;
    });
    ASSERT_NE(found, compressors.end());
    const auto own = coefficients({&*found, conditionsAt(2, 40), RatingConditions::own});
    EXPECT_FALSE(quantityOf(own, Figure::power)->isOfCatalogue);
    EXPECT_GT(quantityOf(own, Figure::power)->deviation.maxPercent, 0.1) << "has kinks";
}

TEST_F(CoefficientsTest, ARangeNarrowsThePoints) {
    const PreparedCompressor* const compressor = catalogue_->find("R134A", "TK-A", "220");
    const auto whole = coefficients({compressor, conditionsAt(2, 40), RatingConditions::en12900});
    const auto part =
        coefficients({compressor, conditionsAt(2, 40), RatingConditions::en12900, {-10, 0, 40, 50}});
    EXPECT_LT(part.points, whole.points);
    EXPECT_EQ(part.range.tedLow, -10);
    EXPECT_EQ(part.range.tcdHigh, 50);
    EXPECT_LT(quantityOf(part, Figure::massFlow)->deviation.max,
              quantityOf(whole, Figure::massFlow)->deviation.max);
    for (const RatedPoint& point : part.check) EXPECT_TRUE(point.performance.hasValues());
    try {
        coefficients({compressor, conditionsAt(2, 40), RatingConditions::en12900, {-10, -9, 40, 60}});
        FAIL() << "three evaporating temperatures";
    } catch (const NoCoefficients& none) {
        EXPECT_EQ(none.reason, NoCoefficients::Reason::tooFewPoints);
    }
}

TEST_F(CoefficientsTest, AnOpenCompressorHasNoCurrent) {
    const auto compressors = catalogue_->compressors();
    const auto found = std::ranges::find(compressors, "NL-H", &PreparedCompressor::Serie);
    ASSERT_NE(found, compressors.end());
    const auto own = coefficients({&*found, conditionsAt(2, 40), RatingConditions::own});
    EXPECT_EQ(quantityOf(own, Figure::current), nullptr);
    EXPECT_NE(quantityOf(own, Figure::massFlow), nullptr);
}

TEST_F(CoefficientsTest, WithAnEconomizerTheyAreTotalsOfTheForm) {
    const PreparedCompressor* const compressor = catalogue_->find("R134A", "TK-A", "220");
    clsProjectConditions conditions = conditionsAt(-5, 45);
    conditions.EcoCalculateMode = EconomizerMode::approach;
    const auto form = coefficients({compressor, conditions, RatingConditions::form, {-15, 5, 40, 60}});
    for (const RatedPoint& point : form.check) {
        ASSERT_TRUE(point.performance.economized);
        EXPECT_NEAR(evaluated(quantityOf(form, Figure::capacity)->terms, point.ted, point.tcd),
                    point.performance.economized->capacity,
                    quantityOf(form, Figure::capacity)->deviation.max);
        EXPECT_GT(point.performance.economized->capacity, point.performance.plain.capacity * 1.02);
    }
    const auto own = coefficients({compressor, conditions, RatingConditions::own, {-15, 5, 40, 60}});
    EXPECT_EQ(own.conditions.EcoCalculateMode, EconomizerMode::none);
}

class CoefficientsOfASmallCatalogue : public testing::EngineFixture {};

TEST_F(CoefficientsOfASmallCatalogue, AreRefusedWithoutAnApplicationLimit) {
    catalogue.compressor();
    catalogue.completeDefault();
    catalogue.exec("update tLimits set fType=-1");
    const auto prepared = preparedCatalogue(gDatabase());
    Calculator calculator;
    const CoefficientsRequest request{&prepared->compressors().front(), conditions, RatingConditions::own};
    try {
        coefficientsOf(request, loopWith(calculator));
        FAIL();
    } catch (const NoCoefficients& none) {
        EXPECT_EQ(none.reason, NoCoefficients::Reason::noLimit);
    }
}

}  // namespace
}  // namespace marvello
