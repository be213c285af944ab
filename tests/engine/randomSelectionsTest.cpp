#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

constexpr auto plain = EconomizerMode::none;
constexpr auto automatic = EconomizerMode::approach;
constexpr auto capacity = EconomizerMode::capacity;

// What holds for every compressor at every operating point, whatever the figures.
class randomSelections : public testing::EngineFixture {
  protected:
    randomSelections() {
        for (int i = 1; i <= 10; ++i) {
            for (const char* refrigerant : {"R134A", "R290"}) {
                catalogue.compressor({{"fRefrigerantID", std::string("'") + refrigerant + "'"},
                                      {"fModelID", "'" + std::to_string(i) + "'"},
                                      {"fCtsca", std::to_string(between(-3, 3))},
                                      {"fKForo", std::to_string(between(1.3, 2.2))},
                                      {"fKPerdita", std::to_string(i == 1 ? 0 : between(0, 0.5))},
                                      {"fSez", std::to_string(between(200, 400))},
                                      {"fOilCoolingLimit", std::to_string(between(60, 110))},
                                      {"fOilCoolingLimitEco", std::to_string(between(60, 110))}});
            }
        }
        catalogue.completeDefault();
        catalogue.exec("update tPolynomials set fC1=60, fC2=-0.5, fC3=0, fC4=0.3 where fType=3");
    }

    double between(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }

    void randomConditions() {
        conditions.TEvaporatingDew = between(-20, 15);
        conditions.TCondensationDew = std::max(conditions.TEvaporatingDew + 25, between(25, 60));
        conditions.SuperHeat = between(0, 18);
        conditions.SubCooling = between(0, 10);
        conditions.OilCoolingCalculateMode = static_cast<OilCoolingMode>(between(0, 2.99));
        conditions.OilCooling = between(60, 110);
        conditions.EcoCalculateMode = plain;
    }

    /// Runs both refrigerants at random points and gives each compressor that came to its end to `check`.
    void atRandomPoints(int points, const auto& prepare, const auto& check) {
        int checked = 0;
        for (int i = 0; i < points; ++i) {
            const std::string refrigerant = i % 2 == 0 ? "R134A" : "R290";
            randomConditions();
            prepare(refrigerant);
            select(refrigerant);
            for (const auto& compressor : selections) {
                if (!compressor->Variables.Exist("QcEco")) continue;  // outside the envelope
                ++checked;
                SCOPED_TRACE(refrigerant + " " + compressor->Model + " at " +
                             std::to_string(conditions.TEvaporatingDew) + "/" +
                             std::to_string(conditions.TCondensationDew));
                check(*compressor);
                if (HasFailure()) return;
            }
        }
        EXPECT_GT(checked, 5 * points);
    }

    static bool says(const clsCompressor& compressor, const char* number) {
        const auto listed = names(compressor.Messages.Error);
        return std::ranges::count(listed, std::string("messages.message") + number) > 0;
    }

  private:
    std::mt19937 random_{2024};
};

// The condenser takes what evaporator and motor bring in. By the states: what the gas gives off from the
// discharge down to the liquid is the capacity and the compression, less what the oil carries off.
TEST_F(randomSelections, HeatOfTheStandardCycle) {
    atRandomPoints(
        40, [](const std::string&) {},
        [](const clsCompressor& c) {
            const clsVariables& v = c.Variables;
            ASSERT_EQ(c.Messages.Error.Count(), 0);
            EXPECT_NEAR(v("Qc"), v("Q0") + v("Pta"), 1e-12);
            EXPECT_EQ(v("QcEco"), v("Qc"));
            const double kilogramsPerSecond = v("Mbase") / 3600;
            EXPECT_NEAR(v("Q0"), kilogramsPerSecond * (v("Hga") - v("Hl")), 1e-6 * v("Q0"));
            const bool isCooled = v("Pra") > 0;
            const double compression = kilogramsPerSecond * (v("H21") - v("Hga"));
            const double condensed = kilogramsPerSecond * ((isCooled ? v("H2Rif") : v("H21")) - v("Hl"));
            EXPECT_NEAR(condensed, v("Q0") + compression - v("Pra"), 1e-6 * condensed);
            EXPECT_EQ(isCooled, v("OCCalculateMode") != 0 && v("T21") > v("OC"));
            if (v("OCCalculateMode") != 0) {
                EXPECT_EQ(v("Tsca"), std::min(v("T21"), v("OC")));
            }
        });
}

