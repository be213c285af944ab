#include "engine/Find.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "catalogue/CatalogueLists.h"
#include "catalogue/Globals.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "engine/clsSelections.h"

namespace marvello {
namespace {

using Reason = Rejection::Reason;

/// One way to run a compressor, as a plain selection has it.
struct Plain {
    double capacity = 0, power = 0, cop = 0, discharge = 0;
    bool hasWarnings = false;
    std::string error{};  ///< The key of its first error.
};

/// By refrigerant, series and model.
using Name = std::tuple<std::string, std::string, std::string>;
using PlainRun = std::map<Name, Plain>;

Plain plainOf(const clsCompressor& compressor, CapacityKind kind) {
    const auto number = [&](const char* name) { return compressor.Variables.Item(name).number(); };
    Plain plain;
    if (compressor.Messages.Error.Count() > 0) {
        plain.error = compressor.Messages.Error.Item(1).Name;
        return plain;
    }
    plain.hasWarnings = compressor.Messages.Attention.Count() > 0;
    const bool isHeating = kind == CapacityKind::heating;
    const bool isEconomized = compressor.Variables.Exist("CopEco");
    plain.discharge = number(isEconomized ? "T2" : "T21");
    if (number("OCCalculateMode") != 0) plain.discharge = std::min(plain.discharge, number("OC"));
    if (isEconomized) {
        plain.capacity = isHeating ? number("QcEco") : number("Q0") + number("Qeco");
        plain.power = number("PtaEco");
        plain.cop = number("CopEco");
    } else {
        plain.capacity = isHeating ? number("Qc") : number("Q0");
        plain.power = number("Pta");
        plain.cop = number("COP");
    }
    return plain;
}

/// A pair of refrigerant and series.
struct Pair {
    std::string refrigerant, series;
    bool onInverter;
};

std::vector<Pair> allPairs() {
    std::vector<Pair> pairs;
    for (const bool onInverter : {false, true})
        for (const std::string& refrigerant : refrigerantsOf({.onInverter = onInverter}))
            for (const std::string& series : seriesOf({.onInverter = onInverter, .refrigerant = refrigerant}))
                pairs.push_back({refrigerant, series, onInverter});
    return pairs;
}

/// What the forms offer for a series, written down once more.
struct Offer {
    bool economizer = false, step = false, oilCooling = false, supply = false, motor = false, speed = false;
};

Offer offerOf(const Pair& pair) {
    if (pair.onInverter) return {true, true, true, true, true, true};
    const auto isOne = [&](std::set<std::string> names) { return names.contains(pair.series); };
    Offer offer;
    offer.speed = isOne({"NL-H"});
    offer.step = isOne({"TK-A", "TK-A(P)", "TK-A(Q)", "TK-A(V)"});
    offer.economizer = offer.oilCooling = offer.step || isOne({"TK-E", "MV-A", "MV-A(V)", "MV-E", "DZ"});
    offer.supply = offer.economizer || isOne({"MV-G", "GH", "MV-H"});
    offer.motor = pair.refrigerant == "R134A" && isOne({"MV-H", "TK-A", "MV-G", "MV-A"});
    return offer;
}

clsProjectConditions asOffered(clsProjectConditions conditions, const Pair& pair) {
    const Offer offer = offerOf(pair);
    if (!offer.economizer) conditions.EcoCalculateMode = EconomizerMode::none;
    if (!offer.oilCooling) conditions.OilCoolingCalculateMode = OilCoolingMode::catalogueLimit;
    if (!offer.supply) conditions.MotorVoltage = 400;
    if (!offer.supply) conditions.MotorHz = 50;
    if (!offer.motor) conditions.MotorSize = MotorChoice::standard;
    if (!offer.speed) conditions.MotorRPM = 1450;
    return conditions;
}

PlainRun select(const FindRequest& request, const Pair& pair, int step, float frequency) {
    auto conditions = std::make_shared<clsProjectConditions>(asOffered(request.conditions, pair));
    conditions->StepCapacity = step;
    conditions->InverterFrequency = frequency;
    clsSelections selection;
    selection.Selection(conditions, pair.series, "*", pair.refrigerant,
                        static_cast<std::uint8_t>(request.markets));
    PlainRun run;
    for (const auto& compressor : selection)
        run[{pair.refrigerant, pair.series, compressor->Model}] = plainOf(*compressor, request.kind);
    return run;
}

Name nameOf(const PreparedCompressor& compressor) {
    return {compressor.Refrigerant, compressor.Serie, compressor.Model};
}

/// A search made of plain selections.
class BruteForce {
  public:
    explicit BruteForce(const FindRequest& request) : request_(request) {}

