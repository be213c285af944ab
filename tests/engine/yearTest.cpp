#include "engine/Year.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "engine/CapacityStates.h"
#include "engine/PartLoad.h"
#include "engine/ShippedProfiles.h"
#include "tests/engine/PlainSelection.h"

namespace marvello {
namespace {

constexpr Degradation quarter{Degradation::Form::condensingUnit, 0.25};

/// Years of R134A at 2/40 degrees. Selections there say, in kW:
///
///     TK-A-120   100 %  69.9228996  16.7517659      TK-D-140   20 Hz   30.2836212   7.7818501
///                 75 %  52.1033879  13.4042232                 40 Hz   64.6863085  15.7236618
///                 50 %  34.2838821   9.9993010                 70 Hz  114.4815560  27.8923136
///                 25 %  16.4643990   6.5040404
class YearTest : public ::testing::Test {
  protected:
    YearTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        catalogue_ = preparedCatalogue(gDatabase());
        request_.conditions = conditionsAt(0, 0);
        request_.evaporating = evaporatingRuleOf("2");
        request_.condensing = condensingRuleOf("40");
        request_.degradation = quarter;
    }

    PlantMachines machines(const std::string& serie, const std::string& model, int count = 1) {
        return {catalogue_->find("R134A", serie, model), count};
    }
    Year year() { return yearOf(request_, loopWith(calculator_)).value(); }
    std::string refusal() {
        try {
            year();
        } catch (const std::invalid_argument& fault) {
            return fault.what();
        }
        return "";
    }

