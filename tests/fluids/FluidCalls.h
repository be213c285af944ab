#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace marvello::test {

constexpr double undefined = -9999990;

using Fractions = std::array<double, 20>;

/// Error code and sentence of a call, the sentence without the blanks behind it.
struct Answer {
    std::int32_t code = 0;
    std::string text;
};

/// What a flash or a saturation call gives, with the inputs of a flash repeated.
struct Properties {
    double t = 0, p = 0, D = 0, Dl = 0, Dv = 0, q = 0, e = 0, h = 0, s = 0, cv = 0, cp = 0, w = 0;
    Fractions x{}, y{};
    Answer error;
};

Answer setUp(const std::string& files, std::int32_t count = 1, const std::string& reference = "DEF");
Answer setReference(const std::string& reference, std::int32_t flag = 1);
Properties saturationAtT(double t, std::int32_t side = 2);
Properties saturationAtP(double p, std::int32_t side = 2);
Properties atTP(double t, double p);
Properties atTS(double t, double s);
Properties atPH(double p, double h);
Properties atPS(double p, double s);

/// A table of tests/fluids/data: the fields behind the first one of the rows that begin with `first`.
std::vector<std::vector<std::string>> readFields(const std::string& file, const std::string& first);

/// A table of tests/fluids/data: rows of the fluid named in the first column, as numbers; an empty field is
/// NaN.
std::vector<std::vector<double>> readRows(const std::string& file, const std::string& fluid);

/// |a/b - 1|, or |a| where b is 0.
double deviation(double a, double b);

}  // namespace marvello::test
