// Times each call of the property library for a pure fluid and two blends of three components, at states as a
// selection asks for them, next to the equation of state by itself, and counts the allocations of a call.
#include <benchmark/benchmark.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "bench/Floor.h"
#include "fluids/FluidCache.h"
#include "fluids/RefpropSession.h"

namespace {

std::atomic<std::size_t> allocations = 0;

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using marvello::fluids::FluidModel;

struct Refrigerant {
    const char* name;
    std::vector<std::string> files;
    std::vector<double> massFractions;
};

const std::array<Refrigerant, 3> refrigerants{{
    {"R134A", {"R134A.FLD"}, {1}},
    {"R404A", {"R125.FLD", "R143A.FLD", "R134A.FLD"}, {0.44, 0.52, 0.04}},
    {"R407C", {"R32.FLD", "R125.FLD", "R134A.FLD"}, {0.23, 0.25, 0.52}},
}};

/// A session and its last state.
struct Caller : marvello::RefpropState {
    marvello::RefpropSession session{marvello::linkedRefprop()};

    void check() const {
        if (answer.code == 0) return;
        std::cerr << answer.sentence() << '\n';
        std::exit(EXIT_FAILURE);
    }
    void setUp(const Refrigerant& refrigerant) {
        answer = session.setUp(refrigerant.files, refrigerant.massFractions);
        check();
    }
    void take(const marvello::RefpropState& state) { RefpropState::operator=(state); }
    void saturationAtT(double at, std::int32_t side) { take(session.saturationAtT(at, side, *this)); }
    void saturationAtP(double at, std::int32_t side) { take(session.saturationAtP(at, side, *this)); }
    void atTP(double atT, double atP) {
        take(session.atTP(atT, atP, *this));
        t = atT;
    }
    void atPH(double atP, double atH) { take(session.atPH(atP, atH, *this)); }
    void atPS(double atP, double atS) { take(session.atPS(atP, atS, *this)); }
    void atTS(double atT, double atS) { take(session.atTS(atT, atS, *this)); }
};

/// Walks a value over a range, so that no answer can be remembered from the call before.
class Walk {
  public:
    Walk(double from, double to) : from_(from), width_(to - from) {}
    double next() {
        place_ += 0.6180339887498949;
        if (place_ > 1) place_ -= 1;
        return from_ + width_ * place_;
    }

  private:
    double from_;
    double width_;
    double place_ = 0;
};

/// A fluid with its boundary, read and solved anew.
std::shared_ptr<const FluidModel> modelOf(const Refrigerant& refrigerant) {
    marvello::fluids::FluidCache cache;
    const auto mixture = cache.mixture({refrigerant.files, "hmx.bnc", {MARVELLO_APP_FOLDER "/Fluids"}});
    marvello::fluids::Composition composition;
    double moles = 0;
    for (std::size_t i = 0; i < mixture->size(); ++i) {
        composition.kept.push_back(i);
        moles += composition.fractions.emplace_back(refrigerant.massFractions[i] /
                                                    mixture->components()[i].molarMass);
    }
    for (double& fraction : composition.fractions) fraction /= moles;
    return cache.fluid(mixture, composition);
}

/// The equation of state by itself: pressure, enthalpy, entropy, heat capacities and speed of sound at a
/// temperature and density. No call can cost less.
class Equation {
  public:
    explicit Equation(const Refrigerant& refrigerant) : fluid_(modelOf(refrigerant)) {}
    void once() { benchmark::DoNotOptimize(fluid_->phase().at(temperature_.next()).state(density_.next())); }

  private:
    std::shared_ptr<const FluidModel> fluid_;
    Walk temperature_{280, 380};
    Walk density_{0.1, 0.9};
};

/// Runs a call over states; `allocations` is the mean of one call.
void run(benchmark::State& state, const Refrigerant& refrigerant, Caller& caller, Walk walk,
         const std::function<void(Caller&, double)>& call) {
    constexpr int calls = 1000;
    call(caller, walk.next());
    caller.check();
    Equation equation(refrigerant);
    std::size_t allocated = 0;
    marvello::bench::AgainstFloor(state, "one evaluation of the equation of state", calls)
        .run(
            [&] {
                const std::size_t before = allocations;
                for (int i = 0; i < calls; ++i) {
                    call(caller, walk.next());
                    benchmark::DoNotOptimize(caller);
                }
                allocated += allocations - before;
            },
            [&] {
                for (int i = 0; i < calls; ++i) equation.once();
            });
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(allocated) / calls, benchmark::Counter::kAvgIterations);
    caller.check();
}

constexpr double pressure = 1000;  // kPa

/// What the isobar looks like, so that the same places are asked of every fluid.
struct Isobar {
    explicit Isobar(Caller& caller) {
        caller.saturationAtP(pressure, 1);
        bubble = caller.t;
        caller.atTP(bubble - 40, pressure);
        coldH = caller.h;
        caller.atTP(bubble - 0.1, pressure);
        bubbleH = caller.h;
        caller.saturationAtP(pressure, 2);
        dew = caller.t;
        caller.atTP(dew + 0.1, pressure);
        dewH = caller.h;
        dewS = caller.s;
        caller.atTP(dew + 60, pressure);
        hotH = caller.h;
        hotS = caller.s;
    }
    double bubble, dew, coldH, bubbleH, dewH, dewS, hotH, hotS;
};

