#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "fluids/RefpropSession.h"

namespace marvello::test {

constexpr double undefined = -9999990;

using Fractions = RefpropSession::Fractions;

using Answer = RefpropAnswer;

/// What a flash or a saturation call gives, with the inputs of a flash repeated.
struct Properties : RefpropState {
    Fractions x{}, y{};
};

/// The library as one that has the ten functions alone. The calls below go through them.
SharedRefpropFunctions tenFunctions();

/// What a refrigerant consists of, in the order of the tables.
struct Refrigerant {
    std::string name;
    std::vector<std::string> files;  ///< such as R134A.FLD
    std::vector<double> massFractions;
    /// K; below, the liquid splits in two somewhere in the two-phase region, and states there may be refused.
    double oneLiquidAbove = 0;

    bool isBlend() const { return files.size() > 1; }
};
void PrintTo(const Refrigerant& refrigerant, std::ostream* stream);

// A literal: the tests are listed before any object is made.
constexpr const char* dataFolder = MARVELLO_SOURCE_FOLDER "/tests/fluids/data/";

/// All refrigerants of blends.csv, or one of them.
const std::vector<Refrigerant>& refrigerants();
const Refrigerant& refrigerant(const std::string& name);
/// As the name of a test may be: R1234ze(E) as R1234zeE.
std::string testName(const testing::TestParamInfo<Refrigerant>& instance);

/// Sets up; the calls that follow ask for the first fluid alone.
Answer setUp(const std::string& files, std::int32_t count = 1, const std::string& reference = "DEF");
/// Sets up as a program does that knows mass fractions: the reference state of a blend is the blend's own.
/// The calls that follow ask for this composition.
Answer setUp(const Refrigerant& refrigerant, const std::string& reference = "DEF");
Answer setReference(const std::string& reference, std::int32_t flag = 1);

/// The mole fractions of the calls that follow.
void useFractions(const Fractions& z);
const Fractions& fractionsInUse();

/// Mole fractions and molar mass (g/mol) of the set-up at these mass fractions.
struct Moles {
    Fractions fractions{};
    double molarMass = 0;
};
Moles molesOf(const std::vector<double>& massFractions);

Properties saturationAtT(double t, std::int32_t side = 2);
Properties saturationAtP(double p, std::int32_t side = 2);
Properties atTP(double t, double p);
Properties atTS(double t, double s);
Properties atPH(double p, double h);
Properties atPS(double p, double s);

/// The largest of |a_i - b_i|.
double distance(const Fractions& a, const Fractions& b);

/// |a/b - 1|, or |a| where b is 0.
double deviation(double a, double b);

}  // namespace marvello::test
