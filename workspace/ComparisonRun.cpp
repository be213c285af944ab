#include "workspace/ComparisonRun.h"

#include <algorithm>

#include "data/Session.h"

namespace marvello {

namespace {

/// Empty if nobody wants them any more. An economizer is worth several threads.
std::vector<Curve> curvesAt(const Comparison& comparison, CurveAxis axis,
                            const SessionThread::IsWanted& isWanted, Calculator& calculator) {
    const bool hasEconomizer = std::ranges::any_of(comparison.machines, [](const ComparedMachine& machine) {
        return machine.choice.conditions.EcoCalculateMode != EconomizerMode::none;
    });
    const PointLoop loop =
        isWanted && hasEconomizer ? loopWith(sessionPool()) : loopWith(calculator, isWanted);
    return curvesOf(comparison, axis, loop).value_or(std::vector<Curve>());
}

}  // namespace

ComparisonRun::ComparisonRun(QObject* parent) : QObject(parent), background_(*this) {}

void ComparisonRun::start(const std::vector<ComparedChoice>& choices, CurveAxis axis) {
    isRunning_ = true;
    background_.start(
        [this, choices, axis](const Background::Place& place) {
            Calculator calculator;
            const auto comparison = std::make_shared<const Comparison>(
                compare(choices, preparedCatalogue(gDatabase()), calculator));
            place.tell([this, comparison] { emit compared(comparison); });
            place.tell([this, curves = curvesAt(*comparison, axis, place.isWanted, calculator)] {
                isRunning_ = false;
                emit drawn(curves);
            });
        },
        [this](const QString& reason) {
            isRunning_ = false;
            emit failed(reason);
        });
}

void ComparisonRun::stop() {
    background_.stop();
    isRunning_ = false;
}

}  // namespace marvello
