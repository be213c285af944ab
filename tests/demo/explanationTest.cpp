// What the calculation of a compressor writes down, read by somebody who knows arithmetic and the property
// library, and nothing of the engine.
#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "engine/Calculator.h"
#include "engine/Explanation.h"
#include "tests/support/RandomConditions.h"
#include "thermo/States.h"
#include "tools/select/ExplainJson.h"

namespace marvello {
namespace {

/// Evaluates formulas such as "3.2 * (408.7 - h(35, 10.2)) / 3600 < 12": sums, products, brackets, functions
/// by name, and one comparison.
class Reader {
  public:
    using Function = std::function<double(const std::vector<double>&)>;
    using Functions = std::map<std::string, Function>;

    Reader(std::string_view text, const Functions& functions) : text_(text), functions_(functions) {}

    double value() {
        const double result = comparison();
        EXPECT_EQ(at_, text_.size()) << text_;
        return result;
    }

  private:
    char next() {
        while (at_ < text_.size() && text_[at_] == ' ') ++at_;
        return at_ < text_.size() ? text_[at_] : '\0';
    }
    bool take(std::string_view sign) {
        next();
        if (!text_.substr(at_).starts_with(sign)) return false;
        at_ += sign.size();
        return true;
    }
    double comparison() {
        const double left = sum();
        if (take("<=")) return left <= sum() ? 1 : 0;
        if (take(">=")) return left >= sum() ? 1 : 0;
        if (take("<")) return left < sum() ? 1 : 0;
        if (take(">")) return left > sum() ? 1 : 0;
        if (take("=")) return left == sum() ? 1 : 0;
        return left;
    }
    double sum() {
        double value = product();
        while (true) {
            if (take("+"))
                value += product();
            else if (take("-"))
                value -= product();
            else
                return value;
        }
    }
    double product() {
        double value = single();
        while (true) {
            if (take("*"))
                value *= single();
            else if (take("/"))
                value /= single();
            else
                return value;
        }
    }
    double single() {
        if (take("(")) {
            const double value = sum();
            EXPECT_TRUE(take(")")) << text_;
            return value;
        }
        if (std::isalpha(static_cast<unsigned char>(next())) != 0) return call();
        char* end = nullptr;
        const std::string rest(text_.substr(at_));
        const double value = std::strtod(rest.c_str(), &end);
        EXPECT_NE(end, rest.c_str()) << text_;
        at_ += static_cast<std::size_t>(end - rest.c_str());
        return value;
    }
    double call() {
        const std::size_t bracket = text_.find('(', at_);
        const std::string name(text_.substr(at_, bracket - at_));
        at_ = bracket + 1;
        std::vector<double> arguments{sum()};
        while (take(",")) arguments.push_back(sum());
        EXPECT_TRUE(take(")")) << text_;
        const auto function = functions_.find(name);
        if (function != functions_.end()) return function->second(arguments);
        ADD_FAILURE() << "no function " << name;
        return 0;
    }

    std::string_view text_;
    const Functions& functions_;
    std::size_t at_ = 0;
};

Reader::Functions functionsOf(clsRefprop& refprop) {
    using A = std::vector<double>;
    const States states(refprop);
    return {{"abs", [](const A& a) { return std::abs(a[0]); }},
            {"round",
             [](const A& a) {
                 const double scale = std::pow(10, a[1]);
                 return std::round(a[0] * scale) / scale;
             }},
            {"pdew", [states](const A& a) { return states.dewPressure(a[0]); }},
            {"pbub", [states](const A& a) { return states.bubblePressure(a[0]); }},
            {"tdew", [states](const A& a) { return states.dewTemperature(a[0]); }},
            {"tbub", [states](const A& a) { return states.bubbleTemperature(a[0]); }},
            {"rhodew", [states](const A& a) { return states.dewDensity(a[0]); }},
            {"t_ph", [states](const A& a) { return states.temperatureAtEnthalpy(a[0], a[1]); }},
            {"t_ps", [states](const A& a) { return states.temperatureAtEntropy(a[0], a[1]); }},
            {"h", [states](const A& a) { return states.enthalpy(a[0], a[1]); }},
            {"h_ps", [states](const A& a) { return states.enthalpyAtEntropy(a[0], a[1]); }},
            {"s", [states](const A& a) { return states.entropy(a[0], a[1]); }},
            {"s_ph", [states](const A& a) { return states.entropyAtEnthalpy(a[0], a[1]); }},
            {"rho", [states](const A& a) { return states.density(a[0], a[1]); }}};
}

class ExplanationOnTheCatalogue : public ::testing::Test {
  protected:
    ExplanationOnTheCatalogue() {
        openCatalogue();
        catalogue = preparedCatalogue(gDatabase());
    }

