#include "workspace/RatingRun.h"

#include <exception>
#include <utility>

#include "controls/CoreText.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "thermo/RefpropLibrary.h"

namespace marvello {

namespace {

CalculatorPool& poolOfThread() {
    auto& pool = Session::current().part<std::unique_ptr<CalculatorPool>>();
    if (!pool) pool = std::make_unique<CalculatorPool>();
    return *pool;
}

/// Empty if nobody wants it any more.
std::vector<Performance> cellsOf(const RatingPlan& plan, const PointLoop& loop) {
    return rate(plan, loop).value_or(std::vector<Performance>());
}

}  // namespace

void RatingRun::start(const std::shared_ptr<const PreparedCatalogue>& catalogue, const RatingPlan& plan) {
    const unsigned number = ++started_;
    if (isRefpropConcurrent() &&
        thread_.start([this, number, catalogue, plan](const SessionThread::IsWanted& isWanted) {
            work(number, plan, isWanted);
        }))
        return;
    // Nothing else may happen in the middle of it.
    const auto giveTurn = std::exchange(Session::current().hooks.giveTurn, nullptr);
    work(number, plan, {});
    Session::current().hooks.giveTurn = giveTurn;
}

void RatingRun::stop() {
    thread_.stop();
    ++started_;
}

std::vector<Performance> RatingRun::carryOut(const RatingPlan& plan,
                                             const SessionThread::IsWanted& isWanted) {
    const CollectedBoxes said;  // what a point failed at is its state
    if (!isWanted) {
        Calculator calculator;
        return cellsOf(plan, loopWith(calculator));
    }
    gDatabase().Connect({});
    gDatabase().followFile();
    if (plan.conditions.EcoCalculateMode != EconomizerMode::none)
        return cellsOf(plan, loopWith(poolOfThread()));
    Calculator calculator;
    return cellsOf(plan, loopWith(calculator, isWanted));
}

/// In any thread.
void RatingRun::work(unsigned number, const RatingPlan& plan, const SessionThread::IsWanted& isWanted) {
    const auto tell = [this, number](auto emitSignal) {
        const auto ifWanted = [this, number, emitSignal] {
            if (number == started_) emitSignal();
        };
        QMetaObject::invokeMethod(this, ifWanted, Qt::QueuedConnection);
    };
    try {
        tell([this, cells = carryOut(plan, isWanted)] { emit rated(cells); });
    } catch (const std::exception& error) {
        tell([this, reason = fromCore(error.what())] { emit failed(reason); });
    }
}

}  // namespace marvello
