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

void EconomizerCalculation::Eco_Q0() {
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
    double error = missing();
    step.remember(error);
    set(var::EcoOK, isFalse);

    LostSearch trials(patience);
    for (double distance = unknownError; distance > capacityTolerance; distance = std::abs(error)) {
        set(var::meco, v_[var::meco] * (1 + step.size() * error / damping));
        EcoCycle();
        if (AbortRequested()) break;
        if (std::abs(v_[var::meco]) > maxFlow * std::abs(v_[var::Mev])) {
            noSolution();
            return;
        }
        EcoCycle();  // Kept: again at the same flow, for a value that failed keeps that of the pass before.
        error = missing();
        if (v_[var::meco] < 0) set(var::meco, smallFlow);
        step.apply(error);
        if (std::abs(error) > capacityTolerance && trials.isLost(error)) {
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

void EconomizerCalculation::Eco_Automatic() {
    double distance = 0;
    trySet(var::meco, [] { return smallFlow; });
    EcoCycle();
    if (AbortRequested()) return;
    Statements::attemptSilently([&] { distance = v_[var::T31] - v_[var::T6]; });
    if (distance < 0) {
        noSolution();
        set(var::EcoOK, isTrue);
        return;
    }
    double wanted = 0;
    Statements::attemptSilently([&] { wanted = v_[var::Eco]; });
    if (distance < wanted) {
        trySet(var::meco, [&] { return v_[var::Mev] * firstShare; });
        tankStage(unknownError, StepControl(automaticStep));
    } else {
        plateStage(wanted);
    }
}

/// Drives the approach of the subcooled liquid to the injected gas down to the wanted one.
void EconomizerCalculation::plateStage(double wanted) {
    StepControl step(automaticStep);
    set(var::EcoModel, plate);
    trySet(var::meco, [&] { return v_[var::Mev] * firstShare; });
    EcoCycle();
    double approach = 0;
    Statements::attemptSilently([&] { approach = v_[var::T31] - v_[var::T7D]; });
    double error = approach - wanted;
    step.remember(error);
    trySet(var::meco, [&] { return v_[var::meco] * (checked(approach / wanted) - 1); });
    set(var::EcoOK, isFalse);

    LostSearch trials(patience);
    while (std::abs(error) > approachTolerance) {
        trySet(var::meco, [&] { return v_[var::meco] * (1 + step.size() * error / damping); });
        EcoCycle();
        if (AbortRequested()) return;
        if (v_[var::meco] < smallFlow) {
            tankStage(error, step);
            return;
        }
        Statements::attemptSilently([&] { approach = v_[var::T31] - v_[var::T7D]; });
        error = std::abs(approach) - wanted;
        step.apply(approach - wanted);
        turn();
        if (std::abs(error) > approachTolerance && trials.isLost(error)) {
            set(var::EcoModel, "Impossible");
            noSolution();
            return;
        }
    }
}

/// Drives the liquid down to the bubble temperature at the injection pressure.
void EconomizerCalculation::tankStage(double error, StepControl step) {
    step.restart();
    set(var::EcoOK, isFalse);
    set(var::EcoModel, "Tank");
    constexpr double firstRaise = 5;
    trySet(var::meco, [&] { return v_[var::meco] * firstRaise; });
    double distance = 0;
    LostSearch trials(patience);
    while (std::abs(error) > approachTolerance && !AbortRequested()) {
        EcoCycle();
        Statements::attemptSilently([&] { distance = v_[var::T31] - v_[var::T6]; });
        error = std::abs(distance);
        trySet(var::meco, [&] { return v_[var::meco] * (1 + step.size() * distance); });
        if (v_[var::meco] < 0) set(var::meco, smallFlow);
        step.apply(distance);
        const double flow = v_[var::meco];
        if (std::abs(flow) > maxTankFlow * std::abs(v_[var::Mev]) || flow < smallFlow ||
            (std::abs(error) > approachTolerance && trials.isLost(error))) {
            noSolution();
            set(var::EcoModel, "Impossible");
            return;
        }
    }
}

}  // namespace marvello