    Session session_;
    CollectedBoxes boxes_;
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    Calculator calculator_;
    YearRequest request_;
};

/// A machine with steps and 80 kW of design load:
///
///     10 C  2000 h   9 kW  intermittent at 25 %: 9/16.464399 = 0.5466340 of the time, the COP times
///                          1 - 0.25 * 0.4533660 = 0.8866585: 4.0098071 kW, 8019.6141 kWh
///     30 C   500 h  60 kW  between 75 and 100 %: 7.8966121/17.8195117 = 0.4431441 of the time at 100 %:
///                          14.8876668 kW, 7443.8334 kWh
///     35 C   100 h  80 kW  all it has: 1675.1766 kWh, and 10.0771004 kW missing
TEST_F(YearTest, OfAMachineWithSteps) {
    request_.machines = {machines("TK-A", "120")};
    request_.designLoad = 80;
    request_.profile.bins = {{10, 2000, 0.1125}, {30, 500, 0.75}, {35, 100, 1}};
    for (const Staging staging : {Staging::power, Staging::sequence}) {
        request_.staging = staging;
        const Year year = this->year();
        ASSERT_EQ(year.bins.size(), 3U);
        EXPECT_NEAR(year.bins[0].load.running[0].share, 0.5466340, 1e-6);
        EXPECT_NEAR(year.bins[0].energy(), 8019.6141, 1e-3);
        EXPECT_NEAR(year.bins[1].load.running[0].share, 0.4431441, 1e-6);
        EXPECT_EQ(year.bins[1].load.running[1].state.step, 75);
        EXPECT_NEAR(year.bins[1].energy(), 7443.8334, 1e-3);
        EXPECT_NEAR(year.bins[2].energy(), 1675.1766, 1e-3);
        EXPECT_NEAR(year.bins[2].load.unmet, 10.0771004, 1e-6);
        EXPECT_NEAR(year.energy, 8019.6141 + 7443.8334 + 1675.1766, 1e-3);
        EXPECT_NEAR(year.delivered, 9 * 2000 + 60 * 500 + 6992.28996, 1e-4);
        EXPECT_NEAR(year.seasonalCop().value(), year.delivered / year.energy, 1e-12);
        EXPECT_NEAR(year.unmet, 1007.71004, 1e-4);
        EXPECT_EQ(year.unmetHours, 100);
        EXPECT_EQ(year.intermittentHours, 2000);
        EXPECT_NEAR(year.allRunningHours(), 2000 * 0.5466340 + 500 + 100, 1e-3);
        EXPECT_EQ(year.hours, 2600);
    }
}

/// The design load is what the machine has at 40 Hz; a quarter of it, 16.1715771 kW, takes 20 Hz for
/// 0.5340040 of the time and the COP times 0.8835010.
TEST_F(YearTest, OfAMachineOnAnInverter) {
    request_.machines = {machines("TK-D", "140")};
    request_.designLoad = 64.68630848703665;
    request_.profile.bins = {{10, 1000, 0.25}, {30, 100, 1}, {32, 10, 0}};
    const Year year = this->year();
    EXPECT_NEAR(year.bins[0].power(), 0.5340040 * 7.7818501 / 0.8835010, 1e-5);
    EXPECT_NEAR(year.bins[1].load.running.at(0).state.frequency.value(), 40, 1e-5);
    EXPECT_NEAR(year.bins[1].energy(), 1572.36618, 1e-4);
    EXPECT_EQ(year.bins[2].power(), 0);
    EXPECT_NEAR(year.bins[0].runningHours(0), 534.0040, 1e-3);
}

/// Two with steps and one on an inverter, which have 254.3273552 kW together. 150 kW in sequence are both of
/// the first ones and 10.1542008 kW of the inverter: 0.3353034 of the time, the COP times 0.8338258.
TEST_F(YearTest, OfAGroupOfThree) {
    request_.machines = {machines("TK-A", "120", 2), machines("TK-D", "140")};
    request_.designLoad = 300;
    request_.staging = Staging::sequence;
    request_.profile.bins = {{20, 300, 0.5}, {35, 50, 1}};
    Year year = this->year();
    EXPECT_NEAR(year.bins[0].power(), 2 * 16.7517659 + 0.3353034 * 7.7818501 / 0.8338258, 1e-5);
    EXPECT_NEAR(year.bins[1].power(), 2 * 16.7517659 + 27.8923136, 1e-6);
    EXPECT_NEAR(year.unmet, 45.6726448 * 50, 1e-4);
    EXPECT_EQ(year.unmetHours, 50);
    EXPECT_NEAR(year.runningHours[0], 700, 1e-9);
    EXPECT_NEAR(year.runningHours[1], 50 + 300 * 0.3353034, 1e-3);
    // At least power the inverter and one machine share the load: it starts and stops nothing.
    const double inSequence = year.bins[0].power();
    request_.staging = Staging::power;
    year = this->year();
    EXPECT_LT(year.bins[0].power(), inSequence);
    EXPECT_EQ(year.bins[0].load.intermittent(), 0);
    EXPECT_EQ(year.bins[0].load.machines(), 2);
    EXPECT_NEAR(year.unmet, 45.6726448 * 50, 1e-4);
}

TEST_F(YearTest, TheEnergyOfABinIsThatOfItsStates) {
    const auto profiles = shippedProfiles(MARVELLO_APP_FOLDER);
    request_.machines = {machines("TK-A", "120", 2), machines("TK-D", "140"), machines("TK-E", "155")};
    request_.designLoad = 220;
    request_.profile = profiles.front().profile;
    request_.condensing = condensingRuleOf("outdoor+12,scaled,min 25");
    request_.evaporating = evaporatingRuleOf("0:3;30:0");
    const Year year = this->year();
    ASSERT_EQ(year.bins.size(), 58U);
    double energy = 0;
    for (const YearBin& bin : year.bins) {
        const double share = request_.profile.bins[static_cast<std::size_t>(&bin - year.bins.data())].load;
        EXPECT_EQ(bin.tcd, std::max(25.0, bin.bin.outdoor + 12 * share));
        double ofBin = 0;
        double delivered = 0;
        for (const RunningMachines& running : bin.load.running) {
            const PreparedCompressor& compressor = *request_.machines[running.kind].compressor;
            clsProjectConditions conditions = conditionsAt(bin.ted, bin.tcd);
            conditions.StepCapacity = running.state.step;
            conditions.InverterFrequency = running.state.frequency.value_or(50.0F);
            const Performance performance = performanceAt(calculator_, compressor, conditions);
            testing::expectPlainSelection(compressor, conditions, performance);
            EXPECT_EQ(running.state.capacity, performance.plain.capacity);
            EXPECT_EQ(running.state.power, performance.plain.power);
            ofBin +=
                running.count * running.share * performance.plain.power / running.degradation * bin.bin.hours;
            delivered += running.count * running.share * performance.plain.capacity;
        }
        EXPECT_NEAR(bin.energy(), ofBin, 1e-9 * ofBin);
        EXPECT_NEAR(delivered + bin.load.unmet, bin.needed, 1e-7 * bin.needed);  // frequencies are float
        energy += ofBin;
    }
    EXPECT_NEAR(year.energy, energy, 1e-9 * energy);
    EXPECT_NEAR(year.delivered + year.unmet, 220 * 6147.494, 1);
}

/// What meetLoad says, which goes another way.
TEST_F(YearTest, AMachineAloneMeetsALoadAsItsPartLoadSays) {
    request_.designLoad = 120;
    for (const Degradation& degradation : {quarter, Degradation{Degradation::Form::chiller, 0.9}}) {
        request_.degradation = degradation;
        for (const PlantMachines& alone : {machines("TK-A", "120"), machines("TK-D", "140")}) {
            request_.machines = {alone};
            request_.profile.bins.clear();
            for (int i = 1; i <= 40; ++i) request_.profile.bins.push_back({20, 1, i / 40.0});
            const PreparedCompressor& compressor = *alone.compressor;
            const auto steps = stepStates(calculator_, compressor, conditionsAt(2, 40), stepsOf(compressor));
            for (const YearBin& bin : year().bins) {
                LoadRun run;
                if (compressor.hasInvert) {
                    InverterStates states(calculator_, compressor, conditionsAt(2, 40));
                    run = meetLoad(bin.needed, states, degradation);
                } else {
                    run = meetLoad(bin.needed, steps, degradation);
                }
                EXPECT_NEAR(bin.power(), run.power, 1e-6 * run.power) << bin.needed;
                EXPECT_NEAR(bin.delivered(), run.capacity, 1e-6 * run.capacity) << bin.needed;
                EXPECT_EQ(bin.load.running.size(), run.running.size());
                EXPECT_EQ(bin.load.unmet > 0, run.kind == LoadRun::Kind::tooSmall);
            }
        }
    }
}

TEST_F(YearTest, AMachineOutsideOfItsLimitsSaysWhy) {
    request_.machines = {machines("TK-A", "120")};
    request_.designLoad = 60;
    request_.condensing = condensingRuleOf("outdoor+12");
    request_.profile.bins = {{-19, 10, 1}, {30, 100, 0.5}, {70, 1, 1}, {70, 9, 0}};
    const Year year = this->year();
    EXPECT_TRUE(year.bins[3].errors.front().empty()) << "nothing is needed of it";
    EXPECT_EQ(year.bins[2].errors.front(), outsideEnvelope);
    EXPECT_EQ(year.bins[2].load.unmet, 60);
    EXPECT_FALSE(year.bins[0].errors.front().empty());  // it would condense below what evaporates
    EXPECT_TRUE(year.bins[1].errors.front().empty());
    EXPECT_EQ(year.unmetHours, 11);
}

/// At each point the machine has more than is needed and runs intermittently or between steps; the COPs and
/// the figure follow from those of the bins.
TEST_F(YearTest, FourPointsAreThePlantAtTheirTemperatures) {
    const auto profiles = shippedProfiles(MARVELLO_APP_FOLDER);
    const SeasonalRule& rule = *profiles.front().rule;
    request_.machines = {machines("TK-A", "120")};
    request_.designLoad = 40;
    request_.profile = profiles.front().profile;
    request_.evaporating = evaporatingRuleOf("-10");
    request_.condensing = condensingRuleOf("outdoor+12,min 25");
    const auto four = fourPointsOf(request_, rule, loopWith(calculator_)).value();
    std::array<double, 4> cops{};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(four.points[i].tcd, std::max(25.0, rule.points[i] + 12));
        EXPECT_NEAR(four.points[i].needed, 40 * rule.loadAt(rule.points[i]), 1e-12);
        cops[i] = four.points[i].delivered() / four.points[i].power();
    }
    double demand = 0;
    double energy = 0;
    for (const LoadBin& bin : request_.profile.bins) {
        demand += 40 * bin.load * bin.hours;
        energy += 40 * bin.load * bin.hours / CopByOutdoor(rule.points, cops).at(bin.outdoor);
    }
    EXPECT_NEAR(four.figure.value(), demand / energy, 1e-12);
    request_.evaporating = evaporatingRuleOf("50");
    EXPECT_FALSE(fourPointsOf(request_, rule, loopWith(calculator_)).value().figure);
}