/// A thousand states of liquid and vapour on the isobar by one array call, next to `floor`.
class ArrayCall {
  public:
    ArrayCall(Caller& caller, const Isobar& isobar) : caller_(caller) {
        Walk liquid(isobar.bubble - 40, isobar.bubble);
        Walk vapour(isobar.dew, isobar.dew + 60);
        for (std::size_t i = 0; i < count; ++i) {
            caller.atTP((i % 3 == 0 ? liquid : vapour).next(), pressure);
            t_.push_back(caller.t);
            h_.push_back(caller.h);
        }
        p_.assign(count, pressure);
    }

    void byTP() { caller_.session.statesAtTP(t_, p_, found_); }
    void byPH() { caller_.session.statesAtPH(p_, h_, found_); }
    void singlyByTP() {
        for (const double t : t_) caller_.atTP(t, pressure);
    }
    void singlyByPH() {
        for (const double h : h_) caller_.atPH(pressure, h);
    }

    static constexpr std::size_t count = 1000;

  private:
    Caller& caller_;
    std::vector<double> t_, p_, h_;
    marvello::RefpropStates found_;
};

void defineArrays(const Refrigerant& refrigerant) {
    using Call = void (ArrayCall::*)();
    const auto add = [&](const std::string& what, const char* floorName, Call work, auto floor) {
        benchmark::RegisterBenchmark((refrigerant.name + ("/" + what)).c_str(),
                                     [&refrigerant, floorName, work, floor](benchmark::State& state) {
                                         Caller caller;
                                         caller.setUp(refrigerant);
                                         ArrayCall call(caller, Isobar(caller));
                                         Equation equation(refrigerant);
                                         marvello::bench::AgainstFloor(state, floorName, ArrayCall::count)
                                             .run([&] { (call.*work)(); }, [&] { floor(call, equation); });
                                         caller.check();
                                     })
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    };
    const auto equations = [](ArrayCall&, Equation& equation) {
        for (std::size_t i = 0; i < ArrayCall::count; ++i) equation.once();
    };
    const char* evaluation = "one evaluation of the equation of state";
    const char* single = "a single call";
    add("array TP", evaluation, &ArrayCall::byTP, equations);
    add("array TP to single", single, &ArrayCall::byTP,
        [](ArrayCall& call, Equation&) { call.singlyByTP(); });
    add("array PH", evaluation, &ArrayCall::byPH, equations);
    add("array PH to single", single, &ArrayCall::byPH,
        [](ArrayCall& call, Equation&) { call.singlyByPH(); });
}

void define(const Refrigerant& refrigerant) {
    const std::string name = refrigerant.name;
    const auto add = [&](const std::string& what, auto walk, auto call) {
        benchmark::RegisterBenchmark((name + "/" + what).c_str(),
                                     [&refrigerant, walk, call](benchmark::State& state) {
                                         Caller caller;
                                         caller.setUp(refrigerant);
                                         run(state, refrigerant, caller, walk(Isobar(caller)), call);
                                     })
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    };
    benchmark::RegisterBenchmark((name + "/setup").c_str(), [&refrigerant](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(modelOf(refrigerant));
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((name + "/setup of a second handle").c_str(), [&refrigerant](
                                                                                   benchmark::State& state) {
        Caller first;
        first.setUp(refrigerant);
        for (auto _ : state) {
            Caller caller;
            caller.setUp(refrigerant);
        }
    })->Unit(benchmark::kMicrosecond);
    const auto temperatures = [](const Isobar&) { return Walk(243.15, 333.15); };
    add("SATT bubble", temperatures, [](Caller& c, double t) { c.saturationAtT(t, 1); });
    add("SATT dew", temperatures, [](Caller& c, double t) { c.saturationAtT(t, 2); });
    add(
        "SATP dew", [](const Isobar&) { return Walk(200, 2000); },
        [](Caller& c, double p) { c.saturationAtP(p, 2); });
    add(
        "TP liquid", [](const Isobar& i) { return Walk(i.bubble - 40, i.bubble); },
        [](Caller& c, double t) { c.atTP(t, pressure); });
    add(
        "TP vapour", [](const Isobar& i) { return Walk(i.dew, i.dew + 60); },
        [](Caller& c, double t) { c.atTP(t, pressure); });
    add(
        "PH liquid", [](const Isobar& i) { return Walk(i.coldH, i.bubbleH); },
        [](Caller& c, double h) { c.atPH(pressure, h); });
    add(
        "PH two-phase", [](const Isobar& i) { return Walk(i.bubbleH + 500, i.dewH); },
        [](Caller& c, double h) { c.atPH(pressure, h); });
    add(
        "PH vapour", [](const Isobar& i) { return Walk(i.dewH, i.hotH); },
        [](Caller& c, double h) { c.atPH(pressure, h); });
    add(
        "PS vapour", [](const Isobar& i) { return Walk(i.dewS, i.hotS); },
        [](Caller& c, double s) { c.atPS(pressure, s); });
    add(
        "TS vapour", [](const Isobar& i) { return Walk(i.dewS, i.hotS); },
        [](Caller& c, double s) { c.atTS(330, s); });
}

}  // namespace

int main(int argc, char** argv) {
    for (const Refrigerant& refrigerant : refrigerants) {
        define(refrigerant);
        defineArrays(refrigerant);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