    struct Way {
        int step, machines;
        auto operator<=>(const Way&) const = default;
    };
    std::map<std::pair<Name, Way>, Plain> candidates;  ///< On the mains.
    std::map<Name, std::pair<Reason, std::string>> rejections;

    void onTheMains(const Pair& pair) {
        std::map<Name, std::vector<double>> deviations;
        std::map<Name, std::string> errors;
        std::set<Name> found;
        const bool hasSteps = request_.steps && offerOf(pair).step;
        for (const int step : hasSteps ? std::vector{100, 75, 50, 25} : std::vector{100}) {
            for (const auto& [name, plain] : select(request_, pair, step, 0)) {
                if (!plain.error.empty()) {
                    errors.try_emplace(name, plain.error);
                    continue;
                }
                for (int machines = request_.minMachines; machines <= request_.maxMachines; ++machines) {
                    const double deviation = percentOff(plain.capacity * machines);
                    deviations[name].push_back(deviation);
                    if (!isWithin(deviation)) continue;
                    candidates[{name, {step, machines}}] = plain;
                    found.insert(name);
                }
            }
        }
        for (auto& [name, all] : deviations) {
            if (found.contains(name)) continue;
            const double nearest =
                *std::ranges::min_element(all, {}, [](double each) { return std::abs(each); });
            rejections[name] = {nearest < 0 ? Reason::tooSmall : Reason::tooLarge, ""};
        }
        for (const auto& [name, error] : errors)
            if (!deviations.contains(name))
                rejections[name] = {error == "messages.message01" ? Reason::envelope : Reason::rule, error};
    }

    double percentOff(double capacity) const { return (capacity / request_.needed - 1) * 100; }
    bool isWithin(double deviation) const {
        return deviation >= -request_.below && deviation <= request_.above;
    }

  private:
    const FindRequest& request_;
};

class FindTest : public ::testing::Test {
  protected:
    FindTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        catalogue_ = preparedCatalogue(gDatabase());
    }

    double between(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }
    bool happens(double share) { return between(0, 1) < share; }
    template <class Value>
    Value oneOf(const std::vector<Value>& values) {
        return values[static_cast<std::size_t>(between(0, static_cast<double>(values.size())))];
    }

    FindRequest randomRequest() {
        FindRequest request;
        request.needed = std::exp(between(std::log(8.0), std::log(2500.0)));
        request.kind = happens(0.3) ? CapacityKind::heating : CapacityKind::cooling;
        request.below = between(0, 20);
        request.above = between(0, 40);
        clsProjectConditions& c = request.conditions;
        c = conditionsAt(between(-35, 12), between(25, 60));
        c.SuperHeat = between(0, 22);
        c.SuperHeatType = happens(0.2) ? SuperheatKind::temperature : SuperheatKind::difference;
        c.SubCooling = between(0, 15);
        c.MotorHz = oneOf<int>({50, 60});
        c.MotorVoltage = oneOf<int>({380, 400, 460});
        c.MotorSize = oneOf<MotorChoice>({MotorChoice::standard, MotorChoice::small, MotorChoice::full});
        c.MotorRPM = oneOf<int>({1450, 1750});
        c.OilCoolingCalculateMode = oneOf<OilCoolingMode>(
            {OilCoolingMode::none, OilCoolingMode::catalogueLimit, OilCoolingMode::givenLimit});
        c.OilCooling = between(60, 110);
        if (happens(0.2)) c.EcoCalculateMode = EconomizerMode::approach;
        c.Eco = between(3, 12);
        request.steps = happens(0.5);
        request.maxMachines = oneOf<int>({1, 1, 2, 4});
        request.minMachines = happens(0.2) ? request.maxMachines : 1;
        request.markets = oneOf<int>({0, 0, 1, 2, 3});
        request.inverter =
            oneOf<InverterUse>({InverterUse::yes, InverterUse::yes, InverterUse::no, InverterUse::only});
        if (happens(0.5)) request.refrigerants = {"r134a", "R404A", "R290", "R448A"};
        if (happens(0.3)) request.series = {"TK-A", "tk-d", "TK-B", "DZ", "NL-H", "MV-A"};
        return request;
    }