    Session session{MARVELLO_APP_FOLDER};
    std::shared_ptr<const PreparedCatalogue> catalogue;
    testing::RandomConditions random{21};
};

/// The last value that each variable was given.
std::map<std::string, nlohmann::json> resultsOf(const nlohmann::json& sheet) {
    std::map<std::string, nlohmann::json> results;
    for (const auto& step : sheet["steps"])
        if (step.contains("symbol")) results[step["symbol"]] = step["result"];
    return results;
}

}  // namespace

TEST_F(ExplanationOnTheCatalogue, ItsFormulasGiveItsResults) {
    constexpr int wanted = 50;
    int possible = 0;
    int formulas = 0;
    std::set<std::string> kinds;
    while (possible < wanted) {
        const PreparedCompressor& compressor = random.compressorOf(*catalogue);
        const clsProjectConditions conditions = random.conditionsFor(compressor);
        const CollectedBoxes said;
        const Explanation explanation = explain(compressor, conditions);
        const auto sheet = nlohmann::json::parse(select::explanationJson(explanation));
        const auto functions = functionsOf(*SharedRefprop(compressor.Refrigerant));
        const std::string where = explanation.compressor->Key();
        for (const auto& step : sheet["steps"]) {
            if (!step.contains("numbers")) continue;
            ++formulas;
            const std::string numbers = step["numbers"];
            const double value = Reader(numbers, functions).value();
            const double expected =
                step.contains("outcome") ? (step["outcome"] ? 1 : 0) : step["result"].get<double>();
            EXPECT_NEAR(value, expected, 1e-9 * std::max(1.0, std::abs(expected))) << where << ": " << step;
        }
        for (const auto& rule : sheet["rules"]) {
            EXPECT_FALSE(rule["tests"].empty() && rule["messages"].empty()) << where << ": " << rule;
            for (const auto& test : rule["tests"]) {
                if (!test.contains("numbers")) continue;
                EXPECT_EQ(Reader(test["numbers"].get<std::string>(), functions).value() == 1, test["outcome"])
                    << where << ": " << test;
            }
        }
        if (explanation.compressor->Messages.Error.Count() > 0) continue;
        ++possible;
        kinds.insert(compressor.hasInvert ? "inverter" : "mains");
        kinds.insert("economizer " + std::to_string(codeOf(conditions.EcoCalculateMode)));
        kinds.insert("oil cooling " + std::to_string(codeOf(conditions.OilCoolingCalculateMode)));
    }
    EXPECT_EQ(kinds.size(), 8U) << "compressors of all kinds";
    EXPECT_GT(formulas, 50 * 40);
}

TEST_F(ExplanationOnTheCatalogue, IsOfTheSameCalculationAndNamesEveryVariable) {
    Calculator calculator;
    for (int i = 0; i < 300; ++i) {
        const PreparedCompressor& compressor = random.compressorOf(*catalogue);
        const clsProjectConditions conditions = random.conditionsFor(compressor);
        const CollectedBoxes said;
        const Explanation explanation = explain(compressor, conditions);
        const auto results = resultsOf(nlohmann::json::parse(select::explanationJson(explanation)));
        const clsCompressor& plain = calculator.calculate(compressor, conditions);
        ASSERT_EQ(explanation.compressor->Variables.Count(), plain.Variables.Count()) << plain.Key();
        for (const clsVariable* variable : plain.Variables) {
            const auto found = results.find(variable->Name());
            ASSERT_NE(found, results.end()) << plain.Key() << ": " << variable->Name();
            if (variable->isNumber())
                EXPECT_EQ(found->second.get<double>(), variable->number()) << variable->Name();
            else
                EXPECT_EQ(found->second.get<std::string>(), variable->text()) << variable->Name();
        }
        const auto count = [](const clsCompressor& of) {
            return std::tuple(of.Messages.Error.Count(), of.Messages.Attention.Count(),
                              of.Messages.Information.Count());
        };
        EXPECT_EQ(count(*explanation.compressor), count(plain)) << plain.Key();
    }
}

}  // namespace marvello
