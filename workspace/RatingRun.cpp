#include "workspace/RatingRun.h"

namespace marvello {

namespace {

/// Empty if nobody wants it any more.
std::vector<Performance> cellsOf(const RatingPlan& plan, const SessionThread::IsWanted& isWanted) {
    const bool hasEconomizer = plan.conditions.EcoCalculateMode != EconomizerMode::none;
    if (isWanted && hasEconomizer)
        return rate(plan, loopWith(sessionPool())).value_or(std::vector<Performance>());
    Calculator calculator;
    return rate(plan, loopWith(calculator, isWanted)).value_or(std::vector<Performance>());
}

}  // namespace

RatingRun::RatingRun(QObject* parent) : QObject(parent), background_(*this) {}

void RatingRun::start(const std::shared_ptr<const PreparedCatalogue>& catalogue, const RatingPlan& plan) {
    background_.start(
        [this, catalogue, plan](const Background::Place& place) {
            place.tell([this, cells = cellsOf(plan, place.isWanted)] { emit rated(cells); });
        },
        [this](const QString& reason) { emit failed(reason); });
}

void RatingRun::stop() { background_.stop(); }

}  // namespace marvello