TEST_F(YearTest, APoolComesToTheSame) {
    request_.machines = {machines("TK-A", "120", 2), machines("TK-D", "140")};
    request_.designLoad = 220;
    request_.profile = shippedProfiles(MARVELLO_APP_FOLDER).front().profile;
    request_.condensing = condensingRuleOf("outdoor+12,min 25");
    CalculatorPool pool(2);
    const Year year = this->year();
    const Year pooled = yearOf(request_, loopWith(pool)).value();
    EXPECT_EQ(pooled.energy, year.energy);
    EXPECT_EQ(pooled.calculations, year.calculations);
    EXPECT_FALSE(yearOf(request_, loopWith(calculator_, [] { return false; })));
}

TEST_F(YearTest, RefusesWhatNothingCanAnswer) {
    EXPECT_EQ(refusal(), "The number of machines is not from 1 to 8.");
    request_.machines = {machines("TK-A", "120", 9)};
    EXPECT_EQ(refusal(), "The number of machines is not from 1 to 8.");
    request_.machines = {machines("TK-D", "140", 2)};
    EXPECT_EQ(refusal(), "More than one machine is on an inverter.");
    request_.machines = {machines("TK-A", "120"), {catalogue_->find("R290", "TK-A", "120"), 1}};
    EXPECT_EQ(refusal(), "The machines have more than one refrigerant.");
    request_.machines = {machines("TK-A", "120")};
    EXPECT_EQ(refusal(), "The design load is not above 0 kW.");
    request_.designLoad = 10;
    EXPECT_EQ(refusal(), "");
    request_.condensing = {};
    EXPECT_EQ(refusal(), "The condensing temperature is missing.");
}

}  // namespace
}  // namespace marvello
