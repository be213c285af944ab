#include <cmath>

#include "data/Arithmetic.h"
#include "data/Session.h"
#include "engine/EconomizerCalculation.h"
#include "engine/StepControl.h"

namespace marvello {

namespace {

constexpr double capacityTolerance = 0.05;  // kW
constexpr double approachTolerance = 0.01;  // K
constexpr double unknownError = 20;         // before the first pass: outside of every tolerance

constexpr double smallFlow = 1;  // kg/h
// Over the evaporator's flow; a search that goes beyond has no solution.
constexpr double maxFlow = 1.5;
constexpr double maxTankFlow = 2;
// The flow changes by this part of the error, in kW or K, times the step.
constexpr double damping = 10;

/// Kept: Italian, as in the reports and exports that users have.
constexpr auto plate = "Piastra";

constexpr double isTrue = -1;
constexpr double isFalse = 0;

/// Trials without a smaller error that a search is given. Of thousands over ports and points without sense,
/// those that got anywhere needed no more than 50.
constexpr int patience = 50;

}  // namespace

template <class Tracing>
void EconomizerCalculation<Tracing>::Eco_Q0() {
    using std::abs;
    const auto missing = [this] { return checked(v_[var::Eco] - (v_[var::Q0] + v_[var::Qeco])); };
    constexpr float firstStep = 0.25F;
    StepControl step(firstStep);
    set(var::meco, smallFlow);
    EcoCycle();
    if (AbortRequested()) return;
    if (missing() < 0) {
        noSolution();
        return;
    }
    set(var::meco, v_[var::Mev] * firstShare);
    EcoCycle();
    Number error = missing();
    step.remember(valueOf(error));
    set(var::EcoOK, isFalse);

    LostSearch trials(patience);
    for (Number distance = unknownError; distance > capacityTolerance; distance = abs(error)) {
        set(var::meco, v_[var::meco] * (1 + tracing_.named("step", step.size()) * error / damping));
        EcoCycle();
        if (AbortRequested()) break;
        if (abs(v_[var::meco]) > maxFlow * abs(v_[var::Mev])) {
            noSolution();
            return;
        }
        EcoCycle();  // Kept: again at the same flow, for a value that failed keeps that of the pass before.
        error = missing();
        if (v_[var::meco] < 0) set(var::meco, smallFlow);
        step.apply(valueOf(error));
        if (abs(error) > capacityTolerance && trials.isLost(valueOf(error))) {
            noSolution();
            return;
        }
    }

    // Kept: the approach is compared with Eco, though that is a capacity here: it decides which of the two
    // economizers a result names.
    if (v_[var::T31] - v_[var::T7D] > v_[var::Eco]) {
        set(var::EcoModel, plate);
    } else if (v_[var::T31] - v_[var::T6] > 0) {
        set(var::EcoModel, "Tank");
    } else {
        set(var::EcoModel, "Impossible");
        noSolution();
        if (v_[var::EcoOK] == isTrue) noSolution();
    }
}

template <class Tracing>
void EconomizerCalculation<Tracing>::Eco_Automatic() {
    Number distance = 0;
    trySet(var::meco, [] { return smallFlow; });
    EcoCycle();
    if (AbortRequested()) return;
    attemptSilently([&] { distance = v_[var::T31] - v_[var::T6]; });
    if (distance < 0) {
        noSolution();
        set(var::EcoOK, isTrue);
        return;
    }
    Number wanted = 0;
    attemptSilently([&] { wanted = v_[var::Eco]; });
    if (distance < wanted) {
        trySet(var::meco, [&] { return v_[var::Mev] * firstShare; });
        tankStage(unknownError, StepControl(automaticStep));
    } else {
        plateStage(wanted);
    }
}

/// Drives the approach of the subcooled liquid to the injected gas down to the wanted one.
template <class Tracing>
void EconomizerCalculation<Tracing>::plateStage(const Number& wanted) {
    using std::abs;
    StepControl step(automaticStep);
    set(var::EcoModel, plate);
    trySet(var::meco, [&] { return v_[var::Mev] * firstShare; });
    EcoCycle();
    Number approach = 0;
    attemptSilently([&] { approach = v_[var::T31] - v_[var::T7D]; });
    Number error = approach - wanted;
    step.remember(valueOf(error));
    trySet(var::meco, [&] { return v_[var::meco] * (checked(approach / wanted) - 1); });
    set(var::EcoOK, isFalse);

    LostSearch trials(patience);
    while (abs(error) > approachTolerance) {
        trySet(var::meco,
               [&] { return v_[var::meco] * (1 + tracing_.named("step", step.size()) * error / damping); });
        EcoCycle();
        if (AbortRequested()) return;
        if (v_[var::meco] < smallFlow) {
            tankStage(error, step);
            return;
        }
        attemptSilently([&] { approach = v_[var::T31] - v_[var::T7D]; });
        error = abs(approach) - wanted;
        step.apply(valueOf(approach - wanted));
        turn();
        if (abs(error) > approachTolerance && trials.isLost(valueOf(error))) {
            set(var::EcoModel, "Impossible");
            noSolution();
            return;
        }
    }
}

/// Drives the liquid down to the bubble temperature at the injection pressure.
template <class Tracing>
void EconomizerCalculation<Tracing>::tankStage(Number error, StepControl step) {
    using std::abs;
    step.restart();
    set(var::EcoOK, isFalse);
    set(var::EcoModel, "Tank");
    constexpr double firstRaise = 5;
    trySet(var::meco, [&] { return v_[var::meco] * firstRaise; });
    Number distance = 0;
    LostSearch trials(patience);
    while (abs(error) > approachTolerance && !AbortRequested()) {
        EcoCycle();
        attemptSilently([&] { distance = v_[var::T31] - v_[var::T6]; });
        error = abs(distance);
        trySet(var::meco,
               [&] { return v_[var::meco] * (1 + tracing_.named("step", step.size()) * distance); });
        if (v_[var::meco] < 0) set(var::meco, smallFlow);
        step.apply(valueOf(distance));
        const Number flow = v_[var::meco];
        if (abs(flow) > maxTankFlow * abs(v_[var::Mev]) || flow < smallFlow ||
            (abs(error) > approachTolerance && trials.isLost(valueOf(error)))) {
            noSolution();
            set(var::EcoModel, "Impossible");
            return;
        }
    }
}

template void EconomizerCalculation<Untraced>::Eco_Q0();
template void EconomizerCalculation<Tracer>::Eco_Q0();
template void EconomizerCalculation<Untraced>::Eco_Automatic();
template void EconomizerCalculation<Tracer>::Eco_Automatic();

}  // namespace marvello
