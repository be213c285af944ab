// Times each call of the property library for R134a, at states as a selection asks for them.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "fluids/Refprop.h"

namespace {

using Fractions = std::array<double, 20>;

struct Outputs {
    double t = 0, p = 0, D = 0, Dl = 0, Dv = 0, q = 0, e = 0, h = 0, s = 0, cv = 0, cp = 0, w = 0;
    Fractions x{}, y{};
    std::int32_t ierr = 0;
    std::array<char, 255> herr{};
};

constexpr Fractions pure{1.0};
constexpr std::int32_t errorLength = 255;

void setUp(Outputs& out) {
    std::string files = "Fluids\\R134A.FLD";
    files.resize(10000, ' ');
    const std::string mix(255, ' ');
    const std::int32_t count = 1;
    SETUPdll(&count, files.data(), mix.data(), "DEF", &out.ierr, out.herr.data(), 10000, 255, 3, errorLength);
    if (out.ierr != 0) {
        std::cerr << std::string(out.herr.data(), out.herr.size()) << '\n';
        std::exit(EXIT_FAILURE);
    }
}

/// Walks a value over a range, so that no answer can be remembered from the call before.
class Walk {
  public:
    Walk(double from, double to) : from_(from), width_(to - from) {}
    double next() {
        place_ = place_ + 0.6180339887498949;
        if (place_ > 1) place_ -= 1;
        return from_ + width_ * place_;
    }

  private:
    double from_;
    double width_;
    double place_ = 0;
};

void setup(benchmark::State& state) {
    Outputs out;
    for (auto _ : state) setUp(out);
}
BENCHMARK(setup)->Unit(benchmark::kMicrosecond);

void saturationPressure(benchmark::State& state) {
    Outputs out;
    setUp(out);
    const std::int32_t dew = 2;
    Walk temperature(243.15, 343.15);
    for (auto _ : state) {
        const double t = temperature.next();
        SATTdll(&t, pure.data(), &dew, &out.p, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.ierr,
                out.herr.data(), errorLength);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(saturationPressure);

void saturationTemperature(benchmark::State& state) {
    Outputs out;
    setUp(out);
    const std::int32_t dew = 2;
    Walk pressure(100, 2000);
    for (auto _ : state) {
        const double p = pressure.next();
        SATPdll(&p, pure.data(), &dew, &out.t, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.ierr,
                out.herr.data(), errorLength);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(saturationTemperature);

void temperaturePressure(benchmark::State& state, double from, double to) {
    Outputs out;
    setUp(out);
    const double p = 1000;
    Walk temperature(from, to);
    for (auto _ : state) {
        const double t = temperature.next();
        TPFLSHdll(&t, &p, pure.data(), &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.q, &out.e,
                  &out.h, &out.s, &out.cv, &out.cp, &out.w, &out.ierr, out.herr.data(), errorLength);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK_CAPTURE(temperaturePressure, liquid, 270.0, 310.0);
BENCHMARK_CAPTURE(temperaturePressure, vapour, 315.0, 380.0);

void pressureEnthalpy(benchmark::State& state, double from, double to) {
    Outputs out;
    setUp(out);
    const double p = 1000;
    Walk enthalpy(from, to);
    for (auto _ : state) {
        const double h = enthalpy.next();
        PHFLSHdll(&p, &h, pure.data(), &out.t, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.q,
                  &out.e, &out.s, &out.cv, &out.cp, &out.w, &out.ierr, out.herr.data(), errorLength);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK_CAPTURE(pressureEnthalpy, liquid, 21000.0, 25000.0);
BENCHMARK_CAPTURE(pressureEnthalpy, twoPhase, 27000.0, 41000.0);
BENCHMARK_CAPTURE(pressureEnthalpy, vapour, 43500.0, 50000.0);

void pressureEntropy(benchmark::State& state) {
    Outputs out;
    setUp(out);
    const double p = 1000;
    Walk entropy(177, 195);
    for (auto _ : state) {
        const double s = entropy.next();
        PSFLSHdll(&p, &s, pure.data(), &out.t, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.q,
                  &out.e, &out.h, &out.cv, &out.cp, &out.w, &out.ierr, out.herr.data(), errorLength);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(pressureEntropy);

void temperatureEntropy(benchmark::State& state) {
    Outputs out;
    setUp(out);
    const double t = 330;
    const std::int32_t root = 0;
    Walk entropy(176, 195);
    for (auto _ : state) {
        const double s = entropy.next();
        TSFLSHdll(&t, &s, pure.data(), &root, &out.p, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(),
                  &out.q, &out.e, &out.h, &out.cv, &out.cp, &out.w, &out.ierr, out.herr.data(), errorLength);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(temperatureEntropy);

}  // namespace
