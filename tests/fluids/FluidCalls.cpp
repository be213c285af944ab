#include "tests/fluids/FluidCalls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "fluids/Refprop.h"
#include "tools/fluids/Composition.h"

namespace marvello::test {
namespace {

constexpr Fractions pure{1.0};
Fractions inUse = pure;

/// An error buffer as a caller has it.
struct Buffer {
    static constexpr std::int32_t length = 255;
    std::int32_t code = 12345;
    std::string text = std::string(length, '#');

    Answer answer() const { return {code, text.substr(0, text.find_last_not_of(' ') + 1)}; }
};

/// Calls one of the functions with these arguments, and keeps what it says of its success.
template <class Function, class... Arguments>
void ask(Properties& out, Function function, Arguments... arguments) {
    Buffer error;
    function(arguments..., &error.code, error.text.data(), Buffer::length);
    out.error = error.answer();
}

std::string padded(const std::string& text, std::size_t length) {
    return text + std::string(length - text.size(), ' ');
}

}  // namespace

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

void useFractions(const Fractions& z) { inUse = z; }

const Fractions& fractionsInUse() { return inUse; }

Moles molesOf(const std::vector<double>& massFractions) {
    Fractions mass{};
    std::copy(massFractions.begin(), massFractions.end(), mass.begin());
    Moles moles;
    XMOLEdll(mass.data(), moles.fractions.data(), &moles.molarMass);
    return moles;
}

Answer setUp(const std::string& files, std::int32_t count, const std::string& reference) {
    Buffer error;
    inUse = pure;
    SETUPdll(&count, padded(files, 10000).data(), padded("Fluids\\hmx.bnc", 255).data(),
             padded(reference, 3).data(), &error.code, error.text.data(), 10000, 255, 3, Buffer::length);
    return error.answer();
}

Answer setReference(const std::string& reference, std::int32_t flag) {
    Buffer error;
    const double zero = 0;
    SETREFdll(padded(reference, 3).data(), &flag, inUse.data(), &zero, &zero, &zero, &zero, &error.code,
              error.text.data(), 3, Buffer::length);
    return error.answer();
}

Properties saturationAtT(double t, std::int32_t side) {
    Properties out;
    ask(out, SATTdll, &t, inUse.data(), &side, &out.p, &out.Dl, &out.Dv, out.x.data(), out.y.data());
    return out;
}

Properties saturationAtP(double p, std::int32_t side) {
    Properties out;
    ask(out, SATPdll, &p, inUse.data(), &side, &out.t, &out.Dl, &out.Dv, out.x.data(), out.y.data());
    return out;
}

Properties atTP(double t, double p) {
    Properties out{.t = t, .p = p};
    ask(out, TPFLSHdll, &t, &p, inUse.data(), &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.q,
        &out.e, &out.h, &out.s, &out.cv, &out.cp, &out.w);
    return out;
}

Properties atTS(double t, double s) {
    Properties out{.t = t, .s = s};
    const std::int32_t root = 0;
    ask(out, TSFLSHdll, &t, &s, inUse.data(), &root, &out.p, &out.D, &out.Dl, &out.Dv, out.x.data(),
        out.y.data(), &out.q, &out.e, &out.h, &out.cv, &out.cp, &out.w);
    return out;
}

Properties atPH(double p, double h) {
    Properties out{.p = p, .h = h};
    ask(out, PHFLSHdll, &p, &h, inUse.data(), &out.t, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(),
        &out.q, &out.e, &out.s, &out.cv, &out.cp, &out.w);
    return out;
}

Properties atPS(double p, double s) {
    Properties out{.p = p, .s = s};
    ask(out, PSFLSHdll, &p, &s, inUse.data(), &out.t, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(),
        &out.q, &out.e, &out.h, &out.cv, &out.cp, &out.w);
    return out;
}

double distance(const Fractions& a, const Fractions& b) {
    double most = 0;
    for (std::size_t i = 0; i < a.size(); ++i) most = std::max(most, std::abs(a[i] - b[i]));
    return most;
}

double deviation(double a, double b) { return b == 0 ? std::abs(a) : std::abs(a / b - 1); }

}  // namespace marvello::test