    static bool isAsked(const FindRequest& request, const Pair& pair) {
        const auto isIn = [](const std::vector<std::string>& names, const std::string& name) {
            return names.empty() || std::ranges::any_of(names, [&](const std::string& each) {
                       return equalIgnoringCase(each, name);
                   });
        };
        if (pair.onInverter ? request.inverter == InverterUse::no : request.inverter == InverterUse::only)
            return false;
        return isIn(request.refrigerants, pair.refrigerant) && isIn(request.series, pair.series);
    }

    void expectSameOnTheMains(const FindRequest& request, const FindResult& result);
    void expectInverters(const FindRequest& request, const FindResult& result);

    Session session_;
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    Calculator calculator_;
    std::mt19937 random_{2020};
};

void FindTest::expectSameOnTheMains(const FindRequest& request, const FindResult& result) {
    BruteForce brute(request);
    for (const Pair& pair : allPairs())
        if (!pair.onInverter && isAsked(request, pair)) brute.onTheMains(pair);
    std::size_t found = 0;
    for (const Candidate& candidate : result.candidates) {
        if (candidate.compressor->hasInvert) continue;
        ++found;
        const auto plain = brute.candidates.find(
            {nameOf(*candidate.compressor), {candidate.conditions.StepCapacity, candidate.machines}});
        ASSERT_NE(plain, brute.candidates.end()) << std::get<2>(nameOf(*candidate.compressor));
        EXPECT_EQ(candidate.capacity, plain->second.capacity * candidate.machines);
        EXPECT_EQ(candidate.power, plain->second.power * candidate.machines);
        EXPECT_EQ(candidate.cop, plain->second.cop);
        EXPECT_EQ(candidate.dischargeTemperature, plain->second.discharge);
        EXPECT_EQ(candidate.hasWarnings, plain->second.hasWarnings);
    }
    EXPECT_EQ(found, brute.candidates.size());
    std::size_t rejected = 0;
    for (const Rejection& rejection : result.rejections) {
        if (rejection.compressor->hasInvert) continue;
        ++rejected;
        const auto expected = brute.rejections.find(nameOf(*rejection.compressor));
        ASSERT_NE(expected, brute.rejections.end());
        EXPECT_EQ(rejection.reason, expected->second.first);
        EXPECT_EQ(rejection.rule, expected->second.second);
    }
    EXPECT_EQ(rejected, brute.rejections.size());
}

/// Against capacities at many frequencies.
void FindTest::expectInverters(const FindRequest& request, const FindResult& result) {
    std::map<std::pair<Name, int>, const Candidate*> found;
    for (const Candidate& candidate : result.candidates)
        if (candidate.compressor->hasInvert)
            found[{nameOf(*candidate.compressor), candidate.machines}] = &candidate;
    const bool isEconomized = request.conditions.EcoCalculateMode != EconomizerMode::none;
    std::map<Name, std::vector<std::pair<float, Plain>>> runs;
    for (const Pair& pair : allPairs()) {
        if (!pair.onInverter || !isAsked(request, pair)) continue;
        for (float frequency = 20; frequency <= 70; frequency += isEconomized ? 5 : 2)
            for (const auto& [name, plain] : select(request, pair, 100, frequency))
                runs[name].emplace_back(frequency, plain);
    }
    const BruteForce brute(request);
    for (const auto& [name, run] : runs) {
        for (int machines = request.minMachines; machines <= request.maxMachines; ++machines) {
            SCOPED_TRACE(std::get<0>(name) + " " + std::get<1>(name) + " " + std::get<2>(name) + " x " +
                         std::to_string(machines));
            const auto it = found.find({name, machines});
            const Candidate* candidate = it == found.end() ? nullptr : it->second;
            bool isBetween = false;
            double nearest = HUGE_VAL;
            const Plain* last = nullptr;
            for (const auto& [frequency, plain] : run) {
                if (!plain.error.empty()) continue;
                const double deviation = brute.percentOff(plain.capacity * machines);
                if (std::abs(deviation) < std::abs(nearest)) nearest = deviation;
                if (last != nullptr && deviation * brute.percentOff(last->capacity * machines) <= 0)
                    isBetween = true;
                last = &plain;
            }
            // An error begins between two of the frequencies, and an economizer's search ends in steps.
            const double unsure = isEconomized ? 12 : 1e-9;
            if (isBetween || brute.isWithin(nearest)) {
                ASSERT_NE(candidate, nullptr);
            } else if (nearest < -request.below - unsure || nearest > request.above + unsure) {
                ASSERT_EQ(candidate, nullptr) << candidate->deviation;
            }
            if (candidate == nullptr) continue;
            const float frequency = *candidate->frequency();
            const Pair pair{std::get<0>(name), std::get<1>(name), true};
            const Plain plain = select(request, pair, 100, frequency).at(name);
            EXPECT_EQ(plain.error, "");
            EXPECT_EQ(candidate->capacity, plain.capacity * machines);
            EXPECT_EQ(candidate->power, plain.power * machines);
            EXPECT_EQ(candidate->cop, plain.cop);
            EXPECT_EQ(candidate->dischargeTemperature, plain.discharge);
            if (isBetween)
                EXPECT_NEAR(candidate->deviation, 0, isEconomized ? 0.2 : 1e-4) << frequency;
            else
                EXPECT_LE(std::abs(candidate->deviation), std::abs(nearest) + 1e-9);
        }
    }
}

TEST_F(FindTest, FindsWhatPlainSelectionsFind) {
    // More of them: MARVELLO_FIND_NEEDS=200.
    const char* const wanted = std::getenv("MARVELLO_FIND_NEEDS");
    const int needs = wanted != nullptr ? std::atoi(wanted) : 10;
    std::size_t candidates = 0;
    for (int i = 0; i < needs && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const FindRequest request = randomRequest();
        const FindResult result = find(request, catalogue_, calculator_);
        candidates += result.candidates.size();
        expectSameOnTheMains(request, result);
        expectInverters(request, result);
    }
    EXPECT_GT(candidates, static_cast<std::size_t>(needs) * 20);
    RecordProperty("candidates", std::to_string(candidates));
}

TEST_F(FindTest, EachCompressorIsAnsweredOnceAndTheBestIsFirst) {
    FindRequest request{.needed = 150, .conditions = conditionsAt(2, 40)};
    request.maxMachines = 4;
    request.steps = true;
    const FindResult result = find(request, catalogue_, calculator_);
    std::set<const PreparedCompressor*> possible;
    for (const Candidate& candidate : result.candidates) possible.insert(candidate.compressor);
    std::set<const PreparedCompressor*> all = possible;
    for (const Rejection& rejection : result.rejections) {
        EXPECT_FALSE(possible.contains(rejection.compressor));
        EXPECT_TRUE(all.insert(rejection.compressor).second);
    }
    EXPECT_EQ(all.size(), catalogue_->compressors().size());
    EXPECT_TRUE(std::ranges::is_sorted(result.candidates, {}, [](const Candidate& candidate) {
        return std::pair(-candidate.cop, std::abs(candidate.deviation));
    }));
    const Candidate* const nearest = result.nearest();
    ASSERT_NE(nearest, nullptr);
    for (const Rejection& rejection : result.rejections)
        if (rejection.nearest) {
            EXPECT_LE(std::abs(nearest->deviation), std::abs(rejection.nearest->deviation));
        }
}

TEST_F(FindTest, ANeedBeyondTheRangeEndsAtAFrequencyOfTheEnvelope) {
    FindRequest request{.needed = 1e6, .conditions = conditionsAt(2, 40)};
    request.inverter = InverterUse::only;
    std::set<float> highest;
    for (const Rejection& rejection : find(request, catalogue_, calculator_).rejections)
        if (rejection.nearest) highest.insert(*rejection.nearest->frequency());
    EXPECT_EQ(highest, (std::set<float>{50, 60, 70}));
    request.needed = 0.01;
    for (const Rejection& rejection : find(request, catalogue_, calculator_).rejections)
        if (rejection.nearest) {
            EXPECT_EQ(rejection.nearest->frequency(), 20.0F);
        }
}

TEST_F(FindTest, ThreadsFindTheSame) {
    FindRequest request{.needed = 300, .conditions = conditionsAt(-5, 42)};
    request.conditions.EcoCalculateMode = EconomizerMode::approach;
    request.maxMachines = 2;
    CalculatorPool pool(2);
    FindProgress progress;
    const FindResult ofPool = find(request, catalogue_, pool, &progress);
    const FindResult alone = find(request, catalogue_, calculator_);
    EXPECT_EQ(progress.done, catalogue_->compressors().size());
    EXPECT_EQ(ofPool.calculations, alone.calculations);
    ASSERT_EQ(ofPool.candidates.size(), alone.candidates.size());
    for (std::size_t i = 0; i < alone.candidates.size(); ++i) {
        EXPECT_EQ(ofPool.candidates[i].compressor, alone.candidates[i].compressor);
        EXPECT_EQ(ofPool.candidates[i].capacity, alone.candidates[i].capacity);
        EXPECT_EQ(ofPool.candidates[i].conditions.InverterFrequency,
                  alone.candidates[i].conditions.InverterFrequency);
    }
    EXPECT_EQ(ofPool.rejections.size(), alone.rejections.size());
}

TEST_F(FindTest, SaysWhatASeriesDoesNotPermit) {
    FindRequest request{.needed = 100, .conditions = conditionsAt(2, 40)};
    request.above = 1000;
    request.conditions.EcoCalculateMode = EconomizerMode::approach;
    request.conditions.MotorVoltage = 380;
    request.conditions.MotorHz = 60;
    request.series = {"TK-A", "MV-G", "GH4", "TK-D"};
    std::map<std::string, unsigned> putBack;
    for (const Candidate& candidate : find(request, catalogue_, calculator_).candidates) {
        putBack[candidate.compressor->Serie] |= candidate.putBack;
        EXPECT_EQ(candidate.conditions.MotorHz, candidate.compressor->Serie == "GH4" ? 50 : 60);
    }
    const auto bits = [](auto... selectors) { return (0U | ... | static_cast<unsigned>(selectors)); };
    const std::map<std::string, unsigned> expected{
        {"TK-A", 0},
        {"MV-G", bits(Selector::economizer)},
        {"GH4", bits(Selector::economizer, Selector::motorVoltage)},
        {"TK-D", 0}};
    EXPECT_EQ(putBack, expected);
}

TEST_F(FindTest, RefusesWhatNothingCanAnswer) {
    const FindRequest sound{.needed = 100, .conditions = conditionsAt(2, 40)};
    for (const auto& spoil : std::vector<void (*)(FindRequest&)>{
             [](FindRequest& r) { r.needed = 0; }, [](FindRequest& r) { r.needed = std::nan(""); },
             [](FindRequest& r) { r.below = -1; }, [](FindRequest& r) { r.maxMachines = 5; },
             [](FindRequest& r) { r.minMachines = 2; }}) {
        FindRequest request = sound;
        spoil(request);
        EXPECT_THROW(find(request, catalogue_, calculator_), std::invalid_argument);
    }
}

}  // namespace
}  // namespace marvello
