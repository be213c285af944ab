#include "tests/fluids/FluidCalls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "tools/fluids/Composition.h"

namespace marvello::test {
namespace {

RefpropSession& session() {
    static RefpropSession theSession(tenFunctions());
    return theSession;
}

Properties propertiesOf(const RefpropState& state) { return {state, session().liquid(), session().vapour()}; }

}  // namespace

SharedRefpropFunctions tenFunctions() {
    auto functions = std::make_shared<RefpropFunctions>(*linkedRefprop());
    functions->handles = nullptr;
    return functions;
}

void PrintTo(const Refrigerant& refrigerant, std::ostream* stream) { *stream << refrigerant.name; }

const std::vector<Refrigerant>& refrigerants() {
    static const std::vector<Refrigerant> all = [] {
        std::vector<Refrigerant> found;
        for (const properties::Composition& known : properties::readCompositions(dataFolder)) {
            Refrigerant& refrigerant = found.emplace_back();
            refrigerant.name = known.name;
            for (const auto& part : known.parts) {
                refrigerant.files.push_back(part.file);
                refrigerant.massFractions.push_back(part.massFraction);
            }
        }
        return found;
    }();
    return all;
}

const Refrigerant& refrigerant(const std::string& name) {
    const auto isIt = [&](const Refrigerant& known) { return known.name == name; };
    const auto found = std::find_if(refrigerants().begin(), refrigerants().end(), isIt);
    if (found == refrigerants().end()) throw std::invalid_argument("no refrigerant " + name);
    return *found;
}

std::string testName(const testing::TestParamInfo<Refrigerant>& instance) {
    std::string name = instance.param.name;
    std::erase_if(name, [](char c) { return c == '(' || c == ')'; });
    return name;
}

Answer setUp(const Refrigerant& refrigerant, const std::string& reference) {
    std::string files;
    for (const std::string& file : refrigerant.files)
        files += (files.empty() ? "" : "|") + ("Fluids\\" + file);
    Answer answer = setUp(files, static_cast<std::int32_t>(refrigerant.files.size()), reference);
    if (answer.code != 0) return answer;
    useFractions(molesOf(refrigerant.massFractions).fractions);
    return refrigerant.isBlend() ? setReference(reference, 2) : answer;
}

void useFractions(const Fractions& z) { session().useFractions(z); }

const Fractions& fractionsInUse() { return session().fractions(); }

Moles molesOf(const std::vector<double>& massFractions) {
    RefpropSession other(tenFunctions());
    const double molarMass = other.useMassFractions(massFractions);
    return {other.fractions(), molarMass};
}

Answer setUp(const std::string& files, std::int32_t count, const std::string& reference) {
    useFractions({1.0});
    return session().load(files, count, "Fluids\\hmx.bnc", reference);
}

Answer setReference(const std::string& reference, std::int32_t flag) {
    return session().setReference(reference, flag);
}

Properties saturationAtT(double t, std::int32_t side) {
    return propertiesOf(session().saturationAtT(t, side));
}

Properties saturationAtP(double p, std::int32_t side) {
    return propertiesOf(session().saturationAtP(p, side));
}

Properties atTP(double t, double p) { return propertiesOf(session().atTP(t, p, {.t = t, .p = p})); }

Properties atTS(double t, double s) { return propertiesOf(session().atTS(t, s, {.t = t, .s = s})); }

Properties atPH(double p, double h) { return propertiesOf(session().atPH(p, h, {.p = p, .h = h})); }

Properties atPS(double p, double s) { return propertiesOf(session().atPS(p, s, {.p = p, .s = s})); }

double distance(const Fractions& a, const Fractions& b) {
    double most = 0;
    for (std::size_t i = 0; i < a.size(); ++i) most = std::max(most, std::abs(a[i] - b[i]));
    return most;
}

double deviation(double a, double b) { return b == 0 ? std::abs(a) : std::abs(a / b - 1); }

}  // namespace marvello::test