// With injection the gas of both flows condenses, and the subcooled liquid carries the injection's share to
// the evaporator: (meco + Mev) (h2 - H3) = Q0 + Qeco + both stages of the compression.
TEST_F(randomSelections, HeatAndApproachOfTheEconomizedCycle) {
    int plates = 0;
    int tanks = 0;
    atRandomPoints(
        30,
        [this](const std::string&) {
            conditions.EcoCalculateMode = automatic;
            conditions.Eco = between(2, 30);
        },
        [&](const clsCompressor& c) {
            const clsVariables& v = c.Variables;
            ASSERT_TRUE(v.Exist("CopEco"));
            const std::string model = v.Item("EcoModel").text();
            EXPECT_EQ(model == "Impossible", says(c, "26"));
            if (model == "Piastra") {
                ++plates;
                EXPECT_NEAR(std::abs(v("T31") - v("T7D")), conditions.Eco, 0.01);
                EXPECT_FALSE(says(c, "25"));
            } else if (model == "Tank") {
                ++tanks;
                EXPECT_NEAR(v("T31"), v("T6"), 0.01);
            } else {
                return;
            }
            const double both = v("meco") + v("Mev");
            const double stages = v("Mev") * (v("H9") - v("Hga")) + both * (v("h2") - v("H71"));
            // A tank's flow is changed once more after the last cycle, within the tolerance of its search.
            const double tolerance = model == "Tank" ? 2e-3 : 1e-6;
            EXPECT_NEAR(both * (v("h2") - v("H3")) / 3600, v("Q0") + v("Qeco") + stages / 3600,
                        tolerance * v("Qc"));
            EXPECT_NEAR(v("Mev") / v("Mbase"), 1, 1e-6);
            EXPECT_NEAR(v("QcEco"), v("Qc") * (1 + v("meco") / v("Mbase")), 1e-9 * v("Qc"));
            EXPECT_EQ(v("Pcool") > 0, v("T2") > v("OC"));
            if (v("Pcool") > 0) {
                EXPECT_NEAR(v("Pcool"), both * (v("h2") - v("H2cool")) / 3600, 1e-9 * v("Qc"));
                EXPECT_EQ(v("Pra"), v("Pcool"));
            }
            EXPECT_GE(v("P7"), v("P9"));
            EXPECT_GT(v("PtaEco"), v("Pta"));
        });
    EXPECT_GT(plates, 50);
    EXPECT_GT(tanks, 5);
}

TEST_F(randomSelections, EachWantedCapacityIsMetOrRefused) {
    int met = 0;
    atRandomPoints(
        30,
        [this](const std::string& refrigerant) {
            const clsVariables& v = select(refrigerant).Variables;
            const double standard = v.Exist("Q0") ? v("Q0") : 0;
            conditions.EcoCalculateMode = capacity;
            conditions.Eco = standard * (between(0, 10) < 2 ? between(0.5, 2.5) : between(1, 1.3));
        },
        [&](const clsCompressor& c) {
            const clsVariables& v = c.Variables;
            const double most = v("Q0") * (1 + (v("HE") - v("Hl")) / (v("Hga") - v("Hl")));
            EXPECT_EQ(says(c, "23"), conditions.Eco < std::round(v("Q0") * 10) / 10);
            EXPECT_EQ(says(c, "24"), conditions.Eco >= most);
            if (c.Messages.Error.Count() > 0) return;
            ++met;
            EXPECT_NEAR(v("Q0") + v("Qeco"), conditions.Eco, 0.05);
        });
    EXPECT_GT(met, 50);
}

}  // namespace
}  // namespace marvello
